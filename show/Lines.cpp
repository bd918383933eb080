#include "show/Lines.h"

#include <algorithm>

#include "show/CodeUnits.h"

namespace show {

namespace {

constexpr char c_blank = ' ';

/// The text for a terminal; a line of it after the first begins below the first.
void AppendContinued(std::string_view text, std::size_t indent, std::string& lines) {
    for (std::size_t feed = text.find('\n'); feed != std::string_view::npos; feed = text.find('\n')) {
        AppendPrintable(text.substr(0, feed), lines);
        lines += '\n';
        lines.append(indent, c_blank);
        text.remove_prefix(feed + 1);
    }
    AppendPrintable(text, lines);
}

void Append(const Line& line, std::size_t width, std::string& text) {
    text.append(width - line.name.size(), c_blank).append(line.name);
    if (!line.raw.empty())
        (text += c_blank) += line.raw;
    if (!line.raw.empty() && !line.meaning.empty())
        text += ':';
    if (!line.meaning.empty())
        text += c_blank;
    AppendContinued(line.meaning, width + 1, text);
    text += '\n';
    for (const std::string& note : line.notes) {
        text.append(width + 1, c_blank);
        AppendPrintable(note, text);
        text += '\n';
    }
}

} // namespace

std::string Aligned(const std::vector<Line>& lines) {
    std::size_t width = 0;
    for (const Line& line : lines)
        width = std::max(width, line.name.size());
    std::string text;
    for (const Line& line : lines)
        Append(line, width, text);
    return text;
}

} // namespace show
