#pragma once

#include "values/value_converter.h"

namespace orvell::values {

/// Integers of 1, 2, 4 or 8 bytes; INT and UINT differ in the sign that they show.
class IntegerConverter : public ValueConverter {
  public:
    [[nodiscard]] std::uint32_t GetSize(const TypeDescription& type) const override;
    bool ValueToText(const TypeDescription& type, ConstValueBuffer buffer, std::string& text,
                     DisplayFormat format, bool raw) const override;
    bool DefaultText(const TypeDescription& type, std::string& text,
                     DisplayFormat format) const override;
    bool TextToValue(const TypeDescription& type, ValueBuffer buffer, std::string_view text,
                     DisplayFormat format) const override;
    bool ImportText(const TypeDescription& type, std::string_view text,
                    ValueBuffer buffer) const override;
    [[nodiscard]] std::uint32_t NormalizeParam(const TypeDescription& type) const override;
    bool Normalize(std::uint32_t param, std::string& text, DisplayFormat format) const override;

  protected:
    [[nodiscard]] HostForm GetHostForm(const TypeDescription& type) const override;

    /// Whether a decimal format shows negative values.
    [[nodiscard]] virtual bool ShowsSign(DisplayFormat format) const = 0;

  private:
    void AppendInteger(std::string& text, std::uint64_t value, std::uint32_t width,
                       DisplayFormat format) const;
};

/// INT
class IntConverter final : public IntegerConverter {
  protected:
    [[nodiscard]] bool ShowsSign(DisplayFormat format) const override {
        return format != DisplayFormat::Unsigned;
    }
};

/// UINT
class UIntConverter final : public IntegerConverter {
  protected:
    [[nodiscard]] bool ShowsSign(DisplayFormat format) const override {
        return format == DisplayFormat::Signed;
    }
};

}  // namespace orvell::values
