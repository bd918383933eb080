// What a part has room for, and how a text is cut into parts.
#ifndef ALPHABET_ROOM_H
#define ALPHABET_ROOM_H

#include "alphabet/Codes.h"
#include "alphabet/Packing.h"
#include "alphabet/Utf8.h"

namespace Messages {

constexpr std::size_t c_languageElementOctets = 3;

constexpr std::size_t ConcatenationOctets(bool hasWideReference) {
    return hasWideReference ? 6 : 5;
}

/// Units of a text, and octets of user data that they take after a header.
class PartRoom {
public:
    PartRoom(Alphabet alphabet, std::size_t octets, std::size_t elementOctets)
        : m_IsGsm7(alphabet == Alphabet::Gsm7),
          m_UnitOctets(alphabet == Alphabet::Ucs2 ? 2 : 1),
          m_Header(HeaderOctets(elementOctets)),
          m_Octets(octets) {}

    std::size_t Units() const {
        if (m_Header >= m_Octets)
            return 0;
        return m_IsGsm7 ? SeptetsIn(m_Octets, 0) - SeptetsOfHeader(m_Header)
                        : (m_Octets - m_Header) / m_UnitOctets;
    }
    /// Whether there is room for so many; an empty text needs it for the header.
    bool Holds(std::size_t units) const { return OctetsOf(units) <= m_Octets; }
    std::size_t OctetsOf(std::size_t units) const {
        return m_IsGsm7 ? OctetsOfSeptets(SeptetsOfHeader(m_Header) + units)
                        : m_Header + units * m_UnitOctets;
    }

private:
    bool m_IsGsm7;
    std::size_t m_UnitOctets; ///< elsewhere
    std::size_t m_Header;
    std::size_t m_Octets;
};

/// Octets of the language elements that a choice takes.
constexpr std::size_t LanguageOctets(const Choice& choice) {
    std::size_t octets = 0;
    if (choice.alphabet == Alphabet::Gsm7) {
        octets += choice.tables.locking != Language::Default ? c_languageElementOctets : 0;
        octets += choice.tables.single != Language::Default ? c_languageElementOctets : 0;
    }
    return octets;
}

/// The room of a text in one part, and in each of several.
inline PartRoom RoomOfOne(const Choice& choice, const TextRoom& room) {
    return {choice.alphabet, room.octets, room.elementOctets + LanguageOctets(choice)};
}
inline PartRoom RoomOfMany(const Choice& choice, const TextRoom& room) {
    return {choice.alphabet, room.octets,
            room.elementOctets + LanguageOctets(choice) + ConcatenationOctets(room.hasWideReference)};
}

/// Units that a choice writes a character with.
inline std::size_t UnitsOf(char32_t character, const Choice& choice) {
    if (choice.alphabet == Alphabet::Ucs2)
        return character < 0x10000 ? 1 : 2;
    const auto locking = static_cast<std::size_t>(choice.tables.locking);
    return c_codes.locking[locking][c_codes.NumberOf(character)] != 0 ? 1 : 2;
}

/// Whether a choice writes each plain character with one unit.
inline bool IsPlainOneUnit(const Choice& choice) {
    return choice.alphabet == Alphabet::Ucs2 || HoldsPlain(choice.tables.locking);
}

/// A text in UTF-8, and what is known of it.
struct SeenText {
    std::string_view octets;
    bool isPlain = false; ///< all of its characters are; false where nobody has looked
};

/// Fills parts from the front, of `most` units each, and calls `visit(offset, units)` for each: where it
/// begins in the text. REQUIRES UTF-8 that the choice holds, and room for a pair.
template <class Visit>
void VisitParts(const SeenText& text, const Choice& choice, std::size_t most, Visit visit) {
    std::size_t begin = 0;
    std::size_t used = 0;
    const bool isPlainOneUnit = IsPlainOneUnit(choice);
    if (text.isPlain && isPlainOneUnit) {
        const std::size_t size = text.octets.size();
        for (; size - begin > most; begin += most)
            visit(begin, most);
        visit(begin, size - begin);
        return;
    }
    for (Characters characters(text.octets); !characters.AtEnd();) {
        if (isPlainOneUnit)
            used += characters.TakePlain(most - used).size();
        if (characters.AtEnd())
            break;
        const std::size_t offset = characters.Offset();
        const std::size_t units = UnitsOf(characters.Next(), choice);
        if (used + units > most) {
            visit(begin, used);
            begin = offset;
            used = 0;
        }
        used += units;
    }
    visit(begin, used);
}

} // namespace Messages

#endif
