#ifndef cls_Uid_h
#define cls_Uid_h

#include "QVRShpCore_Export.h"

#include <compare>
#include <cstdint>

/// Identity of a persistent object. A default one is null: it names no object, and objects that have it are never
/// taken for the same. A copied object keeps the identity of its original.
class QVRSHPCORE_API cls_Uid {
public:
    constexpr cls_Uid() noexcept = default; ///< null
    /// An identity by its two halves, as an archive keeps it. Both 0 is null.
    constexpr cls_Uid(std::uint64_t high, std::uint64_t low) noexcept : highHalf(high), lowHalf(low) {}

    /// An identity that no object has: not in this process, and, as it is made from the time and chance, not in any
    /// other whose objects may come together with those of this one. Not safe for concurrent use. Never fails.
    static cls_Uid AllocateUid() noexcept;
    /// Gives this one such an identity instead of its own, and returns it.
    cls_Uid & NewUid() noexcept { return *this = AllocateUid(); }

    /// Whether both halves are 0.
    constexpr bool IsNull() const noexcept { return highHalf == 0 && lowHalf == 0; }
    /// The two halves, as an archive keeps them.
    constexpr std::uint64_t High() const noexcept { return highHalf; }
    constexpr std::uint64_t Low() const noexcept { return lowHalf; }

    /// Two null identities compare equal.
    friend constexpr bool operator==(cls_Uid const &, cls_Uid const &) noexcept = default;
    /// Some order, for ordered containers.
    friend constexpr std::strong_ordering operator<=>(cls_Uid const &, cls_Uid const &) noexcept = default;

private:
    std::uint64_t highHalf = 0;
    std::uint64_t lowHalf = 0;
};

#endif
