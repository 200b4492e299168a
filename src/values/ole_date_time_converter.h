#pragma once

#include "platform/local_clock.h"
#include "values/value_converter.h"

namespace orvell::values {

/// OLE-DATE+TIME: an OLE automation date.
class OleDateTimeConverter final : public ValueConverter {
  public:
    /// `clock` gives the default text and must outlive the converter.
    explicit OleDateTimeConverter(const platform::LocalClock& clock) : clock_(clock) {}

    [[nodiscard]] std::uint32_t GetSize(const TypeDescription& type) const override;

    /// Text of 1 January 1900 for a buffer that is not usable, which makes it fail.
    bool ValueToText(const TypeDescription& type, ConstValueBuffer buffer, std::string& text,
                     DisplayFormat format, bool raw) const override;
    bool DefaultText(const TypeDescription& type, std::string& text,
                     DisplayFormat format) const override;
    bool TextToValue(const TypeDescription& type, ValueBuffer buffer, std::string_view text,
                     DisplayFormat format) const override;
    bool ExportText(const TypeDescription& type, ConstValueBuffer buffer,
                    std::string& text) const override;
    [[nodiscard]] std::uint32_t NormalizeParam(const TypeDescription& type) const override;
    bool Normalize(std::uint32_t param, std::string& text, DisplayFormat format) const override;

  protected:
    [[nodiscard]] HostForm GetHostForm(const TypeDescription& type) const override;

  private:
    const platform::LocalClock& clock_;
};

}  // namespace orvell::values
