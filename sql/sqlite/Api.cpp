#include "sql/sqlite/Api.h"

#include <cstddef>
#include <string>
#include <type_traits>

namespace sql {

namespace {

template <class... Ts>
struct Overloaded : Ts... {
    using Ts::operator()...;
};
template <class... Ts>
Overloaded(Ts...) -> Overloaded<Ts...>;

/// What has no octet has no place either; otherwise there was no memory for it.
std::string_view ViewOf(const void* data, std::size_t size) {
    if (size != 0 && data == nullptr)
        throw std::bad_alloc();
    return {static_cast<const char*>(data), size};
}

std::string_view OctetsIn(sqlite3_value* value, bool isText) {
    const void* const data = isText ? sqlite3_value_text(value) : sqlite3_value_blob(value);
    return ViewOf(data, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

} // namespace

std::optional<Given> GivenIn(sqlite3_value* value) {
    const int type = sqlite3_value_type(value);
    if (type == SQLITE_NULL)
        return std::nullopt;
    if (type != SQLITE_BLOB && type != SQLITE_TEXT)
        throw Misuse("a PDU is a BLOB or hexadecimal text, and no number");
    const bool isText = type == SQLITE_TEXT;
    // zeroblob() makes its octets when they are asked for.
    const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
    if (const Given given{{static_cast<const char*>(nullptr), size}, isText}; given.IsTooLong())
        return given;
    return Given{OctetsIn(value, isText), isText};
}

std::optional<std::string_view> TextIn(sqlite3_value* value) {
    const int type = sqlite3_value_type(value);
    if (type == SQLITE_NULL)
        return std::nullopt;
    if (type == SQLITE_BLOB)
        throw Misuse("a BLOB where there should be text");
    return OctetsIn(value, true);
}

std::optional<std::int64_t> NumberIn(sqlite3_value* value) {
    const int type = sqlite3_value_type(value);
    if (type == SQLITE_NULL)
        return std::nullopt;
    if (type != SQLITE_INTEGER)
        throw Misuse("a reference is an integer");
    return sqlite3_value_int64(value);
}

std::optional<Question> QuestionIn(sqlite3_value** arguments, bool hasOptions) {
    const std::optional<Given> given = GivenIn(arguments[0]);
    const std::optional<std::string_view> options = hasOptions ? TextIn(arguments[1]) : "";
    return given && options ? std::optional(Question{*given, *options}) : std::nullopt;
}

void SetResult(sqlite3_context* context, const Value& value) {
    std::visit(Overloaded{[&](std::monostate) { sqlite3_result_null(context); },
                          [&](std::int64_t number) { sqlite3_result_int64(context, number); },
                          [&](const std::string& text) {
                              sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT,
                                                    SQLITE_UTF8);
                          }},
               value);
}

} // namespace sql
