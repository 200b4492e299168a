// A host may set a locale with a decimal comma and the x87 unit to single precision. Neither may
// change a text or a bit of a value.
#include "support/arithmetic_environment.h"

#include <random>

#include "unit/values/converter_test.h"

namespace orvell::values {
namespace {

using test::GermanLocale;
using test::SinglePrecision;

class ArithmeticEnvironmentTest : public ConverterTest {
  protected:
    /// Everything that the converters make of many texts and bytes, one line each.
    [[nodiscard]] std::vector<std::string> AllResults() const {
        std::vector<std::string> results;
        std::mt19937_64 random(1);
        for (int round = 0; round < 500; ++round) {
            const std::string number = std::to_string(random() >> (random() % 64));
            const std::string fraction = std::to_string(random() % 1000000000);
            const std::string exponent = std::to_string(static_cast<int>(random() % 60) - 30);
            for (const std::string& text :
                 {number + "." + fraction, number + "," + fraction, fraction + "e" + exponent,
                  number + "," + fraction + "e" + exponent, fraction + "." + number}) {
                Collect(text, results);
            }
            const std::string part = std::to_string(random() % 100);
            Collect(part + ".7." + std::to_string(1800 + random() % 400) + " " + part +
                        ":59:" + part + "," + std::to_string(random() % 2000),
                    results);
        }
        return results;
    }

    /// A number whose text every number conversion of the C library gets wrong with a comma locale.
    void ExpectKnownResults() const {
        EXPECT_EQ(Parse({BaseTypeCode::Double}, "1234567.25"), BytesOf(1234567.25));
        EXPECT_EQ(Show({BaseTypeCode::Double}, BytesOf(1234567.25)), "1234567.25");
        EXPECT_EQ(Show({BaseTypeCode::Float}, BytesOf(0.5F)), "0.5");
        EXPECT_EQ(Show({BaseTypeCode::Int, 4}, BytesOf(1234567)), "1234567");
        EXPECT_EQ(Import({BaseTypeCode::Int, 4}, "1234567,96"), BytesOf(1234568));
        EXPECT_EQ(Parse({BaseTypeCode::Double}, "0.1"), BytesOf(0.1));
    }

  private:
    void Collect(const std::string& text, std::vector<std::string>& results) const {
        using enum BaseTypeCode;
        for (const TypeDescription& type :
             {TypeDescription{Int, 8}, {Float}, {Double}, {Duration}, {DateTime}, {OleDateTime}}) {
            Bytes bytes(8);
            std::string shown;
            std::string exported;
            converters_.TextToValue(type, bytes, text, DisplayFormat::Default);
            converters_.ValueToText(type, bytes, shown, DisplayFormat::Default, true);
            std::string result = text + " -> " + Hexadecimal(bytes) + ' ' + shown;
            converters_.ImportText(type, text, bytes);
            converters_.ExportText(type, bytes, exported);
            results.push_back(result + " -> " + Hexadecimal(bytes) + ' ' + exported);
        }
    }

    static std::string Hexadecimal(const Bytes& bytes) {
        std::string text;
        for (const std::uint8_t byte : bytes) {
            text += "0123456789ABCDEF"[byte >> 4];
            text += "0123456789ABCDEF"[byte & 15];
        }
        return text;
    }
};

TEST_F(ArithmeticEnvironmentTest, LocaleWithADecimalCommaChangesNothing) {
    const std::vector<std::string> expected = AllResults();
    const GermanLocale german;
    ASSERT_TRUE(test::PrintsDecimalComma());
    ExpectKnownResults();
    EXPECT_EQ(AllResults(), expected);
}

TEST_F(ArithmeticEnvironmentTest, PrecisionOfTheX87UnitChangesNothing) {
    const std::vector<std::string> expected = AllResults();
    std::vector<std::string> results;
    {
        const SinglePrecision single;
        ASSERT_TRUE(test::LosesLowBits());
        ExpectKnownResults();
        results = AllResults();
    }
    EXPECT_EQ(results, expected);
}

}  // namespace
}  // namespace orvell::values
