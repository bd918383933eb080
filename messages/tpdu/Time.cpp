#include "Messages/Time.h"

#include "tables/Values.h"
#include "tpdu/Times.h"

namespace Messages {
namespace {

constexpr int c_secondsOfMinute = 60;
constexpr int c_secondsOfHour = 3600;
constexpr int c_secondsOfQuarter = 900;
constexpr int c_secondsOfDay = 86400;

constexpr auto c_pass = [](RemarkCode, std::size_t) {};

void AppendTwoDigits(unsigned int number, std::string& text) {
    text += static_cast<char>('0' + number / 10);
    text += static_cast<char>('0' + number % 10);
}

constexpr std::uint32_t RelativeSeconds(int octet) {
    for (const Tables::RelativeValidityRow& row : Tables::c_relativeValidity)
        if (octet >= row.from && octet <= row.to)
            return static_cast<std::uint32_t>((row.first + (octet - row.from) * row.step) *
                                              c_secondsOfMinute);
    return 0;
}

} // namespace

std::string Timestamp::ToString() const {
    std::string text;
    if (!isValid)
        return text;
    AppendTwoDigits(year / 100U, text);
    AppendTwoDigits(year % 100U, text);
    const auto append = [&](char before, unsigned int number) {
        text += before;
        AppendTwoDigits(number, text);
    };
    append('-', month);
    append('-', day);
    append('T', hour);
    append(':', minute);
    append(':', second);
    const auto zone = static_cast<unsigned int>(quarters < 0 ? -quarters : quarters);
    append(quarters < 0 ? '-' : '+', zone / 4);
    append(':', zone % 4 * 15);
    return text;
}

std::int64_t Timestamp::UnixSeconds() const noexcept {
    if (!isValid)
        return 0;
    constexpr int daysTo2000 = 10957;
    constexpr int daysOfYear = 365;
    const int years = year - 2000;
    int days = daysTo2000 + years * daysOfYear + (years + 3) / 4 + day - 1;
    for (unsigned int earlier = 1; earlier < month; ++earlier)
        days += static_cast<int>(DaysOf(year, earlier));
    return std::int64_t{days} * c_secondsOfDay + hour * c_secondsOfHour + minute * c_secondsOfMinute +
           second - quarters * c_secondsOfQuarter;
}

std::uint32_t RelativeValiditySeconds(std::uint8_t octet) noexcept {
    return RelativeSeconds(octet);
}

std::optional<std::uint32_t> Validity::Seconds() const noexcept {
    if (format == ValidityFormat::Relative)
        return RelativeSeconds(octets[0]);
    if (format != ValidityFormat::Enhanced || (octets[0] & c_validityExtension) != 0)
        return std::nullopt;
    switch (Enhanced()) {
    case EnhancedValidity::Relative:
        return RelativeSeconds(octets[1]);
    case EnhancedValidity::Seconds:
        return octets[1] == 0 ? std::nullopt : std::optional<std::uint32_t>(octets[1]);
    case EnhancedValidity::Clock: {
        const ClockPeriod clock(octets.data() + 1);
        return clock.IsInRange() ? std::optional<std::uint32_t>(clock.Seconds()) : std::nullopt;
    }
    default:
        return std::nullopt;
    }
}

Timestamp Validity::Absolute() const noexcept {
    if (format != ValidityFormat::Absolute)
        return {};
    return ReadTime({octets.data(), octets.size()}, c_pass);
}

} // namespace Messages
