#include "fuzz/files/time_reference.h"

#include <algorithm>
#include <chrono>
#include <deque>
#include <string>

namespace orvell::fuzz {
namespace {

constexpr std::uint32_t kSecondsPerDay = 86'400;

/// A text with one "0" for each number and without blanks: "24.12.2020 6:30" is "0.0.00:0".
struct Shape {
    explicit Shape(std::string_view text) {
        bool isInNumber = false;
        for (const char character : text) {
            const bool isDigit = character >= '0' && character <= '9';
            if (isDigit && !isInNumber) {
                numbers.push_back(0);
                marks += '0';
            }
            if (isDigit) {
                numbers.back() = numbers.back() * 10 + static_cast<std::uint32_t>(character - '0');
            } else if (character != ' ' && character != '\t') {
                marks += character;
            }
            isInNumber = isDigit;
        }
    }

    std::uint32_t TakeNumber() {
        const std::uint32_t number = numbers.front();
        numbers.pop_front();
        return number;
    }

    std::string marks;
    std::deque<std::uint32_t> numbers;  ///< modulo 2^32
};

struct Date {
    std::uint32_t year;
    std::uint32_t month;
    std::uint32_t day;
};

struct Clock {
    std::uint32_t hours;
    std::uint32_t minutes;
    std::uint32_t seconds;
    std::uint32_t milliseconds;
};

/// Takes D.M.Y or M/D/Y from the shape's start.
std::optional<Date> TakeDate(Shape& shape) {
    const bool isMonthFirst = shape.marks.starts_with("0/0/0");
    if (!isMonthFirst && !shape.marks.starts_with("0.0.0")) {
        return std::nullopt;
    }
    shape.marks.erase(0, 5);
    const std::uint32_t first = shape.TakeNumber();
    const std::uint32_t second = shape.TakeNumber();
    const std::uint32_t year = shape.TakeNumber();
    return isMonthFirst ? Date{year, first, second} : Date{year, second, first};
}

/// What has the shape H:M or H:M:S, with milliseconds and anything behind them where they may be.
std::optional<Clock> ClockOf(Shape shape, bool mayHaveMilliseconds) {
    const bool hasMilliseconds = mayHaveMilliseconds && (shape.marks.starts_with("0:0:0,0") ||
                                                         shape.marks.starts_with("0:0:0;0"));
    const bool hasSeconds = hasMilliseconds || shape.marks == "0:0:0";
    if (!hasSeconds && shape.marks != "0:0") {
        return std::nullopt;
    }
    Clock clock{};
    clock.hours = shape.TakeNumber();
    clock.minutes = shape.TakeNumber();
    clock.seconds = hasSeconds ? shape.TakeNumber() : 0;
    clock.milliseconds = hasMilliseconds ? shape.TakeNumber() : 0;
    return clock;
}

/// Days and months that are too many run on. The library's calendar knows the years up to 32767,
/// and every 400 years are alike.
std::int64_t DaysSince1970(const Date& date) {
    using namespace std::chrono;
    constexpr std::int64_t kYearsAlike = 400;
    constexpr std::int64_t kDaysOfYearsAlike = 146'097;
    const std::uint32_t monthsBefore = std::max(date.month, 1U) - 1;
    const std::int64_t calendarYear = std::int64_t{date.year} + monthsBefore / 12;
    const sys_days first =
        year(static_cast<int>(calendarYear % kYearsAlike)) / month(monthsBefore % 12 + 1) / 1;
    return first.time_since_epoch().count() + calendarYear / kYearsAlike * kDaysOfYearsAlike +
           std::max(date.day, 1U) - 1;
}

/// Modulo 2^32; 0 for a year before the count begins.
std::uint32_t SecondsOf(const Date& date) {
    return date.year < 1970 ? 0 : static_cast<std::uint32_t>(DaysSince1970(date)) * kSecondsPerDay;
}

/// Modulo 2^32.
std::uint32_t SecondsOf(const Clock& clock) {
    return (clock.hours * 60 + clock.minutes) * 60 + clock.seconds;
}

}  // namespace

std::optional<std::uint32_t> DateOfText(std::string_view text) {
    Shape shape(text);
    const std::optional<Date> date = TakeDate(shape);
    return date && shape.marks.empty() ? std::optional(SecondsOf(*date)) : std::nullopt;
}

std::optional<std::uint32_t> TimeOfDayOfText(std::string_view text) {
    const std::optional<Clock> clock = ClockOf(Shape(text), false);
    if (!clock) {
        return std::nullopt;
    }
    // Minutes and hours have 32 bits each before whole days are taken away.
    const std::uint32_t minutes = clock->minutes + clock->seconds / 60;
    const std::uint32_t hours = clock->hours + minutes / 60;
    return (hours % 24 * 60 + minutes % 60) * 60 + clock->seconds % 60;
}

std::optional<std::uint32_t> DateAndTimeOfText(std::string_view text) {
    Shape shape(text);
    const std::optional<Date> date = TakeDate(shape);
    const std::uint32_t secondsOfDate = date ? SecondsOf(*date) : 0;
    if (date && shape.marks.empty()) {
        return secondsOfDate;
    }
    const std::optional<Clock> clock = ClockOf(shape, false);
    return clock ? std::optional(secondsOfDate + SecondsOf(*clock)) : std::nullopt;
}

double OleDateTimeOfText(std::string_view text) {
    constexpr std::int64_t kFrom1899To1970 = 25'569;
    constexpr double kFirst = -657'434.0;
    constexpr double kLast = 2'958'465.9999999884;
    constexpr double kDaysPerMillisecond = 1.1574074074074074e-8;
    Shape shape(text);
    const std::optional<Date> date = TakeDate(shape);
    double serial = date ? static_cast<double>(DaysSince1970(*date) + kFrom1899To1970) : 0.0;
    if (const std::optional<Clock> clock = ClockOf(shape, true)) {
        const std::int64_t seconds =
            (std::int64_t{clock->hours} * 60 + clock->minutes) * 60 + clock->seconds;
        const double days =
            static_cast<double>(seconds * 1000 + clock->milliseconds) * kDaysPerMillisecond;
        serial = serial < 0 ? serial - days : serial + days;
    }
    return serial > kLast ? kLast : serial <= kFirst - 1 ? kFirst : serial;
}

}  // namespace orvell::fuzz
