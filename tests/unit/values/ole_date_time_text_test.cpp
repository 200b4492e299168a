#include "values/ole_date_time_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <utility>
#include <vector>

namespace orvell::values {
namespace {

constexpr double kLastSerial = 2958465.9999999884;
constexpr double kMillisecond = 1.0 / 86400000.0;

std::string Printed(double serial, DateFormatCode format = DateFormatCode::DayFirst) {
    std::string text;
    AppendOleDateTime(text, serial, format);
    return text;
}

double Read(std::string_view text, DateFormatCode format = DateFormatCode::DayFirst) {
    return ReadOleDateTime(text, format);
}

TEST(AppendOleDateTime, PrintsDateAndTime) {
    EXPECT_EQ(Printed(36526.75), "01.01.2000 18:00:00,000");
    EXPECT_EQ(Printed(36526.75, DateFormatCode::MonthFirst), "01/01/2000 18:00:00,000");
    EXPECT_EQ(Printed(36526.75, DateFormatCode::None), "01.01.2000 18:00:00,000");
    EXPECT_EQ(Printed(2.0), "01.01.1900 00:00:00,000");
    EXPECT_EQ(Printed(60.0), "28.02.1900 00:00:00,000");
    EXPECT_EQ(Printed(61.0), "01.03.1900 00:00:00,000");
    EXPECT_EQ(Printed(36526.0 + 1234 * kMillisecond), "01.01.2000 00:00:01,234");
}

TEST(AppendOleDateTime, PrintsNoDateWithinADayOfZero) {
    EXPECT_EQ(Printed(0.0), "00:00:00,000");
    EXPECT_EQ(Printed(-0.0), "00:00:00,000");
    EXPECT_EQ(Printed(0.5), "12:00:00,000");
    EXPECT_EQ(Printed(-0.5), "12:00:00,000");
    EXPECT_EQ(Printed(1.0), "31.12.1899 00:00:00,000");
    EXPECT_EQ(Printed(-1.0), "29.12.1899 00:00:00,000");
}

TEST(AppendOleDateTime, CountsTheTimeAwayFromZero) {
    EXPECT_EQ(Printed(-1.5), "29.12.1899 12:00:00,000");
    EXPECT_EQ(Printed(-1.25), "29.12.1899 06:00:00,000");
    EXPECT_EQ(Printed(-2.75), "28.12.1899 18:00:00,000");
}

TEST(AppendOleDateTime, RoundsTheMillisecondsUpAboveOneHalf) {
    EXPECT_EQ(Printed(0.4 * kMillisecond), "00:00:00,000");
    EXPECT_EQ(Printed(0.6 * kMillisecond), "00:00:00,001");
    EXPECT_EQ(Printed(999.4 * kMillisecond), "00:00:00,999");
    EXPECT_EQ(Printed(999.6 * kMillisecond), "00:00:01,000");
    EXPECT_EQ(Printed(59999.6 * kMillisecond), "00:01:00,000");
    EXPECT_EQ(Printed(3599999.6 * kMillisecond), "01:00:00,000");
}

TEST(AppendOleDateTime, LeavesTheHour24OfTheDayAsItIs) {
    EXPECT_EQ(Printed(86399999.6 * kMillisecond), "24:00:00,000");
    EXPECT_EQ(Printed(2.0 - 0.4 * kMillisecond), "31.12.1899 24:00:00,000");
    EXPECT_EQ(Printed(-2.0 + 0.4 * kMillisecond), "29.12.1899 24:00:00,000");
    EXPECT_EQ(Printed(std::nextafter(1.0, 0.0)), "24:00:00,000");
}

TEST(AppendOleDateTime, LimitsWhatCannotBeShown) {
    constexpr double kInfiniteSerial = std::numeric_limits<double>::infinity();
    const std::string last = "31.12.9999 23:59:59,999";
    const std::string first = "01.01.0100 00:00:00,000";
    EXPECT_EQ(Printed(kLastSerial), last);
    EXPECT_EQ(Printed(2958466.0), last);
    EXPECT_EQ(Printed(1e300), last);
    EXPECT_EQ(Printed(kInfiniteSerial), last);
    EXPECT_EQ(Printed(-657434.0), first);
    EXPECT_EQ(Printed(-657435.0), first);
    EXPECT_EQ(Printed(-1e300), first);
    EXPECT_EQ(Printed(-kInfiniteSerial), first);
    EXPECT_EQ(Printed(-657434.75), "01.01.0100 18:00:00,000");
    EXPECT_EQ(Printed(std::numeric_limits<double>::quiet_NaN()), "00:00:00,000");
    EXPECT_EQ(Printed(-std::numeric_limits<double>::quiet_NaN()), "00:00:00,000");
}

TEST(ReadOleDateTime, ReadsDateAndTimeEachAlone) {
    EXPECT_EQ(Read("01.01.2000 18:00:00,000"), 36526.75);
    EXPECT_EQ(Read("01.01.2000"), 36526.0);
    EXPECT_EQ(Read("12:00"), 0.5);
    EXPECT_EQ(Read("  18:00:00"), 0.75);
    EXPECT_EQ(Read("01.01.2000 18:00"), 36526.75);
    EXPECT_EQ(Read("1.1.2000\t18 : 00 : 00 ; 0"), 36526.75);
    EXPECT_EQ(Read("31.12.1899"), 1.0);
    EXPECT_EQ(Read("30.12.1899 6:00"), 0.25);
}

TEST(ReadOleDateTime, SubtractsTheTimeFromANegativeSerial) {
    EXPECT_EQ(Read("29.12.1899 12:00"), -1.5);
    EXPECT_EQ(Read("28.12.1899 6:00"), -2.25);
}

TEST(ReadOleDateTime, TakesBothOrders) {
    EXPECT_EQ(Read("02/01/2000", DateFormatCode::DayFirst), 36557.0);
    EXPECT_EQ(Read("02.01.2000", DateFormatCode::MonthFirst), 36527.0);
    EXPECT_EQ(Read("12.24.2020", DateFormatCode::MonthFirst), Read("12.12.2021"));
}

TEST(ReadOleDateTime, CountsMillisecondsAsTheyStand) {
    EXPECT_EQ(Printed(Read("00:00:00,5")), "00:00:00,005");
    EXPECT_EQ(Printed(Read("00:00:00;50")), "00:00:00,050");
    EXPECT_EQ(Printed(Read("00:00:00 , 86400")), "00:01:26,400");
}

TEST(ReadOleDateTime, LeavesOutARejectedTime) {
    EXPECT_EQ(Read("01.01.2000 12:00:00,"), 36526.0);
    EXPECT_EQ(Read("01.01.2000 12:00:00x"), 36526.0);
    EXPECT_EQ(Read("01.01.2000 12"), 36526.0);
    EXPECT_EQ(Read("01.01.2000T12:00"), 36526.0);
    EXPECT_EQ(Read("12:00Uhr"), 0.0);
    EXPECT_EQ(Read("01.01 12:00"), 0.0);
    EXPECT_EQ(Read("junk"), 0.0);
    EXPECT_EQ(Read(""), 0.0);
}

TEST(ReadOleDateTime, AddsTimesOfManyDaysExactly) {
    EXPECT_EQ(Read("24:00"), 1.0);
    EXPECT_EQ(Read("01.01.2000 48:00"), 36528.0);
    EXPECT_EQ(Read("2400:00"), 100.0);  // more milliseconds than 32 bits hold
    EXPECT_EQ(Read("0:1440"), 1.0);
}

TEST(ReadOleDateTime, LimitsTheSerial) {
    EXPECT_EQ(Read("31.12.9999 23:59:59,999"), kLastSerial);
    EXPECT_EQ(Read("31.12.9999 24:00"), kLastSerial);
    EXPECT_EQ(Read("01.01.10000"), kLastSerial);
    EXPECT_EQ(Read("1.1.4294967295"), kLastSerial);
    EXPECT_EQ(Read("4294967295.4294967295.4294967295 4294967295:0"), kLastSerial);
    EXPECT_EQ(Read("4294967295:4294967295:4294967295,4294967295"), kLastSerial);
    EXPECT_EQ(Read("01.01.0100"), -657434.0);
    EXPECT_EQ(Read("01.01.0100 12:00"), -657434.5);
    EXPECT_EQ(Read("31.12.0099"), -657434.0);
    EXPECT_EQ(Read("30.12.0099"), -657434.0);
    EXPECT_EQ(Read("0.0.0"), -657434.0);
    EXPECT_EQ(Read("01.01.0100 24:00"), -657434.0);
}

TEST(SerialOf, CombinesDateAndTime) {
    EXPECT_EQ(SerialOf({2000, 1, 1}, {18, 0, 0, 0}), 36526.75);
    EXPECT_EQ(SerialOf({1899, 12, 29}, {6, 0, 0, 0}), -1.25);
    EXPECT_EQ(SerialOf({20000, 1, 1}, {0, 0, 0, 0}), kLastSerial);
}

TEST(OleDateTimeText, EverySecondOfADayReadsBack) {
    for (std::uint32_t second = 0; second < 86400; ++second) {
        const ClockTime clock = ClockOfSeconds(second);
        std::string expected = "24.12.2020 ";
        AppendClock(expected, clock);
        ASSERT_EQ(Printed(SerialOf({2020, 12, 24}, clock)), expected + ",000");
        ASSERT_EQ(Printed(Read(expected)), expected + ",000");
    }
}

TEST(OleDateTimeText, MillisecondsReadBackOnBothSidesOfZero) {
    std::mt19937 random(1);
    for (int round = 0; round < 50000; ++round) {
        ClockTime clock = ClockOfSeconds(random() % 86400);
        clock.milliseconds = random() % 1000;
        const CalendarDate date = {100 + random() % 9900, 1 + random() % 12, 1 + random() % 28};
        const std::string text = Printed(SerialOf(date, clock));
        ASSERT_EQ(Printed(Read(text)), text);
        std::string time;
        AppendClock(time, clock);
        if (text.size() > 12) {
            ASSERT_EQ(text.substr(11, 8), time) << text;
            ASSERT_EQ(std::stoul(text.substr(20)), clock.milliseconds) << text;
        }
    }
}

}  // namespace
}  // namespace orvell::values
