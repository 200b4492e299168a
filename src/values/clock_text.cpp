#include "values/clock_text.h"

#include <array>

#include "values/number_text.h"

namespace orvell::values {
namespace {

constexpr std::uint32_t kHoursPerDay = 24;
constexpr std::uint32_t kMinutesPerHour = 60;
constexpr std::uint32_t kSecondsPerMinute = 60;
constexpr std::int16_t kNo = kRejected;

constexpr TransitionTable<8, 4> kClockTable = {{
    // blank digit   ":" other
    {0, 1, kNo, kNo},  // 0 before hours
    {2, 1, 3, kNo},    // 1 in hours
    {2, kNo, 3, kNo},  // 2 behind hours
    {3, 4, kNo, kNo},  // 3 before minutes
    {5, 4, 6, 8},      // 4 in minutes
    {5, kNo, 6, kNo},  // 5 behind minutes
    {6, 7, kNo, kNo},  // 6 before seconds
    {8, 7, 8, 8},      // 7 in seconds
                       // 8 ended
}};

constexpr TransitionTable<11, 5> kMillisecondClockTable = {{
    // blank digit   ":" other "," or ";"
    {0, 1, kNo, kNo, kNo},   //  0 before hours
    {2, 1, 3, kNo, kNo},     //  1 in hours
    {2, kNo, 3, kNo, kNo},   //  2 behind hours
    {3, 4, kNo, kNo, kNo},   //  3 before minutes
    {5, 4, 6, kNo, kNo},     //  4 in minutes
    {5, kNo, 6, kNo, kNo},   //  5 behind minutes
    {6, 7, kNo, kNo, kNo},   //  6 before seconds
    {8, 7, kNo, kNo, 9},     //  7 in seconds
    {8, kNo, kNo, kNo, 9},   //  8 behind seconds
    {9, 10, kNo, kNo, kNo},  //  9 before milliseconds
    {11, 10, 11, 11, 11},    // 10 in milliseconds
                             // 11 ended
}};

constexpr std::size_t kMillisecondColumn = 4;

std::size_t MillisecondClockColumn(char character) {
    const bool isMillisecondSeparator = character == ',' || character == ';';
    return isMillisecondSeparator ? kMillisecondColumn : SeparatedBy{':'}(character);
}

ClockTime ClockOfFields(const FieldScan& scan) {
    return {scan.fields[0], scan.fields[1], scan.fields[2], scan.fields[3]};
}

/// The same time with the seconds and minutes that are too many carried on.
ClockTime CarryOver(const ClockTime& clock) {
    const std::uint32_t minutes = clock.minutes + clock.seconds / kSecondsPerMinute;
    const std::uint32_t hours = clock.hours + minutes / kMinutesPerHour;
    return {hours, minutes % kMinutesPerHour, clock.seconds % kSecondsPerMinute, 0};
}

std::uint32_t SumOfSeconds(const ClockTime& clock) {
    return clock.seconds + (clock.minutes + clock.hours * kMinutesPerHour) * kSecondsPerMinute;
}

}  // namespace

FieldScan ScanClock(std::string_view text, std::size_t start) {
    return ScanFields(kClockTable, SeparatedBy{':'}, text, start);
}

std::optional<ClockReading> ReadClockAndEnd(std::string_view text, std::size_t start) {
    const FieldScan scan = ScanClock(text, start);
    if (!scan.EndedIn({4, 5, 7, 8})) {
        return std::nullopt;
    }
    return ClockReading{ClockOfFields(scan), scan.end};
}

std::optional<ClockTime> ReadClock(std::string_view text, std::size_t start) {
    const std::optional<ClockReading> reading = ReadClockAndEnd(text, start);
    return reading ? std::optional(reading->clock) : std::nullopt;
}

FieldScan ScanClockWithMilliseconds(std::string_view text, std::size_t start) {
    return ScanFields(kMillisecondClockTable, MillisecondClockColumn, text, start);
}

std::optional<ClockTime> ReadClockWithMilliseconds(std::string_view text, std::size_t start) {
    const FieldScan scan = ScanClockWithMilliseconds(text, start);
    if (!scan.EndedIn({4, 5, 7, 8, 10, 11})) {
        return std::nullopt;
    }
    return ClockOfFields(scan);
}

std::uint32_t SecondsOfClock(const ClockTime& clock) {
    return SumOfSeconds(CarryOver(clock));
}

std::uint32_t SecondsOfDay(const ClockTime& clock) {
    ClockTime time = CarryOver(clock);
    time.hours %= kHoursPerDay;
    return SumOfSeconds(time);
}

ClockTime ClockOfSeconds(std::uint32_t seconds) {
    const std::uint32_t minutes = seconds / kSecondsPerMinute;
    const std::uint32_t hours = minutes / kMinutesPerHour;
    return {hours % kHoursPerDay, minutes % kMinutesPerHour, seconds % kSecondsPerMinute, 0};
}

void AppendClock(std::string& text, const ClockTime& clock) {
    std::array<char, 3 * kMaximumDigits32 + 2> buffer;
    char* end = WriteZeroPadded(buffer.data(), clock.hours, 2);
    *end++ = ':';
    end = WriteZeroPadded(end, clock.minutes, 2);
    *end++ = ':';
    end = WriteZeroPadded(end, clock.seconds, 2);
    text.append(buffer.data(), end);
}

}  // namespace orvell::values
