#ifndef utl_BlkBitUtils_h
#define utl_BlkBitUtils_h

#include "cow_List.h"
#include "cow_String.h"
#include "omi_BlkBitVect.h"

/// A bit vector as a list of texts, and back.
class QVRSHPCORE_API utl_BlkBitUtils {
public:
    /// Adds one text per block that is not zero to `texts`, ascending: the block's number in decimal digits, a colon,
    /// and the block's 32 bits in hexadecimal digits without leading zeros ("2:8000000f").
    static void GetMaskString(omi_BlkBitVect const & mask, cow_List<cow_String> & texts);

    /// Replaces `mask` by what the texts say, in whatever order they come; blocks that are named twice are united, and
    /// either case of the hexadecimal digits is read. A malformed text raises nex_PrimException<atr_String, 1> and
    /// leaves `mask` as it was.
    static void GetMaskFromString(cow_List<cow_String> const & texts, omi_BlkBitVect & mask);
};

#endif
