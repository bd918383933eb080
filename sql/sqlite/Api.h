// SQLite's interface to extensions in C++'s words. No exception gets into SQLite.
#ifndef SQL_API_H
#define SQL_API_H

#include <concepts>
#include <cstdint>
#include <exception>
#include <new>
#include <optional>
#include <string_view>
#include <utility>

#include <sqlite3ext.h>

#include "sql/functions/Values.h"

#define SQL_API __attribute__((visibility("default")))

extern const sqlite3_api_routines* sqlite3_api; // made by SQLITE_EXTENSION_INIT1

namespace sql {

/// A PDU or a page: a BLOB, or text; nothing for NULL. It is SQLite's, and lasts as long as the call. Of
/// content that is too long only the length is there. Throws Misuse for a number.
std::optional<Given> GivenIn(sqlite3_value* value);

/// Nothing for NULL. Throws Misuse for a BLOB.
std::optional<std::string_view> TextIn(sqlite3_value* value);

/// Nothing for NULL. Throws Misuse for what is no integer.
std::optional<std::int64_t> NumberIn(sqlite3_value* value);

/// What a function is asked about a PDU or a page.
struct Question {
    Given given;
    std::string_view options; ///< or a format
};

/// Nothing where one of the arguments is NULL.
std::optional<Question> QuestionIn(sqlite3_value** arguments, bool hasOptions);

void SetResult(sqlite3_context* context, const Value& value);

/// Calls; an exception becomes the error of the statement.
template <std::invocable Action>
void Guarded(sqlite3_context* context, Action&& action) noexcept {
    try {
        std::forward<Action>(action)();
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    } catch (const std::exception& error) {
        sqlite3_result_error(context, error.what(), -1);
    }
}

/// Calls what gives a result code; an exception becomes one.
template <std::invocable Action>
int Coded(Action&& action) noexcept {
    try {
        return std::forward<Action>(action)();
    } catch (const std::bad_alloc&) {
        return SQLITE_NOMEM;
    } catch (const std::exception&) {
        return SQLITE_ERROR;
    }
}

} // namespace sql

#endif
