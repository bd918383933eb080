// Conversion of whole texts to unpacked GSM codes and back.
#include <algorithm>

#include "Encoding/GSMCharSet.h"
#include "charset/GSMTables.h"
#include "charset/WideCharacter.h"

namespace Encoding {
namespace {

/// Hands on the codes that a result of UnicodeToGsm() stands for: none, one, or an extension pair.
template <class Sink>
void EmitCodes(int gsm, Sink&& sink) {
    if (gsm == GSMCharSet::UNMAPPABLE)
        return;
    if (gsm < 0) {
        sink(c_escape);
        gsm = -gsm;
    }
    sink(static_cast<unsigned char>(gsm));
}

} // namespace

bool GSMCharSet::GetGsmBytes(const unsigned char* src, unsigned int srcBytes, unsigned int* ioLen,
                             unsigned char** out) {
    m_Translated = 0;
    if (srcBytes < 2)
        return false;

    const unsigned int characters = srcBytes / c_wideSize + (srcBytes % c_wideSize != 0 ? 1 : 0);
    const auto forEachCode = [&](auto&& sink) {
        for (unsigned int i = 0; i < characters; ++i, src += c_wideSize)
            EmitCodes(UnicodeToGsm(LowUnit(src, m_Endian)), sink);
    };

    const bool fill = out != nullptr && static_cast<int>(*ioLen) > 0;
    if (fill) {
        unsigned char* code = *out;
        std::fill_n(code, *ioLen, static_cast<unsigned char>(0));
        forEachCode([&code](unsigned char value) { *code++ = value; });
    } else {
        unsigned int count = 0;
        forEachCode([&count](unsigned char) { ++count; });
        *ioLen = count;
    }
    return true;
}

TString<wchar_t> GSMCharSet::GsmToUnicode(const unsigned char* codes, unsigned int count) {
    TString<wchar_t> text;
    text.reserve(count);
    for (unsigned int i = 0; i < count; ++i) {
        const unsigned char code = codes[i];
        if (code >= 0x80)
            continue;
        if (code != c_escape) {
            text.push_back(static_cast<wchar_t>(m_GsmDefaultTable[code]));
            continue;
        }
        if (i + 1 == count)
            break;
        // An unknown pair loses its escape only; the second code decodes by itself.
        if (const unsigned short extension = FindUnicodeCharFromEscapeChar(codes[i + 1]); extension != 0) {
            text.push_back(static_cast<wchar_t>(extension));
            ++i;
        }
    }
    return text;
}

TString<wchar_t> GSMCharSet::GsmToUnicode(const TString<char>& codes) const {
    TString<wchar_t> text;
    text.reserve(codes.size());
    for (std::size_t i = 0; i < codes.size(); ++i) {
        const auto code = static_cast<unsigned char>(codes[i]);
        if (code >= 0x80)
            continue;
        if (code != c_escape) {
            text.push_back(static_cast<wchar_t>(m_GsmDefaultTable[code]));
            continue;
        }
        if (++i == codes.size())
            break;
        // An unknown pair is consumed whole and gives U+0000 here, as is required.
        text.push_back(
            static_cast<wchar_t>(FindUnicodeCharFromEscapeChar(static_cast<unsigned char>(codes[i]))));
    }
    return text;
}

TString<char> GSMCharSet::UnicodeToGsmString(const TString<wchar_t>& text) const {
    TString<char> codes;
    codes.reserve(text.size());
    for (const wchar_t character : text)
        EmitCodes(UnicodeToGsm(static_cast<unsigned short>(character)),
                  [&codes](unsigned char code) { codes.push_back(static_cast<char>(code)); });
    return codes;
}

} // namespace Encoding
