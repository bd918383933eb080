#include "Console.h"

#include <string>

#include <fmt/format.h>

namespace qxpdu {

namespace {

constexpr int c_indent = 2;

/// The object as it stands inside the array.
std::string Indented(const Json& object) {
    std::string text = object.dump(c_indent, ' ', false, Json::error_handler_t::replace);
    for (std::size_t feed = text.find('\n'); feed != std::string::npos; feed = text.find('\n', feed + 1))
        text.insert(feed + 1, c_indent, ' ');
    return text;
}

} // namespace

Console::Console(const Streams& streams, Format format) : m_Streams(streams), m_Format(format) {}

void Console::ResultWritten() {
    m_Any = true;
    if (m_Streams.outIsTerminal)
        m_Streams.out.flush();
}

void Console::Line(std::string_view text) {
    m_Streams.out << text << '\n';
    ResultWritten();
}

void Console::Block(std::string_view text) {
    m_Streams.out << (m_Any ? "\n" : "") << text;
    ResultWritten();
}

void Console::Object(const Json& object) {
    m_Streams.out << (m_Any ? ",\n  " : "[\n  ") << Indented(object);
    ResultWritten();
}

void Console::Warning(std::string_view where, std::string_view message) {
    m_Streams.err << fmt::format("qxpdu: {}: warning: {}\n", where, message);
}

void Console::Error(std::string_view where, std::string_view message) {
    Failed();
    m_Streams.err << fmt::format("qxpdu: {}: {}\n", where, message);
}

int Console::Finish() {
    if (WantsJson())
        m_Streams.out << (m_Any ? "\n]\n" : "[]\n");
    m_Streams.out.flush();
    if (!m_Streams.out) {
        m_Streams.err << "qxpdu: standard output: cannot be written\n";
        Failed();
    }
    return m_Status;
}

} // namespace qxpdu
