#include "fuzz/values/reference_times.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <optional>

#include "fuzz/values/reference_days.h"
#include "fuzz/values/text_taking.h"

namespace orvell::fuzz {

using values::DateFormatCode;

namespace {

/// H:M[:S]; blanks behind the minutes must end the text or precede the seconds.
ReferenceCount TakeClock(std::string_view& rest) {
    const auto hours = TakeNumber(rest);
    if (!hours || !TakeSeparator(rest, ":")) {
        return {};
    }
    const auto minutes = TakeNumber(rest);
    if (!minutes) {
        return {};
    }
    std::optional<std::uint32_t> seconds = 0;
    const bool hasBlanks = !rest.empty() && kBlanks.find(rest.front()) != std::string_view::npos;
    if (TakeSeparator(rest, ":")) {
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

/// The seconds of a day, which need not exist: it counts from the first of its month.
ReferenceCount CountOf(const WrittenDate& date) {
    if (!date.IsTold()) {
        return {false, true, 0};
    }
    const std::optional<std::chrono::sys_days> day = DayOf(date);
    if (!day) {
        return {false, true, 0};
    }
    const std::int64_t count = std::int64_t{day->time_since_epoch().count()} * 86400;
    return {true, true, date.year < 1970 ? 0 : static_cast<std::uint32_t>(count)};
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
    std::array<char, 40> text;
    std::snprintf(text.data(), text.size(), "%02u:%02u:%02u", seconds / 3600 % 24,
                  seconds / 60 % 60, seconds % 60);
    return text.data();
}

std::string ReferenceDate(std::uint32_t seconds, DateFormatCode format) {
    const std::chrono::days day(static_cast<int>(seconds / 86400));
    return DayText(std::chrono::sys_days(day), format);
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
    const auto date = TakeDate(text);
    return date ? CountOf(*date) : ReferenceCount{};
}

ReferenceCount ReadReferenceDateTime(std::string_view text) {
    std::string_view rest = text;
    const auto written = TakeDate(rest);
    if (!written) {
        return TakeClock(text);
    }
    const ReferenceCount date = CountOf(*written);
    const ReferenceCount time = TakeClock(rest);
    return {date.isTold && (time.isTold || !time.isAccepted), true, date.count + time.count};
}

}  // namespace orvell::fuzz
