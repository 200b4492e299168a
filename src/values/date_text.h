#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "values/base_types.h"
#include "values/calendar.h"
#include "values/field_scanner.h"

namespace orvell::values {

/// Scans day, month and year, or month, day and year, with the separator between them, from the
/// text's start. Blanks and tabs may stand before each number and around each separator.
[[nodiscard]] FieldScan ScanDate(std::string_view text, char separator);

struct DateReading {
    CalendarDate date;
    std::size_t end;  ///< position of the first character behind the date
};

/// The date at the text's start: D.M.Y or M/D/Y, the one that belongs to `format` being tried
/// first. None unless all three numbers are there; whether the day exists is not asked.
[[nodiscard]] std::optional<DateReading> ReadDate(std::string_view text, DateFormatCode format);

/// Appends MM/DD/YYYY for `MonthFirst`, DD.MM.YYYY for every other code.
void AppendDate(std::string& text, const CalendarDate& date, DateFormatCode format);

}  // namespace orvell::values
