#include "web/module/Names.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>
#include <vector>

#include "characters/UnicodeNames.h"

namespace qxpdu {

namespace {

struct Range {
    std::uint32_t first;
    std::uint32_t last;
    std::string_view name;
};

/// One instance of the module has one table.
struct Names {
    std::string rows;
    std::vector<Range> ranges; ///< in rising order
    bool wereWanted = false;
};

Names& TheNames() {
    static Names names;
    return names;
}

std::uint32_t TakeNumber(std::string_view& row) {
    constexpr int c_hexadecimal = 16;
    row.remove_prefix(std::min(row.find('x'), row.size() - 1) + 1);
    std::uint32_t number = 0;
    std::from_chars(row.data(), row.data() + row.size(), number, c_hexadecimal);
    return number;
}

Range RangeIn(std::string_view row) {
    const std::uint32_t first = TakeNumber(row);
    const std::uint32_t last = TakeNumber(row);
    const std::size_t begin = row.find('"') + 1;
    return {first, last, row.substr(begin, row.rfind('"') - begin)};
}

} // namespace

void SetNames(std::string rows) {
    Names& names = TheNames();
    names.rows = std::move(rows);
    names.ranges.clear();
    const std::string_view all = names.rows;
    for (std::size_t begin = 0, end = 0; (end = all.find('\n', begin)) != std::string_view::npos;
         begin = end + 1) {
        if (end != begin)
            names.ranges.push_back(RangeIn(all.substr(begin, end - begin)));
    }
}

bool WereNamesWanted() {
    return std::exchange(TheNames().wereWanted, false);
}

std::string_view NameOfCharacter(char32_t codePoint) {
    Names& names = TheNames();
    names.wereWanted = names.wereWanted || names.ranges.empty();
    const auto range = std::partition_point(names.ranges.begin(), names.ranges.end(),
                                            [codePoint](const Range& each) { return each.last < codePoint; });
    return range != names.ranges.end() && range->first <= codePoint ? range->name : std::string_view();
}

} // namespace qxpdu
