#ifndef odiC_FieldPacking_h
#define odiC_FieldPacking_h

#include "cow_ConstMapIterator.h"
#include "omu_PrimTuple.h"

#include <memory>
#include <type_traits>

// How the fields of a descriptor stand in a tuple. A descriptor names its fields once, in the order in which they are
// packed, and is walked with one of the two visitors:
//
//     forEachField(odiC_FieldWriter{tuple}, *this);
//
// Truth values and enumerators are written as int, single-precision numbers as double; each is read back into its own
// type.

/// Puts each field that it is called with at the end of a tuple.
struct odiC_FieldWriter {
    omu_PrimTuple & target;

    template <class Field> void operator()(Field const & field) const {
        if constexpr (std::is_same_v<Field, bool> || std::is_enum_v<Field>)
            target.Put(static_cast<int>(field));
        else if constexpr (std::is_same_v<Field, float>)
            target.Put(static_cast<double>(field));
        else
            target.Put(field);
    }
};

/// Gets each field that it is called with from a tuple, from where that has been read to.
struct odiC_FieldReader {
    omu_PrimTuple & source;

    template <class Field> void operator()(Field & field) const {
        if constexpr (std::is_enum_v<Field>)
            field = static_cast<Field>(get<int>());
        else if constexpr (std::is_same_v<Field, float>)
            field = static_cast<float>(get<double>());
        else
            source.Get(field);
    }

private:
    template <class Element> Element get() const {
        Element element{};
        source.Get(element);
        return element;
    }
};

/// An empty tuple with room for `length` elements, bracketed as all of ours are.
inline std::unique_ptr<omu_PrimTuple> odiC_newTuple(int length) {
    return std::unique_ptr<omu_PrimTuple>(new omu_PrimTuple(length, '('));
}

/// Adds the tuple (label, number).
inline void odiC_putPair(omu_PrimTuple & target, cow_String const & label, unsigned int number) {
    auto pair = odiC_newTuple(2);
    pair->Put(label);
    pair->Put(number);
    target.Put(pair.release());
}

/// Reads a tuple of tuples from its first element to its end and calls `visit` with each.
template <class Visit> void odiC_forEachTuple(omu_PrimTuple & tuples, Visit visit) {
    tuples.Begin();
    for (int i = 0; i < tuples.Length(); ++i) {
        omu_PrimTuple tuple('(');
        tuples.Get(tuple);
        visit(tuple);
    }
    tuples.End("");
}

/// Reads a tuple of (label, number) and calls `visit` with each label and number.
template <class Visit> void odiC_forEachPair(omu_PrimTuple & pairs, Visit visit) {
    odiC_forEachTuple(pairs, [&](omu_PrimTuple & pair) {
        cow_String label;
        unsigned int number = 0;
        pair.Begin();
        pair.Get(label);
        pair.Get(number);
        pair.End("");
        visit(label, number);
    });
}

/// `left` - `right`, modulo 2^32.
inline int odiC_difference(int left, int right) {
    return static_cast<int>(static_cast<unsigned int>(left) - static_cast<unsigned int>(right));
}

#endif
