#include "unit/values/converter_test.h"

namespace orvell::values {
namespace {

using DurationConverterTest = ConverterTest;

const TypeDescription kDuration = {BaseTypeCode::Duration};

TEST_F(DurationConverterTest, ShowsMillisecondsInUnits) {
    EXPECT_EQ(Show(kDuration, BytesOf(0U)), "0 ms");
    EXPECT_EQ(Show(kDuration, BytesOf(3600000U)), "1 h");
    EXPECT_EQ(Show(kDuration, BytesOf(90061001U)), "1 d 1 h 1 min 1 s 1 ms");
    EXPECT_EQ(Show(kDuration, BytesOf(0xFFFFFFFFU)), "49 d 17 h 2 min 47 s 295 ms");
    EXPECT_EQ(Export(kDuration, BytesOf(1500U)), "1 s 500 ms");
    EXPECT_EQ(Default(kDuration), "0 ms");
}

TEST_F(DurationConverterTest, ReadsEveryText) {
    EXPECT_EQ(Parse(kDuration, "1 h 30 min"), BytesOf(5400000U));
    EXPECT_EQ(Import(kDuration, "1 h 30 min"), BytesOf(5400000U));
    EXPECT_EQ(Parse(kDuration, "junk"), BytesOf(0U));
    EXPECT_EQ(Import(kDuration, ""), BytesOf(0U));
}

TEST_F(DurationConverterTest, NormalizePrintsTheSum) {
    EXPECT_EQ(Normalized(kDuration, "90 min"), "1 h 30 min");
    EXPECT_EQ(Normalized(kDuration, "250"), "250 ms");
    EXPECT_EQ(Normalized(kDuration, "5 6"), "0 ms");
    EXPECT_EQ(Normalized(kDuration, "50 d"), "6 h 57 min 12 s 704 ms");
}

}  // namespace
}  // namespace orvell::values
