// The characters of a text in UTF-8, one after the other.
#ifndef ALPHABET_UTF8_H
#define ALPHABET_UTF8_H

#include <algorithm>
#include <string_view>

#include "Messages/Alphabet.h"
#include "alphabet/Plain.h"
#include "wire/Threes.h"
#include "wire/Utf8.h"

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
        char32_t character = 0;
        const char* const next = Wire::ReadUtf8(m_At, m_End, character);
        if (next == nullptr)
            return c_notUtf8;
        m_At = next;
        return character;
    }

    /// Goes past those of the next characters that have three octets, as many as make blocks, and writes
    /// their units of UTF-16. Returns how many.
    std::size_t TakeThrees(std::uint8_t* units) { return Past(Wire::ReadThrees(m_At, Left(), units)); }
    std::size_t TakeThrees() { return Past(Wire::CountThrees(m_At, Left())); }

    /// The plain characters that come next, `most` of them, which it goes past.
    std::string_view TakePlain(std::size_t most = std::string_view::npos) {
        const char* const begin = m_At;
        m_At += PlainRun(OctetsOf({m_At, std::min(most, Left())}));
        return {begin, static_cast<std::size_t>(m_At - begin)};
    }

private:
    std::size_t Past(std::size_t threes) {
        m_At += Wire::c_threeOctets * threes;
        return threes;
    }
    std::size_t Left() const { return static_cast<std::size_t>(m_End - m_At); }

    const char* m_Begin;
    const char* m_At;
    const char* m_End;
};

} // namespace Messages

#endif
