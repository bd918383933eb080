// Digit pairs made octets, and where they are none.
#ifndef TPDU_OCTETS_H
#define TPDU_OCTETS_H

#include <optional>
#include <string_view>
#include <vector>

#include "Messages/Octets.h"

namespace Messages {

/// Appends octets until a pair is none, or lacks a digit: its number, from 0, is returned.
std::optional<std::size_t> AppendOctets(std::string_view digits, std::vector<std::uint8_t>& octets);

} // namespace Messages

#endif
