#include "Toolkit/UTF8.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>

#include <utf8.h>

#include "wire/OwnCodes.h"
#include "wire/Utf8.h"

namespace Toolkit {
namespace {

constexpr char32_t c_replacement = 0xFFFD;
constexpr std::size_t c_stretch = 256; ///< characters that are converted before the result grows by them

/// Whether all is ASCII. Looks at the whole text, a word at a time, of which the last may overlap the one
/// before it.
bool IsAscii(const TString<char>& text) {
    constexpr std::uint64_t beyond = 0x8080808080808080;
    const auto word = [&text](std::size_t i) {
        std::uint64_t octets = 0;
        std::memcpy(&octets, text.data() + i, sizeof octets);
        return octets;
    };
    const std::size_t count = text.size();
    if (count < sizeof beyond)
        return std::all_of(text.begin(), text.end(),
                           [](char octet) { return static_cast<unsigned char>(octet) < 0x80; });
    std::uint64_t all = word(count - sizeof beyond);
    for (std::size_t i = 0; i < count - sizeof beyond; i += sizeof beyond)
        all |= word(i);
    return (all & beyond) == 0;
}

/// A text of ASCII, in which an octet is a character.
TString<wchar_t> Widened(const TString<char>& text) {
    const auto* const octets = reinterpret_cast<const unsigned char*>(text.data()); // no sign to extend
    return {octets, octets + text.size()};
}

char* Write(wchar_t character, char* octets) {
    const auto value = static_cast<char32_t>(character);
    return Wire::WriteUtf8(Wire::IsScalarValue(value) ? value : c_replacement, octets);
}

/// Writes `count` characters and returns where the next ones go.
char* WriteStretch(const wchar_t* characters, std::size_t count, char* octets) {
    const wchar_t* const end = characters + count;
    while (characters != end) {
        const auto left = static_cast<std::size_t>(end - characters);
        const bool isAscii = static_cast<char32_t>(*characters) < 0x80;
        if (isAscii && left >= Wire::c_codeBlock && Wire::NarrowAscii(characters, octets)) {
            characters += Wire::c_codeBlock;
            octets += Wire::c_codeBlock;
        } else if (!isAscii && left >= Wire::c_utf8Block && Wire::WriteBlockOfThree(characters, octets)) {
            characters += Wire::c_utf8Block;
            octets += 3 * Wire::c_utf8Block;
        } else {
            for (const wchar_t* const stop = characters + std::min(left, Wire::c_utf8Block);
                 characters != stop; ++characters)
                octets = Write(*characters, octets);
        }
    }
    return octets;
}

/// Reads characters as long as a block of them still fits, or to the end, and returns where the next ones
/// begin; null for what is not UTF-8.
const char* ReadStretch(const char* octets, const char* end, wchar_t*& next, const wchar_t* limit) {
    while (octets != end && next <= limit - Wire::c_utf8Block) {
        if (static_cast<std::size_t>(end - octets) >= Wire::c_blockOfThreeReach &&
            Wire::ReadBlockOfThree(octets, next)) {
            octets += 3 * Wire::c_utf8Block;
            next += Wire::c_utf8Block;
            continue;
        }
        for (std::size_t i = 0; i < Wire::c_utf8Block && octets != end; ++i) {
            char32_t character = 0;
            octets = Wire::ReadUtf8(octets, end, character);
            if (octets == nullptr)
                return nullptr;
            *next++ = static_cast<wchar_t>(character);
        }
    }
    return octets;
}

/// False for what is not UTF-8.
bool Read(const TString<char>& text, TString<wchar_t>& wide) {
    const char* octets = text.data();
    const char* const end = octets + text.size();
    while (octets != end) {
        std::array<wchar_t, c_stretch> stretch;
        wchar_t* next = stretch.data();
        octets = ReadStretch(octets, end, next, stretch.data() + stretch.size());
        if (octets == nullptr)
            return false;
        wide.append(stretch.data(), static_cast<std::size_t>(next - stretch.data()));
    }
    return true;
}

} // namespace

TString<char> UTF8::ToUTF8(const TString<wchar_t>& text) {
    TString<char> octets;
    if (text.size() > c_stretch) // as many octets as all stretches take, if it is ASCII
        octets.reserve(text.size());
    for (std::size_t done = 0; done < text.size();) {
        std::array<char, Wire::c_longestUtf8 * c_stretch> stretch;
        const std::size_t count = std::min(c_stretch, text.size() - done);
        const char* const end = WriteStretch(text.data() + done, count, stretch.data());
        octets.append(stretch.data(), static_cast<std::size_t>(end - stretch.data()));
        done += count;
    }
    return octets;
}

TString<wchar_t> UTF8::ToUNICODE(const TString<char>& text) {
    if (IsAscii(text)) // as telephone numbers are
        return Widened(text);
    TString<wchar_t> wide;
    if (Read(text, wide))
        return wide;
    TString<char> repaired;
    utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(repaired), c_replacement);
    wide.clear();
    Read(repaired, wide);
    return wide;
}

} // namespace Toolkit
