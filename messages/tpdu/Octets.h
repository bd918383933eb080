// Digit pairs made octets, and where they are none.
#ifndef TPDU_OCTETS_H
#define TPDU_OCTETS_H

#include <optional>
#include <string_view>
#include <vector>

#include "Messages/Octets.h"

namespace Messages {

/// Reads digit pairs into `octets`, written anew; where a pair is none, or lacks a digit, its number, from 0,
/// is returned, and there are no octets.
std::optional<std::size_t> ReadOctets(std::string_view digits, std::vector<std::uint8_t>& octets);

} // namespace Messages

#endif
