// Septets laid into octets bit by bit, the slow and obvious way.
#ifndef TESTS_SUPPORT_BITS_H
#define TESTS_SUPPORT_BITS_H

#include "support/Octets.h"

namespace tests {

/// Septet n occupies the bits startBit + 7n and up, counted from the low end of the first octet.
inline Bytes LayBits(const Bytes& septets, unsigned int startBit) {
    Bytes octets((startBit + 7 * septets.size() + 7) / 8);
    for (std::size_t i = 0; i < 7 * septets.size(); ++i) {
        const bool isSet = (septets[i / 7] >> (i % 7) & 1) != 0;
        const std::size_t bit = startBit + i;
        if (isSet)
            octets[bit / 8] = static_cast<unsigned char>(octets[bit / 8] | 1 << (bit % 8));
    }
    return octets;
}

/// One run after the other.
inline Bytes operator+(Bytes left, const Bytes& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

} // namespace tests

#endif
