#include "omu_PrimTuple.h"

#include "atr.h"
#include "cls_ReadVisitor.h"
#include "cls_WriteRequestListObj.h"
#include "cls_WriteVisitor.h"
#include "nex_PrimException.h"
#include "omu_PrimEnumBase.h"

#include <charconv>
#include <cmath>
#include <iterator>
#include <type_traits>

namespace {

constexpr char const * integerName = "integer";
constexpr char const * unsignedName = "unsigned integer";
constexpr char const * booleanName = "boolean";
constexpr char const * realName = "real number";
constexpr char const * textName = "text";
constexpr char const * tupleName = "tuple";
constexpr char const * primitiveName = "primitive";
constexpr char const * textListName = "list of texts";
constexpr char const * numberListName = "list of real numbers";

char closingOf(char opening) {
    switch (opening) {
    case '(': return ')';
    case '[': return ']';
    case '{': return '}';
    case '<': return '>';
    default: return opening;
    }
}

void appendChar(cow_String & text, char character) {
    text.append(&character, 1, 0, 0);
}

template <class Real> void appendReal(cow_String & text, Real number) {
    char digits[32];
    char const * const end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
    cow_String const written(digits, static_cast<int>(end - digits));
    text.Append(written);
    if (std::isfinite(number) && written.Find(".") == written.Length() && written.Find("e") == written.Length())
        text.Append(".0");
}

void appendQuoted(cow_String & text, cow_String const & content) {
    appendChar(text, '\'');
    for (char const * c = content.CStr(); *c != '\0'; ++c) {
        if (*c == '\'' || *c == '\\')
            appendChar(text, '\\');
        if (*c == '\n')
            text.Append("\\n");
        else
            appendChar(text, *c);
    }
    appendChar(text, '\'');
}

template <class Item, class Write> void appendList(cow_String & text, cow_List<Item> const & list, Write write) {
    appendChar(text, '[');
    for (int i = 0; i < list.Length(); ++i) {
        if (i > 0)
            text.Append(", ");
        write(text, list.ConstGet(i));
    }
    appendChar(text, ']');
}

constexpr cls_FieldHandle bracketField("bracket", 0);
constexpr cls_FieldHandle elementsField("elements", 1);

// An element is stored as an object without a class of its own, of these two attributes.
constexpr cls_FieldHandle kindField("kind", 0); ///< one of the names above
constexpr cls_FieldHandle valueField("value", 1);

/// An enumeration's value that was stored as the element of a tuple: its name, of whatever enumeration.
class NamedValue : public omu_PrimEnumBase {
public:
    explicit NamedValue(cls_ReadVisitor const & reader) : omu_PrimEnumBase(reader) {}

    omu_Primitive * Copy() const override { return new NamedValue(*this); }
    bool SetValue(char const * text) override { return name == text; }
    cow_Map<cow_String, unsigned int> PermissibleValues() const override { return {}; }
};

/// A list is stored as a tuple of its items.
template <class Stored, class Item> omu_PrimTuple tupleOf(cow_List<Item> const & list) {
    omu_PrimTuple items(list.Length(), '[');
    for (int i = 0; i < list.Length(); ++i)
        items.Put(Stored(list.ConstGet(i)));
    return items;
}

template <class Stored, class Item> cow_List<Item> listOf(omu_PrimTuple items) {
    cow_List<Item> list;
    for (int i = 0; i < items.Length(); ++i) {
        Stored item{};
        items.Get(item);
        list.Append(static_cast<Item>(item));
    }
    return list;
}

[[noreturn]] void raise(atr_String const & message, int line) {
    nex_PrimException<atr_String, 1>(message).Throw("frame/primitives/omu_PrimTuple", line);
}

} // namespace

omu_PrimTuple::omu_PrimTuple(char bracket) : opening(bracket) {
    static_assert(std::is_nothrow_move_constructible_v<Element>, "a growing tuple would copy what it holds");
}

omu_PrimTuple::omu_PrimTuple(int length, char bracket) : opening(bracket) {
    if (length > 0)
        elements.reserve(static_cast<std::size_t>(length));
}

omu_PrimTuple::omu_PrimTuple(omu_PrimTuple const & other)
    : omu_PrimSequence(other), elements(other.elements), opening(other.opening) {}

omu_PrimTuple & omu_PrimTuple::operator=(omu_PrimTuple const & other) {
    auto copied = other.elements; // before anything is let go: `other` may be an element of this tuple
    opening = other.opening;
    readCount = 0;
    elements.swap(copied);
    return *this;
}

omu_PrimTuple::~omu_PrimTuple() = default;

cow_String omu_PrimTuple::TypeString() const {
    return tupleName;
}

cow_String omu_PrimTuple::AsString(int) const {
    return AsRepr();
}

cow_String omu_PrimTuple::AsRepr() const {
    cow_String text;
    appendChar(text, opening);
    for (Element const & element : elements) {
        if (&element != &elements.front())
            text.Append(", ");
        appendRepr(text, element);
    }
    appendChar(text, closingOf(opening));
    return text;
}

bool omu_PrimTuple::operator==(omu_Primitive const & other) const {
    auto const * const tuple = dynamic_cast<omu_PrimTuple const *>(&other);
    return tuple != nullptr && *this == *tuple;
}

bool omu_PrimTuple::operator==(omu_PrimTuple const & other) const {
    return elements == other.elements;
}

omu_Primitive * omu_PrimTuple::Copy() const {
    return new omu_PrimTuple(*this);
}

omu_PrimTuple::omu_PrimTuple(cls_ReadVisitor const & reader)
    : omu_PrimSequence(cls_ReadVisitor(reader, omu_PrimSequence::TypeId())),
      opening(*reader.Read(bracketField, cow_String("(")).CStr()) {
    reader.StartRead(TypeId());
    cls_ReadVisitor const list(reader, elementsField);
    list.StartRead(cls_ClassNumber_LIST);
    int const count = list.NumElements();
    for (int i = 0; i < count; ++i)
        readElement(list.Element(i));
}

unsigned int omu_PrimTuple::DynTypeId() const {
    return TypeId();
}

void omu_PrimTuple::DBWrite(cls_WriteVisitor const & writer) const {
    writer.StartWrite(TypeId(), cls_Uid());
    omu_PrimSequence::DBWrite(cls_WriteVisitor(writer, omu_PrimSequence::TypeId()));
    writer.Write(bracketField, cow_String(&opening, 1));
    cls_WriteVisitor const list(writer, elementsField);
    list.StartWrite(cls_ClassNumber_LIST, cls_Uid());
    list.CheckCollectionType(1);
    for (Element const & element : elements) {
        cls_WriteRequestListObj const request(list);
        writeElement(cls_WriteVisitor(request), element);
    }
}

void omu_PrimTuple::writeElement(cls_WriteVisitor const & writer, Element const & element) const {
    if (auto const * const nested = std::get_if<Nested>(&element)) {
        unsigned int const number = (**nested).DynTypeId();
        if (number != omu_PrimTuple::TypeId() && number != omu_PrimEnumBase::TypeId())
            raise(atr<int, int, cow_String>("Tuple of %d elements: element %d (%s) cannot be stored", Length(),
                                            static_cast<int>(&element - elements.data()) + 1, typeOf(element),
                                            QVRBasStringMode()),
                  __LINE__);
        return (**nested).DBWrite(writer);
    }
    writer.StartWrite(omu_Primitive::TypeId(), cls_Uid());
    writer.Write(kindField, typeOf(element));
    struct {
        cls_WriteVisitor const & writer;
        void operator()(bool flag) const { writer.Write(valueField, int{flag}); }
        void operator()(int number) const { writer.Write(valueField, number); }
        void operator()(unsigned int number) const { writer.Write(valueField, static_cast<int>(number)); }
        void operator()(double number) const { writer.Write(valueField, number); }
        void operator()(cow_String const & text) const { writer.Write(valueField, text); }
        void operator()(Nested const &) const {}
        void operator()(cow_List<cow_String> const & texts) const { write(tupleOf<cow_String>(texts)); }
        void operator()(cow_List<float> const & numbers) const { write(tupleOf<double>(numbers)); }
        void write(omu_PrimTuple const & items) const { items.DBWrite(cls_WriteVisitor(writer, valueField)); }
    } const write{writer};
    std::visit(write, element);
}

/// Adds the element on which `reader` stands.
void omu_PrimTuple::readElement(cls_ReadVisitor const & reader) {
    if (reader.GetTypeNumber() == omu_PrimTuple::TypeId())
        return Put(new omu_PrimTuple(reader));
    if (reader.GetTypeNumber() == omu_PrimEnumBase::TypeId())
        return Put(new NamedValue(reader));
    reader.StartRead(omu_Primitive::TypeId());
    cow_String const kind = reader.Read(kindField, cow_String());
    auto const items = [&] { return omu_PrimTuple(cls_ReadVisitor(reader, valueField)); };
    if (kind == booleanName)
        Put(reader.Read(valueField, 0) != 0);
    else if (kind == integerName)
        Put(reader.Read(valueField, 0));
    else if (kind == unsignedName)
        Put(static_cast<unsigned int>(reader.Read(valueField, 0)));
    else if (kind == realName)
        Put(reader.Read(valueField, 0.0));
    else if (kind == textName)
        Put(reader.Read(valueField, cow_String()));
    else if (kind == textListName)
        Put(listOf<cow_String, cow_String>(items()));
    else if (kind == numberListName)
        Put(listOf<double, float>(items()));
    else
        raise(atr<int, cow_String>("Tuple: stored element %d is of an unknown type '%s'", Length() + 1, kind,
                                   QVRBasStringMode()),
              __LINE__);
}

int omu_PrimTuple::Length() const {
    return static_cast<int>(elements.size());
}

void omu_PrimTuple::Begin() {
    readCount = 0;
}

void omu_PrimTuple::End(cow_String const & reader) const {
    if (readCount == elements.size())
        return;
    atr_String message(reader);
    if (!reader.Empty())
        message.Append(": ");
    message.Append(atr<int, int, cow_String>("Tuple of %d elements: element %d (%s) is left over", Length(),
                                             static_cast<int>(readCount) + 1, typeOf(elements[readCount]),
                                             QVRBasStringMode()));
    raise(message, __LINE__);
}

void omu_PrimTuple::Put(cow_String const & text) {
    elements.emplace_back(text);
}

void omu_PrimTuple::Put(atr_String const & text) {
    elements.emplace_back(cow_String(text));
}

void omu_PrimTuple::Put(char const * text) {
    elements.emplace_back(cow_String(text));
}

void omu_PrimTuple::Put(int number) {
    elements.emplace_back(number);
}

void omu_PrimTuple::Put(unsigned int number) {
    elements.emplace_back(number);
}

void omu_PrimTuple::Put(bool flag) {
    elements.emplace_back(flag);
}

void omu_PrimTuple::Put(double number) {
    elements.emplace_back(number);
}

void omu_PrimTuple::Put(omu_Primitive * primitive) {
    elements.emplace_back(Nested(primitive != nullptr ? primitive : new omu_PrimTuple('(')));
}

void omu_PrimTuple::Put(omu_PrimTuple const & tuple) {
    elements.emplace_back(Nested(tuple.Copy()));
}

void omu_PrimTuple::Put(cow_List<cow_String> const & texts) {
    elements.emplace_back(texts);
}

void omu_PrimTuple::Put(cow_List<float> const & numbers) {
    elements.emplace_back(numbers);
}

void omu_PrimTuple::Get(cow_String & text) {
    text = nextAs<cow_String>(textName);
    ++readCount;
}

void omu_PrimTuple::Get(atr_String & text) {
    text = atr_String(nextAs<cow_String>(textName));
    ++readCount;
}

void omu_PrimTuple::Get(char const *& text) {
    text = nextAs<cow_String>(textName).CStr();
    ++readCount;
}

void omu_PrimTuple::Get(int & number) {
    getWhole(number, integerName);
}

void omu_PrimTuple::Get(unsigned int & number) {
    getWhole(number, unsignedName);
}

void omu_PrimTuple::Get(bool & flag) {
    getWhole(flag, booleanName);
}

void omu_PrimTuple::Get(double & number) {
    Element const * const element = next();
    if (element == nullptr || !std::holds_alternative<double>(*element))
        return getWhole(number, realName);
    number = std::get<double>(*element);
    ++readCount;
}

void omu_PrimTuple::Get(omu_Primitive *& primitive) {
    primitive = (*nextAs<Nested>(primitiveName)).Copy();
    ++readCount;
}

void omu_PrimTuple::Get(omu_PrimTuple & tuple) {
    auto const * const nested = dynamic_cast<omu_PrimTuple const *>(&*nextAs<Nested>(tupleName));
    if (nested == nullptr)
        raiseMismatch(tupleName);
    tuple = *nested;
    if (&tuple != this) // otherwise reading begins anew in what has been read
        ++readCount;
}

void omu_PrimTuple::Get(cow_List<cow_String> & texts) {
    texts = nextAs<cow_List<cow_String>>(textListName);
    ++readCount;
}

void omu_PrimTuple::Get(cow_List<float> & numbers) {
    numbers = nextAs<cow_List<float>>(numberListName);
    ++readCount;
}

omu_PrimTuple::Element const * omu_PrimTuple::next() const {
    return readCount < elements.size() ? &elements[readCount] : nullptr;
}

/// The next element, which must be of this kind. It is not yet counted as read.
template <class Kind> Kind const & omu_PrimTuple::nextAs(char const * wanted) const {
    Kind const * const content = std::get_if<Kind>(next());
    if (content == nullptr)
        raiseMismatch(wanted);
    return *content;
}

/// Reads the next element, which must be a whole number of any type.
template <class Target> void omu_PrimTuple::getWhole(Target & target, char const * wanted) {
    Element const * const element = next();
    if (auto const * const integer = std::get_if<int>(element))
        target = static_cast<Target>(*integer);
    else if (auto const * const positive = std::get_if<unsigned int>(element))
        target = static_cast<Target>(*positive);
    else if (auto const * const flag = std::get_if<bool>(element))
        target = static_cast<Target>(*flag);
    else
        raiseMismatch(wanted);
    ++readCount;
}

void omu_PrimTuple::raiseMismatch(char const * wanted) const {
    int const position = static_cast<int>(readCount) + 1;
    Element const * const element = next();
    if (element == nullptr)
        raise(atr<int, int, char const *>("Tuple of %d elements: element %d (%s) is missing", Length(), position,
                                          wanted, QVRBasStringMode()),
              __LINE__);
    raise(atr<int, int, cow_String, char const *>("Tuple of %d elements: element %d is of type %s, not %s", Length(),
                                                  position, typeOf(*element), wanted, QVRBasStringMode()),
          __LINE__);
}

cow_String omu_PrimTuple::typeOf(Element const & element) {
    struct {
        cow_String operator()(bool) const { return booleanName; }
        cow_String operator()(int) const { return integerName; }
        cow_String operator()(unsigned int) const { return unsignedName; }
        cow_String operator()(double) const { return realName; }
        cow_String operator()(cow_String const &) const { return textName; }
        cow_String operator()(Nested const & nested) const { return (*nested).TypeString(); }
        cow_String operator()(cow_List<cow_String> const &) const { return textListName; }
        cow_String operator()(cow_List<float> const &) const { return numberListName; }
    } const name;
    return std::visit(name, element);
}

void omu_PrimTuple::appendRepr(cow_String & text, Element const & element) {
    struct {
        cow_String & text;
        void operator()(bool flag) const { text.Append(flag ? "true" : "false"); }
        void operator()(int number) const { text.Append(cow_String(number)); }
        void operator()(unsigned int number) const { text.Append(cow_String(number)); }
        void operator()(double number) const { appendReal(text, number); }
        void operator()(cow_String const & content) const { appendQuoted(text, content); }
        void operator()(Nested const & nested) const { text.Append((*nested).AsRepr()); }
        void operator()(cow_List<cow_String> const & texts) const { appendList(text, texts, appendQuoted); }
        void operator()(cow_List<float> const & numbers) const { appendList(text, numbers, appendReal<float>); }
    } const writer{text};
    std::visit(writer, element);
}
