#include "show/OctetMap.h"

#include <algorithm>
#include <chrono>

#include <fmt/format.h>

#include "show/CodeUnits.h"
#include "show/FieldBits.h"
#include "show/HeaderRows.h"
#include "show/Meanings.h"
#include "show/Plural.h"

namespace qxpdu {

namespace {

using Encoding::Alphabet;
using Encoding::Pdu;
using Encoding::PduDecoder;

constexpr unsigned int c_messageTypeMask = 0x03;
constexpr unsigned int c_submitType = 1;
constexpr unsigned int c_reservedType = 3;
constexpr unsigned int c_fillerSemiOctet = 0xF;
constexpr unsigned int c_mostDigits = 20;
constexpr unsigned int c_mostServiceCentreOctets = 11; ///< 3GPP TS 24.011
constexpr unsigned int c_mostSeptets = 160;
constexpr unsigned int c_mostOctets = 140;
constexpr unsigned int c_alphanumeric = 5;
constexpr unsigned int c_zoneSign = 0x08;
constexpr unsigned int c_mostQuarters = 14 * 4;
constexpr unsigned int c_septetRow = 7; ///< octets that hold eight septets
constexpr unsigned int c_octetRow = 8;

/// By the first octet of the character.
bool IsLowSurrogate(unsigned int octet) {
    return (octet & 0xFC) == 0xDC;
}

bool EndsInHighSurrogate(const std::wstring& text) {
    return !text.empty() && (static_cast<unsigned int>(text.back()) & 0xFC00) == 0xD800;
}

class Mapper {
public:
    Mapper(const Pdu& pdu, const PduWalk& walk, bool noSmsc) : m_Pdu(pdu), m_Walk(walk), m_NoSmsc(noSmsc) {}

    std::vector<OctetRow> Map() {
        for (const PduField& field : m_Walk.fields) {
            m_Field = &field;
            std::visit(*this, field.value);
        }
        Rest();
        return std::move(m_Rows);
    }

    void operator()(const NumberValue& value);
    void operator()(const DataCodingValue& value);
    void operator()(const AddressValue& value);
    void operator()(const TimeValue& value);
    void operator()(const HeaderValue& value);
    void operator()(const UserDataValue& value);

private:
    unsigned int End() const { return m_Rows.empty() ? 0 : m_Rows.back().offset + m_Rows.back().length; }
    unsigned int Octet(unsigned int offset) const {
        return offset < m_Pdu.m_Length ? m_Pdu.m_Bytes[offset] : 0;
    }
    unsigned int Next() const { return Octet(End()); }
    bool CountsDigits() const { return m_Field->name != "SC address"; } ///< else octets

    /// The next octets; the row is changed through the result until the next one is added.
    OctetRow& Add(unsigned int length, std::string part, Json value, std::string meaning) {
        m_Rows.push_back(
            {End(), length, m_Field->name, std::move(part), std::move(value), std::move(meaning), {}, {}});
        return m_Rows.back();
    }

    void FirstOctet();
    void UserDataLength(unsigned int count);
    void Digits(const AddressValue& address, unsigned int lengthOctet);
    void DigitFaults(unsigned int lengthOctet, OctetRow& row) const;
    void TimeOctet(const char* part, unsigned int least, unsigned int most);
    void Zone();
    void Element(const HeaderElement& element);
    void NoteSeptets(const UserDataValue& value, unsigned int begin);
    std::wstring TextOf(const UserDataValue& value, unsigned int units) const;
    void Rest();

    const Pdu& m_Pdu;
    const PduWalk& m_Walk;
    bool m_NoSmsc;
    const PduField* m_Field = nullptr;
    std::vector<OctetRow> m_Rows;
    Alphabet::Encoding m_Alphabet = Alphabet::ALPHABET_GSM7;
    unsigned int m_LengthOffset = 0; ///< of TP-UDL
    unsigned int m_HeaderOctets = 0;
};

void Mapper::operator()(const NumberValue& value) {
    if (m_Field->mask != c_wholeOctet)
        return FirstOctet();
    if (m_Field->name == "TP-UDL")
        return UserDataLength(value.number);
    OctetRow& row = Add(1, "", value.number, m_Field->name == "TP-MR" ? "" : m_Field->meaning);
    if (m_Field->name == "TP-PID")
        row.bits = ProtocolBits(value.number);
    const bool isReserved = m_Field->name == "TP-PID"
                                ? m_Field->meaning.find("reserved") != std::string::npos
                                : m_Field->name == "TP-ST" && IsReservedStatus(value.number);
    if (isReserved)
        row.unusual.emplace_back("a reserved value");
}

/// The fields of the first octet are its bits, TP-MTI the first of them.
void Mapper::FirstOctet() {
    if (m_Field->name != "TP-MTI")
        return;
    const unsigned int octet = Next();
    OctetRow& row = Add(1, "", octet, "");
    row.field = "first octet";
    unsigned int unused = c_wholeOctet;
    for (const PduField& field : m_Walk.fields) {
        if (field.mask == c_wholeOctet)
            continue;
        const unsigned int value = std::get<NumberValue>(field.value).number;
        row.bits.push_back({field.mask, std::string(field.name), value, field.meaning});
        unused &= ~field.mask;
    }
    AddUnusedBits(row.bits, octet, unused);
    if (row.bits.back().value == c_reservedType)
        row.unusual.emplace_back("a reserved type, of which the decoder reads the address only");
    else if ((octet & unused) != 0)
        row.unusual.emplace_back("an unused bit is set");
    const bool isSubmit = (octet & c_messageTypeMask) == c_submitType;
    if (isSubmit && (octet & c_validityFormatMask) == c_validityEnhanced)
        row.unusual.emplace_back("an enhanced validity period: the decoder does not skip its seven octets, "
                                 "but takes the first for "
                                 "TP-UDL");
}

void Mapper::UserDataLength(unsigned int count) {
    m_LengthOffset = End();
    OctetRow& row = Add(1, "", count, m_Field->meaning);
    const unsigned int most = m_Alphabet == Alphabet::ALPHABET_GSM7 ? c_mostSeptets : c_mostOctets;
    if (count > most)
        row.unusual.push_back(fmt::format("more than {}", most));
    const unsigned int present = m_Pdu.m_Length - End();
    const unsigned int announced = OctetsFor(m_Alphabet, count);
    if (present == 0 && count != 0)
        row.unusual.emplace_back("no user data; the decoder gives an empty text");
    else if (present < announced)
        row.unusual.push_back(fmt::format("{} missing; the decoder reads zeros instead",
                                          Counted(announced - present, "octet")));
    else if (present > announced)
        row.unusual.push_back(fmt::format("{} too many", Counted(present - announced, "octet")));
}

void Mapper::operator()(const DataCodingValue& value) {
    m_Alphabet = value.alphabet;
    OctetRow& row = Add(1, "", value.number, m_Field->meaning);
    row.bits = DataCodingBits(value);
    row.unusual = DataCodingFaults(value.number);
}

void Mapper::operator()(const AddressValue& value) {
    const unsigned int length = Next();
    OctetRow& row = Add(1, "length", length, Counted(length, CountsDigits() ? "digit" : "octet"));
    if (CountsDigits() && length > c_mostDigits)
        row.unusual.push_back(fmt::format("more than {} digits", c_mostDigits));
    if (!CountsDigits() && length > c_mostServiceCentreOctets)
        row.unusual.push_back(fmt::format("more than {} octets", c_mostServiceCentreOctets));
    if (m_Field->length == 1)
        return;
    const unsigned int octet = Next();
    OctetRow& type = Add(1, "type", octet, "");
    type.bits = TypeOfAddressBits(octet);
    type.unusual = TypeOfAddressFaults(octet);
    if (value.typeOfNumber == c_alphanumeric && value.numberingPlan != 0)
        type.unusual.emplace_back("an alphanumeric address with a numbering plan");
    if (m_Field->length > 2)
        Digits(value, length);
}

void Mapper::Digits(const AddressValue& address, unsigned int lengthOctet) {
    const bool isText = address.typeOfNumber == c_alphanumeric;
    OctetRow& row = Add(m_Field->length - 2, isText ? "text" : "digits", address.number, "");
    if (!isText)
        return DigitFaults(lengthOctet, row);
    row.isText = true;
    const std::size_t septets = CountsDigits() ? lengthOctet * 4 / 7 : (lengthOctet - 1) * 8 / 7;
    const std::string inside = address.number.substr(0, septets);
    const std::string read = ToUtf8(PduDecoder().m_CharSet->GsmToUnicode(
        reinterpret_cast<const unsigned char*>(inside.data()), static_cast<unsigned int>(inside.size())));
    if (read != inside) {
        row.unusual.push_back(fmt::format(
            "in the GSM default alphabet it is {}; the decoder takes the codes as they are", read));
    }
    if (inside.size() < septets)
        row.unusual.push_back(
            fmt::format("septet {} is 0, where the decoder ends the text", inside.size() + 1));
    if (address.number.size() > septets)
        row.unusual.push_back(fmt::format("the decoder adds {} from the bits after it",
                                          Counted(address.number.size() - septets, "character")));
}

void Mapper::DigitFaults(unsigned int lengthOctet, OctetRow& row) const {
    const unsigned int end = row.offset + row.length;
    for (unsigned int offset = row.offset; offset < end; ++offset) {
        const unsigned int low = Octet(offset) & 0xF;
        const unsigned int high = Octet(offset) >> 4;
        const bool isLast = offset + 1 == end;
        const bool wantsFiller = isLast && CountsDigits() && lengthOctet % 2 != 0;
        const auto note = [&row, offset](std::string_view what) {
            row.unusual.push_back(fmt::format("octet {}: {}", offset, what));
        };
        const auto noteSign = [&note](unsigned int semiOctet) {
            if (semiOctet > 9 && semiOctet != c_fillerSemiOctet)
                note(fmt::format("semi-octet {:X} is {} by the standard, which the decoder shows as {}",
                                 semiOctet, "*#abc"[semiOctet - 10], static_cast<char>('0' + semiOctet)));
        };
        noteSign(low);
        if (low == c_fillerSemiOctet)
            note("a filler in the low semi-octet, which the decoder shows as ?");
        if (wantsFiller && high != c_fillerSemiOctet)
            note(fmt::format("{:X} instead of the filler F; the decoder takes it for a digit", high));
        else if (!wantsFiller && high == c_fillerSemiOctet && (!isLast || CountsDigits()))
            note("a filler where a digit belongs");
        else if (!wantsFiller)
            noteSign(high);
    }
}

void Mapper::operator()(const TimeValue& value) {
    const std::size_t first = m_Rows.size();
    TimeOctet("year", 0, 99);
    TimeOctet("month", 1, 12);
    TimeOctet("day", 1, 31);
    TimeOctet("hour", 0, 23);
    TimeOctet("minute", 0, 59);
    TimeOctet("second", 0, 59);
    Zone();
    using namespace std::chrono;
    const auto number = [&](std::size_t row) { return m_Rows[first + row].value.get<unsigned int>(); };
    const year_month_day date{year(2000 + static_cast<int>(number(0))), month(number(1)), day(number(2))};
    const bool isPassedOver = value.time.empty() && !m_Field->meaning.empty(); // else the PDU ends here
    if (isPassedOver)
        m_Rows[first].unusual.emplace_back("out of range; the decoder passes over this time");
    else if (date.month().ok() && date.day().ok() && !date.ok())
        m_Rows[first + 2].unusual.push_back(fmt::format("month {} has no day {}", number(1), number(2)));
    m_Rows[first].meaning = value.time;
}

void Mapper::TimeOctet(const char* part, unsigned int least, unsigned int most) {
    const unsigned int octet = Next();
    const auto number = static_cast<unsigned int>(PduDecoder::SwapNumber(static_cast<unsigned char>(octet)));
    OctetRow& row = Add(1, part, number, "");
    if ((octet & 0xF) > 9 || octet >> 4 > 9)
        row.unusual.emplace_back("not two decimal digits");
    else if (number < least || number > most)
        row.unusual.push_back(fmt::format("{} {}; {} to {} by the standard", part, number, least, most));
}

void Mapper::Zone() {
    const unsigned int octet = Next();
    const unsigned int magnitude = octet & ~c_zoneSign;
    const auto quarters =
        static_cast<unsigned int>(PduDecoder::SwapNumber(static_cast<unsigned char>(magnitude)));
    const bool isWest = (octet & c_zoneSign) != 0;
    OctetRow& row =
        Add(1, "time zone", (isWest ? -1 : 1) * static_cast<int>(quarters),
            fmt::format("quarter hours, {}{:02}:{:02}", isWest ? '-' : '+', quarters / 4, quarters % 4 * 15));
    row.bits = {{0xF0, "units", octet >> 4, ""},
                {c_zoneSign, "sign", isWest, isWest ? "west of Greenwich" : "east of Greenwich"},
                {0x07, "tens", octet & 0x07, ""}};
    if (octet >> 4 > 9)
        row.unusual.emplace_back("not two decimal digits");
    else if (quarters > c_mostQuarters)
        row.unusual.push_back(fmt::format("more than {} hours", c_mostQuarters / 4));
    if (quarters % 4 != 0)
        row.unusual.emplace_back("no whole hours; the decoder drops the rest");
}

void Mapper::operator()(const HeaderValue& value) {
    const unsigned int begin = End();
    const unsigned int length = Next();
    const unsigned int reach = begin + 1 + length;
    m_HeaderOctets = 1 + length;
    OctetRow& row = Add(1, "length", length, Counted(length, "octet"));
    if (reach > m_Pdu.m_Length)
        row.unusual.push_back(fmt::format("{} missing; the decoder reads zeros there",
                                          Counted(reach - m_Pdu.m_Length, "octet")));
    const bool isSeptets = m_Alphabet == Alphabet::ALPHABET_GSM7;
    const unsigned int units = isSeptets ? HeaderSeptets(m_HeaderOctets) : m_HeaderOctets;
    if (Octet(m_LengthOffset) < units)
        row.unusual.push_back(
            fmt::format("it takes {}, more than TP-UDL has", Counted(units, isSeptets ? "septet" : "octet")));
    const auto isConcatenation = [this](const HeaderElement& element) {
        return IsConcatenation(element) && element.offset < m_Pdu.m_Length;
    };
    if (std::count_if(value.elements.begin(), value.elements.end(), isConcatenation) > 1)
        row.unusual.emplace_back("more than one concatenation, of which the decoder keeps the last");
    for (const HeaderElement& element : value.elements)
        Element(element);
}

void Mapper::Element(const HeaderElement& element) {
    if (End() >= m_Pdu.m_Length)
        return;
    OctetRow& identifier =
        Add(1, "element", element.identifier, std::string(ElementName(element.identifier)));
    identifier.unusual = ElementFaults(element, m_Pdu, m_Alphabet);
    if (End() >= m_Pdu.m_Length)
        return;
    Add(1, "element length", element.length, Counted(element.length, "octet"));
    for (OctetRow& row : ElementRows(element, m_Pdu)) {
        row.offset = End();
        row.field = m_Field->name;
        m_Rows.push_back(std::move(row));
    }
}

/// The decoder's own text of so many units.
std::wstring Mapper::TextOf(const UserDataValue& value, unsigned int units) const {
    Toolkit::smart_ptr<Pdu> shorter(new Pdu(m_Pdu.m_Bytes, m_Pdu.m_Length));
    shorter->m_Bytes[m_LengthOffset] =
        static_cast<unsigned char>(m_Pdu.m_Bytes[m_LengthOffset] - (value.units - units));
    PduDecoder decoder;
    decoder.Decode(shorter, m_NoSmsc, false);
    return decoder.m_Text;
}

void Mapper::operator()(const UserDataValue& value) {
    const unsigned int begin = End();
    const unsigned int end = begin + m_Field->length;
    const bool isSeptets = m_Alphabet == Alphabet::ALPHABET_GSM7;
    const auto unitsUpTo = [&](unsigned int offset) {
        const unsigned int octets = offset - begin;
        return std::min(value.units, isSeptets ? (8 * octets - value.fillBits) / 7 : octets);
    };
    const unsigned int width = isSeptets ? c_septetRow : c_octetRow;
    // A row of septets ends where septets and octets end together.
    unsigned int rowEnd = begin - (isSeptets ? (c_septetRow - value.fillBits) % c_septetRow : 0);
    std::size_t shown = 0;
    while (End() < end) {
        rowEnd = std::min(end, rowEnd + width);
        std::wstring text = TextOf(value, unitsUpTo(rowEnd));
        if (m_Alphabet == Alphabet::ALPHABET_UCS2 && EndsInHighSurrogate(text) && rowEnd < end &&
            IsLowSurrogate(Octet(rowEnd))) {
            rowEnd = std::min(end, rowEnd + 2);
            text = TextOf(value, unitsUpTo(rowEnd));
        }
        const std::wstring added = text.substr(std::min(shown, text.size()));
        OctetRow& row = Add(rowEnd - End(), "", ToUtf8(added), "");
        row.isText = true;
        if (HasLoneSurrogate(added))
            row.unusual.emplace_back("half a surrogate pair");
        shown = text.size();
    }
    if (const std::size_t all = TextOf(value, value.units).size(); all > shown) {
        m_Rows.back().unusual.push_back(
            fmt::format("{} more after the PDU; the decoder reads zeros there",
                        Counted(static_cast<unsigned int>(all - shown), "character")));
    }
    if (isSeptets)
        NoteSeptets(value, begin);
    else if (m_Alphabet == Alphabet::ALPHABET_UCS2 && value.units % 2 != 0)
        m_Rows.back().unusual.emplace_back("an odd number of octets; the decoder takes one more");
}

/// Fill bits before the text, spare bits after it, and whether the decoder begins where it should.
void Mapper::NoteSeptets(const UserDataValue& value, unsigned int begin) {
    const auto first = std::find_if(m_Rows.begin(), m_Rows.end(),
                                    [begin](const OctetRow& row) { return row.offset == begin; });
    if (value.fillBits != 0) {
        const unsigned int octet = Octet(begin);
        first->bits = {{0xFE, "septet", octet >> 1, ""}, {0x01, "fill bit", octet & 1, ""}};
        if ((octet & 1) != 0)
            first->unusual.emplace_back("the fill bit is set");
    }
    const unsigned int headerSeptets = HeaderSeptets(m_HeaderOctets);
    const unsigned int fillBits = 7 * headerSeptets - 8 * m_HeaderOctets;
    const unsigned int units = Octet(m_LengthOffset) - std::min(Octet(m_LengthOffset), headerSeptets);
    if (fillBits != value.fillBits || units != value.units) {
        first->unusual.push_back(fmt::format("by the standard {} after {}; the decoder reads {} after {}",
                                             Counted(units, "septet"), Counted(fillBits, "fill bit"),
                                             Counted(value.units, "septet"),
                                             Counted(value.fillBits, "fill bit")));
        return;
    }
    const unsigned int spare =
        8 * m_Field->length - std::min(8 * m_Field->length, value.fillBits + 7 * value.units);
    if (spare > 0 && spare < 8 && Octet(End() - 1) >> (8 - spare) != 0)
        m_Rows.back().unusual.push_back(
            fmt::format("{} after the last septet not zero", Counted(spare, "bit")));
}

/// What the decoder does not come to.
void Mapper::Rest() {
    if (End() >= m_Pdu.m_Length)
        return;
    const bool isReport = !m_Walk.fields.empty() && m_Walk.fields.back().name == "TP-ST";
    OctetRow row{End(), m_Pdu.m_Length - End(), "not decoded", "", nullptr, "", {}, {}};
    if (m_Walk.stop)
        row.field = m_Walk.stop->offset == row.offset ? m_Walk.stop->field : "TP-UD";
    row.meaning = m_Walk.stop           ? "not decoded"
                  : isReport            ? "TP-PI and what it announces"
                  : m_LengthOffset == 0 ? "what follows the address"
                                        : "what follows the user data";
    m_Rows.push_back(std::move(row));
}

} // namespace

std::vector<OctetRow> MapOctets(const Pdu& pdu, const PduWalk& walk, bool noSmsc) {
    return Mapper(pdu, walk, noSmsc).Map();
}

} // namespace qxpdu
