// Each octet of what cell broadcast sends.
#include <algorithm>
#include <utility>

#include "Messages/Words.h"
#include "show/Message.h"
#include "show/OctetMap.h"
#include "show/OctetRows.h"
#include "show/Plural.h"
#include "show/Values.h"

namespace show {

namespace {

using Messages::Field;
using Messages::FieldPlace;

constexpr std::uint8_t c_allBits = 0xFF;

class BroadcastMapper : OctetRows {
public:
    explicit BroadcastMapper(const Broadcast& broadcast)
        : OctetRows(broadcast.octets, broadcast.reading.places.size()), m_Broadcast(broadcast) {}

    std::vector<OctetRow> Map() {
        for (const FieldPlace& place : m_Broadcast.reading.places) {
            // Bits before the first septet stand in its row.
            if (place.count != 0 && (place.mask == c_allBits || place.field == Field::PageContent))
                MapPlace(place);
        }
        AddRest(m_Broadcast.reading.fault);
        return std::move(m_Rows);
    }

private:
    const Messages::CellReading& Reading() const { return m_Broadcast.reading; }

    void MapPlace(const FieldPlace& place);
    void AddOctets(const FieldPlace& place);
    OctetRow& AddWide(Field field);
    void AddOctet(const FieldPlace& place, std::vector<OctetBits> bits = {});
    void AddLanguage(const FieldPlace& place);
    void AddPage(const FieldPlace& place, const Messages::CellPage& page);

    const Broadcast& m_Broadcast;
};

void BroadcastMapper::MapPlace(const FieldPlace& place) {
    if (IsCut(place, m_Broadcast)) {
        Add(place.field, place.count).meaning = "cut";
        return;
    }
    switch (place.field) {
    case Field::SerialNumber:
        AddWide(place.field).bits = SerialNumberBits(Reading().serialNumber, Reading().messageIdentifier);
        return;
    case Field::MessageIdentifier:
        AddWide(place.field).isIdentifier = true;
        return;
    case Field::WarningType:
        AddWide(place.field).bits = WarningTypeBits(*Reading().warning);
        return;
    case Field::CellDataCoding:
        return AddOctet(place, CellCodingBits(Reading().coding));
    case Field::PageParameter:
        return AddOctet(place, PageParameterBits(m_Octets[place.octet]));
    case Field::CellMessageType:
    case Field::PageCount:
    case Field::PageLength:
        return AddOctet(place);
    case Field::HeaderLength:
        AddNumber(place.field, "length").meaning = Counted(m_Octets[place.octet], "octet");
        return;
    case Field::HeaderElement:
        return AddElement(place);
    case Field::PageLanguage:
        return AddLanguage(place);
    case Field::PageContent:
        return AddPage(place, *PageAt(place.octet, m_Broadcast));
    case Field::WarningTime:
        return AddTime(place.field, *Reading().warning->time);
    default:
        return AddOctets(place);
    }
}

void BroadcastMapper::AddOctets(const FieldPlace& place) {
    Add(place.field, place.count).meaning = Messages::DescriptionOf(place.field);
}

/// A number of two octets.
OctetRow& BroadcastMapper::AddWide(Field field) {
    const std::uint32_t octet = End();
    OctetRow& row = Add(field, 2);
    row.value = m_Octets[octet] << 8 | m_Octets[octet + 1];
    row.meaning = MeaningOf(BroadcastField{field, octet, row.count}, m_Broadcast);
    return row;
}

void BroadcastMapper::AddOctet(const FieldPlace& place, std::vector<OctetBits> bits) {
    OctetRow& row = AddNumber(place.field);
    row.meaning =
        MeaningOf(BroadcastField{place.field, place.octet, 1, PageAt(place.octet, m_Broadcast)}, m_Broadcast);
    row.bits = std::move(bits);
}

void BroadcastMapper::AddLanguage(const FieldPlace& place) {
    OctetRow& row = Add(place.field, place.count);
    row.meaning = LanguageText(PageAt(place.octet, m_Broadcast)->language);
}

/// The octets of the text, then those of its padding.
void BroadcastMapper::AddPage(const FieldPlace& place, const Messages::CellPage& page) {
    constexpr std::uint32_t c_dataRow = 8;
    const std::uint32_t end = place.octet + place.count;
    if (!Reading().coding.HasText()) {
        while (End() < end) {
            OctetRow& row = Add(place.field, std::min(end - End(), c_dataRow));
            row.meaning = DataText(m_Octets.Sub(row.octet, row.count));
        }
        return;
    }
    if (Reading().coding.alphabet == Messages::Alphabet::Ucs2) {
        AddUnits(place.field, page.paddingUnits == 0 ? end : place.octet + 2U * page.textUnits);
    } else {
        const std::uint32_t bits = page.textBit + 7U * page.textUnits;
        AddSeptets(place.field,
                   {page.Content(), page.tables, page.textBit, page.textUnits,
                    page.language.empty() ? "fill bits" : "language"},
                   page.textUnits == 0 ? 0 : (bits + 7) / 8);
    }
    if (End() < end)
        Add(place.field, end - End(), "padding");
}

} // namespace

std::vector<OctetRow> MapOctets(const Broadcast& broadcast) {
    return BroadcastMapper(broadcast).Map();
}

} // namespace show
