#ifndef gsl_Point_h
#define gsl_Point_h

#include "QVRShpCore_Export.h"
#include "cls_Uid.h"
#include "gsl_Matrix.h"
#include "mem_AllocationOperators.h"

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A point of doubles x, y, z.
class QVRSHPCORE_API gsl_Point : public mem_AllocationOperators {
public:
    constexpr gsl_Point() = default; ///< (0, 0, 0)
    /// From its components.
    constexpr gsl_Point(double xValue, double yValue, double zValue) : x(xValue), y(yValue), z(zValue) {}
    explicit gsl_Point(cls_ReadVisitor const & reader);

    /// The components.
    constexpr double GetX() const { return x; }
    constexpr double GetY() const { return y; }
    constexpr double GetZ() const { return z; }

    /// Moves the point to where `matrix` takes it.
    void Transform(gsl_Matrix const & matrix);

    static unsigned int TypeId();
    unsigned int DynTypeId() const { return TypeId(); }
    void DBWrite(cls_WriteVisitor const & writer) const;
    static void InitializeMetadata(cls_ClassRegistrar & registrar);

    cls_Uid uid; ///< persistent identity, null unless somebody gives it one

private:
    double x = 0, y = 0, z = 0;
};

#endif
