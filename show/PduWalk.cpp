#include "show/PduWalk.h"

#include <algorithm>

#include <fmt/format.h>

#include "show/CodeUnits.h"
#include "show/Meanings.h"
#include "show/Plural.h"

namespace qxpdu {

namespace {

using Encoding::Alphabet;
using Encoding::MessageTypeIndicator;
using Encoding::Pdu;
using Encoding::PduDecoder;

constexpr std::size_t c_mostFields = 15; ///< those of an SMS-SUBMIT
constexpr unsigned int c_timeLength = 7;
constexpr unsigned int c_zoneSign = 0x08;
constexpr unsigned int c_elementHead = 2; ///< identifier and length

class Walker {
public:
    Walker(PduDecoder& decoder, const Toolkit::smart_ptr<Pdu>& pdu, bool ignoreTimeZone)
        : m_Decoder(decoder), m_Pdu(pdu), m_IgnoreTimeZone(ignoreTimeZone) {}

    PduWalk Walk(bool noSmsc) {
        m_Walk.fields.reserve(c_mostFields);
        if (noSmsc || Address("SC address", false))
            Tpdu();
        return std::move(m_Walk);
    }

private:
    unsigned int Length() const { return m_Pdu->m_Length; }
    unsigned int Left() const { return Length() - std::min(m_Position, Length()); }

    /// An octet of the PDU; one after its end counts as 0.
    unsigned int Octet(unsigned int offset) const { return offset < Length() ? m_Pdu->m_Bytes[offset] : 0; }

    bool Is(MessageTypeIndicator::TP_MTI_Type type) const { return m_Type == type; }
    bool IsDeliver() const { return Is(MessageTypeIndicator::TP_MTI_SMS_DELIVER); }
    bool IsSubmit() const { return Is(MessageTypeIndicator::TP_MTI_SMS_SUBMIT); }
    bool IsStatusReport() const { return Is(MessageTypeIndicator::TP_MTI_SMS_STATUS_REPORT); }

    bool Stop(std::string_view field, unsigned int offset, std::string expected, std::string found) {
        m_Walk.stop = PduStop{field, offset, std::move(expected), std::move(found)};
        return false;
    }

    /// Every field but the user data must begin inside the PDU; so the one before it never ends it.
    bool Expect(std::string_view name) {
        return Left() > 0 || Stop(name, m_Position, "an octet", "the end of the PDU");
    }

    template <class Value>
    void Add(std::string_view name, unsigned int length, std::string meaning, Value value) {
        m_Walk.fields.push_back(
            {name, m_Position, length, c_wholeOctet, std::move(meaning), std::move(value)});
        m_Position += length;
    }

    /// A field of one octet.
    bool Number(std::string_view name, std::string (*meaning)(unsigned int)) {
        if (!Expect(name))
            return false;
        const unsigned int number = Octet(m_Position);
        Add(name, 1, meaning(number), NumberValue{number});
        return true;
    }

    void Bits(const BitField& field, unsigned int octet) {
        const unsigned int value = field.ValueIn(octet);
        m_Walk.fields.push_back(
            {field.name, m_Position, 1, field.mask, std::string(field.meanings[value]), NumberValue{value}});
    }

    bool Tpdu();
    bool FirstOctet();
    bool Address(std::string_view name, bool semiOctets);
    bool DataCoding();
    bool Time(std::string_view name);
    bool Validity();
    bool Status();
    bool UserData();
    bool Header();
    bool StopAt(const HeaderElement& element, unsigned int headerEnd);

    std::string TimeMeaning(const TimeValue& time) const;
    unsigned int TextOctets(unsigned int units) const;
    std::string UserDataLengthMeaning(unsigned int count, unsigned int present) const;

    PduDecoder& m_Decoder;
    const Toolkit::smart_ptr<Pdu>& m_Pdu;
    bool m_IgnoreTimeZone;
    PduWalk m_Walk;
    unsigned int m_Position = 0;
    unsigned int m_FirstOctet = 0;
    MessageTypeIndicator::TP_MTI_Type m_Type = MessageTypeIndicator::TP_MTI_UNKNOWN;
    Alphabet::Encoding m_Alphabet = Alphabet::ALPHABET_GSM7;
    unsigned int m_DataCodingOffset = 0;
    unsigned int m_FillBits = 0;
};

std::string InDecimal(unsigned int number) {
    return fmt::format("{}", number);
}

bool Walker::Tpdu() {
    if (!FirstOctet())
        return false;
    if ((IsSubmit() || IsStatusReport()) && !Number("TP-MR", InDecimal))
        return false;
    if (!Address(IsSubmit() ? "TP-DA" : IsStatusReport() ? "TP-RA" : "TP-OA", true))
        return false;
    if (IsStatusReport())
        return Time("TP-SCTS") && Time("TP-DT") && Status();
    if (!IsSubmit() && !IsDeliver())
        return Expect("octet after the address");
    return Number("TP-PID", ProtocolMeaning) && DataCoding() && (IsSubmit() ? Validity() : Time("TP-SCTS")) &&
           UserData();
}

bool Walker::FirstOctet() {
    if (!Expect("first octet"))
        return false;
    m_FirstOctet = Octet(m_Position);
    m_Type = m_Decoder.ReadSmsType(static_cast<int>(m_FirstOctet));
    Bits(MessageTypeField(), m_FirstOctet);
    for (const BitField& field : FirstOctetFields(m_Type))
        Bits(field, m_FirstOctet);
    ++m_Position;
    return true;
}

bool Walker::Address(std::string_view name, bool semiOctets) {
    if (!Expect(name))
        return false;
    TString<wchar_t> number;
    Encoding::NumberingPlan::NPI plan;
    Encoding::TypeOfNumber::TON type;
    const unsigned int end = m_Decoder.ReadNumber(m_Pdu, m_Position, semiOctets, number, plan, type);
    if (end == PduDecoder::FIELD_FAILED) {
        const unsigned int length = Octet(m_Position);
        return Stop(name, m_Position,
                    semiOctets ? fmt::format("{} for the type and {}", Counted(1 + (length + 1) / 2, "octet"),
                                             Counted(length, "digit"))
                               : Counted(length, "octet"),
                    Counted(Left() - 1, "octet"));
    }
    AddressValue address{ToUtf8(number)};
    if (end == m_Position + 1) {
        Add(name, 1, "none", address);
        return true;
    }
    const unsigned int typeOfAddress = Octet(m_Position + 1);
    address.typeOfNumber = typeOfAddress >> 4 & 7;
    address.numberingPlan = typeOfAddress & 0xF;
    Add(name, end - m_Position,
        fmt::format("{}{}{}, {}", address.number, address.number.empty() ? "" : ", ",
                    TypeOfNumberMeaning(address.typeOfNumber), NumberingPlanMeaning(address.numberingPlan)),
        address);
    return true;
}

bool Walker::DataCoding() {
    if (!Expect("TP-DCS"))
        return false;
    const unsigned int octet = Octet(m_Position);
    const int dcs = static_cast<int>(octet);
    m_DataCodingOffset = m_Position;
    m_Decoder.m_CodingGroup = m_Decoder.ReadDCS(dcs);
    m_Alphabet = m_Decoder.ReadAlphabet(dcs);
    const auto messageClass = m_Decoder.ReadClass(dcs);
    Add("TP-DCS", 1, DataCodingMeaning(octet, m_Alphabet, messageClass),
        DataCodingValue{octet, m_Alphabet, messageClass});
    return true;
}

bool Walker::Time(std::string_view name) {
    if (!Expect(name))
        return false;
    if (Left() < c_timeLength)
        return Stop(name, m_Position, Counted(c_timeLength, "octet"), Counted(Left(), "octet"));
    TimeValue value;
    Toolkit::smart_ptr<Toolkit::DateTime> time;
    const unsigned int end = m_Decoder.ReadTimeStamp(m_Pdu, m_Position, time, m_IgnoreTimeZone);
    if (time.get() != nullptr)
        value.time = time->ToString();
    Add(name, c_timeLength, end == PduDecoder::FIELD_FAILED ? "" : TimeMeaning(value), value);
    return true;
}

/// The decoder gives zones in whole hours; here the reader learns what was on the wire.
std::string Walker::TimeMeaning(const TimeValue& time) const {
    if (time.time.empty())
        return "out of range";
    const unsigned int zone = Octet(m_Position + c_timeLength - 1);
    const auto quarters =
        static_cast<unsigned int>(PduDecoder::SwapNumber(static_cast<unsigned char>(zone & ~c_zoneSign)));
    if (m_IgnoreTimeZone || quarters % 4 == 0)
        return time.time;
    return fmt::format("{} (zone {}{:02}:{:02}, given in whole hours)", time.time,
                       (zone & c_zoneSign) != 0 ? '-' : '+', quarters / 4, quarters % 4 * 15);
}

bool Walker::Validity() {
    switch (m_FirstOctet & c_validityFormatMask) {
    case c_validityRelative:
        return Number("TP-VP", ValidityMeaning);
    case c_validityAbsolute:
        return Time("TP-VP");
    default:
        return true;
    }
}

bool Walker::Status() {
    if (!Expect("TP-ST"))
        return false;
    const unsigned int status = Octet(m_Position);
    Add("TP-ST", 1, StatusMeaning(m_Decoder, status), NumberValue{status});
    return true;
}

std::string Walker::UserDataLengthMeaning(unsigned int count, unsigned int present) const {
    const bool septets = m_Alphabet == Alphabet::ALPHABET_GSM7;
    const unsigned int octets = OctetsFor(m_Alphabet, count);
    std::string meaning = Counted(count, septets ? "septet" : "octet");
    if (present != octets)
        meaning += fmt::format("{}, but {} left", septets ? " in " + Counted(octets, "octet") : "", present);
    return meaning;
}

/// The octets that the decoder makes so many units of text of. After some headers, and for half a character,
/// these reach farther than TP-UDL says.
unsigned int Walker::TextOctets(unsigned int units) const {
    switch (m_Alphabet) {
    case Alphabet::ALPHABET_GSM7:
        return units == 0 ? 0 : (m_FillBits + 7 * units + 7) / 8;
    case Alphabet::ALPHABET_UCS2:
        return units + units % 2;
    default:
        return units;
    }
}

bool Walker::UserData() {
    if (!Expect("TP-UDL"))
        return false;
    const unsigned int lengthOffset = m_Position;
    const unsigned int count = Octet(m_Position);
    Add("TP-UDL", 1, UserDataLengthMeaning(count, Left() - 1), NumberValue{count});
    if (Left() == 0)
        return true;
    const unsigned int begin = m_Position;
    unsigned int units = count;
    if ((m_FirstOctet & c_userDataHeaderMask) != 0) {
        const unsigned int headerLength = Octet(begin) + 1;
        if (!Header())
            return false;
        if (count < headerLength) {
            return Stop("TP-UDL", lengthOffset, fmt::format("at least {}, for the header", headerLength),
                        fmt::format("{}", count));
        }
        units -= headerLength;
        if (m_Alphabet == Alphabet::ALPHABET_GSM7 && units > 0)
            --units; // as the decoder takes it for every header
    }
    if (m_Alphabet == Alphabet::ALPHABET_RESERVED)
        return Stop("TP-DCS", m_DataCodingOffset, "GSM 7-bit, 8-bit data or UCS2", "the reserved alphabet");
    const unsigned int end =
        std::min(Length(), std::max(begin + OctetsFor(m_Alphabet, count), m_Position + TextOctets(units)));
    if (end > m_Position)
        Add("TP-UD", end - m_Position, "", UserDataValue{units, m_FillBits});
    return true;
}

/// The element does not fit into what is left of the header.
bool Walker::StopAt(const HeaderElement& element, unsigned int headerEnd) {
    const unsigned int offset = element.offset - c_elementHead;
    const std::string expected =
        fmt::format("at most {} up to the end of the header", Counted(headerEnd - offset, "octet"));
    if (offset >= Length())
        return Stop("TP-UDH", Length(), expected, "the end of the PDU");
    return Stop("TP-UDH", offset, expected,
                fmt::format("element 0x{:02X} of {}", element.identifier,
                            Counted(c_elementHead + element.length, "octet")));
}

/// Of a header that stops the decoder, the elements before that are a field.
bool Walker::Header() {
    const unsigned int end = m_Position + 1 + Octet(m_Position);
    HeaderValue header;
    std::string meaning;
    unsigned int position = m_Position + 1;
    const auto add = [&] {
        Add("TP-UDH", std::min(position, Length()) - m_Position, std::move(meaning), std::move(header));
    };
    do { // the first element is read even where the header has no room for one
        HeaderElement element{Octet(position), position + c_elementHead, Octet(position + 1), 0};
        element.present = std::min(element.length, Length() - std::min(element.offset, Length()));
        if (element.offset + element.length > end) {
            add();
            return StopAt(element, end);
        }
        position = element.offset + element.length;
        meaning += fmt::format("{}{}", meaning.empty() ? "" : "; ", ElementName(element.identifier));
        m_FillBits = element.identifier == c_concatenation8 ? 1 : m_FillBits;
        header.elements.push_back(element);
    } while (position < end);
    add();
    return true;
}

} // namespace

std::string PduStop::Reason() const {
    return fmt::format("expected {}, found {}", expected, found);
}

unsigned int OctetsFor(Alphabet::Encoding alphabet, unsigned int units) {
    return alphabet == Alphabet::ALPHABET_GSM7 ? (units * 7 + 7) / 8 : units;
}

unsigned int HeaderSeptets(unsigned int octets) {
    return (8 * octets + 6) / 7;
}

bool IsConcatenation(const HeaderElement& element) {
    return element.identifier == c_concatenation8 || element.identifier == c_concatenation16;
}

bool HeaderValue::HasConcatenation() const {
    return std::any_of(elements.begin(), elements.end(), IsConcatenation);
}

PduWalk WalkPdu(PduDecoder& decoder, const Toolkit::smart_ptr<Pdu>& pdu, bool noSmsc, bool ignoreTimeZone) {
    return Walker(decoder, pdu, ignoreTimeZone).Walk(noSmsc);
}

} // namespace qxpdu
