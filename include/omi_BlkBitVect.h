#ifndef omi_BlkBitVect_h
#define omi_BlkBitVect_h

#include "QVRShpCore_Export.h"
#include "mem_Allocator.h"

#include <vector>

/// A set of bits, numbered from 0 to 2^32 - 1, kept in blocks of 32. Only blocks with a bit set take memory. All bits
/// are clear at first.
class QVRSHPCORE_API omi_BlkBitVect {
public:
    /// Bits of a block, and how many blocks there can be.
    static constexpr unsigned int bitsPerBlock = 32;
    static constexpr unsigned int mostBlocks = 1u << 27;

    /// The bits `number * 32` to `number * 32 + 31`, the lowest of them in the lowest bit.
    struct Block {
        unsigned int number; ///< from 0
        unsigned int bits;   ///< the bits that are set
        friend bool operator==(Block const &, Block const &) = default;
    };
    /// Blocks by ascending number.
    using Blocks = std::vector<Block, mem_Allocator<Block>>;

    /// Any number is a bit.
    void SetBit(unsigned int bit);
    void ClearBit(unsigned int bit);
    bool HasBit(unsigned int bit) const;

    /// Sets every bit of a block that is set in `bits`; `number` is below mostBlocks (not checked).
    void SetBits(unsigned int number, unsigned int bits);

    /// The blocks that are not zero, ascending.
    Blocks const & NonZeroBlocks() const { return blocks; }

    /// Whether the same bits are set.
    friend bool operator==(omi_BlkBitVect const & left, omi_BlkBitVect const & right) {
        return left.blocks == right.blocks;
    }

private:
    Blocks blocks;
};

#endif
