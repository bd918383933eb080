// Cell broadcast on its way out.
#ifndef QXPDU_CELLENCODE_H
#define QXPDU_CELLENCODE_H

#include "commands/Commands.h"

namespace qxpdu {

/// Adds the command "encode" to "cell".
void AddCellEncode(CLI::App& parent, Action& action);

} // namespace qxpdu

#endif
