#include "values/double_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace orvell::values {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::uint64_t BitsOf(double value) {
    return std::bit_cast<std::uint64_t>(value);
}

std::string General(double value, int digits) {
    std::string text = "<";
    AppendGeneral(text, value, digits);
    return text.substr(1);
}

TEST(ScanDouble, ReadsTheNumberAndTellsItsLength) {
    const std::vector<std::tuple<std::string, double, std::size_t>> kCases = {
        {"0", 0.0, 1},
        {"-0", -0.0, 2},
        {"1.5", 1.5, 3},
        {"+1.5", 1.5, 4},
        {"-1.5", -1.5, 4},
        {" \t\n\v\f\r1.5 ", 1.5, 9},
        {".5", 0.5, 2},
        {"5.", 5.0, 2},
        {"5.e1", 50.0, 4},
        {"1e3", 1000.0, 3},
        {"1E+3", 1000.0, 4},
        {"1e-3", 0.001, 4},
        {"1e", 1.0, 1},
        {"1e+", 1.0, 1},
        {"1e-x", 1.0, 1},
        {"1 e3", 1.0, 1},
        {"1.5.5", 1.5, 3},
        {"1,5", 1.0, 1},
        {"0x1p3", 0.0, 1},
        {"1d5", 1.0, 1},
        {"1f", 1.0, 1},
        {"000.000", 0.0, 7},
        {"0e999", 0.0, 5},
        {"00000000000000000000000000001.5", 1.5, 31},
        {"1e00000000000000000000000000001", 10.0, 31},
    };
    for (const auto& [text, value, length] : kCases) {
        const DoubleScan scan = ScanDouble(text);
        EXPECT_EQ(BitsOf(scan.value), BitsOf(value)) << text;
        EXPECT_EQ(scan.length, length) << text;
    }
}

TEST(ScanDouble, FindsNoNumberInAnythingElse) {
    for (const char* text : {"", " ", "+", "-", ".", "-.", ".e5", "e5", "inf", "-inf", "nan", "INF",
                             "infinity", "NaN(1)", "x1", "+-1", "- 1", "\x80"}) {
        const DoubleScan scan = ScanDouble(text);
        EXPECT_EQ(BitsOf(scan.value), BitsOf(0.0)) << text;
        EXPECT_EQ(scan.length, 0U) << text;
    }
}

TEST(ScanDouble, StaysWithinTheView) {
    EXPECT_EQ(ReadDouble(std::string_view("1.5e3").substr(0, 4)), 1.5);
    EXPECT_EQ(ReadDouble(std::string_view("1.55").substr(0, 3)), 1.5);
    EXPECT_EQ(ReadDouble(std::string_view("-1").substr(0, 1)), 0.0);
}

TEST(ScanDouble, GivesInfinityAboveTheRangeAndZeroBelow) {
    const std::string manyZeros(400, '0');
    EXPECT_EQ(ReadDouble("1e999"), kInfinity);
    EXPECT_EQ(ReadDouble("-1e999"), -kInfinity);
    EXPECT_EQ(ReadDouble("1.8e308"), kInfinity);
    EXPECT_EQ(ReadDouble("1" + manyZeros), kInfinity);
    EXPECT_EQ(ReadDouble("0.001e400"), kInfinity);
    EXPECT_EQ(ReadDouble("1e99999999999999999999999999"), kInfinity);
    EXPECT_EQ(ReadDouble("1e-999"), 0.0);
    EXPECT_EQ(BitsOf(ReadDouble("-1e-999")), BitsOf(-0.0));
    EXPECT_EQ(ReadDouble("2e-324"), 0.0);
    EXPECT_EQ(ReadDouble("0." + manyZeros + "1"), 0.0);
    EXPECT_EQ(ReadDouble("1000e-400"), 0.0);
    EXPECT_EQ(ReadDouble("1e-99999999999999999999999999"), 0.0);
    EXPECT_EQ(ReadDouble("0." + manyZeros + "1e401"), 1.0);
    EXPECT_EQ(ReadDouble("1" + manyZeros + "e-400"), 1.0);
}

TEST(ScanDouble, RoundsCorrectlyAtTheEdges) {
    EXPECT_EQ(ReadDouble("1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(ReadDouble("1.797693134862315807e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(ReadDouble("2.2250738585072014e-308"), std::numeric_limits<double>::min());
    EXPECT_EQ(BitsOf(ReadDouble("4.9e-324")), 1U);
    EXPECT_EQ(BitsOf(ReadDouble("2.5e-324")), 1U);
    EXPECT_EQ(BitsOf(ReadDouble("2.2250738585072011e-308")), 0x000FFFFFFFFFFFFFU);
    // Halfway between two doubles: to even; a digit far behind decides.
    EXPECT_EQ(ReadDouble("9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(ReadDouble("9007199254740995"), 9007199254740996.0);
    EXPECT_EQ(ReadDouble("9007199254740993.0000000000000000000000000000001"), 9007199254740994.0);
    EXPECT_EQ(BitsOf(ReadDouble("6929495644600919.5")), BitsOf(6929495644600920.0));
    EXPECT_EQ(ReadDouble("1e22"), 0x1.0F0CF064DD592p+73);
    EXPECT_EQ(ReadDouble("1e23"), 0x1.52D02C7E14AF6p+76);
    EXPECT_EQ(ReadDouble("1e-22"), 0x1.E392010175EE6p-74);
    EXPECT_EQ(ReadDouble("1e-23"), 0x1.82DB34012B251p-77);
    EXPECT_EQ(ReadDouble("0.1"), 0x1.999999999999Ap-4);
}

TEST(ScanDouble, ReadsBackTheShortestTextOfEveryKindOfDouble) {
    std::mt19937_64 random(1);
    for (int round = 0; round < 100000; ++round) {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value)) {
            continue;
        }
        char text[64];
        const auto end = std::to_chars(text, text + sizeof text, value).ptr;
        ASSERT_EQ(BitsOf(ReadDouble({text, end})), BitsOf(value)) << std::string(text, end);
    }
}

TEST(ScanDouble, ReadsBackNumbersOfTheSizeThatPeopleType) {
    std::mt19937_64 random(2);
    for (int round = 0; round < 100000; ++round) {
        const auto digits = static_cast<std::int64_t>(random() >> (11 + random() % 53));
        const int places = static_cast<int>(random() % 23);
        const std::string text = std::to_string(digits) + "e-" + std::to_string(places);
        double expected = 0.0;
        // The same value through a text that no short cut takes: 25 digits.
        const std::string longText =
            std::to_string(digits) + "." + std::string(25, '0') + "e-" + std::to_string(places);
        std::from_chars(longText.data(), longText.data() + longText.size(), expected);
        ASSERT_EQ(BitsOf(ReadDouble(text)), BitsOf(expected)) << text;
    }
}

TEST(AppendGeneral, PrintsLikeTheConversionG) {
    EXPECT_EQ(General(0.0, 7), "0");
    EXPECT_EQ(General(-0.0, 7), "-0");
    EXPECT_EQ(General(1.0, 7), "1");
    EXPECT_EQ(General(0.1F, 7), "0.1");
    EXPECT_EQ(General(1.0000001F, 7), "1");
    EXPECT_EQ(General(1e20F, 7), "1e+20");
    EXPECT_EQ(General(1e-5, 7), "1e-05");
    EXPECT_EQ(General(0.0001, 7), "0.0001");
    EXPECT_EQ(General(1234567.0, 7), "1234567");
    EXPECT_EQ(General(12345678.0, 7), "1.234568e+07");
    EXPECT_EQ(General(9999999.5, 7), "1e+07");
    EXPECT_EQ(General(123456789012345.0, 15), "123456789012345");
    EXPECT_EQ(General(1e15, 15), "1e+15");
    EXPECT_EQ(General(1e300, 15), "1e+300");
    EXPECT_EQ(General(0.1 + 0.2, 15), "0.3");
    EXPECT_EQ(General(0.1 + 0.2, 16), "0.3");
    EXPECT_EQ(General(1.0 / 3.0, 16), "0.3333333333333333");
    EXPECT_EQ(General(-2.5e-310, 15), "-2.50000000000002e-310");
    EXPECT_EQ(General(std::numeric_limits<double>::denorm_min(), 16), "4.940656458412465e-324");
    EXPECT_EQ(General(2.5, 1), "2");
    EXPECT_EQ(General(-std::numeric_limits<double>::max(), 16), "-1.797693134862316e+308");
}

TEST(AppendGeneral, NamesWhatIsNoNumber) {
    EXPECT_EQ(General(kInfinity, 7), "inf");
    EXPECT_EQ(General(-kInfinity, 7), "-inf");
    EXPECT_EQ(General(std::numeric_limits<double>::quiet_NaN(), 7), "nan");
    EXPECT_EQ(General(-std::numeric_limits<double>::quiet_NaN(), 7), "nan");
}

TEST(AppendFixed, PrintsLikeTheConversionF) {
    const auto fixed = [](double value, int decimals) {
        std::string text = ">";
        AppendFixed(text, value, decimals);
        return text;
    };
    EXPECT_EQ(fixed(2.96, 1), ">3.0");
    EXPECT_EQ(fixed(1.95, 1), ">1.9");  // the double below
    EXPECT_EQ(fixed(0.25, 1), ">0.2");
    EXPECT_EQ(fixed(-0.04, 1), ">-0.0");
    EXPECT_EQ(fixed(1234567.0, 3), ">1234567.000");
    EXPECT_EQ(fixed(-std::numeric_limits<double>::max(), 3).size(), 315U);
    EXPECT_EQ(fixed(-kInfinity, 1), ">-inf");
    EXPECT_EQ(fixed(std::numeric_limits<double>::quiet_NaN(), 1), ">nan");
}

}  // namespace
}  // namespace orvell::values
