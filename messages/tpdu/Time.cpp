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

constexpr std::uint8_t SwappedDigits(int number) {
    return static_cast<std::uint8_t>(number % 10 << 4 | number / 10);
}

constexpr int c_relativeValidities = 256;

/// The first TP-VP of the relative format that is not shorter; 256 where there is none.
int RelativeOctet(std::uint32_t seconds) {
    int octet = 0;
    while (octet < c_relativeValidities && RelativeSeconds(octet) < seconds)
        ++octet;
    return octet;
}

} // namespace

std::optional<Timestamp> MakeTimestamp(int year, int month, int day, int hour, int minute, int second,
                                       int quarters) noexcept {
    constexpr int firstYear = 2000;
    constexpr int endOfQuarters = 80;
    if (year < firstYear || quarters <= -endOfQuarters)
        return std::nullopt;
    const int parts[] = {
        year - firstYear, month, day, hour, minute, second, quarters < 0 ? -quarters : quarters};
    Timestamp time;
    for (std::size_t i = 0; i < c_timeOctets; ++i) {
        const int end = i + 1 == c_timeOctets ? endOfQuarters : 100;
        if (parts[i] < 0 || parts[i] >= end)
            return std::nullopt;
        time.octets[i] = SwappedDigits(parts[i]);
    }
    if (quarters < 0)
        time.octets.back() |= c_zoneSign;
    time = ReadTime({time.octets.data(), time.octets.size()}, c_pass);
    return time.isValid ? std::optional(time) : std::nullopt;
}

std::optional<Timestamp> MakeTimestamp(std::int64_t unixSeconds, int quarters) noexcept {
    constexpr std::int64_t from2000 = 946684800;
    constexpr std::int64_t secondsOfCentury = std::int64_t{36525} * c_secondsOfDay;
    if (unixSeconds < 0 || unixSeconds > from2000 + 2 * secondsOfCentury) // whatever the zone
        return std::nullopt;
    const std::int64_t seconds = unixSeconds - from2000 + std::int64_t{quarters} * c_secondsOfQuarter;
    if (seconds < 0 || seconds >= secondsOfCentury)
        return std::nullopt;
    auto days = static_cast<unsigned int>(seconds / c_secondsOfDay);
    unsigned int year = 2000;
    for (unsigned int length = 366; days >= length; length = DaysOf(year, 2) == 29 ? 366 : 365) {
        days -= length;
        ++year;
    }
    unsigned int month = 1;
    for (; days >= DaysOf(year, month); ++month)
        days -= DaysOf(year, month);
    const int ofDay = static_cast<int>(seconds % c_secondsOfDay);
    return MakeTimestamp(static_cast<int>(year), static_cast<int>(month), static_cast<int>(days) + 1,
                         ofDay / c_secondsOfHour, ofDay % c_secondsOfHour / c_secondsOfMinute,
                         ofDay % c_secondsOfMinute, quarters);
}

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

std::optional<Validity> MakeRelativeValidity(std::uint32_t seconds) noexcept {
    const int octet = RelativeOctet(seconds);
    if (octet == c_relativeValidities)
        return std::nullopt;
    Validity validity;
    validity.format = ValidityFormat::Relative;
    validity.octets[0] = static_cast<std::uint8_t>(octet);
    return validity;
}

std::optional<Validity> MakeEnhancedValidity(std::uint32_t seconds, bool isSingleShot) noexcept {
    constexpr std::uint8_t singleShot = 0x40;
    constexpr std::uint32_t mostSeconds = 255;
    constexpr std::uint32_t endOfClock = 100 * c_secondsOfHour;
    const int relative = RelativeOctet(seconds);
    if (seconds == 0 || relative == c_relativeValidities)
        return std::nullopt;
    Validity validity;
    validity.format = ValidityFormat::Enhanced;
    const auto set = [&](EnhancedValidity format, int octet) {
        validity.octets[0] = static_cast<std::uint8_t>(format);
        validity.octets[1] = static_cast<std::uint8_t>(octet);
    };
    const auto whole = static_cast<int>(seconds);
    if (seconds <= mostSeconds) {
        set(EnhancedValidity::Seconds, whole);
    } else if (seconds < endOfClock) {
        set(EnhancedValidity::Clock, SwappedDigits(whole / c_secondsOfHour));
        validity.octets[2] = SwappedDigits(whole % c_secondsOfHour / c_secondsOfMinute);
        validity.octets[3] = SwappedDigits(whole % c_secondsOfMinute);
    } else {
        set(EnhancedValidity::Relative, relative);
    }
    if (isSingleShot)
        validity.octets[0] |= singleShot;
    return validity;
}

Validity MakeAbsoluteValidity(const Timestamp& until) noexcept {
    return {ValidityFormat::Absolute, until.octets};
}

} // namespace Messages
