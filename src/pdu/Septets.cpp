#include "pdu/Septets.h"

#include <algorithm>
#include <cstdint>

#include "pdu/Octets.h"
#include "wire/SeptetGroups.h"

namespace Encoding {
namespace {

using Wire::c_groupOctets;
using Wire::c_groupReach;
using Wire::c_groupSeptets;
using Wire::FastestGroups;

constexpr unsigned int c_septetBits = 7;
constexpr unsigned int c_octetBits = 8;
constexpr unsigned int c_septetMask = 0x7F;

/// How many whole groups `count` septets hold that reach no further than `limit` when they begin at `offset`.
unsigned int GroupsWithin(unsigned int limit, unsigned int offset, unsigned int count) {
    if (offset > limit - c_groupReach)
        return 0;
    return std::min(count / c_groupSeptets, (limit - c_groupReach - offset) / c_groupOctets + 1);
}

} // namespace

void UnpackSeptets(const Pdu& pdu, unsigned int offset, unsigned int startBit, unsigned int count,
                   unsigned char* septets) {
    if (const unsigned int groups = GroupsWithin(Pdu::CAPACITY, offset, count); groups != 0) {
        FastestGroups().unpack(pdu.m_Bytes + offset, startBit, groups, septets);
        offset += groups * c_groupOctets;
        septets += groups * c_groupSeptets;
        count -= groups * c_groupSeptets;
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
    if (const unsigned int groups = GroupsWithin(Pdu::APPEND_LIMIT, pdu.m_Length, count); groups != 0) {
        pending = FastestGroups().pack(septets, groups, startBit, pdu.m_Bytes + pdu.m_Length);
        pdu.m_Length += groups * c_groupOctets;
        septets += groups * c_groupSeptets;
        count -= groups * c_groupSeptets;
    }
    unsigned int bits = startBit;
    for (unsigned int i = 0; i < count; ++i) {
        pending |= std::uint64_t{septets[i]} << bits;
        bits += c_septetBits;
        if (bits >= c_octetBits) {
            Append(pdu, static_cast<unsigned char>(pending));
            pending >>= c_octetBits;
            bits -= c_octetBits;
        }
    }
    if (bits != 0)
        Append(pdu, static_cast<unsigned char>(pending));
}

} // namespace Encoding
