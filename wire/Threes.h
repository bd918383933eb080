// Characters of three octets in UTF-8, as those of many scripts are, and their UTF-16 units, most significant
// octet first: in blocks of eight.
//
// There is a plain way, and one by SSE2, which every x86-64 has. Both do the same.
#ifndef WIRE_THREES_H
#define WIRE_THREES_H

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "wire/Utf8.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace Wire {

constexpr std::size_t c_threesBlock = 8; ///< characters
constexpr std::size_t c_threeOctets = 3; ///< of a character
constexpr std::size_t c_unitOctets = 2;  ///< of its unit
constexpr std::size_t c_threesSlack = 2; ///< octets after a block's that may be written over

// Each way has the same two, which REQUIRE octets and room for a whole block, and c_threesSlack after what is
// written in UTF-8. They return how many characters come first that have three octets; what is written for
// those after them is of no use.

namespace Plainly {

inline std::size_t ReadThreesBlock(const char* octets, unsigned char* units) {
    for (std::size_t i = 0; i < c_threesBlock; ++i) {
        std::uint32_t word = 0;
        for (unsigned int k = 0; k < c_threeOctets; ++k)
            word |= std::uint32_t{static_cast<unsigned char>(octets[c_threeOctets * i + k])} << 8 * k;
        if (!Utf8Form::c_three.On(word))
            return i;
        Utf8Form::BecomeCharacters(word);
        if (!Utf8Form::HasThreeOctets(word))
            return i;
        units[c_unitOctets * i] = static_cast<unsigned char>(word >> 8);
        units[c_unitOctets * i + 1] = static_cast<unsigned char>(word);
    }
    return c_threesBlock;
}

inline std::size_t WriteThreesBlock(const unsigned char* units, char* octets) {
    for (std::size_t i = 0; i < c_threesBlock; ++i) {
        std::uint32_t word = std::uint32_t{units[c_unitOctets * i]} << 8 | units[c_unitOctets * i + 1];
        if (!Utf8Form::HasThreeOctets(word))
            return i;
        Utf8Form::BecomeThreeOctets(word);
        for (unsigned int k = 0; k < c_threeOctets; ++k)
            octets[c_threeOctets * i + k] = static_cast<char>(word >> 8 * k);
    }
    return c_threesBlock;
}

} // namespace Plainly

#ifdef __SSE2__

namespace BySse2 {

/// Eight octets in the low half, eight in the high one.
inline __m128i LoadHalves(const char* low, const char* high) {
    const __m128i half = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(low));
    return _mm_unpacklo_epi64(half, _mm_loadl_epi64(reinterpret_cast<const __m128i*>(high)));
}

inline void StoreHalves(__m128i halves, char* low, char* high) {
    _mm_storel_epi64(reinterpret_cast<__m128i*>(low), halves);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(high), _mm_unpackhi_epi64(halves, halves));
}

inline __m128i WithSwappedOctets(__m128i units) {
    return _mm_or_si128(_mm_slli_epi16(units, 8), _mm_srli_epi16(units, 8));
}

/// All bits of the units that have no three octets.
inline __m128i NoThrees(__m128i units) {
    const __m128i high = _mm_and_si128(units, _mm_set1_epi16(static_cast<short>(Utf8Form::c_highBits)));
    const __m128i surrogates =
        _mm_cmpeq_epi16(high, _mm_set1_epi16(static_cast<short>(Utf8Form::c_surrogate)));
    return _mm_or_si128(_mm_cmpeq_epi16(high, _mm_setzero_si128()), surrogates);
}

/// How many units come before the first with all bits set.
inline std::size_t UnitsBefore(__m128i others) {
    constexpr unsigned int end = 1U << c_threesBlock * c_unitOctets;
    const auto bits = static_cast<unsigned int>(_mm_movemask_epi8(others)) | end;
    return static_cast<std::size_t>(std::countr_zero(bits)) / c_unitOctets;
}

/// Of three octets and three more in each half, one after the other, a word for each three.
inline __m128i Apart(__m128i halves) {
    const __m128i first = _mm_and_si128(halves, _mm_set1_epi64x(0x0000000000FFFFFF));
    const __m128i second = _mm_and_si128(_mm_slli_epi64(halves, 8), _mm_set1_epi64x(0x00FFFFFF00000000));
    return _mm_or_si128(first, second);
}

inline __m128i Together(__m128i words) {
    const __m128i first = _mm_and_si128(words, _mm_set1_epi64x(0x0000000000FFFFFF));
    const __m128i second = _mm_and_si128(_mm_srli_epi64(words, 8), _mm_set1_epi64x(0x0000FFFFFF000000));
    return _mm_or_si128(first, second);
}

inline __m128i HaveMarks(__m128i words) {
    const __m128i marks = _mm_and_si128(words, _mm_set1_epi32(static_cast<int>(Utf8Form::c_three.mask)));
    return _mm_cmpeq_epi32(marks, _mm_set1_epi32(static_cast<int>(Utf8Form::c_three.bits)));
}

/// The characters of four words, with the sign that packing them wants.
inline __m128i CharactersOf(__m128i words) {
    const __m128i first = _mm_slli_epi32(words, 28);
    const __m128i second = _mm_and_si128(_mm_slli_epi32(words, 14), _mm_set1_epi32(0x0FC00000));
    const __m128i third = _mm_and_si128(words, _mm_set1_epi32(0x003F0000));
    return _mm_srai_epi32(_mm_or_si128(_mm_or_si128(first, second), third), 16);
}

inline std::size_t ReadThreesBlock(const char* octets, unsigned char* units) {
    // The last halves end with the block.
    const __m128i low = Apart(LoadHalves(octets, octets + 6));
    const __m128i high = Apart(_mm_srli_epi64(LoadHalves(octets + 10, octets + 16), 16));
    const __m128i characters = _mm_packs_epi32(CharactersOf(low), CharactersOf(high));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(units), WithSwappedOctets(characters));
    const __m128i haveMarks = _mm_packs_epi32(HaveMarks(low), HaveMarks(high));
    const __m128i threes = _mm_andnot_si128(NoThrees(characters), haveMarks);
    return UnitsBefore(_mm_cmpeq_epi16(threes, _mm_setzero_si128()));
}

inline std::size_t WriteThreesBlock(const unsigned char* units, char* octets) {
    const __m128i characters = WithSwappedOctets(_mm_loadu_si128(reinterpret_cast<const __m128i*>(units)));
    const __m128i first = _mm_srli_epi16(characters, 12);
    const __m128i second = _mm_slli_epi16(_mm_and_si128(characters, _mm_set1_epi16(0x0FC0)), 2);
    const __m128i third = _mm_and_si128(characters, _mm_set1_epi16(0x003F));
    const __m128i firstTwo = _mm_or_si128(
        _mm_or_si128(first, second), _mm_set1_epi16(static_cast<short>(Utf8Form::c_three.bits & 0xFFFF)));
    const __m128i last = _mm_or_si128(third, _mm_set1_epi16(Utf8Form::c_three.bits >> 16));
    StoreHalves(Together(_mm_unpacklo_epi16(firstTwo, last)), octets, octets + 6);
    StoreHalves(Together(_mm_unpackhi_epi16(firstTwo, last)), octets + 12, octets + 18);
    return UnitsBefore(NoThrees(characters));
}

} // namespace BySse2

using BySse2::ReadThreesBlock;
using BySse2::WriteThreesBlock;

#else

using Plainly::ReadThreesBlock;
using Plainly::WriteThreesBlock;

#endif

/// Takes blocks as long as all eight have three octets, and then as many as have; `take(place)` takes the one
/// that begins at a character. Returns how many were taken.
template <class Take>
std::size_t TakeThrees(std::size_t characters, Take take) {
    if (characters < c_threesBlock)
        return 0;
    std::size_t at = 0;
    std::size_t threes = take(at);
    while (threes == c_threesBlock && at + c_threesBlock < characters) {
        // The last block may begin in the one before.
        at = std::min(at + c_threesBlock, characters - c_threesBlock);
        threes = take(at);
    }
    return at + threes;
}

constexpr bool BeginsThree(char octet) {
    return (static_cast<unsigned char>(octet) & 0xF0) == 0xE0;
}

/// Reads those characters that come first and have three octets, as many as make blocks, and writes their
/// units. Returns how many. REQUIRES room for as many units as `size` octets can give.
inline std::size_t ReadThrees(const char* octets, std::size_t size, unsigned char* units) {
    if (size == 0 || !BeginsThree(*octets))
        return 0;
    return TakeThrees(size / c_threeOctets, [&](std::size_t at) {
        return ReadThreesBlock(octets + c_threeOctets * at, units + c_unitOctets * at);
    });
}

/// The same without the units.
inline std::size_t CountThrees(const char* octets, std::size_t size) {
    if (size == 0 || !BeginsThree(*octets))
        return 0;
    return TakeThrees(size / c_threeOctets, [&](std::size_t at) {
        unsigned char units[c_threesBlock * c_unitOctets];
        return ReadThreesBlock(octets + c_threeOctets * at, units);
    });
}

/// The way back. REQUIRES room for three octets a unit, and c_threesSlack.
inline std::size_t WriteThrees(const unsigned char* units, std::size_t count, char* octets) {
    return TakeThrees(count, [&](std::size_t at) {
        return WriteThreesBlock(units + c_unitOctets * at, octets + c_threeOctets * at);
    });
}

} // namespace Wire

#endif
