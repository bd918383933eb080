// qxpdu cell
#include <memory>

#include <fmt/format.h>

#include "commands/CellEncode.h"
#include "commands/CellPages.h"
#include "commands/Commands.h"
#include "commands/Options.h"
#include "commands/Reading.h"

namespace qxpdu {

namespace {

struct CellOptions : ConversionOptions, CellSettings {};

void AddOptions(const Command& command, CellOptions& options) {
    AddConversion(command, options, "PAGE",
                  "Pages, messages and notifications in hexadecimal; without any, one a line from standard "
                  "input");
    AddHostReading(command, options.asHost);
    AddCellFormat(command, options.format);
    AddStrict(command, options.isStrict);
    const Option join = command.AddFlag("--join", options.join, "Put the pages of messages together");
    command.AddFlag("--each", options.each, "With --join, show each page by itself as well").Needs(join);
    AddFiles(command, options);
    AddStreaming(command, options);
    AddRows(command, options.rows);
}

} // namespace

void AddCell(const Command& parent) {
    const Command command = parent.AddCommand("cell", "Show the fields and the text of cell broadcast pages");
    auto options = std::make_shared<CellOptions>();
    AddOptions(command, *options);
    command.SetFooter(
        "Pages of GSM, messages of UMTS and later networks with all of their pages, and primary\n"
        "notifications of earthquakes and tsunamis, 3GPP TS 23.041: a line for each field, its value on the\n"
        "wire and its meaning, then the text. Below it stands after \"!\" what is unusual, and after \"~\" "
        "what\n"
        "a program gets from libQX_Encoding instead. With --json an object for each, \"pages\" and \"text\"\n"
        "among its members.\n"
        "\n"
        "With --join a message is shown once its last page has come, or in the end with what is missing. A\n"
        "newer update replaces an older one. Of messages waiting for pages, the oldest is given up when "
        "there\n"
        "are more than 256.\n"
        "\n"
        "Standard input may be the log of a modem, with the pages after +CBM lines.\n"
        "\n"
        "Example:\n"
        "  qxpdu cell 403211120111C8329BFD06");
    AddCellEncode(command);
    command.SetAction([options](const Streams& streams) {
        const auto pages = std::make_shared<CellPages>(*options);
        if (options->rows.AreLinesRows())
            return ConvertRows(
                options->Settings(), options->rows, streams,
                [&pages](const Input& input, Console& console) { return pages->ReadToRow(input, console); });
        streams.out << HeadingOf(options->rows);
        return ConvertStream(options->Settings(), streams,
                             {LineKind::Transcript,
                              [pages](const Input& input, Console& console) -> Afterwards {
                                  if (input.heading && !IsPageOfLog(input))
                                      return {};
                                  return pages->Convert(input, console);
                              },
                              [pages](Console& console) { pages->ShowIncomplete(console); }});
    });
}

} // namespace qxpdu
