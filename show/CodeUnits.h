// The codecs' wide text, which holds one UTF-16 code unit a character, and the UTF-8 that is shown of it.
#ifndef SHOW_CODEUNITS_H
#define SHOW_CODEUNITS_H

#include <cstddef>
#include <string>
#include <string_view>

#include "Messages/Octets.h"
#include "Toolkit/TString.h"

namespace show {

/// The code points of UTF-16 code units, a lone surrogate as itself.
std::u32string CodePoints(const std::wstring& units);

/// The UTF-16 code units of code points; one above U+FFFF gives two.
TString<wchar_t> Units(std::u32string_view codePoints);

/// The UTF-8 form of UTF-16 code units: a surrogate pair becomes one character, a lone surrogate U+FFFD.
std::string ToUtf8(const std::wstring& units);

/// The code unit of two octets, the more significant one first.
inline char32_t UnitAt(Messages::OctetView octets, std::size_t offset) {
    return static_cast<char32_t>(octets[offset] << 8 | octets[offset + 1]);
}

/// Which half of a surrogate pair a code unit is, if it is one.
constexpr bool IsHighSurrogate(char32_t unit) {
    return (unit & ~char32_t{0x3FF}) == 0xD800;
}
constexpr bool IsLowSurrogate(char32_t unit) {
    return (unit & ~char32_t{0x3FF}) == 0xDC00;
}

/// Characters of a text in UTF-8.
std::size_t CharactersIn(std::string_view text);

/// Whether the code units hold half a surrogate pair.
bool HasLoneSurrogate(const std::wstring& units);

/// Valid JSON in which DEL, C1, U+2028 to U+202E and U+2066 to U+2069 stand as "\u0085", so that no text in
/// it acts on what shows it.
std::string WithoutMarks(std::string_view json);

/// Whether WithoutMarks() may change something; quick.
bool HasMarks(std::string_view json);

/// The text for a terminal: control characters and direction marks become "\u001B", so that a message
/// cannot act on the terminal that shows it, and octets that are no UTF-8 become "\xFB".
std::string Printable(std::string_view text);
void AppendPrintable(std::string_view text, std::string& shown);

} // namespace show

#endif
