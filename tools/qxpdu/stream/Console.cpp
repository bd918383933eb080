#include "stream/Console.h"

#include <iterator>

#include <fmt/format.h>

#include "show/CodeUnits.h"
#include "show/Json.h"

namespace qxpdu {

namespace {

constexpr int c_indent = 2;
constexpr std::string_view c_betweenBlocks = "\n";
constexpr std::string_view c_betweenObjects = ",\n  ";

std::string Dumped(const show::Json& object, int indent) {
    return object.dump(indent, ' ', false, show::Json::error_handler_t::replace);
}

/// The object as it stands inside the array.
std::string Indented(const show::Json& object) {
    std::string text;
    for (const char character : Dumped(object, c_indent)) {
        text += character;
        if (character == '\n')
            text.append(c_indent, ' ');
    }
    return text;
}

} // namespace

void Console::Line(std::string_view text) {
    m_Out += text;
    m_Out += '\n';
}

void Console::Block(std::string_view text) {
    if (m_Out.empty())
        m_Separator = c_betweenBlocks.size();
    m_Out += c_betweenBlocks;
    m_Out += text;
}

void Console::Object(const show::Json& object) {
    if (WantsJsonLines())
        return Line(show::WithoutMarks(Dumped(object, -1)));
    if (m_Out.empty())
        m_Separator = c_betweenObjects.size();
    m_Out += c_betweenObjects;
    m_Out += show::WithoutMarks(Indented(object));
}

/// An array is indented and thus for persons, who have time.
void Console::Object(show::JsonText& object) {
    const std::string_view text = object.Finish();
    if (WantsJsonLines())
        return Line(object.HasOthers() && show::HasMarks(text) ? show::WithoutMarks(text) : text);
    Object(show::Json::parse(text));
}

void Console::Warning(std::string_view where, std::string_view message) {
    fmt::format_to(std::back_inserter(m_Err), "qxpdu: {}: warning: {}\n", where, message);
}

void Console::Error(std::string_view where, std::string_view message) {
    Failed();
    fmt::format_to(std::back_inserter(m_Err), "qxpdu: {}: {}\n", where, message);
}

} // namespace qxpdu
