// Conversion of whole texts to unpacked GSM codes and back.
#include <algorithm>
#include <cstdint>
#include <cstring>
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

constexpr unsigned int c_block = 8; ///< codes or characters that the fast paths look at together

/// Whether one of a block of codes is the escape or no code at all.
bool HoldsSpecialCode(const unsigned char* codes) {
    constexpr std::uint64_t lowBits = 0x0101010101010101;
    constexpr std::uint64_t highBits = 0x8080808080808080;
    std::uint64_t word = 0;
    std::memcpy(&word, codes, c_block);
    // An escape leaves 0 in the difference, and taking 1 from that sets its high bit, as nothing else does.
    return (((word ^ c_escape * lowBits) - lowBits) | word) & highBits;
}

/// The kinds of page that the characters of a block lie in, or-ed.
unsigned int PageKinds(const unsigned char* block, int endian) {
    unsigned int kinds = 0;
    for (unsigned int i = 0; i < c_block; ++i)
        kinds |= c_reverseTables.pages[HighOctet(block + i * c_wideSize, endian)];
    return kinds;
}

/// Whether each character of a block, all of them below `c_directCount`, has just one code.
bool HasPlainCodes(const signed char* direct, const unsigned char* block, int endian) {
    int codes = 0;
    for (unsigned int i = 0; i < c_block; ++i)
        codes |= direct[LowUnit(block + i * c_wideSize, endian)];
    return codes >= 0;
}

} // namespace

/// Shows what UnicodeToGsm() gives for each character, and the plain codes of a whole block at once.
/// Characters that surely have no code are left out.
template <class UseBlock, class Use>
void GSMCharSet::ForEachGsm(const unsigned char* src, std::size_t characters, UseBlock&& useBlock,
                            Use&& use) const {
    const signed char* const direct = c_reverseTables.directCodes.data();
    const int endian = m_Endian;
    const auto useEach = [&](const unsigned char* character, std::size_t count) {
        for (; count != 0; --count, character += c_wideSize) {
            const unsigned short unit = LowUnit(character, endian);
            if (unit < c_directCount)
                use(direct[unit]);
            else if (c_reverseTables.pages[unit >> 8] != PAGE_WITHOUT_CODES)
                use(UnicodeToGsm(unit));
        }
    };
    for (; characters >= c_block; characters -= c_block, src += c_block * c_wideSize) {
        const unsigned int kinds = PageKinds(src, endian);
        if (kinds == PAGE_DIRECT && HasPlainCodes(direct, src, endian))
            useBlock([&](unsigned int i) { return direct[LowUnit(src + i * c_wideSize, endian)]; });
        else if (kinds != PAGE_WITHOUT_CODES)
            useEach(src, c_block);
    }
    useEach(src, characters);
}

bool GSMCharSet::GetGsmBytes(const unsigned char* src, unsigned int srcBytes, unsigned int* ioLen,
                             unsigned char** out) {
    m_Translated = 0;
    if (srcBytes < 2)
        return false;

    const auto characters = static_cast<std::size_t>((srcBytes + 3ULL) / c_wideSize);
    const bool fill = out != nullptr && static_cast<int>(*ioLen) > 0;
    if (fill) {
        unsigned char* code = *out;
        std::fill_n(code, *ioLen, static_cast<unsigned char>(0));
        ForEachGsm(
            src, characters,
            [&code](auto&& codeOf) {
                for (unsigned int i = 0; i < c_block; ++i)
                    code[i] = static_cast<unsigned char>(codeOf(i));
                code += c_block;
            },
            [&code](int gsm) { code = PutCodes<unsigned char>(gsm, code); });
    } else {
        unsigned int count = 0;
        ForEachGsm(
            src, characters, [&count](auto&&) { count += c_block; },
            [&count](int gsm) { count += CodeCount(gsm); });
        *ioLen = count;
    }
    return true;
}

TString<wchar_t> GSMCharSet::GsmToUnicode(const unsigned char* codes, unsigned int count) {
    TString<wchar_t> text(count, L'\0');
    wchar_t* character = text.data();
    const unsigned char* const end = codes + count;
    while (codes < end) {
        const std::ptrdiff_t block = std::min<std::ptrdiff_t>(end - codes, c_block);
        if (block == c_block && !HoldsSpecialCode(codes)) {
            for (unsigned int i = 0; i < c_block; ++i)
                character[i] = static_cast<wchar_t>(m_GsmDefaultTable[codes[i]]);
            codes += c_block;
            character += c_block;
            continue;
        }
        for (const unsigned char* const stop = codes + block; codes < stop; ++codes) {
            if (*codes != c_escape) {
                if (*codes < 0x80)
                    *character++ = static_cast<wchar_t>(m_GsmDefaultTable[*codes]);
            } else if (codes + 1 != end) {
                // An unknown pair loses its escape only; the second code decodes by itself.
                if (const unsigned short extension = FindUnicodeCharFromEscapeChar(codes[1]);
                    extension != 0) {
                    *character++ = static_cast<wchar_t>(extension);
                    ++codes;
                }
            }
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
