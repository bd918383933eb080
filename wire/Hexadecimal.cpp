#include "wire/Hexadecimal.h"

namespace Wire {
namespace {

constexpr unsigned char c_noDigit = 0xFF;

constexpr char DigitOf(unsigned int value) {
    return static_cast<char>(value + (value < 10 ? '0' : 'A' - 10));
}

constexpr unsigned char ValueOf(char digit) {
    const auto decimal = static_cast<unsigned char>(digit - '0');
    const auto letter = static_cast<unsigned char>((digit | 0x20) - 'a'); // of either case
    const auto value = static_cast<unsigned char>(letter < 6 ? letter + 10 : c_noDigit);
    return decimal < 10 ? decimal : value;
}

} // namespace

// The arrays do not overlap, which spares the loops a test and a way of their own.
void WriteHexadecimal(const unsigned char* __restrict octets, std::size_t count, char* __restrict digits) {
    for (std::size_t i = 0; i < count; ++i) {
        digits[2 * i] = DigitOf(octets[i] >> 4);
        digits[2 * i + 1] = DigitOf(octets[i] & 0x0F);
    }
}

bool ReadHexadecimal(const char* __restrict digits, std::size_t count, unsigned char* __restrict octets) {
    unsigned char all =
        0; // of the values, or-ed: looked at once, since a branch for each would forbid vectors
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned char high = ValueOf(digits[2 * i]);
        const unsigned char low = ValueOf(digits[2 * i + 1]);
        octets[i] = static_cast<unsigned char>(high << 4 | low);
        all = static_cast<unsigned char>(all | high | low);
    }
    return all <= 0x0F;
}

} // namespace Wire
