// Reads and prints texts of all base types in all formats, and hands values to a host and back.

#include <cstddef>
#include <cstdint>

#include "fuzz/require.h"
#include "fuzz/values/buffer_properties.h"
#include "fuzz/values/text_properties.h"
#include "fuzz/values/transfer_properties.h"
#include "support/arithmetic_environment.h"

namespace orvell::fuzz {
namespace {

class FixedClock final : public platform::LocalClock {
  public:
    [[nodiscard]] platform::CivilTime Now() const override { return {2021, 3, 4, 5, 6, 7}; }
};

void CheckEnvironmentChangesNothing(const Conversions& conversions) {
    const ConversionResults results = conversions.All();
    ConversionResults elsewhere;
    {
        const test::GermanLocale german;
        const test::SinglePrecision single;
        Require(test::PrintsDecimalComma() && test::LosesLowBits(),
                "the host's settings are there");
        elsewhere = conversions.All();
    }
    Require(results == elsewhere, "neither the locale nor the precision changes a result");
}

void CheckCase(const ConverterCase& testCase) {
    static const FixedClock clock;
    static const values::ValueConverterSet converters(clock);
    constexpr std::uint32_t kWidestValue = 1024;  // wider strings serve to be refused

    if (converters.Find(testCase.Type().baseType) == nullptr) {
        CheckWithoutConverter(converters, testCase);
        return;
    }
    CheckShortBuffers(converters, testCase);
    if (converters.GetSize(testCase.Type()) <= kWidestValue) {
        const Conversions conversions(converters, testCase);
        CheckEnvironmentChangesNothing(conversions);
        CheckTexts(conversions, testCase);
        CheckTransfer(converters, testCase);
    }
}

}  // namespace
}  // namespace orvell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    orvell::fuzz::CheckCase(orvell::fuzz::ConverterCase({data, size}));
    return 0;
}
