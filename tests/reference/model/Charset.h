// The GSM 7-bit default alphabet of 3GPP TS 23.038, its extension, and Greek transliteration.
#ifndef TESTS_REFERENCE_MODEL_CHARSET_H
#define TESTS_REFERENCE_MODEL_CHARSET_H

#include <map>
#include <vector>

#include "model/Types.h"

namespace model {

inline constexpr int UNMAPPABLE = -1;
inline constexpr std::uint16_t NO_REPLACEMENT = 0xFFFF;
inline constexpr std::uint8_t ESCAPE = 0x1B;
inline constexpr int GREEK = 1;

/// Code points of the 128 default codes.
const std::vector<std::uint16_t>& DefaultTable();
/// Code points after the escape code.
const std::map<std::uint8_t, std::uint16_t>& EscapeTable();
/// What stands in for a character that the alphabet lacks.
const std::map<std::uint16_t, std::uint16_t>& GreekTable();

struct Charset {
    std::vector<int> m_Selected; ///< translation tables in order of selection
    int m_Translated = 0;

    int UnicodeToGsm(std::uint16_t unicode);
    int Translate(std::uint16_t unicode);
    std::uint16_t GreekToUnicode(std::uint16_t unicode) const;
    std::uint16_t FindUnicodeCharFromEscapeChar(std::uint8_t code) const;
    bool FindTable(int table) const;

    /// `text` is long enough for `srcBytes`, four bytes a character; `out` is null for no buffer.
    bool GetGsmBytes(const Text& text, std::uint32_t srcBytes, std::uint32_t& ioLen, Octets* out);
    Text GsmToUnicode(const Octets& codes) const;       ///< the overload for byte arrays
    Text GsmStringToUnicode(const Octets& codes) const; ///< the overload for narrow strings
    Octets UnicodeToGsmString(const Text& text);
};

} // namespace model

#endif
