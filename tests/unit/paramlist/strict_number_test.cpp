#include "paramlist/strict_number.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "paramlist/integer_reading.h"

namespace orvell::paramlist {
namespace {

constexpr std::int64_t kMin64 = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kMax64 = std::numeric_limits<std::int64_t>::max();

TEST(TrimBlanks, TakesBlanksAndTabsOnly) {
    EXPECT_EQ(TrimBlanks(" \t a b\t "), "a b");
    EXPECT_EQ(TrimBlanks(" \t "), "");
    EXPECT_EQ(TrimBlanks(""), "");
    EXPECT_EQ(TrimBlanks("\n1\n"), "\n1\n");
}

TEST(ReadStrictInteger, TakesWholeIntegers) {
    const std::pair<std::string_view, std::int64_t> cases[] = {
        {"0", 0},
        {"-0", 0},
        {"+5", 5},
        {"-5", -5},
        {"007", 7},
        {"9223372036854775807", kMax64},
        {"-9223372036854775808", kMin64},
        {"2,96", 3},
        {"2,94", 2},
        {"2,95", 3},
        {"-0,04", 0},
        {"-2,96", -3},
        {"1e3", 1000},
        {"1E3", 1000},
        {"1.5e3", 1500},
        {"1,5e1", 15},
        {"1,", 1},
        {",5", 0},
        {"1e-400", 0},
    };
    for (const auto& [text, value] : cases) {
        const auto integer = ReadStrictInteger(text);
        ASSERT_TRUE(integer.has_value()) << text;
        EXPECT_EQ(integer->value, value) << text;
        EXPECT_TRUE(integer->isExact) << text;
    }
}

TEST(ReadStrictInteger, TellsThatANumberIsTooLarge) {
    const std::pair<std::string_view, std::int64_t> cases[] = {
        {"9223372036854775808", kMax64},
        {"-9223372036854775809", kMin64},
        {"99999999999999999999999999", kMax64},
        {"+9223372036854775808", kMax64},
        {"1e19", kMax64},
        {"-1e300", kMin64},
        {"9223372036854775807,0", kMax64},  // the nearest double is 2^63
    };
    for (const auto& [text, value] : cases) {
        const auto integer = ReadStrictInteger(text);
        ASSERT_TRUE(integer.has_value()) << text;
        EXPECT_EQ(integer->value, value) << text;
        EXPECT_FALSE(integer->isExact) << text;
    }
}

TEST(ReadStrictInteger, RejectsEverythingElse) {
    for (const std::string_view text :
         {"",    "-",    "+",     "+-1",    "-+1",   "--1",  "abc",   "1a",  "1 2",      "3.7",
          "0x1", "\n1",  "1\n",   "1,2,3",  "1,2.3", "1e",   "e1",    ",",   "1e+",      "\v1,5",
          "inf", "1,5 ", "1e999", "-1e999", "nan",   "\xB2", "1\xA0", "- 1", "infinite", "true"}) {
        EXPECT_FALSE(ReadStrictInteger(text).has_value()) << text;
    }
    EXPECT_FALSE(ReadStrictInteger(std::string_view("1\0", 2)).has_value());
    EXPECT_FALSE(ReadStrictInteger(std::string_view("1,5\0", 4)).has_value());
}

TEST(ReadStrictDouble, TakesWholeFiniteNumbers) {
    EXPECT_EQ(ReadStrictDouble("1,5"), 1.5);
    EXPECT_EQ(ReadStrictDouble("1.5"), 1.5);
    EXPECT_EQ(ReadStrictDouble("+1,5e-1"), 0.15);
    EXPECT_EQ(ReadStrictDouble("-7"), -7.0);
    EXPECT_EQ(ReadStrictDouble("1e20"), 1e20);
    EXPECT_EQ(ReadStrictDouble(std::string(400, '0') + "1,25"), 1.25);
    for (const std::string_view text : {"", "abc", "1,5x", "1,5,", "1.5.2", "1,5.2", " 1", "1 ",
                                        "1e", "1e999", "-1e999", "inf", "nan", "0x1p3", "."}) {
        EXPECT_FALSE(ReadStrictDouble(text).has_value()) << text;
    }
}

TEST(TruncateToInteger, CutsTowardsZeroAndKnowsItsLimits) {
    EXPECT_EQ(TruncateToInteger(2.9), 2);
    EXPECT_EQ(TruncateToInteger(-2.9), -2);
    EXPECT_EQ(TruncateToInteger(-9223372036854775808.0), kMin64);
    EXPECT_EQ(TruncateToInteger(9223372036854774784.0), 9223372036854774784);
    EXPECT_EQ(TruncateToInteger(9223372036854775808.0), kMin64);
    EXPECT_EQ(TruncateToInteger(-1e300), kMin64);
    EXPECT_EQ(TruncateToInteger(std::numeric_limits<double>::infinity()), kMin64);
    EXPECT_EQ(TruncateToInteger(std::numeric_limits<double>::quiet_NaN()), kMin64);
}

}  // namespace
}  // namespace orvell::paramlist
