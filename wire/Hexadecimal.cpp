#include "wire/Hexadecimal.h"

namespace Wire {
namespace {

constexpr char DigitOf(unsigned int value) {
    return static_cast<char>(value + (value < 10 ? '0' : 'A' - 10));
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
        const unsigned char high = ValueOfDigit(digits[2 * i]);
        const unsigned char low = ValueOfDigit(digits[2 * i + 1]);
        octets[i] = static_cast<unsigned char>(high << 4 | low);
        all = static_cast<unsigned char>(all | high | low);
    }
    return all <= 0x0F;
}

} // namespace Wire
