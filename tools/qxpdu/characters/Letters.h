// Kinds of ASCII characters, whatever the locale.
#ifndef QXPDU_LETTERS_H
#define QXPDU_LETTERS_H

#include <algorithm>
#include <string_view>

namespace qxpdu {

constexpr bool IsDecimal(char character) {
    return character >= '0' && character <= '9';
}

constexpr char Upper(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - ('a' - 'A')) : character;
}

constexpr bool IsAlphanumeric(char character) {
    return IsDecimal(character) || (Upper(character) >= 'A' && Upper(character) <= 'Z');
}

constexpr bool IsHexDigit(char character) {
    const auto fromZero = static_cast<unsigned char>(character - '0');
    const auto fromA = static_cast<unsigned char>((character | 0x20) - 'a');
    return fromZero <= 9 || fromA <= 5;
}

/// Looks at all of them whatever it finds, so that the compiler takes many together.
constexpr bool AreHexDigits(std::string_view text) {
    unsigned char others = 0;
    for (const char character : text)
        others |= static_cast<unsigned char>(!IsHexDigit(character));
    return others == 0;
}

/// Whether the text begins with these letters, of either case.
constexpr bool BeginsWith(std::string_view text, std::string_view upperCase) {
    return text.size() >= upperCase.size() &&
           std::equal(upperCase.begin(), upperCase.end(), text.begin(),
                      [](char upper, char character) { return upper == Upper(character); });
}

} // namespace qxpdu

#endif
