#pragma once

#include "values/value_converter.h"

namespace orvell::values {

/// Enumerated: an unsigned integer of 1, 2 or 4 bytes, shown as the name of its item.
class EnumeratedConverter final : public ValueConverter {
  public:
    [[nodiscard]] std::uint32_t GetSize(const TypeDescription& type) const override;
    bool ValueToText(const TypeDescription& type, ConstValueBuffer buffer, std::string& text,
                     DisplayFormat format, bool raw) const override;
    bool DefaultText(const TypeDescription& type, std::string& text,
                     DisplayFormat format) const override;
    bool TextToValue(const TypeDescription& type, ValueBuffer buffer, std::string_view text,
                     DisplayFormat format) const override;
    [[nodiscard]] std::uint32_t NormalizeParam(const TypeDescription& type) const override;

    /// Does nothing and returns false: without the items there is no canonical text.
    bool Normalize(std::uint32_t param, std::string& text, DisplayFormat format) const override;

  protected:
    [[nodiscard]] HostForm GetHostForm(const TypeDescription& type) const override;
};

}  // namespace orvell::values
