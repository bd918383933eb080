// Cell broadcast on its way out.
#ifndef QXPDU_CELLENCODE_H
#define QXPDU_CELLENCODE_H

#include "commands/Command.h"

namespace qxpdu {

/// Adds the command "encode" to "cell".
void AddCellEncode(const Command& parent);

} // namespace qxpdu

#endif
