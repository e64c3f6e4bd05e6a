// Archives of any bytes, of any bytes with a right checksum, and of any objects, sound or with bytes changed: each is
// refused or read, by the class of one of its objects or by another, and what was read stores again.

#include "input.h"

#include "cls_MemoryStore.h"
#include "cls_MetadataRegistrar.h"
#include "cls_ReadVisitor.h"
#include "cls_WriteRequestListObj.h"
#include "cls_WriteVisitor.h"
#include "nex_CommandException.h"

#include <algorithm>
#include <bit>
#include <iterator>

namespace {

using Bytes = cls_MemoryStore::ByteArray;

constexpr char const magic[] = {'Q', 'V', 'R', 'S', 'T', 'O', 'R', 'E', 1, 0, 0, 0};
constexpr std::size_t bodyStart = sizeof magic + 4;

cls_MetadataRegistrar const & classes() {
    return omi_Singleton<cls_MetadataRegistrar>::Instance();
}

cls_ClassMetadata const & anyClass(Input & input) {
    return classes()[static_cast<int>(input.below(static_cast<std::size_t>(classes().Length())))];
}

/// What a byte adds to a CRC-32, four bits at a time.
constexpr std::uint32_t crcOfHalf[] = {0x00000000, 0x1db71064, 0x3b6e20c8, 0x26d930ac, 0x76dc4190, 0x6b6b51f4,
                                       0x4db26158, 0x5005713c, 0xedb88320, 0xf00f9344, 0xd6d6a3e8, 0xcb61b38c,
                                       0x9b64c2b0, 0x86d3d2d4, 0xa00ae278, 0xbdbdf21c};

/// Makes the checksum fit.
void repairChecksum(Bytes & bytes) {
    std::uint32_t crc = ~0u;
    for (auto byte = bytes.begin() + bodyStart; byte < bytes.end(); ++byte) {
        crc ^= *byte;
        crc = crc >> 4 ^ crcOfHalf[crc & 15];
        crc = crc >> 4 ^ crcOfHalf[crc & 15];
    }
    for (std::size_t i = 0; i < 4; ++i)
        bytes[sizeof magic + i] = static_cast<unsigned char>(~crc >> 8 * i);
}

/// Objects much as their descriptions say, with attributes left out and of wrong types.
class AnyObjects {
public:
    explicit AnyObjects(Input & source) : input(source) {}

    cls_MemoryStore Written() {
        cls_MemoryStore store;
        cls_WriteVisitor const pass(store);
        for (int i = input.byte() % 2; i >= 0; --i)
            write(pass, anyNumber(), 0);
        return store;
    }

private:
    unsigned int anyNumber() { return anyClass(input).TypeNumber(); }

    void write(cls_WriteVisitor const & writer, unsigned int number, int depth) {
        std::uint8_t const kind = input.byte();
        cls_Uid const uid(0, kind % 8 < 6 ? 0 : 1 + kind / 8 % 4);
        if (++numObjects > 16 || depth > 8 || writer.StartWrite(number, uid) == 0)
            return;
        if (number == cls_ClassNumber_LIST) {
            unsigned int const element = anyNumber();
            for (int i = kind / 32 % 4; i > 0; --i) {
                cls_WriteRequestListObj const request(writer);
                write(cls_WriteVisitor(request), element, depth + 1);
            }
        } else if (cls_ClassMetadata const * const metadata = classes().Find(number)) {
            if (metadata->Base() != cls_ClassNumber_ROOT)
                write(cls_WriteVisitor(writer, metadata->Base()), metadata->Base(), depth + 1);
            for (int i = 0; i < metadata->NumAttributes(); ++i)
                writeAttribute(writer, metadata->GetAttribute(i), depth);
        }
    }

    void writeAttribute(cls_WriteVisitor const & writer, cls_AttributeMetadata const & attribute, int depth) {
        char const * const name = attribute.name.CStr();
        std::uint8_t const kind = input.byte();
        if (kind % 16 == 0)
            return;
        switch (kind % 16 == 1 ? static_cast<cls_AttributeType>(kind / 16) : attribute.type) {
        case cls_AttributeType_INT: return writer.Write(name, static_cast<int>(input.bits(4)));
        case cls_AttributeType_DOUBLE:
            return writer.Write(name, kind < 128 ? input.fraction() : std::bit_cast<double>(input.bits(8)));
        case cls_AttributeType_STRING:
        case cls_AttributeType_ENUM: return writer.Write(name, texts[input.below(std::size(texts))]);
        default:
            return write(cls_WriteVisitor(writer, name), kind / 16 == 0 ? anyNumber() : attribute.typeNumber,
                         depth + 1);
        }
    }

    static constexpr char const * texts[] = {"START",    "LINE",  "CIRCLE", "PARABOLA", "SEGMENTS", "Start",   "Line",
                                             "Cylinder", "punch", "",       "(",        "boolean",  "integer", "real"};

    Input & input;
    int numObjects = 0;
};

/// Sets some bytes behind the checksum.
void change(Bytes & bytes, Input & input) {
    for (int i = input.byte() % 4; i >= 0; --i)
        bytes[bodyStart + input.below(bytes.size() - bodyStart)] = input.byte();
}

Bytes anyBytes(Input & input, std::uint8_t const * data, std::size_t size) {
    Bytes bytes(data, data + size);
    switch (std::uint8_t const kind = input.byte(); kind % 8) {
    case 0: return bytes;
    case 1:
        bytes.insert(bytes.begin(), bodyStart, 0);
        std::copy(std::begin(magic), std::end(magic), bytes.begin());
        break;
    default: try { bytes = AnyObjects(input).Written().Bytes();
        } catch (nex_CommandException const &) {
            return Bytes(); // an object would have been a part of itself
        }
        if (kind % 8 < 5)
            change(bytes, input);
    }
    repairChecksum(bytes);
    return bytes;
}

/// Reads an object as one of a class and stores it; no bytes when the object or the store is refused.
Bytes readAndStored(cls_MemoryStore const & store, int index, cls_ClassMetadata const & metadata) {
    cls_MemoryStore again;
    void * object = nullptr;
    Bytes bytes;
    try {
        cls_ReadVisitor reader(store, index);
        object = metadata.Ctor(reader);
        metadata.DBWrite(object, cls_WriteVisitor(again));
        bytes = again.Bytes();
    } catch (nex_CommandException const &) {
    }
    metadata.Delete(object);
    return bytes;
}

void checkObject(cls_MemoryStore const & store, int index, cls_ClassMetadata const & metadata) {
    Bytes const first = readAndStored(store, index, metadata);
    if (first.empty())
        return;
    char const * const name = metadata.Name().CStr();
    require(store[index].classNumber == metadata.TypeNumber(), "no object is of two classes", name);
    require(readAndStored(cls_MemoryStore(first.data(), first.size()), 0, metadata) == first,
            "what was read and stored is read and stored again", name);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    Input input(data, size);
    Bytes const bytes = anyBytes(input, data, size);
    try {
        cls_MemoryStore const store(bytes.data(), bytes.size());
        if (input.byte() % 8 == 0) {
            Bytes const again = store.Bytes();
            require(cls_MemoryStore(again.data(), again.size()).Bytes() == again, "an archive is what its bytes say",
                    "");
        }
        if (store.Length() == 0)
            return 0;
        int const index = static_cast<int>(input.below(static_cast<std::size_t>(store.Length())));
        cls_ClassMetadata const * const own = classes().Find(store[index].classNumber);
        bool const isAsOwn = own != nullptr && input.byte() % 8 != 0;
        checkObject(store, index, isAsOwn ? *own : anyClass(input));
    } catch (nex_CommandException const &) {
    }
    return 0;
}
