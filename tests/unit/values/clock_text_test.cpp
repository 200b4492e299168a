#include "values/clock_text.h"

#include <gtest/gtest.h>

#include <string>

#include "unit/values/transition_table_test.h"

namespace orvell::values {
namespace {

std::string Digest(const std::optional<ClockTime>& clock) {
    if (!clock) {
        return "rejected";
    }
    return std::to_string(clock->hours) + ":" + std::to_string(clock->minutes) + ":" +
           std::to_string(clock->seconds) + "," + std::to_string(clock->milliseconds);
}

std::string Clock(std::string_view text, std::size_t start = 0) {
    return Digest(ReadClock(text, start));
}

std::string MillisecondClock(std::string_view text, std::size_t start = 0) {
    return Digest(ReadClockWithMilliseconds(text, start));
}

std::string Printed(const ClockTime& clock) {
    std::string text;
    AppendClock(text, clock);
    return text;
}

TEST(ClockTable, EveryTransition) {
    CheckTransitions({{"blank", " \t"},
                      {"digit", "0123456789"},
                      {":", ":"},
                      {"other", ".,;/"},
                      {"other", kOtherCharacters}},
                     {{0, "before hours", "", {0, 1, -1, -1, -1}},
                      {0, "before hours, blanks", " \t ", {0, 1, -1, -1, -1}},
                      {1, "in hours", "7", {2, 1, 3, -1, -1}},
                      {2, "behind hours", "7 ", {2, -1, 3, -1, -1}},
                      {3, "before minutes", "7:", {3, 4, -1, -1, -1}},
                      {3, "before minutes, blanks", "7 :\t", {3, 4, -1, -1, -1}},
                      {4, "in minutes", "7:5", {5, 4, 6, 8, 8}},
                      {5, "behind minutes", "7:5 ", {5, -1, 6, -1, -1}},
                      {6, "before seconds", "7:5:", {6, 7, -1, -1, -1}},
                      {6, "before seconds, blanks", "7:5 : ", {6, 7, -1, -1, -1}},
                      {7, "in seconds", "7:5:3", {8, 7, 8, 8, 8}}},
                     8, [](const std::string& text) { return ScanClock(text, 0); });
}

TEST(MillisecondClockTable, EveryTransition) {
    CheckTransitions({{"blank", " \t"},
                      {"digit", "0123456789"},
                      {":", ":"},
                      {", or ;", ",;"},
                      {"other", "./"},
                      {"other", kOtherCharacters}},
                     {{0, "before hours", "", {0, 1, -1, -1, -1, -1}},
                      {1, "in hours", "7", {2, 1, 3, -1, -1, -1}},
                      {2, "behind hours", "7 ", {2, -1, 3, -1, -1, -1}},
                      {3, "before minutes", "7:", {3, 4, -1, -1, -1, -1}},
                      {4, "in minutes", "7:5", {5, 4, 6, -1, -1, -1}},
                      {5, "behind minutes", "7:5 ", {5, -1, 6, -1, -1, -1}},
                      {6, "before seconds", "7:5:", {6, 7, -1, -1, -1, -1}},
                      {7, "in seconds", "7:5:3", {8, 7, -1, 9, -1, -1}},
                      {8, "behind seconds", "7:5:3 ", {8, -1, -1, 9, -1, -1}},
                      {9, "before milliseconds", "7:5:3,", {9, 10, -1, -1, -1, -1}},
                      {9, "before milliseconds, blanks", "7:5:3 ; ", {9, 10, -1, -1, -1, -1}},
                      {10, "in milliseconds", "7:5:3,1", {11, 10, 11, 11, 11, 11}}},
                     11,
                     [](const std::string& text) { return ScanClockWithMilliseconds(text, 0); });
}

TEST(ReadClock, IsAcceptedFromTheMinutesOn) {
    EXPECT_EQ(Clock(""), "rejected");       // state 0
    EXPECT_EQ(Clock("7"), "rejected");      // state 1
    EXPECT_EQ(Clock("7 "), "rejected");     // state 2
    EXPECT_EQ(Clock("7:"), "rejected");     // state 3
    EXPECT_EQ(Clock("7:5"), "7:5:0,0");     // state 4
    EXPECT_EQ(Clock("7:5 "), "7:5:0,0");    // state 5
    EXPECT_EQ(Clock("7:5:"), "rejected");   // state 6
    EXPECT_EQ(Clock("7:5:3"), "7:5:3,0");   // state 7
    EXPECT_EQ(Clock("7:5:3 "), "7:5:3,0");  // state 8 from 7
    EXPECT_EQ(Clock("7:5Uhr"), "7:5:0,0");  // state 8 from 4
    EXPECT_EQ(Clock("7:5 Uhr"), "rejected");
    EXPECT_EQ(Clock(" 07 : 05 : 03 x"), "7:5:3,0");
    EXPECT_EQ(Clock("-7:5"), "rejected");
    EXPECT_EQ(Clock("07.05"), "rejected");
}

TEST(ReadClock, BeginsAtTheStart) {
    EXPECT_EQ(Clock("24.12.2020 7:5", 10), "7:5:0,0");
    EXPECT_EQ(Clock("7:5", 3), "rejected");
    EXPECT_EQ(MillisecondClock("x7:5:3,9", 1), "7:5:3,9");
}

TEST(ReadClock, NumbersWrapModuloTwoToThe32) {
    EXPECT_EQ(Clock("4294967295:4294967296:4294967297"), "4294967295:0:1,0");
    EXPECT_EQ(MillisecondClock("0:0:0,4294967301"), "0:0:0,5");
}

TEST(ReadClockAndEnd, TellsWhereTheClockEnds) {
    EXPECT_EQ(ReadClockAndEnd("12:30", 0)->end, 5U);
    EXPECT_EQ(ReadClockAndEnd("12:30:15 x", 0)->end, 8U);
    EXPECT_EQ(ReadClockAndEnd("12:30x", 0)->end, 5U);
    EXPECT_EQ(ReadClockAndEnd("1.1.70 2:3 ", 6)->end, 11U);
    EXPECT_EQ(ReadClockAndEnd("1.1.70 2:3", 6)->clock.minutes, 3U);
    EXPECT_FALSE(ReadClockAndEnd("12:", 0).has_value());
}

TEST(ReadClockWithMilliseconds, IsAcceptedFromTheMinutesOn) {
    EXPECT_EQ(MillisecondClock(""), "rejected");              // state 0
    EXPECT_EQ(MillisecondClock("7"), "rejected");             // state 1
    EXPECT_EQ(MillisecondClock("7 "), "rejected");            // state 2
    EXPECT_EQ(MillisecondClock("7:"), "rejected");            // state 3
    EXPECT_EQ(MillisecondClock("7:5"), "7:5:0,0");            // state 4
    EXPECT_EQ(MillisecondClock("7:5 "), "7:5:0,0");           // state 5
    EXPECT_EQ(MillisecondClock("7:5:"), "rejected");          // state 6
    EXPECT_EQ(MillisecondClock("7:5:3"), "7:5:3,0");          // state 7
    EXPECT_EQ(MillisecondClock("7:5:3 "), "7:5:3,0");         // state 8
    EXPECT_EQ(MillisecondClock("7:5:3,"), "rejected");        // state 9
    EXPECT_EQ(MillisecondClock("7:5:3,5"), "7:5:3,5");        // state 10
    EXPECT_EQ(MillisecondClock("7:5:3;005x"), "7:5:3,5");     // state 11
    EXPECT_EQ(MillisecondClock("7:5:3 , 12 3"), "7:5:3,12");  // state 11
    EXPECT_EQ(MillisecondClock("7:5Uhr"), "rejected");
    EXPECT_EQ(MillisecondClock("7:5:3Uhr"), "rejected");
    EXPECT_EQ(MillisecondClock("7:5,5"), "rejected");
}

TEST(SecondsOfClock, CarriesWithoutLimitingTheHours) {
    EXPECT_EQ(SecondsOfClock({7, 5, 3, 999}), 25503U);
    EXPECT_EQ(SecondsOfClock({25, 61, 61, 0}), 26 * 3600U + 2 * 60 + 1);
    EXPECT_EQ(SecondsOfClock({0, 0, 0xFFFFFFFF, 0}), 0xFFFFFFFFU);
    EXPECT_EQ(SecondsOfClock({1193046, 28, 15, 0}), 4294967295U);
    EXPECT_EQ(SecondsOfClock({1193046, 28, 16, 0}), 0U);
}

TEST(SecondsOfDay, TakesTheHoursModulo24AfterTheCarries) {
    EXPECT_EQ(SecondsOfDay({25, 61, 61, 0}), 2 * 3600U + 2 * 60 + 1);
    EXPECT_EQ(SecondsOfDay({24, 0, 0, 0}), 0U);
    EXPECT_EQ(SecondsOfDay({23, 59, 59, 0}), 86399U);
    EXPECT_EQ(SecondsOfDay({23, 59, 60, 0}), 0U);
    EXPECT_EQ(SecondsOfDay({23, 60, 0, 0}), 0U);
    EXPECT_EQ(SecondsOfDay({0, 0xFFFFFFFF, 60, 0}), 0U);  // the minutes wrap
}

TEST(AppendClock, PrintsTwoDigitsEach) {
    EXPECT_EQ(Printed(ClockOfSeconds(0)), "00:00:00");
    EXPECT_EQ(Printed(ClockOfSeconds(25503)), "07:05:03");
    EXPECT_EQ(Printed(ClockOfSeconds(86399)), "23:59:59");
    EXPECT_EQ(Printed(ClockOfSeconds(86400)), "00:00:00");
    EXPECT_EQ(Printed(ClockOfSeconds(0xFFFFFFFF)), "06:28:15");
    EXPECT_EQ(Printed({24, 0, 0, 0}), "24:00:00");
}

TEST(ClockText, EverySecondOfADayReadsBack) {
    for (std::uint32_t second = 0; second < 86400; ++second) {
        const auto clock = ReadClock(Printed(ClockOfSeconds(second)), 0);
        ASSERT_TRUE(clock.has_value());
        ASSERT_EQ(SecondsOfDay(*clock), second);
    }
}

}  // namespace
}  // namespace orvell::values
