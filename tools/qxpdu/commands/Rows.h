// Messages as lines and as rows of a table.
#ifndef QXPDU_ROWS_H
#define QXPDU_ROWS_H

#include <functional>
#include <string>
#include <vector>

#include "commands/Options.h"
#include "show/Columns.h"

namespace qxpdu {

/// What the user wants of a message in place of all its fields.
struct RowOptions {
    bool isBrief = false;
    std::vector<show::Column> columns;
    unsigned int inputColumn = 0; ///< of a line that is a row itself, from 1; 0 where the line is the PDU
    bool hasNoHeading = false;
    bool isEachLine = false; ///< a line for each, of which an engine may make pieces

    bool AreWanted() const { return isBrief || !columns.empty(); }
    bool AreLinesRows() const { return inputColumn != 0 || isEachLine; }
};

/// Adds --brief, --columns, --input-column, --no-heading and --each-line; --json, --jsonl, --as and --join
/// are there already.
void AddRows(const Command& command, RowOptions& options);

void ShowRow(const RowOptions& options, const show::Row& row, Console& console);

/// The line before all rows; empty where there is none. REQUIRES that lines are no rows: these bring their
/// own.
std::string HeadingOf(const RowOptions& options);

/// Reads the input that a PDU is; throws InputError.
using ReadRow = std::function<show::Row(const Input&, Console&)>;

/// Where lines are rows: puts the columns in place of the PDU, and the others pass through. The first line of
/// each source is its heading, of which the first is written. A row without a message says why.
/// With --each-line a line goes by itself: none is a heading, one without a message has failed nothing but
/// tells its error, and an empty one stays empty. Throws CommandLineError for a column that counts lines.
int ConvertRows(const ConversionSettings& settings, const RowOptions& options, const Streams& streams,
                const ReadRow& read);

} // namespace qxpdu

#endif
