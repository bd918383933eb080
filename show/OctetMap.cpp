#include "show/OctetMap.h"

#include <algorithm>
#include <array>
#include <optional>

#include <fmt/format.h>

#include "Messages/Words.h"
#include "show/OctetRows.h"
#include "show/Plural.h"
#include "show/Values.h"

namespace show {

namespace {

using Messages::Field;
using Messages::FieldPlace;
using Messages::Piece;

class Mapper : OctetRows {
public:
    explicit Mapper(const Message& message)
        : OctetRows(message.octets, message.reading.places.size()), m_Message(message) {}

    std::vector<OctetRow> Map() {
        for (const FieldPlace& place : m_Message.reading.places) {
            if (place.octet < End() && !IsFlag(place.field))
                continue; // fill bits, which stand in the row of the user data
            MapPlace(place);
            m_Mapped = place.field;
        }
        AddRest(m_Message.reading.fault);
        return std::move(m_Rows);
    }

private:
    const Messages::Tpdu& Tpdu() const { return m_Message.reading.tpdu; }

    void MapPlace(const FieldPlace& place);
    void AddFlag(const FieldPlace& place);
    void AddAddress(const FieldPlace& place);
    const Messages::Address* AddressOf(Field field) const;
    void AddValidity(const FieldPlace& place);
    void AddParameterIndicator(const FieldPlace& place);
    void AddUserData(const FieldPlace& place);
    void AddData(const FieldPlace& place);
    void AddOctet(const FieldPlace& place);

    const Message& m_Message;
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

void Mapper::AddUserData(const FieldPlace& place) {
    const Messages::UserData* const userData = Messages::UserDataOf(Tpdu());
    const Messages::DataCoding* const coding = Messages::CodingOf(Tpdu());
    const Messages::DataCoding assumed;
    if (userData == nullptr || IsData(Tpdu()))
        return AddData(place);
    if ((coding != nullptr ? *coding : assumed).alphabet == Messages::Alphabet::Ucs2)
        AddUnits(place.field, place.octet + place.count);
    else
        AddSeptets(place.field == Field::FillBits ? Field::UserData : place.field,
                   {userData->Content(), userData->tables, userData->fillBits, userData->textUnits},
                   static_cast<std::uint32_t>(userData->Content().size()));
}

void Mapper::AddData(const FieldPlace& place) {
    const std::uint32_t end = place.octet + place.count;
    constexpr std::uint32_t c_dataRow = 8;
    const bool isWhole = place.field != Field::UserData && place.field != Field::CommandData;
    while (End() < end) {
        OctetRow& row = Add(place.field, isWhole ? end - End() : std::min(end - End(), c_dataRow));
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
    const MessageField field{place.field, place.octet, place.count, unsigned{octet}, place.mask};
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

} // namespace

std::vector<OctetRow> MapOctets(const Message& message) {
    return Mapper(message).Map();
}

} // namespace show
