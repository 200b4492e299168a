#pragma once

#include <cstdint>

namespace orvell::values {

/// A date of the proleptic Gregorian calendar. One that was read from a text need not exist: days
/// and months that are too many run on into the following months and years; a day or month 0
/// counts as 1.
struct CalendarDate {
    std::uint32_t year = 1970;
    std::uint32_t month = 1;
    std::uint32_t day = 1;
};

/// Days of the OLE automation date within which a serial is valid: 1 January 100 and
/// 31 December 9999.
inline constexpr std::int32_t kFirstSerialDay = -657434;
inline constexpr std::int32_t kLastSerialDay = 2958465;

/// Seconds from 1 January 1970 to the date, modulo 2^32; 0 for every year before 1970.
[[nodiscard]] std::uint32_t SecondsOfDate(const CalendarDate& date);

/// The date of a count of seconds since 1 January 1970.
[[nodiscard]] CalendarDate DateOfSeconds(std::uint32_t seconds);

/// Days from 30 December 1899 to the date: its OLE automation date, not limited.
[[nodiscard]] double SerialOfDate(const CalendarDate& date);

/// The date of a day between `kFirstSerialDay` and `kLastSerialDay`.
[[nodiscard]] CalendarDate DateOfSerial(std::int32_t serialDay);

}  // namespace orvell::values
