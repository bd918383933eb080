// The characters of the GSM 7-bit alphabets, in UTF-16 and ready to be copied in UTF-8.
#ifndef ALPHABET_CHARACTERS_H
#define ALPHABET_CHARACTERS_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "Messages/Alphabet.h"
#include "alphabet/Plain.h"
#include "tables/Cells.h"

namespace Messages {

constexpr std::size_t c_septetCount = 128;
constexpr std::size_t c_languageCount = c_lastLanguage + 1;

/// At most three octets: all characters of the alphabets lie below U+10000. Without octets: no character.
struct Utf8Character {
    char octets[3]{};
    std::uint8_t length = 0;
};

constexpr Utf8Character ToUtf8(char16_t character) {
    const auto octet = [](unsigned int value) { return static_cast<char>(value); };
    if (character == 0)
        return {};
    if (character < 0x80)
        return {{octet(character)}, 1};
    const char last = octet(0x80U | (character & 0x3FU));
    if (character < 0x800)
        return {{octet(0xC0U | character >> 6U), last}, 2};
    return {{octet(0xE0U | character >> 12U), octet(0x80U | (character >> 6U & 0x3FU)), last}, 3};
}

/// One table, locking or single shift.
struct CharacterTable {
    std::array<char16_t, c_septetCount> characters{};
    std::array<Utf8Character, c_septetCount> utf8{};
    std::array<char, c_septetCount> ascii{}; ///< 0 where the character is another, or none

    constexpr void Set(std::size_t septet, char16_t character) {
        characters[septet] = character;
        utf8[septet] = ToUtf8(character);
        ascii[septet] = character < 0x80 ? static_cast<char>(character) : '\0';
    }
};

/// By language; Spanish has the default alphabet for a locking table.
extern const std::array<CharacterTable, c_languageCount> c_lockingTables;
/// By language, of the septet after the escape.
extern const std::array<CharacterTable, c_languageCount> c_singleShiftTables;

inline const CharacterTable& LockingTable(Language language) {
    return c_lockingTables[static_cast<std::size_t>(language)];
}
inline const CharacterTable& SingleShiftTable(Language language) {
    return c_singleShiftTables[static_cast<std::size_t>(language)];
}

} // namespace Messages

#endif
