// Times in semi-octets, with a word on whatever is odd in them.
#ifndef TPDU_TIMES_H
#define TPDU_TIMES_H

#include <algorithm>

#include "Messages/Octets.h"
#include "Messages/Remarks.h"
#include "Messages/Time.h"

namespace Messages {

constexpr std::size_t c_timeOctets = 7;
constexpr std::uint8_t c_zoneSign = 0x08;

struct SwappedPair {
    unsigned int tens = 0;
    unsigned int units = 0;

    constexpr explicit SwappedPair(std::uint8_t octet) noexcept : tens(octet & 0x0FU), units(octet >> 4U) {}
    constexpr bool IsDecimal() const noexcept { return tens <= 9 && units <= 9; }
    /// A semi-octet above 9 counts 0.
    constexpr unsigned int Value() const noexcept {
        return (tens <= 9 ? tens * 10 : 0) + (units <= 9 ? units : 0);
    }
};

/// The zone in quarters of an hour. Semi-octets above 9 count as they are: networks mean them so.
constexpr int ZoneQuarters(std::uint8_t octet) noexcept {
    const SwappedPair pair(static_cast<std::uint8_t>(octet & ~c_zoneSign));
    const int quarters = static_cast<int>(pair.tens * 10 + pair.units);
    return (octet & c_zoneSign) != 0 ? -quarters : quarters;
}

constexpr unsigned int DaysOf(unsigned int year, unsigned int month) noexcept {
    constexpr unsigned int february = 2;
    if (month == february)
        return year % 4 == 0 ? 29 : 28; // all of 2000 to 2099
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

/// Bit 7 of the functionality indicator of the enhanced validity period: another indicator follows.
constexpr std::uint8_t c_validityExtension = 0x80;

/// Hours, minutes and seconds of the enhanced validity period.
class ClockPeriod {
public:
    static constexpr std::size_t c_octets = 3;
    static constexpr unsigned int c_parts = 60; ///< of an hour in minutes, of a minute in seconds

    constexpr explicit ClockPeriod(const std::uint8_t* octets) noexcept
        : m_Hours(SwappedPair(octets[0]).Value()),
          m_Minutes(SwappedPair(octets[1]).Value()),
          m_Seconds(SwappedPair(octets[2]).Value()) {}
    constexpr bool IsInRange() const noexcept { return m_Minutes < c_parts && m_Seconds < c_parts; }
    constexpr std::uint32_t Seconds() const noexcept {
        return (m_Hours * c_parts + m_Minutes) * c_parts + m_Seconds;
    }

private:
    unsigned int m_Hours;
    unsigned int m_Minutes;
    unsigned int m_Seconds;
};

/// Calls `odd(code, octet)` with the octet of the time, from 0. REQUIRES seven octets.
template <class Odd>
Timestamp ReadTime(OctetView octets, Odd odd) {
    constexpr std::size_t zone = 6;
    Timestamp time;
    std::copy_n(octets.begin(), c_timeOctets, time.octets.begin());
    if (std::all_of(octets.begin(), octets.begin() + c_timeOctets,
                    [](std::uint8_t octet) { return octet == 0; })) {
        odd(RemarkCode::TimeAllZero, std::size_t{0});
        return time;
    }
    std::array<unsigned int, zone> parts{};
    for (std::size_t i = 0; i < c_timeOctets; ++i) {
        const SwappedPair pair(i == zone ? static_cast<std::uint8_t>(octets[i] & ~c_zoneSign) : octets[i]);
        if (!pair.IsDecimal())
            odd(RemarkCode::TimeSemiOctet, i);
        if (i < zone)
            parts[i] = pair.Value();
    }
    const unsigned int year = 2000 + parts[0];
    const std::array<unsigned int, zone> least = {0, 1, 1, 0, 0, 0};
    const std::array<unsigned int, zone> most = {99, 12, DaysOf(year, parts[1]), 23, 59, 59};
    time.isValid = true;
    for (std::size_t i = 0; i < zone; ++i)
        if (parts[i] < least[i] || parts[i] > most[i]) {
            odd(RemarkCode::TimeOutOfRange, i);
            time.isValid = false;
        }
    if (!time.isValid)
        return time;
    time.year = static_cast<std::uint16_t>(year);
    time.month = static_cast<std::uint8_t>(parts[1]);
    time.day = static_cast<std::uint8_t>(parts[2]);
    time.hour = static_cast<std::uint8_t>(parts[3]);
    time.minute = static_cast<std::uint8_t>(parts[4]);
    time.second = static_cast<std::uint8_t>(parts[5]);
    time.quarters = static_cast<std::int8_t>(ZoneQuarters(octets[zone]));
    return time;
}

} // namespace Messages

#endif
