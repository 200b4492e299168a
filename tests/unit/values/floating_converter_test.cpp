#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "unit/values/converter_test.h"

namespace orvell::values {
namespace {

using FloatingConverterTest = ConverterTest;

const TypeDescription kFloat = {BaseTypeCode::Float, 99};
const TypeDescription kDouble = {BaseTypeCode::Double, 1};

TEST_F(FloatingConverterTest, WidthDoesNotDependOnTheDeclaredSize) {
    EXPECT_EQ(converters_.GetSize(kFloat), 4U);
    EXPECT_EQ(converters_.GetSize(kDouble), 8U);
}

TEST_F(FloatingConverterTest, ShowsSevenAndFifteenDigits) {
    EXPECT_EQ(Show(kFloat, BytesOf(0.1F)), "0.1");
    EXPECT_EQ(Show(kFloat, BytesOf(1e20F)), "1e+20");
    EXPECT_EQ(Show(kFloat, BytesOf(1.0000001F)), "1");
    EXPECT_EQ(Show(kFloat, BytesOf(-16777216.0F)), "-1.677722e+07");
    EXPECT_EQ(Show(kFloat, BytesOf(std::numeric_limits<float>::max())), "3.402823e+38");
    EXPECT_EQ(Show(kFloat, BytesOf(std::numeric_limits<float>::denorm_min())), "1.401298e-45");
    EXPECT_EQ(Show(kDouble, BytesOf(0.1)), "0.1");
    EXPECT_EQ(Show(kDouble, BytesOf(1.0 / 3.0)), "0.333333333333333");
    EXPECT_EQ(Show(kDouble, BytesOf(std::numeric_limits<double>::max())), "1.79769313486232e+308");
    EXPECT_EQ(Show(kDouble, BytesOf(-0.0)), "-0");
}

TEST_F(FloatingConverterTest, ShowsWhatIsNoNumber) {
    EXPECT_EQ(Show(kFloat, BytesOf(std::numeric_limits<float>::infinity())), "inf");
    EXPECT_EQ(Show(kFloat, BytesOf(-std::numeric_limits<float>::infinity())), "-inf");
    EXPECT_EQ(Show(kFloat, BytesOf(0xFFC00000U)), "nan");
    EXPECT_EQ(Show(kDouble, BytesOf(-std::numeric_limits<double>::infinity())), "-inf");
    EXPECT_EQ(Show(kDouble, BytesOf(0x7FF0000000000001ULL)), "nan");
    EXPECT_EQ(Export(kDouble, BytesOf(std::numeric_limits<double>::infinity())), "inf");
}

TEST_F(FloatingConverterTest, ReadsDecimalNumbersWithAPoint) {
    EXPECT_EQ(Parse(kFloat, "1.5"), BytesOf(1.5F));
    EXPECT_EQ(Parse(kFloat, " -1.5e2 V"), BytesOf(-150.0F));
    EXPECT_EQ(Parse(kDouble, "1.5"), BytesOf(1.5));
    EXPECT_EQ(Parse(kDouble, "1,5"), BytesOf(1.0));
    EXPECT_EQ(Parse(kDouble, "junk"), BytesOf(0.0));
    EXPECT_EQ(Parse(kDouble, ""), BytesOf(0.0));
    EXPECT_EQ(Parse(kDouble, "inf"), BytesOf(0.0));
    EXPECT_EQ(Parse(kDouble, "0x1p3"), BytesOf(0.0));
    EXPECT_EQ(Parse(kDouble, "1e999"), BytesOf(std::numeric_limits<double>::infinity()));
}

TEST_F(FloatingConverterTest, FloatIsTheDoubleRounded) {
    EXPECT_EQ(Parse(kFloat, "0.1"), BytesOf(0.1F));
    EXPECT_EQ(Parse(kFloat, "16777217"), BytesOf(16777216.0F));
    EXPECT_EQ(Parse(kFloat, "3.4028235e38"), BytesOf(std::numeric_limits<float>::max()));
    EXPECT_EQ(Parse(kFloat, "3.4028236e38"), BytesOf(std::numeric_limits<float>::infinity()));
    EXPECT_EQ(Parse(kFloat, "-1e39"), BytesOf(-std::numeric_limits<float>::infinity()));
    EXPECT_EQ(Parse(kFloat, "1e-46"), BytesOf(0.0F));
}

TEST_F(FloatingConverterTest, ExportsAndImportsADecimalComma) {
    EXPECT_EQ(Export(kFloat, BytesOf(-2.5F)), "-2,5");
    EXPECT_EQ(Export(kDouble, BytesOf(1.25e100)), "1,25e+100");
    EXPECT_EQ(Export(kDouble, BytesOf(3.0)), "3");
    EXPECT_EQ(Import(kFloat, "-2,5"), BytesOf(-2.5F));
    EXPECT_EQ(Import(kDouble, "1,25e+100"), BytesOf(1.25e100));
    EXPECT_EQ(Import(kDouble, "2.5"), BytesOf(2.5));
    EXPECT_EQ(Import(kDouble, "1,2,3"), BytesOf(1.2));
}

TEST_F(FloatingConverterTest, NormalizePrintsWhatIsStored) {
    EXPECT_EQ(Normalized(kFloat, " 1.50000001 V"), "1.5");
    EXPECT_EQ(Normalized(kFloat, "16777217"), "1.677722e+07");
    EXPECT_EQ(Normalized(kFloat, "1e39"), "inf");
    EXPECT_EQ(Normalized(kDouble, "16777217"), "16777217");
    EXPECT_EQ(Normalized(kDouble, "1e39"), "1e+39");
    EXPECT_EQ(Normalized(kDouble, "1,5"), "1");
    EXPECT_EQ(Normalized(kDouble, "junk"), "0");
}

TEST_F(FloatingConverterTest, DefaultTextIsZero) {
    EXPECT_EQ(Default(kFloat), "0");
    EXPECT_EQ(Default(kDouble), "0");
}

TEST_F(FloatingConverterTest, ReadsBackWhatTheShownDigitsTell) {
    std::mt19937_64 random(1);
    for (int round = 0; round < 20000; ++round) {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value) || std::abs(value) < std::numeric_limits<double>::min()) {
            continue;
        }
        const std::string text = Show(kDouble, BytesOf(value));
        ASSERT_EQ(Show(kDouble, Parse(kDouble, text)), text);
        ASSERT_EQ(Import(kDouble, Export(kDouble, BytesOf(value))), Parse(kDouble, text));
    }
}

}  // namespace
}  // namespace orvell::values
