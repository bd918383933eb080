// Octets as pairs of hexadecimal digits, high digit first: how PDUs travel as text.
//
// There is a plain way, without a branch or a table, which compilers turn into vectors on every machine that
// has them, and one by SSE2, which every x86-64 has. Both do the same.
#ifndef WIRE_HEXADECIMAL_H
#define WIRE_HEXADECIMAL_H

#include <cstddef>

namespace Wire {

constexpr unsigned char c_noDigit = 0xFF;

/// What a digit of either case is worth; c_noDigit for what is none.
constexpr unsigned char ValueOfDigit(char digit) {
    const auto decimal = static_cast<unsigned char>(digit - '0');
    const auto letter = static_cast<unsigned char>((digit | 0x20) - 'a');
    const auto value = static_cast<unsigned char>(letter < 6 ? letter + 10 : c_noDigit);
    return decimal < 10 ? decimal : value;
}

/// Writes two upper-case digits for each octet.
void WriteHexadecimal(const unsigned char* octets, std::size_t count, char* digits);

/// Reads `count` pairs of digits, of either case, into octets. Returns false when a character is no digit;
/// what the octets hold then is of no use.
bool ReadHexadecimal(const char* digits, std::size_t count, unsigned char* octets);

/// The plain way.
namespace Plainly {
void WriteHexadecimal(const unsigned char* octets, std::size_t count, char* digits);
bool ReadHexadecimal(const char* digits, std::size_t count, unsigned char* octets);
} // namespace Plainly

} // namespace Wire

#endif
