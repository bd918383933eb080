// Between the UTF-8 of the command line and the codecs' wide text, which holds one UTF-16 code unit a
// character.
#ifndef QXPDU_UNICODE_H
#define QXPDU_UNICODE_H

#include <string>
#include <string_view>

#include "Toolkit/TString.h"

namespace qxpdu {

/// The UTF-16 code units of a UTF-8 text; a character above U+FFFF gives two. Throws InputError that names
/// the first byte that is not valid UTF-8.
TString<wchar_t> FromUtf8(std::string_view text);

/// The UTF-8 form of UTF-16 code units: a surrogate pair becomes one character, a lone surrogate U+FFFD.
std::string ToUtf8(const std::wstring& units);

/// Whether the code units hold half a surrogate pair.
bool HasLoneSurrogate(const std::wstring& units);

/// The first character of a UTF-8 text, or its first byte as "0xFF" where that is not valid UTF-8 or cannot
/// be seen; in quotes.
std::string FirstCharacter(std::string_view text);

/// "U+00C7".
std::string CodePointName(char32_t codePoint);

/// The text for a terminal: control characters become "\u001B", so that a message
/// cannot act on the terminal that shows it, and octets that are no UTF-8 become "\xFB".
std::string Printable(std::string_view text);

/// The code points of UTF-16 code units, a lone surrogate as itself.
std::u32string CodePoints(const std::wstring& units);

/// The UTF-16 code units of code points; one above U+FFFF gives two.
TString<wchar_t> Units(std::u32string_view codePoints);

} // namespace qxpdu

#endif
