// Cell broadcast pages among other PDUs.
#ifndef QXPDU_CELL_H
#define QXPDU_CELL_H

#include "show/Columns.h"
#include "stream/Console.h"
#include "stream/Inputs.h"

namespace qxpdu {

/// Shows one page by itself; throws InputError.
void ShowCellPage(const Input& input, Console& console);

/// One page as a row, from its message identifier; in another alphabet than GSM 7-bit its content is data.
/// Throws InputError.
show::Row RowOfCellPage(const Input& input, Console& console);

} // namespace qxpdu

#endif
