// Counts in words.
#ifndef SHOW_PLURAL_H
#define SHOW_PLURAL_H

#include <cstdint>
#include <string>
#include <string_view>

namespace show {

/// "1 octet", "2 octets".
std::string Counted(std::uint64_t count, std::string_view unit);

} // namespace show

#endif
