#include "exhaustive/float_check.h"

#include <array>
#include <cstring>
#include <optional>

#include "exhaustive/decimal_reference.h"
#include "exhaustive/general_print.h"

namespace orvell::exhaustive {
namespace {

constexpr values::TypeDescription kFloat = {values::BaseTypeCode::Float};
constexpr int kDigits = 7;

void CheckReadingBack(const values::ValueConverterSet& converters, const GeneralPrint& print,
                      Differences& differences) {
    // Words spell no number.
    const std::uint32_t expected = print.IsWord() ? 0 : NarrowToFloat(print.ReadBack());
    std::uint32_t bits = ~expected;
    std::array<std::uint8_t, sizeof bits> buffer;
    std::memcpy(buffer.data(), &bits, sizeof bits);
    const bool isStored =
        converters.TextToValue(kFloat, buffer, print.Text(), values::DisplayFormat::Default);
    std::memcpy(&bits, buffer.data(), sizeof bits);
    if (!isStored || bits != expected) {
        differences.Add("FLOAT from", print.Text(), HexadecimalBits(bits, 32),
                        HexadecimalBits(expected, 32));
    }
}

}  // namespace

void CheckFloats(const values::ValueConverterSet& converters, Range values,
                 Differences& differences) {
    std::string text;
    std::optional<GeneralPrint> previous;
    for (std::uint64_t value = values.first; value != values.end; ++value) {
        const auto bits = static_cast<std::uint32_t>(value);
        std::array<std::uint8_t, sizeof bits> buffer;
        std::memcpy(buffer.data(), &bits, sizeof bits);
        const GeneralPrint expected(WidenToDouble(bits), kDigits);
        const bool isShown =
            converters.ValueToText(kFloat, buffer, text, values::DisplayFormat::Default, true);
        if (!isShown || text != expected.Text()) {
            differences.Add("FLOAT", HexadecimalBits(bits, 32), text, expected.Text());
        }
        if (!previous || *previous != expected) {
            CheckReadingBack(converters, expected, differences);
            previous = expected;
        }
    }
}

}  // namespace orvell::exhaustive
