// Formats as a wrong or malicious translation may hold them.

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <new>
#include <random>
#include <string>

#include "resources/checked_format.h"

namespace {

std::size_t allocations = 0;

}  // namespace

// Counts the allocations of the whole program.
void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace orvell::resources {
namespace {

TEST(HostileFormatTest, AConversionWithoutAnArgumentPrintsNothing) {
    EXPECT_EQ(FormatText("a%sb%10dc%uf", {}), "abcf");
    EXPECT_EQ(FormatText("%s, %s, %5s!", {"one"}), "one, , !");
}

TEST(HostileFormatTest, AnArgumentWithoutAConversionIsDropped) {
    EXPECT_EQ(FormatText("Fertig", {"one", 2, 3U}), "Fertig");
    EXPECT_EQ(FormatText("", {"one"}), "");
    EXPECT_EQ(FormatText("%u", {7U, "rest"}), "7");
}

TEST(HostileFormatTest, AWrongConversionPrintsTheArgumentAllTheSame) {
    EXPECT_EQ(FormatText("%s %s", {-5, 4294967295U}), "-5 4294967295");
    EXPECT_EQ(FormatText("%d %x %c %u", {"a", "bc", "def", ""}), "a bc def ");
    EXPECT_EQ(FormatText("[%6s|%-6s|%.1s]", {-12, 34U, 567}), "[   -12|34    |567]");
    EXPECT_EQ(FormatText("[%+06d|%-6X|%.1u]", {"abc", "de", "fgh"}), "[   abc|de    |fgh]");
}

TEST(HostileFormatTest, WhatIsNoKnownConversionIsPrintedAsItStands) {
    for (const char* format :
         {"%n",  "%hhn",  "%*d",      "%.*s", "%p",   "%f",    "%Lf",  "%e",    "%a",   "%S", "%o",
          "%zu", "%jd",   "%1$s",     "%q",   "%",    "100 %", "%-",   "%5",    "%.",   "%l", "%I",
          "%I6", "%I16d", "%-08.3ll", "%\n",  "%-5%", "%lhd",  "%5 d", "%.-3d", "%\xFC"}) {
        EXPECT_EQ(FormatText(format, {"argument", 1}), format);
    }
    EXPECT_EQ(FormatText("%n%s%*d%u", {"one", 2U}), "%none%*d2");
}

TEST(HostileFormatTest, AZeroByteOfTheFormatIsATextLikeAnyOther) {
    using namespace std::string_literals;
    EXPECT_EQ(FormatText("a\0b%s%\0d"s, {"x"}), "a\0bx%\0d"s);
}

TEST(HostileFormatTest, WidthsAndPrecisionsAreLimited) {
    constexpr std::size_t limit = FormatConversion::kMaximumWidth;
    for (const char* format : {"%4097s", "%-99999999999999999999s", "%4294967296s"}) {
        EXPECT_EQ(FormatText(format, {"x"}).size(), limit) << format;
    }
    for (const char* format :
         {"%.4097d", "%02147483648d", "%.18446744073709551616u", "%99999.99999x"}) {
        EXPECT_EQ(FormatText(format, {7U}).size(), limit) << format;
    }
    EXPECT_EQ(FormatText("%.4294967295s", {"abc"}), "abc");
    EXPECT_EQ(FormatText("%.2147483648s", {"abc"}), "abc");
    EXPECT_EQ(FormatText("%4096s", {""}).size(), limit);
    EXPECT_EQ(FormatText("%4095s", {""}).size(), limit - 1);
}

TEST(HostileFormatTest, OutputIsBoundedByTheArgumentsNotByTheConversions) {
    std::string format;
    for (int i = 0; i < 10000; ++i) {
        format += "%9999d";
    }
    EXPECT_EQ(FormatText(format, {1, 2}).size(), 2U * FormatConversion::kMaximumWidth);
}

TEST(HostileFormatTest, RandomFormatsKeepWithinTheirBounds) {
    constexpr std::string_view alphabet =
        "%%%%%%-0+ #123459..hlI64diuxXcsn*pfS\n\xFC"
        "A";
    std::mt19937 random(20240229);
    const std::array<FormatArgument, 4> arguments = {"text", -17, 4000000000U, ""};
    for (int round = 0; round < 20000; ++round) {
        std::string format(random() % 40, ' ');
        for (char& character : format) {
            character = alphabet[random() % alphabet.size()];
        }
        std::string out = "kept";
        CheckedFormat(format).AppendTo(out, arguments);
        ASSERT_TRUE(out.starts_with("kept")) << format;
        // A field is at most a sign or "0x" longer than the limit.
        ASSERT_LE(out.size(),
                  4 + format.size() + arguments.size() * (FormatConversion::kMaximumWidth + 2))
            << format;
    }
}

TEST(HostileFormatTest, AppendingAllocatesNothingBesideTheOutput) {
    const CheckedFormat format(" 0 %-10s %4u N : %s\n   D : %d\n   C : %08lX %c %s\n");
    const std::string name(100, 'n');
    std::string out;
    out.reserve(100000);
    const std::size_t before = allocations;
    for (std::uint32_t i = 0; i < 100; ++i) {
        const std::array<FormatArgument, 7> arguments = {"UCHARPARA", i, name, -5, i, 65, i};
        format.AppendTo(out, arguments);
    }
    EXPECT_EQ(allocations, before);
    EXPECT_GT(out.size(), 10000U);
    EXPECT_GT(before, 0U);
}

}  // namespace
}  // namespace orvell::resources
