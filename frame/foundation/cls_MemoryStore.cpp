#include "cls_MemoryStore.h"

#include "cls_Failure.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <iterator>
#include <limits>
#include <map>
#include <utility>

// The bytes of an archive. Numbers are unsigned and little-endian, of 4 bytes where nothing else is said.
//
//     8 bytes               "QVRSTORE"
//     number                version of this layout: 1
//     number                CRC-32 (polynomial 0x04c11db7, reflected) of all that follows
//     number, texts         the names of attributes
//     number, objects       those that were written as objects of their own
//
//     text:       number of bytes, bytes without a zero
//     object:     number of the object, counted from 0 in the order of these bytes; behind a number that stands for the
//                 first time, the object itself:
//                 class number; uid, two numbers of 8 bytes, high half first; number of attributes; attributes
//     attribute:  index of its name; 1 byte, its cls_AttributeType; value:
//                 INT     number, two's complement
//                 DOUBLE  8 bytes, IEEE 754 binary64
//                 STRING  text
//                 OBJECT  object
//
// Nothing follows.

namespace {

constexpr char const * file = "frame/foundation/cls_MemoryStore";

constexpr unsigned char magic[] = {'Q', 'V', 'R', 'S', 'T', 'O', 'R', 'E'};
constexpr std::uint32_t version = 1;

/// References may multiply what is read of what is stored by this much.
constexpr std::uint64_t maxMultiplication = 1000;

/// The CRC-32 of each byte.
constexpr std::array<std::uint32_t, 256> crcOfByte = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        std::uint32_t crc = byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = crc >> 1 ^ ((crc & 1) != 0 ? 0xedb88320u : 0u);
        table[byte] = crc;
    }
    return table;
}();

std::uint32_t crc32(unsigned char const * bytes, std::size_t count) {
    std::uint32_t crc = ~0u;
    for (std::size_t i = 0; i < count; ++i)
        crc = crc >> 8 ^ crcOfByte[(crc ^ bytes[i]) & 0xff];
    return ~crc;
}

/// The type of each alternative of an attribute's value.
constexpr cls_AttributeType alternatives[] = {cls_AttributeType_INT, cls_AttributeType_DOUBLE, cls_AttributeType_STRING,
                                              cls_AttributeType_OBJECT};

} // namespace

cls_AttributeType cls_MemoryStore::Attribute::Type() const noexcept {
    return alternatives[value.index()];
}

int cls_MemoryStore::addObject(unsigned int classNumber, cls_Uid const & uid) {
    objects.push_back({classNumber, uid, {}});
    return static_cast<int>(objects.size()) - 1;
}

void cls_MemoryStore::addAttribute(int object, char const * name, decltype(Attribute::value) && value) {
    auto known = names.find(name);
    if (known == names.end())
        known = names.insert(name).first;
    objects[static_cast<std::size_t>(object)].attributes.push_back({*known, std::move(value)});
}

/// Measures the content, and raises for one that could not be read back.
class cls_MemoryStore::Measure {
public:
    explicit Measure(cls_MemoryStore const & measured)
        : store(measured), sizes(measured.objects.size()), heights(measured.objects.size()) {
        std::uint64_t read = 0;
        for (int const root : store.roots) {
            measure(root, 0);
            read = sum(read, sizes[static_cast<std::size_t>(root)]);
            ++stored;
        }
        if (read / maxMultiplication > stored)
            refuse("The references of the archive lead to more than can be read.");
    }

    [[noreturn]] static void refuse(char const * why) { cls_raise(file, __LINE__, why); }

private:
    /// A height while the object is being measured.
    static constexpr int open = -1;

    static std::uint64_t sum(std::uint64_t a, std::uint64_t b) { return std::min(a + b, std::uint64_t{1} << 62); }

    void measure(int index, int depth) {
        auto const slot = static_cast<std::size_t>(index);
        if (heights[slot] == open)
            refuse("An object of the archive is a part of itself.");
        if (depth > cls_maxDepth)
            refuse("An object of the archive lies too deep in others.");
        if (heights[slot] != 0)
            return;
        heights[slot] = open;
        std::uint64_t size = 1;
        int height = 1;
        Object const & object = store.objects[slot];
        for (Attribute const & each : object.attributes) {
            size = sum(size, 1);
            if (auto const * const part = std::get_if<ObjectIndex>(&each.value)) {
                measure(part->index, depth + 1);
                size = sum(size, sizes[static_cast<std::size_t>(part->index)]);
                height = std::max(height, heights[static_cast<std::size_t>(part->index)] + 1);
            }
        }
        if (height > cls_maxDepth + 1)
            refuse("An object of the archive lies too deep in others.");
        heights[slot] = height;
        sizes[slot] = size;
        stored += 1 + object.attributes.size();
    }

    cls_MemoryStore const & store;
    Vector<std::uint64_t> sizes; ///< objects and attributes that are read with an object, itself counted
    Vector<int> heights;         ///< objects one in the other, itself counted; 0 before it is measured
    std::uint64_t stored = 0;    ///< objects, attributes and roots
};

class cls_MemoryStore::Output {
public:
    explicit Output(cls_MemoryStore const & written) : store(written), numbers(written.objects.size(), none) {
        Measure const isReadable(store);
        bytes.assign(std::begin(magic), std::end(magic));
        number(version);
        std::size_t const checksum = bytes.size();
        number(0);

        number(count(store.names.size()));
        for (cow_String const & name : store.names) {
            text(name);
            nameNumbers.emplace(name, count(nameNumbers.size()));
        }
        number(count(store.roots.size()));
        for (int const root : store.roots)
            object(root);

        std::size_t const body = checksum + 4;
        std::uint32_t const crc = crc32(bytes.data() + body, bytes.size() - body);
        for (std::size_t i = 0; i < 4; ++i)
            bytes[checksum + i] = static_cast<unsigned char>(crc >> 8 * i);
    }

    ByteArray bytes;

private:
    static constexpr std::uint32_t none = ~0u;

    static std::uint32_t count(std::size_t size) {
        if (size >= none)
            Measure::refuse("The archive is too large.");
        return static_cast<std::uint32_t>(size);
    }
    template <class Number> void littleEndian(Number value) {
        unsigned char written[sizeof value];
        for (std::size_t i = 0; i < sizeof value; ++i)
            written[i] = static_cast<unsigned char>(value >> 8 * i);
        bytes.insert(bytes.end(), std::begin(written), std::end(written));
    }
    void number(std::uint32_t value) { littleEndian(value); }
    void text(cow_String const & value) {
        number(static_cast<std::uint32_t>(value.Length()));
        bytes.insert(bytes.end(), value.CStr(), value.CStr() + value.Length());
    }

    void object(int index) {
        std::uint32_t & objectNumber = numbers[static_cast<std::size_t>(index)];
        bool const isFirst = objectNumber == none;
        if (isFirst)
            objectNumber = numObjects++;
        number(objectNumber);
        if (!isFirst)
            return;
        Object const & written = store.objects[static_cast<std::size_t>(index)];
        number(written.classNumber);
        littleEndian(written.uid.High());
        littleEndian(written.uid.Low());
        number(count(written.attributes.size()));
        for (Attribute const & each : written.attributes) {
            number(nameNumbers.find(each.name)->second);
            bytes.push_back(static_cast<unsigned char>(each.Type()));
            std::visit([this](auto const & held) { value(held); }, each.value);
        }
    }
    void value(int held) { number(static_cast<std::uint32_t>(held)); }
    void value(double held) { littleEndian(std::bit_cast<std::uint64_t>(held)); }
    void value(cow_String const & held) { text(held); }
    void value(ObjectIndex held) { object(held.index); }

    cls_MemoryStore const & store;
    std::map<cow_String, std::uint32_t, std::less<>, mem_Allocator<std::pair<cow_String const, std::uint32_t>>>
        nameNumbers;
    Vector<std::uint32_t> numbers; ///< of objects in the bytes, by their index in the archive
    std::uint32_t numObjects = 0;
};

/// Reads bytes into an empty archive. Whatever a count says, no more is made than there are bytes for.
class cls_MemoryStore::Input {
public:
    Input(cls_MemoryStore & filled, unsigned char const * bytes, std::size_t count)
        : store(filled), next(bytes), left(count) {
        for (unsigned char const expected : magic)
            if (byte() != expected)
                Measure::refuse("The bytes are not those of an archive.");
        if (number() != version)
            Measure::refuse("The archive is of an unknown version.");
        if (std::uint32_t const checksum = number(); checksum != crc32(next, left))
            refuse();

        for (std::uint32_t i = 0, numNames = number(); i < numNames; ++i)
            names.push_back(text());
        for (std::uint32_t i = 0, numRoots = number(); i < numRoots; ++i)
            store.roots.push_back(object(0).index);
        if (left != 0)
            refuse();
        Measure const isReadable(store);
    }

private:
    [[noreturn]] static void refuse() { Measure::refuse("The archive is damaged."); }

    unsigned char const * take(std::size_t count) {
        if (count > left)
            refuse();
        left -= count;
        return std::exchange(next, next + count);
    }
    template <class Number> Number littleEndian() {
        unsigned char const * const bytes = take(sizeof(Number));
        Number value = 0;
        for (std::size_t i = 0; i < sizeof value; ++i)
            value |= static_cast<Number>(bytes[i]) << 8 * i;
        return value;
    }
    unsigned char byte() { return *take(1); }
    std::uint32_t number() { return littleEndian<std::uint32_t>(); }
    cow_String text() {
        std::uint32_t const count = number();
        unsigned char const * const bytes = take(count);
        if (count > static_cast<std::uint32_t>(std::numeric_limits<int>::max()) ||
            std::find(bytes, bytes + count, 0) != bytes + count)
            refuse();
        return cow_String(reinterpret_cast<char const *>(bytes), static_cast<int>(count));
    }

    ObjectIndex object(int depth) {
        std::uint32_t const index = number();
        if (index > store.objects.size() || depth > cls_maxDepth)
            refuse();
        if (index == store.objects.size())
            newObject(depth);
        return {static_cast<int>(index)};
    }
    void newObject(int depth) {
        unsigned int const classNumber = number();
        auto const high = littleEndian<std::uint64_t>();
        auto const low = littleEndian<std::uint64_t>();
        int const index = store.addObject(classNumber, cls_Uid(high, low));
        for (std::uint32_t i = 0, numAttributes = number(); i < numAttributes; ++i) {
            std::uint32_t const name = number();
            if (name >= names.size())
                refuse();
            store.addAttribute(index, names[name].CStr(), value(byte(), depth));
        }
    }
    decltype(Attribute::value) value(int type, int depth) {
        switch (type) {
        case cls_AttributeType_INT: return static_cast<int>(number());
        case cls_AttributeType_DOUBLE: return std::bit_cast<double>(littleEndian<std::uint64_t>());
        case cls_AttributeType_STRING: return text();
        case cls_AttributeType_OBJECT: return object(depth + 1);
        default: refuse();
        }
    }

    cls_MemoryStore & store;
    Vector<cow_String> names;
    unsigned char const * next;
    std::size_t left;
};

cls_MemoryStore::cls_MemoryStore(void const * bytes, std::size_t count) {
    Input(*this, static_cast<unsigned char const *>(bytes), count);
}

cls_MemoryStore::ByteArray cls_MemoryStore::Bytes() const {
    return Output(*this).bytes;
}
