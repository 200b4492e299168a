#pragma once

#include "values/counter_converter.h"

namespace orvell::values {

/// DATE: seconds since 1 January 1970, of which the day is shown.
class DateConverter final : public CounterConverter {
  protected:
    void AppendCount(std::string& text, std::uint32_t count, DateFormatCode format) const override;
    [[nodiscard]] std::optional<std::uint32_t> ReadCount(std::string_view text,
                                                         DateFormatCode format) const override;
    [[nodiscard]] DateFormatCode GetDateFormat(const TypeDescription& type) const override;
};

}  // namespace orvell::values
