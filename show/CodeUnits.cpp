#include "show/CodeUnits.h"

#include <iterator>

#include <fmt/format.h>
#include <utf8.h>

namespace qxpdu {

namespace {

constexpr char32_t c_replacement = 0xFFFD;
constexpr char32_t c_firstSupplementary = 0x10000;
constexpr char32_t c_highSurrogates = 0xD800;
constexpr char32_t c_lowSurrogates = 0xDC00;

bool IsHighSurrogate(wchar_t unit) {
    return (static_cast<char32_t>(unit) & ~char32_t{0x3FF}) == c_highSurrogates;
}

bool IsLowSurrogate(wchar_t unit) {
    return (static_cast<char32_t>(unit) & ~char32_t{0x3FF}) == c_lowSurrogates;
}

bool IsSurrogate(char32_t codePoint) {
    return (codePoint & ~char32_t{0x7FF}) == c_highSurrogates;
}

/// Calls `take` with each code point, a lone surrogate as itself.
template <class Take>
void ForEachCodePoint(const std::wstring& units, Take take) {
    for (std::size_t i = 0; i < units.size(); ++i) {
        auto codePoint = static_cast<char32_t>(units[i]);
        if (IsHighSurrogate(units[i]) && i + 1 < units.size() && IsLowSurrogate(units[i + 1])) {
            ++i;
            codePoint = c_firstSupplementary + ((codePoint - c_highSurrogates) << 10) +
                        (static_cast<char32_t>(units[i]) - c_lowSurrogates);
        }
        take(codePoint);
    }
}

void Append(char32_t codePoint, std::wstring& units) {
    if (codePoint >= c_firstSupplementary) {
        codePoint -= c_firstSupplementary;
        units += static_cast<wchar_t>(c_highSurrogates + (codePoint >> 10));
        codePoint = c_lowSurrogates + (codePoint & 0x3FF);
    }
    units += static_cast<wchar_t>(codePoint);
}

/// C0, DEL and C1.
bool IsControl(char32_t codePoint) {
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
}

} // namespace

std::u32string CodePoints(const std::wstring& units) {
    std::u32string codePoints;
    ForEachCodePoint(units, [&codePoints](char32_t codePoint) { codePoints += codePoint; });
    return codePoints;
}

TString<wchar_t> Units(std::u32string_view codePoints) {
    TString<wchar_t> units;
    units.reserve(codePoints.size());
    for (const char32_t codePoint : codePoints)
        Append(codePoint, units);
    return units;
}

std::string ToUtf8(const std::wstring& units) {
    std::string text;
    text.reserve(units.size());
    ForEachCodePoint(units, [&text](char32_t codePoint) {
        utf8::unchecked::append(IsSurrogate(codePoint) ? c_replacement : codePoint, std::back_inserter(text));
    });
    return text;
}

bool HasLoneSurrogate(const std::wstring& units) {
    bool hasOne = false;
    ForEachCodePoint(units, [&hasOne](char32_t codePoint) { hasOne = hasOne || IsSurrogate(codePoint); });
    return hasOne;
}

std::string Printable(std::string_view text) {
    std::string shown;
    shown.reserve(text.size());
    auto invalid = utf8::find_invalid(text.begin(), text.end());
    for (auto position = text.begin(); position != text.end();) {
        if (position == invalid) {
            fmt::format_to(std::back_inserter(shown), "\\x{:02X}", static_cast<unsigned char>(*position));
            invalid = utf8::find_invalid(++position, text.end());
            continue;
        }
        const auto begin = position;
        const auto codePoint = static_cast<char32_t>(utf8::unchecked::next(position));
        if (IsControl(codePoint))
            fmt::format_to(std::back_inserter(shown), "\\u{:04X}", static_cast<unsigned int>(codePoint));
        else
            shown.append(begin, position);
    }
    return shown;
}

} // namespace qxpdu
