// How many octets and septets there are of one another, TS 23.038 clause 6.1.2.1 and TS 23.040
// clause 9.2.3.24.
#ifndef ALPHABET_PACKING_H
#define ALPHABET_PACKING_H

#include <cstddef>

namespace Messages {

constexpr unsigned int c_septetBits = 7;
constexpr unsigned int c_octetBits = 8;

/// Of a user-data header, with the octet of its length; none without elements.
constexpr std::size_t HeaderOctets(std::size_t elementOctets) {
    return elementOctets == 0 ? 0 : 1 + elementOctets;
}

/// Bits between a header and the first septet.
constexpr unsigned int FillBitsAfter(std::size_t headerOctets) {
    return static_cast<unsigned int>((c_septetBits - c_octetBits * headerOctets % c_septetBits) %
                                     c_septetBits);
}

constexpr std::size_t SeptetsOfHeader(std::size_t headerOctets) {
    return (headerOctets * c_octetBits + c_septetBits - 1) / c_septetBits;
}

/// Whole septets from bit `firstBit` of so many octets on.
constexpr std::size_t SeptetsIn(std::size_t octets, unsigned int firstBit) {
    return octets == 0 ? 0 : (octets * c_octetBits - firstBit) / c_septetBits;
}

constexpr std::size_t OctetsOfSeptets(std::size_t septets) {
    return (septets * c_septetBits + c_octetBits - 1) / c_octetBits;
}

} // namespace Messages

#endif
