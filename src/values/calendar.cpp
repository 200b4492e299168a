#include "values/calendar.h"

#include <algorithm>
#include <array>
#include <limits>

namespace orvell::values {
namespace {

// Days are numbered from 1 January of the year 0. 64 bits hold every date that 32-bit numbers can
// spell, so that nothing is lost before the last step.
using DayNumber = std::uint64_t;

constexpr std::uint32_t kMonthsPerYear = 12;
constexpr std::uint32_t kSecondsPerDay = 86400;

constexpr std::array<std::array<std::uint32_t, kMonthsPerYear>, 2> kDaysBeforeMonth = {{
    {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334},
    {0, 31, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335},  // of a leap year
}};

// Those functions that printing needs exist for narrower numbers too, since 64-bit divisions are
// slow on the 32-bit target.

template <typename Number>
constexpr bool IsLeapYear(Number year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

template <typename Number>
constexpr const auto& DaysBeforeMonthIn(Number year) {
    return kDaysBeforeMonth[IsLeapYear(year) ? 1 : 0];
}

template <typename Number>
constexpr Number FirstDayOfYear(Number year) {
    const Number leapYearsBefore = (year + 3) / 4 - (year + 99) / 100 + (year + 399) / 400;
    return year * 365 + leapYearsBefore;
}

constexpr DayNumber DayOf(const CalendarDate& date) {
    const std::uint32_t months = std::max(date.month, 1U) - 1;
    const std::uint64_t year = std::uint64_t{date.year} + months / kMonthsPerYear;
    return FirstDayOfYear(year) + DaysBeforeMonthIn(year)[months % kMonthsPerYear] +
           std::max(date.day, 1U) - 1;
}

constexpr std::uint32_t kDaysPer400Years = FirstDayOfYear(400U);

/// The year that holds the day.
template <typename Number>
Number YearOf(Number day) {
    // Leap years are spread unevenly: the quotient is the year itself or the one after.
    const Number year = (day + 1) * 400 / kDaysPer400Years;
    return FirstDayOfYear(year) > day ? year - 1 : year;
}

template <typename Number>
CalendarDate DateOfDay(Number day) {
    const Number year = YearOf(day);
    const auto dayOfYear = static_cast<std::uint32_t>(day - FirstDayOfYear(year));
    const auto& daysBeforeMonth = DaysBeforeMonthIn(year);
    const auto nextMonth =
        std::upper_bound(daysBeforeMonth.begin(), daysBeforeMonth.end(), dayOfYear);
    const auto month = static_cast<std::uint32_t>(nextMonth - daysBeforeMonth.begin());
    return {static_cast<std::uint32_t>(year), month, dayOfYear - daysBeforeMonth[month - 1] + 1};
}

CalendarDate DateOf(DayNumber day) {
    constexpr DayNumber kLastNarrowDay = std::numeric_limits<std::uint32_t>::max() / 400 - 1;
    return day <= kLastNarrowDay ? DateOfDay(static_cast<std::uint32_t>(day)) : DateOfDay(day);
}

constexpr std::uint32_t kFirstYearOfSeconds = 1970;
constexpr DayNumber kFirstDayOfSeconds = FirstDayOfYear(DayNumber{kFirstYearOfSeconds});
constexpr DayNumber kFirstDayOfSerials = DayOf({1899, 12, 30});

}  // namespace

std::uint32_t SecondsOfDate(const CalendarDate& date) {
    if (date.year < kFirstYearOfSeconds) {
        return 0;
    }
    return static_cast<std::uint32_t>((DayOf(date) - kFirstDayOfSeconds) * kSecondsPerDay);
}

CalendarDate DateOfSeconds(std::uint32_t seconds) {
    return DateOf(kFirstDayOfSeconds + seconds / kSecondsPerDay);
}

double SerialOfDate(const CalendarDate& date) {
    return static_cast<double>(static_cast<std::int64_t>(DayOf(date) - kFirstDayOfSerials));
}

CalendarDate DateOfSerial(std::int32_t serialDay) {
    return DateOf(kFirstDayOfSerials + static_cast<DayNumber>(std::int64_t{serialDay}));
}

}  // namespace orvell::values
