#include "commands/Options.h"

#include <utility>

namespace qxpdu {

namespace {

constexpr unsigned int c_maxThreads = 256;

/// Put before an argument that CLI11 is to leave as it is. It would take "[a,b]" for a list wherever
/// several values are allowed, and forget that "--" came before as soon as one input was there.
constexpr char c_shield = '\1';

constexpr const char* c_fileOption = "--file";

} // namespace

ConversionSettings ConversionOptions::Settings() const {
    const Format format = jsonLines ? Format::JsonLines : json ? Format::JsonArray : Format::Text;
    std::vector<std::string> names = files == nullptr ? std::vector<std::string>() : ValuesOf(files);
    return {ValuesOf(inputs), std::move(names), files != nullptr, format, lineBuffered, progress, threads};
}

void AddConversion(CLI::App& command, ConversionOptions& options, const std::string& name,
                   const std::string& description) {
    options.inputs =
        command.add_option(name, description)->expected(CLI::detail::expected_max_vector_size)->type_name("");
    AddJson(command, options);
}

CLI::Option* AddJson(CLI::App& command, ConversionOptions& options) {
    return command.add_flag("--json", options.json, "Write the results as a JSON array");
}

void AddFiles(CLI::App& command, ConversionOptions& options) {
    options.files =
        command.add_option(c_fileOption, "Read the lines of these files too; - stands for standard input")
            ->expected(1, CLI::detail::expected_max_vector_size)
            ->type_name("FILE");
}

void AddStreaming(CLI::App& command, ConversionOptions& options) {
    command
        .add_flag("--jsonl", options.jsonLines,
                  "Write the results as JSON Lines, an object for each input, failed ones included")
        ->excludes(command.get_option("--json"));
    command.add_option("-j,--threads", options.threads, "Work on N threads; the order stays")
        ->check(FaultOfDecimal)
        ->check(CLI::Range(1U, c_maxThreads).description(""))
        ->type_name("N");
    command.add_flag("--line-buffered", options.lineBuffered,
                     "Write each result as soon as it is there, as on a terminal");
    CLI::Option* progress = command.add_flag_callback(
        "--progress", [&options] { options.progress = true; },
        "Show lines, rate and errors on standard error; by themselves they are shown where that is a "
        "terminal "
        "and results go elsewhere");
    command
        .add_flag_callback(
            "--no-progress", [&options] { options.progress = false; }, "Do not show them")
        ->excludes(progress);
}

std::vector<std::string> Shielded(const std::vector<std::string>& arguments) {
    std::vector<std::string> shielded;
    bool onlyInputs = false;
    bool areFiles = false;
    for (const std::string& argument : arguments) {
        const bool isOption = argument.starts_with('-') && argument != "-";
        if (areFiles && !onlyInputs && !isOption && shielded.back() != c_fileOption)
            shielded.emplace_back(c_fileOption);
        areFiles = !onlyInputs && (isOption ? argument == c_fileOption : areFiles);
        const bool isList = argument.starts_with('[') && argument.ends_with(']');
        if (onlyInputs || isList || argument.starts_with(c_shield))
            shielded.push_back(c_shield + argument);
        else if (argument == "--")
            onlyInputs = true;
        else
            shielded.push_back(argument);
    }
    return shielded;
}

std::string WithoutShields(std::string message) {
    std::erase(message, c_shield);
    return message;
}

std::string Unshielded(const std::string& argument) {
    return argument.starts_with(c_shield) ? argument.substr(1) : argument;
}

std::vector<std::string> ValuesOf(const CLI::Option* option) {
    std::vector<std::string> values;
    for (const std::string& value : option->results())
        values.push_back(Unshielded(value));
    return values;
}

std::string FaultOfDecimal(const std::string& text) {
    return text.size() > 1 && text.front() == '0' ? text + " is not decimal without leading zeros" : "";
}

} // namespace qxpdu
