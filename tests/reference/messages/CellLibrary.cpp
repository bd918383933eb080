// Pages, messages and notifications by libQX_Messages beside the second reading: on the vectors, and on
// random ones.
#include <algorithm>

#include <gtest/gtest.h>

#include "../Cases.h"
#include "BridgeParts.h"
#include "CellInputs.h"
#include "CellJson.h"
#include "CellVectors.h"
#include "Messages/Cell.h"
#include "VectorText.h"

namespace plain {
namespace {

using reference::Difference;
using reference::Random;

/// Half of the cases of this program's random test of messages.
constexpr auto c_allCases = static_cast<reference::Share>(50'000);

Messages::CellFormat FormatOf(const std::string& format) {
    if (format == "gsm")
        return Messages::CellFormat::GsmPage;
    if (format == "umts")
        return Messages::CellFormat::UmtsMessage;
    return format == "etws" ? Messages::CellFormat::EtwsNotification : Messages::CellFormat::Unknown;
}

CellCoding PlainCoding(const Messages::CellCoding& coding) {
    using Messages::CellCodingGroup;
    static const std::array<const char*, 8> groups = {"language",         "language in text", "general",
                                                      "user-data header", "I1 protocol",      "WAP Forum",
                                                      "coding and class", "reserved"};
    static const std::array<const char*, 3> alphabets = {"gsm7", "octets", "ucs2"};
    CellCoding plain;
    plain.group = groups.at(static_cast<std::size_t>(coding.group));
    const bool hasAlphabet =
        coding.group != CellCodingGroup::I1Protocol && coding.group != CellCodingGroup::Wap;
    if (hasAlphabet)
        plain.alphabet = alphabets.at(static_cast<std::size_t>(coding.alphabet));
    plain.compressed = coding.isCompressed;
    plain.messageClass = coding.messageClass ? *coding.messageClass : -1;
    plain.language = coding.group == CellCodingGroup::LanguageInText ? "text" : std::string(coding.language);
    plain.header = coding.hasHeader;
    plain.reserved = coding.isReserved;
    return plain;
}

class Gatherer {
public:
    explicit Gatherer(const Messages::CellReading& reading) : m_Reading(reading) {}

    CellReading Gather(std::string& contradictions) {
        static const std::array<const char*, 4> formats = {"", "gsm", "umts", "etws"};
        m_Plain.format = formats.at(static_cast<std::size_t>(m_Reading.format));
        m_Plain.places = PlainPlaces(m_Reading.places);
        m_Plain.remarks = PlainRemarks(m_Reading.remarks);
        m_Plain.fault = PlainFault(m_Reading.fault);
        if (IsRead(field::SERIAL_NUMBER))
            m_Plain.serial = m_Reading.serialNumber.value;
        if (IsRead(field::MESSAGE_IDENTIFIER))
            m_Plain.identifier = m_Reading.messageIdentifier;
        if (IsRead(field::SERIAL_NUMBER) && IsRead(field::MESSAGE_IDENTIFIER)) {
            m_Plain.emergency =
                Messages::HasEmergencyAlert(m_Reading.serialNumber, m_Reading.messageIdentifier);
            m_Plain.popup = Messages::HasPopup(m_Reading.serialNumber, m_Reading.messageIdentifier);
        }
        if (IsRead(field::CELL_CODING)) {
            m_Plain.dcs = m_Reading.coding.value;
            m_Plain.coding = PlainCoding(m_Reading.coding);
        }
        if (m_Reading.total != 0)
            m_Plain.total = m_Reading.total;
        for (const Messages::CellPage& page : m_Reading.pages)
            m_Plain.pages.push_back(PlainPage(page, contradictions));
        GatherWarning();
        if (m_Reading.pages.size() == 1 && m_Reading.text != m_Reading.pages[0].text)
            contradictions += "the text of one page is not that of its reading\n";
        return m_Plain;
    }

private:
    bool IsRead(Name field) const {
        return std::any_of(m_Plain.places.begin(), m_Plain.places.end(),
                           [&](const Place& place) { return place.field == field; }) &&
               (!m_Plain.fault || m_Plain.fault->field != field);
    }

    /// The header lengths stand in the order of the pages.
    std::size_t NextHeader() {
        for (; m_NextPlace < m_Plain.places.size(); ++m_NextPlace)
            if (m_Plain.places[m_NextPlace].field == field::HEADER_LENGTH)
                return m_Plain.places[m_NextPlace++].octet;
        return 0;
    }

    CellPage PlainPage(const Messages::CellPage& page, std::string& contradictions) {
        CellPage plain;
        plain.number = page.number;
        plain.octets = page.octets;
        plain.ignoresHeader = page.isHeaderIgnored;
        const bool hasHeader = m_Reading.coding.hasHeader && !page.octets.empty();
        const std::size_t header = hasHeader ? NextHeader() : 0;
        plain.elements = PlainElements(page.elements, page.octets, header, contradictions);
        plain.locking = static_cast<int>(page.tables.locking);
        plain.single = static_cast<int>(page.tables.single);
        plain.language = page.language;
        plain.units = page.textUnits;
        plain.padding = page.paddingUnits;
        plain.cut = page.isCut;
        const bool isBeyond = hasHeader && page.octets[0] >= page.octets.size();
        if (m_Reading.coding.HasText() && !isBeyond) {
            plain.text = page.text;
        } else {
            const Messages::OctetView data = page.Content();
            plain.data = Octets(data.begin(), data.end());
            if (!page.text.empty())
                contradictions += "text of what is none\n";
        }
        return plain;
    }

    void GatherWarning() {
        if (!m_Reading.warning)
            return;
        const Messages::EtwsWarning& warning = *m_Reading.warning;
        m_Plain.warning = {warning.value,    warning.type, warning.hasEmergencyAlert,
                           warning.hasPopup, std::nullopt, warning.signature};
        if (warning.time)
            m_Plain.warning->time = PlainTime(*warning.time);
    }

    const Messages::CellReading& m_Reading;
    CellReading m_Plain;
    std::size_t m_NextPlace = 0;
};

std::string DifferencesOn(const CellInput& input) {
    // Memory of just this many octets, so that the sanitizers see a read after them.
    const Octets octets(input.octets);
    const Messages::CellReading reading = Messages::ReadCell(octets, FormatOf(input.format));
    std::string contradictions;
    const CellReading library = Gatherer(reading).Gather(contradictions);
    CellReading expected = ReadCell(input);
    for (CellPage& page : expected.pages)
        for (Element& element : page.elements)
            if (element.address)
                element.address->octets.clear();
    std::sort(expected.remarks.begin(), expected.remarks.end());
    if (library == expected)
        return contradictions;
    const std::string lines = Differences(ToJson(library), ToJson(expected));
    return contradictions + (lines.empty() ? "a member that has no JSON differs\n" : lines);
}

std::string Shown(const CellInput& input) {
    Json json = Json::object();
    AddInput(json, input);
    return json.dump();
}

TEST(LibraryBesideSecondReading, ReadsTheVectorsOfCellBroadcastAlike) {
    for (const CellVector& vector : CellVectors())
        EXPECT_EQ(DifferencesOn(vector.input), "") << vector.name << "\n" << Shown(vector.input);
}

TEST(LibraryBesideSecondReading, ReadsTheVectorsOfCellBroadcastByHandAlike) {
    const std::vector<Json> vectors = VectorsOf("cell-by-hand");
    for (const Json& vector : vectors)
        EXPECT_EQ(DifferencesOn(CellInputOf(vector)), "") << vector.at("name");
    EXPECT_GE(vectors.size(), 12U);
}

TEST(LibraryBesideSecondReading, ReadsRandomCellBroadcastAlike) {
    reference::RunCases(c_allCases, [](Random& random) -> Difference {
        const CellInput input = RandomCellInput(random);
        return reference::Between(DifferencesOn(input), Shown(input));
    });
}

} // namespace
} // namespace plain
