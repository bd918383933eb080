#include "characters/UnicodeNames.h"

#include <algorithm>

namespace qxpdu {

namespace {

struct Range {
    char32_t first;
    char32_t last;
    const char* name;
};

/// In rising order.
constexpr Range c_ranges[] = {
#include "UnicodeNames.inc"
};

} // namespace

std::string_view NameOfCharacter(char32_t codePoint) {
    const auto* const range =
        std::partition_point(std::begin(c_ranges), std::end(c_ranges),
                             [codePoint](const Range& each) { return each.last < codePoint; });
    return range != std::end(c_ranges) && range->first <= codePoint ? range->name : std::string_view();
}

} // namespace qxpdu
