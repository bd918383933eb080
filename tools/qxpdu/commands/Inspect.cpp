// qxpdu inspect
#include <cstdlib>
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "commands/CellPages.h"
#include "commands/Commands.h"
#include "commands/Reading.h"
#include "show/MapJson.h"
#include "show/MapText.h"

namespace qxpdu {

namespace {

struct InspectOptions : ReadingOptions {
    std::string color = "auto";
    bool isCell = false;
    Messages::CellFormat format = Messages::CellFormat::Unknown;

    bool IsPage(const Input& input) const {
        return isCell || format != Messages::CellFormat::Unknown || IsPageOfLog(input);
    }
};

/// Both in the map; here it makes the exit status.
void TellFault(const std::optional<Messages::Fault>& fault, const Input& input, Console& console) {
    if (!fault)
        return;
    if (console.WantsJsonLines())
        console.Failed(); // the object says why
    else
        console.Error(NameOf(input), show::ToText(*fault));
}

void InspectPage(const InspectOptions& options, const Input& input, const show::Painter& painter,
                 Console& console) {
    CellSettings settings;
    settings.asHost = options.asHost;
    settings.isStrict = options.isStrict;
    if (options.asHost) {
        CellPages(settings).Convert(input, console);
        return;
    }
    const show::ComparedBroadcast compared = ReadCompared(options.format, input, console);
    WarnOfText(settings, compared.broadcast, input, console);
    if (console.WantsJson()) {
        show::JsonText object;
        Begin(object, input);
        show::WriteMap(compared, object);
        console.Object(object);
    } else {
        console.Block(show::MapText(compared, painter));
    }
    TellFault(compared.broadcast.reading.fault, input, console);
}

void Inspect(const InspectOptions& options, const Input& input, const show::Painter& painter,
             Console& console) {
    if (input.heading && input.heading->kind == Heading::Kind::Reference)
        return;
    if (options.IsPage(input))
        return InspectPage(options, input, painter, console);
    const std::optional<show::Message> read = ReadMessage(options, input, console);
    if (!read)
        return;
    const show::Message& message = *read;
    if (options.asHost)
        return ShowRecord(message, input, console);
    WarnOfText(options, message, false, input, console);
    const show::HostReading host = show::CompareWithHost(message);
    if (console.WantsJson()) {
        show::JsonText object;
        Begin(object, input);
        show::WriteMap(message, host, object);
        console.Object(object);
    } else {
        console.Block(show::MapText(message, host, painter));
    }
    TellFault(message.reading.fault, input, console);
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

void AddInspect(const Command& parent) {
    const Command command = parent.AddCommand("inspect", "Show what each octet of SMS PDUs means");
    auto options = std::make_shared<InspectOptions>();
    AddConversion(command, *options, "PDU",
                  "PDUs in hexadecimal, sound or broken; without any, one a line from standard input");
    AddReading(command, *options);
    command.AddFlag("--cell", options->isCell,
                    "The inputs are pages, messages or notifications of cell broadcast");
    AddCellFormat(command, options->format);
    command
        .AddText("--color", options->color,
                 "Colours per field: auto, always or never; auto, the default, means on a terminal unless "
                 "NO_COLOR is set or TERM is dumb")
        .Check(FaultOfColor)
        .Named("WHEN");
    AddFiles(command, *options);
    AddStreaming(command, *options);
    command.SetFooter(
        "Every octet once, in order: its offset, its digits, its field by 3GPP TS 23.040, its value, its\n"
        "meaning; octets of bits bit by bit. After \"!\" stands what is unusual, and after \"~\" what a\n"
        "program gets from libQX_Encoding instead. A broken PDU is shown as far as it goes. With --json an\n"
        "object for each PDU, with \"map\", an object for each row, \"remarks\" and \"libQX_Encoding\", and\n"
        "\"error\" and \"fault\" where it is broken.\n"
        "\n"
        "Pages of a log are known by their heading, others by --cell, or by --type, which says more.\n"
        "\n"
        "Example:\n"
        "  qxpdu inspect 0791214365870921040B912143658709F100002120312143658005C8329BFD06");
    command.SetAction([options](const Streams& streams) {
        const show::Painter painter(WantsColor(options->color, streams));
        return ConvertAll(options->Settings(), streams, LineKind::Transcript,
                          [options, painter](const Input& input, Console& console) {
                              Inspect(*options, input, painter, console);
                          });
    });
}

} // namespace qxpdu
