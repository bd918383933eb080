// The characters of a text in UTF-8, one after the other.
#ifndef ALPHABET_UTF8_H
#define ALPHABET_UTF8_H

#include <cstdint>
#include <string_view>

#include "Messages/Alphabet.h"

namespace Messages {

/// Goes through a text. Stops at octets that are not UTF-8: an overlong form, a surrogate, a character above
/// U+10FFFF, or octets that are missing.
class Characters {
public:
    explicit Characters(std::string_view text) : m_Text(text) {}

    bool AtEnd() const { return m_At == m_Text.size(); }
    /// Of the next character, in octets.
    std::size_t Offset() const { return m_At; }

    /// The next character; c_notUtf8 where there is none, and the offset stays. REQUIRES that it is not at
    /// the end.
    char32_t Next() {
        const std::uint8_t lead = OctetAt(0);
        if (lead < 0x80) {
            ++m_At;
            return lead;
        }
        return NextOfSeveral(lead);
    }

private:
    std::uint8_t OctetAt(std::size_t offset) const {
        return static_cast<std::uint8_t>(m_Text[m_At + offset]);
    }

    char32_t NextOfSeveral(std::uint8_t lead) {
        const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
        if (lead < 0xC0 || lead > 0xF4 || m_Text.size() - m_At < length)
            return c_notUtf8;
        char32_t character = lead & (0x7FU >> length);
        for (std::size_t i = 1; i < length; ++i) {
            if ((OctetAt(i) & 0xC0U) != 0x80)
                return c_notUtf8;
            character = character << 6U | (OctetAt(i) & 0x3FU);
        }
        constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
        const bool isSurrogate = character >= 0xD800 && character < 0xE000;
        if (character < least[length] || character > 0x10FFFF || isSurrogate)
            return c_notUtf8;
        m_At += length;
        return character;
    }

    std::string_view m_Text;
    std::size_t m_At = 0;
};

} // namespace Messages

#endif
