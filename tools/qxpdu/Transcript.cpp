#include "Transcript.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include <fmt/format.h>

#include "Hexadecimal.h"
#include "InputError.h"
#include "Meanings.h"

namespace qxpdu {

namespace {

constexpr std::array<std::string_view, 5> c_headings = {"+CMGL", "+CMGR", "+CMT", "+CDS", "+CBM"};
constexpr std::string_view c_cellPage = "+CBM";
constexpr std::array<std::string_view, 7> c_results = {"OK",   "ERROR",     "RING",   "NO CARRIER",
                                                       "BUSY", "NO ANSWER", "CONNECT"};
constexpr std::string_view c_vendor = "^"; ///< begins what only modems of one maker say
constexpr std::string_view c_prompt = ">"; ///< the modem's, behind AT+CMGS

/// "+CMGL" of "+CMGL: 1,1,,24"; empty where the line does not begin so.
std::string_view NameOf(std::string_view line) {
    if (!line.starts_with('+'))
        return {};
    const std::size_t colon = line.find(':');
    return colon == std::string_view::npos ? std::string_view{} : line.substr(0, colon);
}

/// The number behind the last comma, or behind the colon where there is no comma.
std::optional<unsigned int> LengthIn(std::string_view line) {
    const std::string_view digits = Trimmed(line.substr(line.find_last_of(",:") + 1));
    unsigned int length = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), length);
    if (error != std::errc{} || end != digits.data() + digits.size())
        return std::nullopt;
    return length;
}

std::optional<Heading> HeadingIn(std::string_view line, std::size_t number) {
    const std::string_view name = NameOf(line);
    if (std::find(c_headings.begin(), c_headings.end(), name) == c_headings.end())
        return std::nullopt;
    const std::optional<unsigned int> length = LengthIn(line);
    if (length == 0U)
        return std::nullopt; // of an empty place, behind which nothing comes
    return Heading{std::string(name), number, name == c_cellPage, length};
}

bool IsChatter(std::string_view line) {
    return line.empty() || std::find(c_results.begin(), c_results.end(), line) != c_results.end() ||
           line.starts_with("AT") || line.starts_with("at") || line.starts_with(c_prompt) ||
           line.starts_with(c_vendor) || !NameOf(line).empty();
}

} // namespace

Transcript::Line Transcript::Take(std::string_view line, std::size_t number) {
    const std::string_view trimmed = Trimmed(line);
    std::optional<Heading> heading = HeadingIn(trimmed, number);
    const bool isChatter = IsChatter(trimmed);
    if (trimmed.empty() && m_Open)
        return Line::Chatter; // between carriage returns and line feeds of a log
    m_Last = std::exchange(m_Open, std::move(heading));
    if (!isChatter)
        return Line::Pdu;
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
    CheckMode(heading);
    if (*heading.length != octets)
        throw InputError(fmt::format("{} announces {}, here are {}", heading.name,
                                     Counted(*heading.length, "octet"), octets));
}

} // namespace qxpdu
