#ifndef nex_Exception_h
#define nex_Exception_h

#include "QVRBasException.h"
#include "cls_ClassNumbers.h"
#include "cls_Uid.h"

class cls_ReadVisitor;
class cls_WriteVisitor;

/// An exception with a code, which can be stored. What is stored of an exception is what its class writes: the place
/// that Throw notes is not.
class QVRSHPCORE_API nex_Exception : public QVRBasException {
public:
    ~nex_Exception() override;

    /// The number of the kind of failure; 0 where the class has none.
    virtual int GetCode() const;
    /// The same as Clone, at this level of the tree.
    virtual nex_Exception * Copy() const = 0;

    static unsigned int TypeId() { return cls_ClassNumber_nex_Exception; }
    /// The class number under which DBWrite stores the object.
    virtual unsigned int DynTypeId() const;
    virtual void DBWrite(cls_WriteVisitor const & writer) const;

protected:
    nex_Exception() noexcept = default;
    explicit nex_Exception(cls_ReadVisitor const & reader);
    nex_Exception(nex_Exception const &) noexcept = default;
    nex_Exception & operator=(nex_Exception const &) noexcept = default;

private:
    cls_Uid uid; ///< null, so that this part is stored with every object that it belongs to
};

#endif
