#ifndef aio_ios_h
#define aio_ios_h

#include "QVRShpCore_Export.h"

/// Bits of aio_ios::setf.
enum aio_iosFlagEnm : int {
    aio_iosFlag_LEFT = 2,
    aio_iosFlag_RIGHT = 4,
    aio_iosFlag_ADJUST = 6, ///< the mask over both
};

/// How a stream writes its items.
class QVRSHPCORE_API aio_ios {
public:
    /// Replaces the flags under `mask` by those of `flags`; returns all flags as they were. Under the mask 6, flag 2 is
    /// left and flag 4 right; an item is right-adjusted while neither or both are set. Other bits have no effect.
    int setf(int flags, int mask);

    /// The number of significant digits of a double, 6 at first; returns the number before it. 0 counts as 1, and a
    /// negative number as 6.
    int precision(int digits);

    /// The least number of bytes of the next item, which is filled up with blanks; it holds for that one item. Returns
    /// the width before it. 0 and negative numbers mean none.
    int width(int bytes);

protected:
    aio_ios() = default;
    ~aio_ios() = default;

    /// What setf, precision and width have set.
    int currentFlags = 0;
    int currentPrecision = 6;
    int currentWidth = 0;
};

#endif
