// Numbers as the user writes them, and the ports of a message.
#ifndef QXPDU_NUMBERS_H
#define QXPDU_NUMBERS_H

#include <optional>
#include <string>
#include <string_view>

#include "Messages/Header.h"

namespace qxpdu {

/// Decimal without leading zeros or, after 0x, hexadecimal.
std::optional<int> NumberOf(std::string_view text, int most);

/// What is wrong with the bits of a reference or of ports: they are 8 or 16.
std::string FaultOfBits(const std::string& bits);

/// What is wrong with "TO" or "TO:FROM".
std::string FaultOfPorts(const std::string& ports);

/// None of an empty text. REQUIRES that nothing is wrong with it.
std::optional<Messages::Ports> PortsIn(std::string_view ports, std::string_view bits);

} // namespace qxpdu

#endif
