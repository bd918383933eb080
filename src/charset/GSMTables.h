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

/// What a page of 256 code points holds; a bit each, so that the kinds of several pages can be or-ed.
enum PageKind : unsigned char {
    PAGE_WITHOUT_CODES = 1,
    PAGE_WITH_ROWS = 2, ///< in the reverse or the transliteration table
    PAGE_DIRECT = 4     ///< the direct table
};

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
    std::array<PageKind, 0x100> pages{};
};
extern const ReverseTables c_reverseTables;

} // namespace Encoding

#endif
