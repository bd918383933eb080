#include "show/CodeUnits.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>
#include <utf8.h>

namespace show {

namespace {

constexpr char32_t c_replacement = 0xFFFD;
constexpr char32_t c_firstSupplementary = 0x10000;
constexpr char32_t c_highSurrogates = 0xD800;
constexpr char32_t c_lowSurrogates = 0xDC00;

bool IsSurrogate(char32_t codePoint) {
    return (codePoint & ~char32_t{0x7FF}) == c_highSurrogates;
}

/// Calls `take` with each code point, a lone surrogate as itself.
template <class Take>
void ForEachCodePoint(const std::wstring& units, Take take) {
    for (std::size_t i = 0; i < units.size(); ++i) {
        auto codePoint = static_cast<char32_t>(units[i]);
        const auto next = static_cast<char32_t>(i + 1 < units.size() ? units[i + 1] : L'\0');
        if (IsHighSurrogate(codePoint) && IsLowSurrogate(next)) {
            ++i;
            codePoint =
                c_firstSupplementary + ((codePoint - c_highSurrogates) << 10) + (next - c_lowSurrogates);
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

/// DEL, C1, the separators of lines and paragraphs, and what embeds, overrides or isolates a direction.
bool IsMark(char32_t codePoint) {
    const auto isBetween = [codePoint](char32_t first, char32_t last) {
        return codePoint >= first && codePoint <= last;
    };
    return isBetween(0x7F, 0x9F) || isBetween(0x2028, 0x202E) || isBetween(0x2066, 0x2069);
}

/// C0 as well.
bool IsControl(char32_t codePoint) {
    return codePoint < 0x20 || IsMark(codePoint);
}

/// Looks at all of it whatever it finds, so that the compiler takes many bytes together.
bool IsPrintableAscii(std::string_view text) {
    unsigned char others = 0;
    for (const char byte : text)
        others |= static_cast<unsigned char>(static_cast<unsigned char>(byte - ' ') > '~' - ' ');
    return others == 0;
}

/// The bytes that a mark can begin with in UTF-8.
constexpr std::string_view c_beginMarks = "\x7F\xC2\xE2";

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
    constexpr std::size_t c_longest = 4; // octets of a character
    std::string text(c_longest * units.size(), '\0');
    char* end = text.data();
    ForEachCodePoint(units, [&end](char32_t codePoint) {
        end = utf8::unchecked::append(IsSurrogate(codePoint) ? c_replacement : codePoint, end);
    });
    text.resize(static_cast<std::size_t>(end - text.data()));
    return text;
}

std::size_t CharactersIn(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
    }));
}

bool HasLoneSurrogate(const std::wstring& units) {
    bool hasOne = false;
    ForEachCodePoint(units, [&hasOne](char32_t codePoint) { hasOne = hasOne || IsSurrogate(codePoint); });
    return hasOne;
}

std::string WithoutMarks(std::string_view json) {
    std::string shown;
    shown.reserve(json.size());
    while (!json.empty()) {
        const std::size_t plain = std::min(json.find_first_of(c_beginMarks), json.size());
        shown += json.substr(0, plain);
        json.remove_prefix(plain);
        if (json.empty())
            break;
        auto next = json.begin();
        const auto codePoint = static_cast<char32_t>(utf8::unchecked::next(next));
        const auto length = static_cast<std::size_t>(next - json.begin());
        if (IsMark(codePoint))
            fmt::format_to(std::back_inserter(shown), "\\u{:04X}", static_cast<unsigned int>(codePoint));
        else
            shown += json.substr(0, length);
        json.remove_prefix(length);
    }
    return shown;
}

/// By the library's search for one byte, which looks at many together.
bool HasMarks(std::string_view json) {
    return std::any_of(c_beginMarks.begin(), c_beginMarks.end(),
                       [json](char byte) { return json.find(byte) != std::string_view::npos; });
}

std::string Printable(std::string_view text) {
    std::string shown;
    AppendPrintable(text, shown);
    return shown;
}

void AppendPrintable(std::string_view text, std::string& shown) {
    if (IsPrintableAscii(text)) {
        shown += text;
        return;
    }
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
}

} // namespace show
