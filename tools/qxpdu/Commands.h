// The commands, one source file each.
#ifndef QXPDU_COMMANDS_H
#define QXPDU_COMMANDS_H

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <CLI/CLI.hpp>

#include "Console.h"
#include "Inputs.h"

namespace qxpdu {

/// What the chosen command does once the command line is read; returns the exit status.
using Action = std::function<int(const Streams&)>;

/// Each adds its command to `parent`; reading a command line that names it sets `action`.
void AddEncode(CLI::App& parent, Action& action);
void AddDecode(CLI::App& parent, Action& action);
void AddCell(CLI::App& parent, Action& action);
void AddText(CLI::App& parent, Action& action);
void AddUcs2(CLI::App& parent, Action& action);
void AddGsm(CLI::App& parent, Action& action);

/// What all commands that convert one input after the other have in common.
struct ConversionOptions {
    bool json = false;
    const CLI::Option* inputs = nullptr; ///< the arguments to convert
};

/// What the lines of standard input are.
enum class LineKind {
    Hex, ///< blank lines are skipped
    Text ///< every line counts as it stands
};

/// Adds the input arguments, named `name`, and --json.
void AddConversion(CLI::App& command, ConversionOptions& options, const std::string& name,
                   const std::string& description);

/// An argument as the user gave it.
std::string Unshielded(const std::string& argument);

/// The values of an option as the user gave them.
std::vector<std::string> ValuesOf(const CLI::Option* option);

/// Converts the inputs one after the other. What `convert` throws as an InputError is reported; the other
/// inputs are still converted. `finish` writes what is left in the end. Returns the exit status.
int ConvertAll(
    const ConversionOptions& options, const Streams& streams, LineKind kind,
    const std::function<void(const Input&, Console&)>& convert,
    const std::function<void(Console&)>& finish = [](Console&) {});

} // namespace qxpdu

#endif
