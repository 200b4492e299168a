// Memory runs out at every single allocation of the configuration slots: no definitions rather than
// some, and whole files.

#include "slots_fixture.h"
#include "support/all_texts.h"
#include "support/short_memory.h"
#include "unit/memstruct/fake_xml_library.h"
#include "unit/memstruct/temporary_folder.h"

namespace orvell::host {
namespace {

using test::FileText;
using test::HeldBlocks;
using test::NeedsNoMemory;
using test::RunWithEveryShortage;
using test::Shortage;

constexpr const char* kDefinitions = R"(<Definitions>
    <TypeList><Type Name="S" BaseType="Structured"><Item Name="a" Type="E" Dimension="2"/></Type>
    <Type Name="E" BaseType="Enumerated" Size="1"><Item Value="1" Name="one"/></Type></TypeList>
    <MemoryList><Memory ID="1" Type="S"/></MemoryList></Definitions>)";

constexpr const char* kDelivered = R"(<Definitions>
    <TypeList><Type Name="T" BaseType="INT" Size="4"/></TypeList>
    <MemoryList><Memory ID="2" Type="T"/></MemoryList></Definitions>)";

constexpr const char* kProject = "a_project_with_a_long_name.prj";
constexpr const char* kProjectFile = "A_PROJECT_WITH_A_LONG_NAME.STDMEMXML";

class ShortMemoryConfigurationTest : public SlotsTest {
  protected:
    ShortMemoryConfigurationTest() {
        loader.libraries["XML.DLL"] = test::FakeXmlLibrary::Functions();
        EXPECT_TRUE(TheModule().xml.Bind(loader, "XML.DLL"));
        test::FakeXmlLibrary::onEntryAndReturn = test::SuspendShortage;
        test::LoadAllTexts(TheModule().strings);
        std::filesystem::create_directory("OUT");
        test::WriteFile(kProjectFile, kDefinitions);
    }

    ~ShortMemoryConfigurationTest() override {
        EXPECT_EQ(library.Complaints(), "");
        TheModule().xml.Unbind();
        test::FakeXmlLibrary::onEntryAndReturn = nullptr;
    }

    void Load() {
        messages.shown.clear();
        slots::LoadStdMemConfig(&record, ++token);
    }

    static std::uint32_t Size(std::int32_t area) { return slots::GetStdStructSize(area); }

    /// Text of a value of the project's area; empty when it is not defined.
    static std::string Text() {
        std::uint8_t value[] = {1, 1};
        ParameterRecord parameter = Record(1, value, sizeof value);
        char* text = slots::GetStdParameterText(&parameter);
        std::string copy = text == nullptr ? "" : text;
        slots::FreeStdMemory(text);
        return copy;
    }

    /// What the module holds, the definitions and what the tests have noted put aside.
    std::size_t HeldWhenClosed() {
        slots::CloseStdMemConfig(++token);
        std::exchange(messages.shown, {});
        return HeldBlocks();
    }

    /// Memory that comes back in time is enough for the message.
    void ExpectMessage(Shortage shortage) const {
        if (shortage == Shortage::Passing) {
            EXPECT_EQ(messages.shown.size(), 1U);
        }
    }

    void ExpectAllOrNoDefinitions(Shortage shortage) const {
        if (Text() == "one; one") {
            EXPECT_TRUE(messages.shown.empty()) << "it could do without";
            return;
        }
        EXPECT_TRUE(TheModule().store.Types().empty());
        EXPECT_TRUE(TheModule().store.Areas().empty());
        EXPECT_EQ(TheModule().store.GetCurrentPath(), "");
        ExpectMessage(shortage);
    }

    test::TemporaryFolder folder;
    test::FakeXmlLibrary library;
    ConfigurationRecord record{sizeof record, nullptr, kProject};
    std::uint32_t token = 0;
};

TEST_F(ShortMemoryConfigurationTest, ALoadThatFailsLeavesNoDefinitions) {
    Load();
    ASSERT_EQ(Text(), "one; one");
    const std::size_t held = HeldWhenClosed();
    const std::size_t shortages =
        RunWithEveryShortage([&] { Load(); },
                             [&](Shortage shortage) {
                                 EXPECT_EQ(TheModule().configCallStamp, token);
                                 EXPECT_EQ(library.Complaints(), "");
                                 ExpectAllOrNoDefinitions(shortage);
                                 EXPECT_EQ(HeldWhenClosed(), held);
                             });
    EXPECT_GT(shortages, 10U);
    EXPECT_EQ(Size(1), 2U);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ShortMemoryConfigurationTest, AMergeThatFailsLeavesAWholeFile) {
    test::WriteFile("OUT\\" + std::string(kProjectFile), kDelivered);
    const auto merge = [&] { slots::MergeStdMemConfig(&record, "OUT", ++token); };
    merge();
    const std::string merged = FileText(kProjectFile);
    ASSERT_EQ(Size(2), 4U);
    const auto startAgain = [&] { test::WriteFile(kProjectFile, kDefinitions); };
    startAgain();
    for (const std::size_t allocations : {1U, 20U}) {  // has all that is kept for later
        test::BeginShortage(Shortage::Lasting, allocations);
        merge();
        EXPECT_TRUE(test::EndShortage());
        startAgain();
    }
    const std::size_t held = HeldWhenClosed();
    const std::size_t shortages = RunWithEveryShortage(merge, [&](Shortage) {
        EXPECT_TRUE(FileText(kProjectFile) == kDefinitions || FileText(kProjectFile) == merged)
            << FileText(kProjectFile);
        EXPECT_TRUE(TheModule().store.Types().empty() || Text() == "one; one");
        EXPECT_EQ(library.Complaints(), "");
        EXPECT_EQ(HeldWhenClosed(), held);
        startAgain();
    });
    EXPECT_GT(shortages, 10U);
    EXPECT_EQ(Size(2), 4U);
    EXPECT_TRUE(messages.shown.empty()) << "a merge is silent";
}

TEST_F(ShortMemoryConfigurationTest, AFailedExportIsReportedAndKeepsTheSource) {
    const auto exportThem = [&] {
        messages.shown.clear();
        slots::ExportStdMemConfig(&record, "OUT", ++token);
    };
    exportThem();
    const std::size_t held = HeldWhenClosed();
    EXPECT_GT(RunWithEveryShortage(exportThem,
                                   [&](Shortage shortage) {
                                       EXPECT_EQ(FileText(kProjectFile), kDefinitions);
                                       ExpectMessage(shortage);
                                       EXPECT_EQ(HeldWhenClosed(), held);
                                   }),
              0U);
    EXPECT_EQ(FileText("OUT\\" + std::string(kProjectFile)), kDefinitions);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ShortMemoryConfigurationTest, AFailedSavingIsReportedAndKeepsTheSource) {
    const std::string target = "THE_NEW_PATH_OF_THE_PROJECT.STDMEMXML";
    const auto startAgain = [&] {
        std::filesystem::remove(target);
        record.path = kProject;
        Load();
        record.path = "the_new_path_of_the_project.prj";
    };
    startAgain();
    const std::size_t held = HeldWhenClosed();
    startAgain();
    const auto save = [&] {
        messages.shown.clear();
        slots::SaveStdMemConfig(&record, ++token);
    };
    const std::size_t shortages = RunWithEveryShortage(save, [&](Shortage shortage) {
        EXPECT_EQ(FileText(kProjectFile), kDefinitions);
        EXPECT_TRUE(TheModule().store.GetCurrentPath() == kProjectFile ||
                    FileText(target) == kDefinitions)
            << "the path is that of a whole file";
        EXPECT_EQ(Size(1), 2U);
        ExpectMessage(shortage);
        EXPECT_EQ(HeldWhenClosed(), held);
        startAgain();
    });
    EXPECT_GT(shortages, 0U);
    EXPECT_EQ(FileText(target), kDefinitions);
}

/// Not of memory, but seen by the same user: the library's calls fail one after the other.
TEST_F(ShortMemoryConfigurationTest, OnlyAFileThatCannotBeOpenedIsTold) {
    for (const bool isForGood : {false, true}) {
        library.staysBroken = isForGood;
        for (library.failingCall = 1;; ++library.failingCall) {
            library.calls = 0;
            Load();
            if (library.calls < library.failingCall) {
                EXPECT_GT(library.failingCall, 10U);
                break;
            }
            const bool isOpened = library.failingCall > 1;
            EXPECT_EQ(messages.shown.size(), isOpened ? 0U : 1U) << library.failingCall;
            EXPECT_EQ(TheModule().store.GetCurrentPath(), isOpened ? kProjectFile : "");
            EXPECT_EQ(library.Complaints(), "");
        }
        EXPECT_TRUE(messages.shown.empty());
        EXPECT_EQ(Text(), "one; one");
    }
    library.failingCall = 0;
}

TEST_F(ShortMemoryConfigurationTest, ClosingNeedsNoMemory) {
    Load();
    EXPECT_TRUE(NeedsNoMemory([&] { slots::CloseStdMemConfig(++token); }));
    EXPECT_EQ(Size(1), 0U);
    EXPECT_EQ(TheModule().store.GetCurrentPath(), "");
}

}  // namespace
}  // namespace orvell::host
