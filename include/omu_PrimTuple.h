#ifndef omu_PrimTuple_h
#define omu_PrimTuple_h

#include "atr_String.h"
#include "cow_List.h"
#include "mem_Allocator.h"
#include "omu_PrimSequence.h"

#include <variant>
#include <vector>

/// An ordered sequence of typed elements: the packed form of every descriptor. A packer puts the elements one behind
/// the other; an unpacker calls Begin, then one Get per element in the same order, and End. Tuples nest.
///
/// Reading converts within a kind. Whole numbers (bool, int, unsigned int) are read by each other's Get: int and
/// unsigned int modulo 2^32, bool as whether the number is not 0, and a bool as 0 or 1. Get(double &) reads them, too.
/// Every text Get reads every text. Everything else is a mismatch: Get then raises nex_PrimException<atr_String, 1>
/// with a message that names the element (counted from 1) and both types, and so does a Get behind the last element.
/// After a failure the target is as it was and the element is still the next one to be read.
class QVRSHPCORE_API omu_PrimTuple : public omu_PrimSequence {
public:
    /// An empty tuple that is written with `bracket`, an opening one, and its closing counterpart.
    explicit omu_PrimTuple(char bracket);
    /// The same, with room for `length` elements; others may be put all the same.
    omu_PrimTuple(int length, char bracket);
    /// A deep copy, which is read from its first element on.
    omu_PrimTuple(omu_PrimTuple const & other);
    /// Reads a tuple that DBWrite has stored; what the archive does not have is an empty one with round brackets. Of an
    /// enumeration's value among the elements the archive has the name, not the type: it comes back as a primitive that
    /// equals the one that was stored, and that omu_PrimEnum takes over. Raises nex_PrimException<atr_String, 1> for an
    /// element of a kind that tuples do not have.
    explicit omu_PrimTuple(cls_ReadVisitor const & reader);
    omu_PrimTuple & operator=(omu_PrimTuple const & other);
    ~omu_PrimTuple() override;

    cow_String TypeString() const override;
    cow_String AsString(int form) const override;
    /// The elements between the brackets, separated by ", ": texts in single quotes with `\` before a quote, a
    /// backslash and (as `\n`) a line end; real numbers in the fewest digits that give the same number again, always
    /// recognisable as real; lists in square brackets.
    cow_String AsRepr() const override;
    /// Whether `other` is a tuple with equal elements of the same types; its bracket does not matter.
    bool operator==(omu_Primitive const & other) const override;
    bool operator==(omu_PrimTuple const & other) const;
    /// A deep copy; the caller owns it.
    omu_Primitive * Copy() const override;

    static unsigned int TypeId() { return cls_ClassNumber_omu_PrimTuple; }
    unsigned int DynTypeId() const override;
    /// Stores the elements, not how far they have been read. Raises nex_PrimException<atr_String, 1> for an element
    /// that is neither a tuple nor an enumeration's value but some other primitive.
    void DBWrite(cls_WriteVisitor const & writer) const override;

    /// The number of elements that have been put.
    int Length() const override;

    /// Makes the first element the next one to be read.
    void Begin();
    /// Raises nex_PrimException<atr_String, 1> when elements are left to be read. `reader`, if not empty, begins the
    /// message.
    void End(cow_String const & reader) const;

    /// Each adds one element. A null text is the empty text.
    void Put(cow_String const & text);
    void Put(atr_String const & text);
    void Put(char const * text);
    void Put(int number);
    void Put(unsigned int number);
    void Put(bool flag);
    void Put(double number);
    /// Takes over `primitive`, which comes from `new`, even when this fails. Null adds an empty tuple.
    void Put(omu_Primitive * primitive);
    void Put(void const *) = delete; // any other pointer would be put as a bool
    /// Each adds a deep copy as one element.
    void Put(omu_PrimTuple const & tuple);
    void Put(cow_List<cow_String> const & texts);
    void Put(cow_List<float> const & numbers);

    /// Each reads the next element.
    void Get(cow_String & text);
    void Get(atr_String & text);
    /// The text stays valid until this tuple is written, assigned or destroyed.
    void Get(char const *& text);
    /// Each gives the next element, a number or flag.
    void Get(int & number);
    void Get(unsigned int & number);
    void Get(bool & flag);
    void Get(double & number);
    /// Gives a deep copy of a tuple or any other primitive; the caller owns what `primitive` points to.
    void Get(omu_Primitive *& primitive);
    void Get(omu_PrimTuple & tuple);
    void Get(cow_List<cow_String> & texts);
    void Get(cow_List<float> & numbers);

private:
    /// Owner of a primitive, never null unless moved from; its copies are deep.
    class Nested {
    public:
        explicit Nested(omu_Primitive * primitive) noexcept : object(primitive) {}
        Nested(Nested const & other) : object(other.object->Copy()) {}
        Nested(Nested && other) noexcept : object(other.object) { other.object = nullptr; }
        Nested & operator=(Nested other) noexcept {
            omu_Primitive * const old = object;
            object = other.object;
            other.object = old;
            return *this;
        }
        ~Nested() { delete object; }

        omu_Primitive const & operator*() const { return *object; }
        friend bool operator==(Nested const & left, Nested const & right) { return *left.object == *right.object; }

    private:
        omu_Primitive * object;
    };

    using Element =
        std::variant<bool, int, unsigned int, double, cow_String, Nested, cow_List<cow_String>, cow_List<float>>;

    static cow_String typeOf(Element const & element);
    void writeElement(cls_WriteVisitor const & writer, Element const & element) const;
    void readElement(cls_ReadVisitor const & reader);
    static void appendRepr(cow_String & text, Element const & element);
    [[noreturn]] void raiseMismatch(char const * wanted) const;
    Element const * next() const;
    template <class Target> void getWhole(Target & target, char const * wanted);
    template <class Kind> Kind const & nextAs(char const * wanted) const;

    std::vector<Element, mem_Allocator<Element>> elements;
    std::size_t readCount = 0; ///< elements before the next one to be read
    char opening;
};

#endif
