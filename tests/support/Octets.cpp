#include "support/Octets.h"

#include <stdexcept>

namespace tests {
namespace {

unsigned int Nibble(char digit) {
    if (digit >= '0' && digit <= '9')
        return static_cast<unsigned int>(digit - '0');
    if (digit >= 'A' && digit <= 'F')
        return static_cast<unsigned int>(digit - 'A') + 10;
    if (digit >= 'a' && digit <= 'f')
        return static_cast<unsigned int>(digit - 'a') + 10;
    throw std::invalid_argument("no hexadecimal digit");
}

} // namespace

Bytes Octets(std::string_view hex) {
    std::string digits;
    for (const char character : hex)
        if (character != ' ')
            digits += character;
    if (digits.size() % 2 != 0)
        throw std::invalid_argument("odd number of hexadecimal digits");
    Bytes octets;
    for (std::size_t i = 0; i < digits.size(); i += 2)
        octets.push_back(static_cast<unsigned char>(Nibble(digits[i]) << 4 | Nibble(digits[i + 1])));
    return octets;
}

std::string Hex(const unsigned char* octets, std::size_t count) {
    static const char digits[] = "0123456789ABCDEF";
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        if (i != 0)
            text += ' ';
        text += digits[octets[i] >> 4];
        text += digits[octets[i] & 0x0F];
    }
    return text;
}

std::string Hex(const Bytes& octets) {
    return Hex(octets.data(), octets.size());
}

Toolkit::smart_ptr<Encoding::Pdu> MakePdu(const Bytes& octets) {
    return new Encoding::Pdu(octets.data(), static_cast<unsigned int>(octets.size()));
}

Toolkit::smart_ptr<Encoding::Pdu> MakePdu(std::string_view hex) {
    return MakePdu(Octets(hex));
}

Bytes OctetsOf(const Encoding::Pdu& pdu) {
    return Bytes(pdu.m_Bytes, pdu.m_Bytes + pdu.m_Length);
}

TString<wchar_t> Wide(std::initializer_list<unsigned int> units) {
    TString<wchar_t> text;
    for (const unsigned int unit : units)
        text += static_cast<wchar_t>(unit);
    return text;
}

} // namespace tests
