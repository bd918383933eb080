// Octets as hexadecimal text.
#ifndef SHOW_HEX_H
#define SHOW_HEX_H

#include <cstddef>
#include <string>

namespace show {

/// Two upper-case digits an octet.
std::string Hex(const unsigned char* octets, std::size_t count);

} // namespace show

#endif
