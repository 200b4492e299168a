#include "paramlist/parameter_kind.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace orvell::paramlist {
namespace {

constexpr std::uint32_t kLargestNumber = 4294967295;

struct ParameterKindTest : testing::Test {
    ParameterKind kind_{"PW", ValueTypeCode::Word, nullptr};

    ParameterEntry& Add(std::uint32_t number, std::string_view name) {
        ParameterEntry& entry = kind_.Obtain(number, /*allowDuplicate=*/true);
        entry.SetName(name);
        return entry;
    }

    /// "number:name" of every entry in order.
    std::vector<std::string> Listing() const {
        std::vector<std::string> listing;
        for (const ParameterEntry* entry : kind_.EntriesInOrder()) {
            listing.push_back(std::to_string(entry->Number()) + ":" + std::string(entry->Name()));
        }
        return listing;
    }

    void Mark(std::uint32_t number) { EXPECT_TRUE(kind_.Declare(number, number)); }
};

using Names = std::vector<std::string>;

TEST_F(ParameterKindTest, BeginsEmpty) {
    EXPECT_TRUE(kind_.IsEmpty());
    EXPECT_EQ(kind_.BucketCount(), 0U);
    EXPECT_EQ(kind_.Find(0), nullptr);
    EXPECT_EQ(kind_.FindMarked(0, kDeclaredMark, false), nullptr);
    EXPECT_FALSE(kind_.GetNameAndComment(0).has_value());
    EXPECT_TRUE(kind_.EntriesInOrder().empty());
    kind_.Purge(kDeclaredMark);
    kind_.SetFlags(kDeclaredMark, true);
    kind_.Clear();
    EXPECT_TRUE(kind_.IsEmpty());
}

TEST_F(ParameterKindTest, CreatesAnEmptyEntryOnce) {
    ParameterEntry& entry = kind_.Obtain(12, false);
    EXPECT_EQ(entry.Number(), 12U);
    EXPECT_EQ(entry.Flags(), 0U);
    EXPECT_EQ(entry.Name(), "");
    EXPECT_EQ(entry.Comment(), "");
    EXPECT_FALSE(entry.Value().IsDefined());
    EXPECT_EQ(&kind_.Obtain(12, false), &entry);
    EXPECT_EQ(kind_.Find(12), &entry);
    EXPECT_EQ(std::as_const(kind_).Find(12), &entry);
    EXPECT_EQ(kind_.Find(11), nullptr);
    EXPECT_EQ(kind_.EntryCount(), 1U);
    EXPECT_FALSE(kind_.IsEmpty());
}

TEST_F(ParameterKindTest, KeepsEqualNumbersInTheOrderOfTheirInsertion) {
    Add(7, "a");
    Add(5, "b");
    Add(7, "c");
    Add(6, "d");
    Add(7, "e");
    EXPECT_EQ(Listing(), (Names{"5:b", "6:d", "7:a", "7:c", "7:e"}));
    EXPECT_EQ(kind_.Find(7)->Name(), "a");
    EXPECT_EQ(kind_.Obtain(7, false).Name(), "a");
}

TEST_F(ParameterKindTest, CountsBucketsInStepsOfAHundred) {
    const std::pair<std::uint32_t, std::uint32_t> cases[] = {
        {0, 100},    {799, 100},  {800, 200},        {801, 200},
        {1599, 200}, {1600, 300}, {1000000, 125100}, {kLargestNumber, 536871000},
    };
    for (const auto& [number, buckets] : cases) {
        kind_.Clear();
        kind_.Obtain(number, false);
        EXPECT_EQ(kind_.BucketCount(), buckets) << number;
    }
    kind_.Clear();
    kind_.Obtain(1600, false);
    kind_.Obtain(3, false);
    EXPECT_EQ(kind_.BucketCount(), 300U);
    kind_.Purge(kDeclaredMark);
    EXPECT_TRUE(kind_.IsEmpty());
    EXPECT_EQ(kind_.BucketCount(), 300U);
    kind_.Clear();
    EXPECT_EQ(kind_.BucketCount(), 0U);
}

TEST_F(ParameterKindTest, HoldsNumbersFarApart) {
    for (const std::uint32_t number : {kLargestNumber, 0U, 2147483648U, kLargestNumber - 8, 1U}) {
        Add(number, "x");
    }
    Add(kLargestNumber, "y");
    EXPECT_EQ(Listing(), (Names{"0:x", "1:x", "2147483648:x", "4294967287:x", "4294967295:x",
                                "4294967295:y"}));
    EXPECT_EQ(kind_.Find(kLargestNumber)->Name(), "x");
    EXPECT_EQ(kind_.Find(kLargestNumber - 1), nullptr);
}

TEST_F(ParameterKindTest, OrdersDenseListsUpToTheLargestNumber) {
    for (std::uint32_t back = 0; back < 100; ++back) {
        Add(kLargestNumber - back, "x");
    }
    std::uint32_t expected = kLargestNumber - 99;
    for (const ParameterEntry* entry : kind_.EntriesInOrder()) {
        EXPECT_EQ(entry->Number(), expected++);
    }
    EXPECT_EQ(kind_.EntryCount(), 100U);
}

TEST_F(ParameterKindTest, FindsTheOldestEntryByItsFlags) {
    EXPECT_TRUE(kind_.Declare(0, 7));
    EXPECT_TRUE(kind_.Declare(0, 7));
    kind_.SetFlags(kDeclaredMark, false);
    ParameterEntry* const first = kind_.Find(7);
    EXPECT_EQ(kind_.FindMarked(7, kDeclaredMark, false), first);
    EXPECT_EQ(kind_.FindMarked(7, kDeclaredMark, true), nullptr);
    Mark(7);
    ParameterEntry* const second = kind_.FindMarked(7, kDeclaredMark, false);
    EXPECT_NE(second, first);
    EXPECT_EQ(kind_.FindMarked(7, kDeclaredMark, true), first);
    kind_.SetFlags(6, true);
    EXPECT_EQ(first->Flags(), kDeclaredMark | 6);
    EXPECT_EQ(second->Flags(), 6U);
    EXPECT_EQ(kind_.FindMarked(7, 4, true), first);
    EXPECT_EQ(kind_.FindMarked(7, 8, true), nullptr);
    EXPECT_EQ(kind_.FindMarked(7, 8, false), first);
    EXPECT_EQ(kind_.FindMarked(7, 12, true), first);
    EXPECT_EQ(kind_.FindMarked(8, 4, false), nullptr);
    kind_.SetFlags(2, false);
    EXPECT_EQ(second->Flags(), 4U);
}

TEST_F(ParameterKindTest, PurgesWhatHasNoFlagOfTheMask) {
    for (const std::uint32_t number : {7U, 5U, 7U, 900U, 7U}) {
        Add(number, std::to_string(kind_.EntryCount()));
    }
    Mark(7);
    Mark(900);
    kind_.Purge(kDeclaredMark);
    EXPECT_EQ(Listing(), (Names{"7:0", "900:3"}));
    EXPECT_EQ(kind_.Find(5), nullptr);
    EXPECT_EQ(kind_.EntryCount(), 2U);
    kind_.SetFlags(1, true);
    kind_.Purge(3);
    EXPECT_EQ(kind_.EntryCount(), 2U);
    kind_.Purge(2);
    EXPECT_TRUE(kind_.IsEmpty());
}

TEST_F(ParameterKindTest, SwapsTwoParametersThatChangePlaces) {
    kind_.Obtain(5, false).Value().Store(std::int16_t{55});
    kind_.Obtain(5, false).SetName("five");
    kind_.Obtain(7, false).Value().Store(std::int16_t{77});
    kind_.Obtain(7, false).SetComment("seven");
    kind_.SetFlags(kDeclaredMark, false);
    EXPECT_TRUE(kind_.Declare(5, 7));
    EXPECT_TRUE(kind_.Declare(7, 5));
    kind_.Purge(kDeclaredMark);
    EXPECT_EQ(kind_.EntryCount(), 2U);
    EXPECT_EQ(kind_.Find(7)->Value().Load<std::int16_t>(), 55);
    EXPECT_EQ(kind_.Find(7)->Name(), "five");
    EXPECT_EQ(kind_.Find(7)->Comment(), "");
    EXPECT_EQ(kind_.Find(5)->Value().Load<std::int16_t>(), 77);
    EXPECT_EQ(kind_.Find(5)->Comment(), "seven");
    EXPECT_EQ(kind_.Find(5)->Flags(), kDeclaredMark);
}

TEST_F(ParameterKindTest, DeclaresFromNowhereAndNotToZero) {
    EXPECT_FALSE(kind_.Declare(5, 0));
    EXPECT_FALSE(kind_.Declare(0, 0));
    EXPECT_TRUE(kind_.IsEmpty());
    Add(0, "zero");
    EXPECT_TRUE(kind_.Declare(9, 3));
    EXPECT_TRUE(kind_.Declare(0, 4));
    EXPECT_TRUE(kind_.Declare(6, 6));
    EXPECT_EQ(Listing(), (Names{"0:zero", "3:", "4:zero", "6:"}));
    Mark(6);
    EXPECT_EQ(kind_.EntryCount(), 4U);
}

TEST_F(ParameterKindTest, CopiesFromTheOldestEntryThatIsNotDeclared) {
    Add(5, "declared");
    Add(5, "second");
    Add(5, "third");
    Mark(5);
    EXPECT_TRUE(kind_.Declare(5, 8));
    EXPECT_EQ(kind_.Find(8)->Name(), "second");
    kind_.Find(5)->SetName("again");
    EXPECT_EQ(kind_.Find(8)->Name(), "second");
}

TEST_F(ParameterKindTest, CopiesLongValuesWhole) {
    const std::string text(100, 'x');
    kind_.Obtain(5, false).Value().StoreText(text);
    EXPECT_TRUE(kind_.Declare(5, 6));
    EXPECT_EQ(kind_.Find(5)->Value().LoadText(), text);
    EXPECT_EQ(kind_.Find(6)->Value().LoadText(), text);
}

TEST_F(ParameterKindTest, CutsNamesAndComments) {
    ParameterEntry& entry = kind_.Obtain(1, false);
    entry.SetName("12345678901234567890");
    entry.SetComment("1234567890123456789012345678901234567890");
    EXPECT_EQ(entry.Name(), "123456789012345");
    EXPECT_EQ(entry.Comment(), "123456789012345678901234567890");
    entry.SetName("%%");
    entry.SetComment("%%");
    EXPECT_EQ(entry.Name(), "%%");
    EXPECT_EQ(entry.Comment(), "%%");
    entry.SetNameFromFile("%%%");
    entry.SetCommentFromFile("%");
    EXPECT_EQ(entry.Name(), "%%%");
    EXPECT_EQ(entry.Comment(), "%");
    entry.SetNameFromFile("%%");
    entry.SetCommentFromFile("%%");
    EXPECT_EQ(entry.Name(), "");
    EXPECT_EQ(entry.Comment(), "");
    entry.SetName(std::string_view("ab\0cd", 5));
    EXPECT_EQ(entry.Name(), "ab");
    entry.SetName({});
    EXPECT_EQ(entry.Name(), "");
    entry.SetCommentFromFile("12345678901234567890123456789012345");
    EXPECT_EQ(kind_.GetNameAndComment(1)->name, "");
    EXPECT_EQ(kind_.GetNameAndComment(1)->comment, "123456789012345678901234567890");
}

TEST_F(ParameterKindTest, GivesEmptyEntriesAgainAfterPurge) {
    for (std::uint32_t number = 1; number <= 1000; ++number) {
        ParameterEntry& entry = Add(number, "old");
        entry.SetComment("old");
        entry.Value().StoreText("an old text that is not short");
    }
    kind_.SetFlags(1, true);  // one of the host's
    for (std::uint32_t number = 1; number <= 1000; number += 2) {
        Mark(number);
    }
    kind_.Purge(kDeclaredMark);
    for (std::uint32_t number = 2000; number < 3000; ++number) {
        const ParameterEntry& entry = kind_.Obtain(number, false);
        ASSERT_EQ(entry.Flags(), 0U);
        ASSERT_EQ(entry.Name(), "");
        ASSERT_EQ(entry.Comment(), "");
        ASSERT_FALSE(entry.Value().IsDefined());
    }
    EXPECT_EQ(kind_.EntryCount(), 1500U);
    EXPECT_EQ(kind_.Find(999)->Value().LoadText(), "an old text that is not short");
}

TEST_F(ParameterKindTest, LosesNothingWhenTheYoungestOfEachNumberGo) {
    constexpr std::uint32_t kNumbers = 3000;
    for (const std::string_view name : {"oldest", "middle", "youngest"}) {
        for (std::uint32_t number = 1; number <= kNumbers; ++number) {
            Add(number, name);
        }
    }
    for (std::uint32_t number = 1; number <= kNumbers; ++number) {
        Mark(number);
    }
    kind_.Purge(kDeclaredMark);
    EXPECT_EQ(kind_.EntryCount(), kNumbers);
    for (std::uint32_t number = 1; number <= kNumbers; ++number) {
        ASSERT_NE(kind_.Find(number), nullptr) << number;
        ASSERT_EQ(kind_.Find(number)->Name(), "oldest");
    }
}

TEST_F(ParameterKindTest, VisitsInOrderUntilItIsToldToStop) {
    for (const std::uint32_t farNumber : {4U, 4'000'000'000U}) {  // without and with a wide gap
        kind_.Clear();
        EXPECT_TRUE(kind_.VisitInOrder([](const ParameterEntry&) { return false; })) << "empty";
        for (const std::uint32_t number : {farNumber, 2U, 2U, 1U}) {
            kind_.Obtain(number, /*allowDuplicate=*/true);
        }
        for (std::size_t limit = 1; limit <= 5; ++limit) {
            std::vector<std::uint32_t> numbers;
            const bool isComplete = kind_.VisitInOrder([&](const ParameterEntry& entry) {
                numbers.push_back(entry.Number());
                return numbers.size() < limit;
            });
            std::vector<std::uint32_t> expected = {1, 2, 2, farNumber};
            expected.resize(std::min(limit, expected.size()));
            EXPECT_EQ(numbers, expected);
            EXPECT_EQ(isComplete, limit > 4);
        }
    }
}

TEST_F(ParameterKindTest, FindsManyNumbersWhateverTheirPattern) {
    std::mt19937 random(20240607);
    for (const std::uint32_t step : {1U, 8U, 100U, 65536U, 0U}) {
        kind_.Clear();
        std::set<std::uint32_t> numbers;
        for (std::uint32_t index = 0; index < 5000; ++index) {
            const std::uint32_t number = step != 0 ? index * step : random();
            numbers.insert(number);
            kind_.Obtain(number, false);
        }
        ASSERT_EQ(kind_.EntryCount(), numbers.size());
        auto expected = numbers.begin();
        for (const ParameterEntry* entry : kind_.EntriesInOrder()) {
            ASSERT_EQ(entry->Number(), *expected);
            ASSERT_EQ(kind_.Find(*expected), entry);
            ++expected;
        }
        EXPECT_EQ(kind_.Find(*numbers.begin() + 3) != nullptr,
                  numbers.contains(*numbers.begin() + 3));
    }
}

}  // namespace
}  // namespace orvell::paramlist
