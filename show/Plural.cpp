#include "show/Plural.h"

namespace show {

std::string Counted(std::uint64_t count, std::string_view unit) {
    std::string text = std::to_string(count);
    text += ' ';
    text += unit;
    if (count != 1)
        text += 's';
    return text;
}

} // namespace show
