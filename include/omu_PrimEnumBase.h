#ifndef omu_PrimEnumBase_h
#define omu_PrimEnumBase_h

#include "cow_Map.h"
#include "omu_Primitive.h"

/// One row of an enumeration's table: a value and the name under which users and scripts know it. A table ends with a
/// row whose name is null.
struct omu_PrimEnumRow {
    int value;         ///< the enumerator's number
    char const * name; ///< null behind the last row
};

/// A value of some enumeration as a primitive: what does not depend on which enumeration it is.
class QVRSHPCORE_API omu_PrimEnumBase : public omu_Primitive {
public:
    ~omu_PrimEnumBase() override;

    cow_String TypeString() const override;
    /// The name.
    cow_String AsString(int form) const override;
    cow_String AsRepr() const override;
    /// Whether `other` is an enumeration's value, too, and has the same name.
    bool operator==(omu_Primitive const & other) const override;
    bool operator==(omu_PrimEnumBase const & other) const;

    static unsigned int TypeId() { return cls_ClassNumber_omu_PrimEnumBase; }
    /// The same for all enumerations: what is stored is the name alone.
    unsigned int DynTypeId() const override;
    void DBWrite(cls_WriteVisitor const & writer) const override;

    /// Takes the value with this exact name; false, and no change, when the enumeration has none.
    virtual bool SetValue(char const * text) = 0;
    /// Every name with its value, inserted in the order of the table.
    virtual cow_Map<cow_String, unsigned int> PermissibleValues() const = 0;

    /// The name.
    cow_String const & GetString() const { return name; }
    /// The names, separated by ", ", in the iteration order of PermissibleValues.
    cow_String PermissibleValuesAsString() const;

protected:
    omu_PrimEnumBase() = default;
    explicit omu_PrimEnumBase(cls_ReadVisitor const & reader);
    omu_PrimEnumBase(omu_PrimEnumBase const &) = default;
    omu_PrimEnumBase & operator=(omu_PrimEnumBase const &) = default;

    /// The first row of a value or of a name; null when there is none.
    static omu_PrimEnumRow const * rowOf(omu_PrimEnumRow const * rows, int value);
    static omu_PrimEnumRow const * rowOf(omu_PrimEnumRow const * rows, char const * text);
    /// Behind PermissibleValues.
    static cow_Map<cow_String, unsigned int> mapOf(omu_PrimEnumRow const * rows);

    /// Each raises nex_CmdException<atr_String, 2> for what a constructor did not accept.
    [[noreturn]] void refuse(int value) const;
    [[noreturn]] void refuse(cow_String const & text) const;
    [[noreturn]] static void refuse(omu_PrimEnumBase const & other);
    [[noreturn]] void refuseStoredName() const;

    cow_String name; ///< of the value
};

#endif
