// Counts in words.
#ifndef QXPDU_PLURAL_H
#define QXPDU_PLURAL_H

#include <cstdint>
#include <string>
#include <string_view>

namespace qxpdu {

/// "1 octet", "2 octets".
std::string Counted(std::uint64_t count, std::string_view unit);

} // namespace qxpdu

#endif
