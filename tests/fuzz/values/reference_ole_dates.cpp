#include "fuzz/values/reference_ole_dates.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>

#include "fuzz/values/reference_days.h"
#include "fuzz/values/text_taking.h"

namespace orvell::fuzz {

namespace {

constexpr std::chrono::sys_days kDayZero = std::chrono::year(1899) / std::chrono::December / 30;
constexpr double kLargestSerial = 2958465.9999999884;
constexpr double kSerialBelowAll = -657435.0;
constexpr double kSmallestSerial = -657434.0;
constexpr double kDaysPerMillisecond = 1.1574074074074074e-8;

double Limited(double serial) {
    if (std::isnan(serial)) {
        return 0.0;
    }
    return serial > kLargestSerial     ? kLargestSerial
           : serial <= kSerialBelowAll ? kSmallestSerial
                                       : serial;
}

std::string OleClockText(std::uint32_t milliseconds) {
    std::array<char, 60> text;
    std::snprintf(text.data(), text.size(), "%02u:%02u:%02u,%03u", milliseconds / 3600000,
                  milliseconds / 60000 % 60, milliseconds / 1000 % 60, milliseconds % 1000);
    return text.data();
}

/// The parts of a clock in milliseconds, as far as they are written; none when it is no clock.
std::optional<std::uint64_t> TakeOleClock(std::string_view rest) {
    const auto hours = TakeNumber(rest);
    if (!hours || !TakeSeparator(rest, ":")) {
        return std::nullopt;
    }
    const auto minutes = TakeNumber(rest);
    if (!minutes) {
        return std::nullopt;
    }
    const std::uint64_t wholeMinutes = std::uint64_t{*hours} * 60 + *minutes;
    if (!TakeSeparator(rest, ":")) {
        return rest.empty() ? std::optional(wholeMinutes * 60000) : std::nullopt;
    }
    const auto seconds = TakeNumber(rest);
    if (!seconds) {
        return std::nullopt;
    }
    const std::uint64_t wholeSeconds = wholeMinutes * 60 + *seconds;
    if (!TakeSeparator(rest, ",;")) {
        return rest.empty() ? std::optional(wholeSeconds * 1000) : std::nullopt;
    }
    const auto milliseconds = TakeNumber(rest);  // a count, not a fraction; anything may follow
    return milliseconds ? std::optional(wholeSeconds * 1000 + *milliseconds) : std::nullopt;
}

}  // namespace

std::optional<std::string> ReferenceOleDateTime(double serial, values::DateFormatCode format) {
    const double shown = Limited(serial);
    const double day = std::trunc(shown);
    const double milliseconds = std::abs(shown - day) * 86400000;
    const double whole = std::floor(milliseconds + 0.5);
    if (std::abs(milliseconds - whole) > 0.499) {
        return std::nullopt;
    }
    const std::string date =
        DayText(kDayZero + std::chrono::days(static_cast<int>(day)), format) + " ";
    return (day == 0 ? "" : date) + OleClockText(static_cast<std::uint32_t>(whole));
}

std::optional<double> ReadReferenceOleDateTime(std::string_view text) {
    std::string_view behindDate = text;
    const auto date = TakeDate(behindDate);
    const auto day = date ? DayOf(*date) : kDayZero;
    const auto milliseconds = TakeOleClock(date ? behindDate : text);
    if (!day || milliseconds.value_or(0) > UINT32_MAX) {
        return std::nullopt;
    }
    const auto serial = static_cast<double>((*day - kDayZero).count());
    const double time = static_cast<double>(milliseconds.value_or(0)) * kDaysPerMillisecond;
    return Limited(serial < 0 ? serial - time : serial + time);
}

}  // namespace orvell::fuzz
