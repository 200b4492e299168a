#pragma once

#include <string>
#include <string_view>

#include "values/base_types.h"
#include "values/calendar.h"
#include "values/clock_text.h"

namespace orvell::values {

// OLE automation dates (MS-OAUT 2.2.25): a double counting days from 30 December 1899. The fraction
// is the time of day and runs away from 0, so that -1.25 is 06:00 of 29 December 1899.

/// The serial of a date at a time of day, limited to what can be shown.
[[nodiscard]] double SerialOf(const CalendarDate& date, const ClockTime& time);

/// The serial that a date, a time or both spell; 0.0 when the text is neither. The time may carry
/// milliseconds behind "," or ";". The result is limited to what can be shown.
[[nodiscard]] double ReadOleDateTime(std::string_view text, DateFormatCode format);

/// Appends date and time as "DD.MM.YYYY HH:MM:SS,mmm", or the time alone within a day of serial 0.
/// A serial that cannot be shown is limited; NaN counts as 0.0.
void AppendOleDateTime(std::string& text, double serial, DateFormatCode format);

}  // namespace orvell::values
