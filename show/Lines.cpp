#include "show/Lines.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include "show/CodeUnits.h"

namespace show {

namespace {

/// The text for a terminal; a line of it after the first begins below the first.
void AppendContinued(std::string_view text, std::size_t indent, std::string& lines) {
    for (std::size_t feed = text.find('\n'); feed != std::string_view::npos; feed = text.find('\n')) {
        fmt::format_to(std::back_inserter(lines), "{}\n{:{}}", Printable(text.substr(0, feed)), "", indent);
        text.remove_prefix(feed + 1);
    }
    lines += Printable(text);
}

} // namespace

std::string Aligned(const std::vector<Line>& lines) {
    std::size_t width = 0;
    for (const Line& line : lines)
        width = std::max(width, line.name.size());
    std::string text;
    for (const Line& line : lines) {
        const bool hasBoth = !line.raw.empty() && !line.meaning.empty();
        fmt::format_to(std::back_inserter(text), "{:>{}}{}{}{}{}", line.name, width,
                       line.raw.empty() ? "" : " ", line.raw, hasBoth ? ":" : "",
                       line.meaning.empty() ? "" : " ");
        AppendContinued(line.meaning, width + 1, text);
        text += '\n';
        for (const std::string& note : line.notes)
            fmt::format_to(std::back_inserter(text), "{:{}}{}\n", "", width + 1, Printable(note));
    }
    return text;
}

} // namespace show
