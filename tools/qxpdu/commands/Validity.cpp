#include "commands/Validity.h"

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>
#include <variant>

#include <fmt/format.h>

#include "Messages/Words.h"
#include "characters/InputError.h"
#include "characters/Letters.h"
#include "commands/Times.h"

namespace qxpdu {

namespace {

using Messages::EnhancedValidity;
using Messages::Timestamp;
using Messages::Validity;
using Messages::ValidityFormat;

constexpr std::uint32_t c_minute = 60;
constexpr std::uint32_t c_hour = 60 * c_minute;
constexpr std::uint32_t c_day = 24 * c_hour;
constexpr std::uint32_t c_week = 7 * c_day;
constexpr std::uint32_t c_longest = 63 * c_week; ///< that any format holds

constexpr const char* c_relative = "relative";
constexpr const char* c_enhanced = "enhanced";
constexpr const char* c_absolute = "absolute";

struct Octet {
    std::uint8_t value;
};
struct Period {
    std::uint32_t seconds;
};
/// What the user wrote; Timestamp until which.
using Written = std::variant<Octet, Period, Timestamp>;

std::optional<std::uint32_t> SecondsOf(char unit) {
    switch (unit) {
    case 's':
        return 1;
    case 'm':
        return c_minute;
    case 'h':
        return c_hour;
    case 'd':
        return c_day;
    case 'w':
        return c_week;
    default:
        return std::nullopt;
    }
}

/// The number at the beginning of a text, which then begins after it.
std::optional<std::uint32_t> TakeNumber(std::string_view& text) {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return error == std::errc{} ? std::optional(number) : std::nullopt;
}

/// "90m", "1d12h": numbers, each with its unit.
std::optional<Period> PeriodOfUnits(std::string_view text) {
    std::uint64_t seconds = 0;
    while (!text.empty()) {
        const std::optional<std::uint32_t> number = TakeNumber(text);
        const std::optional<std::uint32_t> unit = text.empty() ? std::nullopt : SecondsOf(text.front());
        if (!number || !unit)
            return std::nullopt;
        text.remove_prefix(1);
        seconds += std::uint64_t{*number} * *unit;
        if (seconds > c_longest)
            return std::nullopt;
    }
    return seconds == 0 ? std::nullopt : std::optional(Period{static_cast<std::uint32_t>(seconds)});
}

/// "99:59:59" at most.
std::optional<Period> PeriodOfClock(std::string_view text) {
    constexpr std::size_t c_length = 8;
    if (text.size() != c_length || text[2] != ':' || text[5] != ':')
        return std::nullopt;
    std::uint32_t seconds = 0;
    for (const std::size_t place : {0U, 3U, 6U}) {
        std::string_view digits = text.substr(place, 2);
        const std::optional<std::uint32_t> number = TakeNumber(digits);
        if (!number || !digits.empty() || (place != 0 && *number >= 60))
            return std::nullopt;
        seconds = seconds * 60 + *number;
    }
    return seconds == 0 ? std::nullopt : std::optional(Period{seconds});
}

std::optional<Octet> OctetIn(std::string_view text) {
    constexpr std::uint32_t c_most = 0xFF;
    const std::optional<std::uint32_t> number = TakeNumber(text);
    return number && text.empty() && *number <= c_most
               ? std::optional(Octet{static_cast<std::uint8_t>(*number)})
               : std::nullopt;
}

std::optional<Written> WrittenIn(const std::string& text) {
    if (text == "max")
        return Period{c_longest};
    if (const auto octet = OctetIn(text))
        return *octet;
    if (const auto period = PeriodOfUnits(text))
        return *period;
    if (const auto period = PeriodOfClock(text))
        return *period;
    if (const auto time = TimeIn(text))
        return *time;
    return std::nullopt;
}

[[noreturn]] void Refuse(std::string_view option, const std::string& reason) {
    throw InputError(fmt::format("{}: {}", option, reason));
}

/// "25h goes out as 2 days, the nearest relative period that is not shorter"
std::string CautionOf(const std::string& text, std::uint32_t seconds, const Validity& validity) {
    const std::uint32_t sent = validity.Seconds().value_or(seconds);
    if (sent == seconds)
        return {};
    const std::string meaning = Messages::MeaningOf(*Messages::MakeRelativeValidity(sent));
    return fmt::format("{} goes out as {}, the nearest relative period that is not shorter", text,
                       meaning.substr(meaning.find(' ') + 1));
}

/// Makes TP-VP of what the user wrote, in one of the formats.
struct RelativeMaker {
    const std::string& text;

    MadeValidity operator()(Octet octet) const {
        return {*Messages::MakeRelativeValidity(Messages::RelativeValiditySeconds(octet.value)), {}};
    }
    MadeValidity operator()(Period period) const {
        const Validity validity = *Messages::MakeRelativeValidity(period.seconds);
        return {validity, CautionOf(text, period.seconds, validity)};
    }
    MadeValidity operator()(const Timestamp&) const {
        Refuse("--validity-format", "a point in time is absolute");
    }
};

struct EnhancedMaker {
    const std::string& text;
    bool isSingleShot;

    MadeValidity operator()(Octet octet) const {
        Validity validity;
        validity.format = ValidityFormat::Enhanced;
        validity.octets[0] = Indicator(EnhancedValidity::Relative);
        validity.octets[1] = octet.value;
        return {validity, {}};
    }
    MadeValidity operator()(Period period) const {
        const Validity validity = *Messages::MakeEnhancedValidity(period.seconds, isSingleShot);
        return {validity, CautionOf(text, period.seconds, validity)};
    }
    MadeValidity operator()(const Timestamp&) const {
        Refuse("--validity-format", "a point in time is absolute");
    }
    MadeValidity WithoutPeriod() const {
        Validity validity;
        validity.format = ValidityFormat::Enhanced;
        validity.octets[0] = Indicator(EnhancedValidity::None);
        return {validity, {}};
    }

private:
    std::uint8_t Indicator(EnhancedValidity format) const {
        constexpr unsigned int c_singleShot = 0x40;
        return static_cast<std::uint8_t>(static_cast<unsigned int>(format) |
                                         (isSingleShot ? c_singleShot : 0));
    }
};

struct AbsoluteMaker {
    MadeValidity operator()(Octet) const { Refuse("--validity-format", "an octet is relative"); }
    MadeValidity operator()(Period period) const {
        const Timestamp now = Now();
        const auto until = Messages::MakeTimestamp(now.UnixSeconds() + period.seconds, now.quarters);
        if (!until)
            Refuse("--validity", "it ends after the year 2099");
        return {Messages::MakeAbsoluteValidity(*until), {}};
    }
    MadeValidity operator()(const Timestamp& until) const {
        return {Messages::MakeAbsoluteValidity(until), {}};
    }
};

} // namespace

std::string FaultOfPeriod(const std::string& text) {
    return WrittenIn(text) ? ""
                           : fmt::format("{} is neither a period of at most 63 weeks, as 90m, 3h, 1d12h or "
                                         "max, nor an octet, nor a time with its zone, as "
                                         "2026-12-24T18:00:00+01:00",
                                         text);
}

std::string FaultOfValidityFormat(const std::string& text) {
    const bool isKnown = text == c_relative || text == c_enhanced || text == c_absolute;
    return isKnown ? ""
                   : fmt::format("{} is neither {}, {} nor {}", text, c_relative, c_enhanced, c_absolute);
}

MadeValidity MakeValidity(const ValidityOptions& options) {
    const std::optional<Written> written = WrittenIn(options.period);
    const bool isEnhanced = options.format == c_enhanced;
    if (options.isSingleShot && !isEnhanced)
        Refuse("--single-shot", "the enhanced format alone has it");
    if (isEnhanced) {
        const EnhancedMaker maker{options.period, options.isSingleShot};
        return written ? std::visit(maker, *written) : maker.WithoutPeriod();
    }
    if (!written && !options.format.empty())
        Refuse("--validity-format", "--validity is required");
    if (!written)
        return {};
    const bool isTime = std::holds_alternative<Timestamp>(*written);
    if (options.format == c_absolute || (options.format.empty() && isTime))
        return std::visit(AbsoluteMaker{}, *written);
    return std::visit(RelativeMaker{options.period}, *written);
}

} // namespace qxpdu
