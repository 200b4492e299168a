#include "values/duration_converter.h"

#include "values/duration_text.h"

namespace orvell::values {

void DurationConverter::AppendCount(std::string& text, std::uint32_t count,
                                    DateFormatCode /*format*/) const {
    AppendDuration(text, count);
}

std::optional<std::uint32_t> DurationConverter::ReadCount(std::string_view text,
                                                          DateFormatCode /*format*/) const {
    return ReadDuration(text);
}

}  // namespace orvell::values
