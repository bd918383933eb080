// Characters in UTF-8 (RFC 3629), one by one and in runs.
//
// A character travels as one word, its first octet in the low-order bits: the marks of all its octets are set
// and looked at together. Runs are taken in blocks by plain loops without a branch, which compilers turn into
// vectors.
#ifndef WIRE_UTF8_H
#define WIRE_UTF8_H

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Wire {

constexpr std::size_t c_longestUtf8 = 4; ///< octets of a character

namespace Utf8Form {

/// The marks of one form: `bits` of the word, and which of them they are.
struct Marks {
    std::uint32_t mask;
    std::uint32_t bits;
    constexpr bool On(std::uint32_t word) const { return (word & mask) == bits; }
};
constexpr Marks c_two = {0x0000C0E0, 0x000080C0};
constexpr Marks c_three = {0x00C0C0F0, 0x008080E0};
constexpr Marks c_four = {0xC0C0C0F8, 0x808080F0};

constexpr std::uint32_t LittleEndian(std::uint32_t word) {
    return std::endian::native == std::endian::little ? word : __builtin_bswap32(word);
}

inline void Store(std::uint32_t word, char* octets) {
    word = LittleEndian(word);
    std::memcpy(octets, &word, sizeof word);
}

inline std::uint32_t Load(const char* octets) {
    std::uint32_t word = 0;
    std::memcpy(&word, octets, sizeof word);
    return LittleEndian(word);
}

/// Four words, in one vector where the machine has such.
using Block [[gnu::vector_size(16)]] = std::uint32_t;
using Halves [[gnu::vector_size(16)]] = std::uint64_t;

inline bool IsZero(const Block& block) {
    const auto halves = reinterpret_cast<Halves>(block);
    return (halves[0] | halves[1]) == 0;
}

/// In place of a character its three octets, and the way back. Not by value, as vectors go where the machine
/// has none.
template <class Words>
constexpr void BecomeThreeOctets(Words& words) {
    words = c_three.bits | words >> 12 | (words & 0xFC0) << 2 | (words & 0x3F) << 16;
}

template <class Words>
constexpr void BecomeCharacters(Words& words) {
    words = (words & 0x0F) << 12 | (words >> 2 & 0xFC0) | (words >> 16 & 0x3F);
}

/// Of a character below U+10000, which tell whether it has three octets: not without any, and not those of
/// the surrogates.
constexpr std::uint32_t c_highBits = 0xF800;
constexpr std::uint32_t c_surrogate = 0xD800;

constexpr bool HasThreeOctets(std::uint32_t character) {
    const std::uint32_t high = character & c_highBits;
    return high != 0 && high != c_surrogate;
}

} // namespace Utf8Form

constexpr bool IsScalarValue(char32_t character) {
    return character < 0xD800 || (character >= 0xE000 && character <= 0x10FFFF);
}

/// Writes a Unicode scalar value and returns where the next one goes. REQUIRES room for the longest form: any
/// octet of it may be written.
inline char* WriteUtf8(char32_t character, char* octets) {
    using namespace Utf8Form;
    if (character < 0x80) {
        *octets = static_cast<char>(character);
        return octets + 1;
    }
    const std::uint32_t last = character & 0x3F;
    if (character < 0x800) {
        Store(c_two.bits | character >> 6 | last << 8, octets);
        return octets + 2;
    }
    if (character < 0x10000) {
        std::uint32_t word = character;
        BecomeThreeOctets(word);
        Store(word, octets);
        return octets + 3;
    }
    Store(c_four.bits | character >> 18 | (character >> 12 & 0x3F) << 8 | (character >> 6 & 0x3F) << 16 |
              last << 24,
          octets);
    return octets + 4;
}

/// Reads the character that begins at `octets` and returns where the next one does. Returns null for what is
/// not UTF-8: an overlong form, a surrogate, a value above U+10FFFF, octets that are missing. REQUIRES octets
/// < end.
inline const char* ReadUtf8(const char* octets, const char* end, char32_t& character) {
    using namespace Utf8Form;
    character = static_cast<unsigned char>(*octets);
    if (character < 0x80)
        return octets + 1;
    std::array<char, c_longestUtf8>
        last{}; // octets that are missing read as zero, which no form has in their place
    const auto left = static_cast<std::size_t>(end - octets);
    if (left < c_longestUtf8)
        for (std::size_t i = 0; i < left; ++i)
            last[i] = octets[i];
    std::uint32_t word = Load(left < c_longestUtf8 ? last.data() : octets);
    if (c_three.On(word)) {
        BecomeCharacters(word);
        character = word;
        return HasThreeOctets(character) ? octets + 3 : nullptr;
    }
    if (c_two.On(word)) {
        character = (word & 0x1F) << 6 | (word >> 8 & 0x3F);
        return character >= 0x80 ? octets + 2 : nullptr;
    }
    if (!c_four.On(word))
        return nullptr;
    character =
        (word & 0x07) << 18 | (word >> 8 & 0x3F) << 12 | (word >> 16 & 0x3F) << 6 | (word >> 24 & 0x3F);
    return character >= 0x10000 && character <= 0x10FFFF ? octets + 4 : nullptr;
}

constexpr std::size_t c_utf8Block = 4; ///< characters that a run is taken by

/// Writes a block of characters of three octets each, as those of many scripts are, and returns true; false
/// when one is not of three. REQUIRES room for the longest forms.
template <class Unit>
inline bool WriteBlockOfThree(const Unit* characters, char* octets) {
    using namespace Utf8Form;
    static_assert(sizeof(Block) == c_utf8Block * sizeof(Unit));
    Block block;
    std::memcpy(&block, characters, sizeof block);
    const Block high = block & c_highBits;
    const Block others =
        reinterpret_cast<Block>(high == 0) | reinterpret_cast<Block>(high == c_surrogate) | block >> 16;
    if (!IsZero(others))
        return false;
    BecomeThreeOctets(block);
    for (std::size_t i = 0; i < c_utf8Block; ++i)
        Store(block[i], octets + 3 * i);
    return true;
}

constexpr std::size_t c_blockOfThreeReach = 3 * c_utf8Block + 1; ///< octets that are read for one

/// Reads a block of characters of three octets each and returns true; false when one is not of three.
template <class Unit>
inline bool ReadBlockOfThree(const char* octets, Unit* characters) {
    using namespace Utf8Form;
    static_assert(sizeof(Block) == c_utf8Block * sizeof(Unit));
    Block block = {Load(octets), Load(octets + 3), Load(octets + 6), Load(octets + 9)};
    Block others = (block & c_three.mask) ^ c_three.bits;
    BecomeCharacters(block);
    const Block high = block & c_highBits;
    others |= reinterpret_cast<Block>(high == 0) | reinterpret_cast<Block>(high == c_surrogate);
    std::memcpy(characters, &block, sizeof block);
    return IsZero(others);
}

} // namespace Wire

#endif
