#include "show/MapText.h"

#include <algorithm>
#include <optional>
#include <vector>

#include <fmt/format.h>

#include "Messages/Words.h"
#include "show/CodeUnits.h"
#include "show/Notes.h"
#include "show/OctetMap.h"

namespace show {

namespace {

constexpr std::uint32_t c_octetsInLine = 8;
constexpr std::size_t c_offsetWidth = 6;
constexpr std::size_t c_octetsWidth = 3 * c_octetsInLine - 1;
constexpr std::string_view c_between = "  "; ///< the columns

/// "21 43 65"
std::string Spaced(Messages::OctetView octets) {
    constexpr std::string_view c_digits = "0123456789ABCDEF";
    std::string text;
    for (const std::uint8_t octet : octets) {
        if (!text.empty())
            text += ' ';
        text += c_digits[octet >> 4];
        text += c_digits[octet & 0xF];
    }
    return text;
}

/// Octets of bits and identifiers are shown as they are, other numbers in decimal, texts in quotes.
void AppendValue(const OctetRow& row, std::string& line) {
    if (const int* number = std::get_if<int>(&row.value)) {
        const bool isAsItIs = row.isIdentifier || (!row.bits.empty() && !row.isCount);
        line += isAsItIs ? fmt::format(" 0x{:0{}X}", *number, row.count == 2 ? 4 : 2)
                         : ' ' + std::to_string(*number);
    } else if (const auto* text = std::get_if<std::string>(&row.value)) {
        line += ' ';
        line += Printable(*text);
    } else if (const auto* quoted = std::get_if<QuotedText>(&row.value)) {
        line += " \"";
        line += Printable(quoted->text);
        line += '"';
    }
}

void AppendMeaning(std::string_view meaning, std::string& line) {
    if (meaning.empty())
        return;
    line += ": ";
    line += meaning;
}

/// Writes the rows one below the other. Text is appended piece by piece, as there is a lot of it.
class MapWriter {
public:
    MapWriter(Messages::OctetView octets, Painter painter) : m_Octets(octets), m_Painter(painter) {}

    /// The first octets with the explanation, the others below.
    void Row(const OctetRow& row) {
        m_Painter.Begin(row.field);
        BeginLine(std::to_string(row.octet));
        AppendOctets(Spaced(OctetsOf(row, 0)), true);
        AppendExplanation(row);
        for (std::uint32_t done = c_octetsInLine; done < row.count; done += c_octetsInLine) {
            BeginLine(std::to_string(row.octet + done));
            AppendOctets(Spaced(OctetsOf(row, done)), false);
            m_Lines += '\n';
        }
        for (const OctetBits& bits : row.bits)
            AppendBits(bits);
    }

    void Remark(std::string_view text) { Note(m_Painter.AsRemark("! " + Printable(text))); }
    void Difference(std::string_view text) { Note(m_Painter.AsDifference("~ " + std::string(text))); }

    std::string Finish() { return std::move(m_Lines); }

private:
    Messages::OctetView OctetsOf(const OctetRow& row, std::uint32_t done) const {
        return m_Octets.Sub(row.octet + done, std::min(row.count - done, c_octetsInLine));
    }

    void BeginLine(std::string_view offset) {
        m_Lines.append(c_offsetWidth - std::min(c_offsetWidth, offset.size()), ' ');
        m_Lines += offset;
        m_Lines += c_between;
    }

    /// Colours, which take no room, are put around the padding as well.
    void AppendOctets(std::string octets, bool isExplained) {
        if (isExplained)
            octets.resize(c_octetsWidth, ' ');
        m_Lines += m_Painter.InFieldColour(octets);
    }

    void AppendExplanation(const OctetRow& row) {
        m_Lines += c_between;
        m_Lines += row.field;
        if (!row.subfield.empty()) {
            m_Lines += ' ';
            m_Lines += row.subfield;
        }
        AppendValue(row, m_Lines);
        AppendMeaning(row.meaning, m_Lines);
        m_Lines += '\n';
    }

    void AppendBits(const OctetBits& bits) {
        BeginLine("");
        AppendOctets(BitPattern(bits), true);
        m_Lines += c_between;
        m_Lines += c_between;
        m_Lines += bits.name;
        m_Lines += ' ';
        m_Lines += std::to_string(bits.value);
        AppendMeaning(bits.meaning, m_Lines);
        m_Lines += '\n';
    }

    void Note(std::string_view text) {
        BeginLine("");
        m_Lines.append(c_octetsWidth, ' ');
        m_Lines += c_between;
        m_Lines += text;
        m_Lines += '\n';
    }

    Messages::OctetView m_Octets;
    Painter m_Painter;
    std::string m_Lines;
};

/// Of messages as of what cell broadcast sends.
std::string WriteMap(const std::vector<OctetRow>& rows, Messages::OctetView octets,
                     std::vector<Messages::Remark> remarks, const std::optional<Messages::Fault>& fault,
                     const HostReading& host, Painter painter) {
    MapWriter writer(octets, painter);
    std::stable_sort(remarks.begin(), remarks.end(),
                     [](const auto& one, const auto& other) { return one.octet < other.octet; });
    auto remark = remarks.begin();
    for (const OctetRow& row : rows) {
        writer.Row(row);
        for (; remark != remarks.end() && remark->octet < row.octet + row.count; ++remark)
            writer.Remark(Messages::MeaningOf(*remark));
    }
    for (; remark != remarks.end(); ++remark)
        writer.Remark(ToText(*remark));
    if (fault)
        writer.Remark(ToText(*fault));
    for (const RecordMember& member : host.members)
        writer.Difference(DifferenceText(member));
    if (host.isRejected != fault.has_value())
        writer.Difference(host.isRejected ? c_rejectedText : c_acceptedText);
    return writer.Finish();
}

} // namespace

std::string MapText(const Message& message, const HostReading& host, Painter painter) {
    return WriteMap(MapOctets(message), message.octets, message.reading.remarks, message.reading.fault, host,
                    painter);
}

std::string MapText(const ComparedBroadcast& compared, Painter painter) {
    const auto& [broadcast, host] = compared;
    return WriteMap(MapOctets(broadcast), broadcast.octets, broadcast.reading.remarks,
                    broadcast.reading.fault, host, painter);
}

} // namespace show
