// The work on one input after the other: what is read, where the results go, in which order.
#ifndef QXPDU_CONVERSION_H
#define QXPDU_CONVERSION_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "stream/Console.h"
#include "stream/Inputs.h"

namespace qxpdu {

/// What all commands that convert one input after the other have in common.
struct ConversionOptions {
    bool json = false;
    bool jsonLines = false;
    bool lineBuffered = false;
    std::optional<bool> progress; ///< without it, as the streams suggest
    unsigned int threads = 1;
    const CLI::Option* inputs = nullptr; ///< the arguments to convert

    Format ResultFormat() const;
};

/// What standard input is.
enum class LineKind {
    Hex,        ///< an input a line; blank lines are skipped
    Text,       ///< an input a line, every line as it stands
    Message,    ///< an input a line, a text to be sent; a carriage return belongs to the line feed
    Transcript, ///< PDUs, a line each, as they stand in the log of a modem
    Whole       ///< one input
};

/// Adds the input arguments, named `name`, and --json.
void AddConversion(CLI::App& command, ConversionOptions& options, const std::string& name,
                   const std::string& description);

/// Adds --json.
CLI::Option* AddJson(CLI::App& command, ConversionOptions& options);

/// Adds --jsonl, --line-buffered, --progress, --no-progress, and -j; --json is there already.
void AddStreaming(CLI::App& command, ConversionOptions& options);

/// An argument as the user gave it.
std::string Unshielded(const std::string& argument);

/// The values of an option as the user gave them.
std::vector<std::string> ValuesOf(const CLI::Option* option);

/// What is left to do on an input in the order of the inputs; may be empty.
using Afterwards = std::function<void(Console&)>;

/// How inputs are converted. What `convert` throws as an InputError is reported, and the other inputs are
/// still converted.
struct Converter {
    LineKind kind;
    std::function<Afterwards(const Input&, Console&)> convert; ///< runs beside itself on other inputs
    std::function<void(Console&)> finish = [](Console&) {};    ///< writes what is left in the end
};

/// Converts all inputs; results have the order of the inputs. Returns the exit status.
int ConvertStream(const ConversionOptions& options, const Streams& streams, const Converter& converter);

/// The same for conversions of which nothing is left to do afterwards.
int ConvertAll(const ConversionOptions& options, const Streams& streams, LineKind kind,
               const std::function<void(const Input&, Console&)>& convert);

/// What is wrong with a number on the command line, which would be read as octal; nothing for others.
std::string FaultOfDecimal(const std::string& text);

/// The input has failed: an object in JSON Lines, else a message.
void Fail(Console& console, const Input& input, const std::string& message);

} // namespace qxpdu

#endif
