// Conversion of whole texts to unpacked GSM codes and back.
#include <algorithm>
#include <iterator>

#include "Encoding/GSMCharSet.h"
#include "charset/GSMTables.h"
#include "charset/WideCharacter.h"

namespace Encoding {
namespace {

/// Codes that a result of UnicodeToGsm() stands for: none, one, or an extension pair.
unsigned int CodeCount(int gsm) {
    return gsm >= 0 ? 1 : gsm == GSMCharSet::UNMAPPABLE ? 0 : 2;
}

/// Writes those codes and returns where the next ones go.
template <class Code, class Output>
Output PutCodes(int gsm, Output out) {
    if (gsm >= 0) {
        *out++ = static_cast<Code>(gsm);
    } else if (gsm != GSMCharSet::UNMAPPABLE) {
        *out++ = Code{c_escape};
        *out++ = static_cast<Code>(-gsm);
    }
    return out;
}

} // namespace

bool GSMCharSet::GetGsmBytes(const unsigned char* src, unsigned int srcBytes, unsigned int* ioLen,
                             unsigned char** out) {
    m_Translated = 0;
    if (srcBytes < 2)
        return false;

    const auto forEachGsm = [this, src, characters = (srcBytes + 3ULL) / c_wideSize](auto&& use) {
        const signed char* direct = m_UnicodeToGsm.get();
        const int endian = m_Endian;
        const bool transliterates = !m_TranslateTables.empty();
        for (std::size_t i = 0; i < characters; ++i) {
            const unsigned short unit = LowUnit(src + i * c_wideSize, endian);
            int gsm = UNMAPPABLE;
            if (unit < c_directCount)
                gsm = direct[unit];
            else if (transliterates || c_reverseTables.highPages[unit >> 8])
                gsm = UnicodeToGsm(unit);
            use(gsm);
        }
    };

    const bool fill = out != nullptr && static_cast<int>(*ioLen) > 0;
    if (fill) {
        unsigned char* code = *out;
        std::fill_n(code, *ioLen, static_cast<unsigned char>(0));
        forEachGsm([&code](int gsm) { code = PutCodes<unsigned char>(gsm, code); });
    } else {
        unsigned int count = 0;
        forEachGsm([&count](int gsm) { count += CodeCount(gsm); });
        *ioLen = count;
    }
    return true;
}

TString<wchar_t> GSMCharSet::GsmToUnicode(const unsigned char* codes, unsigned int count) {
    TString<wchar_t> text(count, L'\0');
    wchar_t* character = text.data();
    for (unsigned int i = 0; i < count; ++i) {
        const unsigned char code = codes[i];
        if (code >= 0x80)
            continue;
        if (code != c_escape) {
            *character++ = static_cast<wchar_t>(m_GsmDefaultTable[code]);
            continue;
        }
        if (i + 1 == count)
            break;
        // An unknown pair loses its escape only; the second code decodes by itself.
        if (const unsigned short extension = FindUnicodeCharFromEscapeChar(codes[i + 1]); extension != 0) {
            *character++ = static_cast<wchar_t>(extension);
            ++i;
        }
    }
    text.resize(static_cast<std::size_t>(character - text.data()));
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
        PutCodes<char>(UnicodeToGsm(static_cast<unsigned short>(character)), std::back_inserter(codes));
    return codes;
}

} // namespace Encoding
