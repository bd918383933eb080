#include "Encoding/UCS2Encoding.h"

#include <algorithm>
#include <array>

#include "Toolkit/UTF8.h"

namespace Encoding {
namespace {

constexpr std::size_t c_groupSize = 4;   ///< hexadecimal digits of one character
constexpr std::size_t c_minimumSize = 8; ///< characters that text must have to look like UCS2 hex
constexpr std::ptrdiff_t c_minimumDigits = 4;

} // namespace

const char UCS2Encoding::c_toHex[17] = "0123456789ABCDEF";

const unsigned char UCS2Encoding::c_fromHex[256] = {
    0, 0,  0,  0,  0,  0,  0,  0, 0, 0, 0, 0, 0, 0, 0, 0, // 0x00
    0, 0,  0,  0,  0,  0,  0,  0, 0, 0, 0, 0, 0, 0, 0, 0, // 0x10
    0, 0,  0,  0,  0,  0,  0,  0, 0, 0, 0, 0, 0, 0, 0, 0, // 0x20
    0, 1,  2,  3,  4,  5,  6,  7, 8, 9, 0, 0, 0, 0, 0, 0, // 0x30 '0' to '9'
    0, 10, 11, 12, 13, 14, 15, 0, 0, 0, 0, 0, 0, 0, 0, 0, // 0x40 'A' to 'F'
    0, 0,  0,  0,  0,  0,  0,  0, 0, 0, 0, 0, 0, 0, 0, 0, // 0x50
    0, 10, 11, 12, 13, 14, 15, 0, 0, 0, 0, 0, 0, 0, 0, 0, // 0x60 'a' to 'f'; zeros from here on
};

bool UCS2Encoding::IsUCS2(const TString<char>& hex) {
    if (hex.size() < c_minimumSize || hex.size() % c_groupSize != 0)
        return false;
    const auto digits = std::count_if(hex.begin(), hex.end(), [](char c) { return c >= '0' && c <= '9'; });
    // Any capital counts, not only A to F, as is required.
    const auto capitals = std::count_if(hex.begin(), hex.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
    return digits >= c_minimumDigits && static_cast<std::size_t>(digits + capitals) == hex.size();
}

bool UCS2Encoding::IsUCS2(const TString<wchar_t>& hex) {
    return IsUCS2(Toolkit::UTF8::ToUTF8(hex));
}

TString<wchar_t> UCS2Encoding::ToUString(const TString<char>& hex) {
    TString<wchar_t> text(hex.size() / c_groupSize, L'\0');
    const char* digits = hex.data();
    for (wchar_t& character : text) {
        unsigned int unit = 0;
        for (std::size_t i = 0; i < c_groupSize; ++i)
            unit = unit << 4 | c_fromHex[static_cast<unsigned char>(*digits++)];
        character = static_cast<wchar_t>(unit);
    }
    return text;
}

TString<wchar_t> UCS2Encoding::ToUString(const TString<wchar_t>& hex) {
    return ToUString(Toolkit::UTF8::ToUTF8(hex));
}

TString<wchar_t> UCS2Encoding::ToUCS2(const TString<wchar_t>& text) {
    TString<wchar_t> hex(text.size() * c_groupSize, L'0');
    wchar_t* digit = hex.data();
    for (const wchar_t character : text)
        for (int shift = 12; shift >= 0; shift -= 4)
            *digit++ = static_cast<wchar_t>(c_toHex[static_cast<unsigned int>(character) >> shift & 0x0F]);
    return hex;
}

TString<char> UCS2Encoding::ToUCS2S(const TString<wchar_t>& text) {
    return Toolkit::UTF8::ToUTF8(ToUCS2(text));
}

} // namespace Encoding
