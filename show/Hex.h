// Octets as hexadecimal text.
#ifndef QXPDU_HEX_H
#define QXPDU_HEX_H

#include <cstddef>
#include <string>

namespace qxpdu {

/// Two upper-case digits an octet.
std::string Hex(const unsigned char* octets, std::size_t count);

} // namespace qxpdu

#endif
