/// @file
/// Points in time and validity periods, 3GPP TS 23.040 clauses 9.2.3.11, 9.2.3.12 and 9.2.3.13.
#ifndef MESSAGES_TIME_H
#define MESSAGES_TIME_H

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "Messages/Export.h"

namespace Messages {

/// A point in time with the zone of whoever wrote it: TP-SCTS, TP-DT, an absolute TP-VP.
struct MESSAGES_API Timestamp {
    std::array<std::uint8_t, 7> octets{}; ///< as they are sent: year, month, day, hour, minute, second, zone

    /// Whether the octets are a time. Otherwise the members below are 0: a part is out of range, or all
    /// octets are 0.
    bool isValid = false;
    std::uint16_t year = 0;  ///< 2000 to 2099
    std::uint8_t month = 0;  ///< 1 to 12
    std::uint8_t day = 0;    ///< 1 to 31, as the month has them
    std::uint8_t hour = 0;   ///< 0 to 23
    std::uint8_t minute = 0; ///< 0 to 59
    std::uint8_t second = 0; ///< 0 to 59
    std::int8_t quarters =
        0; ///< the zone: quarters of an hour east of UTC; below 0, west of it. As read, -85 to 85

    /// ISO 8601, "2012-02-13T12:34:56+05:30"; empty where it is no time.
    std::string ToString() const;

    /// Seconds since 1970-01-01T00:00:00Z; 0 where it is no time.
    std::int64_t UnixSeconds() const noexcept;

    /// By their octets.
    friend bool operator==(const Timestamp& left, const Timestamp& right) noexcept {
        return left.octets == right.octets;
    }
    /// The opposite.
    friend bool operator!=(const Timestamp& left, const Timestamp& right) noexcept {
        return !(left == right);
    }
};

/// A point in time, whose octets are made as well. Nothing where a part is out of range: the year 2000 to
/// 2099, the zone less than 80 quarters of an hour from UTC.
MESSAGES_API std::optional<Timestamp> MakeTimestamp(int year, int month, int day, int hour, int minute,
                                                    int second, int quarters = 0) noexcept;

/// The same of seconds since 1970-01-01T00:00:00Z, told in the zone given.
MESSAGES_API std::optional<Timestamp> MakeTimestamp(std::int64_t unixSeconds, int quarters = 0) noexcept;

/// TP-VPF, bits 4 and 3 of the first octet of an SMS-SUBMIT.
enum class ValidityFormat : std::uint8_t { None = 0, Enhanced = 1, Relative = 2, Absolute = 3 };

/// Bits 2 to 0 of the functionality indicator of the enhanced format, clause 9.2.3.12.3; 4 to 7 are reserved.
enum class EnhancedValidity : std::uint8_t {
    None = 0,
    Relative = 1, ///< an octet as in the relative format
    Seconds = 2,  ///< an octet of seconds
    Clock = 3     ///< hours, minutes and seconds in semi-octets
};

/// How long a message is valid: TP-VP in any of its formats.
struct MESSAGES_API Validity {
    ValidityFormat format = ValidityFormat::None; ///< which the first octet says
    /// TP-VP as it is sent: one octet in the relative format, seven in the others.
    std::array<std::uint8_t, 7> octets{};

    /// REQUIRES the enhanced format.
    EnhancedValidity Enhanced() const noexcept { return static_cast<EnhancedValidity>(octets[0] & 0x07); }
    /// Whether the service centre is to try only once: bit 6 of the enhanced format's first octet.
    bool IsSingleShot() const noexcept {
        return format == ValidityFormat::Enhanced && (octets[0] & 0x40) != 0;
    }

    /// The period in seconds; nothing where there is none, where it is a point in time, and where its format
    /// is reserved, its seconds are 0, a part of its clock is out of range or another indicator follows.
    std::optional<std::uint32_t> Seconds() const noexcept;
    /// The point in time of the absolute format; not valid in the others.
    Timestamp Absolute() const noexcept;

    /// By their formats and octets.
    friend bool operator==(const Validity& left, const Validity& right) noexcept {
        return left.format == right.format && left.octets == right.octets;
    }
    /// The opposite.
    friend bool operator!=(const Validity& left, const Validity& right) noexcept { return !(left == right); }
};

/// Seconds of a TP-VP in the relative format: 5 minutes to 63 weeks.
MESSAGES_API std::uint32_t RelativeValiditySeconds(std::uint8_t octet) noexcept;

/// The shortest period of the relative format that is not shorter, which Validity::Seconds() tells; nothing
/// above 63 weeks.
MESSAGES_API std::optional<Validity> MakeRelativeValidity(std::uint32_t seconds) noexcept;

/// The period in the enhanced format, by the second up to 99:59:59 hours and then as in the relative format;
/// nothing for 0 seconds and above 63 weeks.
MESSAGES_API std::optional<Validity> MakeEnhancedValidity(std::uint32_t seconds,
                                                          bool isSingleShot = false) noexcept;

/// Until a point in time.
MESSAGES_API Validity MakeAbsoluteValidity(const Timestamp& until) noexcept;

} // namespace Messages

#endif
