// Septets packed into octets, low-order bits first (3GPP TS 23.038 clause 6.1.2.1).
#ifndef PDU_SEPTETS_H
#define PDU_SEPTETS_H

#include "Encoding/Pdu.h"

namespace Encoding {

/// Reads `count` septets, one a byte, from the octets at `offset` on. The first septet begins `startBit`
/// bits, 0 to 7, above the low end of the first octet. An octet outside the PDU's array reads as 0.
void UnpackSeptets(const Pdu& pdu, unsigned int offset, unsigned int startBit, unsigned int count,
                   unsigned char* septets);

/// Appends `count` septets to the PDU, the first one `startBit` bits, 0 to 7, above the low end of its octet;
/// bits left over are 0. Octets that no longer fit are dropped one by one.
void WriteSeptets(Pdu& pdu, const unsigned char* septets, unsigned int count, unsigned int startBit);

} // namespace Encoding

#endif
