#include "show/Plural.h"

#include <fmt/format.h>

namespace show {

std::string Counted(std::uint64_t count, std::string_view unit) {
    return fmt::format("{} {}{}", count, unit, count == 1 ? "" : "s");
}

} // namespace show
