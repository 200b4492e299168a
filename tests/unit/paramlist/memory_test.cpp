#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <new>
#include <string>
#include <vector>

#include "paramlist/parameter_kind.h"
#include "paramlist/parameter_list.h"
#include "resources/built_in_strings.h"

// The memory that the program has taken, and a limit to how often it may take some.
namespace {

constexpr std::size_t kBookkeeping = 16;
constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();

std::size_t takenBytes = 0;
std::size_t remainingAllocations = kNoLimit;

/// What a block costs in the C run-time's heap: a header of 8 bytes, in steps of 8.
std::size_t CostOf(std::size_t size) {
    return (size + 8 + 7) / 8 * 8;
}

}  // namespace

void* operator new(std::size_t size) {
    if (remainingAllocations == 0 || size > kNoLimit / 4) {
        throw std::bad_alloc();
    }
    if (remainingAllocations != kNoLimit) {
        --remainingAllocations;
    }
    auto* const block = static_cast<std::size_t*>(std::malloc(size + kBookkeeping));
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    *block = CostOf(size);
    takenBytes += *block;
    return reinterpret_cast<char*>(block) + kBookkeeping;
}

void operator delete(void* memory) noexcept {
    if (memory != nullptr) {
        auto* const block =
            reinterpret_cast<std::size_t*>(static_cast<char*>(memory) - kBookkeeping);
        takenBytes -= *block;
        std::free(block);
    }
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}

void* operator new[](std::size_t size) {
    return operator new(size);
}

void operator delete[](void* memory) noexcept {
    operator delete(memory);
}

void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}

namespace orvell::paramlist {
namespace {

constexpr std::size_t kBytesPerEntry = 96;

/// Calls `action` with 0, 1, 2, ... allocations to go until one of these suffices, and `check`
/// after each failure.
template <typename Action, typename Check>
void FailEveryAllocation(const Action& action, const Check& check) {
    for (std::size_t allocations = 0;; ++allocations) {
        remainingAllocations = allocations;
        try {
            action();
            remainingAllocations = kNoLimit;
            EXPECT_GT(allocations, 0U) << "nothing was allocated";
            return;
        } catch (const std::bad_alloc&) {
            remainingAllocations = kNoLimit;
            check();
        }
    }
}

struct MemoryTest : testing::Test {
    ParameterKind kind_{"PL", ValueTypeCode::Long, nullptr};

    /// Bytes taken for entries since the test began.
    [[nodiscard]] std::size_t Taken() const { return takenBytes - takenBefore_; }

    void Fill(std::uint32_t count, std::uint32_t step) {
        for (std::uint32_t index = 1; index <= count; ++index) {
            kind_.Obtain(index * step, false).Value().Store(index);
        }
    }

    std::size_t takenBefore_ = takenBytes;
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
    remainingAllocations = 0;
    value.StoreText(std::string_view(text).substr(0, 7));
    value.Store(1.5);
    remainingAllocations = kNoLimit;
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
        remainingAllocations = 0;
        EXPECT_TRUE(handler.SetFromListText(value, "12", texts));
        handler.FormatListText(value, texts, out);
        handler.FormatCsvField(value, texts, out);
        handler.SetFromCsvText(value, "12", texts);
        handler.SetFromCsvText(value, "1,5", texts);
        handler.SetFromCsvText(value, "1.1.20", texts);
        remainingAllocations = kNoLimit;
    }
}

}  // namespace
}  // namespace orvell::paramlist
