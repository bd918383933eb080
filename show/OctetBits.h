// The octets whose bits say several things, 3GPP TS 23.040 and 23.038.
#ifndef SHOW_OCTETBITS_H
#define SHOW_OCTETBITS_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Messages/Cell.h"
#include "Messages/DataCoding.h"

namespace show {

/// Some bits of an octet, or of two; those of one stand from the highest to the lowest.
struct OctetBits {
    std::uint16_t mask;
    std::string_view name;
    unsigned int value;
    std::string_view meaning; ///< may be empty
    bool isWide = false;      ///< of a number of two octets
};

/// The bits of a mask.
OctetBits BitsIn(unsigned int octet, std::uint8_t mask, std::string_view name, std::string_view meaning);

/// The same of a number of two octets.
OctetBits WideBitsIn(unsigned int number, std::uint16_t mask, std::string_view name,
                     std::string_view meaning);

/// The bits with their values, the others as points: ".001 ....".
std::string BitPattern(const OctetBits& bits);

std::vector<OctetBits> TypeOfAddressBits(unsigned int octet);
std::vector<OctetBits> ProtocolBits(unsigned int pid);
std::vector<OctetBits> DataCodingBits(const Messages::DataCoding& coding);
std::vector<OctetBits> ZoneBits(unsigned int octet);
std::vector<OctetBits> EnhancedValidityBits(unsigned int octet);
std::vector<OctetBits> ParameterIndicatorBits(unsigned int octet);
/// Of the header elements 01, 06, 0A and 17.
std::vector<OctetBits> SpecialMessageBits(unsigned int octet);
std::vector<OctetBits> ServiceCentreControlBits(unsigned int octet);
std::vector<OctetBits> TextFormattingBits(unsigned int octet);
std::vector<OctetBits> ColourBits(unsigned int octet);
std::vector<OctetBits> ObjectDistributionBits(unsigned int octet);

/// Of cell broadcast.
std::vector<OctetBits> SerialNumberBits(Messages::SerialNumber serial, std::uint16_t messageIdentifier);
std::vector<OctetBits> CellCodingBits(const Messages::CellCoding& coding);
std::vector<OctetBits> PageParameterBits(unsigned int octet);
std::vector<OctetBits> WarningTypeBits(const Messages::EtwsWarning& warning);

} // namespace show

#endif
