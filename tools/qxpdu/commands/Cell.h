// Cell broadcast pages among other PDUs.
#ifndef QXPDU_CELL_H
#define QXPDU_CELL_H

#include "stream/Console.h"
#include "stream/Inputs.h"

namespace qxpdu {

/// Shows one page by itself; throws InputError.
void ShowCellPage(const Input& input, Console& console);

} // namespace qxpdu

#endif
