#ifndef packed_tuples_h
#define packed_tuples_h

// Tuples put together element by element, and laws that hold for everything that is packed into them or ordered.

#include "cow_List.h"
#include "nex_PrimException.h"
#include "omu_PrimTuple.h"
#include "res_PrimEnums.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

using PrimException = nex_PrimException<atr_String, 1>;
using Elements = std::vector<std::function<void(omu_PrimTuple &)>>;

template <class... Values> Elements elementsOf(Values... values) {
    return {[values](omu_PrimTuple & tuple) { tuple.Put(values); }...};
}
inline omu_PrimTuple tupleOf(Elements const & elements) {
    omu_PrimTuple tuple('(');
    for (auto const & put : elements)
        put(tuple);
    return tuple;
}
template <class... Values> omu_PrimTuple tupleOf(Values... values) {
    return tupleOf(elementsOf(values...));
}

template <class Object> std::unique_ptr<omu_PrimTuple> packed(Object const & object) {
    return std::unique_ptr<omu_PrimTuple>(object.PackTuple());
}

template <class Value> Elements with(Elements elements, std::size_t i, Value value) {
    elements[i] = elementsOf(value)[0];
    return elements;
}

/// That a tuple is read from its beginning, and refused without, with twice, and with something that no tuple of ours
/// holds in place of each of its elements.
template <class Unpack> void expectOnlyThisShape(Elements const & elements, Unpack unpack) {
    omu_PrimTuple right = tupleOf(elements);
    for (int time = 0; time < 2; ++time)
        EXPECT_NO_THROW(unpack(right));
    for (std::size_t i = 0; i < elements.size(); ++i) {
        auto missing = elements, surplus = elements, wrong = elements;
        missing.erase(missing.begin() + static_cast<std::ptrdiff_t>(i));
        surplus.insert(surplus.begin() + static_cast<std::ptrdiff_t>(i), elements[i]);
        wrong[i] = [](omu_PrimTuple & tuple) { tuple.Put(omu_PrimEnum<res_PairEnm, 1>(res_Pair_NONE).Copy()); };
        for (omu_PrimTuple tuple : {tupleOf(missing), tupleOf(surplus), tupleOf(wrong)})
            EXPECT_THROW(unpack(tuple), PrimException) << tuple.AsRepr().CStr();
    }
}

/// That only this shape is read, and that what is read from `elements` differs when any is replaced by its other.
template <class Unpack>
void expectEachElementToCount(Elements const & elements, Elements const & others, Unpack unpack) {
    expectOnlyThisShape(elements, unpack);
    auto const read = [&](Elements const & each) {
        omu_PrimTuple tuple = tupleOf(each);
        return unpack(tuple);
    };
    EXPECT_TRUE(read(elements) == read(elements));
    for (std::size_t i = 0; i < elements.size(); ++i) {
        Elements changed = elements;
        changed[i] = others.at(i);
        EXPECT_TRUE(read(elements) != read(changed) && !(read(elements) == read(changed))) << i;
    }
}

/// That differences have the sign, and equality the outcome, of objects in falling order, of which only the first has
/// another label.
template <class Object> void expectFallingOrder(std::vector<Object> const & all) {
    for (std::size_t i = 0; i < all.size(); ++i)
        for (std::size_t k = 0; k < all.size(); ++k) {
            EXPECT_EQ(all[i] - all[k] > 0, i < k) << i << ' ' << k;
            EXPECT_EQ(all[i] == Object(all[k]), i == k) << i << ' ' << k;
            EXPECT_EQ(all[i] > all[k], i == 0 && k != 0) << "the label alone";
        }
}

#endif
