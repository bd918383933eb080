// The commands, one source file each.
#ifndef QXPDU_COMMANDS_H
#define QXPDU_COMMANDS_H

#include "commands/Command.h"

namespace qxpdu {

/// Each adds its command to `parent`.
void AddEncode(const Command& parent);
void AddDecode(const Command& parent);
void AddCount(const Command& parent);
void AddInspect(const Command& parent);
void AddCell(const Command& parent);
void AddText(const Command& parent);
void AddUcs2(const Command& parent);
void AddGsm(const Command& parent);

} // namespace qxpdu

#endif
