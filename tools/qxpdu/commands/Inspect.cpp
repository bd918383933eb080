// qxpdu inspect
#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

#include <fmt/format.h>

#include "characters/Hexadecimal.h"
#include "commands/Commands.h"
#include "commands/Options.h"
#include "show/CodeUnits.h"
#include "show/Hex.h"
#include "show/OctetMap.h"
#include "show/Record.h"

namespace qxpdu {

namespace {

using Encoding::Pdu;

constexpr unsigned int c_octetsInLine = 8;
constexpr int c_octetsWidth = 3 * c_octetsInLine - 1;

struct InspectOptions : ConversionOptions {
    bool noSmsc = false;
    std::string color = "auto";
};

/// Makes text coloured, or leaves it.
class Painter {
public:
    explicit Painter(bool isOn) : m_IsOn(isOn) {}

    /// Each field has another colour than its neighbours.
    void Begin(std::string_view field) {
        if (field != m_Field)
            ++m_Colour;
        m_Field = field;
    }

    std::string InFieldColour(std::string_view text) const {
        constexpr std::array<int, 5> c_colours = {36, 32, 35, 34, 33}; // cyan, green, magenta, blue, yellow
        return Painted(text, c_colours[m_Colour % c_colours.size()]);
    }

    std::string AsFault(std::string_view text) const {
        constexpr int c_red = 31;
        return Painted(text, c_red);
    }

private:
    std::string Painted(std::string_view text, int colour) const {
        return m_IsOn ? fmt::format("\x1B[{}m{}\x1B[0m", colour, text) : std::string(text);
    }

    bool m_IsOn;
    std::string_view m_Field;
    std::size_t m_Colour = 0;
};

/// A broken PDU, as Decode tells about it.
std::string ToText(const PduStop& stop) {
    return fmt::format("{} at octet {}: {}", stop.field, stop.offset, stop.Reason());
}

/// Octets of bits are shown as they are, other numbers in decimal, texts in quotes.
std::string ValueOf(const OctetRow& row) {
    if (row.value.is_null())
        return "";
    if (row.value.is_number_unsigned() && !row.bits.empty())
        return fmt::format(" 0x{:02X}", row.value.get<unsigned int>());
    if (row.value.is_number())
        return fmt::format(" {}", row.value.get<int>());
    const std::string text = Printable(row.value.get<std::string>());
    return row.isText ? fmt::format(" \"{}\"", text) : " " + text;
}

std::string Explained(const OctetRow& row) {
    return fmt::format("{}{}{}{}", NameOf(row), ValueOf(row), row.meaning.empty() ? "" : ": ", row.meaning);
}

/// "21 43 65"
std::string Spaced(const unsigned char* octets, std::size_t count) {
    return fmt::format("{:02X}", fmt::join(octets, octets + count, " "));
}

/// As wide as the column of the octets; colours, which take no room, are put on afterwards.
std::string Padded(std::string_view octets) {
    return fmt::format("{:<{}}", octets, c_octetsWidth);
}

std::string Fault(const std::string& text, const Painter& painter) {
    return fmt::format("{:>6}  {}  {}\n", "", Padded(""), painter.AsFault("! " + Printable(text)));
}

/// Its first octets with the explanation, the others below.
std::string ToText(const Pdu& pdu, const OctetRow& row, const Painter& painter) {
    const auto octets = [&](unsigned int done) {
        return Spaced(pdu.m_Bytes + row.offset + done, std::min(row.length - done, c_octetsInLine));
    };
    std::string lines =
        fmt::format("{:>6}  {}  {}\n", row.offset, painter.InFieldColour(Padded(octets(0))), Explained(row));
    for (unsigned int done = c_octetsInLine; done < row.length; done += c_octetsInLine)
        lines += fmt::format("{:>6}  {}\n", row.offset + done, painter.InFieldColour(octets(done)));
    for (const OctetBits& bits : row.bits) {
        lines += fmt::format("{:>6}  {}    {} {}{}{}\n", "", painter.InFieldColour(Padded(BitPattern(bits))),
                             bits.name, bits.value, bits.meaning.empty() ? "" : ": ", bits.meaning);
    }
    for (const std::string& fault : row.unusual)
        lines += Fault(fault, painter);
    return lines;
}

std::string ToText(const Pdu& pdu, const std::vector<OctetRow>& rows, const PduWalk& walk, Painter painter) {
    std::string lines;
    for (const OctetRow& row : rows) {
        painter.Begin(row.field);
        lines += ToText(pdu, row, painter);
    }
    if (walk.stop)
        lines += Fault(ToText(*walk.stop), painter);
    return lines;
}

Json ToJson(const Pdu& pdu, const OctetRow& row) {
    Json object = {{"offset", row.offset},
                   {"length", row.length},
                   {"octets", Hex(pdu.m_Bytes + row.offset, row.length)},
                   {"field", row.field}};
    if (!row.part.empty())
        object["part"] = row.part;
    if (!row.value.is_null())
        object["value"] = row.value;
    if (!row.meaning.empty())
        object["meaning"] = row.meaning;
    for (const OctetBits& bits : row.bits) {
        Json member = {{"bits", BitPattern(bits)}, {"name", bits.name}, {"value", bits.value}};
        if (!bits.meaning.empty())
            member["meaning"] = bits.meaning;
        object["bits"].push_back(std::move(member));
    }
    if (!row.unusual.empty())
        object["unusual"] = row.unusual;
    return object;
}

Json ToJson(const Input& input, const Pdu& pdu, const std::vector<OctetRow>& rows, const PduWalk& walk) {
    Json object = ObjectFor(input);
    object["octets"] = pdu.GetString();
    object["map"] = Json::array();
    for (const OctetRow& row : rows)
        object["map"].push_back(ToJson(pdu, row));
    if (walk.stop) {
        object["error"] = ToText(*walk.stop);
        object["stop"] = {{"field", walk.stop->field},
                          {"offset", walk.stop->offset},
                          {"expected", walk.stop->expected},
                          {"found", walk.stop->found}};
    }
    return object;
}

void Inspect(const InspectOptions& options, const Input& input, const Painter& painter, Console& console) {
    const Toolkit::smart_ptr<Pdu> pdu = ReadPdu(input.text);
    Encoding::PduDecoder decoder;
    const PduWalk walk = WalkPdu(decoder, pdu, options.noSmsc, false);
    const std::vector<OctetRow> rows = MapOctets(*pdu, walk, options.noSmsc);
    if (console.WantsJson())
        console.Object(ToJson(input, *pdu, rows, walk));
    else
        console.Block(ToText(*pdu, rows, walk, painter));
    if (!walk.stop)
        return;
    if (console.WantsJsonLines())
        console.Failed(); // the object says why
    else
        console.Error(NameOf(input), ToText(*walk.stop));
}

std::string FaultOfColor(const std::string& when) {
    const bool isKnown = when == "auto" || when == "always" || when == "never";
    return isKnown ? "" : fmt::format("{} is neither auto, always nor never", when);
}

/// By themselves, colours go to a terminal that has some, and whose user has not said no,
/// https://no-color.org.
bool WantsColor(const std::string& when, const Streams& streams) {
    if (when != "auto")
        return when == "always";
    const char* const noColor = std::getenv("NO_COLOR"); // NOLINT(concurrency-mt-unsafe): no thread yet
    const char* const terminal = std::getenv("TERM");    // NOLINT(concurrency-mt-unsafe): as above
    return streams.outIsTerminal && (noColor == nullptr || *noColor == '\0') &&
           (terminal == nullptr || std::string_view(terminal) != "dumb");
}

} // namespace

void AddInspect(CLI::App& parent, Action& action) {
    CLI::App* command = parent.add_subcommand("inspect", "Show what each octet of SMS PDUs means");
    auto options = std::make_shared<InspectOptions>();
    AddConversion(
        *command, *options, "PDU",
        "SMS-DELIVER, SMS-SUBMIT or SMS-STATUS-REPORT in hexadecimal, sound or broken; without any, one a "
        "line from standard input");
    command->add_flag("--no-smsc", options->noSmsc,
                      "The PDUs begin with the TPDU, not with the service centre");
    command
        ->add_option(
            "--color", options->color,
            "Colours per field: auto, always or never; auto, the default, means on a terminal unless "
            "NO_COLOR is set or TERM is dumb")
        ->check(FaultOfColor)
        ->type_name("WHEN");
    AddStreaming(*command, *options);
    command->footer(
        "Every octet once, in order: its offset, its digits, its field by 3GPP TS 23.040, its value, its\n"
        "meaning; octets of bits bit by bit. After \"!\" stands what is unusual by the standard though "
        "it\n"
        "decodes, and how the decoder takes it. A broken PDU is shown as far as it goes. With --json an\n"
        "object for each PDU, with \"map\", an object for each row, and \"error\" and \"stop\" where it is\n"
        "broken.\n"
        "\n"
        "Example:\n"
        "  qxpdu inspect 0791214365870921040B912143658709F100002120312143658005C8329BFD06");
    command->callback([options, &action] {
        action = [options](const Streams& streams) {
            const Painter painter(WantsColor(options->color, streams));
            return ConvertAll(
                options->Settings(), streams, LineKind::Hex,
                [&](const Input& input, Console& console) { Inspect(*options, input, painter, console); });
        };
    });
}

} // namespace qxpdu
