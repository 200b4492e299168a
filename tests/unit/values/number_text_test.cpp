#include "values/number_text.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <utility>
#include <vector>

namespace orvell::values {
namespace {

constexpr std::uint64_t kMax64 = std::numeric_limits<std::uint64_t>::max();

template <typename Append, typename... Arguments>
std::string Appended(Append append, Arguments... arguments) {
    std::string text = ">";
    append(text, arguments...);
    EXPECT_TRUE(text.starts_with('>'));
    return text.substr(1);
}

TEST(ReadDecimal64, TakesTheLeadingIntegerModuloTwoToThe64) {
    const std::vector<std::pair<std::string_view, std::uint64_t>> kCases = {
        {"", 0},
        {"0", 0},
        {"42", 42},
        {"+42", 42},
        {"-1", kMax64},
        {"-", 0},
        {"+", 0},
        {"+-1", 0},
        {"--1", 0},
        {"- 1", 0},
        {" \t\n\v\f\r7", 7},
        {"\b7", 0},
        {"007", 7},
        {"3.7", 3},
        {"3,7", 3},
        {"abc", 0},
        {"12abc", 12},
        {"1 2", 1},
        {"0x10", 0},
        {"\xB2", 0},
        {"9223372036854775807", 9223372036854775807ULL},
        {"9223372036854775808", 9223372036854775808ULL},
        {"-9223372036854775808", 9223372036854775808ULL},
        {"18446744073709551615", kMax64},
        {"18446744073709551616", 0},
        {"18446744073709551617", 1},
        {"-18446744073709551615", 1},
        {"100000000000000000000", 7766279631452241920ULL},
    };
    for (const auto& [text, value] : kCases) {
        EXPECT_EQ(ReadDecimal64(text), value) << text;
    }
}

TEST(ReadDecimal64, StaysWithinTheView) {
    EXPECT_EQ(ReadDecimal64(std::string_view("1234").substr(0, 2)), 12U);
    EXPECT_EQ(ReadDecimal64(std::string_view("-1").substr(0, 1)), 0U);
    EXPECT_EQ(ReadDecimal64(std::string_view("  1").substr(0, 2)), 0U);
}

TEST(ReadDecimal32, TakesTheLeadingIntegerModuloTwoToThe32) {
    EXPECT_EQ(ReadDecimal32("4294967295"), 4294967295U);
    EXPECT_EQ(ReadDecimal32("4294967296"), 0U);
    EXPECT_EQ(ReadDecimal32("4294967297"), 1U);
    EXPECT_EQ(ReadDecimal32("-1"), 4294967295U);
    EXPECT_EQ(ReadDecimal32(" 3000000000x"), 3000000000U);
}

TEST(ReadHexadecimal, TakesTheLeadingDigits) {
    const std::vector<std::pair<std::string_view, std::uint64_t>> kCases = {
        {"", 0},
        {"1Fh", 31},
        {"0x1F", 31},
        {"0X1f", 31},
        {"1f", 31},
        {" \t1F", 31},
        {"\n1F", 0},
        {"0x", 0},
        {"0xh", 0},
        {"0xx1", 0},
        {"00x1", 0},
        {"x1", 0},
        {"1x5", 1},
        {"0", 0},
        {"0g", 0},
        {"0 x1", 0},
        {"-1", 0},
        {"+1", 0},
        {"12 34", 0x12},
        {"abcdef", 0xABCDEF},
        {"ABCDEFG", 0xABCDEF},
        {"`1", 0},
        {"{1", 0},
        {"@1", 0},
        {":1", 0},
        {"/1", 0},
        {"FFFFFFFFFFFFFFFF", kMax64},
        {"1FFFFFFFFFFFFFFFF", kMax64},
        {"123456789ABCDEF01", 0x23456789ABCDEF01},
    };
    for (const auto& [text, value] : kCases) {
        EXPECT_EQ(ReadHexadecimal(text), value) << text;
    }
}

TEST(ReadHexadecimal, StaysWithinTheView) {
    EXPECT_EQ(ReadHexadecimal(std::string_view("0x1F").substr(0, 1)), 0U);
    EXPECT_EQ(ReadHexadecimal(std::string_view("0x1F").substr(0, 3)), 1U);
}

TEST(ReadDecimalOrDouble, ReadsAPlainIntegerWithoutACommaOrAnExponent) {
    EXPECT_EQ(ReadDecimalOrDouble("18446744073709551615"), kMax64);
    EXPECT_EQ(ReadDecimalOrDouble("9007199254740993"), 9007199254740993ULL);
    EXPECT_EQ(ReadDecimalOrDouble("3.7"), 3U);
    EXPECT_EQ(ReadDecimalOrDouble("3.96"), 3U);
    EXPECT_EQ(ReadDecimalOrDouble("-12x"), kMax64 - 11);
    EXPECT_EQ(ReadDecimalOrDouble(""), 0U);
}

TEST(ReadDecimalOrDouble, RoundsOtherNumbersToOneDecimalAndCutsThatOff) {
    const std::vector<std::pair<std::string_view, std::uint64_t>> kCases = {
        {"1,5", 1},    {"2,96", 3},   {"2,94", 2},        {"1,96", 2},  {"1e3", 1000},
        {"1E3", 1000}, {"1,95", 1},   {"2,95", 3},        {"0,25", 0},  {"0,95", 0},
        {"0,96", 1},   {",96", 1},    {"9,99", 10},       {"-0,5", 0},  {"-1,96", kMax64 - 1},
        {"1.5e1", 15}, {"25e-1", 2},  {"1,5,7", 1},       {"FEh", 0},   {"e", 0},
        {"12e", 12},   {"3,", 3},     {"  4,0 m", 4},     {",", 0},     {"1e-400", 0},
        {"1e999", 0},  {"-1e999", 0}, {"-1,5e0", kMax64}, {"1,e1", 10}, {"1.234,5", 1},
    };
    for (const auto& [text, value] : kCases) {
        EXPECT_EQ(ReadDecimalOrDouble(text), value) << text;
    }
}

TEST(ReadDecimalOrDouble, WrapsTheDigitsOfLargeNumbers) {
    EXPECT_EQ(ReadDecimalOrDouble("1e19"), 10000000000000000000ULL);
    EXPECT_EQ(ReadDecimalOrDouble("1,8446744073709551616e19"), 0U);
    EXPECT_EQ(ReadDecimalOrDouble("1e20"), 7766279631452241920ULL);
    // 1.7976931348623157e308 is a multiple of 2^64.
    EXPECT_EQ(ReadDecimalOrDouble("1,7976931348623157e308"), 0U);
    EXPECT_EQ(ReadDecimalOrDouble("-1,7976931348623157e308"), 0U);
}

TEST(AppendInteger, PrintsAllDigits) {
    EXPECT_EQ(Appended(AppendSigned, std::numeric_limits<std::int64_t>::min()),
              "-9223372036854775808");
    EXPECT_EQ(Appended(AppendSigned, std::numeric_limits<std::int64_t>::max()),
              "9223372036854775807");
    EXPECT_EQ(Appended(AppendSigned, std::int64_t{0}), "0");
    EXPECT_EQ(Appended(AppendUnsigned, kMax64), "18446744073709551615");
}

std::string ZeroPadded(std::uint32_t value, std::size_t minimumDigits) {
    std::array<char, 21> buffer;
    buffer.fill('-');
    char* const end = WriteZeroPadded(buffer.data(), value, minimumDigits);
    EXPECT_EQ(*end, '-');
    return {buffer.data(), end};
}

TEST(WriteZeroPadded, FillsUpToTheMinimum) {
    EXPECT_EQ(ZeroPadded(0U, 2U), "00");
    EXPECT_EQ(ZeroPadded(7U, 2U), "07");
    EXPECT_EQ(ZeroPadded(12U, 2U), "12");
    EXPECT_EQ(ZeroPadded(123U, 2U), "123");
    EXPECT_EQ(ZeroPadded(5U, 4U), "0005");
    EXPECT_EQ(ZeroPadded(4294967295U, 3U), "4294967295");
    EXPECT_EQ(ZeroPadded(0U, 0U), "0");
    EXPECT_EQ(ZeroPadded(9U, 0U), "9");
    EXPECT_EQ(ZeroPadded(10U, 1U), "10");
    EXPECT_EQ(ZeroPadded(1000000000U, 20U), "00000000001000000000");
}

TEST(AppendHexadecimal, PrintsUpperCaseDigitsAndH) {
    EXPECT_EQ(Appended(AppendHexadecimal, std::uint64_t{0}, 1U), "0h");
    EXPECT_EQ(Appended(AppendHexadecimal, std::uint64_t{255}, 1U), "FFh");
    EXPECT_EQ(Appended(AppendHexadecimal, std::uint64_t{0xABC}, 4U), "ABCh");
    EXPECT_EQ(Appended(AppendHexadecimal, kMax64, 8U), "FFFFFFFFFFFFFFFFh");
}

TEST(AppendHexadecimal, PrintsNothingForAWidthThatNoIntegerHas) {
    EXPECT_EQ(Appended(AppendHexadecimal, std::uint64_t{1}, 0U), "");
    EXPECT_EQ(Appended(AppendHexadecimal, std::uint64_t{1}, 9U), "");
    EXPECT_EQ(Appended(AppendHexadecimal, std::uint64_t{1}, 0x80000001U), "");
}

}  // namespace
}  // namespace orvell::values
