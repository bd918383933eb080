#include "show/JsonText.h"

#include <algorithm>

namespace show {

namespace {

constexpr std::size_t c_block = 16; ///< characters that are looked at together
constexpr std::size_t c_longestEscape = 6;

constexpr bool IsEscaped(char character) {
    return static_cast<unsigned char>(character) < ' ' || character == '"' || character == '\\';
}

/// What is found in sixteen characters.
struct BlockFindings {
    bool areEscaped; ///< some of them, by IsEscaped()
    bool areOthers;  ///< some are no printable ASCII, and need no escape
};

/// By the vectors that the compiler has on every machine.
BlockFindings Look(const char* characters) {
    using Vector [[gnu::vector_size(c_block)]] = unsigned char;
    Vector block;
    std::memcpy(&block, characters, sizeof block);
    const auto isAny = [](const auto& found) {
        std::uint64_t halves[2];
        static_assert(sizeof halves == sizeof found);
        std::memcpy(halves, &found, sizeof halves);
        return (halves[0] | halves[1]) != 0;
    };
    return {isAny((block < ' ') | (block == '"') | (block == '\\')), isAny(block > '~')};
}

char* Escape(char character, char* out) {
    constexpr std::string_view c_digits = "0123456789ABCDEF";
    constexpr std::string_view c_short = "\"\\\b\f\n\r\t";
    constexpr std::string_view c_letters = "\"\\bfnrt";
    *out++ = '\\';
    if (const std::size_t i = c_short.find(character); i != std::string_view::npos) {
        *out++ = c_letters[i];
        return out;
    }
    constexpr std::string_view c_begin = "u00";
    out = std::copy(c_begin.begin(), c_begin.end(), out);
    const auto value = static_cast<unsigned char>(character);
    *out++ = c_digits[value >> 4U];
    *out++ = c_digits[value & 0x0FU];
    return out;
}

} // namespace

void JsonText::String(std::string_view text) {
    Separate();
    Put("\"");
    while (!text.empty()) {
        char block[c_block];
        std::fill_n(block, c_block, ' ');
        const std::size_t size = text.copy(block, c_block);
        const BlockFindings found = Look(block);
        m_HasOthers = m_HasOthers || found.areOthers;
        char* const begin = Room(c_block * c_longestEscape);
        char* out = begin + size;
        std::memcpy(begin, block, c_block);
        if (found.areEscaped) {
            out = begin;
            for (std::size_t i = 0; i < size; ++i) {
                if (IsEscaped(block[i]))
                    out = Escape(block[i], out);
                else
                    *out++ = block[i];
            }
        }
        m_Size += static_cast<std::size_t>(out - begin);
        text.remove_prefix(size);
    }
    Put("\"");
}

} // namespace show
