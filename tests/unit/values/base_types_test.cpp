#include "values/base_types.h"

#include <gtest/gtest.h>

#include <utility>

namespace orvell::values {
namespace {

TEST(EnumItemList, OrdersByValueAndKeepsTheFirstOfEachValue) {
    const EnumItemList list({{"c", 3}, {"a", 1}, {"late c", 3}, {"z", 0xFFFFFFFF}, {"o", 0}});
    std::vector<std::pair<std::string, std::uint32_t>> items;
    for (const EnumItem& item : list.Items()) {
        items.emplace_back(item.name, item.value);
    }
    const decltype(items) expected = {{"o", 0}, {"a", 1}, {"c", 3}, {"z", 0xFFFFFFFF}};
    EXPECT_EQ(items, expected);
    EXPECT_EQ(list.FindName("late c"), nullptr);
}

TEST(EnumItemList, KeepsTheFirstOfManyItemsWithOneValue) {
    std::vector<EnumItem> items;
    for (std::uint32_t index = 0; index < 1000; ++index) {
        items.push_back({std::to_string(index), index % 3});
    }
    const EnumItemList list(std::move(items));
    ASSERT_EQ(list.Items().size(), 3U);
    EXPECT_EQ(list.FindValue(0)->name, "0");
    EXPECT_EQ(list.FindValue(1)->name, "1");
    EXPECT_EQ(list.FindValue(2)->name, "2");
}

TEST(EnumItemList, FindsValues) {
    const EnumItemList list({{"two", 2}, {"four", 4}});
    EXPECT_EQ(list.FindValue(2)->name, "two");
    EXPECT_EQ(list.FindValue(4)->name, "four");
    for (const std::uint32_t value : {0U, 1U, 3U, 5U, 0xFFFFFFFFU}) {
        EXPECT_EQ(list.FindValue(value), nullptr) << value;
    }
}

TEST(EnumItemList, FindsExactNamesAndOfEqualOnesTheSmallestValue) {
    const EnumItemList list({{"same", 9}, {"same", 4}, {"", 7}, {"other", 1}});
    EXPECT_EQ(list.FindName("same")->value, 4U);
    EXPECT_EQ(list.FindName("")->value, 7U);
    EXPECT_EQ(list.FindName("Same"), nullptr);
    EXPECT_EQ(list.FindName("sam"), nullptr);
}

TEST(EnumItemList, EmptyListFindsNothing) {
    const EnumItemList list;
    EXPECT_EQ(list.FindValue(0), nullptr);
    EXPECT_EQ(list.FindName(""), nullptr);
    EXPECT_TRUE(list.Items().empty());
}

TEST(EnumItemList, StaysWholeWhenMoved) {
    EnumItemList source({{"short", 1}, {"a name too long for the string object itself", 2}});
    const EnumItemList moved = std::move(source);
    EXPECT_EQ(moved.FindName("short"), &moved.Items()[0]);
    EXPECT_EQ(moved.FindName("a name too long for the string object itself"), &moved.Items()[1]);

    std::vector<EnumItemList> lists;
    for (std::uint32_t value = 0; value < 50; ++value) {
        lists.emplace_back(std::vector<EnumItem>{{"item " + std::to_string(value), value}});
    }
    for (std::uint32_t value = 0; value < 50; ++value) {
        const EnumItem* item = lists[value].FindName("item " + std::to_string(value));
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(item->value, value);
    }
}

TEST(EnumItemList, HoldsManyItemsInAnyOrder) {
    constexpr std::uint32_t kCount = 100000;
    for (const bool ascending : {true, false}) {
        std::vector<EnumItem> items;
        for (std::uint32_t index = 0; index < kCount; ++index) {
            const std::uint32_t value = ascending ? index : kCount - 1 - index;
            items.push_back({"item" + std::to_string(value), value});
        }
        const EnumItemList list(std::move(items));
        ASSERT_EQ(list.Items().size(), kCount);
        for (std::uint32_t value = 0; value < kCount; ++value) {
            ASSERT_EQ(list.FindValue(value), &list.Items()[value]);
            ASSERT_EQ(list.FindName("item" + std::to_string(value)), &list.Items()[value]);
        }
    }
}

TEST(EnumItemNames, ListsTheNamesThatAreNotEmpty) {
    const EnumItemList list({{"b", 2}, {"", 1}, {"a", 3}, {"0", 0}, {"a", 9}});
    EXPECT_EQ(EnumItemNames(list), (std::vector<std::string>{"0", "b", "a", "a"}));
    EXPECT_TRUE(EnumItemNames(EnumItemList()).empty());
}

TEST(BaseTypes, FourTypesNeedNoDefinition) {
    for (std::uint32_t code = 0; code < 800; ++code) {
        const bool isImplicit = code == 702 || code == 703 || code == 705 || code == 706;
        EXPECT_EQ(IsImplicitType(static_cast<BaseTypeCode>(code)), isImplicit) << code;
    }
}

TEST(BaseTypes, OnlyIntegersHaveAProposedFormat) {
    for (std::uint32_t code = 0; code < 800; ++code) {
        const std::int32_t expected = code == 700 ? 1 : code == 701 ? 2 : -1;
        EXPECT_EQ(ProposedDisplayFormat(static_cast<BaseTypeCode>(code)), expected) << code;
    }
}

TEST(BaseTypes, DateFormatIsDayFirstUnlessGiven) {
    EXPECT_EQ(DateFormatOf({}), DateFormatCode::DayFirst);
    EXPECT_EQ(DateFormatOf({BaseTypeCode::Date, 0, DateFormatCode::DayFirst}),
              DateFormatCode::DayFirst);
    EXPECT_EQ(DateFormatOf({BaseTypeCode::Date, 0, DateFormatCode::MonthFirst}),
              DateFormatCode::MonthFirst);
}

}  // namespace
}  // namespace orvell::values
