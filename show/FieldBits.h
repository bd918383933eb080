// Octets of bits, and what is unusual in them by the standard, 3GPP TS 23.040 and 23.038.
#ifndef QXPDU_FIELDBITS_H
#define QXPDU_FIELDBITS_H

#include <string>
#include <string_view>
#include <vector>

#include "show/OctetRow.h"
#include "show/PduWalk.h"

namespace qxpdu {

/// The bits of a mask.
OctetBits BitsIn(unsigned int octet, unsigned int mask, std::string name, std::string_view meaning);

/// Type of address.
std::vector<OctetBits> TypeOfAddressBits(unsigned int octet);
std::vector<std::string> TypeOfAddressFaults(unsigned int octet);

/// TP-PID.
std::vector<OctetBits> ProtocolBits(unsigned int pid);

/// TP-DCS, with the alphabet and the class that the decoder reads in it.
std::vector<OctetBits> DataCodingBits(const DataCodingValue& coding);
std::vector<std::string> DataCodingFaults(unsigned int dcs);

/// TP-ST.
bool IsReservedStatus(unsigned int status);

/// Adds the bits of `unused`, those side by side together, and puts all in order.
void AddUnusedBits(std::vector<OctetBits>& bits, unsigned int octet, unsigned int unused);

} // namespace qxpdu

#endif
