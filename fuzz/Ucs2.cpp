// UCS2Encoding. Input: flags (1 hexadecimal text; 2 characters of four octets), then the hexadecimal text, or
// characters of two octets.
#include <algorithm>

#include "Encoding/UCS2Encoding.h"
#include "Input.h"
#include "Property.h"

namespace {

using namespace Encoding;
using namespace fuzz;

constexpr std::size_t c_longest = 4096;

TString<wchar_t> Wide(const TString<char>& narrow) {
    TString<wchar_t> wide;
    for (const char character : narrow)
        wide.push_back(static_cast<unsigned char>(character));
    return wide;
}

bool IsAscii(const TString<char>& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::size_t Count(const TString<char>& text, char first, char last) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [=](char c) { return c >= first && c <= last; }));
}

void CheckHex(const TString<char>& hex) {
    const std::size_t digits = Count(hex, '0', '9');
    const bool looksLikeHex =
        hex.size() >= 8 && hex.size() % 4 == 0 && digits >= 4 && digits + Count(hex, 'A', 'Z') == hex.size();
    Require(UCS2Encoding::IsUCS2(hex) == looksLikeHex, "UCS2 hex is recognised by its characters");
    const TString<wchar_t> text = UCS2Encoding::ToUString(hex);
    Require(text.size() == hex.size() / 4, "four digits give one character");
    Require(std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= 0 && c <= 0xFFFF; }),
            "a character has 16 bits");
    if (!IsAscii(hex))
        return;
    Require(UCS2Encoding::IsUCS2(Wide(hex)) == looksLikeHex && UCS2Encoding::ToUString(Wide(hex)) == text,
            "narrow and wide hex mean the same");
    if (Count(hex, '0', '9') + Count(hex, 'A', 'F') == hex.size())
        Require(UCS2Encoding::ToUCS2S(text) == hex.substr(0, hex.size() / 4 * 4), "the hex form is restored");
}

void CheckText(const TString<wchar_t>& text) {
    const TString<char> hex = UCS2Encoding::ToUCS2S(text);
    Require(hex.size() == 4 * text.size() && Count(hex, '0', '9') + Count(hex, 'A', 'F') == hex.size(),
            "one character gives four digits");
    Require(UCS2Encoding::ToUCS2(text) == Wide(hex), "both hex forms are the same");
    TString<wchar_t> units = text;
    for (wchar_t& character : units)
        character &= 0xFFFF;
    Require(UCS2Encoding::ToUString(hex) == units && UCS2Encoding::ToUString(Wide(hex)) == units,
            "the low 16 bits of each character come back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const unsigned int flags = input.Octet();
    if ((flags & 1) != 0) {
        CheckHex(input.Octets(c_longest));
    } else {
        const TString<wchar_t> text = input.Characters(c_longest, (flags & 2) != 0 ? 4 : 2);
        CheckText(text);
        const TString<wchar_t> hexOfAnything = UCS2Encoding::ToUString(text);
        Require(hexOfAnything.size() <= text.size(),
                "wide hex is never longer in UTF-8 than four octets a character");
        UCS2Encoding::IsUCS2(text);
    }
    return 0;
}
