// The way back from characters to septets: in which tables a character stands, and where.
#ifndef ALPHABET_CODES_H
#define ALPHABET_CODES_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "alphabet/Characters.h"

namespace Messages {

/// The tables that hold a character to be written, a bit for each language.
struct HoldingTables {
    std::uint16_t locking = 0;
    std::uint16_t single = 0;
};

/// The septet of a character in a table, and 1 more: 0 where the table does not hold it.
using CodeBesideNone = std::uint8_t;

/// The characters of all tables, numbered from 1; number 0 is any other. Found by two look-ups, as they lie
/// in few blocks of 256.
struct CharacterCodes {
    static constexpr std::size_t c_mostCharacters = 1088;
    static constexpr std::size_t c_mostBlocks = 12;
    static constexpr std::size_t c_blockSize = 256;
    using Codes = std::array<CodeBesideNone, c_mostCharacters>;

    std::array<std::uint8_t, c_blockSize> blocks{}; ///< block 0 holds none
    std::array<std::array<std::uint16_t, c_blockSize>, c_mostBlocks> numbers{};
    std::array<HoldingTables, c_mostCharacters> tables{};
    std::array<Codes, c_languageCount> locking{}; ///< by language; Spanish has the default alphabet
    std::array<Codes, c_languageCount> single{};  ///< by language

    constexpr std::uint16_t NumberOf(char32_t character) const {
        constexpr char32_t allCharacters = c_blockSize * c_blockSize;
        return character < allCharacters ? numbers[blocks[character / c_blockSize]][character % c_blockSize]
                                         : std::uint16_t{0};
    }
};

extern const CharacterCodes c_codes;

} // namespace Messages

#endif
