// The rows of the alphabets' tables, cells as strings, and whose column is which.
#ifndef ALPHABET_ROWS_H
#define ALPHABET_ROWS_H

#include <cstddef>

#include "tables/Values.h"

namespace Messages {

/// The septet, then the default alphabet, then the languages that have such a table, in their order.
constexpr const char* c_lockingRows[][14] = {
#include "rows/locking-shift.inc"
};
constexpr const char* c_singleShiftRows[][15] = {
#include "rows/single-shift.inc"
};

/// Calls `visit(language, column)` for the default alphabet and for each language that has such a table.
template <class Visit>
constexpr void VisitColumns(Tables::YesNo Tables::LanguageRow::*hasTable, Visit visit) {
    std::size_t column = 1;
    visit(std::size_t{0}, column);
    for (const Tables::LanguageRow& language : Tables::c_languages)
        if (language.*hasTable)
            visit(static_cast<std::size_t>(language.value.value), ++column);
}

} // namespace Messages

#endif
