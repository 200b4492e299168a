#include "values/duration_text.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>
#include <vector>

namespace orvell::values {
namespace {

std::string Printed(std::uint32_t milliseconds) {
    std::string text;
    AppendDuration(text, milliseconds);
    return text;
}

TEST(AppendDuration, PrintsThePartsThatAreNotZero) {
    const std::vector<std::pair<std::uint32_t, std::string>> kCases = {
        {0, "0 ms"},
        {1, "1 ms"},
        {999, "999 ms"},
        {1000, "1 s"},
        {1001, "1 s 1 ms"},
        {60000, "1 min"},
        {3599999, "59 min 59 s 999 ms"},
        {3600000, "1 h"},
        {86399999, "23 h 59 min 59 s 999 ms"},
        {86400000, "1 d"},
        {86400001, "1 d 1 ms"},
        {90061001, "1 d 1 h 1 min 1 s 1 ms"},
        {4294967295, "49 d 17 h 2 min 47 s 295 ms"},
    };
    for (const auto& [milliseconds, text] : kCases) {
        EXPECT_EQ(Printed(milliseconds), text);
    }
}

TEST(ReadDuration, SumsNumbersWithTheirUnits) {
    const std::vector<std::pair<std::string, std::uint32_t>> kCases = {
        {"1 h 30 min", 5400000},
        {"250", 250},
        {"5s", 5000},
        {"2 D", 172800000},
        {"1 d 1 h 1 min 1 s 1 ms", 90061001},
        {"1D\t1H 1Min\t1S 1mS", 90061001},
        {"1 s 1 s", 2000},
        {"5 ms 1 h", 3600005},
        {"5 s 7", 5007},
        {"0", 0},
        {"", 0},
        {"ms", 0},
    };
    for (const auto& [text, milliseconds] : kCases) {
        EXPECT_EQ(ReadDuration(text), milliseconds) << text;
    }
}

TEST(ReadDuration, UnknownUnitsCountAsZero) {
    for (const char* text : {"1h30min", "5 6", "5,5 s", "5.5 s", "1 x", "1 sec", "1 m", "1 \xC4",
                             "1 m s", "1 s,", "5 -"}) {
        EXPECT_EQ(ReadDuration(text), 0U) << text;
    }
    EXPECT_EQ(ReadDuration("1 x 2 s"), 2000U);
}

TEST(ReadDuration, WrapsModuloTwoToThe32) {
    EXPECT_EQ(ReadDuration("4294967295"), 4294967295U);
    EXPECT_EQ(ReadDuration("4294967296"), 0U);
    EXPECT_EQ(ReadDuration("4294967297 ms"), 1U);
    EXPECT_EQ(ReadDuration("50 d"), 25032704U);
    EXPECT_EQ(ReadDuration("4294967295 ms 2 ms"), 1U);
}

// The states and, for each of them, a blank, a tab, a digit, another character and the text's end.

TEST(DurationTable, Between) {
    EXPECT_EQ(ReadDuration(""), 0U);
    EXPECT_EQ(ReadDuration(" \t 5 s"), 5000U);  // stays, then number
    EXPECT_EQ(ReadDuration("1 s 5 s"), 6000U);  // number
    EXPECT_EQ(ReadDuration("-5 s"), 5000U);     // junk
    EXPECT_EQ(ReadDuration("1 s "), 1000U);     // end
}

TEST(DurationTable, Junk) {
    EXPECT_EQ(ReadDuration("x"), 0U);          // end
    EXPECT_EQ(ReadDuration("xyz5 s"), 5000U);  // stays, then number
    EXPECT_EQ(ReadDuration("x 5 s"), 5000U);   // between
    EXPECT_EQ(ReadDuration("x\t5 s"), 5000U);  // between
}

TEST(DurationTable, Number) {
    EXPECT_EQ(ReadDuration("12"), 12U);        // end
    EXPECT_EQ(ReadDuration("12 s"), 12000U);   // after number
    EXPECT_EQ(ReadDuration("12\ts"), 12000U);  // after number
    EXPECT_EQ(ReadDuration("12s"), 12000U);    // unit
    EXPECT_EQ(ReadDuration("1 s 2"), 1002U);   // begins anew
}

TEST(DurationTable, AfterNumber) {
    EXPECT_EQ(ReadDuration("250 "), 250U);        // end
    EXPECT_EQ(ReadDuration("250\t"), 250U);       // end
    EXPECT_EQ(ReadDuration("5 \t \t s"), 5000U);  // stays, then unit
    EXPECT_EQ(ReadDuration("5 1s"), 0U);          // a digit begins the unit as well
}

TEST(DurationTable, Unit) {
    EXPECT_EQ(ReadDuration("5 min"), 300000U);     // end
    EXPECT_EQ(ReadDuration("5 min 1"), 300001U);   // between
    EXPECT_EQ(ReadDuration("5 min\t1"), 300001U);  // between
    EXPECT_EQ(ReadDuration("5 m1"), 0U);           // a digit belongs to the unit
    EXPECT_EQ(ReadDuration("5 s\n"), 0U);          // so does every other character
}

TEST(DurationText, ReadsBack) {
    std::mt19937 random(1);
    for (int round = 0; round < 20000; ++round) {
        const auto milliseconds = static_cast<std::uint32_t>(random() >> (random() % 32));
        ASSERT_EQ(ReadDuration(Printed(milliseconds)), milliseconds);
    }
    EXPECT_EQ(ReadDuration(Printed(0xFFFFFFFF)), 0xFFFFFFFFU);
}

}  // namespace
}  // namespace orvell::values
