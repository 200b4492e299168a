#include "resources/checked_format.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <vector>

namespace orvell::resources {
namespace {

/// What the C run-time makes of a format that is right for its argument.
std::string Printed(const char* format, ...) {
    std::array<char, 512> buffer{};
    va_list arguments;
    va_start(arguments, format);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"  // the table of a test holds the formats
    const int size = std::vsnprintf(buffer.data(), buffer.size(), format, arguments);
#pragma GCC diagnostic pop
    va_end(arguments);
    EXPECT_GE(size, 0);
    EXPECT_LT(static_cast<std::size_t>(size), buffer.size());
    return {buffer.data(), static_cast<std::size_t>(size)};
}

/// Every set of the flags in `flags`, each with every width, precision and length given.
std::vector<std::string> ConversionTexts(const std::string& flags,
                                         const std::vector<std::string>& precisions,
                                         const std::vector<std::string>& lengths, char letter) {
    std::vector<std::string> texts;
    for (unsigned set = 0; set < 1U << flags.size(); ++set) {
        std::string chosen = "%";
        for (std::size_t i = 0; i < flags.size(); ++i) {
            if ((set >> i & 1U) != 0) {
                chosen += flags[i];
            }
        }
        for (const char* width : {"", "1", "4", "12", "40"}) {
            for (const std::string& precision : precisions) {
                for (const std::string& length : lengths) {
                    texts.push_back(chosen + width + precision + length + letter);
                }
            }
        }
    }
    return texts;
}

const std::vector<std::string> kPrecisions = {"", ".", ".0", ".1", ".5", ".11", ".37"};
const std::vector<std::string> kIntegerLengths = {"", "h", "hh", "l"};

constexpr std::array<std::uint32_t, 17> kWords = {
    0,     1,     7,     42,     127,        128,        255,        256,       32767,
    32768, 65535, 65536, 100000, 0x7FFFFFFF, 0x80000000, 0xFFFFFFD6, 0xFFFFFFFF};

TEST(CheckedFormatTest, SignedConversionsPrintAsTheRunTimeDoes) {
    for (const char letter : {'d', 'i'}) {
        for (const std::string& format :
             ConversionTexts("-0+ ", kPrecisions, kIntegerLengths, letter)) {
            for (const std::uint32_t word : kWords) {
                const auto number = static_cast<std::int32_t>(word);
                ASSERT_EQ(FormatText(format, {number}), Printed(format.c_str(), number)) << format;
                ASSERT_EQ(FormatText(format, {word}), Printed(format.c_str(), number)) << format;
            }
        }
    }
}

TEST(CheckedFormatTest, UnsignedConversionsPrintAsTheRunTimeDoes) {
    for (const char letter : {'u', 'x', 'X'}) {
        const std::string flags = letter == 'u' ? "-0" : "-0#";
        for (const std::string& format :
             ConversionTexts(flags, kPrecisions, kIntegerLengths, letter)) {
            for (const std::uint32_t word : kWords) {
                const auto number = static_cast<std::int32_t>(word);
                ASSERT_EQ(FormatText(format, {word}), Printed(format.c_str(), word)) << format;
                ASSERT_EQ(FormatText(format, {number}), Printed(format.c_str(), word)) << format;
            }
        }
    }
}

// Not compared: not every run-time keeps to it.
TEST(CheckedFormatTest, UnsignedConversionsHaveNoSign) {
    EXPECT_EQ(FormatText("%+u|% u|%+x|% X|% +5u", {1U, 2U, 3U, 4U, 5U}), "1|2|3|4|    5");
}

TEST(CheckedFormatTest, TextsPrintAsTheRunTimeDoes) {
    for (const std::string& format : ConversionTexts("-", kPrecisions, {""}, 's')) {
        for (const char* text : {"", "E", "UCHARPARA",
                                 "\xDC"
                                 "berlauf",
                                 "a text of 30 characters here.."}) {
            ASSERT_EQ(FormatText(format, {text}), Printed(format.c_str(), text)) << format;
        }
    }
}

TEST(CheckedFormatTest, CharactersPrintAsTheRunTimeDoes) {
    for (const std::string& format : ConversionTexts("-", {""}, {""}, 'c')) {
        for (const int character : {0, 65, 0xFC, 0x141, -1}) {
            ASSERT_EQ(FormatText(format, {character}), Printed(format.c_str(), character))
                << format;
        }
    }
}

TEST(CheckedFormatTest, PrintsTheRecordsOfTheFiles) {
    EXPECT_EQ(
        FormatText(" 0 %-10s %4u N : %s\n                   D : %s\n", {"PW", 29U, "%%", "1"}),
        " 0 PW           29 N : %%\n                   D : 1\n");
    EXPECT_EQ(FormatText("%s%u.%u;%s;%s;%s\n", {"E", 3U, 5U, "\"a;b\"", "1", "\"\""}),
              "E3.5;\"a;b\";1;\"\"\n");
    EXPECT_EQ(FormatText("Vektorelement %lu", {4294967295U}), "Vektorelement 4294967295");
    EXPECT_EQ(FormatText("%d Warnungen", {-2147483647 - 1}), "-2147483648 Warnungen");
}

TEST(CheckedFormatTest, KnowsTheLengthsOfMicrosoftsRunTime) {
    EXPECT_EQ(FormatText("%I32u|%I64d|%lld|%I64x", {4294967295U, -3, -4, 0xABCDEFU}),
              "4294967295|-3|-4|abcdef");
    EXPECT_EQ(FormatText("%ls|%hs|%lc", {"wide", "narrow", 65}), "wide|narrow|A");
}

TEST(CheckedFormatTest, TextsAreNotReadAsFormats) {
    EXPECT_EQ(FormatText("%s|%s", {"%n%s%9999d", "100 %"}), "%n%s%9999d|100 %");
}

TEST(CheckedFormatTest, TextsOfEveryLengthArePrintedWhole) {
    const std::string characters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    for (std::size_t length = 0; length <= characters.size(); ++length) {
        const std::string text = characters.substr(0, length);
        EXPECT_EQ(FormatText(text + "%s" + text, {text}), text + text + text);
    }
}

TEST(CheckedFormatTest, LongTextsArePrintedWhole) {
    const std::string longText(1000000, 'x');
    EXPECT_EQ(FormatText("<%s>", {longText}), "<" + longText + ">");
}

TEST(CheckedFormatTest, PercentSignsAreHalved) {
    EXPECT_EQ(FormatText("%%", {}), "%");
    EXPECT_EQ(FormatText("%%s%%%s%%%%", {"a"}), "%s%a%%");
}

TEST(CheckedFormatTest, AppendsAndMayBeAppliedAgain) {
    const CheckedFormat format("%s=%d;");
    std::string out = "> ";
    for (int i = 0; i < 3; ++i) {
        const std::array<FormatArgument, 2> arguments = {"n", i};
        format.AppendTo(out, arguments);
    }
    EXPECT_EQ(out, "> n=0;n=1;n=2;");
}

}  // namespace
}  // namespace orvell::resources
