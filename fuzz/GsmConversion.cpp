// GSMCharSet, both ways. Input: flags (1 Greek table, 2 a table 0; 4 codes instead of text; 8 characters of
// four octets; 16 and 32: how many octets of the last character the length leaves out), then codes, or
// characters of two octets.
#include <algorithm>
#include <vector>

#include "Encoding/GSMCharSet.h"
#include "Input.h"
#include "Property.h"

namespace {

using namespace Encoding;
using namespace fuzz;

constexpr std::size_t c_longest = 4096;
constexpr unsigned char c_escape = 0x1B;
constexpr unsigned char c_canary = 0xA5;

using Bytes = std::vector<unsigned char>;

void Select(GSMCharSet& charSet, unsigned int flags) {
    if ((flags & 1) != 0)
        charSet.AddTranslateTable(TranslateTable::GREEK);
    if ((flags & 2) != 0)
        charSet.AddTranslateTable(static_cast<TranslateTable::TT>(0));
    Require(charSet.FindTable(TranslateTable::GREEK) == ((flags & 1) != 0), "a selected table is found");
}

/// A character survives when its code stands for it alone.
bool Survives(const GSMCharSet& charSet, wchar_t character) {
    if (character <= 0 || character > 0xFFFF)
        return false;
    const auto unicode = static_cast<unsigned short>(character);
    const int gsm = charSet.UnicodeToGsm(unicode);
    if (gsm == GSMCharSet::UNMAPPABLE)
        return false;
    return gsm >= 0 ? GSMCharSet::m_GsmDefaultTable[gsm] == unicode
                    : charSet.FindUnicodeCharFromEscapeChar(static_cast<unsigned char>(-gsm)) == unicode;
}

/// The text's codes, by counting and filling.
Bytes Convert(GSMCharSet& charSet, const TString<wchar_t>& text, unsigned int textBytes) {
    const auto* source = reinterpret_cast<const unsigned char*>(text.data());
    unsigned int count = 0xABCD;
    if (textBytes < 2) {
        Require(!charSet.GetGsmBytes(source, textBytes, &count, nullptr) && count == 0xABCD,
                "less than two octets are refused");
        return {};
    }
    Require(charSet.GetGsmBytes(source, textBytes, &count, nullptr), "a text is counted");
    if (count == 0)
        return {};
    Bytes codes(count + 1U, c_canary);
    unsigned char* out = codes.data();
    unsigned int length = count;
    Require(charSet.GetGsmBytes(source, textBytes, &length, &out), "a text is converted");
    Require(length == count && out == codes.data() && codes.back() == c_canary,
            "filling writes as many codes as were counted");
    codes.pop_back();
    Require(std::all_of(codes.begin(), codes.end(), [](unsigned char code) { return code < 0x80; }),
            "codes have seven bits");
    return codes;
}

void CheckText(GSMCharSet& charSet, const TString<wchar_t>& text, unsigned int leftOut) {
    const auto textBytes = static_cast<unsigned int>(4 * text.size()) - (text.empty() ? 0 : leftOut);
    const Bytes codes = Convert(charSet, text, textBytes);
    const auto count = static_cast<unsigned int>(codes.size());
    if (textBytes >= 2) {
        const TString<char> narrow = charSet.UnicodeToGsmString(text);
        Require(std::equal(codes.begin(), codes.end(), narrow.begin(), narrow.end(),
                           [](unsigned char a, char b) { return a == static_cast<unsigned char>(b); }),
                "both conversions to GSM give the same codes");
    }

    const TString<wchar_t> back = charSet.GsmToUnicode(codes.data(), count);
    const bool survives =
        std::all_of(text.begin(), text.end(), [&charSet](wchar_t c) { return Survives(charSet, c); });
    if (textBytes >= 2) {
        Require((back == text) == survives, "exactly a text of characters that survive comes back");
        if (survives)
            Require(charSet.GsmToUnicode(TString<char>(codes.begin(), codes.end())) == text,
                    "both conversions from GSM give it back");
    }
    const bool hasEscapeCode =
        std::any_of(text.begin(), text.end(), [](wchar_t c) { return (c & 0xFFFF) == 0; });
    if (!hasEscapeCode)
        Require(Convert(charSet, back, static_cast<unsigned int>(4 * back.size())) == codes,
                "what came back has the same codes");
}

/// Whether each escape stands before a code of the extension table or at the end.
bool EscapesAreKnown(const GSMCharSet& charSet, const Bytes& codes) {
    for (std::size_t i = 0; i < codes.size(); ++i)
        if (codes[i] == c_escape && ++i < codes.size() &&
            charSet.FindUnicodeCharFromEscapeChar(codes[i]) == 0)
            return false;
    return true;
}

void CheckCodes(GSMCharSet& charSet, const Bytes& codes) {
    const auto count = static_cast<unsigned int>(codes.size());
    const TString<wchar_t> text = charSet.GsmToUnicode(codes.data(), count);
    const TString<wchar_t> narrow = charSet.GsmToUnicode(TString<char>(codes.begin(), codes.end()));
    Require(text.size() <= codes.size() && narrow.size() <= codes.size(), "no code gives two characters");
    if (EscapesAreKnown(charSet, codes))
        Require(text == narrow, "both conversions from GSM give the same text where escapes are known");
    Require(std::all_of(text.begin(), text.end(), [&charSet](wchar_t c) { return Survives(charSet, c); }),
            "what codes stand for survives");
    const Bytes again = Convert(charSet, text, static_cast<unsigned int>(4 * text.size()));
    Require(charSet.GsmToUnicode(again.data(), static_cast<unsigned int>(again.size())) == text,
            "a text from codes goes to GSM and back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const unsigned int flags = input.Octet();
    GSMCharSet charSet;
    Select(charSet, flags);
    if ((flags & 4) != 0) {
        const TString<char> octets = input.Octets(c_longest);
        CheckCodes(charSet, Bytes(octets.begin(), octets.end()));
    } else {
        CheckText(charSet, input.Characters(c_longest, (flags & 8) != 0 ? 4 : 2), flags >> 4 & 3);
    }
    return 0;
}
