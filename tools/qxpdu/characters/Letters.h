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
    return IsDecimal(character) || (Upper(character) >= 'A' && Upper(character) <= 'F');
}

constexpr bool AreHexDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), IsHexDigit);
}

/// Whether the text begins with these letters, of either case.
constexpr bool BeginsWith(std::string_view text, std::string_view upperCase) {
    return text.size() >= upperCase.size() &&
           std::equal(upperCase.begin(), upperCase.end(), text.begin(),
                      [](char upper, char character) { return upper == Upper(character); });
}

} // namespace qxpdu

#endif
