#include <limits>

#include "unit/values/converter_test.h"

namespace orvell::values {
namespace {

using OleDateTimeConverterTest = ConverterTest;

const TypeDescription kDayFirstOle = {BaseTypeCode::OleDateTime, 0, DateFormatCode::DayFirst};
const TypeDescription kMonthFirstOle = {BaseTypeCode::OleDateTime, 0, DateFormatCode::MonthFirst};

TEST_F(OleDateTimeConverterTest, ShowsDateAndTime) {
    EXPECT_EQ(Show(kDayFirstOle, BytesOf(36526.75)), "01.01.2000 18:00:00,000");
    EXPECT_EQ(Show(kMonthFirstOle, BytesOf(36527.75)), "01/02/2000 18:00:00,000");
    EXPECT_EQ(Show({BaseTypeCode::OleDateTime}, BytesOf(36527.75)), "02.01.2000 18:00:00,000");
    EXPECT_EQ(Show(kDayFirstOle, BytesOf(0.5)), "12:00:00,000");
    EXPECT_EQ(Show(kDayFirstOle, BytesOf(std::numeric_limits<double>::quiet_NaN())),
              "00:00:00,000");
    EXPECT_EQ(Show(kDayFirstOle, BytesOf(std::numeric_limits<double>::infinity())),
              "31.12.9999 23:59:59,999");
}

TEST_F(OleDateTimeConverterTest, UnusableBufferShowsTheFirstDayOf1900AndFails) {
    std::string text;
    EXPECT_FALSE(converters_.ValueToText(kDayFirstOle, {}, text, DisplayFormat::Default, true));
    EXPECT_EQ(text, "01.01.1900 00:00:00,000");
    EXPECT_FALSE(
        converters_.ValueToText(kMonthFirstOle, Bytes(7), text, DisplayFormat::Default, true));
    EXPECT_EQ(text, "01/01/1900 00:00:00,000");
    EXPECT_FALSE(converters_.ExportText(kDayFirstOle, {}, text));
    EXPECT_EQ(text, "01.01.1900 00:00:00;000");
}

TEST_F(OleDateTimeConverterTest, AcceptsEveryText) {
    EXPECT_EQ(Parse(kDayFirstOle, "01.01.2000 18:00"), BytesOf(36526.75));
    EXPECT_EQ(Parse(kMonthFirstOle, "01/02/2000"), BytesOf(36527.0));
    EXPECT_EQ(Parse(kDayFirstOle, "junk"), BytesOf(0.0));
    EXPECT_EQ(Import(kDayFirstOle, ""), BytesOf(0.0));
    EXPECT_EQ(Parse(kDayFirstOle, "1.1.99999"), BytesOf(2958465.9999999884));
}

TEST_F(OleDateTimeConverterTest, ExportsAndImportsASemicolonBeforeTheMilliseconds) {
    EXPECT_EQ(Export(kDayFirstOle, BytesOf(0.5)), "12:00:00;000");
    EXPECT_EQ(Export(kDayFirstOle, BytesOf(36526.75)), "01.01.2000 18:00:00;000");
    EXPECT_EQ(Import(kDayFirstOle, "01.01.2000 18:00:00;000"), BytesOf(36526.75));
}

TEST_F(OleDateTimeConverterTest, DefaultTextIsNow) {
    EXPECT_EQ(Default(kDayFirstOle), "04.03.2021 05:06:07,000");
    EXPECT_EQ(Default(kMonthFirstOle), "03/04/2021 05:06:07,000");
}

TEST_F(OleDateTimeConverterTest, NormalizePrintsWhatIsRead) {
    EXPECT_EQ(Normalized(kDayFirstOle, "1.2.2003 4:5"), "01.02.2003 04:05:00,000");
    EXPECT_EQ(Normalized(kMonthFirstOle, "1.2.2003 4:5:0;6"), "02/01/2003 04:05:00,006");
    EXPECT_EQ(Normalized(kDayFirstOle, "junk"), "00:00:00,000");
    EXPECT_EQ(Normalized(kDayFirstOle, "24:00"), "31.12.1899 00:00:00,000");
}

}  // namespace
}  // namespace orvell::values
