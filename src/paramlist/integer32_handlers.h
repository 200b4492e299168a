#pragma once

#include <cstdint>
#include <optional>

#include "paramlist/number_handler.h"

namespace orvell::paramlist {

/// What the 32-bit types share: they are exchanged as double words, and their texts outside CSV
/// files are plain signed integers modulo 2^32.
template <typename Stored>
class Integer32Handler : public NumberHandler<Stored> {
  public:
    bool SetFromDword(ParameterValue& value, std::uint32_t dword) const override;
    bool SetFromDouble(ParameterValue& value, double number) const override;
    bool GetDword(const ParameterValue& value, std::uint32_t& dword) const override;

    /// Counts are unsigned.
    bool GetDouble(const ParameterValue& value, double& number) const override;

  protected:
    [[nodiscard]] Stored ReadText(std::string_view text) const override;
    [[nodiscard]] std::optional<Stored> ReadCsvText(std::string_view text,
                                                    const ValueTexts& texts) const override;
    void AppendText(Stored stored, std::string& out) const override;
    void AppendCsvField(Stored stored, const ValueTexts& texts, std::string& out) const override;
};

class LongHandler final : public Integer32Handler<std::int32_t> {};

using CountHandler = Integer32Handler<std::uint32_t>;

/// A duration: a plain number in CSV files too.
class TimeHandler final : public CountHandler {};

/// Seconds since 1 January 1970; in CSV files a date.
class DateHandler final : public CountHandler {
  protected:
    [[nodiscard]] std::optional<std::uint32_t> ReadCsvText(std::string_view text,
                                                           const ValueTexts& texts) const override;
    void AppendCsvField(std::uint32_t stored, const ValueTexts& texts,
                        std::string& out) const override;
};

/// Seconds since midnight; in CSV files a clock.
class TimeOfDayHandler final : public CountHandler {
  protected:
    [[nodiscard]] std::optional<std::uint32_t> ReadCsvText(std::string_view text,
                                                           const ValueTexts& texts) const override;
    void AppendCsvField(std::uint32_t stored, const ValueTexts& texts,
                        std::string& out) const override;
};

/// Seconds since 1 January 1970; in CSV files a date and, in a column of its own, a clock.
class DateAndTimeHandler final : public CountHandler {
  protected:
    [[nodiscard]] std::optional<std::uint32_t> ReadCsvText(std::string_view text,
                                                           const ValueTexts& texts) const override;
    void AppendCsvField(std::uint32_t stored, const ValueTexts& texts,
                        std::string& out) const override;
};

}  // namespace orvell::paramlist
