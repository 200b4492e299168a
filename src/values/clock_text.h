#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "values/field_scanner.h"

namespace orvell::values {

/// A time of day as its text spells it; no part need be within its usual limits.
struct ClockTime {
    std::uint32_t hours = 0;
    std::uint32_t minutes = 0;
    std::uint32_t seconds = 0;
    std::uint32_t milliseconds = 0;
};

/// Scans H:M[:S] from `start` on. Blanks and tabs may stand before each number and around each ":".
/// `end` of the result is where a following text would begin.
[[nodiscard]] FieldScan ScanClock(std::string_view text, std::size_t start);

struct ClockReading {
    ClockTime clock;
    std::size_t end;  ///< position of the first character behind the clock
};

/// The clock at `start` and where it ends; none unless hours and minutes at least are there.
[[nodiscard]] std::optional<ClockReading> ReadClockAndEnd(std::string_view text, std::size_t start);

/// The clock at `start`; none unless hours and minutes at least are there.
[[nodiscard]] std::optional<ClockTime> ReadClock(std::string_view text, std::size_t start);

/// Scans H:M[:S[,ms]] as `ScanClock`; ";" serves as well as ",".
[[nodiscard]] FieldScan ScanClockWithMilliseconds(std::string_view text, std::size_t start);

/// The clock with milliseconds at `start`; none unless hours and minutes at least are there. The
/// milliseconds are a count: ",5" is 5 ms.
[[nodiscard]] std::optional<ClockTime> ReadClockWithMilliseconds(std::string_view text,
                                                                 std::size_t start);

/// Seconds since 00:00, modulo 2^32; excess seconds and minutes carry over. Milliseconds are left
/// out.
[[nodiscard]] std::uint32_t SecondsOfClock(const ClockTime& clock);

/// As `SecondsOfClock` after the hours, with what is carried into them, are taken modulo 24.
[[nodiscard]] std::uint32_t SecondsOfDay(const ClockTime& clock);

/// The time of day within a count of seconds that began at 00:00.
[[nodiscard]] ClockTime ClockOfSeconds(std::uint32_t seconds);

/// Appends HH:MM:SS.
void AppendClock(std::string& text, const ClockTime& clock);

}  // namespace orvell::values
