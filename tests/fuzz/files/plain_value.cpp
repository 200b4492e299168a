#include "fuzz/files/plain_value.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "fuzz/require.h"
#include "values/calendar.h"
#include "values/ole_date_time_text.h"

namespace orvell::fuzz {

std::string_view TextOf(const PlainEntry& entry) {
    const std::string_view text = entry.value;
    return text.substr(0, text.find('\0'));
}

double AfterPrint(double number, int digits) {
    if (std::isnan(number)) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    std::array<char, 40> print;
    std::snprintf(print.data(), print.size(), "%.*g", digits, number);
    return std::strtod(print.data(), nullptr);
}

bool IsPrintedTooLarge(double number, int digits) {
    return std::isfinite(number) && std::isinf(AfterPrint(number, digits));
}

double InMilliseconds(double serial) {
    using values::DateFormatCode;
    std::string text;
    values::AppendOleDateTime(text, serial, DateFormatCode::DayFirst);
    const double read = values::ReadOleDateTime(text, DateFormatCode::DayFirst);
    // Half a millisecond, and what doubles of this size cannot tell apart. Signs are left out: that
    // of a time of day without a date does not count.
    constexpr double kTolerance = 0.55 / 86'400'000;
    const bool isShown = serial >= values::kFirstSerialDay && serial <= values::kLastSerialDay;
    Require(!isShown || std::abs(std::abs(read) - std::abs(serial)) <= kTolerance,
            "dates lose no more than what is below a millisecond");
    return read;
}

bool IsNearlyMidnight(double serial) {
    constexpr double kJustBeforeMidnight = 86'399'999.4 / 86'400'000;
    const double days = std::abs(serial);
    return std::isfinite(days) && days - std::floor(days) > kJustBeforeMidnight;
}

}  // namespace orvell::fuzz
