#include "values/time_converter.h"

#include "values/clock_text.h"

namespace orvell::values {

void TimeConverter::AppendCount(std::string& text, std::uint32_t count,
                                DateFormatCode /*format*/) const {
    AppendClock(text, ClockOfSeconds(count));
}

std::optional<std::uint32_t> TimeConverter::ReadCount(std::string_view text,
                                                      DateFormatCode /*format*/) const {
    const std::optional<ClockTime> clock = ReadClock(text, 0);
    return clock ? std::optional(SecondsOfDay(*clock)) : std::nullopt;
}

}  // namespace orvell::values
