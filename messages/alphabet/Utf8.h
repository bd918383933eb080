// The characters of a text in UTF-8, one after the other.
#ifndef ALPHABET_UTF8_H
#define ALPHABET_UTF8_H

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "Messages/Alphabet.h"
#include "alphabet/Plain.h"

namespace Messages {

/// Goes through a text. Stops at octets that are not UTF-8: an overlong form, a surrogate, a character above
/// U+10FFFF, or octets that are missing.
class Characters {
public:
    explicit Characters(std::string_view text)
        : m_Begin(text.data()), m_At(text.data()), m_End(text.data() + text.size()) {}

    bool AtEnd() const { return m_At == m_End; }
    /// Of the next character, in octets.
    std::size_t Offset() const { return static_cast<std::size_t>(m_At - m_Begin); }

    /// The next character; c_notUtf8 where there is none, and the offset stays. REQUIRES that it is not at
    /// the end.
    char32_t Next() {
        const std::uint8_t lead = OctetAt(0);
        if (lead < 0x80) {
            ++m_At;
            return lead;
        }
        if ((lead & 0xF0U) == 0xE0)
            return NextOf<3>(lead);
        if ((lead & 0xE0U) == 0xC0)
            return NextOf<2>(lead);
        return (lead & 0xF8U) == 0xF0 ? NextOf<4>(lead) : c_notUtf8;
    }

    /// The plain characters that come next, `most` of them, which it goes past.
    std::string_view TakePlain(std::size_t most = std::string_view::npos) {
        const char* const begin = m_At;
        m_At += PlainRun({m_At, std::min(most, Left())});
        return {begin, static_cast<std::size_t>(m_At - begin)};
    }

private:
    std::size_t Left() const { return static_cast<std::size_t>(m_End - m_At); }
    std::uint8_t OctetAt(std::size_t offset) const { return static_cast<std::uint8_t>(m_At[offset]); }

    template <std::size_t Length>
    char32_t NextOf(std::uint8_t lead) {
        constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
        if (Left() < Length)
            return c_notUtf8;
        char32_t character = lead & (0x7FU >> Length);
        unsigned int others = 0; // of all octets, what bits 7 and 6 have instead of 10
        for (std::size_t i = 1; i < Length; ++i) {
            const unsigned int next = OctetAt(i) ^ 0x80U;
            others |= next;
            character = character << 6U | (next & 0x3FU);
        }
        const bool isSurrogate = character >= 0xD800 && character < 0xE000;
        if (others > 0x3F || character < least[Length] || character > 0x10FFFF || isSurrogate)
            return c_notUtf8;
        m_At += Length;
        return character;
    }

    const char* m_Begin;
    const char* m_At;
    const char* m_End;
};

} // namespace Messages

#endif
