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

void JsonText::Name(std::string_view name) {
    constexpr std::size_t c_around = 4; // a comma, two quotes and a colon
    char* out = Room(name.size() + c_around);
    char* const begin = out;
    if (TakesComma())
        *out++ = ',';
    *out++ = '"';
    out = std::copy(name.begin(), name.end(), out);
    *out++ = '"';
    *out++ = ':';
    m_Size += static_cast<std::size_t>(out - begin);
}

void JsonText::String(std::string_view text) {
    constexpr std::size_t c_around = 3; // a comma and two quotes
    char* out = Room(text.size() * c_longestEscape + c_block + c_around);
    char* const begin = out;
    if (TakesComma())
        *out++ = ',';
    *out++ = '"';
    while (!text.empty()) {
        char block[c_block];
        const std::size_t size = std::min(text.size(), c_block);
        if (size == c_block)
            std::memcpy(block, text.data(), c_block);
        else
            text.copy(std::fill_n(block, c_block, ' ') - c_block, size);
        const BlockFindings found = Look(block);
        m_HasOthers = m_HasOthers || found.areOthers;
        if (found.areEscaped) {
            for (std::size_t i = 0; i < size; ++i) {
                if (IsEscaped(block[i]))
                    out = Escape(block[i], out);
                else
                    *out++ = block[i];
            }
        } else {
            std::memcpy(out, block, c_block);
            out += size;
        }
        text.remove_prefix(size);
    }
    *out++ = '"';
    m_Size += static_cast<std::size_t>(out - begin);
}

} // namespace show
