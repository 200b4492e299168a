#pragma once

#include "paramlist/value_type_handler.h"

namespace orvell::paramlist {

/// Texts of any length. In list files blanks become at signs, and an empty text, which a list file
/// cannot hold, becomes undefined; in CSV files texts are quoted.
class TextHandler final : public ValueTypeHandler {
  public:
    bool SetFromListText(ParameterValue& value, std::string_view text,
                         const ValueTexts& texts) const override;
    bool SetFromCsvText(ParameterValue& value, std::string_view text,
                        const ValueTexts& texts) const override;
    bool SetFromText(ParameterValue& value, std::optional<std::string_view> text) const override;
    void FormatListText(const ParameterValue& value, const ValueTexts& texts,
                        std::string& out) const override;
    void FormatCsvField(const ParameterValue& value, const ValueTexts& texts,
                        std::string& out) const override;
    bool GetText(const ParameterValue& value, std::string& out) const override;
};

}  // namespace orvell::paramlist
