#include "Toolkit/UTF8.h"

#include <algorithm>
#include <iterator>

#include <utf8.h>

namespace Toolkit {
namespace {

constexpr char32_t c_replacement = 0xFFFD;

bool IsScalarValue(char32_t value) {
    return value < 0xD800 || (value > 0xDFFF && value <= 0x10FFFF);
}

bool IsAscii(char octet) {
    return static_cast<unsigned char>(octet) < 0x80;
}

} // namespace

TString<char> UTF8::ToUTF8(const TString<wchar_t>& text) {
    TString<char> octets;
    octets.reserve(text.size());
    for (const wchar_t character : text) {
        const auto value = static_cast<char32_t>(character);
        utf8::unchecked::append(IsScalarValue(value) ? value : c_replacement, std::back_inserter(octets));
    }
    return octets;
}

TString<wchar_t> UTF8::ToUNICODE(const TString<char>& text) {
    if (std::all_of(text.begin(), text.end(), IsAscii)) // as telephone numbers are
        return {text.begin(), text.end()};
    TString<char> repaired;
    const bool valid = utf8::is_valid(text.begin(), text.end());
    if (!valid)
        utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(repaired), c_replacement);

    const TString<char>& octets = valid ? text : repaired;
    TString<wchar_t> wide;
    wide.reserve(octets.size());
    utf8::unchecked::utf8to32(octets.begin(), octets.end(), std::back_inserter(wide));
    return wide;
}

} // namespace Toolkit
