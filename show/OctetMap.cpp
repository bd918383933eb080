#include "show/OctetMap.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>

#include <fmt/format.h>

#include "Messages/Words.h"
#include "show/Plural.h"
#include "show/Subfields.h"
#include "show/Values.h"

namespace show {

namespace {

using Messages::Field;
using Messages::FieldPlace;
using Messages::OctetView;
using Messages::Piece;
using Messages::Timestamp;

constexpr unsigned int c_septetBits = 7;
constexpr std::uint32_t c_septetRow = 7; ///< octets that hold eight septets
constexpr std::uint32_t c_octetRow = 8;

/// By the first octet of the unit.
bool IsHighSurrogate(std::uint8_t octet) {
    return (octet & 0xFC) == 0xD8;
}

bool IsLowSurrogate(std::uint8_t octet) {
    return (octet & 0xFC) == 0xDC;
}

/// The text of the septets from one row to the next. A row never ends between an escape and its code.
class SeptetText {
public:
    SeptetText(const Messages::UserData& userData)
        : m_Tables(userData.tables), m_FillBits(userData.fillBits), m_Septets(userData.textUnits) {
        m_Septets.resize(
            Messages::UnpackSeptets(userData.Content(), m_FillBits, m_Septets.size(), m_Septets.data()));
    }

    /// The text of the septets that end within the first so many octets, and that no row has had before.
    std::string UpTo(std::uint32_t octets) {
        const std::size_t whole = (8 * std::size_t{octets} - m_FillBits) / c_septetBits;
        std::size_t end = std::min(std::max(whole, m_Begin), m_Septets.size());
        if (end < m_Septets.size() && EndsInEscape(end))
            --end;
        std::string text;
        const OctetView septets(m_Septets);
        Messages::AppendSeptetText(septets.Sub(m_Begin, end - m_Begin), m_Tables, text);
        m_Begin = end;
        return text;
    }

private:
    /// A pair of escapes is a space and ends.
    bool EndsInEscape(std::size_t end) const {
        std::size_t escapes = 0;
        while (end - escapes > m_Begin && m_Septets[end - escapes - 1] == Messages::c_escapeSeptet)
            ++escapes;
        return escapes % 2 != 0;
    }

    Messages::SeptetTables m_Tables;
    unsigned int m_FillBits;
    std::vector<std::uint8_t> m_Septets;
    std::size_t m_Begin = 0;
};

class Mapper {
public:
    explicit Mapper(const Message& message) : m_Message(message) {
        m_Rows.reserve(2 * message.reading.places.size());
    }

    std::vector<OctetRow> Map() {
        for (const FieldPlace& place : m_Message.reading.places) {
            if (place.octet < End() && !IsFlag(place.field))
                continue; // fill bits, which stand in the row of the user data
            MapPlace(place);
            m_Mapped = place.field;
        }
        AddRest();
        return std::move(m_Rows);
    }

private:
    std::uint32_t End() const { return m_Rows.empty() ? 0 : m_Rows.back().octet + m_Rows.back().count; }
    std::uint8_t Next() const { return m_Message.octets[End()]; }
    const Messages::Tpdu& Tpdu() const { return m_Message.reading.tpdu; }

    /// The next octets of a field.
    OctetRow& Add(Field field, std::uint32_t count, std::string_view subfield = {}) {
        m_Rows.push_back({End(), count, ShownNameOf(field), subfield});
        return m_Rows.back();
    }
    OctetRow& AddNumber(Field field, std::string_view subfield = {}) {
        const int number = Next();
        OctetRow& row = Add(field, 1, subfield);
        row.value = number;
        return row;
    }

    void MapPlace(const FieldPlace& place);
    void AddFlag(const FieldPlace& place);
    void AddAddress(const FieldPlace& place);
    const Messages::Address* AddressOf(Field field) const;
    void AddTime(Field field, const Timestamp& time);
    void AddValidity(const FieldPlace& place);
    void AddParameterIndicator(const FieldPlace& place);
    void AddElement(const FieldPlace& place);
    void AddContent(const FieldPlace& place);
    void AddUserData(const FieldPlace& place);
    void AddSeptets(const Messages::UserData& userData);
    void AddUnits(const FieldPlace& place);
    void AddData(const FieldPlace& place);
    void AddOctet(const FieldPlace& place);
    void AddRest();

    const Message& m_Message;
    std::vector<OctetRow> m_Rows;
    std::uint8_t m_Element = 0;                   ///< identifier of the last one
    std::optional<Field> m_Mapped = std::nullopt; ///< the last one
};

void Mapper::MapPlace(const FieldPlace& place) {
    if (IsFlag(place.field))
        return AddFlag(place);
    if (IsCut(place, m_Message)) {
        Add(place.field, place.count).meaning = "cut";
        return;
    }
    switch (place.field) {
    case Field::ServiceCentre:
    case Field::OriginatingAddress:
    case Field::DestinationAddress:
    case Field::RecipientAddress:
        return AddAddress(place);
    case Field::ServiceCentreTimestamp:
        return AddTime(place.field, *Messages::TimestampOf(Tpdu()));
    case Field::DischargeTime:
        return AddTime(place.field, std::get<Messages::StatusReport>(Tpdu()).discharge);
    case Field::ValidityPeriod:
        return AddValidity(place);
    case Field::ParameterIndicator:
        return AddParameterIndicator(place);
    case Field::HeaderElement:
        return AddElement(place);
    case Field::FillBits:
    case Field::UserData:
        return AddUserData(place);
    case Field::CommandData:
    case Field::IgnoredHeader:
    case Field::Surplus:
        return AddData(place);
    default:
        return AddOctet(place);
    }
}

/// The flags of the first octet come from bit 0 on, and are shown from bit 7 on.
void Mapper::AddFlag(const FieldPlace& place) {
    if (place.octet >= End())
        AddNumber(place.field).field = "first octet";
    const Messages::TpduType type = m_Message.reading.Type();
    const std::string_view meaning = place.field != Field::MessageType
                                         ? MeaningOfFlag(place.field, place.value)
                                     : type == Messages::TpduType::None ? "reserved"
                                                                        : Messages::NameOf(type);
    std::vector<OctetBits>& bits = m_Rows.back().bits;
    bits.insert(bits.begin(), {place.mask, ShownNameOf(place.field), place.value, meaning});
}

const Messages::Address* Mapper::AddressOf(Field field) const {
    const auto& serviceCentre = m_Message.reading.serviceCentre;
    if (field != Field::ServiceCentre)
        return Messages::PartyOf(Tpdu());
    return serviceCentre ? &*serviceCentre : nullptr;
}

void Mapper::AddAddress(const FieldPlace& place) {
    if (place.piece == Piece::Length) {
        OctetRow& row = AddNumber(place.field, "length");
        const std::string_view unit = place.field == Field::ServiceCentre ? "octet" : "semi-octet";
        row.meaning = Counted(m_Message.octets[place.octet], unit);
    } else if (place.piece == Piece::TypeOfAddress) {
        OctetRow& row = AddNumber(place.field, "type");
        row.bits = TypeOfAddressBits(m_Message.octets[place.octet]);
    } else {
        const Messages::Address* const address = AddressOf(place.field);
        const bool isText =
            place.field != Field::ServiceCentre && address != nullptr && address->IsAlphanumeric();
        OctetRow& row = Add(place.field, place.count, isText ? "text" : "digits");
        if (isText)
            row.value = QuotedText{address->text};
        else if (address != nullptr)
            row.value = address->ToString();
    }
}

void Mapper::AddTime(Field field, const Timestamp& time) {
    const std::array<std::pair<std::string_view, int>, 6> subfields = {{{"year", time.year},
                                                                        {"month", time.month},
                                                                        {"day", time.day},
                                                                        {"hour", time.hour},
                                                                        {"minute", time.minute},
                                                                        {"second", time.second}}};
    const std::size_t first = m_Rows.size();
    for (const auto& [subfield, value] : subfields) {
        OctetRow& row = Add(field, 1, subfield);
        if (time.isValid)
            row.value = value;
    }
    const std::uint8_t zone = Next();
    OctetRow& row = Add(field, 1, "time zone");
    row.bits = ZoneBits(zone);
    row.isCount = true;
    m_Rows[first].meaning = time.isValid ? time.ToString() : "no time";
    if (!time.isValid)
        return;
    const int quarters = time.quarters;
    row.value = quarters;
    row.meaning = fmt::format("quarter hours, {}{:02}:{:02}", quarters < 0 ? '-' : '+',
                              std::abs(quarters) / 4, std::abs(quarters) % 4 * 15);
}

void Mapper::AddValidity(const FieldPlace& place) {
    const Messages::Validity& validity = std::get<Messages::Submit>(Tpdu()).validity;
    switch (validity.format) {
    case Messages::ValidityFormat::Absolute:
        return AddTime(place.field, validity.Absolute());
    case Messages::ValidityFormat::Enhanced:
        break;
    default:
        AddNumber(place.field).meaning = Messages::MeaningOf(validity);
        return;
    }
    constexpr std::array<std::uint32_t, 8> c_octets = {0, 1, 1, 3, 0, 0, 0, 0}; // by the format
    OctetRow& indicator = AddNumber(place.field, "indicator");
    indicator.bits = EnhancedValidityBits(validity.octets[0]);
    indicator.meaning = Messages::MeaningOf(validity);
    const bool isExtended = (validity.octets[0] & 0x80) != 0;
    const std::uint32_t used = isExtended ? 0 : c_octets[validity.octets[0] & 0x07];
    if (used > 0)
        Add(place.field, used, "period");
    if (place.count > 1 + used)
        Add(place.field, place.count - 1 - used, isExtended ? "extension" : "unused");
}

/// The first octet announces fields, those after it nothing that is known.
void Mapper::AddParameterIndicator(const FieldPlace& place) {
    if (m_Mapped == place.field) {
        AddNumber(place.field, "extension").meaning = "reserved";
        return;
    }
    AddOctet(place);
    m_Rows.back().bits = ParameterIndicatorBits(m_Message.octets[place.octet]);
}

void Mapper::AddElement(const FieldPlace& place) {
    if (place.piece == Piece::Identifier) {
        m_Element = m_Message.octets[place.octet];
        OctetRow& row = AddNumber(place.field, "element");
        row.meaning = Messages::NameOfElement(m_Element);
        row.isIdentifier = true;
    } else if (place.piece == Piece::Length) {
        OctetRow& row = AddNumber(place.field, "element length");
        row.meaning = Counted(m_Message.octets[place.octet], "octet");
    } else {
        AddContent(place);
    }
}

void Mapper::AddContent(const FieldPlace& place) {
    const OctetView data = m_Message.Octets(place.octet, place.count);
    const Messages::HeaderElement element{m_Element, static_cast<std::uint8_t>(place.count), 0};
    const Subfields subfields = SubfieldsOf(element, data);
    for (const Subfield& subfield : subfields) {
        OctetRow& row = Add(place.field, subfield.octets, subfield.name);
        row.value = static_cast<int>(subfield.value);
        row.meaning = subfield.meaning;
        row.bits = subfield.bits;
    }
    if (!subfields.empty())
        return;
    OctetRow& row = Add(place.field, place.count, "data");
    row.meaning = MeaningOf(element, data);
}

void Mapper::AddUserData(const FieldPlace& place) {
    const Messages::UserData* const userData = Messages::UserDataOf(Tpdu());
    const Messages::DataCoding* const coding = Messages::CodingOf(Tpdu());
    const Messages::DataCoding assumed;
    if (userData == nullptr || IsData(Tpdu()))
        return AddData(place);
    if ((coding != nullptr ? *coding : assumed).alphabet == Messages::Alphabet::Ucs2)
        AddUnits(place);
    else
        AddSeptets(*userData);
}

/// A row of septets ends where septets and octets end together.
void Mapper::AddSeptets(const Messages::UserData& userData) {
    const std::uint32_t begin = End();
    const std::uint32_t end = begin + static_cast<std::uint32_t>(userData.Content().size());
    SeptetText text(userData);
    std::uint32_t rowEnd = begin + (userData.fillBits == 0 ? c_septetRow : userData.fillBits);
    for (; End() < end; rowEnd += c_septetRow) {
        OctetRow& row = Add(Field::UserData, std::min(rowEnd, end) - End());
        row.value = QuotedText{text.UpTo(row.octet + row.count - begin)};
    }
    if (userData.fillBits == 0 || End() == begin)
        return;
    const auto first = std::find_if(m_Rows.begin(), m_Rows.end(),
                                    [begin](const OctetRow& row) { return row.octet == begin; });
    const auto fill = static_cast<std::uint8_t>((1U << userData.fillBits) - 1);
    const std::uint8_t octet = m_Message.octets[begin];
    first->bits = {BitsIn(octet, static_cast<std::uint8_t>(~fill), "septets", ""),
                   BitsIn(octet, fill, "fill bits", "")};
}

/// A character above U+FFFF stays in one row.
void Mapper::AddUnits(const FieldPlace& place) {
    const std::uint32_t end = place.octet + place.count;
    while (End() < end) {
        std::uint32_t rowEnd = std::min(end, End() + c_octetRow);
        const bool cutsPair = rowEnd + 2 <= end && rowEnd - End() >= 2 &&
                              IsHighSurrogate(m_Message.octets[rowEnd - 2]) &&
                              IsLowSurrogate(m_Message.octets[rowEnd]);
        rowEnd += cutsPair ? 2 : 0;
        OctetRow& row = Add(place.field, rowEnd - End());
        QuotedText text;
        Messages::AppendUcs2Text(m_Message.Octets(row.octet, row.count), text.text);
        row.value = std::move(text);
    }
}

void Mapper::AddData(const FieldPlace& place) {
    const std::uint32_t end = place.octet + place.count;
    const bool isWhole = place.field != Field::UserData && place.field != Field::CommandData;
    while (End() < end) {
        OctetRow& row = Add(place.field, isWhole ? end - End() : std::min(end - End(), c_octetRow));
        row.meaning = isWhole ? std::string(Messages::DescriptionOf(place.field))
                              : DataText(m_Message.Octets(row.octet, row.count));
    }
}

void Mapper::AddOctet(const FieldPlace& place) {
    const std::uint8_t octet = m_Message.octets[place.octet];
    OctetRow& row = AddNumber(place.field, place.field == Field::HeaderLength ? "length" : "");
    if (place.field == Field::HeaderLength) {
        row.meaning = Counted(octet, "octet");
        return;
    }
    const MessageField field{place.field, place.octet, place.count, unsigned{octet}};
    switch (place.field) {
    case Field::MessageReference:
    case Field::MessageNumber:
        return;
    case Field::DataCodingScheme:
        row.bits = DataCodingBits(*Messages::CodingOf(Tpdu()));
        row.meaning = Messages::MeaningOf(*Messages::CodingOf(Tpdu()));
        return;
    case Field::ProtocolIdentifier:
        row.bits = ProtocolBits(octet);
        break;
    default:
        break;
    }
    row.meaning = MeaningOf(field, m_Message);
}

/// What the fault ends the reading before.
void Mapper::AddRest() {
    const auto length = static_cast<std::uint32_t>(m_Message.octets.size());
    if (End() >= length)
        return;
    OctetRow& row = Add(Field::Surplus, length - End());
    row.meaning = "not read";
    if (m_Message.reading.fault)
        row.field = ShownNameOf(m_Message.reading.fault->field);
}

} // namespace

std::vector<OctetRow> MapOctets(const Message& message) {
    return Mapper(message).Map();
}

} // namespace show
