#pragma once

#include <cstdint>
#include <optional>

#include "paramlist/number_handler.h"

namespace orvell::paramlist {

/// What the integers of up to 16 bits share: they are exchanged as words.
template <typename Stored>
class NarrowIntegerHandler : public NumberHandler<Stored> {
  public:
    bool SetFromWord(ParameterValue& value, std::uint16_t word) const override;
    bool SetFromDouble(ParameterValue& value, double number) const override;
    bool GetWord(const ParameterValue& value, std::uint16_t& word) const override;

  protected:
    [[nodiscard]] Stored ReadText(std::string_view text) const override;
    [[nodiscard]] std::optional<Stored> ReadCsvText(std::string_view text,
                                                    const ValueTexts& texts) const override;
    void AppendText(Stored stored, std::string& out) const override;
    void AppendCsvField(Stored stored, const ValueTexts& texts, std::string& out) const override;
};

/// 0 or 1; every other number counts as 1.
class BitHandler final : public NarrowIntegerHandler<std::uint8_t> {
  public:
    [[nodiscard]] bool IsBitAddressed() const override;
    bool SetFromWord(ParameterValue& value, std::uint16_t word) const override;
    bool SetFromDouble(ParameterValue& value, double number) const override;

  protected:
    [[nodiscard]] std::uint8_t ReadText(std::string_view text) const override;

    /// Every integer, however large.
    [[nodiscard]] std::optional<std::uint8_t> ReadCsvText(std::string_view text,
                                                          const ValueTexts& texts) const override;
};

class ByteHandler final : public NarrowIntegerHandler<std::uint8_t> {};

class WordHandler final : public NarrowIntegerHandler<std::int16_t> {};

class Integer64Handler final : public NumberHandler<std::int64_t> {
  public:
    bool SetFromQword(ParameterValue& value, std::uint64_t qword) const override;
    bool GetQword(const ParameterValue& value, std::uint64_t& qword) const override;

  protected:
    [[nodiscard]] std::int64_t ReadText(std::string_view text) const override;
    [[nodiscard]] std::optional<std::int64_t> ReadCsvText(std::string_view text,
                                                          const ValueTexts& texts) const override;
    void AppendText(std::int64_t stored, std::string& out) const override;
    void AppendCsvField(std::int64_t stored, const ValueTexts& texts,
                        std::string& out) const override;
};

}  // namespace orvell::paramlist
