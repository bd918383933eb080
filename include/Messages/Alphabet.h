/// @file
/// The GSM 7-bit alphabets: the default alphabet with its extension, and the tables of national languages,
/// 3GPP TS 23.038 clause 6.2 and annex A.
#ifndef MESSAGES_ALPHABET_H
#define MESSAGES_ALPHABET_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Messages/DataCoding.h"
#include "Messages/Export.h"
#include "Messages/Octets.h"

namespace Messages {

/// National language identifiers, TS 23.038 clause 6.2.1.2.4. Spanish has no locking shift table.
enum class Language : std::uint8_t {
    Default = 0,
    Turkish = 1,
    Spanish = 2,
    Portuguese = 3,
    Bengali = 4,
    Gujarati = 5,
    Hindi = 6,
    Kannada = 7,
    Malayalam = 8,
    Oriya = 9,
    Punjabi = 10,
    Tamil = 11,
    Telugu = 12,
    Urdu = 13
};

/// The largest language identifier with a table.
inline constexpr std::uint8_t c_lastLanguage = 13;

/// Before a septet: it stands for the character of the single shift table.
inline constexpr std::uint8_t c_escapeSeptet = 0x1B;

/// The tables that a text in GSM 7-bit is written with.
struct SeptetTables {
    Language locking = Language::Default; ///< element 25
    Language single = Language::Default;  ///< element 24

    /// The same tables.
    friend constexpr bool operator==(const SeptetTables& left, const SeptetTables& right) noexcept {
        return left.locking == right.locking && left.single == right.single;
    }
    /// The opposite.
    friend constexpr bool operator!=(const SeptetTables& left, const SeptetTables& right) noexcept {
        return !(left == right);
    }
};

/// Whether a locking shift table is known of the language; so is the default alphabet.
MESSAGES_API bool HasLockingTable(Language language) noexcept;
/// Whether a single shift table is known of the language; so is the extension of the default alphabet.
MESSAGES_API bool HasSingleShiftTable(Language language) noexcept;

/// The character of a septet in the locking table, 0 where it has none and for the escape. REQUIRES septet <
/// 128, and a named language; of one without a locking table it is the default alphabet. All characters of
/// these tables lie below U+10000.
MESSAGES_API char16_t LockingCharacter(Language language, std::uint8_t septet) noexcept;

/// The character of the pair escape, septet in the single shift table; 0 where it has none. REQUIRES septet <
/// 128, and a named language.
MESSAGES_API char16_t SingleShiftCharacter(Language language, std::uint8_t septet) noexcept;

/// Septets one an octet, as `count` of them stand packed from bit `firstBit` (0 to 7) of `packed` on,
/// TS 23.038 clause 6.1.2.1. Stops where `packed` ends; returns how many were written to `septets`. REQUIRES
/// firstBit < 8, and room for `count`.
MESSAGES_API std::size_t UnpackSeptets(OctetView packed, unsigned int firstBit, std::size_t count,
                                       std::uint8_t* septets) noexcept;

/// The text of septets, one an octet, in UTF-8, appended to `text`. A pair of two escapes is a space; a pair
/// that the single shift table lacks is the second septet's character of the locking table; a septet without
/// a character is U+FFFD; escape, 0D and an escape at the end are nothing. REQUIRES septets < 128, and named
/// languages. Throws std::bad_alloc alone.
MESSAGES_API void AppendSeptetText(OctetView septets, SeptetTables tables, std::string& text);

/// UTF-16 with the most significant octet first, in UTF-8, appended to `text`. An unpaired surrogate is
/// U+FFFD; an odd last octet is passed over. Throws std::bad_alloc alone.
MESSAGES_API void AppendUcs2Text(OctetView octets, std::string& text);

/// The way back: septets, one an octet, packed from bit `firstBit` of `packed[0]` on; the bits before the
/// first and after the last are 0. Returns the octets written. REQUIRES septets < 128, firstBit < 8, and room
/// for (firstBit + 7 × septets) / 8 octets, rounded up.
MESSAGES_API std::size_t PackSeptets(OctetView septets, unsigned int firstBit, std::uint8_t* packed) noexcept;

/// A character of a text that something cannot hold, or octets in it that are none.
struct MisfitCharacter {
    std::size_t offset = 0; ///< of its first octet in the text
    char32_t character = 0; ///< c_notUtf8 where the octets are not UTF-8
};

/// Stands for octets that are not UTF-8.
inline constexpr char32_t c_notUtf8 = 0xFFFFFFFF;

/// The septets of a text in UTF-8, one an octet, appended to `septets`. A character of the locking table is
/// one septet, one of the single shift table alone two; of several septets the lowest. Returns the first
/// character that the tables do not hold; `septets` is then as it was. REQUIRES named languages. Throws
/// std::bad_alloc alone.
MESSAGES_API std::optional<MisfitCharacter> AppendSeptets(std::string_view text, SeptetTables tables,
                                                          std::vector<std::uint8_t>& septets);

/// A text in UTF-8 as UTF-16 with the most significant octet first, appended to `octets`. Holds every
/// character; returns what is not UTF-8, and `octets` is then as it was. Throws std::bad_alloc alone.
MESSAGES_API std::optional<MisfitCharacter> AppendUcs2(std::string_view text,
                                                       std::vector<std::uint8_t>& octets);

/// Languages whose tables a text may be written with. The default alphabet and its extension always may.
class Languages {
public:
    /// None.
    constexpr Languages() noexcept = default;
    /// These.
    constexpr Languages(std::initializer_list<Language> languages) noexcept {
        for (const Language language : languages)
            Add(language);
    }
    /// All that have a table.
    static constexpr Languages All() noexcept {
        Languages all;
        all.m_Bits = static_cast<std::uint16_t>((1U << (c_lastLanguage + 1U)) - 1U);
        return all;
    }

    /// REQUIRES a named language.
    constexpr void Add(Language language) noexcept {
        m_Bits = static_cast<std::uint16_t>(m_Bits | 1U << static_cast<unsigned int>(language));
    }
    /// REQUIRES a named language.
    constexpr bool Has(Language language) const noexcept {
        return (m_Bits >> static_cast<unsigned int>(language) & 1U) != 0;
    }
    /// A bit for each language, counted from 0, the lowest; that of the default alphabet is set.
    constexpr std::uint16_t Bits() const noexcept { return m_Bits; }

private:
    std::uint16_t m_Bits = 1;
};

/// The room that messages have for a text.
struct TextRoom {
    std::size_t octets = 140; ///< of user data in one message
    std::size_t elementOctets =
        0; ///< of header elements in each, beside those of concatenation and languages
    bool hasWideReference = false; ///< of a concatenation: 16 bits instead of 8
};

/// How a text is to be written.
struct ChoiceOptions {
    Languages languages;                               ///< that may be used
    std::optional<Alphabet> alphabet = std::nullopt;   ///< the only one that may be: Gsm7 or Ucs2
    std::optional<SeptetTables> tables = std::nullopt; ///< the only ones that may be, in GSM 7-bit
    TextRoom room;                                     ///< that the messages have
};

/// A way to write a text, the same for all of its parts.
struct Choice {
    Alphabet alphabet = Alphabet::Gsm7; ///< Gsm7 or Ucs2
    SeptetTables tables;                ///< of GSM 7-bit
    std::size_t units = 0;              ///< septets or UTF-16 units of the text
    std::size_t parts = 0;  ///< messages, 1 of an empty text; c_noParts where one has no room for a pair
    std::size_t octets = 0; ///< of user data in all parts, headers included
};

/// More parts than there are.
inline constexpr std::size_t c_noParts = static_cast<std::size_t>(-1);

/// The cheapest way to write a text in UTF-8: the fewest parts, then the fewest octets in all, then the
/// default alphabet, a single shift table, a locking shift table, both, UCS2, then the lower language, that
/// of the locking shift table first. Each part is filled from the front as far as it goes, and no pair is
/// cut: escape and septet, the halves of a character above U+FFFF.
///
/// Returns the first octets that are not UTF-8, or the first character that the only alphabet or tables
/// allowed do not hold; `choice` is then as it was. Takes time linear in the length of the text. REQUIRES
/// named languages.
MESSAGES_API std::optional<MisfitCharacter> Choose(std::string_view text, const ChoiceOptions& options,
                                                   Choice& choice) noexcept;

/// The offsets in a text, in octets, where its parts begin: the first is 0. REQUIRES that the choice holds
/// the text and is not without parts. Throws std::bad_alloc alone.
MESSAGES_API std::vector<std::size_t> PartOffsets(std::string_view text, const Choice& choice,
                                                  const TextRoom& room);

/// A character that is no single septet of the default alphabet, and the tables that hold it, whether they
/// may be used or not. One that is in no extension and no table makes a text UCS2.
struct CostlyCharacter {
    char32_t character = 0;     ///< that costs more, or forces a choice
    std::size_t offset = 0;     ///< of the first one, in octets of the text
    std::size_t count = 0;      ///< how often the text has it
    bool isInExtension = false; ///< of the default alphabet: a pair there
    Languages locking;          ///< in whose locking shift tables it is one septet
    Languages single;           ///< in whose single shift tables it is a pair
};

/// What a text costs, and why.
struct Explanation {
    std::vector<Choice> choices;             ///< each one that holds the text, the cheapest first
    std::vector<std::size_t> offsets;        ///< where the parts of the cheapest begin; none of c_noParts
    std::vector<CostlyCharacter> characters; ///< in the order of the text
};

/// Explains what Choose() chooses: the first choice is what it finds with the same options, and fails as it
/// does; `explanation` is then as it was. Of a locking shift table with several single shift tables, each is
/// a choice of its own. REQUIRES named languages. Throws std::bad_alloc alone.
MESSAGES_API std::optional<MisfitCharacter> Explain(std::string_view text, const ChoiceOptions& options,
                                                    Explanation& explanation);

/// One character of a text, or two that were composed, and what stands for it.
struct Replacement {
    std::size_t offset = 0;  ///< in the text before, in octets
    std::size_t length = 0;  ///< in octets
    std::string replacement; ///< in UTF-8; empty where the character is left out
};

/// A text whose characters the languages' tables hold, as far as near ones go: two characters that are a
/// composed one, then quotation marks, dashes, spaces, ligatures and signs that look alike. A character that
/// a table holds stays, and so does one that has nothing near. Octets that are not UTF-8 stay. What was
/// replaced is appended to `replacements`. Throws std::bad_alloc alone.
MESSAGES_API std::string ReplaceNear(std::string_view text, Languages languages,
                                     std::vector<Replacement>& replacements);

} // namespace Messages

#endif
