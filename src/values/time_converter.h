#pragma once

#include "values/counter_converter.h"

namespace orvell::values {

/// TIME: seconds since midnight, shown modulo 24 hours.
class TimeConverter final : public CounterConverter {
  protected:
    void AppendCount(std::string& text, std::uint32_t count, DateFormatCode format) const override;
    [[nodiscard]] std::optional<std::uint32_t> ReadCount(std::string_view text,
                                                         DateFormatCode format) const override;
};

}  // namespace orvell::values
