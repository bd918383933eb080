#include "commands/Parties.h"

#include <algorithm>
#include <string_view>

#include <fmt/format.h>

#include "Messages/Write.h"
#include "characters/InputError.h"
#include "characters/Letters.h"
#include "characters/Unicode.h"
#include "show/CodeUnits.h"
#include "show/Plural.h"

namespace qxpdu {

namespace {

constexpr std::size_t c_mostDigits = 20;  ///< in an address field of 12 octets
constexpr std::size_t c_mostSeptets = 11; ///< of a name there

/// "character 7, 'x', is no digit of a number"
std::string WordsOf(const Messages::MisfitCharacter& misfit, const std::string& text,
                    std::string_view whatIsWrong) {
    const std::string_view before = std::string_view(text).substr(0, misfit.offset);
    return fmt::format("character {}, {}, {}", show::CharactersIn(before) + 1,
                       FirstCharacter(text.substr(misfit.offset)), whatIsWrong);
}

/// A name without letters would be no number either, but for its characters.
bool IsName(const std::string& party) {
    constexpr std::string_view c_ofNumbers = "+*# -./()";
    return !party.starts_with('+') && std::any_of(party.begin(), party.end(), [&](char character) {
        return !IsDecimal(character) && c_ofNumbers.find(character) == std::string_view::npos;
    });
}

std::string FaultOfName(const std::string& name) {
    Messages::Address address;
    if (const auto misfit = Messages::ToName(name, address))
        return WordsOf(*misfit, name, "is not in the default alphabet, which names are written in");
    std::vector<std::uint8_t> septets;
    Messages::AppendSeptets(name, {}, septets);
    return septets.size() > c_mostSeptets
               ? fmt::format("a name of {}, {} at most", show::Counted(septets.size(), "septet"),
                             c_mostSeptets)
               : "";
}

} // namespace

std::string FaultOfNumber(const std::string& number) {
    Messages::Address address;
    if (const auto misfit = Messages::ToNumber(number, address))
        return WordsOf(*misfit, number, "is no digit of a number");
    const std::size_t digits = address.text.size();
    if (digits == 0)
        return "a number without digits";
    return digits > c_mostDigits ? fmt::format("{} digits, {} at most", digits, c_mostDigits) : "";
}

std::string FaultOfParty(const std::string& party) {
    return IsName(party) ? FaultOfName(party) : FaultOfNumber(party);
}

Messages::Address AddressOfNumber(const std::string& number) {
    Messages::Address address;
    Messages::ToNumber(number, address);
    return address;
}

Messages::Address AddressOfParty(const std::string& party) {
    if (!IsName(party))
        return AddressOfNumber(party);
    Messages::Address address;
    Messages::ToName(party, address);
    return address;
}

} // namespace qxpdu
