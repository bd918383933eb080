#include "log/Transcript.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include <fmt/format.h>

#include "characters/Hexadecimal.h"
#include "characters/InputError.h"
#include "show/Plural.h"

namespace qxpdu {

namespace {

/// How a heading begins, and how many values it has at most when a PDU follows; more are those of text mode.
struct HeadingKind {
    std::string_view name;
    std::ptrdiff_t mostValues;
};

constexpr std::array<HeadingKind, 5> c_headings = {
    {{"+CMGL", 4}, {"+CMGR", 3}, {"+CMT", 2}, {"+CDS", 1}, {"+CBM", 1}}};
constexpr std::string_view c_cellPage = "+CBM";

/// What ends the answer to a command, alone in its line or before a blank.
constexpr std::array<std::string_view, 7> c_answers = {"OK",        "ERROR", "NO CARRIER", "NO DIALTONE",
                                                       "NO ANSWER", "BUSY",  "CONNECT"};
constexpr std::string_view c_command = "AT";
constexpr std::string_view c_ring = "RING";
constexpr std::string_view c_makers = "^%*#$_"; ///< begin what only modems of one maker say
constexpr char c_prompt = '>';                  ///< the modem's, after AT+CMGS
constexpr std::string_view c_digits = "0123456789ABCDEFabcdef";
constexpr char c_endOfInput = '\x1A'; ///< what a PDU is sent off with

bool BeginsWith(std::string_view line, std::string_view upperCase) {
    return line.size() >= upperCase.size() &&
           std::equal(upperCase.begin(), upperCase.end(), line.begin(), [](char upper, char character) {
               return upper == (character >= 'a' && character <= 'z' ? character - ('a' - 'A') : character);
           });
}

/// "+CMGL" of "+CMGL: 1,1,,24"; empty where the line does not begin so.
std::string_view NameOf(std::string_view line) {
    if (!line.starts_with('+'))
        return {};
    const std::size_t colon = line.find(':');
    return colon == std::string_view::npos ? std::string_view{} : line.substr(0, colon);
}

const HeadingKind* KindOf(std::string_view line) {
    const std::string_view name = NameOf(line);
    const auto* const kind =
        std::find_if(c_headings.begin(), c_headings.end(),
                     [name](const HeadingKind& candidate) { return candidate.name == name; });
    return kind == c_headings.end() ? nullptr : kind;
}

/// Values, between commas that stand in no quotation marks.
std::ptrdiff_t ValuesIn(std::string_view line) {
    bool isQuoted = false;
    return 1 + std::count_if(line.begin(), line.end(), [&isQuoted](char character) {
               isQuoted = isQuoted != (character == '"');
               return character == ',' && !isQuoted;
           });
}

/// The number after the last comma, or after the colon where there is no comma; none in text mode.
std::optional<unsigned int> LengthIn(std::string_view line, const HeadingKind& kind) {
    const std::string_view digits = Trimmed(line.substr(line.find_last_of(",:") + 1));
    unsigned int length = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), length);
    if (error != std::errc{} || end != digits.data() + digits.size() || ValuesIn(line) > kind.mostValues)
        return std::nullopt;
    return length;
}

/// A PDU without the prompt that it was typed after, and without the end of input; other lines as they are,
/// but for the latter.
std::string_view WithoutTyping(std::string_view line) {
    if (line.ends_with(c_endOfInput))
        line = Trimmed(line.substr(0, line.size() - 1));
    if (!line.starts_with(c_prompt))
        return line;
    const std::string_view typed = Trimmed(line.substr(1));
    return !typed.empty() && typed.find_first_not_of(c_digits) == std::string_view::npos ? typed : line;
}

bool IsUnasked(std::string_view line) {
    return line.empty() || line == c_ring || c_makers.find(line.front()) != std::string_view::npos ||
           !NameOf(line).empty();
}

bool IsAnswer(std::string_view line) {
    return line.front() == c_prompt || BeginsWith(line, c_command) ||
           std::any_of(c_answers.begin(), c_answers.end(), [line](std::string_view answer) {
               return BeginsWith(line, answer) &&
                      (line.size() == answer.size() || line[answer.size()] == ' ');
           });
}

} // namespace

Transcript::Line Transcript::Take(std::string& line, std::size_t number) {
    const std::string_view trimmed = Trimmed(line);
    const std::string_view text = WithoutTyping(trimmed);
    std::optional<Heading> heading;
    if (const HeadingKind* kind = KindOf(text)) {
        const std::optional<unsigned int> length = LengthIn(text, *kind);
        if (length != 0U) // else of an empty place, after which nothing comes
            heading = Heading{std::string(kind->name), number, kind->name == c_cellPage, length};
    } else if (IsUnasked(text)) {
        return Line::Chatter;
    } else if (!IsAnswer(text)) {
        m_Last = std::exchange(m_Open, std::nullopt);
        if (text.size() < trimmed.size())
            line = std::string(text);
        return Line::Pdu;
    }
    m_Last = std::exchange(m_Open, std::move(heading));
    return m_Last ? Line::Orphan : Line::Chatter;
}

bool Transcript::Finish() {
    m_Last = std::exchange(m_Open, std::nullopt);
    return m_Last.has_value();
}

void CheckMode(const Heading& heading) {
    if (!heading.length)
        throw InputError(
            fmt::format("{} announces no length, as in text mode; PDU mode is AT+CMGF=0", heading.name));
}

void CheckLength(const Heading& heading, unsigned int octets) {
    if (heading.length != octets)
        throw InputError(fmt::format("{} announces {}, here are {}", heading.name,
                                     Counted(heading.length.value(), "octet"), octets));
}

} // namespace qxpdu
