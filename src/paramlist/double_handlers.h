#pragma once

#include <optional>

#include "paramlist/number_handler.h"

namespace orvell::paramlist {

/// What the types that store a double share.
class DoubleHandler : public NumberHandler<double> {
  public:
    bool SetFromDouble(ParameterValue& value, double number) const override;
    bool GetDouble(const ParameterValue& value, double& number) const override;

  protected:
    [[nodiscard]] double ReadText(std::string_view text) const override;

    /// Also what infinities and NaN are printed as.
    [[nodiscard]] double ReadListText(std::string_view text) const override;
    void AppendText(double stored, std::string& out) const override;

    /// The value that is printed as exactly this text, if it is infinite or not a number.
    [[nodiscard]] static std::optional<double> ReadNonFinite(std::string_view text);
};

/// A number; in CSV files with all its digits and a decimal comma.
class FloatHandler final : public DoubleHandler {
  protected:
    [[nodiscard]] std::optional<double> ReadCsvText(std::string_view text,
                                                    const ValueTexts& texts) const override;
    void AppendCsvField(double stored, const ValueTexts& texts, std::string& out) const override;
};

/// An OLE automation date; in CSV files a date and a clock in two quoted columns. The reader takes
/// every text: what spells neither date nor clock counts as 0.
class OleDateTimeHandler final : public DoubleHandler {
  protected:
    [[nodiscard]] std::optional<double> ReadCsvText(std::string_view text,
                                                    const ValueTexts& texts) const override;
    void AppendCsvField(double stored, const ValueTexts& texts, std::string& out) const override;
    void AppendUndefinedCsvField(std::string& out) const override;
};

}  // namespace orvell::paramlist
