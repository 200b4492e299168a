#include <gtest/gtest.h>

#include <cstring>

#include "host/module.h"
#include "host/standard_parameter_slots.h"
#include "resources/built_in_strings.h"
#include "support/fake_libraries.h"
#include "support/recorded_messages.h"

namespace orvell::host {

namespace {

test::FakeLoader loader;
test::RecordedMessages messages;
std::unique_ptr<Module> currentModule;

const SystemServices& TestServices() {
    static const SystemServices services{loader, messages,
                                         [](void*) { return std::string("D:\\BIN\\ORVELL.DLL"); },
                                         [](void*) -> std::unique_ptr<platform::StringSource> {
                                             return std::make_unique<resources::BuiltInStrings>();
                                         }};
    return services;
}

}  // namespace

Module& TheModule() {
    return *currentModule;
}

namespace {

using memstruct::StructItem;
using memstruct::TypeDef;
using values::BaseTypeCode;

constexpr std::int32_t kWord = 1;
constexpr std::int32_t kPoint = 2;
constexpr std::int32_t kText = 3;
constexpr std::int32_t kLoop = 4;
constexpr std::int32_t kUnresolved = 5;
constexpr std::int32_t kUnknown = 99;

TypeDef BasicType(const char* name, BaseTypeCode code, std::uint32_t size) {
    TypeDef type;
    type.name = name;
    type.baseType = code;
    type.size = size;
    return type;
}

TypeDef Structure(const char* name, std::vector<StructItem> items) {
    TypeDef type;
    type.name = name;
    type.baseType = BaseTypeCode::Structured;
    type.structItems = std::move(items);
    return type;
}

class SlotsTest : public testing::Test {
  protected:
    SlotsTest() {
        currentModule = std::make_unique<Module>(TestServices());
        currentModule->strings.UseSource(builtIn);
        messages.shown.clear();
        memstruct::MemoryStructureStore& store = currentModule->store;
        store.AddType(BasicType("Word", BaseTypeCode::Int, 2));
        store.AddType(BasicType("Text", BaseTypeCode::String, 4));
        store.AddType(Structure("Point", {{"x", "Word", nullptr, 1}, {"y", "Word", nullptr, 2}}));
        store.AddType(Structure("Loop", {{"self", "Loop", nullptr, 1}}));
        store.AddArea(kWord, "Word");
        store.AddArea(kPoint, "Point");
        store.AddArea(kText, "Text");
        store.AddArea(kLoop, "Loop");
        store.AddArea(kUnresolved, "Nothing");
        store.ResolveReferences();
    }

    ~SlotsTest() override { currentModule.reset(); }

    static ParameterRecord Record(std::int32_t id, void* bytes, std::uint32_t length,
                                  std::uint32_t count = 1) {
        return {sizeof(ParameterRecord), id, count, length, bytes, 0, 0, {}};
    }

    static std::string Text(ParameterRecord record) {
        char* text = slots::GetStdParameterText(&record);
        const std::string result = text == nullptr ? "(null)" : text;
        slots::FreeStdMemory(text);
        return result;
    }

    static std::string Leaves(ParameterRecord record) {
        NameListNode* list = slots::GetStdParameterTextList(&record);
        std::string result = list == nullptr ? "(null)" : "";
        for (const NameListNode* node = list; node != nullptr; node = node->next) {
            result += std::string(node->first) + "=" + node->second + ";";
        }
        slots::FreeStdTextList(list);
        return result;
    }

    resources::BuiltInStrings builtIn;
    std::uint8_t bytes[12] = {0xFF, 0xFF, 2, 0, 3, 0, 4, 0, 5, 0, 6, 0};
    std::uint8_t text[4] = {'a', 'b', 0, 0};
};

TEST_F(SlotsTest, TextOfASingleValueFollowsTheFormat) {
    ParameterRecord record = Record(kWord, bytes, 2);
    EXPECT_EQ(Text(record), "-1");
    record.format = 2;
    EXPECT_EQ(Text(record), "65535");
    record.format = 3;
    EXPECT_EQ(Text(record), "FFFFh");
    record.format = 0xF4;
    EXPECT_EQ(Text(record), "-1") << "formats above 3 count as none; the upper bits are not read";
    record.format = 0x83;
    EXPECT_EQ(Text(record), "FFFFh");
}

TEST_F(SlotsTest, TextOfAStringIsBareOnlyWhenTheAttributeAsks) {
    ParameterRecord record = Record(kText, text, 4);
    EXPECT_EQ(Text(record), "\"ab\"");
    record.attribute = -1;
    EXPECT_EQ(Text(record), "ab");
    text[0] = 0;
    EXPECT_EQ(Text(record), "(null)") << "an empty text is none";
}

TEST_F(SlotsTest, TextOfStructuresAndVectorsIsJoined) {
    EXPECT_EQ(Text(Record(kPoint, bytes, 6)), "-1; 2; 3");
    EXPECT_EQ(Text(Record(kPoint, bytes, 12, 2)), "-1; 2; 3; 4; 5; 6");
    EXPECT_EQ(Text(Record(kWord, bytes, 4, 2)), "-1; 2");
}

TEST_F(SlotsTest, CountsBelowTwoAreASingleValue) {
    EXPECT_EQ(Text(Record(kWord, bytes, 2, 0)), "-1");
    EXPECT_EQ(Leaves(Record(kWord, bytes, 2, 0)), "=-1;");
    EXPECT_EQ(Leaves(Record(kWord, bytes, 2, 1)), "=-1;");
    EXPECT_EQ(Leaves(Record(kWord, bytes, 4, 2)), "[0]=-1;[1]=2;");
}

TEST_F(SlotsTest, NoTextWithoutAWholeValueOrAUsableType) {
    EXPECT_EQ(Text(Record(kWord, nullptr, 2)), "(null)");
    EXPECT_EQ(Text(Record(kWord, bytes, 1)), "(null)");
    EXPECT_EQ(Text(Record(kPoint, bytes, 5)), "(null)");
    EXPECT_EQ(Text(Record(kPoint, bytes, 11, 2)), "(null)");
    for (const std::int32_t id : {kUnknown, kLoop, kUnresolved, 0, -1}) {
        EXPECT_EQ(Text(Record(id, bytes, 12)), "(null)") << id;
        EXPECT_EQ(Leaves(Record(id, bytes, 12)), "(null)") << id;
        ParameterRecord record = Record(id, bytes, 12);
        EXPECT_EQ(slots::CheckStdParameter(&record), 0) << id;
        EXPECT_EQ(slots::GetStdStructSize(id), 0U) << id;
    }
}

TEST_F(SlotsTest, LeavesCarryTheirPaths) {
    EXPECT_EQ(Leaves(Record(kPoint, bytes, 6)), "x=-1;y[0]=2;y[1]=3;");
    EXPECT_EQ(Leaves(Record(kPoint, bytes, 12, 2)),
              "[0].x=-1;[0].y[0]=2;[0].y[1]=3;[1].x=4;[1].y[0]=5;[1].y[1]=6;");
    EXPECT_EQ(Leaves(Record(kPoint, bytes, 11, 2)), "(null)");
}

TEST_F(SlotsTest, SizesAreThoseOfOneElement) {
    EXPECT_EQ(slots::GetStdStructSize(kWord), 2U);
    EXPECT_EQ(slots::GetStdStructSize(kPoint), 6U);
    EXPECT_EQ(slots::GetStdStructSize(kText), 4U);
}

TEST_F(SlotsTest, CheckComparesTheWholeVector) {
    ParameterRecord record = Record(kPoint, bytes, 12, 2);
    EXPECT_EQ(slots::CheckStdParameter(&record), 1);
    record.length = 11;
    EXPECT_EQ(slots::CheckStdParameter(&record), 0);
    record = Record(kPoint, nullptr, 12, 2);
    EXPECT_EQ(slots::CheckStdParameter(&record), 0);
    record = Record(kWord, bytes, 12, 0xFFFFFFFF);
    EXPECT_EQ(slots::CheckStdParameter(&record), 0);
}

TEST_F(SlotsTest, IdentifiersAreComparedAsBitPatterns) {
    currentModule->store.AddArea(0xFFFFFFFF, "Word");
    currentModule->store.ResolveReferences();
    EXPECT_EQ(slots::GetStdStructSize(-1), 2U);
}

TEST_F(SlotsTest, NullRecordsAreUnknown) {
    EXPECT_EQ(slots::GetStdParameterText(nullptr), nullptr);
    EXPECT_EQ(slots::GetStdParameterTextList(nullptr), nullptr);
    EXPECT_EQ(slots::CheckStdParameter(nullptr), 0);
    slots::FreeStdParameter(nullptr);
    slots::FreeStdMemory(nullptr);
    slots::FreeStdTextList(nullptr);
    slots::FreeStdElementRecord(nullptr);
    slots::FreeStdTypeInfo(nullptr);
}

TEST_F(SlotsTest, ReleasingAParameterFreesItsBytesAndEmptiesIt) {
    ParameterRecord record = Record(kWord, std::malloc(16), 16, 2);
    slots::FreeStdParameter(&record);
    EXPECT_EQ(record.bytes, nullptr);
    EXPECT_EQ(record.identifier, 0);
    EXPECT_EQ(record.size, sizeof(ParameterRecord));
    slots::FreeStdParameter(&record);
}

TEST_F(SlotsTest, AShortRecordsPointerIsNotFreed) {
    ParameterRecord record = Record(kWord, bytes, 2);
    record.size = 18;  // ends inside the pointer to the bytes, which are not from the heap
    slots::FreeStdParameter(&record);
    EXPECT_EQ(record.identifier, 0);
    EXPECT_EQ(record.size, 18U);
}

TEST_F(SlotsTest, ReleasingDescriptionsFreesTheirTexts) {
    TypeInformationRecord info{sizeof(TypeInformationRecord), 3, strdup("Point"), 6, nullptr, 2};
    slots::FreeStdTypeInfo(&info);
    EXPECT_EQ(info.name, nullptr);
    EXPECT_EQ(info.kind, 0U);
    ElementRecord element{sizeof(ElementRecord), strdup("x"), strdup("Word"), 0, 1, 0, 2};
    slots::FreeStdElementRecord(&element);
    EXPECT_EQ(element.name, nullptr);
    EXPECT_EQ(element.typeName, nullptr);
    EXPECT_EQ(element.width, 0U);
}

TEST_F(SlotsTest, ServicesNotOfferedYetAnswerTheirFailure) {
    ParameterRecord record = Record(kWord, bytes, 2);
    EXPECT_EQ(slots::EditStdParameter(nullptr, nullptr), 0);
    EXPECT_EQ(slots::ConvertStdParameter(&record, nullptr), 0);
    EXPECT_EQ(slots::ResolveStdParameter(nullptr), 0);
    EXPECT_EQ(slots::GetStdStructMemberInfo(kPoint, nullptr, nullptr), 0);
    EXPECT_EQ(slots::GetStdStructInfo(kPoint, nullptr), 0);
    EXPECT_EQ(slots::ReadStdParameterOnline(&record, nullptr, nullptr), -1);
    EXPECT_EQ(slots::WriteStdParameterOnline(&record, nullptr, nullptr), 0);
    EXPECT_EQ(slots::FillStdParameterValue(&record, nullptr), 0);
    EXPECT_EQ(slots::FillStdParameterValueInPlace(&record, nullptr), 0);
    EXPECT_EQ(slots::GetStdTypeInfo(kPoint, nullptr), 0);
    EXPECT_EQ(slots::GetStdEnumInfo(kPoint, 0, nullptr), 0);
}

// ---- configuration slots -----------------------------------------------------------------------

constexpr const char* kLoadFailed =
    "Die Konfigurationsdatei mit den Standardspeicherstrukturen konnte nicht geladen werden, "
    "weil:\n\n";
constexpr const char* kPathUnknown =
    "Der Pfad zur Konfigurationsdatei mit den Standardspeicherstrukturen konnte nicht ermittelt "
    "werden.";

TEST_F(SlotsTest, LoadingWithoutAPathIsReported) {
    int window = 0;
    ConfigurationRecord record{sizeof(ConfigurationRecord), &window, ""};
    slots::LoadStdMemConfig(&record, 1);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, std::string(kLoadFailed) + kPathUnknown);
    EXPECT_EQ(messages.shown[0].caption, "Orvell");
    EXPECT_EQ(messages.shown[0].owner, &window);
    EXPECT_FALSE(messages.shown[0].topMost);
    EXPECT_EQ(messages.shown[0].symbol, platform::MessageSymbol::None);
    EXPECT_EQ(slots::GetStdStructSize(kWord), 2U) << "nothing was loaded";
}

TEST_F(SlotsTest, WithoutAnOwnerMessagesAreTopMost) {
    slots::LoadStdMemConfig(nullptr, 1);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].owner, nullptr);
    EXPECT_TRUE(messages.shown[0].topMost);
}

TEST_F(SlotsTest, WithoutAnyFileOnlyTheImplicitTypesRemain) {
    ConfigurationRecord record{sizeof(ConfigurationRecord), nullptr, "nowhere\\none.prj"};
    slots::LoadStdMemConfig(&record, 1);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(slots::GetStdStructSize(kWord), 0U);
    EXPECT_EQ(currentModule->store.Types().size(), 4U);
}

/// A host whose message loop, running while the box is open, sends the request once more.
class RepeatedRequest final : public platform::MessageBoxes {
  public:
    void Show(const platform::Message&) override {
        ++shown;
        if (shown < 3) {
            slots::LoadStdMemConfig(nullptr, 1);
        }
    }

    bool Ask(const platform::Message&) override { return false; }

    int shown = 0;
};

TEST_F(SlotsTest, ARequestThatComesAgainWhileItsMessageIsOpenDoesNothing) {
    RepeatedRequest boxes;
    const SystemServices services{loader, boxes, TestServices().moduleFileName,
                                  TestServices().openStrings};
    currentModule = std::make_unique<Module>(services);
    slots::LoadStdMemConfig(nullptr, 1);
    EXPECT_EQ(boxes.shown, 1);
}

/// A string table that runs out of memory.
class NoMemory final : public platform::StringSource {
  public:
    std::string Load(std::uint32_t) const override { throw std::bad_alloc(); }
};

TEST_F(SlotsTest, ALoadThatRunsOutOfMemoryLeavesNothingHalfDone) {
    const NoMemory noMemory;
    currentModule->strings.UseSource(noMemory);
    currentModule->store.SetCurrentPath("C:\\OLD.STDMEMXML");
    ConfigurationRecord record{sizeof(ConfigurationRecord), nullptr, "nowhere\\none.prj"};
    slots::LoadStdMemConfig(&record, 1);
    EXPECT_TRUE(currentModule->store.Types().empty());
    EXPECT_TRUE(currentModule->store.Areas().empty());
    EXPECT_EQ(currentModule->store.GetCurrentPath(), "");
    EXPECT_EQ(currentModule->configCallStamp, 1U);
}

TEST_F(SlotsTest, TheSameTokenActsOnceAcrossAllSlots) {
    slots::LoadStdMemConfig(nullptr, 0);
    EXPECT_TRUE(messages.shown.empty()) << "0 is the token remembered at the start";
    slots::LoadStdMemConfig(nullptr, 5);
    slots::LoadStdMemConfig(nullptr, 5);
    EXPECT_EQ(messages.shown.size(), 1U);
    slots::CloseStdMemConfig(5);
    EXPECT_EQ(slots::GetStdStructSize(kWord), 2U) << "closing with the same token does nothing";
    slots::CloseStdMemConfig(6);
    EXPECT_EQ(slots::GetStdStructSize(kWord), 0U);
    slots::ExportStdMemConfig(nullptr, nullptr, 6);
    EXPECT_EQ(messages.shown.size(), 1U);
    slots::LoadStdMemConfig(nullptr, 5);
    EXPECT_EQ(messages.shown.size(), 2U) << "only the last token is remembered";
}

TEST_F(SlotsTest, SavingWithoutALoadedProjectFileDoesNothing) {
    ConfigurationRecord record{sizeof(ConfigurationRecord), nullptr, "nowhere\\none.prj"};
    slots::SaveStdMemConfig(&record, 1);
    slots::SaveStdMemConfig(nullptr, 2);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SlotsTest, AFailedSaveIsReported) {
    currentModule->store.SetCurrentPath("NOWHERE\\GONE.STDMEMXML");
    ConfigurationRecord record{sizeof(ConfigurationRecord), nullptr, "nowhere\\new.prj"};
    slots::SaveStdMemConfig(&record, 1);
    slots::SaveStdMemConfig(nullptr, 2);
    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_EQ(messages.shown[0].text,
              "Fehler !   Die Konfigurationsdatei mit den Standardspeicherstrukturen konnte nicht "
              "gespeichert werden.");
    EXPECT_EQ(messages.shown[1].text, messages.shown[0].text);
}

TEST_F(SlotsTest, AFailedExportIsReported) {
    ConfigurationRecord record{sizeof(ConfigurationRecord), nullptr, "nowhere\\none.prj"};
    slots::ExportStdMemConfig(&record, "C:\\TARGET", 1);
    slots::ExportStdMemConfig(&record, nullptr, 2);
    slots::ExportStdMemConfig(nullptr, "C:\\TARGET", 3);
    ASSERT_EQ(messages.shown.size(), 3U);
    EXPECT_EQ(messages.shown[2].text,
              "Fehler !   Die Konfigurationsdatei mit den Standardspeicherstrukturen konnte nicht "
              "exportiert werden.");
}

TEST_F(SlotsTest, AMergeWithNothingToReadIsSilentAndKeepsTheStore) {
    ConfigurationRecord record{sizeof(ConfigurationRecord), nullptr, "nowhere\\none.prj"};
    slots::MergeStdMemConfig(&record, nullptr, 1);
    slots::MergeStdMemConfig(nullptr, "C:\\SOURCE", 2);
    slots::MergeStdMemConfig(&record, "C:\\SOURCE", 3);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(slots::GetStdStructSize(kWord), 2U);
}

}  // namespace
}  // namespace orvell::host
