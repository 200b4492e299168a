// Memory runs out at every single allocation of every slot of the standard-parameter table: the
// slot gives its failure value, the records stay as they were, and nothing is lost.

#include <cstring>

#include "slots_fixture.h"
#include "support/short_memory.h"

namespace orvell::host {
namespace {

using test::HeldBlocks;
using test::NeedsNoMemory;
using test::RunWithEveryShortage;
using test::Shortage;

template <typename Value>
std::int32_t ORVELL_CALL Put(std::uint32_t, std::uint32_t, Value) {
    return 1;
}

template <typename Value>
std::int32_t ORVELL_CALL Get(std::uint32_t, std::uint32_t, Value* value) {
    *value = Value{1};
    return 1;
}

std::int32_t ORVELL_CALL GetText(std::uint32_t, std::uint32_t, char* buffer, std::uint32_t size) {
    std::memset(buffer, 'x', size);
    return 1;
}

std::int32_t ORVELL_CALL PutRaw(std::uint32_t, std::uint32_t, void*, std::uint32_t, std::uint32_t) {
    return 1;
}

constexpr OnlineSetters kSetters{Put<std::uint8_t>,  Put<std::uint16_t>, Put<std::uint32_t>,
                                 Put<std::uint64_t>, Put<float>,         Put<double>,
                                 Put<const char*>};
constexpr OnlineGetters kGetters{Get<std::uint8_t>,
                                 Get<std::uint16_t>,
                                 Get<std::uint32_t>,
                                 Get<std::uint64_t>,
                                 Get<float>,
                                 Get<double>,
                                 GetText};

template <typename Record>
bool IsSame(const Record& record, const Record& other) {
    return std::memcmp(&record, &other, sizeof record) == 0;
}

template <typename Record>
bool IsEmpty(const Record& record) {
    Record empty{};
    empty.size = sizeof empty;
    return IsSame(record, empty);
}

class ShortMemorySlotsTest : public SlotsTest {
  protected:
    ShortMemorySlotsTest() { std::memset(value, '1', sizeof value); }

    /// `call` sets `result` and leaves what it was given in `record`; it has been warmed up.
    template <typename Record, typename Call>
    static void ExpectRefusals(const Record& record, const std::int32_t& result, const Call& call) {
        const Record before = record;
        const std::size_t held = HeldBlocks();
        EXPECT_GT(RunWithEveryShortage(call,
                                       [&](Shortage) {
                                           EXPECT_EQ(result, 0);
                                           EXPECT_TRUE(IsSame(record, before));
                                           EXPECT_EQ(HeldBlocks(), held);
                                       }),
                  0U);
    }

    std::uint8_t value[19];  ///< of the area that has all
    OnlineAccessRecord online{sizeof online, kSetters, kGetters, kSetters, {}};
    FillRecord fill{sizeof fill, PutRaw};
};

TEST_F(ShortMemorySlotsTest, AValueHasNoText) {
    for (const std::uint32_t count : {1U, 3U}) {
        ParameterRecord record = Record(count == 1 ? kAll : kPoint, value, sizeof value, count);
        const ParameterRecord before = record;
        char* spelled = nullptr;
        const auto call = [&] {
            slots::FreeStdMemory(spelled);
            spelled = slots::GetStdParameterText(&record);
        };
        call();
        const std::string whole = spelled;
        call();
        const std::size_t held = HeldBlocks();
        const std::size_t shortages = RunWithEveryShortage(call, [&](Shortage) {
            EXPECT_EQ(spelled, nullptr);
            EXPECT_TRUE(IsSame(record, before));
            EXPECT_EQ(HeldBlocks(), held - 1);
        });
        EXPECT_GT(shortages, 0U);
        EXPECT_EQ(spelled, whole);
        slots::FreeStdMemory(spelled);
    }
}

TEST_F(ShortMemorySlotsTest, AValueHasNoLeaves) {
    ParameterRecord record = Record(kPoint, value, 18, 3);
    NameListNode* leaves = nullptr;
    const auto call = [&] {
        slots::FreeStdTextList(leaves);
        leaves = slots::GetStdParameterTextList(&record);
    };
    call();
    slots::FreeStdTextList(std::exchange(leaves, nullptr));
    const std::size_t held = HeldBlocks();
    const std::size_t shortages = RunWithEveryShortage(call, [&](Shortage) {
        EXPECT_EQ(leaves, nullptr);
        EXPECT_EQ(HeldBlocks(), held);
    });
    EXPECT_GT(shortages, 9U * 3) << "each leaf has a node and two texts";
    slots::FreeStdTextList(leaves);
    EXPECT_EQ(HeldBlocks(), held);
}

TEST_F(ShortMemorySlotsTest, AValueIsNotBuiltFromTexts) {
    char x[] = "x";
    char y[] = "y[1]";
    char one[] = "1";
    NameListNode second{y, one, nullptr};
    NameListNode first{x, one, &second};
    ParameterDescriptionRecord record{};
    record.size = sizeof record;
    record.identifier = kPoint;
    record.count = 1;
    record.texts = &first;
    const ParameterDescriptionRecord wanted = record;
    std::int32_t result = 0;
    const auto call = [&] {
        result = slots::ResolveStdParameter(&record);
        if (result != 0) {
            slots::FreeStdMemory(record.bytes);
            record = wanted;
        }
    };
    call();
    ExpectRefusals(record, result, call);
    EXPECT_EQ(result, 1);
}

TEST_F(ShortMemorySlotsTest, AValueIsNotBuiltFromParameters) {
    TheModule().parameters.BuildKinds();
    ParameterDescriptionRecord record{};
    record.size = sizeof record;
    record.identifier = kText;
    record.count = 2;
    record.address = "PW1";
    const ParameterDescriptionRecord wanted = record;
    std::int32_t result = 0;
    const auto call = [&] {
        result = slots::ResolveStdParameter(&record);
        if (result != 0) {
            slots::FreeStdMemory(record.bytes);
            record = wanted;
        }
    };
    call();
    ExpectRefusals(record, result, call);
    EXPECT_EQ(result, 1);
}

TEST_F(ShortMemorySlotsTest, ATypeIsNotDescribed) {
    TypeInformationRecord information{};
    ElementRecord element{};
    std::int32_t result = 0;
    const auto release = [&] {
        slots::FreeStdTypeInfo(&information);
        slots::FreeStdElementRecord(&element);
    };
    const auto expectEmptied = [&](auto ask) {
        const auto call = [&] {
            release();
            information.size = sizeof information;
            information.kind = 77;
            element.size = sizeof element;
            element.dimension = 77;
            element.index = 0;
            result = ask();
        };
        call();
        EXPECT_EQ(result, 1);
        release();
        const std::size_t held = HeldBlocks();
        const std::size_t shortages = RunWithEveryShortage(call, [&](Shortage) {
            EXPECT_EQ(result, 0);
            EXPECT_TRUE(IsEmpty(information));
            EXPECT_TRUE(element.dimension == 77 || IsEmpty(element));
            EXPECT_EQ(HeldBlocks(), held);
        });
        EXPECT_GT(shortages, 0U);
        EXPECT_EQ(result, 1);
        release();
        EXPECT_EQ(HeldBlocks(), held);
    };
    expectEmptied([&] { return slots::GetStdTypeInfo(kWord, &information); });
    expectEmptied([&] { return slots::GetStdTypeInfo(kPoint, &information); });
    expectEmptied([&] { return slots::GetStdStructInfo(kPoint, &information); });
    expectEmptied([&] { return slots::GetStdEnumInfo(kMode, 1, &information); });
    expectEmptied([&] { return slots::GetStdStructMemberInfo(kPoint, &element, &information); });
    expectEmptied([&] { return slots::GetStdStructMemberInfo(kAll, &element, &information); });
}

TEST_F(ShortMemorySlotsTest, AValueIsNotRead) {
    for (const std::int32_t area : {kText, kAll}) {
        ParameterRecord record = Record(area, text, 4, 2);
        const ParameterRecord wanted = record;
        std::int32_t result = 0;
        const auto run = [&](auto slot) {
            const auto call = [&] {
                result = slot();
                if (result == 1) {
                    slots::FreeStdMemory(record.bytes);
                    record = wanted;
                }
            };
            call();
            ExpectRefusals(record, result, call);
            EXPECT_EQ(result, 1);
        };
        run([&] { return slots::ReadStdParameterOnline(&record, &online, nullptr); });
        run([&] { return slots::FillStdParameterValue(&record, &fill); });
    }
}

TEST_F(ShortMemorySlotsTest, AValueIsWrittenOrRefused) {
    for (const std::int32_t area : {kText, kAll}) {
        ParameterRecord record = Record(area, value, sizeof value, 1);
        const ParameterRecord before = record;
        std::int32_t result = 0;
        const auto run = [&](auto slot) {
            const auto call = [&] { result = slot(); };
            call();
            const std::size_t held = HeldBlocks();
            const std::size_t shortages = RunWithEveryShortage(call, [&](Shortage) {
                EXPECT_EQ(result, 0);
                EXPECT_TRUE(IsSame(record, before));
                EXPECT_EQ(HeldBlocks(), held);
            });
            EXPECT_EQ(shortages > 0, area == kAll) << "a few letters need no memory";
            EXPECT_EQ(result, 1);
        };
        run([&] { return slots::ConvertStdParameter(&record, &online); });
        run([&] { return slots::WriteStdParameterOnline(&record, &online, nullptr); });
        run([&] { return slots::FillStdParameterValueInPlace(&record, &fill); });
    }
}

/// An editor that asks for memory when it has changed the record already.
class GreedyEditor final : public ui::ParameterEditor {
  public:
    bool Edit(DialogParameterRecord* record, const OnlineAccessRecord&,
              const ui::EditorServices&) override {
        if (record == nullptr) {
            return false;
        }
        const std::uint32_t boxWidth = std::exchange(record->boxWidth, 20);
        const std::string name(100, 'x');
        record->boxWidth = boxWidth + 1;
        return true;
    }
};

TEST_F(ShortMemorySlotsTest, AnEditThatFailsHasNotBeen) {
    GreedyEditor editor;
    const SystemServices services{
        loader,
        messages,
        TestServices().moduleFileName,
        TestServices().openStrings,
        TestServices().registry,
        TestServices().processes,
        &editor,
    };
    UseModule(services);
    DialogParameterRecord record{};
    record.size = sizeof record;
    record.boxWidth = 50;
    record.bytes = value;
    std::int32_t result = 0;
    const auto call = [&] {
        record.boxWidth = 50;
        result = slots::EditStdParameter(&record, &online);
    };
    ExpectRefusals(record, result, call);
    EXPECT_EQ(result, 1);
    EXPECT_EQ(record.boxWidth, 51U);
}

TEST_F(ShortMemorySlotsTest, AValueThatCannotBeCheckedIsNotWhole) {
    ParameterRecord record = Record(kPoint, value, 12, 2);
    std::int32_t result = 0;
    const auto call = [&] { result = slots::CheckStdParameter(&record); };
    ExpectRefusals(record, result, call);
    EXPECT_EQ(result, 1);
}

TEST_F(ShortMemorySlotsTest, SizesAndReleasesNeedNoMemory) {
    ParameterRecord whole = Record(kPoint, value, 12, 2);
    std::uint32_t size = 0;
    EXPECT_TRUE(NeedsNoMemory([&] { size = slots::GetStdStructSize(kAll); }));
    EXPECT_EQ(size, 19U);
    const std::size_t held = HeldBlocks();
    ParameterRecord parameter = Record(kPoint, std::malloc(12), 12, 2);
    TypeInformationRecord information{};
    information.size = sizeof information;
    EXPECT_EQ(slots::GetStdTypeInfo(kWord, &information), 1);
    NameListNode* list = slots::GetStdParameterTextList(&whole);
    EXPECT_TRUE(NeedsNoMemory([&] {
        slots::FreeStdParameter(&parameter);
        slots::FreeStdTypeInfo(&information);
        slots::FreeStdTextList(list);
        slots::FreeStdElementRecord(nullptr);
        slots::FreeStdMemory(nullptr);
    }));
    EXPECT_EQ(HeldBlocks(), held);
}

TEST_F(ShortMemorySlotsTest, TablesAreHandedOverWithoutMemory) {
    StdParaFunctionTable table{};
    table.size = sizeof table;
    ManagementTable management{};
    management.size = sizeof management;
    HostExportTable callbacks{};
    callbacks.size = sizeof callbacks;
    std::int32_t results = 0;
    EXPECT_TRUE(NeedsNoMemory([&] {
        results += GetStdParaFctns(&table);
        results += GetParaMGMTFunc(&management);
        results += SetZelkorExportFctns(&callbacks);
    }));
    EXPECT_EQ(results, 3);
    EXPECT_NE(table.GetStdEnumInfo, nullptr);
    EXPECT_NE(management.SetCallToken, nullptr);
}

}  // namespace
}  // namespace orvell::host
