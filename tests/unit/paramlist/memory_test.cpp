#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "paramlist/parameter_kind.h"
#include "paramlist/parameter_list.h"
#include "unit/paramlist/counted_memory.h"

namespace orvell::paramlist {
namespace {

using test::FailEveryAllocation;
using test::kNoLimit;
using test::LimitAllocations;
using test::TakenBytes;

constexpr std::size_t kBytesPerEntry = 96;

struct MemoryTest : testing::Test {
    ParameterKind kind_{"PL", ValueTypeCode::Long, nullptr};

    /// Bytes taken for entries since the test began.
    [[nodiscard]] std::size_t Taken() const { return TakenBytes() - takenBefore_; }

    void Fill(std::uint32_t count, std::uint32_t step) {
        for (std::uint32_t index = 1; index <= count; ++index) {
            kind_.Obtain(index * step, false).Value().Store(index);
        }
    }

    std::size_t takenBefore_ = TakenBytes();
};

TEST_F(MemoryTest, AnEntryCostsLittle) {
    constexpr std::uint32_t kCount = 100000;
    for (const std::uint32_t step : {1U, 8U, 40000U}) {
        Fill(kCount, step);
        EXPECT_EQ(kind_.EntryCount(), kCount);
        EXPECT_LE(Taken(), kCount * kBytesPerEntry) << step;
        kind_.Clear();
        EXPECT_EQ(Taken(), 0U);
    }
}

TEST_F(MemoryTest, AHugeNumberCostsNoMoreThanAnyOther) {
    kind_.Obtain(1, false);
    kind_.Clear();
    kind_.Obtain(4294967295, false);
    kind_.Obtain(0, false);
    EXPECT_LT(Taken(), 10000U);
    EXPECT_EQ(kind_.EntriesInOrder().size(), 2U);
}

TEST_F(MemoryTest, PurgeGivesMemoryBack) {
    Fill(10000, 1);
    const std::size_t full = Taken();
    EXPECT_TRUE(kind_.Declare(77, 77));
    kind_.Purge(kDeclaredMark);
    EXPECT_EQ(kind_.EntryCount(), 1U);
    EXPECT_LT(Taken(), full / 50);
    EXPECT_EQ(kind_.Find(77)->Value().Load<std::uint32_t>(), 77U);
    kind_.SetFlags(kDeclaredMark, false);
    kind_.Purge(kDeclaredMark);
    EXPECT_EQ(Taken(), 0U);
}

TEST_F(MemoryTest, UpdateCyclesLeaveNothingBehind) {
    constexpr std::uint32_t kCount = 5000;
    std::size_t takenInSecond = 0;  // the first begins without entries that move
    for (std::uint32_t cycle = 0; cycle < 8; ++cycle) {
        kind_.SetFlags(kDeclaredMark, false);
        for (std::uint32_t number = 1; number <= kCount; ++number) {
            EXPECT_TRUE(kind_.Declare(number + cycle, number + cycle + 1));
        }
        kind_.Purge(kDeclaredMark);
        EXPECT_EQ(kind_.EntryCount(), kCount);
        takenInSecond = cycle <= 1 ? Taken() : takenInSecond;
        EXPECT_LE(Taken(), takenInSecond + takenInSecond / 10);
    }
}

TEST_F(MemoryTest, ManyEntriesOfOneNumberAreForgottenWithThem) {
    for (int count = 0; count < 1000; ++count) {
        EXPECT_TRUE(kind_.Declare(0, 5));
    }
    EXPECT_EQ(kind_.FindMarked(5, kDeclaredMark, false), nullptr);
    EXPECT_NE(kind_.FindMarked(5, kDeclaredMark, true), nullptr);
    kind_.Clear();
    EXPECT_EQ(Taken(), 0U);
}

TEST_F(MemoryTest, ObtainChangesNothingWhenMemoryIsShort) {
    for (const std::uint32_t entries : {0U, 16U, 64U, 128U}) {  // table or pool must grow
        kind_.Clear();
        Fill(entries, 1);
        FailEveryAllocation([&] { kind_.Obtain(1000000, false); },
                            [&] {
                                EXPECT_EQ(kind_.Find(1000000), nullptr);
                                EXPECT_EQ(kind_.EntryCount(), entries);
                                EXPECT_EQ(kind_.EntriesInOrder().size(), entries);
                                EXPECT_EQ(kind_.BucketCount(), entries == 0 ? 0U : 100U);
                            });
        EXPECT_EQ(kind_.EntryCount(), entries + 1);
        kind_.Purge(kDeclaredMark);
        EXPECT_EQ(Taken(), 0U) << "an entry was left behind";
    }
}

TEST_F(MemoryTest, DeclareChangesNothingWhenMemoryIsShort) {
    Fill(64, 1);
    kind_.Find(5)->Value().StoreText("a text of more than eight bytes");
    FailEveryAllocation([&] { kind_.Declare(5, 1000); },
                        [&] {
                            EXPECT_EQ(kind_.Find(1000), nullptr);
                            EXPECT_EQ(kind_.EntryCount(), 64U);
                            EXPECT_EQ(kind_.Find(5)->Flags(), 0U);
                        });
    EXPECT_EQ(kind_.Find(1000)->Value().LoadText(), "a text of more than eight bytes");
}

TEST_F(MemoryTest, AValueBecomesUndefinedWhenMemoryIsShort) {
    const std::string text(100, 'x');
    ParameterValue value;
    value.StoreText("a text of more than eight bytes");
    FailEveryAllocation([&] { value.StoreText(text); }, [&] { EXPECT_FALSE(value.IsDefined()); });
    EXPECT_EQ(value.LoadText(), text);
    LimitAllocations(0);
    value.StoreText(std::string_view(text).substr(0, 7));
    value.Store(1.5);
    LimitAllocations(kNoLimit);
    EXPECT_EQ(value.Load<double>(), 1.5);
}

TEST_F(MemoryTest, ValuesAreSetAndFormattedWithoutAllocations) {
    const ValueTypeHandlerSet handlers;
    const ValueTexts texts = {"undef", values::DateFormatCode::DayFirst};
    std::string out;
    out.reserve(1000);
    for (std::uint32_t code = 1; code <= kValueTypeCount; ++code) {
        const ValueTypeHandler& handler = *handlers.Find(static_cast<ValueTypeCode>(code));
        ParameterValue value;
        LimitAllocations(0);
        EXPECT_TRUE(handler.SetFromListText(value, "12", texts));
        handler.FormatListText(value, texts, out);
        handler.FormatCsvField(value, texts, out);
        handler.SetFromCsvText(value, "12", texts);
        handler.SetFromCsvText(value, "1,5", texts);
        handler.SetFromCsvText(value, "1.1.20", texts);
        LimitAllocations(kNoLimit);
    }
}

}  // namespace
}  // namespace orvell::paramlist
