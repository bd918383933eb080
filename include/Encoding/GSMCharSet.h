/// @file
/// The GSM 7-bit default alphabet of 3GPP TS 23.038, its extension table, and Greek transliteration.
///
/// Codes are unpacked throughout: one code of 0x00 to 0x7F per byte, an extension character as the pair 0x1B,
/// code, which counts as two. Characters are 16-bit code points.
#ifndef ENCODING_GSMCHARSET_H
#define ENCODING_GSMCHARSET_H

#include <cstddef>
#include <memory>
#include <vector>

#include "Encoding/Export.h"
#include "Encoding/Fields.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

namespace Encoding {

/// A GSM code beside its code point. In the extension table `gsm` is the code after 0x1B; in the reverse
/// table it is a default code, or a negated extension code.
struct GsmUnicodeChar {
    signed char gsm = -1;       ///< the code
    unsigned short unicode = 0; ///< the code point
};

/// A code point and the one that stands in for it, which the default alphabet can always show.
struct UniCodeToGsmChar {
    unsigned short gsmUnicode = 0xFFFF; ///< the one that stands in
    unsigned short unicode = 0;         ///< the one that is replaced
};

/// One selected translation table.
struct GsmTranslationTable {
    TranslateTable::TT type; ///< which one it is
};

/// The alphabet with its reverse tables and its selected translation tables.
///
/// Threads: one object is used by one thread at a time, lookups included, since they set `m_Translated`;
/// distinct objects may be used on distinct threads.
/// Failure: unknown characters and codes are no errors; each operation says what becomes of them. An
/// allocation that fails throws std::bad_alloc and leaks nothing.
class ENCODING_API GSMCharSet {
public:
    /// UnicodeToGsm() and Translate(): the character has no code.
    static constexpr int UNMAPPABLE = -1;
    /// GreekToUnicode(): the character has no row.
    static constexpr unsigned short NO_REPLACEMENT = 0xFFFF;

    /// Code points of the 128 default codes. Two entries differ from the standard, as is required: 0x09 is
    /// U+00E7, so that U+00C7 has no code, and the escape position 0x1B is U+0000.
    static const unsigned short m_GsmDefaultTable[128];

    /// Builds all tables and asks the host's byte order.
    GSMCharSet();
    ~GSMCharSet();
    GSMCharSet(const GSMCharSet&) = delete;
    GSMCharSet& operator=(const GSMCharSet&) = delete;

    /// The code of one character: 0 to 0x7F a default code; -c below -1 the pair 0x1B, c; UNMAPPABLE none.
    /// Above U+0100 a selected Greek table is asked last and sets `m_Translated`. U+00A8 gives a space,
    /// U+0000 the escape code.
    int UnicodeToGsm(unsigned short unicode) const;

    /// What the Greek table puts in the character's place, selected or not; NO_REPLACEMENT without a row.
    unsigned short GreekToUnicode(unsigned short unicode) const;

    /// The character of the pair 0x1B, `code`; 0 for a code that the extension table does not hold.
    unsigned short FindUnicodeCharFromEscapeChar(unsigned char code) const;

    /// Selects a table, known or not, once more each time. On std::bad_alloc the selection is unchanged.
    void AddTranslateTable(TranslateTable::TT table);

    /// Selects nothing any more. Text encoded already is not affected.
    void ClearTranslateTable();

    /// Whether the table is selected.
    bool FindTable(TranslateTable::TT table) const;

    /// The code of one character through the Greek table alone; UNMAPPABLE when that is not selected or has
    /// no row. Sets `m_Translated` on success. Unlike UnicodeToGsm() it knows U+0060, as is required.
    int Translate(unsigned short unicode) const;

    /// Converts wide text to codes; characters without a code are dropped.
    ///
    /// `src` is the raw storage of the text, `srcBytes` its length in bytes, four a character; every
    /// character whose first byte lies below that length is read whole. With `out` null, or `*ioLen` 0 or
    /// negative as a signed number, the codes are only counted into `*ioLen`. Otherwise `*out` is the
    /// caller's buffer of at least `*ioLen` bytes: those are zeroed, the codes are written from its start,
    /// and `*ioLen` stays as it is. No bound is tested while writing: the buffer must hold the whole text,
    /// which the count just taken ensures.
    ///
    /// Returns false when `srcBytes` is below 2, with `*ioLen` and the buffer untouched. Clears
    /// `m_Translated` in any case, and sets it again when a character was transliterated. Allocates nothing.
    bool GetGsmBytes(const unsigned char* src, unsigned int srcBytes, unsigned int* ioLen,
                     unsigned char** out);

    /// The text of `count` codes. Bytes of 0x80 and above are skipped. Of an unknown extension pair the
    /// escape alone is dropped and the second code decodes by itself; an escape at the end gives nothing.
    TString<wchar_t> GsmToUnicode(const unsigned char* codes, unsigned int count);

    /// The text of a string of codes. Bytes of 0x80 and above are skipped. An unknown extension pair is
    /// consumed whole and gives U+0000, unlike in the other overload, as is required.
    TString<wchar_t> GsmToUnicode(const TString<char>& codes) const;

    /// The codes of a text; characters without a code are dropped. May set `m_Translated`, never clears it.
    TString<char> UnicodeToGsmString(const TString<wchar_t>& text) const;

private:
    Toolkit::smart_ptr<UniCodeToGsmChar, Toolkit::smart_ptr_array_policy> m_GreekTable; ///< 72 rows
    short m_GreekCount;                                                                 ///< rows in use

public:
    /// 1 when a character went through the transliteration table since GetGsmBytes() last cleared it, else 0.
    mutable int m_Translated;

private:
    Toolkit::smart_ptr<GsmUnicodeChar, Toolkit::smart_ptr_array_policy> m_EscapeTable; ///< 10 rows
    /// Codes of U+0000 to U+00FF: a default code, -1 for none, or a negated extension code.
    std::unique_ptr<signed char[]> m_UnicodeToGsm;
    Toolkit::smart_ptr<GsmUnicodeChar, Toolkit::smart_ptr_array_policy> m_ExtUnicodeTable; ///< 64 rows
    short m_ExtCount;                                                                      ///< rows in use

public:
    /// The selected tables in order of selection, the same one as often as it was selected.
    std::vector<Toolkit::smart_ptr<GsmTranslationTable>> m_TranslateTables;

private:
    int m_Endian; ///< 1 on a big-endian host
};

} // namespace Encoding

#endif
