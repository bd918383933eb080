// Characters that are their own codes in the GSM 7-bit default alphabet (3GPP TS 23.038 clause 6.2.1): of
// ASCII the letters, the digits, most marks, and the two ends of a line. Nearly all of most texts is of
// these, so they are found and moved in blocks of sixteen; what others a block holds is told as bits,
// character i by bit i.
//
// Wide characters are four octets in the order of the machine, of which the low-order 16 bits count. There is
// a plain way, and one by SSE2, which every x86-64 has. Both do the same.
#ifndef WIRE_OWNCODES_H
#define WIRE_OWNCODES_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace Wire {

constexpr std::size_t c_codeBlock = 16;               ///< codes or characters
constexpr std::size_t c_codeBlocks = 4 * c_codeBlock; ///< codes that are looked at together
constexpr std::size_t c_wideOctets = 4;               ///< of a wide character

using BlockBits = unsigned int;
constexpr BlockBits c_allOfBlock = 0xFFFF;

constexpr bool IsOwnCode(unsigned int character) {
    const bool isLetter = (character | 0x20) >= 'a' && (character | 0x20) <= 'z';
    const bool isDigitOrMark = character >= 0x20 && character < 0x40 && character != '$';
    return isLetter || isDigitOrMark || character == '\n' || character == '\r';
}

namespace Plainly {

inline std::uint16_t UnitAt(const unsigned char* characters, std::size_t i) {
    std::uint32_t character = 0;
    std::memcpy(&character, characters + i * c_wideOctets, sizeof character);
    return static_cast<std::uint16_t>(character);
}

/// Which codes of a block are not their own characters.
inline BlockBits OtherCodes(const unsigned char* codes) {
    BlockBits others = 0;
    for (std::size_t i = 0; i < c_codeBlock; ++i)
        others |= BlockBits{!IsOwnCode(codes[i])} << i;
    return others;
}

/// Whether all codes of four blocks are their own characters.
inline bool AreOwnCodes(const unsigned char* codes) noexcept {
    return std::all_of(codes, codes + c_codeBlocks, [](unsigned char code) { return IsOwnCode(code); });
}

/// Which wide characters of a block are not their own codes.
inline BlockBits OtherCharacters(const unsigned char* characters) {
    BlockBits others = 0;
    for (std::size_t i = 0; i < c_codeBlock; ++i)
        others |= BlockBits{!IsOwnCode(UnitAt(characters, i))} << i;
    return others;
}

/// Writes a block of codes as wide characters.
inline void Widen(const unsigned char* codes, wchar_t* characters) {
    std::copy_n(codes, c_codeBlock, characters);
}

/// Writes a block of wide characters as octets; those that are not their own codes as any.
inline void Narrow(const unsigned char* characters, unsigned char* codes) {
    for (std::size_t i = 0; i < c_codeBlock; ++i)
        codes[i] = static_cast<unsigned char>(UnitAt(characters, i));
}

/// Writes a block of wide characters as octets, and returns true, where all are ASCII, each in all its 32
/// bits; otherwise what is written is any.
inline bool NarrowAscii(const wchar_t* characters, char* octets) {
    std::uint32_t all = 0;
    for (std::size_t i = 0; i < c_codeBlock; ++i) {
        all |= static_cast<std::uint32_t>(characters[i]);
        octets[i] = static_cast<char>(characters[i]);
    }
    return all < 0x80;
}

/// Whether one of a block of wide characters lies on one of these pages of 256, which are below 0x7F.
template <unsigned char... Pages>
inline bool AnyOnPages(const unsigned char* characters) {
    bool any = false;
    for (std::size_t i = 0; i < c_codeBlock; ++i) {
        const unsigned int page = UnitAt(characters, i) >> 8;
        any |= (... | (page == Pages));
    }
    return any;
}

} // namespace Plainly

#ifdef __SSE2__

namespace BySse2 {

inline __m128i Load(const unsigned char* octets) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(octets));
}

using Lanes [[gnu::vector_size(16)]] = unsigned char;

/// All bits of the octets that are `a` to `z`: moved so that these are the largest there are, with their
/// sign.
inline __m128i Letters(__m128i octets) {
    constexpr char distance = 0x7F - 'z';
    const auto moved = reinterpret_cast<__m128i>(reinterpret_cast<Lanes>(octets) + distance);
    return _mm_cmpgt_epi8(moved, _mm_set1_epi8('a' - 1 + distance));
}

inline __m128i Equal(__m128i octets, char value) {
    return _mm_cmpeq_epi8(octets, _mm_set1_epi8(value));
}

/// All bits of the octets that are own codes.
inline __m128i Own(__m128i octets) {
    const __m128i letters = Letters(_mm_or_si128(octets, _mm_set1_epi8(0x20)));
    const __m128i from20To3F =
        _mm_cmpeq_epi8(_mm_and_si128(octets, _mm_set1_epi8('\xE0')), _mm_set1_epi8(0x20));
    const __m128i digitsAndMarks = _mm_andnot_si128(Equal(octets, '$'), from20To3F);
    const __m128i lineEnds = _mm_or_si128(Equal(octets, '\n'), Equal(octets, '\r'));
    return _mm_or_si128(_mm_or_si128(letters, digitsAndMarks), lineEnds);
}

inline BlockBits OthersThan(__m128i own) {
    return static_cast<BlockBits>(_mm_movemask_epi8(own)) ^ c_allOfBlock;
}

inline BlockBits Others(__m128i octets) {
    return OthersThan(Own(octets));
}

/// The low-order 16 bits of eight wide characters; 0x7FFF for those above that, where nothing has a code.
inline __m128i Units(const unsigned char* characters) {
    const auto quarter = [characters](std::size_t i) {
        return _mm_and_si128(Load(characters + i * sizeof(__m128i)), _mm_set1_epi32(0xFFFF));
    };
    return _mm_packs_epi32(quarter(0), quarter(1));
}

constexpr std::size_t c_half = c_codeBlock / 2 * c_wideOctets; ///< octets of half a block of wide characters

/// The units as octets; 0xFF, which is not its own code, for those above that.
inline __m128i Narrowed(const unsigned char* characters) {
    return _mm_packus_epi16(Units(characters), Units(characters + c_half));
}

inline BlockBits OtherCodes(const unsigned char* codes) {
    return Others(Load(codes));
}

inline bool AreOwnCodes(const unsigned char* codes) noexcept {
    const auto own = [codes](std::size_t block) { return Own(Load(codes + block * c_codeBlock)); };
    return OthersThan(_mm_and_si128(_mm_and_si128(own(0), own(1)), _mm_and_si128(own(2), own(3)))) == 0;
}

inline BlockBits OtherCharacters(const unsigned char* characters) {
    return Others(Narrowed(characters));
}

inline void Widen(const unsigned char* codes, wchar_t* characters) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i octets = Load(codes);
    const __m128i low = _mm_unpacklo_epi8(octets, zero);
    const __m128i high = _mm_unpackhi_epi8(octets, zero);
    auto* const out = reinterpret_cast<__m128i*>(characters);
    _mm_storeu_si128(out, _mm_unpacklo_epi16(low, zero));
    _mm_storeu_si128(out + 1, _mm_unpackhi_epi16(low, zero));
    _mm_storeu_si128(out + 2, _mm_unpacklo_epi16(high, zero));
    _mm_storeu_si128(out + 3, _mm_unpackhi_epi16(high, zero));
}

inline void Narrow(const unsigned char* characters, unsigned char* codes) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(codes), Narrowed(characters));
}

inline bool NarrowAscii(const wchar_t* characters, char* octets) {
    const auto* const in = reinterpret_cast<const __m128i*>(characters);
    const __m128i first = _mm_loadu_si128(in);
    const __m128i second = _mm_loadu_si128(in + 1);
    const __m128i third = _mm_loadu_si128(in + 2);
    const __m128i fourth = _mm_loadu_si128(in + 3);
    // A value beyond an octet becomes 0xFF, and one with the highest bit 0.
    const __m128i narrow = _mm_packus_epi16(_mm_packs_epi32(first, second), _mm_packs_epi32(third, fourth));
    const __m128i all = _mm_or_si128(_mm_or_si128(first, second), _mm_or_si128(third, fourth));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(octets), narrow);
    return (_mm_movemask_epi8(narrow) | _mm_movemask_ps(_mm_castsi128_ps(all))) == 0;
}

template <unsigned char... Pages>
inline bool AnyOnPages(const unsigned char* characters) {
    const __m128i pages =
        _mm_packus_epi16(_mm_srli_epi16(Units(characters), 8), _mm_srli_epi16(Units(characters + c_half), 8));
    __m128i any = _mm_setzero_si128();
    ((any = _mm_or_si128(any, Equal(pages, static_cast<char>(Pages)))), ...);
    return _mm_movemask_epi8(any) != 0;
}

} // namespace BySse2

using BySse2::AnyOnPages;
using BySse2::AreOwnCodes;
using BySse2::Narrow;
using BySse2::NarrowAscii;
using BySse2::OtherCharacters;
using BySse2::OtherCodes;
using BySse2::Widen;

#else

using Plainly::AnyOnPages;
using Plainly::AreOwnCodes;
using Plainly::Narrow;
using Plainly::NarrowAscii;
using Plainly::OtherCharacters;
using Plainly::OtherCodes;
using Plainly::Widen;

#endif

} // namespace Wire

#endif
