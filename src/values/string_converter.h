#pragma once

#include "values/value_converter.h"

namespace orvell::values {

/// STRING: an array of bytes that holds a NUL within its width.
class StringConverter final : public ValueConverter {
  public:
    [[nodiscard]] std::uint32_t GetSize(const TypeDescription& type) const override;
    bool ValueToText(const TypeDescription& type, ConstValueBuffer buffer, std::string& text,
                     DisplayFormat format, bool raw) const override;
    bool DefaultText(const TypeDescription& type, std::string& text,
                     DisplayFormat format) const override;
    bool TextToValue(const TypeDescription& type, ValueBuffer buffer, std::string_view text,
                     DisplayFormat format) const override;
    bool ExportText(const TypeDescription& type, ConstValueBuffer buffer,
                    std::string& text) const override;
    bool ImportText(const TypeDescription& type, std::string_view text,
                    ValueBuffer buffer) const override;
    [[nodiscard]] std::uint32_t NormalizeParam(const TypeDescription& type) const override;
    bool Normalize(std::uint32_t param, std::string& text, DisplayFormat format) const override;

  protected:
    [[nodiscard]] HostForm GetHostForm(const TypeDescription& type) const override;
};

}  // namespace orvell::values
