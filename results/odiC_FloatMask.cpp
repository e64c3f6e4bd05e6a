#include "odiC_FloatMask.h"

#include <bit>

int getFloatMask(int i) {
    return std::bit_cast<int>(static_cast<float>(i));
}

int getPower(int mask) {
    return (mask >> 23) - 127;
}
