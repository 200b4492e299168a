#include "values/date_text.h"

#include <array>

#include "values/number_text.h"

namespace orvell::values {
namespace {

constexpr char kDayFirstSeparator = '.';
constexpr char kMonthFirstSeparator = '/';
constexpr std::int16_t kNone = kRejected;

constexpr TransitionTable<8, 4> kDateTable = {{
    // blank digit separator other
    {0, 1, kNone, kNone},  // 0 before the first number
    {2, 1, 3, kNone},      // 1 in the first number
    {2, kNone, 3, kNone},  // 2 behind the first number
    {3, 4, kNone, kNone},  // 3 before the second number
    {5, 4, 6, kNone},      // 4 in the second number
    {5, kNone, 6, kNone},  // 5 behind the second number
    {6, 7, kNone, kNone},  // 6 before the third number
    {8, 7, 8, 8},          // 7 in the third number
                           // 8 ended
}};

std::optional<DateReading> ReadDateWith(std::string_view text, char separator) {
    const FieldScan scan = ScanDate(text, separator);
    if (!scan.EndedIn({7, 8})) {
        return std::nullopt;
    }
    const auto [first, second, year, unused] = scan.fields;
    if (separator == kMonthFirstSeparator) {
        return DateReading{{.year = year, .month = first, .day = second}, scan.end};
    }
    return DateReading{{.year = year, .month = second, .day = first}, scan.end};
}

}  // namespace

FieldScan ScanDate(std::string_view text, char separator) {
    return ScanFields(kDateTable, SeparatedBy{separator}, text, 0);
}

std::optional<DateReading> ReadDate(std::string_view text, DateFormatCode format) {
    const bool isMonthFirst = format == DateFormatCode::MonthFirst;
    const auto reading =
        ReadDateWith(text, isMonthFirst ? kMonthFirstSeparator : kDayFirstSeparator);
    if (reading) {
        return reading;
    }
    return ReadDateWith(text, isMonthFirst ? kDayFirstSeparator : kMonthFirstSeparator);
}

void AppendDate(std::string& text, const CalendarDate& date, DateFormatCode format) {
    const bool isMonthFirst = format == DateFormatCode::MonthFirst;
    const char separator = isMonthFirst ? kMonthFirstSeparator : kDayFirstSeparator;
    std::array<char, 3 * kMaximumDigits32 + 2> buffer;
    char* end = WriteZeroPadded(buffer.data(), isMonthFirst ? date.month : date.day, 2);
    *end++ = separator;
    end = WriteZeroPadded(end, isMonthFirst ? date.day : date.month, 2);
    *end++ = separator;
    end = WriteZeroPadded(end, date.year, 4);
    text.append(buffer.data(), end);
}

}  // namespace orvell::values
