#include "fuzz/values/reference_times.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace orvell::fuzz {

using values::DateFormatCode;

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kDigits = "0123456789";

/// Larger numbers make sums that wrap; what these mean is not told here.
constexpr std::uint32_t kLargestNumber = 30000;

void SkipAll(std::string_view& rest, std::string_view characters) {
    rest.remove_prefix(std::min(rest.find_first_not_of(characters), rest.size()));
}

/// The number, modulo 2^32, behind blanks.
std::optional<std::uint32_t> TakeNumber(std::string_view& rest) {
    SkipAll(rest, kBlanks);
    const std::string_view digits = rest.substr(0, rest.find_first_not_of(kDigits));
    std::uint32_t number = 0;
    for (const char digit : digits) {
        number = number * 10 + static_cast<std::uint32_t>(digit - '0');
    }
    rest.remove_prefix(digits.size());
    return digits.empty() ? std::nullopt : std::optional(number);
}

/// Takes the separator, and blanks before it.
bool TakeSeparator(std::string_view& rest, char separator) {
    SkipAll(rest, kBlanks);
    const bool isThere = rest.starts_with(separator);
    rest.remove_prefix(isThere ? 1 : 0);
    return isThere;
}

/// H:M[:S]; blanks behind the minutes must end the text or precede the seconds.
ReferenceCount TakeClock(std::string_view& rest) {
    const auto hours = TakeNumber(rest);
    if (!hours || !TakeSeparator(rest, ':')) {
        return {};
    }
    const auto minutes = TakeNumber(rest);
    if (!minutes) {
        return {};
    }
    std::optional<std::uint32_t> seconds = 0;
    const bool hasBlanks = !rest.empty() && kBlanks.find(rest.front()) != std::string_view::npos;
    if (TakeSeparator(rest, ':')) {
        seconds = TakeNumber(rest);
    } else if (hasBlanks && !rest.empty()) {
        return {};
    }
    if (!seconds) {
        return {};
    }
    const bool isTold = std::max({*hours, *minutes, *seconds}) <= kLargestNumber;
    return {isTold, true, (*hours * 60 + *minutes) * 60 + *seconds};
}

/// D.M.Y or M/D/Y
ReferenceCount TakeDate(std::string_view& rest) {
    auto day = TakeNumber(rest);
    const bool isMonthFirst = !TakeSeparator(rest, '.');
    if (!day || (isMonthFirst && !TakeSeparator(rest, '/'))) {
        return {};
    }
    auto month = TakeNumber(rest);
    if (!month || !TakeSeparator(rest, isMonthFirst ? '/' : '.')) {
        return {};
    }
    const auto year = TakeNumber(rest);
    if (!year) {
        return {};
    }
    if (isMonthFirst) {
        std::swap(day, month);
    }
    if (std::max({*day, *month, *year}) > kLargestNumber) {
        return {false, true, 0};
    }
    using namespace std::chrono;
    const year_month first = std::chrono::year(static_cast<int>(*year)) / January +
                             months(static_cast<int>(std::max(*month, 1U) - 1));
    const sys_days date = sys_days(first / 1) + days(static_cast<int>(std::max(*day, 1U) - 1));
    const std::int64_t count = std::int64_t{date.time_since_epoch().count()} * 86400;
    return {first.year().ok(), true, *year < 1970 ? 0 : static_cast<std::uint32_t>(count)};
}

std::string DateText(std::chrono::sys_days day, DateFormatCode format) {
    const std::chrono::year_month_day date(day);
    const auto dayOfMonth = static_cast<unsigned>(date.day());
    const auto month = static_cast<unsigned>(date.month());
    std::array<char, 32> text;
    if (format == DateFormatCode::MonthFirst) {
        std::snprintf(text.data(), text.size(), "%02u/%02u/%04d", month, dayOfMonth,
                      static_cast<int>(date.year()));
    } else {
        std::snprintf(text.data(), text.size(), "%02u.%02u.%04d", dayOfMonth, month,
                      static_cast<int>(date.year()));
    }
    return text.data();
}

std::string ClockText(std::uint32_t hours, std::uint32_t secondsOfHour) {
    std::array<char, 40> text;
    std::snprintf(text.data(), text.size(), "%02u:%02u:%02u", hours, secondsOfHour / 60,
                  secondsOfHour % 60);
    return text.data();
}

}  // namespace

std::string ReferenceDuration(std::uint32_t milliseconds) {
    const std::array<std::pair<std::uint32_t, const char*>, 5> parts = {
        {{milliseconds / 86400000, " d "},
         {milliseconds / 3600000 % 24, " h "},
         {milliseconds / 60000 % 60, " min "},
         {milliseconds / 1000 % 60, " s "},
         {milliseconds % 1000, " ms "}}};
    std::string text;
    for (const auto& [count, unit] : parts) {
        text += count == 0 ? "" : std::to_string(count) + unit;
    }
    return text.empty() ? "0 ms" : text.substr(0, text.size() - 1);
}

std::string ReferenceTime(std::uint32_t seconds) {
    return ClockText(seconds / 3600 % 24, seconds % 3600);
}

std::string ReferenceDate(std::uint32_t seconds, DateFormatCode format) {
    const std::chrono::days day(static_cast<int>(seconds / 86400));
    return DateText(std::chrono::sys_days(day), format);
}

std::optional<std::string> ReferenceOleDateTime(double serial, DateFormatCode format) {
    if (!(serial > -657435.0 && serial < 2958465.99)) {
        return std::nullopt;
    }
    const double day = std::trunc(serial);
    const double milliseconds = std::abs(serial - day) * 86400000;
    const double whole = std::floor(milliseconds + 0.5);
    if (std::abs(milliseconds - whole) > 0.499) {
        return std::nullopt;
    }
    const auto count = static_cast<std::uint32_t>(whole);
    using namespace std::chrono;
    const sys_days date = sys_days(std::chrono::year(1899) / December / 30) + days(int(day));
    std::array<char, 16> fraction;
    std::snprintf(fraction.data(), fraction.size(), ",%03u", count % 1000);
    return (day == 0 ? "" : DateText(date, format) + " ") +
           ClockText(count / 3600000, count / 1000 % 3600) + fraction.data();
}

std::uint32_t ReadReferenceDuration(std::string_view text) {
    std::uint32_t total = 0;
    for (;;) {
        text.remove_prefix(std::min(text.find_first_of(kDigits), text.size()));
        const auto number = TakeNumber(text);
        if (!number) {
            return total;
        }
        SkipAll(text, kBlanks);
        std::string unit(text.substr(0, text.find_first_of(kBlanks)));
        text.remove_prefix(unit.size());
        std::transform(unit.begin(), unit.end(), unit.begin(), [](char letter) {
            return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
        });
        total += *number * (unit == "d"                    ? 86400000
                            : unit == "h"                  ? 3600000
                            : unit == "min"                ? 60000
                            : unit == "s"                  ? 1000
                            : unit == "ms" || unit.empty() ? 1
                                                           : 0);
    }
}

ReferenceCount ReadReferenceTime(std::string_view text) {
    ReferenceCount time = TakeClock(text);
    time.count %= 86400;
    return time;
}

ReferenceCount ReadReferenceDate(std::string_view text) {
    return TakeDate(text);
}

ReferenceCount ReadReferenceDateTime(std::string_view text) {
    std::string_view rest = text;
    const ReferenceCount date = TakeDate(rest);
    if (!date.isAccepted) {
        return TakeClock(text);
    }
    const ReferenceCount time = TakeClock(rest);
    return {date.isTold && (time.isTold || !time.isAccepted), true, date.count + time.count};
}

}  // namespace orvell::fuzz
