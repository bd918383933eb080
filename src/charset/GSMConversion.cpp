// Conversion of whole texts to unpacked GSM codes and back.
#include <algorithm>
#include <bit>
#include <iterator>

#include "Encoding/GSMCharSet.h"
#include "charset/GSMTables.h"
#include "charset/WideCharacter.h"
#include "wire/OwnCodes.h"

namespace Encoding {
namespace {

/// Writes the codes that a result of UnicodeToGsm() stands for, none, one or an extension pair, and returns
/// where the next ones go.
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

constexpr unsigned int c_blockSize = Wire::c_codeBlock * c_wideSize; ///< octets of its characters

/// Calls `use` with the place of each bit until it returns false; whether it never did.
template <class Use>
bool AllOf(Wire::BlockBits bits, Use use) {
    for (; bits != 0; bits &= bits - 1)
        if (!use(static_cast<unsigned int>(std::countr_zero(bits))))
            return false;
    return true;
}

bool AnyOnCodedPage(const unsigned char* block) {
    return Wire::AnyOnPages<c_codedPages[0], c_codedPages[1], c_codedPages[2]>(block);
}

/// What ForEachGsm() shows codes to when they are to be counted.
struct CodeCounter {
    unsigned int m_Count = 0;

    void Put(int gsm) { m_Count += gsm >= 0 ? 1 : gsm == GSMCharSet::UNMAPPABLE ? 0 : 2; }

    template <class CodeOf>
    void PutBlock(const unsigned char*, Wire::BlockBits, CodeOf) {
        m_Count += Wire::c_codeBlock;
    }
};

/// What ForEachGsm() shows codes to when they are to be written.
struct CodeWriter {
    unsigned char* m_Next;

    void Put(int gsm) { m_Next = PutCodes<unsigned char>(gsm, m_Next); }

    template <class CodeOf>
    void PutBlock(const unsigned char* characters, Wire::BlockBits others, CodeOf codeOf) {
        Wire::Narrow(characters, m_Next);
        AllOf(others, [&](unsigned int i) {
            m_Next[i] = static_cast<unsigned char>(codeOf(characters + i * c_wideSize));
            return true;
        });
        m_Next += Wire::c_codeBlock;
    }
};

/// Writes the characters of a block of codes; false where one of them is the escape or no code.
bool WidenBlock(const unsigned char* codes, wchar_t* characters) {
    const Wire::BlockBits others = Wire::OtherCodes(codes);
    if (!AllOf(others, [codes](unsigned int i) { return codes[i] != c_escape && codes[i] < 0x80; }))
        return false;
    Wire::Widen(codes, characters);
    return AllOf(others, [codes, characters](unsigned int i) {
        characters[i] = static_cast<wchar_t>(GSMCharSet::m_GsmDefaultTable[codes[i]]);
        return true;
    });
}

/// Moves past one character's codes; false where they stand for none. An unknown pair loses its escape only;
/// the second code is taken by itself.
bool TakeCharacter(const GSMCharSet& charSet, const unsigned char*& codes, const unsigned char* end,
                   wchar_t& character) {
    const unsigned char code = *codes++;
    if (code >= 0x80)
        return false;
    if (code != c_escape) {
        character = static_cast<wchar_t>(GSMCharSet::m_GsmDefaultTable[code]);
        return true;
    }
    const unsigned short extension = codes != end ? charSet.FindUnicodeCharFromEscapeChar(*codes) : 0;
    if (extension == 0)
        return false;
    ++codes;
    character = static_cast<wchar_t>(extension);
    return true;
}

/// Shows to `codes` what UnicodeToGsm() gives for each character; a whole block at once where each of its
/// characters has one code. Most of these are their own codes, and the others are put in their places.
/// Characters that surely have no code may be left out. Of the last character two octets may do, which no
/// block reads beyond.
template <class Codes>
void ForEachGsm(const GSMCharSet& charSet, int endian, const unsigned char* src, unsigned int srcBytes,
                Codes& codes) {
    const auto codeOf = [&charSet, endian](const unsigned char* character) {
        const unsigned short unit = LowUnit(character, endian);
        if (unit < c_directCount)
            return int{c_reverseTables.directCodes[unit]};
        return IsOnCodedPage(unit) ? charSet.UnicodeToGsm(unit) : GSMCharSet::UNMAPPABLE;
    };
    const auto useEach = [&](std::size_t count) {
        for (; count != 0; --count, src += c_wideSize)
            codes.Put(codeOf(src));
    };
    auto characters = static_cast<std::size_t>((srcBytes + 3ULL) / c_wideSize);
    if (IsNative(endian)) {
        for (unsigned int blocks = srcBytes / c_blockSize; blocks != 0; --blocks) {
            characters -= Wire::c_codeBlock;
            const Wire::BlockBits others = Wire::OtherCharacters(src);
            const auto hasOneCode = [&](unsigned int i) { return codeOf(src + i * c_wideSize) >= 0; };
            if (others == Wire::c_allOfBlock && !AnyOnCodedPage(src)) {
                src += c_blockSize;
            } else if (AllOf(others, hasOneCode)) {
                codes.PutBlock(src, others, codeOf);
                src += c_blockSize;
            } else {
                useEach(Wire::c_codeBlock);
            }
        }
    }
    useEach(characters);
}

} // namespace

bool GSMCharSet::GetGsmBytes(const unsigned char* src, unsigned int srcBytes, unsigned int* ioLen,
                             unsigned char** out) {
    m_Translated = 0;
    if (srcBytes < 2)
        return false;

    if (out != nullptr && static_cast<int>(*ioLen) > 0) {
        std::fill_n(*out, *ioLen, static_cast<unsigned char>(0));
        CodeWriter codes{*out};
        ForEachGsm(*this, m_Endian, src, srcBytes, codes);
    } else {
        CodeCounter codes;
        ForEachGsm(*this, m_Endian, src, srcBytes, codes);
        *ioLen = codes.m_Count;
    }
    return true;
}

TString<wchar_t> GSMCharSet::GsmToUnicode(const unsigned char* codes, unsigned int count) {
    TString<wchar_t> text(count, L'\0');
    wchar_t* character = text.data();
    for (const unsigned char* const end = codes + count; codes != end;) {
        const auto block = std::min<std::ptrdiff_t>(end - codes, Wire::c_codeBlock);
        if (block == Wire::c_codeBlock && WidenBlock(codes, character)) {
            codes += block;
            character += block;
            continue;
        }
        for (const unsigned char* const stop = codes + block; codes < stop;)
            character += TakeCharacter(*this, codes, end, *character) ? 1 : 0;
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
