#include "pdu/Septets.h"

#include <cstdint>

#include "pdu/Octets.h"

namespace Encoding {
namespace {

constexpr unsigned int c_septetBits = 7;
constexpr unsigned int c_octetBits = 8;
constexpr unsigned int c_septetMask = 0x7F;

// Eight septets fill seven octets. Such a group is worked on as one 64-bit word, its first septet or octet in
// the low-order bits.
constexpr unsigned int c_groupSeptets = 8;
constexpr unsigned int c_groupOctets = 7;
constexpr unsigned int c_groupBits = c_groupOctets * c_octetBits;
constexpr unsigned int c_wordOctets = 8;

std::uint64_t LoadWord(const unsigned char* octets) {
    std::uint64_t word = 0;
    for (unsigned int i = 0; i < c_wordOctets; ++i)
        word |= std::uint64_t{octets[i]} << (c_octetBits * i);
    return word;
}

void StoreWord(std::uint64_t word, unsigned char* octets) {
    for (unsigned int i = 0; i < c_wordOctets; ++i)
        octets[i] = static_cast<unsigned char>(word >> (c_octetBits * i));
}

/// Moves eight septets that stand side by side in the low 56 bits to an octet each: halves apart first, then
/// quarters, then septets.
std::uint64_t Spread(std::uint64_t septets) {
    septets = (septets & 0x000000000FFFFFFF) | (septets & 0x00FFFFFFF0000000) << 4;
    septets = (septets & 0x00003FFF00003FFF) | (septets & 0x0FFFC0000FFFC000) << 2;
    return (septets & 0x007F007F007F007F) | (septets & 0x3F803F803F803F80) << 1;
}

/// The way back: one septet an octet becomes eight septets side by side.
std::uint64_t Gather(std::uint64_t octets) {
    octets = (octets & 0x007F007F007F007F) | (octets & 0x7F007F007F007F00) >> 1;
    octets = (octets & 0x00003FFF00003FFF) | (octets & 0x3FFF00003FFF0000) >> 2;
    return (octets & 0x000000000FFFFFFF) | (octets & 0x0FFFFFFF00000000) >> 4;
}

} // namespace

void UnpackSeptets(const Pdu& pdu, unsigned int offset, unsigned int startBit, unsigned int count,
                   unsigned char* septets) {
    while (count >= c_groupSeptets && offset <= Pdu::CAPACITY - c_wordOctets) {
        StoreWord(Spread(LoadWord(pdu.m_Bytes + offset) >> startBit), septets);
        offset += c_groupOctets;
        septets += c_groupSeptets;
        count -= c_groupSeptets;
    }
    unsigned int shift = startBit;
    for (unsigned int i = 0; i < count; ++i) {
        const unsigned int low = OctetAt(pdu, offset);
        const unsigned int high = OctetAt(pdu, offset + 1);
        septets[i] = static_cast<unsigned char>((low | high << c_octetBits) >> shift & c_septetMask);
        shift += c_septetBits;
        offset += shift / c_octetBits;
        shift %= c_octetBits;
    }
}

void WriteSeptets(Pdu& pdu, const unsigned char* septets, unsigned int count, unsigned int startBit) {
    std::uint64_t pending = 0;
    unsigned int bits = startBit;
    for (; count >= c_groupSeptets && pdu.m_Length <= Pdu::APPEND_LIMIT - c_wordOctets;
         count -= c_groupSeptets) {
        pending |= Gather(LoadWord(septets)) << bits;
        StoreWord(pending, pdu.m_Bytes + pdu.m_Length);
        pdu.m_Length += c_groupOctets;
        pending >>= c_groupBits;
        septets += c_groupSeptets;
    }
    for (unsigned int i = 0; i < count; ++i) {
        pending |= std::uint64_t{septets[i]} << bits;
        bits += c_septetBits;
        if (bits >= c_octetBits) {
            pdu.Write(static_cast<unsigned char>(pending));
            pending >>= c_octetBits;
            bits -= c_octetBits;
        }
    }
    if (bits != 0)
        pdu.Write(static_cast<unsigned char>(pending));
}

} // namespace Encoding
