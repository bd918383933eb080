/// @file
/// Conversion between wide text and UTF-8.
#ifndef TOOLKIT_UTF8_H
#define TOOLKIT_UTF8_H

#include "Toolkit/Export.h"
#include "Toolkit/TString.h"

namespace Toolkit {

/// Stateless; any thread may call. Every result is as long as the input asks for: nothing stops at a zero.
struct TOOLKIT_API UTF8 {
    /// UTF-8 of a wide text, one to four bytes a character. A value that is no Unicode scalar value (a
    /// surrogate, or above U+10FFFF) becomes U+FFFD.
    static TString<char> ToUTF8(const TString<wchar_t>& text);

    /// Wide text of a UTF-8 string, one 32-bit character per code point. What is not valid UTF-8 becomes
    /// U+FFFD: one for a lead octet together with its trail octets, and one for each stray octet.
    static TString<wchar_t> ToUNICODE(const TString<char>& text);
};

} // namespace Toolkit

#endif
