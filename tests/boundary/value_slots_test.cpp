#include <gtest/gtest.h>

#include <vector>

#include "module_host.h"

namespace orvell::test {
namespace {

constexpr const char* kDefinitions =
    "Definitions\n"
    "\tTypeList\n"
    "\t\tType|Name=Word|BaseType=UINT|Size=2\n"
    "\t\tType|Name=Point|BaseType=Structured\n"
    "\t\t\tItem|Name=x|Type=Word|Dimension=1\n"
    "\t\t\tItem|Name=y|Type=Word|Dimension=2\n"
    "\t\tType|Name=Mode|BaseType=Enumerated|Size=1\n"
    "\t\t\tItem|Value=1|Name=On\n"
    "\t\t\tItem|Value=0|Name=Off\n"
    "\t\tType|Name=Loop|BaseType=Structured\n"
    "\t\t\tItem|Name=self|Type=Loop\n"
    "\t\tType|Name=Huge|BaseType=Structured\n"
    "\t\t\tItem|Name=words|Type=Word|Dimension=2147483647\n"
    "\t\tType|Name=Label|BaseType=STRING|Size=4\n"
    "\tMemoryList\n"
    "\t\tMemory|ID=17|Type=Point\n"
    "\t\tMemory|ID=18|Type=Mode\n"
    "\t\tMemory|ID=19|Type=Loop\n"
    "\t\tMemory|ID=20|Type=Huge\n"
    "\t\tMemory|ID=21|Type=Label\n";

class ValueSlotsTest : public testing::Test {
  protected:
    ValueSlotsTest() {
        stage.SetUpEverything();
        stage.Write("PLANT.STDMEMXML", kDefinitions);
        module = std::make_unique<LoadedModule>(stage);
        slots = module->Slots();
        const std::string project = stage.Path("plant.prj");
        ConfigurationRecord record{sizeof(record), nullptr, project.c_str()};
        slots.LoadStdMemConfig(&record, 1);
    }

    std::string Text(ParameterRecord* record) {
        char* text = slots.GetStdParameterText(record);
        const std::string result = text == nullptr ? "(null)" : text;
        slots.FreeStdMemory(text);
        return result;
    }

    std::string Leaves(ParameterRecord* record) {
        NameListNode* list = slots.GetStdParameterTextList(record);
        std::string result = list == nullptr ? "(null)" : "";
        for (const NameListNode* node = list; node != nullptr; node = node->next) {
            result += std::string(node->first) + "=" + node->second + ";";
        }
        slots.FreeStdTextList(list);
        return result;
    }

    static ParameterRecord Record(std::int32_t id, const GuardedBytes& value, std::uint32_t length,
                                  std::uint32_t count = 1) {
        return {sizeof(ParameterRecord), id, count, length, value.Data(), 0, 0, {}};
    }

    Stage stage;
    std::unique_ptr<LoadedModule> module;
    StdParaFunctionTable slots;
};

TEST_F(ValueSlotsTest, SizesComeFromTheDefinitions) {
    EXPECT_EQ(slots.GetStdStructSize(17), 6U);
    EXPECT_EQ(slots.GetStdStructSize(18), 1U);
    EXPECT_EQ(slots.GetStdStructSize(19), 0U) << "recursive";
    EXPECT_EQ(slots.GetStdStructSize(20), 0xFFFFFFFEU);
    EXPECT_EQ(slots.GetStdStructSize(99), 0U);
    EXPECT_EQ(slots.GetStdStructSize(0), 0U);
}

TEST_F(ValueSlotsTest, ShowsAVectorOfStructures) {
    const GuardedBytes value(12);
    for (unsigned char i = 0; i < 12; ++i) {
        value.Data()[i] = i % 2 == 0 ? static_cast<unsigned char>(i / 2 + 1) : 0;
    }
    ParameterRecord record = Record(17, value, 12, 2);
    EXPECT_EQ(Text(&record), "1; 2; 3; 4; 5; 6");
    EXPECT_EQ(Leaves(&record), "[0].x=1;[0].y[0]=2;[0].y[1]=3;[1].x=4;[1].y[0]=5;[1].y[1]=6;");
    record.format = 3;
    EXPECT_EQ(Text(&record), "1h; 2h; 3h; 4h; 5h; 6h");
}

TEST_F(ValueSlotsTest, ShowsEnumeratorsByName) {
    const GuardedBytes value(1);
    ParameterRecord record = Record(18, value, 1);
    value.Data()[0] = 1;
    EXPECT_EQ(Text(&record), "On");
    value.Data()[0] = 7;
    EXPECT_EQ(Text(&record), "7");
}

TEST_F(ValueSlotsTest, NeverReadsBehindTheValue) {
    for (std::uint32_t length = 0; length < 12; ++length) {
        const GuardedBytes value(length == 0 ? 1 : length);
        ParameterRecord record = Record(17, value, length, 2);
        EXPECT_EQ(Text(&record), "(null)") << length;
        EXPECT_EQ(Leaves(&record), "(null)") << length;
        EXPECT_EQ(slots.CheckStdParameter(&record), 0) << length;
        record.count = 0xFFFFFFFF;
        EXPECT_EQ(slots.CheckStdParameter(&record), 0) << length;
        record = Record(20, value, length);
        EXPECT_EQ(Text(&record), "(null)") << length;
    }
    const GuardedBytes label(4);
    std::memcpy(label.Data(), "abcd", 4);
    ParameterRecord record = Record(21, label, 4);
    EXPECT_EQ(Text(&record), "\"abc\"");
}

TEST_F(ValueSlotsTest, RecursiveAndUnknownStructuresHaveNoValue) {
    const GuardedBytes value(12);
    for (const std::int32_t id : {19, 99, 0, -1}) {
        ParameterRecord record = Record(id, value, 12);
        EXPECT_EQ(Text(&record), "(null)") << id;
        EXPECT_EQ(Leaves(&record), "(null)") << id;
        EXPECT_EQ(slots.CheckStdParameter(&record), 0) << id;
    }
}

TEST_F(ValueSlotsTest, ShortRecordsAreReadAsFarAsTheyReach) {
    const GuardedBytes value(6);
    std::memset(value.Data(), 0, 6);
    for (std::uint32_t size = 4; size <= 28; ++size) {
        const GuardedBytes bytes(size);
        ParameterRecord full = Record(17, value, 6);
        full.size = size;
        full.format = 3;
        std::memcpy(bytes.Data(), &full, size);
        auto* record = reinterpret_cast<ParameterRecord*>(bytes.Data());
        const char* expected = size >= 25 ? "0h; 0h; 0h" : size >= 20 ? "0; 0; 0" : "(null)";
        EXPECT_EQ(Text(record), expected) << size;
        EXPECT_EQ(slots.CheckStdParameter(record), size >= 20 ? 1 : 0) << size;
        EXPECT_EQ(std::memcmp(bytes.Data(), &full, size), 0) << "the record stays: " << size;
    }
}

TEST_F(ValueSlotsTest, LongRecordsAreCut) {
    const GuardedBytes value(6);
    std::memset(value.Data(), 0, 6);
    struct {
        ParameterRecord known;
        std::uint32_t more[10];
    } record{Record(17, value, 6), {1, 2, 3}};
    record.known.size = sizeof(record);
    EXPECT_EQ(Text(&record.known), "0; 0; 0");
    record.known.size = 0xFFFFFFFF;
    EXPECT_EQ(Text(&record.known), "0; 0; 0");
}

TEST_F(ValueSlotsTest, NullRecordsAndReleasesAreHarmless) {
    EXPECT_EQ(slots.GetStdParameterText(nullptr), nullptr);
    EXPECT_EQ(slots.GetStdParameterTextList(nullptr), nullptr);
    EXPECT_EQ(slots.CheckStdParameter(nullptr), 0);
    slots.FreeStdParameter(nullptr);
    slots.FreeStdMemory(nullptr);
    slots.FreeStdTextList(nullptr);
    slots.FreeStdElementRecord(nullptr);
    slots.FreeStdTypeInfo(nullptr);
}

TEST_F(ValueSlotsTest, ReleasingAParameterOfAnySizeWritesNothingBehindIt) {
    for (std::uint32_t size = 4; size <= 28; ++size) {
        const GuardedBytes bytes(size);
        ParameterRecord full{sizeof(full), 17, 1, 6, nullptr, 1, 3, {}};
        full.size = size;
        std::memcpy(bytes.Data(), &full, size);
        slots.FreeStdParameter(reinterpret_cast<ParameterRecord*>(bytes.Data()));
        const ParameterRecord empty{size, 0, 0, 0, nullptr, 0, 0, {}};
        EXPECT_EQ(std::memcmp(bytes.Data(), &empty, size), 0) << size;
    }
}

TEST_F(ValueSlotsTest, AHostMayHandInItsOwnMemoryOfTheSharedRunTime) {
    ParameterRecord record{sizeof(record), 17, 1, 6, std::malloc(6), 0, 0, {}};
    slots.FreeStdParameter(&record);
    EXPECT_EQ(record.bytes, nullptr);
}

TEST_F(ValueSlotsTest, NullRecordsAnswerTheFailure) {
    ParameterRecord record{sizeof(record), 17, 1, 0, nullptr, 0, 0, {}};
    EXPECT_EQ(slots.ConvertStdParameter(&record, nullptr), 0);
    EXPECT_EQ(slots.ResolveStdParameter(nullptr), 0);
    EXPECT_EQ(slots.GetStdStructMemberInfo(17, nullptr, nullptr), 0);
    EXPECT_EQ(slots.GetStdStructInfo(17, nullptr), 0);
    EXPECT_EQ(slots.ReadStdParameterOnline(&record, nullptr, nullptr), -1);
    EXPECT_EQ(slots.WriteStdParameterOnline(&record, nullptr, nullptr), 0);
    EXPECT_EQ(slots.FillStdParameterValue(&record, nullptr), 0);
    EXPECT_EQ(slots.FillStdParameterValueInPlace(&record, nullptr), 0);
    EXPECT_EQ(slots.GetStdTypeInfo(17, nullptr), 0);
    EXPECT_EQ(slots.GetStdEnumInfo(18, 0, nullptr), 0);
}

TEST_F(ValueSlotsTest, UnloadingForgetsTheDefinitions) {
    EXPECT_EQ(OutstandingXmlHandles(), 0);
    module.reset();
    module = std::make_unique<LoadedModule>(stage);
    slots = module->Slots();
    EXPECT_EQ(slots.GetStdStructSize(17), 0U);
    const std::string project = stage.Path("plant.prj");
    ConfigurationRecord record{sizeof(record), nullptr, project.c_str()};
    slots.LoadStdMemConfig(&record, 1);
    EXPECT_EQ(slots.GetStdStructSize(17), 6U) << "the token of the first life is forgotten as well";
}

}  // namespace
}  // namespace orvell::test
