// Septets and UTF-16 units made UTF-8, with a word on whatever is odd in them.
#ifndef ALPHABET_TEXT_H
#define ALPHABET_TEXT_H

#include <algorithm>
#include <cstring>
#include <vector>

#include "Messages/Octets.h"
#include "Messages/Remarks.h"
#include "alphabet/Characters.h"
#include "alphabet/Plain.h"
#include "wire/Threes.h"
#include "wire/Utf8.h"

namespace Messages {

constexpr std::size_t c_mostUtf8OfUnit = 3; ///< octets of UTF-8 that a septet or a UTF-16 unit can give
constexpr std::size_t c_utf8Slack = Wire::c_threesSlack; ///< octets after them that may be written over
constexpr char16_t c_replacement = 0xFFFD;

constexpr unsigned int c_septetsAtOnce = 8;

/// Copies eight septets as ASCII; false where one of them is not.
inline bool CopyAscii(const std::uint8_t* septets, const CharacterTable& locking, char* out) {
    bool isAscii = true;
    for (unsigned int i = 0; i < c_septetsAtOnce; ++i) {
        out[i] = locking.ascii[septets[i]];
        isAscii &= out[i] != '\0';
    }
    return isAscii;
}

/// Whether the septets end in an escape that nothing follows; two of them are a character.
inline bool EndsInEscape(OctetView septets) {
    std::size_t escapes = 0;
    while (escapes < septets.size() && septets[septets.size() - 1 - escapes] == c_escapeSeptet)
        ++escapes;
    return escapes % 2 != 0;
}

/// Makes one pair of a pair that was cut, at that place of septets: some send its escape in both parts.
inline void HealCut(std::vector<std::uint8_t>& septets, std::size_t cut) {
    if (cut < septets.size() && septets[cut] == c_escapeSeptet &&
        EndsInEscape(OctetView(septets).Sub(0, cut)))
        septets.erase(septets.begin() + static_cast<std::ptrdiff_t>(cut));
}

inline char* Put(const Utf8Character& character, char* out) {
    std::memcpy(out, &character, sizeof character);
    return out + character.length;
}

/// Writes the text of septets, each below 128, to `out`, which has room for c_mostUtf8OfUnit a septet and
/// c_utf8Slack. Returns its end. Calls `odd(code, septet, place)`.
template <class Odd>
char* WriteSeptetText(OctetView septets, SeptetTables tables, char* out, Odd odd) {
    const CharacterTable& locking = LockingTable(tables.locking);
    const CharacterTable& single = SingleShiftTable(tables.single);
    const bool holdsPlain = HoldsPlain(tables.locking);
    const std::size_t count = septets.size();
    std::size_t at = 0;
    const auto putLocking = [&](std::size_t place) {
        const Utf8Character& character = locking.utf8[septets[place]];
        if (character.length == 0)
            odd(RemarkCode::NoCharacter, septets[place], place);
        out = Put(character.length == 0 ? ToUtf8(c_replacement) : character, out);
    };
    const auto putEscaped = [&](std::size_t escape) {
        const std::uint8_t septet = septets[escape + 1];
        const char16_t character = single.characters[septet];
        if (character == Tables::Character::c_control) {
            odd(RemarkCode::ControlEscape, septet, escape);
        } else if (character != 0) {
            out = Put(single.utf8[septet], out);
        } else {
            odd(RemarkCode::UnknownEscape, septet, escape);
            if (septet == c_escapeSeptet)
                *out++ = ' ';
            else
                putLocking(escape + 1);
        }
    };
    while (at < count) {
        if (const std::size_t plain = holdsPlain ? PlainRun(septets.Sub(at)) : 0; plain != 0) {
            std::memcpy(out, septets.data() + at, plain);
            at += plain;
            out += plain;
            continue;
        }
        if (count - at >= c_septetsAtOnce && CopyAscii(septets.data() + at, locking, out)) {
            at += c_septetsAtOnce;
            out += c_septetsAtOnce;
            continue;
        }
        for (const std::size_t end = at + std::min<std::size_t>(c_septetsAtOnce, count - at); at < end;
             ++at) {
            if (septets[at] != c_escapeSeptet) {
                putLocking(at);
            } else if (at + 1 == count) {
                odd(RemarkCode::EscapeAtEnd, c_escapeSeptet, at);
            } else {
                putEscaped(at);
                ++at;
            }
        }
    }
    return out;
}

/// Writes UTF-16, most significant octet first, as WriteSeptetText() does septets. An odd last octet is the
/// caller's.
template <class Odd>
char* WriteUcs2Text(OctetView octets, char* out, Odd odd) {
    const auto unitAt = [&](std::size_t unit) {
        return static_cast<char16_t>(octets[2 * unit] << 8 | octets[2 * unit + 1]);
    };
    const auto isHigh = [](char16_t unit) { return (unit & 0xFC00) == 0xD800; };
    const auto isLow = [](char16_t unit) { return (unit & 0xFC00) == 0xDC00; };
    const std::size_t count = octets.size() / 2;
    for (std::size_t at = 0; at < count; ++at) {
        if (Wire::Utf8Form::HasThreeOctets(unitAt(at))) {
            const std::size_t threes = Wire::WriteThrees(octets.data() + 2 * at, count - at, out);
            out += Wire::c_threeOctets * threes;
            at += threes;
            if (at == count)
                break;
        }
        const char16_t unit = unitAt(at);
        char32_t character = unit;
        if (isHigh(unit) && at + 1 < count && isLow(unitAt(at + 1))) {
            character = 0x10000U + ((unit & 0x3FFU) << 10U) + (unitAt(++at) & 0x3FFU);
        } else if (isHigh(unit) || isLow(unit)) {
            odd(RemarkCode::UnpairedSurrogate, unit, at);
            character = c_replacement;
        }
        out = Wire::WriteUtf8(character, out);
    }
    return out;
}

/// Units of text that TP-UDL can count, and room for the text of them.
constexpr std::size_t c_mostUnits = 255;
using TextOfUnits = std::array<char, c_mostUnits * c_mostUtf8OfUnit + c_utf8Slack>;

/// Whether septets, c_mostUnits at most, are read as this text. Plain characters are their own septets.
inline bool IsTextOfSeptets(std::string_view text, OctetView septets, SeptetTables tables) {
    if (HoldsPlain(tables.locking) && text.size() == septets.size() && PlainRun(septets) == septets.size())
        return text.empty() || std::memcmp(text.data(), septets.data(), text.size()) == 0;
    TextOfUnits room;
    const char* const end = WriteSeptetText(septets, tables, room.data(), [](auto...) {});
    return text == std::string_view(room.data(), static_cast<std::size_t>(end - room.data()));
}

/// The same of UTF-16, most significant octet first.
inline bool IsTextOfUcs2(std::string_view text, OctetView octets) {
    TextOfUnits room;
    const char* const end = WriteUcs2Text(octets, room.data(), [](auto...) {});
    return text == std::string_view(room.data(), static_cast<std::size_t>(end - room.data()));
}

} // namespace Messages

#endif
