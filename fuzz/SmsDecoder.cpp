// PduDecoder::Decode, fresh and reused. Input: flags (1 the TPDU alone, 2 times without zone), the length of
// an earlier PDU, the earlier PDU, the PDU.
#include "Encoding/PduDecoder.h"
#include "Input.h"
#include "Record.h"

namespace {

using namespace Encoding;
using namespace fuzz;

constexpr int c_mark = 0x5AFE0001;
constexpr int c_otherMark = 0x5AFE0002;

struct Decoding {
    bool noSmsc;
    bool ignoreTimeZone;

    int operator()(PduDecoder& decoder, const Toolkit::smart_ptr<Pdu>& pdu) const {
        return decoder.Decode(pdu, noSmsc, ignoreTimeZone);
    }
};

void RequireRanges(const PduDecoder& decoder) {
    const auto isOctet = [](int value) { return value >= 0 && value <= 255; };
    const auto isFlag = [](int value) { return value == 0 || value == 1; };
    Require(isFlag(decoder.m_ReplyPath) && isFlag(decoder.m_HasUserDataHeader) &&
                isFlag(decoder.m_StatusReport) && isFlag(decoder.m_RejectDuplicates),
            "flags are 0 or 1");
    Require(isOctet(decoder.m_MessageReference) && isOctet(decoder.m_ProtocolId) &&
                isOctet(decoder.m_DataCoding) && isOctet(decoder.m_ValidityPeriod) &&
                isOctet(decoder.m_UserDataLength) && isOctet(decoder.m_ConcatTotal) &&
                isOctet(decoder.m_ConcatSequence),
            "a field of one octet is 0 to 255");
    Require(decoder.m_ConcatReference >= 0 && decoder.m_ConcatReference <= 0xFFFF,
            "a concatenation reference has 16 bits at most");
    Require(decoder.m_Status >= DeliveryStatus::ST_RECEIVED &&
                decoder.m_Status <= DeliveryStatus::ST_UNKNOWN && decoder.m_CodingGroup >= 0 &&
                decoder.m_CodingGroup <= 4 && decoder.m_Class >= 0 &&
                decoder.m_Class <= MessageClass::CLASS_NONE && decoder.m_Alphabet >= 0 &&
                decoder.m_Alphabet <= Alphabet::ALPHABET_RESERVED && decoder.m_ValidityFormat >= 0 &&
                decoder.m_ValidityFormat <= 3,
            "enumerations have values with a name");
    Require(decoder.m_Text.size() <= 255, "a text is no longer than TP-UDL can count");
    Require(decoder.m_Smsc.size() <= 256 && decoder.m_Originator.size() <= 256 &&
                decoder.m_Recipient.size() <= 256,
            "a number has 255 characters and a plus sign at most");
}

/// Members that every accepted PDU of its type sets, so that they do not depend on what stood there before.
void RequireComplete(const PduDecoder& left, const PduDecoder& right) {
    const bool isSubmit = left.m_SmsType == MessageTypeIndicator::TP_MTI_SMS_SUBMIT;
    const bool isDeliver = left.m_SmsType == MessageTypeIndicator::TP_MTI_SMS_DELIVER;
    const bool isReport = left.m_SmsType == MessageTypeIndicator::TP_MTI_SMS_STATUS_REPORT;
    Require(left.m_NumberNpi == right.m_NumberNpi && left.m_NumberTon == right.m_NumberTon &&
                (isSubmit || isReport ? left.m_Recipient == right.m_Recipient
                                      : left.m_Originator == right.m_Originator),
            "an accepted PDU has an address");
    if (isSubmit || isReport)
        Require(left.m_MessageReference == right.m_MessageReference, "an accepted PDU has its reference");
    if (isReport)
        Require(left.m_Status == right.m_Status, "an accepted report has a status");
    if (isSubmit || isDeliver)
        Require(left.m_ProtocolId == right.m_ProtocolId && left.m_DataCoding == right.m_DataCoding &&
                    left.m_CodingGroup == right.m_CodingGroup && left.m_Class == right.m_Class &&
                    left.m_Alphabet == right.m_Alphabet && left.m_UserDataLength == right.m_UserDataLength &&
                    left.m_HasUserDataHeader == right.m_HasUserDataHeader && left.m_Text == right.m_Text,
                "an accepted message has data coding and text");
}

/// Each member was either set, and then to the same value as in a fresh decoder, or not touched at all.
void RequireSetOrKept(const Decoding& decode, const Toolkit::smart_ptr<Pdu>& earlier,
                      const Toolkit::smart_ptr<Pdu>& pdu, PduDecoder& fresh, int result) {
    PduDecoder marked;
    PduDecoder otherMarked;
    const PduDecoder initial;
    ForEachMember(Mark(c_mark), marked);
    ForEachMember(Mark(c_otherMark), otherMarked);
    const PduDecoder mark = marked;
    Require(decode(marked, pdu) == result && decode(otherMarked, pdu) == result,
            "the result does not depend on what the decoder held before");
    if (result == 1)
        RequireComplete(marked, otherMarked);

    PduDecoder reused;
    decode(reused, earlier);
    const PduDecoder before = reused;
    Require(decode(reused, pdu) == result, "a reused decoder returns what a fresh one does");

    ForEachMember(
        [](const auto& now, const auto& other, const auto& held, const auto& freshValue,
           const auto& initialValue, const auto& reusedValue, const auto& beforeValue) {
            if (Equal()(now, other)) {
                Require(Equal()(now, freshValue) && Equal()(now, reusedValue),
                        "fresh and reused decoders agree on every member that the PDU sets");
            } else {
                Require(Equal()(now, held) && Equal()(freshValue, initialValue) &&
                            Equal()(reusedValue, beforeValue),
                        "a member that the PDU does not set keeps its value");
            }
        },
        marked, otherMarked, mark, fresh, initial, reused, before);
    Require(marked.m_CharSet.get() == mark.m_CharSet.get() &&
                reused.m_CharSet.get() == before.m_CharSet.get(),
            "decoding keeps the character set");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const unsigned int flags = input.Octet();
    const Decoding decode{(flags & 1) != 0, (flags & 2) != 0};
    const Toolkit::smart_ptr<Pdu> earlier = input.Pdu(input.Octet());
    const Toolkit::smart_ptr<Pdu> pdu = input.Pdu();
    const TString<char> hex = pdu->GetString();

    PduDecoder fresh;
    const int result = decode(fresh, pdu);
    Require(result == 0 || result == 1, "the result is 0 or 1");
    RequireRanges(fresh);
    Require(pdu->GetString() == hex, "decoding does not change the PDU");
    RequireSetOrKept(decode, earlier, pdu, fresh, result);

    PduDecoder fromText;
    Require(decode(fromText, new Pdu(hex)) == result, "the PDU's text decodes with the same result");
    RequireSameRecord(fresh, fromText, "the PDU's text decodes to the same members");
    return 0;
}
