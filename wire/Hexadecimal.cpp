#include "wire/Hexadecimal.h"

#include <algorithm>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace Wire {
namespace {

constexpr char DigitOf(unsigned int value) {
    return static_cast<char>(value + (value < 10 ? '0' : 'A' - 10));
}

} // namespace

// The arrays do not overlap, which spares the loops a test and a way of their own.
void Plainly::WriteHexadecimal(const unsigned char* __restrict octets, std::size_t count,
                               char* __restrict digits) {
    for (std::size_t i = 0; i < count; ++i) {
        digits[2 * i] = DigitOf(octets[i] >> 4);
        digits[2 * i + 1] = DigitOf(octets[i] & 0x0F);
    }
}

bool Plainly::ReadHexadecimal(const char* __restrict digits, std::size_t count,
                              unsigned char* __restrict octets) {
    unsigned char all =
        0; // of the values, or-ed: looked at once, since a branch for each would forbid vectors
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned char high = ValueOfDigit(digits[2 * i]);
        const unsigned char low = ValueOfDigit(digits[2 * i + 1]);
        octets[i] = static_cast<unsigned char>(high << 4 | low);
        all = static_cast<unsigned char>(all | high | low);
    }
    return all <= 0x0F;
}

#ifdef __SSE2__

namespace {

constexpr std::size_t c_block = sizeof(__m128i); ///< octets, each of two digits

using Lanes [[gnu::vector_size(16)]] = unsigned char;

__m128i Load(const void* octets) {
    return _mm_loadu_si128(static_cast<const __m128i*>(octets));
}

void Store(__m128i value, void* octets) {
    _mm_storeu_si128(static_cast<__m128i*>(octets), value);
}

__m128i All(char octet) {
    return _mm_set1_epi8(octet);
}

__m128i Moved(__m128i octets, int by) {
    return reinterpret_cast<__m128i>(reinterpret_cast<Lanes>(octets) + static_cast<unsigned char>(by));
}

__m128i Smaller(__m128i left, __m128i right) {
    const auto one = reinterpret_cast<Lanes>(left);
    const auto other = reinterpret_cast<Lanes>(right);
    return reinterpret_cast<__m128i>(one < other ? one : other);
}

__m128i Larger(__m128i left, __m128i right) {
    const auto one = reinterpret_cast<Lanes>(left);
    const auto other = reinterpret_cast<Lanes>(right);
    return reinterpret_cast<__m128i>(one > other ? one : other);
}

/// What sixteen digits are worth; above 15 where there is none. Each of the two ranges is moved so that what
/// lies outside of it is above its values.
__m128i ValuesOf(__m128i digits) {
    constexpr int most = 0xFF;
    const __m128i decimal = Moved(_mm_subs_epu8(Moved(digits, most - '9'), All(6)), 9 - most + 6);
    const __m128i upper = _mm_and_si128(digits, All('\xDF'));
    const __m128i letter = _mm_adds_epu8(Moved(upper, -'A'), All(10));
    return Smaller(decimal, letter);
}

/// Eight octets, in 16 bits each, of pairs of values.
__m128i Joined(__m128i values) {
    const __m128i both = _mm_or_si128(_mm_slli_epi16(values, 4), _mm_srli_epi16(values, 8));
    return _mm_and_si128(both, _mm_set1_epi16(0x00FF));
}

__m128i DigitsOf(__m128i values) {
    const __m128i isLetter = _mm_cmpgt_epi8(values, All(9));
    const __m128i more = _mm_and_si128(isLetter, All('A' - '9' - 1));
    return reinterpret_cast<__m128i>(reinterpret_cast<Lanes>(Moved(values, '0')) +
                                     reinterpret_cast<Lanes>(more));
}

/// Calls `take(place)` for blocks that cover `count`, which is a block at least: the last one may begin in
/// the one before.
template <class Take>
void TakeBlocks(std::size_t count, Take take) {
    for (std::size_t at = 0; at < count - c_block; at += c_block)
        take(at);
    take(count - c_block);
}

} // namespace

void WriteHexadecimal(const unsigned char* __restrict octets, std::size_t count, char* __restrict digits) {
    if (count < c_block) {
        Plainly::WriteHexadecimal(octets, count, digits);
        return;
    }
    TakeBlocks(count, [&](std::size_t at) {
        const __m128i block = Load(octets + at);
        const __m128i high = _mm_and_si128(_mm_srli_epi16(block, 4), All(0x0F));
        const __m128i low = _mm_and_si128(block, All(0x0F));
        Store(DigitsOf(_mm_unpacklo_epi8(high, low)), digits + 2 * at);
        Store(DigitsOf(_mm_unpackhi_epi8(high, low)), digits + 2 * at + c_block);
    });
}

bool ReadHexadecimal(const char* __restrict digits, std::size_t count, unsigned char* __restrict octets) {
    if (count < c_block)
        return Plainly::ReadHexadecimal(digits, count, octets);
    __m128i largest = _mm_setzero_si128();
    TakeBlocks(count, [&](std::size_t at) {
        const __m128i first = ValuesOf(Load(digits + 2 * at));
        const __m128i second = ValuesOf(Load(digits + 2 * at + c_block));
        largest = Larger(largest, Larger(first, second));
        Store(_mm_packus_epi16(Joined(first), Joined(second)), octets + at);
    });
    return _mm_movemask_epi8(_mm_adds_epu8(largest, All(0x7F - 0x0F))) == 0;
}

#else

void WriteHexadecimal(const unsigned char* octets, std::size_t count, char* digits) {
    Plainly::WriteHexadecimal(octets, count, digits);
}

bool ReadHexadecimal(const char* digits, std::size_t count, unsigned char* octets) {
    return Plainly::ReadHexadecimal(digits, count, octets);
}

#endif

} // namespace Wire
