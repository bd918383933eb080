#include "tpdu/Octets.h"

#include <algorithm>
#include <array>

namespace Messages {
namespace {

constexpr std::string_view c_digits = "0123456789ABCDEF";
constexpr unsigned int c_digitBits = 4;
constexpr std::uint16_t c_noDigit = 0x100; ///< more than an octet, on either side of one

using Values = std::array<std::uint16_t, 256>;

/// What each character is worth as a digit.
constexpr Values MakeValues() {
    Values values{};
    for (std::uint16_t& value : values)
        value = c_noDigit;
    std::uint16_t value = 0;
    for (const char digit : c_digits) {
        values.at(static_cast<unsigned char>(digit)) = value;
        if (digit >= 'A')
            values.at(static_cast<unsigned char>(digit - 'A' + 'a')) = value;
        ++value;
    }
    return values;
}
constexpr Values c_values = MakeValues();

constexpr unsigned int ValueOf(char digit) {
    return c_values[static_cast<unsigned char>(digit)];
}

using Pairs = std::array<std::array<char, 2>, 256>;

/// The digits of each octet.
constexpr Pairs MakePairs() {
    Pairs pairs{};
    for (std::size_t octet = 0; octet < pairs.size(); ++octet)
        pairs.at(octet) = {c_digits[octet >> c_digitBits], c_digits[octet & 0x0FU]};
    return pairs;
}
constexpr Pairs c_pairs = MakePairs();

} // namespace

std::optional<std::size_t> AppendOctets(std::string_view digits, std::vector<std::uint8_t>& octets) {
    const std::size_t before = octets.size();
    const std::size_t pairs = digits.size() / 2;
    octets.resize(before + pairs);
    for (std::size_t i = 0; i < pairs; ++i) {
        const unsigned int octet = ValueOf(digits[2 * i]) << c_digitBits | ValueOf(digits[2 * i + 1]);
        if (octet >= c_noDigit) {
            octets.resize(before + i);
            return i;
        }
        octets[before + i] = static_cast<std::uint8_t>(octet);
    }
    return digits.size() % 2 != 0 ? std::optional(pairs) : std::nullopt;
}

bool FromHex(std::string_view digits, std::vector<std::uint8_t>& octets) {
    octets.clear();
    const bool isHexadecimal = !AppendOctets(digits, octets);
    if (!isHexadecimal)
        octets.clear();
    return isHexadecimal;
}

std::string ToHex(OctetView octets) {
    std::string text(2 * octets.size(), '0');
    char* digits = text.data();
    for (const std::uint8_t octet : octets)
        digits = std::copy_n(c_pairs[octet].begin(), 2, digits);
    return text;
}

} // namespace Messages
