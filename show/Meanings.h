// What the fields of a short message mean to a person, 3GPP TS 23.040 and 23.038.
#ifndef QXPDU_MEANINGS_H
#define QXPDU_MEANINGS_H

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "Encoding/Fields.h"
#include "Encoding/PduDecoder.h"

namespace qxpdu {

/// Bits of the first octet that tell which fields follow, and the values of TP-VPF.
constexpr unsigned int c_userDataHeaderMask = 0x40;
constexpr unsigned int c_validityFormatMask = 0x18;
constexpr unsigned int c_validityEnhanced = 0x08;
constexpr unsigned int c_validityRelative = 0x10;
constexpr unsigned int c_validityAbsolute = 0x18;

/// A field of one or two bits in the first octet of a TPDU; the meaning is that of its value.
struct BitField {
    std::string_view name;
    unsigned int mask;
    std::array<std::string_view, 4> meanings;

    unsigned int ValueIn(unsigned int octet) const;
};

/// TP-MTI and the other fields of a first octet, the lowest bits first.
BitField MessageTypeField();
std::span<const BitField> FirstOctetFields(Encoding::MessageTypeIndicator::TP_MTI_Type type);

/// Type of number and numbering plan by their bits in the type-of-address octet.
std::string_view TypeOfNumberMeaning(unsigned int bits);
std::string_view NumberingPlanMeaning(unsigned int bits);

std::string_view AlphabetName(Encoding::Alphabet::Encoding alphabet);

/// TP-PID.
std::string ProtocolMeaning(unsigned int pid);

/// What a message waits as, by two bits.
std::string_view WaitingKind(unsigned int bits);

/// TP-DCS, whose alphabet and class the decoder has read already.
std::string DataCodingMeaning(unsigned int dcs, Encoding::Alphabet::Encoding alphabet,
                              Encoding::MessageClass::Class messageClass);

/// TP-VP, relative format.
std::string ValidityMeaning(unsigned int period);

/// TP-ST.
std::string StatusMeaning(Encoding::PduDecoder& decoder, unsigned int status);

/// An element of the user-data header.
std::string_view ElementName(unsigned int identifier);

} // namespace qxpdu

#endif
