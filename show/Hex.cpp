#include "show/Hex.h"

#include <string_view>

namespace show {

namespace {

constexpr std::string_view c_digits = "0123456789ABCDEF";

} // namespace

std::string Hex(const unsigned char* octets, std::size_t count) {
    std::string text(2 * count, '0');
    char* digit = text.data();
    for (std::size_t i = 0; i < count; ++i) {
        *digit++ = c_digits[octets[i] >> 4];
        *digit++ = c_digits[octets[i] & 0xF];
    }
    return text;
}

} // namespace show
