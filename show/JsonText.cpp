#include "show/JsonText.h"

#include <algorithm>
#include <type_traits>

namespace show {

namespace {

constexpr std::size_t c_block = 16; ///< characters that are looked at together
constexpr std::size_t c_longestEscape = 6;

constexpr bool IsEscaped(char character) {
    return static_cast<unsigned char>(character) < ' ' || character == '"' || character == '\\';
}

/// Which of sixteen characters are of a kind, by the vectors that the compiler has on every machine.
using Block [[gnu::vector_size(c_block)]] = unsigned char;

Block BlockAt(const char* characters) {
    Block block;
    std::memcpy(&block, characters, sizeof block);
    return block;
}

template <class Found>
bool IsAny(const Found& found) {
    std::uint64_t halves[2];
    static_assert(sizeof halves == sizeof found);
    std::memcpy(halves, &found, sizeof halves);
    return (halves[0] | halves[1]) != 0;
}

/// Whether all are printable ASCII without an escape.
bool ArePlain(const Block& block) {
    constexpr unsigned char c_printable = '~' - ' ';
    return !IsAny((block - ' ' > c_printable) | (block == '"') | (block == '\\'));
}

bool HoldsOthers(const Block& block) {
    return IsAny(block > '~');
}

/// Copies less than a block to the front of a block of blanks, in two pieces that may overlap.
void CopyBeforeBlanks(std::string_view text, char* out) {
    std::memset(out, ' ', c_block);
    const auto copyEnds = [&]<std::size_t size>(std::integral_constant<std::size_t, size>) {
        std::memcpy(out, text.data(), size);
        std::memcpy(out + text.size() - size, text.data() + text.size() - size, size);
    };
    if (text.size() >= 8)
        copyEnds(std::integral_constant<std::size_t, 8>());
    else if (text.size() >= 4)
        copyEnds(std::integral_constant<std::size_t, 4>());
    else
        text.copy(out, text.size());
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

void JsonText::Grow(std::size_t size) {
    const std::size_t larger = 2 * static_cast<std::size_t>(m_End - m_Begin) + size;
    auto room = std::make_unique<char[]>(larger);
    m_Out = std::copy(m_Begin, m_Out, room.get());
    m_Larger = std::move(room);
    m_Begin = m_Larger.get();
    m_End = m_Begin + larger;
}

void JsonText::String(std::string_view text) {
    constexpr std::size_t c_around = 3; // two quotes and a comma
    char* out = Room(text.size() * c_longestEscape + c_block + c_around);
    *out++ = '"';
    for (; text.size() >= c_block; text.remove_prefix(c_block)) {
        std::memcpy(out, text.data(), c_block);
        out = ArePlain(BlockAt(out)) ? out + c_block : Settle(text.substr(0, c_block), out);
    }
    if (!text.empty()) {
        CopyBeforeBlanks(text, out);
        out = ArePlain(BlockAt(out)) ? out + text.size() : Settle(text, out);
    }
    *out++ = '"';
    *out++ = ',';
    m_Out = out;
}

/// A block that is written as it is, perhaps with blanks behind it: escapes what has to be. Returns the end.
char* JsonText::Settle(std::string_view text, char* out) {
    m_HasOthers = m_HasOthers || HoldsOthers(BlockAt(out));
    for (const char character : text) {
        if (IsEscaped(character))
            out = Escape(character, out);
        else
            *out++ = character;
    }
    return out;
}

} // namespace show
