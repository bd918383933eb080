// The options that commands have in common.
#ifndef QXPDU_OPTIONS_H
#define QXPDU_OPTIONS_H

#include <optional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "stream/Conversion.h"

namespace qxpdu {

/// What all commands that convert one input after the other have in common.
struct ConversionOptions {
    bool json = false;
    bool jsonLines = false;
    bool lineBuffered = false;
    std::optional<bool> progress;
    unsigned int threads = 1;
    const CLI::Option* inputs = nullptr; ///< the arguments to convert
    const CLI::Option* files = nullptr;  ///< where the command takes any

    ConversionSettings Settings() const;
};

/// Adds the input arguments, named `name`, and --json.
void AddConversion(CLI::App& command, ConversionOptions& options, const std::string& name,
                   const std::string& description);

/// Adds --json.
CLI::Option* AddJson(CLI::App& command, ConversionOptions& options);

/// Adds --file.
void AddFiles(CLI::App& command, ConversionOptions& options);

/// Adds --jsonl, --line-buffered, --progress, --no-progress, and -j; --json is there already.
void AddStreaming(CLI::App& command, ConversionOptions& options);

/// The arguments, as the command line is to be given them: what it would take for a list, or for an option
/// though "--" came before, is put under a shield. Each file gets an option of its own.
std::vector<std::string> Shielded(const std::vector<std::string>& arguments);

/// A message about them without the shields.
std::string WithoutShields(std::string message);

/// An argument as the user gave it.
std::string Unshielded(const std::string& argument);

/// The values of an option as the user gave them.
std::vector<std::string> ValuesOf(const CLI::Option* option);

/// What is wrong with a number on the command line, which would be read as octal; nothing for others.
std::string FaultOfDecimal(const std::string& text);

} // namespace qxpdu

#endif
