#include "utl_BlkBitUtils.h"

#include "atr.h"
#include "nex_PrimException.h"

#include <charconv>
#include <iterator>
#include <utility>

namespace {

/// Reads the digits from `at` to `end`, all of them and at least one. Signs and prefixes are no digits.
bool readDigits(char const * at, char const * end, int base, unsigned int & number) {
    auto const [stop, error] = std::from_chars(at, end, number, base);
    return error == std::errc() && stop == end;
}

} // namespace

void utl_BlkBitUtils::GetMaskString(omi_BlkBitVect const & mask, cow_List<cow_String> & texts) {
    for (omi_BlkBitVect::Block const & block : mask.NonZeroBlocks()) {
        cow_String text(block.number);
        char digits[8];
        char const * const end = std::to_chars(std::begin(digits), std::end(digits), block.bits, 16).ptr;
        text.Append(":").Append(cow_String(digits, static_cast<int>(end - digits)));
        texts.Append(text);
    }
}

void utl_BlkBitUtils::GetMaskFromString(cow_List<cow_String> const & texts, omi_BlkBitVect & mask) {
    omi_BlkBitVect read;
    for (int i = 0; i < texts.Length(); ++i) {
        cow_String const & text = texts.ConstGet(i);
        char const * const begin = text.CStr();
        char const * const end = begin + text.Length();
        char const * const colon = begin + text.Find(":");
        unsigned int number = 0, bits = 0;
        if (colon == end || !readDigits(begin, colon, 10, number) || number >= omi_BlkBitVect::mostBlocks ||
            !readDigits(colon + 1, end, 16, bits)) {
            nex_PrimException<atr_String, 1>(
                atr<int, cow_String>("Block %d of a bit mask is malformed: '%s'", i + 1, text, QVRBasStringMode()))
                .Throw("frame/primitives/utl_BlkBitUtils", __LINE__);
        }
        read.SetBits(number, bits);
    }
    mask = std::move(read);
}
