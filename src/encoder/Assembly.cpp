// The assembly of the PDUs, one octet after the other.
#include <algorithm>

#include "Encoding/PduEncoder.h"
#include "pdu/Octets.h"
#include "pdu/Septets.h"
#include "pdu/WireFormat.h"

namespace Encoding {
namespace {

constexpr unsigned char c_unspecifiedValidity = 0xFF; ///< in place of an enhanced or absolute validity period
constexpr unsigned int c_headerStartBit = 1; ///< one fill bit after the 48 bits of the concatenation header

/// Appends the low 8 bits of a value.
void WriteOctet(Pdu& pdu, unsigned int value) {
    Append(pdu, static_cast<unsigned char>(value));
}
void WriteOctet(Pdu& pdu, int value) {
    Append(pdu, static_cast<unsigned char>(value));
}

} // namespace

void PduEncoder::Encode(std::vector<Toolkit::smart_ptr<Pdu>>& pdus) {
    pdus.clear();
    const unsigned int parts = GetPduCount(m_Text);
    unsigned int offset = 0;
    for (unsigned int part = 0; part < parts; ++part) {
        if (parts > 1)
            NumberPart(part, parts);
        offset += CutPart(offset);
        const Toolkit::smart_ptr<Pdu> pdu(new Pdu);
        WritePart(*pdu, part == 0);
        pdus.push_back(pdu);
    }
}

/// Concatenation values of one part of several. A message of one part keeps those that are there.
void PduEncoder::NumberPart(unsigned int part, unsigned int parts) {
    if (part == 0)
        ++m_ReferenceCounter;
    if (m_UseConcatHeader != 0) {
        m_ConcatTotal = static_cast<int>(parts);
        m_ConcatReference = m_ReferenceCounter;
        m_ConcatSequence = static_cast<int>(part + 1);
    } else {
        m_MessageReference = static_cast<int>(part + m_ReferenceCounter);
    }
}

/// Takes the user data of the part that begins at `offset` and returns how many septets or characters it
/// took. The cut falls at the capacity, even between an escape and its code.
unsigned int PduEncoder::CutPart(unsigned int offset) {
    m_PartBytes.reset();
    m_PartLength = 0;
    if (m_Alphabet == Alphabet::ALPHABET_GSM7) {
        const unsigned int count = std::min(m_PartCapacity, m_GsmLength - offset);
        m_PartBytes = MakeOctets(count + 1ULL);
        std::copy_n(m_GsmBytes.get() + offset, count, m_PartBytes.get());
        m_PartLength = count;
        return count;
    }
    const unsigned int count =
        std::min(m_PartCapacity, static_cast<unsigned int>(m_WorkText.size()) - offset);
    unsigned char* octets = nullptr;
    const int taken = GetSubString(m_WorkText, offset, count, &m_PartLength, &octets);
    m_PartBytes.reset(octets);
    return taken != 0 ? count : 0;
}

void PduEncoder::WritePart(Pdu& pdu, bool isFirst) {
    const bool isSubmit = m_SmsType == MessageTypeIndicator::TP_MTI_SMS_SUBMIT;
    const bool isDeliver = m_SmsType == MessageTypeIndicator::TP_MTI_SMS_DELIVER;
    WriteServiceCentre(pdu);
    if (!isSubmit && !isDeliver) {
        WriteOctet(pdu, 0); // the first octet is all there is
        return;
    }
    WriteOctet(pdu, FirstOctet(isFirst));
    if (isSubmit) {
        WriteOctet(pdu, m_MessageReference);
        WriteAddress(pdu, m_Recipient, m_RecipientBytes, m_RecipientLength);
    } else {
        WriteAddress(pdu, m_Originator, m_OriginatorBytes, m_OriginatorLength);
    }
    WriteOctet(pdu, m_ProtocolId);
    WriteOctet(pdu, DataCoding());
    if (isSubmit)
        WriteValidityPeriod(pdu);
    WriteUserData(pdu);
}

/// The length counts octets here, the type octet included.
void PduEncoder::WriteServiceCentre(Pdu& pdu) {
    m_SmscBytes.reset();
    m_SmscLength = 0;
    if (!m_Smsc.empty()) {
        unsigned char* octets = nullptr;
        EncodeNumber(m_Smsc, m_SmscLenient != 0, &m_SmscLength, &octets, m_SmscTon);
        m_SmscBytes.reset(octets);
    }
    WriteOctet(pdu, m_SmscLength);
    pdu.Write(m_SmscBytes.get(), m_SmscLength);
}

unsigned int PduEncoder::FirstOctet(bool isFirst) const {
    const bool isSubmit = m_SmsType == MessageTypeIndicator::TP_MTI_SMS_SUBMIT;
    unsigned int first = isSubmit ? c_messageTypeSubmit : c_messageTypeDeliver;
    if (m_ReplyPath != 0)
        first |= c_replyPath;
    if (m_ConcatTotal != 0)
        first |= c_userDataHeader;
    if (!isSubmit)
        return first;
    if (m_StatusReport != 0 && isFirst)
        first |= c_statusReportRequest;
    if (m_ValidityFormat == VALIDITY_RELATIVE)
        first |= c_validityRelative;
    else if (m_ValidityFormat == VALIDITY_ENHANCED)
        first |= c_validityEnhanced;
    else if (m_ValidityFormat == VALIDITY_ABSOLUTE)
        first |= c_validityAbsolute;
    if (m_RejectDuplicates != 0)
        first |= c_rejectDuplicates;
    return first;
}

/// The length counts digits here, without the filler.
void PduEncoder::WriteAddress(Pdu& pdu, const TString<wchar_t>& number,
                              std::unique_ptr<unsigned char[]>& bytes, unsigned int& length) {
    bytes.reset();
    length = 0;
    if (number.empty()) {
        WriteOctet(pdu, 0);
        WriteOctet(pdu, c_addressNone);
        return;
    }
    unsigned char* octets = nullptr;
    EncodeNumber(number, false, &length, &octets, m_NumberTon);
    bytes.reset(octets);
    const bool hasFiller = octets[length - 1] >> 4 == c_filler;
    WriteOctet(pdu, 2 * (length - 1) - (hasFiller ? 1 : 0));
    pdu.Write(octets, length);
}

unsigned int PduEncoder::DataCoding() const {
    unsigned int dcs = 0;
    if (m_Alphabet >= Alphabet::ALPHABET_8BIT && m_Alphabet <= Alphabet::ALPHABET_RESERVED)
        dcs = static_cast<unsigned int>(m_Alphabet) << c_dcsAlphabetShift;
    if (m_Class >= MessageClass::CLASS_0 && m_Class <= MessageClass::CLASS_3)
        dcs |= c_dcsHasClass | static_cast<unsigned int>(m_Class);
    return dcs;
}

/// One octet even for the formats that take seven, as is required.
void PduEncoder::WriteValidityPeriod(Pdu& pdu) const {
    if (m_ValidityFormat == VALIDITY_RELATIVE)
        WriteOctet(pdu, m_ValidityPeriod);
    else if (m_ValidityFormat == VALIDITY_ENHANCED || m_ValidityFormat == VALIDITY_ABSOLUTE)
        WriteOctet(pdu, c_unspecifiedValidity);
}

void PduEncoder::WriteUserData(Pdu& pdu) const {
    const bool isGsm = m_Alphabet == Alphabet::ALPHABET_GSM7;
    const bool hasHeader = m_ConcatTotal != 0;
    const auto headerSize = static_cast<unsigned int>(isGsm ? _7BITDATA_HEADER_SIZE : USER_DATA_HEADER_SIZE);
    WriteOctet(pdu, m_PartLength + (hasHeader ? headerSize : 0)); // TP-UDL
    if (hasHeader) {
        WriteOctet(pdu, c_concatenationHeaderLength);
        WriteOctet(pdu, c_concatenation8);
        WriteOctet(pdu, c_concatenation8Length);
        WriteOctet(pdu, m_ConcatReference);
        WriteOctet(pdu, m_ConcatTotal);
        WriteOctet(pdu, m_ConcatSequence);
    }
    if (isGsm)
        WriteSeptets(pdu, m_PartBytes.get(), m_PartLength, hasHeader ? c_headerStartBit : 0);
    else
        pdu.Write(m_PartBytes.get(), m_PartLength);
}

} // namespace Encoding
