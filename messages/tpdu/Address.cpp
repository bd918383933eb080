#include "Messages/Address.h"

#include <algorithm>

#include "alphabet/Utf8.h"
#include "tpdu/Addresses.h"

namespace Messages {
namespace {

constexpr std::uint8_t TypeOfAddress(TypeOfNumber type, NumberingPlan plan) {
    return static_cast<std::uint8_t>(c_typeExtension | static_cast<unsigned int>(type) << c_semiOctetBits |
                                     static_cast<unsigned int>(plan));
}

constexpr std::uint8_t LengthOctet(std::size_t semiOctets) {
    constexpr std::size_t c_most = 0xFF;
    return static_cast<std::uint8_t>(std::min(semiOctets, c_most));
}

} // namespace

std::string Address::ToString() const {
    return Type() == TypeOfNumber::International && !text.empty() ? '+' + text : text;
}

std::optional<MisfitCharacter> ToNumber(std::string_view written, Address& address) {
    constexpr std::string_view separators = " -./()";
    const std::size_t first = std::min(written.find_first_not_of(' '), written.size());
    const bool isInternational = first < written.size() && written[first] == '+';
    std::string digits;
    for (Characters characters(written); !characters.AtEnd();) {
        const std::size_t offset = characters.Offset();
        const char octet = written[offset];
        const char32_t character = characters.Next();
        if (c_digits.find(octet) != std::string_view::npos)
            digits += octet;
        else if (separators.find(octet) == std::string_view::npos && !(isInternational && offset == first))
            return MisfitCharacter{offset, character};
    }
    address.typeOfAddress = TypeOfAddress(
        isInternational ? TypeOfNumber::International : TypeOfNumber::Unknown, NumberingPlan::Isdn);
    address.length = LengthOctet(digits.size());
    address.text = std::move(digits);
    return std::nullopt;
}

std::optional<MisfitCharacter> ToName(std::string_view written, Address& address) {
    std::vector<std::uint8_t> septets;
    if (const auto misfit = AppendSeptets(written, {}, septets))
        return misfit;
    address.text = written;
    address.typeOfAddress = TypeOfAddress(TypeOfNumber::Alphanumeric, NumberingPlan::Unknown);
    address.length = LengthOctet(SemiOctetsOfName(septets.size()));
    return std::nullopt;
}

} // namespace Messages
