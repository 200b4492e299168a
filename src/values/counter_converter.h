#pragma once

#include <optional>

#include "values/value_converter.h"

namespace orvell::values {

/// Unsigned 32-bit counts of milliseconds or seconds. The derived classes give them their texts;
/// a text that they reject is stored as 0.
class CounterConverter : public ValueConverter {
  public:
    [[nodiscard]] std::uint32_t GetSize(const TypeDescription& type) const override;
    bool ValueToText(const TypeDescription& type, ConstValueBuffer buffer, std::string& text,
                     DisplayFormat format, bool raw) const override;
    bool DefaultText(const TypeDescription& type, std::string& text,
                     DisplayFormat format) const override;
    bool TextToValue(const TypeDescription& type, ValueBuffer buffer, std::string_view text,
                     DisplayFormat format) const override;
    [[nodiscard]] std::uint32_t NormalizeParam(const TypeDescription& type) const override;
    bool Normalize(std::uint32_t param, std::string& text, DisplayFormat format) const override;

  protected:
    [[nodiscard]] HostForm GetHostForm(const TypeDescription& type) const override;

    virtual void AppendCount(std::string& text, std::uint32_t count,
                             DateFormatCode format) const = 0;

    /// The count that the text spells, none when it is rejected.
    [[nodiscard]] virtual std::optional<std::uint32_t> ReadCount(std::string_view text,
                                                                 DateFormatCode format) const = 0;

    /// `None` for counts without a date.
    [[nodiscard]] virtual DateFormatCode GetDateFormat(const TypeDescription& type) const;
};

}  // namespace orvell::values
