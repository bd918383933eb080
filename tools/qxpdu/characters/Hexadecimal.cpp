#include "characters/Hexadecimal.h"

#include <fmt/format.h>

#include "characters/InputError.h"
#include "characters/Unicode.h"

namespace qxpdu {

namespace {

constexpr std::string_view c_blanks = " \t\r";

/// The value of a hexadecimal digit of either case, or -1.
int DigitValue(char character) {
    if (character >= '0' && character <= '9')
        return character - '0';
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

} // namespace

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(c_blanks);
    return first == std::string_view::npos ? std::string_view{}
                                           : text.substr(first, text.find_last_not_of(c_blanks) - first + 1);
}

std::vector<unsigned char> ReadHex(std::string_view text) {
    const std::string_view digits = Trimmed(text);
    if (digits.empty())
        throw InputError("no hexadecimal digits");
    std::vector<unsigned char> octets;
    octets.reserve((digits.size() + 1) / 2);
    for (std::size_t i = 0; i < digits.size(); ++i) {
        const int value = DigitValue(digits[i]);
        if (value < 0) {
            throw InputError(fmt::format("character {}, {}, is no hexadecimal digit",
                                         digits.data() - text.data() + static_cast<std::ptrdiff_t>(i) + 1,
                                         FirstCharacter(digits.substr(i))));
        }
        if (i % 2 == 0)
            octets.push_back(static_cast<unsigned char>(value << 4));
        else
            octets.back() = static_cast<unsigned char>(octets.back() | value);
    }
    if (digits.size() % 2 != 0)
        throw InputError(fmt::format("odd number of hexadecimal digits, {}", digits.size()));
    return octets;
}

std::vector<unsigned char> ReadPduOctets(std::string_view text) {
    std::vector<unsigned char> octets = ReadHex(text);
    if (octets.size() > Encoding::Pdu::CAPACITY)
        throw InputError(fmt::format("{} octets, {} at most", octets.size(), +Encoding::Pdu::CAPACITY));
    return octets;
}

Toolkit::smart_ptr<Encoding::Pdu> ReadPdu(std::string_view text) {
    const std::vector<unsigned char> octets = ReadPduOctets(text);
    return new Encoding::Pdu(octets.data(), static_cast<unsigned int>(octets.size()));
}

} // namespace qxpdu
