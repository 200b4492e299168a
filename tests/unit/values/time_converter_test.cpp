#include "unit/values/converter_test.h"

namespace orvell::values {
namespace {

using TimeConverterTest = ConverterTest;

const TypeDescription kTime = {BaseTypeCode::Time};

TEST_F(TimeConverterTest, ShowsTheTimeOfDay) {
    EXPECT_EQ(Show(kTime, BytesOf(0U)), "00:00:00");
    EXPECT_EQ(Show(kTime, BytesOf(25500U)), "07:05:00");
    EXPECT_EQ(Show(kTime, BytesOf(86399U)), "23:59:59");
    EXPECT_EQ(Show(kTime, BytesOf(86400U)), "00:00:00");
    EXPECT_EQ(Show(kTime, BytesOf(0xFFFFFFFFU)), "06:28:15");
    EXPECT_EQ(Export(kTime, BytesOf(25500U)), "07:05:00");
    EXPECT_EQ(Default(kTime), "00:00:00");
}

TEST_F(TimeConverterTest, ReadsClocksModulo24Hours) {
    EXPECT_EQ(Parse(kTime, "7:5"), BytesOf(25500U));
    EXPECT_EQ(Parse(kTime, "25:61:61"), BytesOf(7321U));
    EXPECT_EQ(Parse(kTime, "24:00"), BytesOf(0U));
    EXPECT_EQ(Parse(kTime, "7:05Uhr"), BytesOf(25500U));
    EXPECT_EQ(Import(kTime, " 7 : 5 : 0 "), BytesOf(25500U));
}

TEST_F(TimeConverterTest, StoresZeroForARejectedText) {
    for (const char* text : {"7", "", "7:", "7:5:", "7:05 Uhr", "1.2.2003", "noon"}) {
        EXPECT_EQ(Parse(kTime, text, DisplayFormat::Default, false), BytesOf(0U)) << text;
        EXPECT_EQ(Import(kTime, text, false), BytesOf(0U)) << text;
        EXPECT_EQ(Normalized(kTime, text), "00:00:00") << text;
    }
}

TEST_F(TimeConverterTest, NormalizePrintsTheTimeOfDay) {
    EXPECT_EQ(Normalized(kTime, "7:5"), "07:05:00");
    EXPECT_EQ(Normalized(kTime, "25:61:61"), "02:02:01");
}

}  // namespace
}  // namespace orvell::values
