#include "commands/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include <fmt/format.h>

namespace qxpdu {

namespace {

constexpr int c_maxWord = 0xFFFF;

/// Of 16 bits.
std::optional<Messages::Ports> WidePortsIn(std::string_view text) {
    const std::size_t colon = std::min(text.find(':'), text.size());
    const std::optional<int> to = NumberOf(text.substr(0, colon), c_maxWord);
    const std::optional<int> from =
        colon == text.size() ? std::optional(0) : NumberOf(text.substr(colon + 1), c_maxWord);
    if (!to || !from)
        return std::nullopt;
    return Messages::Ports{true, static_cast<std::uint16_t>(*to), static_cast<std::uint16_t>(*from)};
}

} // namespace

std::optional<int> NumberOf(std::string_view text, int most) {
    const bool isHex = text.starts_with("0x");
    if (!isHex && text.size() > 1 && text.starts_with('0'))
        return std::nullopt;
    text.remove_prefix(isHex ? 2 : 0);
    unsigned int number = 0;
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, number, isHex ? 16 : 10);
    const bool isNumber = error == std::errc{} && last == end && number <= static_cast<unsigned int>(most);
    return isNumber ? std::optional(static_cast<int>(number)) : std::nullopt;
}

std::string FaultOfBits(const std::string& bits) {
    return bits == "8" || bits == "16" ? "" : fmt::format("{} is neither 8 nor 16", bits);
}

std::string FaultOfPorts(const std::string& ports) {
    return WidePortsIn(ports)
               ? ""
               : fmt::format("{} is neither a port from 0 to 65535 nor two with a colon between", ports);
}

std::optional<Messages::Ports> PortsIn(std::string_view ports, std::string_view bits) {
    std::optional<Messages::Ports> found = WidePortsIn(ports);
    if (found)
        found->areWide = bits != "8";
    return found;
}

} // namespace qxpdu
