// Access to octets: the one bounded reader of a Pdu, and arrays that the codecs own.
#ifndef PDU_OCTETS_H
#define PDU_OCTETS_H

#include <memory>
#include <new>

#include "Encoding/Pdu.h"

namespace Encoding {

/// The octet at an offset; 0 outside the array, whatever the PDU's length says.
inline unsigned char OctetAt(const Pdu& pdu, unsigned int offset) {
    return offset < Pdu::CAPACITY ? pdu.m_Bytes[offset] : static_cast<unsigned char>(0);
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
