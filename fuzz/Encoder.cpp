// PduEncoder, driven by a string of operations; see Operate() for their octets. After each Encode, what the
// PDUs decode to is compared with what was set.
#include <algorithm>
#include <memory>
#include <vector>

#include "Encoding/PduDecoder.h"
#include "Encoding/PduEncoder.h"
#include "Input.h"
#include "Property.h"

namespace {

using namespace Encoding;
using namespace fuzz;

constexpr unsigned int c_mostOperations = 64;
constexpr unsigned int c_mostEncodings = 4;
constexpr std::size_t c_longestText = 0x3000; ///< over 80 parts
constexpr std::size_t c_safeDigits = 250;     ///< two numbers of so many leave room for a whole part

using Parts = std::vector<Toolkit::smart_ptr<Pdu>>;

/// An encoder that shows what it has decided.
class OpenEncoder : public PduEncoder {
public:
    OpenEncoder() : PduEncoder(MessageTypeIndicator::TP_MTI_SMS_SUBMIT) {}
    using PduCommon::m_Alphabet;
    using PduCommon::m_CharSet;
    using PduCommon::m_ConcatReference;
    using PduCommon::m_ConcatSequence;
    using PduCommon::m_ConcatTotal;
    using PduCommon::m_WorkText;
    using PduEncoder::m_GsmBytes;
    using PduEncoder::m_GsmLength;
    using PduEncoder::m_PartCapacity;
};

/// What has been set.
struct Settings {
    MessageTypeIndicator::TP_MTI_Type type = MessageTypeIndicator::TP_MTI_SMS_SUBMIT;
    int messageClass = MessageClass::CLASS_NONE;
    bool hasValidity = false;
    int validity = 0;
    bool statusReport = false;
    bool rejectDuplicates = false;
    bool replyPath = false;
    int reference = 0;
    int concatReference = 0;
    int concatTotal = 0;
    int concatSequence = 0;
    TString<wchar_t> text;
    TString<wchar_t> smsc;
    bool smscLenient = false;
    TString<wchar_t> recipient;
};

int LowOctet(int value) {
    return value & 0xFF;
}

/// A number as it is read back: its digits, after a plus sign where that came first.
TString<wchar_t> Dialled(const TString<wchar_t>& number) {
    TString<wchar_t> dialled;
    if (!number.empty() && number.front() == L'+')
        dialled.push_back(L'+');
    std::copy_if(number.begin(), number.end(), std::back_inserter(dialled),
                 [](wchar_t c) { return c >= L'0' && c <= L'9'; });
    return dialled;
}

bool Survives(const GSMCharSet& charSet, wchar_t character) {
    if (character <= 0 || character > 0xFFFF)
        return false;
    const auto unicode = static_cast<unsigned short>(character);
    const int gsm = charSet.UnicodeToGsm(unicode);
    if (gsm == GSMCharSet::UNMAPPABLE)
        return false;
    return gsm >= 0 ? GSMCharSet::m_GsmDefaultTable[gsm] == unicode
                    : charSet.FindUnicodeCharFromEscapeChar(static_cast<unsigned char>(-gsm)) == unicode;
}

/// Of a text without translation tables, the alphabet follows from the characters alone.
void CheckAlphabet(const OpenEncoder& encoder, const Settings& set) {
    const bool isGsm = encoder.m_Alphabet == Alphabet::ALPHABET_GSM7;
    Require(isGsm || encoder.m_Alphabet == Alphabet::ALPHABET_UCS2, "a text goes out as GSM or as UCS2");
    if (!encoder.m_CharSet->m_TranslateTables.empty())
        return;
    const bool survives = !set.text.empty() && std::all_of(set.text.begin(), set.text.end(), [&](wchar_t c) {
        return Survives(*encoder.m_CharSet, c);
    });
    Require(isGsm == survives, "a text goes out as GSM exactly when each character survives");
    Require(encoder.m_WorkText == set.text, "without translation the text goes out as it is");
}

/// The text of the part that begins at `offset`. An escape cut off from its code gives nothing.
TString<wchar_t> TextOfPart(OpenEncoder& encoder, std::size_t offset) {
    if (encoder.m_Alphabet == Alphabet::ALPHABET_GSM7) {
        const auto begin = static_cast<unsigned int>(offset);
        return encoder.m_CharSet->GsmToUnicode(encoder.m_GsmBytes.get() + begin,
                                               std::min(encoder.m_PartCapacity, encoder.m_GsmLength - begin));
    }
    TString<wchar_t> text = encoder.m_WorkText.substr(offset, encoder.m_PartCapacity);
    for (wchar_t& character : text)
        character &= 0xFFFF;
    return text;
}

/// Whether a part ends with an escape that introduces the first code of the next one.
bool CutsAPair(const OpenEncoder& encoder) {
    if (encoder.m_Alphabet != Alphabet::ALPHABET_GSM7)
        return false;
    for (unsigned int end = encoder.m_PartCapacity; end < encoder.m_GsmLength; end += encoder.m_PartCapacity)
        if (encoder.m_GsmBytes[end - 1] == 0x1B)
            return true;
    return false;
}

void CheckFields(const PduDecoder& part, const OpenEncoder& encoder, const Settings& set, bool isFirst) {
    Require(part.m_SmsType == MessageTypeIndicator::TP_MTI_SMS_SUBMIT, "the message type comes back");
    Require(part.m_Recipient == Dialled(set.recipient), "the recipient comes back");
    if (!set.smscLenient)
        Require(part.m_Smsc == Dialled(set.smsc), "the service centre comes back");
    Require(part.m_ReplyPath == set.replyPath && part.m_RejectDuplicates == set.rejectDuplicates,
            "the flags come back");
    Require(part.m_StatusReport == (set.statusReport && isFirst), "the first part alone asks for a report");
    Require(part.m_MessageReference == LowOctet(set.reference), "the message reference comes back");
    Require(part.m_ProtocolId == 0, "no protocol is set");
    Require(part.m_Alphabet == encoder.m_Alphabet, "the alphabet comes back");
    const bool hasClass = set.messageClass >= 0 && set.messageClass <= 3;
    Require(part.m_Class == (hasClass ? set.messageClass : MessageClass::CLASS_NONE), "the class comes back");
    Require(part.m_ValidityFormat == (set.hasValidity ? 1 : 0) &&
                part.m_ValidityPeriod == (set.hasValidity ? LowOctet(set.validity) : 0),
            "the validity period comes back");
}

/// Several parts are numbered; one alone keeps the header that is there.
void CheckConcatenation(const PduDecoder& part, const OpenEncoder& encoder, const Settings& set,
                        std::size_t index, std::size_t parts) {
    const bool hasHeader = parts > 1 || set.concatTotal != 0;
    Require(part.m_HasUserDataHeader == hasHeader, "a header is announced where there is one");
    if (!hasHeader)
        return;
    const int sequence = parts > 1 ? static_cast<int>(index + 1) : set.concatSequence;
    const int total = parts > 1 ? static_cast<int>(parts) : set.concatTotal;
    const int reference = parts > 1 ? encoder.m_ConcatReference : set.concatReference;
    Require(part.m_ConcatSequence == LowOctet(sequence) && part.m_ConcatTotal == LowOctet(total) &&
                part.m_ConcatReference == LowOctet(reference),
            "the concatenation values come back");
}

void CheckSubmit(OpenEncoder& encoder, const Settings& set, const Parts& pdus) {
    if (Dialled(set.recipient).size() > c_safeDigits || Dialled(set.smsc).size() > c_safeDigits ||
        (set.smscLenient && set.smsc.size() > c_safeDigits))
        return;
    TString<wchar_t> text;
    for (std::size_t i = 0; i < pdus.size(); ++i) {
        PduDecoder part;
        Require(part.Decode(pdus[i], false, false) == 1, "what was encoded can be decoded");
        CheckFields(part, encoder, set, i == 0);
        CheckConcatenation(part, encoder, set, i, pdus.size());
        const TString<wchar_t> expected =
            set.text.empty() ? TString<wchar_t>() : TextOfPart(encoder, i * encoder.m_PartCapacity);
        Require(part.m_Text == expected, "each part's text comes back");
        text += part.m_Text;

        PduDecoder fromText;
        Require(fromText.Decode(new Pdu(pdus[i]->GetString()), false, false) == 1 &&
                    fromText.m_Text == part.m_Text,
                "a PDU's text decodes to the same");
    }
    const bool has16Bits =
        std::all_of(set.text.begin(), set.text.end(), [](wchar_t c) { return c >= 0 && c <= 0xFFFF; });
    if (has16Bits && !CutsAPair(encoder))
        Require(text == encoder.m_WorkText, "the parts together are the text");
}

void CheckEncode(OpenEncoder& encoder, Settings& set) {
    const unsigned int count = encoder.GetPduCount(set.text);
    Parts pdus(3);
    encoder.Encode(pdus);
    Require(pdus.size() == count, "as many PDUs are made as were announced");
    CheckAlphabet(encoder, set);
    Require(
        std::all_of(pdus.begin(), pdus.end(),
                    [](const auto& pdu) { return pdu->m_Length > 0 && pdu->m_Length <= Pdu::APPEND_LIMIT; }),
        "a PDU has 511 octets at most");
    if (set.type == MessageTypeIndicator::TP_MTI_SMS_SUBMIT)
        CheckSubmit(encoder, set, pdus);
    else if (set.type != MessageTypeIndicator::TP_MTI_SMS_DELIVER)
        for (const auto& pdu : pdus)
            Require(pdu->m_Bytes[pdu->m_Length - 1] == 0, "other types end with a first octet of 0");
    if (count > 1) {
        set.concatReference = encoder.m_ConcatReference;
        set.concatTotal = encoder.m_ConcatTotal;
        set.concatSequence = encoder.m_ConcatSequence;
    }
}

void CheckSubString(OpenEncoder& encoder, const TString<wchar_t>& text, unsigned int start,
                    unsigned int count) {
    unsigned int length = 1;
    unsigned char* octets = nullptr;
    const int taken = encoder.GetSubString(text, start, count, &length, &octets);
    const std::unique_ptr<unsigned char[]> owned(octets);
    if (start >= text.size() || count == 0) {
        Require(taken == 0 && octets == nullptr && length == 0, "nothing is taken from nowhere");
        return;
    }
    Require(taken == 1 && length == 2 * count, "a character gives two octets");
    for (std::size_t i = 0; i <= count; ++i) { // two spare octets included
        const std::size_t at = start + i;
        const int unit = i < count && at < text.size() ? text[at] & 0xFFFF : 0;
        Require((octets[2 * i] << 8 | octets[2 * i + 1]) == unit, "octets stand high one first");
    }
}

void CheckNumber(OpenEncoder& encoder, const TString<wchar_t>& number, bool lenient) {
    unsigned int length = 1;
    unsigned char* octets = nullptr;
    TypeOfNumber::TON ton = TypeOfNumber::TON_RESERVED;
    const int encoded = encoder.EncodeNumber(number, lenient, &length, &octets, ton);
    const std::unique_ptr<unsigned char[]> owned(octets);
    if (number.empty()) {
        Require(encoded == 0 && octets == nullptr && length == 0, "an empty number gives nothing");
        return;
    }
    const bool isInternational = number.front() == L'+';
    Require(encoded == 1 && length >= 1 && length <= 255, "an address has 255 octets at most");
    Require(octets[0] == (isInternational ? 0x91 : 0x81) &&
                ton == (isInternational ? TypeOfNumber::TON_INTERNATIONAL : TypeOfNumber::TON_UNKNOWN),
            "a plus sign makes a number international");
    if (!lenient) {
        const std::size_t digits =
            std::min<std::size_t>(Dialled(number).size() - (isInternational ? 1 : 0), 508);
        Require(length == 1 + (digits + 1) / 2, "an octet holds two digits");
    }
    Require(std::all_of(octets + 1, octets + length,
                        [](unsigned char pair) {
                            return (pair & 0x0F) <= 9 && (pair >> 4 <= 9 || pair >> 4 == 0x0F);
                        }),
            "semi-octets are digits, or a filler");
}

/// Characters after a count: of one octet, of two, of four, or a few of them over and over.
TString<wchar_t> Text(Input& input) {
    const unsigned int form = input.Octet();
    const std::size_t count = input.Octet();
    TString<wchar_t> text = input.Characters(count, (form & 1) != 0 ? 2 : (form & 2) != 0 ? 4 : 1);
    if ((form & 4) != 0) {
        const TString<wchar_t> once = text;
        for (unsigned int times = input.Octet(); times > 0 && text.size() < c_longestText; --times)
            text += once;
    }
    return text;
}

void Operate(Input& input, OpenEncoder& encoder, Settings& set, unsigned int& encodings) {
    const auto setText = [&set](const TString<wchar_t>& text, bool always) {
        if (always || !text.empty())
            set.text = text;
    };
    switch (input.Octet() % 21) {
    case 0:
        if (encodings++ < c_mostEncodings)
            CheckEncode(encoder, set);
        break;
    case 1: {
        const TString<wchar_t> text = Text(input);
        encoder.SetText(text);
        setText(text, false);
        break;
    }
    case 2: {
        const TString<wchar_t> text = Text(input);
        encoder.SetText(text, static_cast<Alphabet::Encoding>(input.Octet()));
        if (!set.text.empty())
            setText(text, true);
        break;
    }
    case 3: {
        const TString<wchar_t> number = Text(input);
        const bool lenient = (input.Octet() & 1) != 0;
        encoder.SetSmsc(number, lenient);
        if (!number.empty()) {
            set.smsc = number;
            set.smscLenient = lenient;
        }
        break;
    }
    case 4: {
        const TString<wchar_t> number = Text(input);
        encoder.SetRecipient(number);
        if (!number.empty())
            set.recipient = number;
        break;
    }
    case 5:
        set.messageClass = static_cast<signed char>(input.Octet());
        encoder.SetClass(static_cast<MessageClass::Class>(set.messageClass));
        break;
    case 6:
        set.type = static_cast<MessageTypeIndicator::TP_MTI_Type>(input.Octet() % 6);
        encoder.SetSmSType(set.type);
        break;
    case 7:
        set.validity = static_cast<int>(input.Word(4));
        set.hasValidity = true;
        encoder.SetValidityPeriod(set.validity);
        break;
    case 8: {
        constexpr int octets[] = {11, 23, 71, 143, 167, 173, 255};
        const int period = static_cast<signed char>(input.Octet());
        set.validity = period >= 0 && period < 7 ? octets[period] : 0;
        set.hasValidity = true;
        encoder.SetValidityPeriod(static_cast<ValidityPeriod::TP_VP_Period>(period));
        break;
    }
    case 9:
        set.statusReport = (input.Octet() & 1) != 0;
        encoder.SetRequireStatusReport(set.statusReport);
        break;
    case 10:
        set.rejectDuplicates = (input.Octet() & 1) != 0;
        encoder.SetReject_Duplicates(set.rejectDuplicates);
        break;
    case 11:
        set.replyPath = (input.Octet() & 1) != 0;
        encoder.SetReplyPath(set.replyPath);
        break;
    case 12:
        set.reference = static_cast<int>(input.Word(4));
        encoder.SetMessageReference(set.reference);
        break;
    case 13:
        set.concatReference = static_cast<int>(input.Word(2));
        set.concatTotal = static_cast<int>(input.Word(2));
        set.concatSequence = static_cast<int>(input.Word(2));
        encoder.SetHeader(set.concatReference, set.concatTotal, set.concatSequence);
        break;
    case 14:
        set.concatTotal = 0;
        encoder.RemoveHeader();
        break;
    case 15: {
        const auto table = static_cast<TranslateTable::TT>(static_cast<signed char>(input.Octet()));
        encoder.AddTranslateTable(table);
        Require(encoder.FindTable(table) != 0, "a selected table is found");
        break;
    }
    case 16:
        encoder.ClearTranslateTable();
        Require(encoder.FindTable(TranslateTable::GREEK) == 0, "no table is found once all are cleared");
        break;
    case 17:
        encoder.GetPduCount(Text(input));
        break;
    case 18: {
        const TString<wchar_t> text = Text(input);
        const unsigned int start = input.Octet();
        CheckSubString(encoder, text, start, input.Word(2));
        break;
    }
    case 19: {
        const TString<wchar_t> number = Text(input);
        CheckNumber(encoder, number, (input.Octet() & 1) != 0);
        break;
    }
    default:
        encoder.SetSmSType(MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
        set.type = MessageTypeIndicator::TP_MTI_SMS_SUBMIT;
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    OpenEncoder encoder;
    Settings set;
    unsigned int encodings = 0;
    for (unsigned int i = 0; i < c_mostOperations && input.Left() > 0; ++i)
        Operate(input, encoder, set, encodings);
    CheckEncode(encoder, set);
    return 0;
}
