#include "Encoding/PduDecoder.h"

#include <algorithm>
#include <array>
#include <span>

#include "pdu/Octets.h"
#include "pdu/Septets.h"
#include "pdu/WireFormat.h"

namespace Encoding {
namespace {

/// Reads one PDU into a record, field after field. Each step leaves the position after its field and returns
/// false where decoding ends with a failure. A field that the message type does not have is read by doing
/// nothing.
class MessageReader {
public:
    MessageReader(PduDecoder& record, const Toolkit::smart_ptr<Pdu>& pdu, bool ignoreTimeZone)
        : m_Record(record), m_Pdu(pdu), m_IgnoreTimeZone(ignoreTimeZone) {}

    bool Read(bool noSmsc) {
        return (noSmsc || ReadServiceCentre()) && ReadFirstOctet() && ReadMessageReference() &&
               ReadAddress() && ReadProtocolAndCoding() && ReadReport() && ReadValidityPeriod() &&
               ReadServiceCentreTime() && ReadUserData();
    }

private:
    bool IsSubmit() const { return m_Record.m_SmsType == MessageTypeIndicator::TP_MTI_SMS_SUBMIT; }
    bool IsDeliver() const { return m_Record.m_SmsType == MessageTypeIndicator::TP_MTI_SMS_DELIVER; }
    bool IsReport() const { return m_Record.m_SmsType == MessageTypeIndicator::TP_MTI_SMS_STATUS_REPORT; }

    unsigned char Octet(unsigned int offset) const { return OctetAt(*m_Pdu, offset); }
    bool GoesOn() const { return m_Position < m_Pdu->m_Length; }

    /// Takes over what a field reader returned.
    bool MoveTo(unsigned int position) {
        m_Position = position;
        return GoesOn();
    }

    bool ReadTime(Toolkit::smart_ptr<Toolkit::DateTime>& time) {
        return MoveTo(m_Record.ReadTimeStamp(m_Pdu, m_Position, time, m_IgnoreTimeZone));
    }

    bool ReadServiceCentre() {
        return MoveTo(m_Record.ReadNumber(m_Pdu, m_Position, false, m_Record.m_Smsc, m_Record.m_SmscNpi,
                                          m_Record.m_SmscTon));
    }

    bool ReadFirstOctet() {
        const unsigned int first = Octet(m_Position++);
        m_Record.m_SmsType = m_Record.ReadSmsType(static_cast<int>(first));
        if (IsSubmit() || IsDeliver()) {
            m_Record.m_ReplyPath = (first & c_replyPath) != 0;
            m_Record.m_HasUserDataHeader = (first & c_userDataHeader) != 0;
        }
        if (IsSubmit()) {
            m_Record.m_RejectDuplicates = (first & c_rejectDuplicates) != 0;
            m_Record.m_ValidityFormat = ValidityFormatOf(first);
            m_Record.m_StatusReport = (first & c_statusReportRequest) != 0;
        }
        return GoesOn();
    }

    static int ValidityFormatOf(unsigned int first) {
        switch (first & c_validityFormatMask) {
        case c_validityRelative:
            return VALIDITY_RELATIVE;
        case c_validityEnhanced:
            return VALIDITY_ENHANCED;
        case c_validityAbsolute:
            return VALIDITY_ABSOLUTE;
        default:
            return VALIDITY_NONE;
        }
    }

    bool ReadMessageReference() {
        if (IsSubmit() || IsReport())
            m_Record.m_MessageReference = Octet(m_Position++);
        return GoesOn();
    }

    bool ReadAddress() {
        TString<wchar_t>& number = IsSubmit() || IsReport() ? m_Record.m_Recipient : m_Record.m_Originator;
        return MoveTo(
            m_Record.ReadNumber(m_Pdu, m_Position, true, number, m_Record.m_NumberNpi, m_Record.m_NumberTon));
    }

    bool ReadProtocolAndCoding() {
        if (!IsSubmit() && !IsDeliver())
            return true;
        m_Record.m_ProtocolId = Octet(m_Position++);
        if (!GoesOn())
            return false;
        const int dcs = Octet(m_Position++);
        m_Record.m_DataCoding = dcs;
        if (!GoesOn())
            return false;
        m_Record.m_CodingGroup = m_Record.ReadDCS(dcs);
        m_Record.m_Class = m_Record.ReadClass(dcs);
        m_Record.m_Alphabet = m_Record.ReadAlphabet(dcs);
        return true;
    }

    /// A status report ends with its status; what may follow is not decoded.
    bool ReadReport() {
        if (!IsReport())
            return true;
        if (!ReadTime(m_Record.m_ServiceCentreTime) || !ReadTime(m_Record.m_DischargeTime))
            return false;
        m_Record.m_Status = m_Record.ReadStatus(Octet(m_Position++));
        return true;
    }

    /// The seven octets of the enhanced format are not skipped, as is required: the next field is taken from
    /// where they begin.
    bool ReadValidityPeriod() {
        if (!IsSubmit())
            return true;
        if (m_Record.m_ValidityFormat == VALIDITY_ABSOLUTE)
            return ReadTime(m_Record.m_ValidityTime);
        if (m_Record.m_ValidityFormat == VALIDITY_RELATIVE)
            m_Record.m_ValidityPeriod = Octet(m_Position++);
        return GoesOn();
    }

    bool ReadServiceCentreTime() { return !IsDeliver() || ReadTime(m_Record.m_ServiceCentreTime); }

    bool ReadUserData() {
        if (!IsSubmit() && !IsDeliver())
            return true;
        m_Record.m_UserDataLength = Octet(m_Position++);
        if (!GoesOn()) {
            m_Record.m_Text.clear();
            return true;
        }
        m_Count = m_Characters = m_Record.m_UserDataLength;
        if (m_Record.m_HasUserDataHeader != 0 && !ReadUserDataHeader())
            return false;
        m_Record.m_Text.clear();
        switch (m_Record.m_Alphabet) {
        case Alphabet::ALPHABET_GSM7:
            ReadSeptets();
            return true;
        case Alphabet::ALPHABET_8BIT:
            ReadOctets();
            return true;
        case Alphabet::ALPHABET_UCS2:
            ReadUnits();
            return true;
        default:
            return false;
        }
    }

    /// Reads the information elements and moves to the data after them. The element's own length says where
    /// the next one begins, and is not compared with what is read from this one. A header of length 0 fails,
    /// since its first element already exceeds it.
    bool ReadUserDataHeader() {
        const unsigned int headerLength = Octet(m_Position++);
        unsigned int walked = 0;
        do {
            const unsigned int element = m_Position + walked;
            walked += Octet(element + 1) + c_elementHeaderSize;
            if (walked > headerLength)
                return false;
            ReadElement(Octet(element), element + c_elementHeaderSize);
        } while (walked < headerLength);
        m_Position += headerLength;
        m_Count -= static_cast<int>(headerLength) + 1;
        m_Characters = m_Count - 1; // exact for both concatenation headers, and required for every other
        return m_Count >= 0;
    }

    void ReadElement(unsigned int identifier, unsigned int data) {
        switch (identifier) {
        case c_concatenation8:
            m_Record.m_ConcatReference = Octet(data);
            m_Record.m_ConcatTotal = Octet(data + 1);
            m_Record.m_ConcatSequence = Octet(data + 2);
            m_FillBits = 1; // and no later element takes it back
            break;
        case c_concatenation16:
            m_Record.m_ConcatReference = Octet(data) << 8 | Octet(data + 1);
            m_Record.m_ConcatTotal = Octet(data + 2);
            m_Record.m_ConcatSequence = Octet(data + 3);
            break;
        case c_specialMessageIndication:
            m_Record.m_ConcatTotal = Octet(data + 1); // the message count goes here, as is required
            break;
        default:
            break;
        }
    }

    /// 7-bit text, one fill bit after an 8-bit concatenation element.
    void ReadSeptets() {
        if (m_Characters <= 0)
            return;
        std::array<unsigned char, c_longestUserData> septets;
        const auto characters = static_cast<unsigned int>(m_Characters);
        UnpackSeptets(*m_Pdu, m_Position, m_FillBits, characters, septets.data());
        const Toolkit::smart_ptr<GSMCharSet> charSet(m_Record.m_CharSet);
        m_Record.m_Text = charSet->GsmToUnicode(septets.data(), characters);
    }

    /// The octets from the position on that lie in the array, `count` at most.
    std::span<const unsigned char> Inside(unsigned int count) const {
        const unsigned int begin = std::min(m_Position, Pdu::CAPACITY);
        return {m_Pdu->m_Bytes + begin, std::min(count, Pdu::CAPACITY - begin)};
    }

    /// 8-bit data, one character an octet. Octets outside the array count as zero.
    void ReadOctets() {
        const auto count = static_cast<unsigned int>(m_Count);
        const auto octets = Inside(count);
        m_Record.m_Text.resize(count);
        std::copy(octets.begin(), octets.end(), m_Record.m_Text.begin());
    }

    /// UCS2, one character for two octets; an odd count takes one octet more, as is required.
    void ReadUnits() {
        const unsigned int units = (static_cast<unsigned int>(m_Count) + 1) / 2;
        m_Record.m_Text.resize(units);
        wchar_t* const text = m_Record.m_Text.data();
        const auto octets = Inside(2 * units);
        const auto whole = static_cast<unsigned int>(octets.size()) / 2;
        for (unsigned int i = 0; i < whole; ++i)
            text[i] = static_cast<wchar_t>(octets[2 * i] << 8 | octets[2 * i + 1]);
        for (unsigned int i = whole; i < units; ++i)
            text[i] = static_cast<wchar_t>(Octet(m_Position + 2 * i) << 8 | Octet(m_Position + 2 * i + 1));
    }

    PduDecoder& m_Record;
    const Toolkit::smart_ptr<Pdu>& m_Pdu;
    bool m_IgnoreTimeZone;
    unsigned int m_Position = 0; ///< of the next octet to be read
    int m_Count = 0;             ///< septets or octets of user data after the header
    int m_Characters = 0;        ///< septets of text
    unsigned int m_FillBits = 0; ///< before the first septet
};

} // namespace

int PduDecoder::Decode(Toolkit::smart_ptr<Pdu> pdu, bool noSmsc, bool ignoreTimeZone) {
    if (pdu.get() == nullptr)
        return 0;
    return MessageReader(*this, pdu, ignoreTimeZone).Read(noSmsc) ? 1 : 0;
}

MessageTypeIndicator::TP_MTI_Type PduDecoder::ReadSmsType(int firstOctet) {
    constexpr std::array types = {
        MessageTypeIndicator::TP_MTI_SMS_DELIVER, MessageTypeIndicator::TP_MTI_SMS_SUBMIT,
        MessageTypeIndicator::TP_MTI_SMS_STATUS_REPORT, MessageTypeIndicator::TP_MTI_UNKNOWN};
    return types[static_cast<unsigned int>(firstOctet) & c_messageTypeMask];
}

int PduDecoder::ReadDCS(int dcs) {
    switch (dcs & 0xF0) {
    case 0xC0:
        return GROUP_WAITING_DISCARD;
    case 0xD0:
        return GROUP_WAITING_STORE;
    case 0xE0:
        return GROUP_WAITING_STORE_UCS2;
    case 0xF0:
        return GROUP_CLASS;
    default:
        return GROUP_GENERAL;
    }
}

MessageClass::Class PduDecoder::ReadClass(int dcs) {
    const bool hasClass =
        m_CodingGroup == GROUP_CLASS || (m_CodingGroup == GROUP_GENERAL && (dcs & c_dcsHasClass) != 0);
    return hasClass ? static_cast<MessageClass::Class>(dcs & c_dcsClassMask) : MessageClass::CLASS_NONE;
}

Alphabet::Encoding PduDecoder::ReadAlphabet(int dcs) {
    switch (m_CodingGroup) {
    case GROUP_GENERAL:
        return static_cast<Alphabet::Encoding>((dcs & c_dcsAlphabetMask) >> c_dcsAlphabetShift);
    case GROUP_WAITING_STORE_UCS2:
        return Alphabet::ALPHABET_UCS2;
    case GROUP_CLASS:
        return (dcs & c_dcsClassGroup8Bit) != 0 ? Alphabet::ALPHABET_8BIT : Alphabet::ALPHABET_GSM7;
    default:
        return Alphabet::ALPHABET_GSM7;
    }
}

DeliveryStatus::TP_ST_Status PduDecoder::ReadStatus(unsigned char status) {
    switch (status) {
    case 0x00:
        return DeliveryStatus::ST_RECEIVED;
    case 0x01:
        return DeliveryStatus::ST_FORWARDED_UNCONFIRMED;
    case 0x02:
        return DeliveryStatus::ST_REPLACED;
    case 0x20:
        return DeliveryStatus::ST_CONGESTION;
    case 0x21:
        return DeliveryStatus::ST_SME_BUSY;
    case 0x22:
        return DeliveryStatus::ST_NO_RESPONSE;
    case 0x23:
        return DeliveryStatus::ST_SERVICE_REJECTED;
    case 0x24:
    case 0x44: // permanent, and deliberately the same value
        return DeliveryStatus::ST_QUALITY_OF_SERVICE_UNAVAILABLE;
    case 0x25:
        return DeliveryStatus::ST_ERROR_IN_SME;
    case 0x40:
        return DeliveryStatus::ST_REMOTE_PROCEDURE_ERROR;
    case 0x41:
        return DeliveryStatus::ST_INCOMPATIBLE_DESTINATION;
    case 0x42:
        return DeliveryStatus::ST_CONNECTION_REJECTED;
    case 0x43:
        return DeliveryStatus::ST_NOT_OBTAINABLE;
    case 0x45:
        return DeliveryStatus::ST_NO_INTERWORKING;
    case 0x46:
        return DeliveryStatus::ST_VALIDITY_PERIOD_EXPIRED;
    case 0x47:
        return DeliveryStatus::ST_DELETED_BY_ORIGINATING_SME;
    case 0x48:
        return DeliveryStatus::ST_DELETED_BY_ADMINISTRATION;
    case 0x49:
        return DeliveryStatus::ST_MESSAGE_DOES_NOT_EXIST;
    default:
        return DeliveryStatus::ST_UNKNOWN;
    }
}

} // namespace Encoding
