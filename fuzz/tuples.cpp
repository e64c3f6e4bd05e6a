// Tuples of every shape given to every descriptor. What is sound is read; what is not raises the exception of
// primitives; and what comes out packs, unpacks, compares and prints as it should, as do descriptors that were built.

#include "input.h"
#include "nex_CmdException.h"
#include "nex_PrimException.h"
#include "odiC_CategorySelection.h"
#include "odiC_CategorySpec.h"
#include "odiC_StepFrameDesc.h"
#include "odiC_VariableDesc.h"
#include "odiC_VariableSelection.h"
#include "omu_PrimTuple.h"
#include "res_PrimEnums.h"

#include <cstring>
#include <iterator>
#include <limits>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using Tuple = std::unique_ptr<omu_PrimTuple>;

cow_String anyText(Input & input) {
    constexpr char const * texts[] = {"", "S", "S11", "S12", "Mises", "SNEG", "SPOS", "ply 1", "ply 2", "it's\n\\"};
    std::uint8_t const kind = input.byte();
    if (kind < 240)
        return texts[kind % std::size(texts)];
    std::string bytes;
    for (int length = kind % 16; length > 0; --length)
        bytes += static_cast<char>(input.byte());
    return bytes.c_str();
}

unsigned int anyNumber(Input & input) {
    constexpr unsigned int numbers[] = {0, 1, 2, 3, 4, 5, 6, 8, 12, 0x7fffffff, 0x80000000, 0xffffffff};
    std::uint8_t const kind = input.byte();
    return kind < 240 ? numbers[kind % std::size(numbers)] : static_cast<unsigned int>(input.bits(4));
}

/// An enumerator of each enumeration, and sometimes of none.
int anyEnumerator(Input & input) {
    std::uint8_t const kind = input.byte();
    return kind < 240 ? kind % 4 : static_cast<int>(anyNumber(input));
}

double anyReal(Input & input) {
    using Float = std::numeric_limits<float>;
    constexpr double reals[] = {0,
                                1.5,
                                -1,
                                0.1,
                                -0.0,
                                Float::max(),
                                Float::lowest(),
                                1e-45,
                                1e300,
                                -std::numeric_limits<double>::infinity(),
                                Float::quiet_NaN()};
    std::uint8_t const kind = input.byte();
    if (kind < 240)
        return reals[kind % std::size(reals)];
    std::uint64_t const bits = input.bits(8);
    double number;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

bool isOdd(Input & input) {
    return input.byte() % 2 != 0;
}

cow_String anyMaskBlock(Input & input) {
    cow_String const block(anyNumber(input) % omi_BlkBitVect::mostBlocks);
    constexpr char const * bits[] = {":0", ":1", ":00ff", ":FFFFFFFF", ":7fffffff"};
    return block + bits[input.below(std::size(bits))];
}

template <class Item, class Draw> cow_List<Item> anyList(Input & input, Draw draw) {
    cow_List<Item> list;
    for (std::size_t length = input.below(3); length > 0; --length)
        list.Append(static_cast<Item>(draw(input)));
    return list;
}

void putAnything(Input & input, omu_PrimTuple & target, int depth = 0) {
    switch (input.byte() % 11) {
    case 0: target.Put(anyText(input)); break;
    case 1: target.Put(atr_String(anyText(input))); break;
    case 2: target.Put(static_cast<int>(anyNumber(input))); break;
    case 3: target.Put(anyNumber(input)); break;
    case 4: target.Put(isOdd(input)); break;
    case 5: target.Put(anyReal(input)); break;
    case 6: target.Put(anyList<cow_String>(input, anyText)); break;
    case 7: target.Put(anyList<float>(input, anyReal)); break;
    case 8: target.Put(static_cast<omu_Primitive *>(nullptr)); break;
    case 9: target.Put(new omu_PrimEnum<res_InvariantEnm, 1>(res_Invariant_MISES)); break;
    default: {
        omu_PrimTuple nested("([{<|"[input.byte() % 5]);
        for (std::size_t length = depth < 3 ? input.below(3) : 0; length > 0; --length)
            putAnything(input, nested, depth + 1);
        target.Put(nested);
    }
    }
}

/// Makes tuples after a shape, one letter for each element: t text, i whole number, e enumerator, d real number, T list
/// of texts, F list of real numbers, M bit mask. (...) is a tuple of that shape, [...] any number of them, {...} the
/// same with empty ones among them. One element, counted from 0 through all levels, can be changed.
class TupleMaker {
public:
    enum Change { drop, repeat, replace, vary, numChanges };

    TupleMaker(Input const & bytes, int elementToChange = -1, Change wantedChange = drop)
        : input(bytes), other(bytes), toChange(elementToChange), change(wantedChange) {
        other.bits(5);
    }
    omu_PrimTuple make(char const * shape) {
        omu_PrimTuple tuple('(');
        fill(tuple, shape);
        return tuple;
    }

private:
    void fill(omu_PrimTuple & target, char const *& shape) {
        while (*shape != '\0' && std::strchr(")]}", *shape) == nullptr)
            putElement(target, shape);
    }

    void putElement(omu_PrimTuple & target, char const *& shape) {
        if (count++ != toChange)
            return put(target, shape);
        omu_PrimTuple dropped('(');
        char const * again = shape;
        put(change == repeat ? target : dropped, shape);
        std::swap(input, other);
        if (change == replace)
            putAnything(input, target);
        else if (change != drop)
            put(target, again);
        std::swap(input, other);
    }

    void put(omu_PrimTuple & target, char const *& shape) {
        switch (*shape++) {
        case 't': target.Put(anyText(input)); break;
        case 'i': putWhole(target); break;
        case 'e': target.Put(anyEnumerator(input)); break;
        case 'd': target.Put(anyReal(input)); break;
        case 'T': target.Put(anyList<cow_String>(input, anyText)); break;
        case 'F': target.Put(anyList<float>(input, anyReal)); break;
        case 'M': target.Put(anyList<cow_String>(input, anyMaskBlock)); break;
        case '(': putTuple(target, shape); break;
        default: putTuples(target, shape); break;
        }
    }

    void putWhole(omu_PrimTuple & target) {
        unsigned int const number = anyNumber(input);
        if (number % 16 == 5)
            target.Put(number != 5);
        else if (number % 2 == 0)
            target.Put(number);
        else
            target.Put(static_cast<int>(number));
    }

    void putTuple(omu_PrimTuple & target, char const *& shape) {
        auto nested = std::make_unique<omu_PrimTuple>('(');
        fill(*nested, shape);
        ++shape; // the bracket
        target.Put(nested.release());
    }

    void putTuples(omu_PrimTuple & target, char const *& shape) {
        bool const haveEmpty = shape[-1] == '{';
        char const * const first = shape;
        for (int open = 1; open > 0; ++shape)
            open += std::strchr("([{", *shape) != nullptr ? 1 : std::strchr(")]}", *shape) != nullptr ? -1 : 0;
        for (std::size_t number = input.below(3); number > 0; --number)
            if (haveEmpty && input.byte() % 4 == 0) {
                target.Put(omu_PrimTuple('('));
            } else {
                char const * again = first;
                putTuple(target, again);
            }
    }

    Input input;
    Input other; ///< the bytes for what is put in place of an element
    int toChange;
    Change change;
    int count = 0;
};

Tuple packed(odiC_CategoryDesc const & category) {
    return Tuple(category.PackTuple());
}
Tuple packed(odiC_CategorySelection const & selection) {
    return std::make_unique<omu_PrimTuple>(selection.PackTuple());
}
Tuple packed(odiC_VariableDesc const & variable) {
    return Tuple(variable.PackTuple(QVRBasStringMode()));
}
Tuple packed(odiC_VariableSelection const & selection) {
    return Tuple(selection.PackTuple());
}
Tuple packed(odiC_StepFrameDesc const & step) {
    return Tuple(step.PackTuple());
}

template <class Descriptor> Descriptor unpacked(omu_PrimTuple & tuple) {
    if constexpr (std::is_same_v<Descriptor, odiC_VariableDesc>)
        return Descriptor::UnpackTuple(tuple, QVRBasStringMode());
    else
        return Descriptor::UnpackTuple(tuple);
}

bool isNull(odiC_VariableSelection const & selection) {
    return selection.IsNull();
}
template <class Descriptor> bool isNull(Descriptor const &) {
    return false;
}

/// What takes part in a comparison, packed: two descriptors are equal where these are.
template <class Descriptor> Tuple compared(Descriptor const & x) {
    return packed(x);
}
/// Of null selections nothing; of others all but the labels of the specs, and the local flag.
template <> Tuple compared(odiC_VariableSelection const & selection) {
    auto tuple = std::make_unique<omu_PrimTuple>('(');
    if (selection.IsNull())
        return tuple;
    std::vector<odiC_CategorySpec> specs;
    std::vector<odiC_CategorySpec const *> slots;
    specs.reserve(static_cast<std::size_t>(selection.CategorySpecCount()));
    for (int i = 0; i < selection.CategorySpecCount(); ++i) {
        odiC_CategorySpec const * const spec = selection.CategorySpecs()[i];
        slots.push_back(spec == nullptr ? nullptr
                                        : &specs.emplace_back(spec->categoryId(), "", spec->showDiffLocations(),
                                                              spec->TopSectionId(), spec->BottomSectionId(), "", ""));
    }
    odiC_VariableSelection withoutLabels(selection);
    withoutLabels.CopyCategorySpec(slots.data(), selection.CategorySpecCount(), "");
    tuple->Put(packed(withoutLabels).release());
    tuple->Put(selection.PlyName());
    tuple->Put(selection.LocalFlag());
    return tuple;
}

bool isPrintable(odiC_CategoryDesc const & category) {
    return category.SectionPointIndices().IsMember(static_cast<unsigned int>(category.DefaultSectionPoint()));
}
bool isPrintable(odiC_VariableDesc const & variable) {
    cow_ConstMapIterator<cow_String, odiC_CategoryDesc> category(variable.CategoryMap());
    for (category.First(); !category.IsDone(); category.Next())
        if (!isPrintable(category.CurrentValue()))
            return false;
    return true;
}
template <class Descriptor> bool isPrintable(Descriptor const &) {
    return true;
}

/// Nothing for what cannot be printed.
template <class Descriptor> cow_String printed(Descriptor const & x) {
    if constexpr (!std::is_same_v<Descriptor, odiC_StepFrameDesc>)
        try {
            if (isPrintable(x))
                return x.Print();
        } catch (nex_CmdException<atr_String, 2> const &) { // a number without a name
        }
    return "";
}

template <class Descriptor> void checkComparison(Descriptor const & x, Descriptor const & y, bool isEqual) {
    require((x == y) == isEqual && (x != y) == !isEqual, "equality sees all that is packed", "");
    require((x < y) == (y > x) && !(x < y && x > y), "order is antisymmetric", "");
    if constexpr (requires { x - y; }) {
        auto const difference = static_cast<unsigned int>(x - y);
        require(difference + static_cast<unsigned int>(y - x) == 0, "difference is antisymmetric", "");
        if (isEqual)
            require(difference == 0 || isNull(x), "equals have no difference", "");
        else
            require(difference != 0 || Descriptor(x) != x || Descriptor(y) != y,
                    "what is unequal has a difference, unless a number is none", "");
    }
}
template <class Descriptor> void checkComparison(Descriptor const & x, Descriptor const & y) {
    checkComparison(x, y, *compared(x) == *compared(y));
}

/// With a ply name, of the specs with one category label only the first travels.
void checkTravelled(odiC_VariableSelection const & from, odiC_VariableSelection const & to) {
    std::set<std::string> labels;
    require(from.CategorySpecCount() == to.CategorySpecCount() && from.PlyName() == to.PlyName(), "slots travel", "");
    for (int i = 0; i < from.CategorySpecCount(); ++i) {
        odiC_CategorySpec const * const spec = from.CategorySpecs()[i];
        odiC_CategorySpec const * const there = to.CategorySpecs()[i];
        bool const isFirst = spec != nullptr && labels.insert(spec->categoryLabel().CStr()).second;
        bool const travels = spec != nullptr && (isFirst || from.PlyName().Empty());
        require((there != nullptr) == travels && (!travels || *there == *spec), "specs travel with their labels", "");
    }
}

template <class Descriptor> void check(Descriptor const & x, bool isToBePrinted) {
    Tuple const tuple = packed(x);
    Descriptor y;
    y = unpacked<Descriptor>(*tuple);
    Tuple const again = packed(y);
    bool const isEqual = *again == *tuple;
    require(isEqual || again->AsRepr() == tuple->AsRepr(), "a round trip changes nothing", "");
    require(!isToBePrinted || printed(x) == printed(y), "a round trip prints the same", "");
    require(x == x, "all equals itself", "");
    if constexpr (std::is_same_v<Descriptor, odiC_VariableSelection>) {
        require(x.RefinementLabel().Empty() == (x.RefinementId() == 0xffffffff), "a refinement has label and id", "");
        checkTravelled(x, y);
        checkComparison(x, y);
    } else {
        checkComparison(x, y, isEqual);
    }
}

/// What a tuple gives; nothing when it is refused.
template <class Descriptor> std::optional<Descriptor> readTuple(omu_PrimTuple & tuple) {
    try {
        return unpacked<Descriptor>(tuple);
    } catch (nex_PrimException<atr_String, 1> const &) {
        return std::nullopt;
    }
}

/// The elements of a tuple of this shape, one for each letter or bracket outside all brackets.
int lengthOf(char const * shape) {
    int length = 0;
    for (int open = 0; *shape != '\0'; ++shape) {
        open -= *shape == ')' || *shape == ']' || *shape == '}';
        length += open == 0 && *shape != ')';
        open += *shape == '(' || *shape == '[' || *shape == '{';
    }
    return length;
}

/// A tuple with a change, which may lie beyond its end; where that leaves it sound, also beside the tuple without.
template <class Descriptor> void checkTuples(Input & input, char const * shape) {
    int const element = input.byte() % 64;
    auto const change = static_cast<TupleMaker::Change>(input.byte() % TupleMaker::numChanges);
    omu_PrimTuple tuple = TupleMaker(input, element, change).make(shape);
    auto const x = readTuple<Descriptor>(tuple);
    if (!x.has_value())
        return require(change != TupleMaker::vary, "a sound tuple is read", "");
    require(tuple.Length() == lengthOf(shape), "a tuple of another length is refused", "");
    if (change == TupleMaker::vary) {
        omu_PrimTuple unchanged = TupleMaker(input).make(shape);
        checkComparison(*x, unpacked<Descriptor>(unchanged));
    }
    check(*x, input.byte() % 4 == 0);
}

/// A tuple of tuples becomes a map by label, of which each value is one of a tuple's.
template <class Descriptor> void checkMap(Input & input, char const * shape) {
    int const element = input.byte() % 64;
    auto const change = static_cast<TupleMaker::Change>(input.byte() % TupleMaker::numChanges);
    omu_PrimTuple tuple = TupleMaker(input, element, change).make(shape);
    try {
        cow_Map<cow_String, Descriptor> const map = Descriptor::UnpackTupleMap(tuple);
        require(map.Size() <= tuple.Length() && map.IsEmpty() == (tuple.Length() == 0), "labels are counted once", "");
        cow_ConstMapIterator<cow_String, Descriptor> entry(map);
        for (entry.First(); !entry.IsDone(); entry.Next()) {
            require(entry.CurrentKey() == entry.CurrentValue().CategoryLabel(), "the key is the label", "");
            check(entry.CurrentValue(), true);
        }
    } catch (nex_PrimException<atr_String, 1> const &) {
    }
}

/// Any tuple: a copy is the same, and reading and refusing leave it as it was.
void checkAnyTuple(Input & input) {
    omu_PrimTuple tuple('(');
    for (std::size_t length = input.below(8); length > 0; --length)
        putAnything(input, tuple);
    cow_String const text = tuple.AsRepr();
    omu_PrimTuple copy('[');
    copy = tuple;
    switch (input.byte() % 5) {
    case 0: readTuple<odiC_CategoryDesc>(tuple); break;
    case 1: readTuple<odiC_CategorySelection>(tuple); break;
    case 2: readTuple<odiC_VariableDesc>(tuple); break;
    case 3: readTuple<odiC_VariableSelection>(tuple); break;
    default: readTuple<odiC_StepFrameDesc>(tuple); break;
    }
    require(tuple.AsRepr() == text && copy.AsRepr() == text, "a copy is the same, and reading changes nothing",
            text.CStr());
    require((copy == tuple) == (tuple == tuple), "a copy is as equal as the tuple itself", text.CStr());
    tuple.Put(1);
    require(tuple != copy && copy.AsRepr() == text, "a copy is the copy's own", text.CStr());
}

// Where one call draws several times it is in braces, where the order is the same with every compiler.

odiC_VariableDesc builtVariable(Input & input) {
    cow_String const label = anyText(input), text = anyText(input), positionLabel = anyText(input);
    auto const position = static_cast<res_OutputPositionEnm>(anyEnumerator(input));
    auto const type = static_cast<res_DataTypeEnm>(anyEnumerator(input));
    auto const least = static_cast<float>(anyReal(input)), greatest = static_cast<float>(anyReal(input));
    odiC_VariableDesc variable(label, text, position, atr_String(positionLabel), type, text, res_StorageType_FLOAT,
                               isOdd(input), least, greatest, QVRBasStringMode());
    for (std::size_t step = input.below(7); step > 0; --step) {
        cow_String const added = anyText(input), category = anyText(input);
        unsigned int const id = anyNumber(input);
        switch (input.byte() % 4) {
        case 0: variable.AddInvariant(added, id); break;
        case 1: variable.AddComponent(added, id); break;
        default: {
            bool const allow = isOdd(input);
            variable.AddSection(category, added, id, allow, isOdd(input));
        }
        }
    }
    return variable;
}

odiC_CategoryDesc builtCategory(Input & input) {
    odiC_CategoryDesc category{anyText(input), cow_Map<cow_String, unsigned int>(), isOdd(input), 1};
    for (std::size_t step = input.below(7); step > 0; --step) {
        cow_String const label = anyText(input);
        if (input.byte() % 3 == 0)
            category.RemoveSection(label);
        else
            category.AddSection(label, anyNumber(input));
    }
    return category;
}

odiC_VariableSelection builtSelection(Input & input) {
    auto const refinement = static_cast<calC_VariableRefinementTypeEnm>(input.byte() % 4);
    cow_String const label = anyText(input);
    odiC_VariableSelection selection{builtVariable(input), refinement, label, anyNumber(input), isOdd(input)};
    std::vector<odiC_CategorySpec> specs;
    std::vector<odiC_CategorySpec const *> slots;
    auto const count = static_cast<int>(input.below(3));
    for (int id = 0; id < count; ++id)
        specs.push_back({id, anyText(input), isOdd(input), input.byte(), input.byte(), anyText(input), "SNEG"});
    for (odiC_CategorySpec const & spec : specs)
        slots.push_back(isOdd(input) ? &spec : nullptr);
    selection.CopyCategorySpec(slots.data(), count, anyText(input));
    return selection;
}

odiC_StepFrameDesc builtStep(Input & input) {
    omi_BlkBitVect mask;
    for (std::size_t bits = input.below(6); bits > 0; --bits)
        mask.SetBit(anyNumber(input));
    auto const labels = anyList<cow_String>(input, anyText);
    auto const values = anyList<float>(input, anyReal);
    auto const value = static_cast<float>(anyReal(input));
    auto const domain = static_cast<odiC_StepDomainEnm>(anyNumber(input));
    cow_String const label = anyText(input), text = anyText(input), frame = anyText(input);
    return {label, text, value, 1, value, domain, frame, labels, values, mask, isOdd(input)};
}

/// Two that were built one behind the other.
template <class Build> void checkBuilt(Input & input, Build build) {
    auto const x = build(input);
    check(x, input.byte() % 4 == 0);
    checkComparison(x, build(input));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    Input input(data, size);
    switch (input.byte() % 12) {
    case 0: checkTuples<odiC_CategoryDesc>(input, "t([ti])ii"); break;
    case 1: checkTuples<odiC_CategorySelection>(input, "tiitit"); break;
    case 2: checkTuples<odiC_VariableDesc>(input, "ttetete([ti])([ti])([t([ti])ii])iiddi"); break;
    case 3: checkTuples<odiC_VariableSelection>(input, "teeeetii(t{tiititi})iddii"); break;
    case 4: checkTuples<odiC_StepFrameDesc>(input, "ttddditTFiM"); break;
    case 5: checkMap<odiC_CategoryDesc>(input, "[t([ti])ii]"); break;
    case 6: checkMap<odiC_CategorySelection>(input, "[tiitit]"); break;
    case 7: checkBuilt(input, builtVariable); break;
    case 8: checkBuilt(input, builtCategory); break;
    case 9: checkBuilt(input, builtSelection); break;
    case 10: checkBuilt(input, builtStep); break;
    default: checkAnyTuple(input); break;
    }
    return 0;
}
