// What a statement tells of PDUs and pages beside their octets: "smsc=no, direction=to-mobile".
#ifndef SQL_OPTIONS_H
#define SQL_OPTIONS_H

#include <string_view>

#include "Messages/Cell.h"
#include "Messages/Read.h"

namespace sql {

/// Words between blanks, tabs, ends of lines and commas; none of them has to be there: smsc=yes|no,
/// direction=to-mobile|from-mobile, failure-cause=yes|no, length=N. Throws Misuse at any other, and at two
/// that contradict each other.
Messages::ReadOptions OptionsIn(std::string_view words);

/// gsm, umts or etws; empty for what the octets tell. Throws Misuse at any other.
Messages::CellFormat CellFormatIn(std::string_view word);

} // namespace sql

#endif
