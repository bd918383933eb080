#include "sql/postgresql/Wall.h"

#include <algorithm>
#include <array>
#include <concepts>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

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

Value ErrorOf(const Given& given, std::string_view options) {
    return sql::ErrorOf(Reader(), given, options);
}

/// One that neither of the libraries' tables has.
using OtherFunction = Value (*)(const Given& given, std::string_view options);

struct Caller {
    Given given;
    std::string_view options;

    Value operator()(const sql::MessageFunction& function) const {
        return sql::Call(function, Reader(), given, options);
    }
    Value operator()(const sql::BroadcastFunction& function) const {
        return sql::Call(function, given, options);
    }
    Value operator()(OtherFunction function) const { return function(given, options); }
};

} // namespace

struct qx_function {
    std::string_view name;
    std::variant<OtherFunction, sql::MessageFunction, sql::BroadcastFunction> called;

    bool IsJson() const { return name.ends_with("_json") || name == "sms_remarks" || name == "sms_fields"; }
};

namespace {

constexpr std::array<qx_function, 3> c_others = {
    {{"sms_error", ErrorOf}, {"cbs_error", sql::BroadcastErrorOf}, {"sms_fields", FieldsOf}}};

auto AllFunctions() {
    std::array<qx_function,
               c_others.size() + sql::c_messageFunctions.size() + sql::c_broadcastFunctions.size()>
        all;
    const auto entry = [](const auto& function) { return qx_function{function.name, function}; };
    auto end = std::copy(c_others.begin(), c_others.end(), all.begin());
    end = std::transform(sql::c_messageFunctions.begin(), sql::c_messageFunctions.end(), end, entry);
    std::transform(sql::c_broadcastFunctions.begin(), sql::c_broadcastFunctions.end(), end, entry);
    return all;
}

} // namespace

struct qx_group {
    sql::JoinedText joined;
};

bool qx_is_too_long(size_t size, bool is_text) {
    return Given{{static_cast<const char*>(nullptr), size}, is_text}.IsTooLong();
}

const qx_function* qx_find(const char* name) {
    static const auto c_functions = AllFunctions();
    const auto* const found = std::find_if(c_functions.begin(), c_functions.end(),
                                           [name](const qx_function& one) { return one.name == name; });
    return found == c_functions.end() ? nullptr : found;
}

qx_value qx_call(const qx_function* function, qx_given given, qx_view options) {
    return Guarded([&] {
        return HandOut(std::visit(Caller{GivenOf(given), ViewOf(options)}, function->called),
                       function->IsJson());
    });
}

qx_value qx_encode(qx_view number, qx_view text, const int64_t* reference) {
    return Guarded([&] {
        const auto told = reference != nullptr ? std::optional(*reference) : std::nullopt;
        return HandOut(sql::Encode(ViewOf(number), ViewOf(text), told), true);
    });
}

qx_group* qx_begin_group() {
    try {
        return new qx_group();
    } catch (const std::exception&) { // as in Guarded()
        return nullptr;
    }
}

qx_value qx_add_to_group(qx_group* group, qx_given given) {
    return Guarded([&] {
        if (const auto* message = Reader().Read(GivenOf(given)))
            group->joined.Add(*message);
        return HandOut({}, false);
    });
}

qx_value qx_finish_group(qx_group* group) {
    return Guarded([&] { return HandOut(group->joined.Finish(), false); });
}

void qx_end_group(void* group) {
    delete static_cast<qx_group*>(group);
}
