// Plain characters, which the default alphabet has where ASCII has them: nearly all of most texts. A septet
// of theirs, the octet of UTF-8 and the character are one number, so that many are looked at and copied
// together.
#ifndef ALPHABET_PLAIN_H
#define ALPHABET_PLAIN_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace Messages {

constexpr std::size_t c_plainBlock = 16; ///< octets that are looked at together

constexpr bool IsPlain(std::uint8_t octet) {
    const std::uint8_t small = octet | 0x20U;
    return (small >= 'a' && small <= 'z') || (octet >= ' ' && octet <= '?' && octet != '$') ||
           octet == '\n' || octet == '\r';
}

/// Whether all sixteen octets are plain: as IsPlain(), by the vectors that the compiler has on every machine.
inline bool IsPlainBlock(const void* octets) {
    using Vector [[gnu::vector_size(c_plainBlock)]] = std::uint8_t;
    Vector block;
    std::memcpy(&block, octets, sizeof block);
    // Less than the first wraps, and is more than the last.
    const auto isLetter = (block | 0x20) - 'a' <= 'z' - 'a';
    const auto isSign = (block - ' ' <= '?' - ' ') & (block != '$');
    const auto isPlain = isLetter | isSign | (block == '\n') | (block == '\r');
    std::uint64_t halves[2];
    static_assert(sizeof halves == sizeof isPlain);
    std::memcpy(halves, &isPlain, sizeof halves);
    return (halves[0] & halves[1]) == ~std::uint64_t{0};
}

/// How many octets at the beginning are plain. Where none is, that is found out at once: most texts that are
/// not plain hardly ever are.
inline std::size_t PlainRun(std::string_view text) {
    std::size_t run = 0;
    if (text.empty() || static_cast<std::uint8_t>(text[0]) >= 0x80)
        return run;
    while (text.size() - run >= c_plainBlock && IsPlainBlock(text.data() + run))
        run += c_plainBlock;
    while (run < text.size() && IsPlain(static_cast<std::uint8_t>(text[run])))
        ++run;
    return run;
}

} // namespace Messages

#endif
