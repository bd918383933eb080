#include "sql/functions/Options.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include <fmt/format.h>

#include "show/Values.h"
#include "sql/functions/Values.h"

namespace sql {

namespace {

using Messages::Direction;
using Messages::Presence;

constexpr std::string_view c_between = " ,\t\r\n";

/// An option as it is written, "smsc=yes".
struct Word {
    std::string_view whole;
    std::string_view name = whole.substr(0, whole.find('='));
    std::string_view value = whole.substr(std::min(whole.size(), name.size() + 1));
};

/// As it is named in an error, which ends at a NUL: U+FFFD stands for that. A long one is cut, not within a
/// character.
std::string Named(std::string_view word) {
    constexpr std::size_t c_most = 40;
    std::size_t size = std::min(word.size(), c_most);
    while (size < word.size() && size > 0 && (static_cast<unsigned char>(word[size]) & 0xC0U) == 0x80U)
        --size;
    std::string named;
    for (const char character : word.substr(0, size)) {
        if (character == '\0')
            named += "\xEF\xBF\xBD";
        else
            named += character;
    }
    return size < word.size() ? named + "..." : named;
}

[[noreturn]] void Refuse(const Word& word) {
    throw Misuse(fmt::format("'{}' is no option; there are smsc=yes|no, direction=to-mobile|from-mobile, "
                             "failure-cause=yes|no and length=N",
                             Named(word.whole)));
}

Presence PresenceIn(const Word& word) {
    if (word.value == "yes")
        return Presence::Yes;
    if (word.value != "no")
        Refuse(word);
    return Presence::No;
}

Direction DirectionIn(const Word& word) {
    for (const Direction direction : {Direction::ToMobile, Direction::FromMobile}) {
        if (word.value == show::DirectionName(direction))
            return direction;
    }
    Refuse(word);
}

std::uint32_t LengthIn(const Word& word) {
    std::uint32_t length = 0;
    const char* const end = word.value.data() + word.value.size();
    const auto [stop, error] = std::from_chars(word.value.data(), end, length);
    if (word.value.empty() || stop != end || error != std::errc())
        Refuse(word);
    return length;
}

/// An option may be told again, but not otherwise.
template <class Option, class Told>
void Tell(const Word& word, const Option& untold, Option& option, const Told& told) {
    if (option != untold && option != told)
        throw Misuse(fmt::format("'{}' is not what was told before it", Named(word.whole)));
    option = told;
}

void Set(const Word& word, Messages::ReadOptions& options) {
    constexpr Messages::ReadOptions c_untold;
    if (word.name == "smsc")
        Tell(word, c_untold.serviceCentre, options.serviceCentre, PresenceIn(word));
    else if (word.name == "direction")
        Tell(word, c_untold.direction, options.direction, DirectionIn(word));
    else if (word.name == "failure-cause")
        Tell(word, c_untold.failureCause, options.failureCause, PresenceIn(word));
    else if (word.name == "length")
        Tell(word, c_untold.announcedLength, options.announcedLength, LengthIn(word));
    else
        Refuse(word);
}

} // namespace

Messages::ReadOptions OptionsIn(std::string_view words) {
    Messages::ReadOptions options;
    for (std::size_t begin = words.find_first_not_of(c_between); begin != std::string_view::npos;) {
        const std::size_t end = std::min(words.find_first_of(c_between, begin), words.size());
        Set({words.substr(begin, end - begin)}, options);
        begin = words.find_first_not_of(c_between, end);
    }
    return options;
}

Messages::CellFormat CellFormatIn(std::string_view word) {
    using Messages::CellFormat;
    if (word.empty())
        return CellFormat::Unknown;
    if (word == "gsm")
        return CellFormat::GsmPage;
    if (word == "umts")
        return CellFormat::UmtsMessage;
    if (word == "etws")
        return CellFormat::EtwsNotification;
    throw Misuse(fmt::format("'{}' is neither gsm, umts nor etws", Named(word)));
}

} // namespace sql
