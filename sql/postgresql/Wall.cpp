#include "sql/postgresql/Wall.h"

#include <algorithm>
#include <concepts>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "show/JsonText.h"
#include "sql/functions/Functions.h"

namespace {

using sql::Given;
using sql::Value;

std::string_view ViewOf(const qx_view& view) {
    return {view.data, view.size};
}

Given GivenOf(const qx_given& given) {
    return {ViewOf(given.content), given.is_text};
}

/// What a text of the server cannot hold.
constexpr std::string_view c_replacement = "\xEF\xBF\xBD"; // U+FFFD

void ReplaceNul(std::string& text) {
    for (std::size_t at = text.find('\0'); at != std::string::npos; at = text.find('\0', at))
        text.replace(at, 1, c_replacement);
}

/// The same where it is written out in JSON, after an even number of backslashes.
void ReplaceWrittenNul(std::string& json) {
    constexpr std::string_view c_written = "\\u0000";
    for (std::size_t at = 0; (at = json.find('\\', at)) != std::string::npos;) {
        if (json.compare(at, c_written.size(), c_written) == 0)
            json.replace(at, c_written.size(), c_replacement);
        else
            at += 2; // the next character belongs to it
    }
}

qx_value Copied(qx_kind kind, std::string_view text) {
    qx_value value{kind, 0, static_cast<char*>(std::malloc(text.size() + 1)), text.size()};
    if (value.text == nullptr)
        throw std::bad_alloc();
    std::memcpy(value.text, text.data(), text.size());
    return value;
}

struct Hander {
    bool isJson;

    qx_value operator()(std::monostate) const { return {QX_NULL, 0, nullptr, 0}; }
    qx_value operator()(std::int64_t number) const { return {QX_NUMBER, number, nullptr, 0}; }
    qx_value operator()(std::string& text) const {
        isJson ? ReplaceWrittenNul(text) : ReplaceNul(text);
        return Copied(QX_TEXT, text);
    }
};

qx_value HandOut(Value value, bool isJson) {
    return std::visit(Hander{isJson}, value);
}

/// Calls what gives a value; an exception becomes one.
template <std::invocable Action>
qx_value Guarded(Action&& action) noexcept {
    constexpr qx_value c_noMemory{QX_NO_MEMORY, 0, nullptr, 0};
    try {
        return std::forward<Action>(action)();
    } catch (const sql::Misuse& misuse) {
        try {
            return Copied(QX_MISUSE, misuse.what());
        } catch (const std::exception&) {
            return c_noMemory;
        }
    } catch (const std::exception&) { // of a standard library that is asked for nothing but memory
        return c_noMemory;
    }
}

/// A server process has one thread, and never gives this back.
sql::PduReader& Reader() {
    static auto& reader = *new sql::PduReader();
    return reader;
}

void WriteRow(const sql::FieldRow& row, show::JsonText& object) {
    object.Member("name", row.name);
    if (const auto* number = std::get_if<std::int64_t>(&row.value))
        object.Member("value", *number);
    else if (const auto* text = std::get_if<std::string>(&row.value))
        object.Member("value", std::string_view(*text));
    if (!row.meaning.empty())
        object.Member("meaning", std::string_view(row.meaning));
    object.Member("octet", row.octet);
    object.Member("length", row.length);
    object.Member("mask", row.mask);
}

/// An array of the rows.
Value FieldsOf(const Given& given, std::string_view options) {
    const show::Message* const message = Reader().Read(given, options);
    if (message == nullptr)
        return "[]";
    show::JsonText object;
    object.Array("fields", [&] {
        for (const sql::FieldRow& row : sql::FieldRowsOf(*message))
            object.Element([&] { WriteRow(row, object); });
    });
    return std::string(sql::ArrayIn(object.Finish()));
}

bool IsJson(std::string_view name) {
    return name.ends_with("_json") || name == "sms_remarks" || name == "sms_fields";
}

/// The function with a name; null where it is none of these.
template <class Functions>
auto* Find(const Functions& functions, std::string_view name) {
    const auto found =
        std::find_if(functions.begin(), functions.end(), [&](const auto& one) { return one.name == name; });
    return found == functions.end() ? nullptr : &*found;
}

Value Call(std::string_view name, const Given& given, std::string_view options) {
    if (const auto* function = Find(sql::c_messageFunctions, name))
        return sql::Call(*function, Reader(), given, options);
    if (const auto* function = Find(sql::c_broadcastFunctions, name))
        return sql::Call(*function, given, options);
    if (name == "sms_error")
        return sql::ErrorOf(Reader(), given, options);
    if (name == "cbs_error")
        return sql::BroadcastErrorOf(given, options);
    return FieldsOf(given, options);
}

} // namespace

bool qx_is_too_long(size_t size, bool is_text) {
    return Given{{static_cast<const char*>(nullptr), size}, is_text}.IsTooLong();
}

qx_value qx_call(const char* name, qx_given given, qx_view options) {
    return Guarded([&] { return HandOut(Call(name, GivenOf(given), ViewOf(options)), IsJson(name)); });
}

qx_value qx_encode(qx_view number, qx_view text, const int64_t* reference) {
    return Guarded([&] {
        const auto told = reference != nullptr ? std::optional(*reference) : std::nullopt;
        return HandOut(sql::Encode(ViewOf(number), ViewOf(text), told), true);
    });
}

qx_value qx_join(const qx_view* pdus, size_t count, bool are_text) {
    return Guarded([&] {
        sql::JoinedText joined;
        for (std::size_t i = 0; i < count; ++i) {
            if (pdus[i].data == nullptr)
                continue;
            if (const auto* message = Reader().Read({ViewOf(pdus[i]), are_text}))
                joined.Add(*message);
        }
        return HandOut(joined.Finish(), false);
    });
}
