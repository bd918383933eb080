// Named values as aligned lines.
#ifndef SHOW_LINES_H
#define SHOW_LINES_H

#include <string>
#include <string_view>
#include <vector>

namespace show {

/// A name with its value on the wire and what that means, "TP-DCS 0x19: UCS2, class 1", and notes below.
struct Line {
    std::string_view name;
    std::string raw;     ///< may be empty
    std::string meaning; ///< may be empty, and have lines
    std::vector<std::string> notes;
};

/// The names right-aligned, what is below a line indented. Made safe for a terminal.
std::string Aligned(const std::vector<Line>& lines);

} // namespace show

#endif
