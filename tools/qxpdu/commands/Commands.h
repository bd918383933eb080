// The commands, one source file each.
#ifndef QXPDU_COMMANDS_H
#define QXPDU_COMMANDS_H

#include <functional>

#include <CLI/CLI.hpp>

#include "stream/Console.h"

namespace qxpdu {

/// What the chosen command does once the command line is read; returns the exit status.
using Action = std::function<int(const Streams&)>;

/// Each adds its command to `parent`; reading a command line that names it sets `action`.
void AddEncode(CLI::App& parent, Action& action);
void AddDecode(CLI::App& parent, Action& action);
void AddCount(CLI::App& parent, Action& action);
void AddInspect(CLI::App& parent, Action& action);
void AddCell(CLI::App& parent, Action& action);
void AddText(CLI::App& parent, Action& action);
void AddUcs2(CLI::App& parent, Action& action);
void AddGsm(CLI::App& parent, Action& action);

} // namespace qxpdu

#endif
