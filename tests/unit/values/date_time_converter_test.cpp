#include "unit/values/converter_test.h"

namespace orvell::values {
namespace {

using DateTimeConverterTest = ConverterTest;

const TypeDescription kDayFirstDateTime = {BaseTypeCode::DateTime, 0, DateFormatCode::DayFirst};
const TypeDescription kMonthFirstDateTime = {BaseTypeCode::DateTime, 0, DateFormatCode::MonthFirst};
constexpr std::uint32_t kChristmasEve = 1608768000;  // 24 December 2020

TEST_F(DateTimeConverterTest, ShowsDateAndTime) {
    EXPECT_EQ(Show(kDayFirstDateTime, BytesOf(kChristmasEve + 25503)), "24.12.2020 07:05:03");
    EXPECT_EQ(Show(kMonthFirstDateTime, BytesOf(kChristmasEve + 25503)), "12/24/2020 07:05:03");
    EXPECT_EQ(Show(kDayFirstDateTime, BytesOf(0xFFFFFFFFU)), "07.02.2106 06:28:15");
    EXPECT_EQ(Show({BaseTypeCode::DateTime}, BytesOf(0U)), "01.01.1970 00:00:00");
    EXPECT_EQ(Export(kDayFirstDateTime, BytesOf(0U)), "01.01.1970 00:00:00");
    EXPECT_EQ(Default(kDayFirstDateTime), "01.01.1970 00:00:00");
    EXPECT_EQ(Default(kMonthFirstDateTime), "01/01/1970 00:00:00");
}

TEST_F(DateTimeConverterTest, ReadsDateAndTimeEachAlone) {
    EXPECT_EQ(Parse(kDayFirstDateTime, "24.12.2020 7:05:03"), BytesOf(kChristmasEve + 25503));
    EXPECT_EQ(Parse(kMonthFirstDateTime, "24.12.2020 7:05:03"), BytesOf(kChristmasEve + 25503));
    EXPECT_EQ(Parse(kDayFirstDateTime, "12/24/2020\t7:05:03"), BytesOf(kChristmasEve + 25503));
    EXPECT_EQ(Import(kDayFirstDateTime, "24.12.2020"), BytesOf(kChristmasEve));
    EXPECT_EQ(Parse(kDayFirstDateTime, "12:00"), BytesOf(43200U));
    EXPECT_EQ(Parse(kDayFirstDateTime, "24.12.2020 7:05Uhr"), BytesOf(kChristmasEve + 25500));
}

TEST_F(DateTimeConverterTest, HoursRunOnIntoTheNextDay) {
    EXPECT_EQ(Parse(kDayFirstDateTime, "24.12.2020 25:00"), BytesOf(kChristmasEve + 25 * 3600));
    EXPECT_EQ(Normalized(kDayFirstDateTime, "24.12.2020 25:00"), "25.12.2020 01:00:00");
    EXPECT_EQ(Normalized(kDayFirstDateTime, "24.12.2020 23:59:60"), "25.12.2020 00:00:00");
    EXPECT_EQ(Normalized(kDayFirstDateTime, "07.02.2106 06:28:16"), "01.01.1970 00:00:00");
}

TEST_F(DateTimeConverterTest, LeavesOutARejectedTime) {
    EXPECT_EQ(Parse(kDayFirstDateTime, "24.12.2020 7"), BytesOf(kChristmasEve));
    EXPECT_EQ(Parse(kDayFirstDateTime, "24.12.2020T7:05"), BytesOf(kChristmasEve));
    EXPECT_EQ(Parse(kDayFirstDateTime, "24.12.2020 7:05:"), BytesOf(kChristmasEve));
}

TEST_F(DateTimeConverterTest, YearsBefore1970CountAsZeroSeconds) {
    EXPECT_EQ(Parse(kDayFirstDateTime, "24.12.1969 12:00"), BytesOf(43200U));
}

TEST_F(DateTimeConverterTest, StoresZeroForARejectedText) {
    // With a rejected date the time must begin the text.
    for (const char* text : {"", "24.12", "24.12 12:00", "noon", "7", "x 12:00"}) {
        EXPECT_EQ(Parse(kDayFirstDateTime, text, DisplayFormat::Default, false), BytesOf(0U))
            << text;
        EXPECT_EQ(Import(kDayFirstDateTime, text, false), BytesOf(0U)) << text;
        EXPECT_EQ(Normalized(kDayFirstDateTime, text), "01.01.1970 00:00:00") << text;
        EXPECT_EQ(Normalized(kMonthFirstDateTime, text), "01/01/1970 00:00:00") << text;
    }
}

TEST_F(DateTimeConverterTest, NormalizePrintsDateAndTime) {
    EXPECT_EQ(Normalized(kDayFirstDateTime, "12:00"), "01.01.1970 12:00:00");
    EXPECT_EQ(Normalized(kMonthFirstDateTime, "24.12.2020 7:5"), "12/24/2020 07:05:00");
}

}  // namespace
}  // namespace orvell::values
