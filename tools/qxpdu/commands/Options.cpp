#include "commands/Options.h"

#include <utility>

#include <fmt/format.h>

#include "commands/Shields.h"

namespace qxpdu {

namespace {

constexpr unsigned int c_maxThreads = 256;

} // namespace

ConversionSettings ConversionOptions::Settings() const {
    const Format format = jsonLines ? Format::JsonLines : json ? Format::JsonArray : Format::Text;
    std::vector<std::string> names = files ? files->Values() : std::vector<std::string>();
    return {inputs->Values(), std::move(names), files.has_value(), format, lineBuffered, progress, threads};
}

std::string FaultOfHost(const std::string& name) {
    return name == c_host ? "" : fmt::format("{} is not {}", name, c_host);
}

void AddConversion(const Command& command, ConversionOptions& options, const std::string& name,
                   const std::string& description) {
    options.inputs = command.AddArguments(name, description);
    AddJson(command, options);
}

void AddSentText(const Command& command, ConversionOptions& options, bool& lines) {
    command.AddFlag("--lines", lines, "Each line of standard input is a text of its own");
    options.inputs = command.AddArgument(
        "TEXT", "The text; without it, or as -, all of standard input without its last line feed");
}

Option AddJson(const Command& command, ConversionOptions& options) {
    return command.AddFlag("--json", options.json, "Write the results as a JSON array");
}

void AddFiles(const Command& command, ConversionOptions& options) {
    options.files =
        command.AddTexts(c_fileOption, "Read the lines of these files too; - stands for standard input")
            .Named("FILE");
}

void AddStreaming(const Command& command, ConversionOptions& options) {
    command
        .AddFlag("--jsonl", options.jsonLines,
                 "Write the results as JSON Lines, an object for each input, failed ones included")
        .Excludes(command.OptionNamed("--json"));
    command.AddNumber("-j,--threads", options.threads, 1U, c_maxThreads,
                      "Work on N threads; the order stays");
    command.AddFlag("--line-buffered", options.lineBuffered,
                    "Write each result as soon as it is there, as on a terminal");
    const Option progress = command.AddFlag(
        "--progress", [&options] { options.progress = true; },
        "Show lines, rate and errors on standard error; by themselves they are shown where that is a "
        "terminal "
        "and results go elsewhere");
    command
        .AddFlag(
            "--no-progress", [&options] { options.progress = false; }, "Do not show them")
        .Excludes(progress);
}

} // namespace qxpdu
