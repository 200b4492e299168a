#include "fuzz/values/reference_days.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace orvell::fuzz {

std::string DayText(std::chrono::sys_days day, values::DateFormatCode format) {
    const std::chrono::year_month_day date(day);
    const auto dayOfMonth = static_cast<unsigned>(date.day());
    const auto month = static_cast<unsigned>(date.month());
    std::array<char, 32> text;
    if (format == values::DateFormatCode::MonthFirst) {
        std::snprintf(text.data(), text.size(), "%02u/%02u/%04d", month, dayOfMonth,
                      static_cast<int>(date.year()));
    } else {
        std::snprintf(text.data(), text.size(), "%02u.%02u.%04d", dayOfMonth, month,
                      static_cast<int>(date.year()));
    }
    return text.data();
}

std::optional<std::chrono::sys_days> DayOf(const WrittenDate& date) {
    if (!date.IsTold()) {
        return std::nullopt;
    }
    using namespace std::chrono;
    const year_month first = year(static_cast<int>(date.year)) / January +
                             months(static_cast<int>(std::max(date.month, 1U) - 1));
    if (!first.year().ok()) {
        return std::nullopt;
    }
    return sys_days(first / 1) + days(static_cast<int>(std::max(date.day, 1U) - 1));
}

}  // namespace orvell::fuzz
