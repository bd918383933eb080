// The octets and bits of an SMS TPDU that decoder and encoder share, 3GPP TS 23.040 and TS 23.038.
#ifndef PDU_WIREFORMAT_H
#define PDU_WIREFORMAT_H

namespace Encoding {

// First octet
constexpr unsigned int c_messageTypeMask = 0x03; ///< TP-MTI
constexpr unsigned int c_messageTypeDeliver = 0x00;
constexpr unsigned int c_messageTypeSubmit = 0x01;
constexpr unsigned int c_rejectDuplicates = 0x04;   ///< TP-RD
constexpr unsigned int c_validityFormatMask = 0x18; ///< TP-VPF
constexpr unsigned int c_validityEnhanced = 0x08;
constexpr unsigned int c_validityRelative = 0x10;
constexpr unsigned int c_validityAbsolute = 0x18;
constexpr unsigned int c_statusReportRequest = 0x20; ///< TP-SRR
constexpr unsigned int c_userDataHeader = 0x40;      ///< TP-UDHI
constexpr unsigned int c_replyPath = 0x80;           ///< TP-RP

/// Values of PduCommon::m_ValidityFormat
enum ValidityFormat : int { VALIDITY_NONE, VALIDITY_RELATIVE, VALIDITY_ENHANCED, VALIDITY_ABSOLUTE };

/// Values of PduCommon::m_CodingGroup
enum CodingGroup : int {
    GROUP_GENERAL, ///< reserved and automatic-deletion groups are read the same way
    GROUP_WAITING_DISCARD,
    GROUP_WAITING_STORE,
    GROUP_WAITING_STORE_UCS2,
    GROUP_CLASS
};

// TP-DCS, general data coding
constexpr int c_dcsClassMask = 0x03;
constexpr int c_dcsAlphabetMask = 0x0C;
constexpr int c_dcsAlphabetShift = 2;
constexpr int c_dcsHasClass = 0x10;
// TP-DCS, data coding / message class
constexpr int c_dcsClassGroup8Bit = 0x04;

// Address field
constexpr unsigned int c_addressInternationalIsdn = 0x91; ///< type of address: international, ISDN plan
constexpr unsigned int c_addressUnknownIsdn = 0x81;       ///< type of address: unknown, ISDN plan
constexpr unsigned int c_addressNone = 0x80;              ///< type of address: unknown, no plan
constexpr unsigned int c_filler = 0x0F;                   ///< high semi-octet after an odd number of digits

// User-data header
constexpr unsigned int c_elementHeaderSize = 2; ///< identifier and length of an information element
constexpr unsigned int c_concatenation8 = 0x00; ///< concatenated short messages, 8-bit reference
constexpr unsigned int c_concatenation8Length = 3;
constexpr unsigned int c_concatenationHeaderLength = 5; ///< a header that holds this element alone
constexpr unsigned int c_specialMessageIndication = 0x01;
constexpr unsigned int c_concatenation16 = 0x08; ///< concatenated short messages, 16-bit reference
constexpr unsigned int c_longestUserData = 255;  ///< what TP-UDL can count

} // namespace Encoding

#endif
