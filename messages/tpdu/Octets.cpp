#include "tpdu/Hexadecimal.h"

namespace Messages {
namespace {

constexpr int c_noDigit = -1;

constexpr int DigitValue(char digit) {
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'A' && digit <= 'F')
        return digit - 'A' + 10;
    if (digit >= 'a' && digit <= 'f')
        return digit - 'a' + 10;
    return c_noDigit;
}

} // namespace

std::optional<std::size_t> AppendOctets(std::string_view digits, std::vector<std::uint8_t>& octets) {
    octets.reserve(octets.size() + digits.size() / 2);
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        const int high = DigitValue(digits[i]);
        const int low = i + 1 < digits.size() ? DigitValue(digits[i + 1]) : c_noDigit;
        if (high == c_noDigit || low == c_noDigit)
            return i / 2;
        octets.push_back(static_cast<std::uint8_t>(high << 4 | low));
    }
    return std::nullopt;
}

bool FromHex(std::string_view digits, std::vector<std::uint8_t>& octets) {
    octets.clear();
    const bool isHexadecimal = !AppendOctets(digits, octets);
    if (!isHexadecimal)
        octets.clear();
    return isHexadecimal;
}

std::string ToHex(OctetView octets) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(2 * octets.size());
    for (const std::uint8_t octet : octets) {
        text += digits[octet >> 4U];
        text += digits[octet & 0x0FU];
    }
    return text;
}

} // namespace Messages
