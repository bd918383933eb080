// Access to octets: the one bounded reader of a Pdu, and arrays that the codecs own.
#ifndef PDU_OCTETS_H
#define PDU_OCTETS_H

#include <cstdint>
#include <memory>
#include <new>

#include "Encoding/Pdu.h"

namespace Encoding {

/// The octet at an offset; 0 outside the array, whatever the PDU's length says.
inline unsigned char OctetAt(const Pdu& pdu, unsigned int offset) {
    return offset < Pdu::CAPACITY ? pdu.m_Bytes[offset] : static_cast<unsigned char>(0);
}

/// Four octets from an offset on, the first one in the low-order bits.
inline std::uint32_t FourOctetsAt(const Pdu& pdu, unsigned int offset) {
    const auto joined = [](auto octet) {
        return std::uint32_t{octet(0)} | std::uint32_t{octet(1)} << 8 | std::uint32_t{octet(2)} << 16 |
               std::uint32_t{octet(3)} << 24;
    };
    if (offset <= Pdu::CAPACITY - 4) // one load
        return joined([octets = pdu.m_Bytes + offset](unsigned int i) { return octets[i]; });
    return joined([&pdu, offset](unsigned int i) { return OctetAt(pdu, offset + i); });
}

/// The number that two semi-octets write, the low one first; of what is no digit the sum's low-order 8 bits.
constexpr unsigned char Swapped(unsigned char octet) {
    return static_cast<unsigned char>((octet & 0x0F) * 10 + (octet >> 4));
}

/// Appends an octet; one that no longer fits is dropped.
inline void Append(Pdu& pdu, unsigned char octet) {
    if (pdu.m_Length < Pdu::APPEND_LIMIT)
        pdu.m_Bytes[pdu.m_Length++] = octet;
}

/// A zeroed array. A count that no message has throws std::bad_alloc on every platform, before the machine is
/// asked for gigabytes.
inline std::unique_ptr<unsigned char[]> MakeOctets(unsigned long long count) {
    constexpr unsigned long long mostOctets = 0x7FFFFFFF;
    if (count > mostOctets)
        throw std::bad_alloc();
    return std::make_unique<unsigned char[]>(static_cast<std::size_t>(count));
}

} // namespace Encoding

#endif
