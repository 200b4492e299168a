#include "values/date_converter.h"

#include "values/date_text.h"

namespace orvell::values {

void DateConverter::AppendCount(std::string& text, std::uint32_t count,
                                DateFormatCode format) const {
    AppendDate(text, DateOfSeconds(count), format);
}

std::optional<std::uint32_t> DateConverter::ReadCount(std::string_view text,
                                                      DateFormatCode format) const {
    const std::optional<DateReading> reading = ReadDate(text, format);
    return reading ? std::optional(SecondsOfDate(reading->date)) : std::nullopt;
}

DateFormatCode DateConverter::GetDateFormat(const TypeDescription& type) const {
    return DateFormatOf(type);
}

}  // namespace orvell::values
