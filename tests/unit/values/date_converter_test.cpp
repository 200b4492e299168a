#include "unit/values/converter_test.h"

namespace orvell::values {
namespace {

using DateConverterTest = ConverterTest;

const TypeDescription kDayFirstDate = {BaseTypeCode::Date, 0, DateFormatCode::DayFirst};
const TypeDescription kMonthFirstDate = {BaseTypeCode::Date, 0, DateFormatCode::MonthFirst};

TEST_F(DateConverterTest, ShowsTheDayInTheOrderOfTheFormat) {
    EXPECT_EQ(Show(kDayFirstDate, BytesOf(0U)), "01.01.1970");
    EXPECT_EQ(Show(kMonthFirstDate, BytesOf(0U)), "01/01/1970");
    EXPECT_EQ(Show(kDayFirstDate, BytesOf(1608768000U)), "24.12.2020");
    EXPECT_EQ(Show(kMonthFirstDate, BytesOf(1608768000U)), "12/24/2020");
    EXPECT_EQ(Show(kDayFirstDate, BytesOf(1608768000U + 86399)), "24.12.2020");
    EXPECT_EQ(Show(kDayFirstDate, BytesOf(0xFFFFFFFFU)), "07.02.2106");
    EXPECT_EQ(Export(kMonthFirstDate, BytesOf(0U)), "01/01/1970");
    EXPECT_EQ(Default(kDayFirstDate), "01.01.1970");
    EXPECT_EQ(Default(kMonthFirstDate), "01/01/1970");
}

TEST_F(DateConverterTest, ShowsTheDayFirstWithoutAFormat) {
    EXPECT_EQ(Show({BaseTypeCode::Date}, BytesOf(1608768000U)), "24.12.2020");
}

TEST_F(DateConverterTest, ReadsBothOrders) {
    EXPECT_EQ(Parse(kDayFirstDate, "24.12.2020"), BytesOf(1608768000U));
    EXPECT_EQ(Parse(kDayFirstDate, "12/24/2020"), BytesOf(1608768000U));
    EXPECT_EQ(Parse(kMonthFirstDate, "12/24/2020"), BytesOf(1608768000U));
    EXPECT_EQ(Parse(kMonthFirstDate, "24.12.2020"), BytesOf(1608768000U));
    EXPECT_EQ(Import(kDayFirstDate, " 24 . 12 . 2020 x"), BytesOf(1608768000U));
    // Read as day 12 of month 24, which is December of the next year.
    EXPECT_EQ(Parse(kMonthFirstDate, "12.24.2020"), Parse(kDayFirstDate, "12.12.2021"));
    EXPECT_EQ(Parse(kDayFirstDate, "29.02.2021"), Parse(kDayFirstDate, "01.03.2021"));
    EXPECT_EQ(Parse(kDayFirstDate, "31.02.2021"), Parse(kDayFirstDate, "03.03.2021"));
}

TEST_F(DateConverterTest, YearsBefore1970GiveZeroAndAreAccepted) {
    EXPECT_EQ(Parse(kDayFirstDate, "01.01.1969"), BytesOf(0U));
    EXPECT_EQ(Parse(kDayFirstDate, "31.12.20"), BytesOf(0U));
    EXPECT_EQ(Normalized(kDayFirstDate, "01.01.1969"), "01.01.1970");
}

TEST_F(DateConverterTest, StoresZeroForARejectedText) {
    for (const char* text : {"", "24.12", "24.12.", "24-12-2020", "12:00", "x"}) {
        EXPECT_EQ(Parse(kDayFirstDate, text, DisplayFormat::Default, false), BytesOf(0U)) << text;
        EXPECT_EQ(Import(kMonthFirstDate, text, false), BytesOf(0U)) << text;
        EXPECT_EQ(Normalized(kDayFirstDate, text), "01.01.1970") << text;
        EXPECT_EQ(Normalized(kMonthFirstDate, text), "01/01/1970") << text;
    }
}

TEST_F(DateConverterTest, NormalizePrintsTheDay) {
    EXPECT_EQ(Normalized(kDayFirstDate, "12/24/2020"), "24.12.2020");
    EXPECT_EQ(Normalized(kMonthFirstDate, "24.12.2020"), "12/24/2020");
    EXPECT_EQ(Normalized(kDayFirstDate, "1.2.2003 4:05"), "01.02.2003");
    EXPECT_EQ(Normalized(kDayFirstDate, "1.1.4000000000"), "01.02.2012");
}

}  // namespace
}  // namespace orvell::values
