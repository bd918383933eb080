#include "commands/Help.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

#include "show/CodeUnits.h"

namespace qxpdu {

namespace {

constexpr std::size_t c_columns = 80;

bool IsAtMargin(std::string_view line) {
    return !line.empty() && line.front() != ' ';
}

/// Where the text of a line begins: in its right column, if it has two; npos where there is none.
std::size_t IndentOf(std::string_view line) {
    const std::size_t first = line.find_first_not_of(' ');
    const std::size_t gap = line.find("  ", first);
    return first == 0 || gap == std::string_view::npos ? first : line.find_first_not_of(' ', gap);
}

/// The last blank that leaves no more than the columns before it, else the first one; npos where there is
/// none.
std::size_t BreakIn(std::string_view line, std::size_t indent) {
    std::size_t best = line.find(' ', indent);
    for (std::size_t blank = best; blank != std::string_view::npos; blank = line.find(' ', blank + 1)) {
        if (show::CharactersIn(line.substr(0, blank)) > c_columns)
            break;
        best = blank;
    }
    return best;
}

void AppendWrapped(std::string line, std::string& wrapped) {
    const std::size_t indent = IndentOf(line);
    while (show::CharactersIn(line) > c_columns) {
        const std::size_t blank = BreakIn(line, indent);
        if (blank == std::string::npos)
            break;
        wrapped += line.substr(0, blank) + '\n';
        line = std::string(indent, ' ') + line.substr(blank + 1);
    }
    wrapped += line + '\n';
}

/// Letters to leave out, to put in or to change.
std::size_t Distance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < to.size(); ++j) {
            const std::size_t changed = diagonal + (from[i] == to[j] ? 0 : 1);
            diagonal = std::exchange(row[j + 1], std::min({changed, row[j] + 1, row[j + 1] + 1}));
        }
    }
    return row.back();
}

} // namespace

std::string Wrapped(std::string_view text) {
    std::string wrapped;
    std::string paragraph;
    const auto end = [&] {
        if (!paragraph.empty())
            AppendWrapped(std::exchange(paragraph, {}), wrapped);
    };
    while (!text.empty()) {
        const std::size_t feed = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, feed);
        if (IsAtMargin(line)) {
            paragraph += (paragraph.empty() ? "" : " ") + std::string(line);
            if (line.ends_with(':'))
                end();
        } else {
            end();
            AppendWrapped(std::string(line), wrapped);
        }
        text.remove_prefix(std::min(feed + 1, text.size()));
    }
    end();
    return wrapped;
}

std::string Nearest(std::string_view given, const std::vector<std::string>& known) {
    constexpr std::size_t c_most = 2;
    const auto nearest = std::min_element(known.begin(), known.end(),
                                          [given](const std::string& left, const std::string& right) {
                                              return Distance(given, left) < Distance(given, right);
                                          });
    const bool isNear =
        nearest != known.end() && Distance(given, *nearest) <= std::min(c_most, given.size() / 2);
    return isNear ? *nearest : std::string();
}

} // namespace qxpdu
