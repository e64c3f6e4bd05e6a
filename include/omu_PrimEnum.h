#ifndef omu_PrimEnum_h
#define omu_PrimEnum_h

#include "omu_PrimEnumBase.h"

/// A value of the enumeration `E` as a primitive: the value and its name, always in step. An enumeration becomes usable
/// here by a function `omu_PrimEnumRow const * omu_PrimEnumRows(E)`, whose argument only chooses among such functions
/// and which gives the enumeration's table. A library that exports the primitive exports the enumeration, too, for a
/// template is visible only as far as its arguments. The second template argument is always 1.
///
/// What a constructor cannot find in the table it refuses with nex_CmdException<atr_String, 2>.
template <class E, int version> class QVRSHPCORE_API omu_PrimEnum : public omu_PrimEnumBase {
public:
    omu_PrimEnum(omu_PrimEnum const &) = default;
    omu_PrimEnum & operator=(omu_PrimEnum const &) = default;
    /// The first row with this value.
    omu_PrimEnum(E wanted) {
        if (!SetValue(wanted))
            refuse(static_cast<int>(wanted));
    }
    /// The same from the enumerator's number.
    explicit omu_PrimEnum(int number) : omu_PrimEnum(static_cast<E>(number)) {}
    /// The row with this exact name.
    omu_PrimEnum(cow_String const & text) {
        if (!SetValue(text.CStr()))
            refuse(text);
    }
    /// Takes over a value of another enumeration by its name.
    omu_PrimEnum(omu_PrimEnumBase const & other) {
        if (!SetValue(other.GetString().CStr()))
            refuse(other);
    }
    /// Reads a value that was stored by its name, of this enumeration or of another.
    explicit omu_PrimEnum(cls_ReadVisitor const & reader) : omu_PrimEnumBase(reader) {
        if (!SetValue(name.CStr()))
            refuseStoredName();
    }

    omu_Primitive * Copy() const override { return new omu_PrimEnum(*this); }
    bool SetValue(char const * text) override { return take(rowOf(rows(), text)); }
    cow_Map<cow_String, unsigned int> PermissibleValues() const override { return mapOf(rows()); }

    /// Takes the first row with this value; false, and no change, when there is none.
    bool SetValue(E wanted) { return take(rowOf(rows(), static_cast<int>(wanted))); }
    bool SetValue(int number) { return SetValue(static_cast<E>(number)); }

    /// Name and value of a row of the table. `row` is not checked: 0 to the number of rows, where the row behind the
    /// last has a null name.
    static char const * Name(int row) { return rows()[row].name; }
    static E Value(int row) { return static_cast<E>(rows()[row].value); }

    E value{}; ///< not to be written: the name goes with it

private:
    static omu_PrimEnumRow const * rows() { return omu_PrimEnumRows(E()); }

    bool take(omu_PrimEnumRow const * row) {
        if (row == nullptr)
            return false;
        name = row->name;
        value = static_cast<E>(row->value);
        return true;
    }
};

#endif
