// From the UTF-8 of the command line to the codecs' wide text, which holds one UTF-16 code unit a character.
#ifndef QXPDU_UNICODE_H
#define QXPDU_UNICODE_H

#include <string>
#include <string_view>

#include "Toolkit/TString.h"

namespace qxpdu {

/// The UTF-16 code units of a UTF-8 text; a character above U+FFFF gives two. Throws InputError that names
/// the first byte that is not valid UTF-8.
TString<wchar_t> FromUtf8(std::string_view text);

/// The first character of a UTF-8 text, or its first byte as "0xFF" where that is not valid UTF-8 or cannot
/// be seen; in quotes.
std::string FirstCharacter(std::string_view text);

/// "U+00C7".
std::string CodePointName(char32_t codePoint);

} // namespace qxpdu

#endif
