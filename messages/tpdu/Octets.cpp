#include "tpdu/Octets.h"

#include "wire/Hexadecimal.h"

namespace Messages {
namespace {

/// The number of the first pair that is none, from 0.
std::size_t FirstOther(std::string_view digits) {
    std::size_t place = 0;
    while (place < digits.size() && Wire::ValueOfDigit(digits[place]) != Wire::c_noDigit)
        ++place;
    return place / 2;
}

} // namespace

std::optional<std::size_t> ReadOctets(std::string_view digits, std::vector<std::uint8_t>& octets) {
    const std::size_t pairs = digits.size() / 2;
    octets.resize(pairs);
    if (digits.size() % 2 == 0 && Wire::ReadHexadecimal(digits.data(), pairs, octets.data()))
        return std::nullopt;
    octets.clear();
    return FirstOther(digits);
}

bool FromHex(std::string_view digits, std::vector<std::uint8_t>& octets) {
    return !ReadOctets(digits, octets);
}

std::string ToHex(OctetView octets) {
    std::string digits(2 * octets.size(), '0');
    Wire::WriteHexadecimal(octets.data(), octets.size(), digits.data());
    return digits;
}

} // namespace Messages
