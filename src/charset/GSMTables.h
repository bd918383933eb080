// The constant tables of the GSM 7-bit default alphabet and what follows from them.
#ifndef CHARSET_GSMTABLES_H
#define CHARSET_GSMTABLES_H

#include <array>

#include "Encoding/GSMCharSet.h"

namespace Encoding {

constexpr unsigned char c_escape = 0x1B;      ///< introduces a code of the extension table
constexpr unsigned int c_directCount = 0x100; ///< code points with an entry in the direct table
constexpr unsigned int c_highCapacity = 64;   ///< rows of the reverse table above them
constexpr std::size_t c_extensionCount = 10;  ///< rows of the extension table
constexpr std::size_t c_greekCount = 72;      ///< rows of the Greek transliteration table
constexpr unsigned short c_diaeresis = 0x00A8;
constexpr unsigned char c_space = 0x20;
/// Up to here a character never goes through the transliteration table. One past the direct table, as is
/// required: U+0100 has no code.
constexpr unsigned short c_lastDirect = 0x0100;

extern const std::array<GsmUnicodeChar, c_extensionCount> c_extensionTable;
extern const std::array<UniCodeToGsmChar, c_greekCount> c_greekTable;

/// Pages of 256 code points that hold a character with a code, of its own or by transliteration.
constexpr std::array<unsigned char, 3> c_codedPages = {0x00, 0x03, 0x20};

constexpr bool IsOnCodedPage(unsigned short unicode) {
    const unsigned int page = unicode >> 8;
    return page == c_codedPages[0] || page == c_codedPages[1] || page == c_codedPages[2];
}

/// The code of a character below `c_directCount`. The diaeresis has none in the direct table and goes out as
/// a space, as is required.
constexpr int DirectCode(const signed char* direct, unsigned short unicode) {
    return unicode == c_diaeresis ? c_space : direct[unicode];
}

/// The way back from code points to codes.
struct ReverseTables {
    std::array<signed char, c_directCount> direct{};
    std::array<signed char, c_directCount> directCodes{}; ///< what DirectCode() gives
    std::array<GsmUnicodeChar, c_highCapacity> high{};
    short highCount = 0;
};
extern const ReverseTables c_reverseTables;

} // namespace Encoding

#endif
