/// @file
/// The UCS2 hex form of a text: four hexadecimal digits for each 16-bit character, high digit first.
#ifndef ENCODING_UCS2ENCODING_H
#define ENCODING_UCS2ENCODING_H

#include "Encoding/Export.h"
#include "Toolkit/TString.h"

namespace Encoding {

/// Stateless; any thread may call. No operation reports an error; what the allocator throws passes through,
/// and on a 32-bit host std::length_error for a text that no string holds. The overloads that take wide hex
/// text convert it to UTF-8 first.
class ENCODING_API UCS2Encoding {
public:
    /// Whether a string looks like UCS2 hex: at least 8 characters, a multiple of 4, all of them digits '0'
    /// to '9' or upper-case letters, with at least four digits. Any letter of 'A' to 'Z' counts, as is
    /// required, and no lower-case one does.
    static bool IsUCS2(const TString<char>& hex);
    static bool IsUCS2(const TString<wchar_t>& hex); ///< as above

    /// The text of a hex form. One to three characters left over at the end are ignored; a character that is
    /// no hexadecimal digit, of either case, counts as 0.
    static TString<wchar_t> ToUString(const TString<char>& hex);
    static TString<wchar_t> ToUString(const TString<wchar_t>& hex); ///< as above

    /// The hex form of a text, upper case, four times as long. Of each character the low 16 bits count.
    static TString<wchar_t> ToUCS2(const TString<wchar_t>& text);
    static TString<char> ToUCS2S(const TString<wchar_t>& text); ///< the same, as a narrow string

    static const char c_toHex[17];             ///< "0123456789ABCDEF"
    static const unsigned char c_fromHex[256]; ///< value of a hexadecimal digit of either case, 0 for others
};

} // namespace Encoding

#endif
