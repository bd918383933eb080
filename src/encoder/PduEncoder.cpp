// Settings and address encoding.
#include "Encoding/PduEncoder.h"

#include <array>
#include <ctime>

#include "pdu/Octets.h"
#include "pdu/WireFormat.h"

namespace Encoding {
namespace {

constexpr unsigned int c_addressBuffer = 256; ///< octets that the caller of EncodeNumber() is given
constexpr unsigned int c_lastWholePair = 253; ///< octets after which no further pair is begun

/// Relative validity periods in the order of ValidityPeriod::TP_VP_Period.
constexpr std::array<unsigned char, 7> c_validityOctets = {11, 23, 71, 143, 167, 173, 255};

} // namespace

const int PduEncoder::MAX_7BITDATA_LEN;
const int PduEncoder::MAX_GSM_LEN_WITH_HEADER;
const int PduEncoder::MAX_DATA_LEN;
const int PduEncoder::MAX_DATA_LEN_WITH_HEADER;
const int PduEncoder::USER_DATA_HEADER_SIZE;
const int PduEncoder::_7BITDATA_HEADER_SIZE;

PduEncoder::PduEncoder(MessageTypeIndicator::TP_MTI_Type type)
    : m_SmscLength(0),
      m_SmscLenient(0),
      m_RecipientLength(0),
      m_OriginatorLength(0),
      m_PartCapacity(0),
      m_UseConcatHeader(1),
      m_GsmLength(0),
      m_ReferenceCounter(static_cast<unsigned char>(std::time(nullptr))),
      m_PartLength(0) {
    m_SmsType = type;
}

// The octets go in this order and before the record, as is required.
PduEncoder::~PduEncoder() {
    m_SmscBytes.reset();
    m_RecipientBytes.reset();
    m_OriginatorBytes.reset();
    m_GsmBytes.reset();
    m_PartBytes.reset();
}

void PduEncoder::SetClass(MessageClass::Class messageClass) {
    m_Class = messageClass;
}

void PduEncoder::SetSmSType(MessageTypeIndicator::TP_MTI_Type type) {
    m_SmsType = type;
}

void PduEncoder::SetValidityPeriod(int octet) {
    m_ValidityPeriod = octet;
    m_ValidityFormat = VALIDITY_RELATIVE;
}

void PduEncoder::SetValidityPeriod(ValidityPeriod::TP_VP_Period period) {
    const auto index = static_cast<unsigned int>(period);
    SetValidityPeriod(index < c_validityOctets.size() ? int{c_validityOctets[index]} : 0);
}

void PduEncoder::SetRequireStatusReport(bool require) {
    m_StatusReport = require;
}

void PduEncoder::SetReject_Duplicates(bool reject) {
    m_RejectDuplicates = reject;
}

void PduEncoder::SetReplyPath(bool replyPath) {
    m_ReplyPath = replyPath;
}

void PduEncoder::SetMessageReference(int reference) {
    m_MessageReference = reference;
}

void PduEncoder::SetHeader(int reference, int total, int sequence) {
    m_ConcatReference = reference;
    m_ConcatTotal = total;
    m_ConcatSequence = sequence;
}

void PduEncoder::RemoveHeader() {
    m_ConcatTotal = 0;
}

void PduEncoder::SetText(const TString<wchar_t>& text) {
    if (!text.empty())
        m_Text = text;
}

void PduEncoder::SetText(const TString<wchar_t>& text, Alphabet::Encoding alphabet) {
    if (m_Text.empty()) // the member is tested, not the argument, as is required
        return;
    m_Text = text;
    m_Alphabet = alphabet;
}

void PduEncoder::SetSmsc(const TString<wchar_t>& number, bool lenient) {
    if (number.empty())
        return;
    m_Smsc = number;
    m_SmscLenient = lenient;
}

void PduEncoder::SetRecipient(const TString<wchar_t>& number) {
    if (!number.empty())
        m_Recipient = number;
}

int PduEncoder::FindTable(TranslateTable::TT table) {
    const Toolkit::smart_ptr<GSMCharSet> charSet(m_CharSet);
    return charSet->FindTable(table);
}

void PduEncoder::AddTranslateTable(TranslateTable::TT table) {
    const Toolkit::smart_ptr<GSMCharSet> charSet(m_CharSet);
    charSet->AddTranslateTable(table);
}

void PduEncoder::ClearTranslateTable() {
    const Toolkit::smart_ptr<GSMCharSet> charSet(m_CharSet);
    charSet->ClearTranslateTable();
}

int PduEncoder::EncodeNumber(const TString<wchar_t>& number, bool lenient, unsigned int* length,
                             unsigned char** bytes, TypeOfNumber::TON& ton) {
    *bytes = nullptr;
    *length = 0;
    ton = TypeOfNumber::TON_UNKNOWN;
    if (number.empty())
        return 0;

    unsigned char* octets = MakeOctets(c_addressBuffer).release();
    *bytes = octets;
    octets[0] = c_addressUnknownIsdn;
    if (number.front() == L'+') {
        octets[0] = c_addressInternationalIsdn;
        ton = TypeOfNumber::TON_INTERNATIONAL;
    }

    unsigned int count = 1;
    unsigned int pending = 0; // the digit for the low semi-octet
    bool isPending = false;
    for (const wchar_t character : number) {
        const unsigned int digit = static_cast<unsigned int>(character) - L'0';
        if (digit > 9) {
            if (character == L'+' && lenient) { // each one, the leading one included, as is required
                isPending = !isPending;
                pending = 0;
            }
            continue;
        }
        if (isPending) {
            if (count > c_lastWholePair)
                break;
            octets[count++] = static_cast<unsigned char>(digit << 4 | pending);
        } else {
            pending = digit;
        }
        isPending = !isPending;
    }
    if (isPending)
        octets[count++] = static_cast<unsigned char>(c_filler << 4 | pending);
    *length = count;
    return 1;
}

} // namespace Encoding
