#include "values/date_time_converter.h"

#include "values/clock_text.h"
#include "values/date_text.h"

namespace orvell::values {

void DateTimeConverter::AppendCount(std::string& text, std::uint32_t count,
                                    DateFormatCode format) const {
    AppendDate(text, DateOfSeconds(count), format);
    text += ' ';
    AppendClock(text, ClockOfSeconds(count));
}

std::optional<std::uint32_t> DateTimeConverter::ReadCount(std::string_view text,
                                                          DateFormatCode format) const {
    const std::optional<DateReading> date = ReadDate(text, format);
    const std::optional<ClockTime> clock = ReadClock(text, date ? date->end : 0);
    if (!date && !clock) {
        return std::nullopt;
    }
    const std::uint32_t secondsOfDate = date ? SecondsOfDate(date->date) : 0;
    return secondsOfDate + (clock ? SecondsOfClock(*clock) : 0);
}

DateFormatCode DateTimeConverter::GetDateFormat(const TypeDescription& type) const {
    return DateFormatOf(type);
}

}  // namespace orvell::values
