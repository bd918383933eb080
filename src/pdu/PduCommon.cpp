#include "Encoding/PduCommon.h"

#include "Encoding/UCS2Encoding.h"
#include "pdu/Octets.h"

namespace Encoding {

PduCommon::PduCommon()
    : m_SmscNpi(NumberingPlan::NPI_UNKNOWN),
      m_SmscTon(TypeOfNumber::TON_UNKNOWN),
      m_NumberNpi(NumberingPlan::NPI_UNKNOWN),
      m_NumberTon(TypeOfNumber::TON_UNKNOWN),
      m_SmsType(MessageTypeIndicator::TP_MTI_UNKNOWN),
      m_ReplyPath(0),
      m_HasUserDataHeader(0),
      m_StatusReport(0),
      m_ValidityFormat(0),
      m_RejectDuplicates(0),
      m_MessageReference(0),
      m_ProtocolId(0),
      m_DataCoding(0),
      m_ValidityPeriod(0),
      m_UserDataLength(0),
      m_Status(DeliveryStatus::ST_RECEIVED),
      m_CodingGroup(0),
      m_Class(MessageClass::CLASS_NONE),
      m_Alphabet(Alphabet::ALPHABET_GSM7),
      m_ConcatReference(0),
      m_ConcatTotal(0),
      m_ConcatSequence(0),
      m_CharSet(new GSMCharSet) {}

PduCommon::~PduCommon() = default;

unsigned int PduCommon::HexaToInt(const unsigned char* digits) {
    unsigned int value = 0;
    for (int shift = 4; shift >= 0 && *digits != 0; shift -= 4, ++digits)
        value |= static_cast<unsigned int>(UCS2Encoding::c_fromHex[*digits]) << shift;
    return value;
}

int PduCommon::SwapNumber(unsigned char octet) {
    return Swapped(octet);
}

} // namespace Encoding
