// The names of characters.
#ifndef QXPDU_UNICODENAMES_H
#define QXPDU_UNICODENAMES_H

#include <string_view>

namespace qxpdu {

/// "EURO SIGN"; of a control character its function, "LINE FEED (LF)", and of a CJK ideograph or the like the
/// name of its range. Empty for a code point without a name.
std::string_view NameOfCharacter(char32_t codePoint);

} // namespace qxpdu

#endif
