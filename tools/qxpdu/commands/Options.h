// The options that commands have in common.
#ifndef QXPDU_OPTIONS_H
#define QXPDU_OPTIONS_H

#include <optional>
#include <string>

#include "commands/Command.h"
#include "stream/Conversion.h"

namespace qxpdu {

/// What all commands that convert one input after the other have in common.
struct ConversionOptions {
    bool json = false;
    bool jsonLines = false;
    bool lineBuffered = false;
    std::optional<bool> progress;
    unsigned int threads = 1;
    std::optional<Option> inputs; ///< the arguments to convert
    std::optional<Option> files;  ///< where the command takes any

    ConversionSettings Settings() const;
};

/// The library whose reading and writing can be had in place of the standards', as options name it.
inline constexpr const char* c_host = "libQX_Encoding";

/// What is wrong with any other name.
std::string FaultOfHost(const std::string& name);

/// Adds the input arguments, named `name`, and --json.
void AddConversion(const Command& command, ConversionOptions& options, const std::string& name,
                   const std::string& description);

/// Adds the argument of a command that sends one text, and --lines.
void AddSentText(const Command& command, ConversionOptions& options, bool& lines);

/// Adds --json.
Option AddJson(const Command& command, ConversionOptions& options);

/// Adds --file.
void AddFiles(const Command& command, ConversionOptions& options);

/// Adds --jsonl, --line-buffered, --progress, --no-progress, and -j; --json is there already.
void AddStreaming(const Command& command, ConversionOptions& options);

} // namespace qxpdu

#endif
