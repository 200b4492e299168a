#pragma once

#include <string>
#include <string_view>

#include "fuzz/values/converter_case.h"
#include "values/value_converter_set.h"

namespace orvell::fuzz {

/// What became of a text.
struct StoredText {
    bool isAccepted = false;
    Bytes value;

    bool operator==(const StoredText&) const = default;
};

/// Everything that the converter of a case makes of its text and its bytes.
struct ConversionResults {
    StoredText parsed;
    StoredText imported;
    std::string printed;
    std::string exported;
    std::string normalized;

    bool operator==(const ConversionResults&) const = default;
};

/// The converter of a case. Values are handed over in blocks of exactly the type's width, so that
/// the sanitizer sees a byte too many; those written, once more with bytes behind them, which must
/// stay. What every call must keep to is checked on the way.
class Conversions {
  public:
    /// Both must outlive this object.
    Conversions(const values::ValueConverterSet& converters, const ConverterCase& testCase)
        : converters_(converters), case_(testCase), type_(testCase.Type()) {}

    [[nodiscard]] std::uint32_t Width() const { return converters_.GetSize(type_); }

    [[nodiscard]] std::string Print(const Bytes& value, bool isRaw = true) const;
    [[nodiscard]] std::string Export(const Bytes& value) const;
    [[nodiscard]] StoredText Parse(std::string_view text) const;
    [[nodiscard]] StoredText Import(std::string_view text) const;
    [[nodiscard]] std::string Normalize(std::string text) const;
    [[nodiscard]] std::string Normalize(std::string text, std::uint32_t param) const;
    [[nodiscard]] std::string DefaultText() const;

    [[nodiscard]] ConversionResults All() const;

  private:
    template <typename Store>
    [[nodiscard]] StoredText StoreInBlocks(const Store& store) const;

    const values::ValueConverterSet& converters_;
    const ConverterCase& case_;
    values::TypeDescription type_;
};

}  // namespace orvell::fuzz
