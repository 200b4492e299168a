#include "paramlist/parameter_value.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace orvell::paramlist {
namespace {

std::vector<std::uint8_t> Counting(std::size_t length) {
    std::vector<std::uint8_t> bytes(length);
    for (std::size_t index = 0; index < length; ++index) {
        bytes[index] = static_cast<std::uint8_t>(index + 1);
    }
    return bytes;
}

std::vector<std::uint8_t> BytesOf(const ParameterValue& value) {
    return {value.Bytes().begin(), value.Bytes().end()};
}

TEST(ParameterValue, BeginsUndefined) {
    const ParameterValue value;
    EXPECT_FALSE(value.IsDefined());
    EXPECT_TRUE(value.Bytes().empty());
    EXPECT_EQ(value.LoadText(), "");
    EXPECT_FALSE(value.Load<std::uint8_t>().has_value());
}

TEST(ParameterValue, HoldsBytesOfAnyLength) {
    ParameterValue value;
    for (const std::size_t length : {1U, 8U, 9U, 8U, 9U, 9U, 1000U, 2U, 0U, 7U}) {
        value.Assign(Counting(length));
        EXPECT_EQ(value.IsDefined(), length != 0);
        EXPECT_EQ(BytesOf(value), Counting(length)) << length;
    }
}

TEST(ParameterValue, GivesANumberOnlyInItsOwnWidth) {
    ParameterValue value;
    value.Store(std::int16_t{-2});
    EXPECT_EQ(value.Load<std::int16_t>(), -2);
    EXPECT_EQ(value.Load<std::uint16_t>(), 65534);
    EXPECT_FALSE(value.Load<std::int32_t>().has_value());
    EXPECT_FALSE(value.Load<std::uint8_t>().has_value());
    value.Store(1.5);
    EXPECT_EQ(value.Load<double>(), 1.5);
    EXPECT_EQ(value.Bytes().size(), 8U);
}

TEST(ParameterValue, StoresTextsWithTheirNul) {
    ParameterValue value;
    for (const std::size_t length : {0U, 7U, 8U, 9U, 100U, 3U}) {
        const std::string text(length, 'x');
        value.StoreText(text);
        EXPECT_EQ(value.LoadText(), text);
        ASSERT_EQ(value.Bytes().size(), length + 1);
        EXPECT_EQ(value.Bytes().back(), 0);
    }
    value.StoreText(std::string_view("ab\0cd", 5));
    EXPECT_EQ(value.LoadText(), "ab");
    EXPECT_EQ(value.Bytes().size(), 3U);
}

TEST(ParameterValue, TakesPartsOfItself) {
    ParameterValue value;
    value.StoreText("a text longer than eight bytes");
    value.StoreText(value.LoadText().substr(2));
    EXPECT_EQ(value.LoadText(), "text longer than eight bytes");
    value.Assign(value.Bytes().subspan(0, 4));
    EXPECT_EQ(BytesOf(value), (std::vector<std::uint8_t>{'t', 'e', 'x', 't'}));
    value.Assign(value.Bytes());
    EXPECT_EQ(value.Bytes().size(), 4U);
    ParameterValue& same = value;
    value = std::as_const(same);
    EXPECT_EQ(value.Bytes().size(), 4U);
    value = std::move(same);
    EXPECT_EQ(BytesOf(value), (std::vector<std::uint8_t>{'t', 'e', 'x', 't'}));
}

TEST(ParameterValue, CopiesAreIndependentAndMovesLeaveUndefined) {
    for (const std::size_t length : {0U, 4U, 20U}) {
        ParameterValue original;
        original.Assign(Counting(length));
        ParameterValue copy = original;
        ParameterValue moved = std::move(original);
        EXPECT_FALSE(original.IsDefined());
        original.Store(std::uint8_t{9});
        EXPECT_EQ(BytesOf(copy), Counting(length));
        EXPECT_EQ(BytesOf(moved), Counting(length));
        moved = std::move(copy);
        EXPECT_EQ(BytesOf(moved), Counting(length));
        copy = moved;
        moved.Clear();
        EXPECT_FALSE(moved.IsDefined());
        EXPECT_EQ(BytesOf(copy), Counting(length));
    }
}

}  // namespace
}  // namespace orvell::paramlist
