#include "exhaustive/double_checks.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <fstream>

#include "exhaustive/decimal_reference.h"
#include "exhaustive/general_print.h"
#include "exhaustive/random_doubles.h"
#include "paramlist/value_type_handler_set.h"

namespace orvell::exhaustive {
namespace {

using values::BaseTypeCode;
using values::DisplayFormat;
using values::TypeDescription;

constexpr int kDisplayDigits = 15;
constexpr int kCsvDigits = 16;
constexpr TypeDescription kDouble = {BaseTypeCode::Double};
constexpr TypeDescription kFloat = {BaseTypeCode::Float};

std::string WithComma(std::string_view text) {
    std::string changed(text);
    std::replace(changed.begin(), changed.end(), '.', ',');
    return changed;
}

/// The ways of a double through DOUBLE values and through the CSV fields of FLOAT parameters.
class DoubleWays {
  public:
    DoubleWays(const values::ValueConverterSet& converters, Differences& differences)
        : converters_(converters), differences_(differences) {}

    void CheckPrinting(std::uint64_t bits) {
        CheckDisplay(bits);
        CheckCsvField(bits);
    }

    void CheckDisplayText(std::string_view text, std::uint64_t expected) {
        Bits buffer = BytesOf(~expected);
        const bool isStored =
            converters_.TextToValue(kDouble, buffer, text, DisplayFormat::Default);
        Expect(isStored, "DOUBLE from", text, BitsOf(buffer), expected);
    }

    void CheckListText(std::string_view text, std::uint64_t expected) {
        Bits buffer = BytesOf(~expected);
        const bool isStored = converters_.ImportText(kDouble, text, buffer);
        Expect(isStored, "DOUBLE from list", text, BitsOf(buffer), expected);
    }

    void CheckFloatText(std::string_view text, std::uint32_t expected) {
        Bits buffer = BytesOf(~std::uint64_t{expected});
        const bool isStored = converters_.TextToValue(kFloat, buffer, text, DisplayFormat::Default);
        Expect(isStored, "FLOAT from", text, BitsOf(buffer) & 0xFFFFFFFF, expected);
    }

    /// `isTaken`: the reader must not reject the text.
    void CheckCsvText(std::string_view text, bool isTaken, std::uint64_t expected) {
        const std::uint64_t other = std::bit_cast<std::uint64_t>(12.5);
        value_.Store(std::bit_cast<double>(other));
        if (handler_.SetFromCsvText(value_, text, kTexts) != isTaken) {
            differences_.Add("CSV", text, isTaken ? "rejection" : "a value",
                             isTaken ? "a value" : "rejection");
        }
        Expect(true, "CSV", text, std::bit_cast<std::uint64_t>(*value_.Load<double>()),
               isTaken ? expected : other);
    }

  private:
    using Bits = std::array<std::uint8_t, sizeof(std::uint64_t)>;

    static constexpr paramlist::ValueTexts kTexts = {"undef", values::DateFormatCode::DayFirst};

    static Bits BytesOf(std::uint64_t bits) {
        Bits bytes;
        std::memcpy(bytes.data(), &bits, sizeof bits);
        return bytes;
    }

    static std::uint64_t BitsOf(const Bits& bytes) {
        std::uint64_t bits = 0;
        std::memcpy(&bits, bytes.data(), sizeof bits);
        return bits;
    }

    void CheckDisplay(std::uint64_t bits) {
        const GeneralPrint expected(bits, kDisplayDigits);
        const bool isShown =
            converters_.ValueToText(kDouble, BytesOf(bits), text_, DisplayFormat::Default, true);
        if (!isShown || text_ != expected.Text()) {
            differences_.Add("DOUBLE", HexadecimalBits(bits, 64), text_, expected.Text());
        }
        // Words spell no number.
        CheckDisplayText(expected.Text(), expected.IsWord() ? 0 : expected.ReadBack());
    }

    void CheckCsvField(std::uint64_t bits) {
        const GeneralPrint expected(bits, kCsvDigits);
        expectedField_ = expected.Text();
        std::replace(expectedField_.begin(), expectedField_.end(), '.', ',');
        value_.Store(std::bit_cast<double>(bits));
        text_.clear();
        handler_.FormatCsvField(value_, kTexts, text_);
        if (!text_.ends_with(';') ||
            std::string_view(text_).substr(0, text_.size() - 1) != expectedField_) {
            differences_.Add("CSV", HexadecimalBits(bits, 64), text_, expectedField_ + ';');
        }
        CheckPrintedCsvText(bits, expected);
    }

    /// The reader knows the words, but rejects the print of the largest numbers, which is rounded
    /// up beyond them.
    void CheckPrintedCsvText(std::uint64_t bits, const GeneralPrint& print) {
        constexpr std::uint64_t kNan = kDoubleInfinity | std::uint64_t{1} << 51;
        if (print.IsWord()) {
            CheckCsvText(expectedField_, true, print.Text() == "nan" ? kNan : bits);
            return;
        }
        const std::uint64_t readBack = print.ReadBack();
        CheckCsvText(expectedField_, (readBack & ~kDoubleSign) != kDoubleInfinity, readBack);
    }

    void Expect(bool isStored, std::string_view what, std::string_view text, std::uint64_t bits,
                std::uint64_t expected) {
        if (!isStored || bits != expected) {
            differences_.Add(what, text, HexadecimalBits(bits, 64), HexadecimalBits(expected, 64));
        }
    }

    const values::ValueConverterSet& converters_;
    Differences& differences_;
    paramlist::ValueTypeHandlerSet handlers_;
    const paramlist::ValueTypeHandler& handler_ = *handlers_.Find(paramlist::ValueTypeCode::Float);
    paramlist::ParameterValue value_;
    std::string text_;
    std::string expectedField_;
};

}  // namespace

void CheckRandomDoubles(const values::ValueConverterSet& converters, Range values,
                        Differences& differences) {
    DoubleWays ways(converters, differences);
    for (std::uint64_t number = values.first; number != values.end; ++number) {
        ways.CheckPrinting(RandomDouble(number));
    }
}

std::vector<KnownDecimal> LoadKnownDecimals(const char* path) {
    std::vector<KnownDecimal> decimals;
    std::ifstream file(path);
    std::string bits;
    std::string text;
    while (file >> bits >> text) {
        decimals.push_back({std::stoull(bits, nullptr, 16), text});
    }
    return decimals;
}

void CheckKnownDecimals(const values::ValueConverterSet& converters,
                        const std::vector<KnownDecimal>& decimals, Range values,
                        Differences& differences) {
    DoubleWays ways(converters, differences);
    for (auto i = static_cast<std::size_t>(values.first); i != values.end; ++i) {
        const auto& [bits, text] = decimals[i];
        const bool isFinite = (bits & ~kDoubleSign) != kDoubleInfinity;
        const std::string listText = WithComma(text);
        ways.CheckDisplayText(text, bits);
        ways.CheckListText(listText, bits);
        ways.CheckFloatText(text, NarrowToFloat(bits));
        ways.CheckCsvText(listText, isFinite, bits);
        ways.CheckPrinting(bits);
    }
}

}  // namespace orvell::exhaustive
