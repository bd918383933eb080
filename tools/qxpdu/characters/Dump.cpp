#include "characters/Dump.h"

#include <algorithm>
#include <charconv>

#include "characters/Letters.h"

namespace qxpdu {

namespace {

constexpr std::size_t c_digitsInOctet = 2;
constexpr std::string_view c_blank = " ";

std::string_view WithoutReturn(std::string_view line) {
    line.remove_suffix(line.ends_with('\r') ? 1 : 0);
    return line;
}

/// Digits at the beginning.
std::string_view DigitsAt(std::string_view text) {
    const auto* const end = std::find_if_not(text.begin(), text.end(), IsHexDigit);
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

std::size_t ValueOf(std::string_view digits, int base = 16) {
    std::size_t value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    return value;
}

/// An offset of four to eight digits, after which no other stands in a dump; empty where none stands there.
std::string_view OffsetAt(std::string_view line) {
    constexpr std::size_t c_fewest = 4;
    const std::string_view digits = DigitsAt(line.substr(0, c_longestOffset));
    return digits.size() < c_fewest ? std::string_view() : digits;
}

/// Whether these are the characters of the octets.
bool AreCharacters(std::string_view characters, std::string_view digits) {
    constexpr std::size_t c_first = 0x20;
    constexpr std::size_t c_last = 0x7E;
    for (const char character : characters) {
        const std::size_t octet = ValueOf(digits.substr(0, c_digitsInOctet));
        const bool isShown = octet >= c_first && octet <= c_last;
        if (character != (isShown ? static_cast<char>(octet) : '.'))
            return false;
        digits.remove_prefix(c_digitsInOctet);
    }
    return true;
}

/// Whether nothing follows but blanks, two at least, and the characters of the octets, between bars or not.
bool AreCharactersLeft(std::string_view rest, std::string_view digits) {
    constexpr std::size_t c_fewestBlanks = 2;
    const std::size_t octets = digits.size() / c_digitsInOctet;
    if (rest.size() < c_fewestBlanks + octets)
        return false;
    const std::size_t barred = rest.find('|');
    if (barred != std::string_view::npos && rest.size() == barred + octets + 2 && rest.ends_with('|')) {
        return barred >= c_fewestBlanks &&
               rest.substr(0, barred).find_first_not_of(c_blank) == std::string_view::npos &&
               AreCharacters(rest.substr(barred + 1, octets), digits);
    }
    const std::size_t begin = rest.size() - octets;
    return rest.substr(0, begin).find_first_not_of(c_blank) == std::string_view::npos &&
           AreCharacters(rest.substr(begin), digits);
}

/// What od prints unless it is told otherwise has seven octal digits, what others print other hexadecimal
/// ones.
std::size_t OffsetOf(std::string_view digits) {
    constexpr std::size_t c_octalDigits = 7;
    constexpr int c_octal = 8;
    return digits.size() == c_octalDigits ? ValueOf(digits, c_octal) : ValueOf(digits);
}

/// The digits of octets parted by blanks; none where anything else stands there.
std::string BareOctets(std::string_view text) {
    std::string digits;
    while (text.starts_with(c_blank)) {
        text.remove_prefix(std::min(text.find_first_not_of(c_blank), text.size()));
        const std::string_view octet = DigitsAt(text);
        if (octet.size() != c_digitsInOctet)
            break;
        digits += octet;
        text.remove_prefix(c_digitsInOctet);
    }
    return text.empty() ? digits : std::string();
}

} // namespace

std::optional<DumpLine> ReadDumpLine(std::string_view line, std::size_t octets) {
    constexpr std::size_t c_mostDigits = 128;
    std::string_view rest = WithoutReturn(line);
    const std::string_view offset = OffsetAt(rest);
    if (offset.empty())
        return std::nullopt;
    rest.remove_prefix(offset.size());
    rest.remove_prefix(rest.starts_with(':') ? 1 : 0);
    if (std::string bare = BareOctets(rest); !bare.empty() && OffsetOf(offset) == octets)
        return DumpLine{octets, std::move(bare), true};
    DumpLine read{ValueOf(offset), {}};
    while (rest.starts_with(c_blank) && read.digits.size() < c_mostDigits) {
        rest.remove_prefix(std::min(rest.find_first_not_of(c_blank), rest.size()));
        const std::string_view group = DigitsAt(rest);
        if (group.size() % c_digitsInOctet != 0)
            return std::nullopt;
        read.digits += group;
        rest.remove_prefix(group.size());
        if (AreCharactersLeft(rest, read.digits))
            return read;
    }
    return std::nullopt;
}

bool EndsDump(std::string_view line, std::size_t octets) {
    line = WithoutReturn(line);
    return !line.empty() && OffsetAt(line) == line && (OffsetOf(line) == octets || ValueOf(line) == octets);
}

std::optional<std::string> ReadDump(std::string_view text) {
    std::string digits;
    bool isKnown = false;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        const std::size_t octets = digits.size() / c_digitsInOctet;
        if (const std::optional<DumpLine> read = ReadDumpLine(line, octets); read && read->offset == octets) {
            isKnown = !read->isBare || octets > 0;
            digits += read->digits;
        } else if (EndsDump(line, octets) && text.empty()) {
            isKnown = !digits.empty();
        } else {
            return std::nullopt;
        }
    }
    return isKnown ? std::optional(std::move(digits)) : std::nullopt;
}

} // namespace qxpdu
