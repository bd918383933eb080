#include "show/OctetRows.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include <fmt/format.h>

#include "Messages/Words.h"
#include "show/CodeUnits.h"
#include "show/Message.h"
#include "show/Plural.h"
#include "show/Subfields.h"

namespace show {

namespace {

using Messages::Field;
using Messages::FieldPlace;
using Messages::OctetView;
using Messages::Piece;

constexpr unsigned int c_septetBits = 7;
constexpr std::uint32_t c_septetRow = 7; ///< octets that hold eight septets
constexpr std::uint32_t c_octetRow = 8;

/// The text of the septets from one row to the next. A row never ends between an escape and its code.
class SeptetText {
public:
    explicit SeptetText(const SeptetRun& run)
        : m_Tables(run.tables), m_FillBits(run.firstBit), m_Septets(run.septets) {
        m_Septets.resize(Messages::UnpackSeptets(run.octets, m_FillBits, m_Septets.size(), m_Septets.data()));
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

} // namespace

OctetRow& OctetRows::Add(Field field, std::uint32_t count, std::string_view subfield) {
    m_Rows.push_back({End(), count, ShownNameOf(field), subfield});
    return m_Rows.back();
}

OctetRow& OctetRows::AddNumber(Field field, std::string_view subfield) {
    const int number = m_Octets[End()];
    OctetRow& row = Add(field, 1, subfield);
    row.value = number;
    return row;
}

void OctetRows::AddTime(Field field, const Messages::Timestamp& time) {
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
    const std::uint8_t zone = m_Octets[End()];
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

void OctetRows::AddElement(const FieldPlace& place) {
    if (place.piece == Piece::Identifier) {
        m_Element = m_Octets[place.octet];
        OctetRow& row = AddNumber(place.field, "element");
        row.meaning = Messages::NameOfElement(m_Element);
        row.isIdentifier = true;
    } else if (place.piece == Piece::Length) {
        OctetRow& row = AddNumber(place.field, "element length");
        row.meaning = Counted(m_Octets[place.octet], "octet");
    } else {
        AddContent(place);
    }
}

void OctetRows::AddContent(const FieldPlace& place) {
    const OctetView data = m_Octets.Sub(place.octet, place.count);
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

void OctetRows::AddSeptets(Field field, const SeptetRun& run, std::uint32_t count) {
    const std::uint32_t begin = End();
    const std::uint32_t end = begin + count;
    SeptetText text(run);
    std::uint32_t rowEnd = begin + (run.firstBit == 0 ? c_septetRow : run.firstBit);
    for (; End() < end; rowEnd += c_septetRow) {
        OctetRow& row = Add(field, std::min(rowEnd, end) - End());
        row.value = QuotedText{text.UpTo(row.octet + row.count - begin)};
    }
    if (run.firstBit == 0 || End() == begin)
        return;
    const auto first = std::find_if(m_Rows.begin(), m_Rows.end(),
                                    [begin](const OctetRow& row) { return row.octet == begin; });
    const auto before = static_cast<std::uint8_t>((1U << run.firstBit) - 1);
    const std::uint8_t octet = m_Octets[begin];
    first->bits = {BitsIn(octet, static_cast<std::uint8_t>(~before), "septets", ""),
                   BitsIn(octet, before, run.before, "")};
}

/// A character above U+FFFF stays in one row.
void OctetRows::AddUnits(Field field, std::uint32_t end) {
    while (End() < end) {
        std::uint32_t rowEnd = std::min(end, End() + c_octetRow);
        const bool cutsPair = rowEnd + 2 <= end && rowEnd - End() >= 2 &&
                              IsHighSurrogate(UnitAt(m_Octets, rowEnd - 2)) &&
                              IsLowSurrogate(UnitAt(m_Octets, rowEnd));
        rowEnd += cutsPair ? 2 : 0;
        OctetRow& row = Add(field, rowEnd - End());
        QuotedText text;
        Messages::AppendUcs2Text(m_Octets.Sub(row.octet, row.count), text.text);
        row.value = std::move(text);
    }
}

/// What the fault ends the reading before.
void OctetRows::AddRest(const std::optional<Messages::Fault>& fault) {
    const auto length = static_cast<std::uint32_t>(m_Octets.size());
    if (End() >= length)
        return;
    OctetRow& row = Add(Field::Surplus, length - End());
    row.meaning = "not read";
    if (fault)
        row.field = ShownNameOf(fault->field);
}

} // namespace show
