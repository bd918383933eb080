#include "show/HeaderRows.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>

#include <fmt/format.h>

#include "show/FieldBits.h"
#include "show/Hex.h"
#include "show/Meanings.h"
#include "show/Plural.h"

namespace qxpdu {

namespace {

constexpr unsigned int c_specialMessage = 0x01;
constexpr unsigned int c_textFormatting = 0x0A;
constexpr unsigned int c_singleShift = 0x24;
constexpr unsigned int c_lockingShift = 0x25;

/// What one or two octets of an element's data say.
struct Part {
    const char* name;
    unsigned int octets;
    std::string (*meaning)(unsigned int) = nullptr;
    std::vector<OctetBits> (*bits)(unsigned int) = nullptr;
};

struct Layout {
    unsigned int identifier;
    std::span<const Part> parts;
};

std::string LanguageMeaning(unsigned int language) {
    constexpr std::array<std::string_view, 14> c_languages = {
        "reserved", "Turkish",   "Spanish", "Portuguese", "Bengali", "Gujarati", "Hindi",
        "Kannada",  "Malayalam", "Oriya",   "Punjabi",    "Tamil",   "Telugu",   "Urdu"};
    return std::string(c_languages[language < c_languages.size() ? language : 0]);
}

std::string SourceMeaning(unsigned int source) {
    constexpr std::array<std::string_view, 4> c_sources = {"reserved", "original sender", "original receiver",
                                                           "service centre"};
    return std::string(c_sources[source < c_sources.size() ? source : 0]);
}

std::vector<OctetBits> SpecialMessageBits(unsigned int octet) {
    return {BitsIn(octet, 0x80, "storage", (octet & 0x80) != 0 ? "store" : "discard"),
            BitsIn(octet, 0x60, "profile", ""), BitsIn(octet, 0x1C, "extended kind", ""),
            BitsIn(octet, 0x03, "kind", WaitingKind(octet))};
}

std::vector<OctetBits> FormattingBits(unsigned int octet) {
    constexpr std::array<std::string_view, 4> c_alignments = {"left", "centre", "right",
                                                              "as the language has it"};
    constexpr std::array<std::string_view, 4> c_sizes = {"normal", "large", "small", "reserved"};
    const auto onOff = [octet](unsigned int mask) { return (octet & mask) != 0 ? "on" : "off"; };
    return {BitsIn(octet, 0x80, "strikethrough", onOff(0x80)),
            BitsIn(octet, 0x40, "underlined", onOff(0x40)),
            BitsIn(octet, 0x20, "italic", onOff(0x20)),
            BitsIn(octet, 0x10, "bold", onOff(0x10)),
            BitsIn(octet, 0x0C, "size", c_sizes[octet >> 2 & 3]),
            BitsIn(octet, 0x03, "alignment", c_alignments[octet & 3])};
}

std::vector<OctetBits> ControlBits(unsigned int octet) {
    const auto onOff = [octet](unsigned int mask) { return (octet & mask) != 0 ? "on" : "off"; };
    return {BitsIn(octet, 0x80, "header in the report", onOff(0x80)),
            BitsIn(octet, 0x40, "cancel the other report requests", onOff(0x40)),
            BitsIn(octet, 0x30, "reserved", ""),
            BitsIn(octet, 0x08, "report on temporary errors, still trying", onOff(0x08)),
            BitsIn(octet, 0x04, "report on temporary errors, given up", onOff(0x04)),
            BitsIn(octet, 0x02, "report on permanent errors", onOff(0x02)),
            BitsIn(octet, 0x01, "report on completion", onOff(0x01))};
}

constexpr Part c_concatenation8Parts[] = {{"reference", 1}, {"total", 1}, {"sequence", 1}};
constexpr Part c_concatenation16Parts[] = {{"reference", 2}, {"total", 1}, {"sequence", 1}};
constexpr Part c_specialMessageParts[] = {{"message kind", 1, nullptr, SpecialMessageBits},
                                          {"message count", 1}};
constexpr Part c_ports8Parts[] = {{"destination port", 1}, {"originator port", 1}};
constexpr Part c_ports16Parts[] = {{"destination port", 2}, {"originator port", 2}};
constexpr Part c_controlParts[] = {{"control", 1, nullptr, ControlBits}};
constexpr Part c_sourceParts[] = {{"source", 1, SourceMeaning}};
constexpr Part c_formattingParts[] = {{"start", 1}, {"characters", 1}, {"style", 1, nullptr, FormattingBits}};
constexpr Part c_colouredParts[] = {
    {"start", 1}, {"characters", 1}, {"style", 1, nullptr, FormattingBits}, {"colour", 1}};
constexpr Part c_languageParts[] = {{"language", 1, LanguageMeaning}};

constexpr Layout c_layouts[] = {
    {c_concatenation8, c_concatenation8Parts},
    {c_specialMessage, c_specialMessageParts},
    {0x04, c_ports8Parts},
    {0x05, c_ports16Parts},
    {0x06, c_controlParts},
    {0x07, c_sourceParts},
    {c_concatenation16, c_concatenation16Parts},
    {c_textFormatting, c_formattingParts},
    {c_textFormatting, c_colouredParts},
    {c_singleShift, c_languageParts},
    {c_lockingShift, c_languageParts},
};

unsigned int LengthOf(const Layout& layout) {
    unsigned int length = 0;
    for (const Part& part : layout.parts)
        length += part.octets;
    return length;
}

/// The layout of the element's data; none where these are not known, or have another length than they
/// should.
const Layout* LayoutOf(const HeaderElement& element) {
    for (const Layout& layout : c_layouts) {
        if (layout.identifier == element.identifier && LengthOf(layout) == element.length)
            return &layout;
    }
    return nullptr;
}

bool IsKnown(unsigned int identifier) {
    return std::any_of(std::begin(c_layouts), std::end(c_layouts),
                       [identifier](const Layout& layout) { return layout.identifier == identifier; });
}

bool IsReserved(const OctetRow& row) {
    return row.meaning == "reserved" ||
           std::any_of(row.bits.begin(), row.bits.end(), [](const OctetBits& bits) {
               return bits.meaning == "reserved" || (bits.name == "reserved" && bits.value != 0);
           });
}

/// Total and sequence are the last two octets of either element.
void CheckConcatenation(const HeaderElement& element, const Encoding::Pdu& pdu,
                        std::vector<std::string>& faults) {
    const unsigned int total = pdu.m_Bytes[element.offset + element.length - 2];
    const unsigned int sequence = pdu.m_Bytes[element.offset + element.length - 1];
    if (total == 0)
        faults.emplace_back("a message of no parts");
    if (sequence == 0 || sequence > total)
        faults.push_back(fmt::format("part {} of {}", sequence, total));
}

} // namespace

std::vector<std::string> ElementFaults(const HeaderElement& element, const Encoding::Pdu& pdu,
                                       Encoding::Alphabet::Encoding alphabet) {
    std::vector<std::string> faults;
    const unsigned int identifier = element.identifier;
    const bool isWhole = element.present == element.length;
    if (ElementName(identifier) == "reserved element")
        faults.emplace_back("the decoder passes over it");
    if (IsKnown(identifier) && LayoutOf(element) == nullptr)
        faults.push_back(
            fmt::format("{} of data, other than the standard has them", Counted(element.length, "octet")));
    if (!isWhole)
        faults.emplace_back("its data go on after the PDU; the decoder reads zeros there");
    if (IsConcatenation(element) && isWhole && LayoutOf(element) != nullptr)
        CheckConcatenation(element, pdu, faults);
    if (identifier == c_specialMessage)
        faults.emplace_back("the decoder takes the message count for the total of a concatenation");
    const bool isLanguage = identifier == c_singleShift || identifier == c_lockingShift;
    if (isLanguage && alphabet == Encoding::Alphabet::ALPHABET_GSM7)
        faults.emplace_back("the decoder shows the text in the default alphabet");
    return faults;
}

std::vector<OctetRow> ElementRows(const HeaderElement& element, const Encoding::Pdu& pdu) {
    std::vector<OctetRow> rows;
    const Layout* layout = LayoutOf(element);
    if (element.present == 0)
        return rows;
    if (layout == nullptr || element.present != element.length) {
        rows.push_back(
            {0, element.present, {}, "data", Hex(pdu.m_Bytes + element.offset, element.present), "", {}, {}});
        return rows;
    }
    const unsigned char* octet = pdu.m_Bytes + element.offset;
    for (const Part& part : layout->parts) {
        unsigned int value = 0;
        for (unsigned int i = 0; i < part.octets; ++i)
            value = value << 8 | *octet++;
        rows.push_back({0,
                        part.octets,
                        {},
                        part.name,
                        value,
                        part.meaning != nullptr ? part.meaning(value) : std::string(),
                        part.bits != nullptr ? part.bits(value) : std::vector<OctetBits>(),
                        {}});
        if (IsReserved(rows.back()))
            rows.back().unusual.emplace_back("a reserved value");
    }
    return rows;
}

} // namespace qxpdu
