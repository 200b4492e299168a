// Memory runs out at every single allocation of the management table's slots and of the accessors.

#include <array>
#include <cstring>
#include <functional>

#include "management_fixture.h"
#include "support/short_memory.h"
#include "unit/memstruct/temporary_folder.h"

namespace orvell::host {
namespace {

using test::HeldBlocks;
using test::NeedsNoMemory;
using test::RunWithEveryShortage;
using test::Shortage;

constexpr const char* kLongText = "a text that is too long to lie in the entry itself";
constexpr const char* kListFile = "A_PROJECT_WITH_A_LONG_NAME.SIL";
constexpr const char* kExportedList = "a list with a name of some length.sil";
constexpr const char* kExportedCsv = "a file with a name of some length.csv";
constexpr std::size_t kKindCount = 15;
constexpr int kEntryCount = 12;

class ShortMemoryManagementTest : public ManagementTest {
  protected:
    ShortMemoryManagementTest() {
        BuildKinds();
        FillList();
        management::SaveList(&record);
        management::ExportList(&record, kExportedList);
        management::ExportList(&record, kExportedCsv);
        LoadAllTexts();
        EXPECT_TRUE(messages.shown.empty());
        // The memory is short in the module, not in the host.
        onEntryAndReturn = test::SuspendShortage;
    }

    ~ShortMemoryManagementTest() override { onEntryAndReturn = nullptr; }

    static void FillList() {
        management::ClearList();
        for (int number = 1; number <= kEntryCount; ++number) {
            const std::string address = "PT" + std::to_string(number);
            STDSIL_SetTextParaValue(address.c_str(), "name", "comment", kLongText);
        }
    }

    /// Entries of the list; each is whole or, at the most one, without its value.
    static int EntryCount() {
        int count = 0;
        int withoutValue = 0;
        for (int number = 1; number <= kEntryCount; ++number) {
            const std::string address = "PT" + std::to_string(number);
            if (Exists(address)) {
                ++count;
                withoutValue += TextOf(address) == kLongText ? 0 : 1;
            }
        }
        EXPECT_LE(withoutValue, 1);
        return count;
    }

    /// Memory that comes back in time is enough for the message.
    void ExpectMessage(Shortage shortage) {
        const std::size_t count = TakeMessages().size();
        if (shortage == Shortage::Passing) {
            EXPECT_EQ(count, 1U);
        }
    }

    /// What the module holds, the list and what the tests have noted put aside.
    std::size_t HeldWithEmptyList() {
        management::ClearList();
        std::exchange(reported, {});
        TakeMessages();
        return HeldBlocks();
    }

    test::TemporaryFolder folder;
    ConfigurationRecord record{sizeof record, nullptr, "a_project_with_a_long_name.prj"};
};

TEST_F(ShortMemoryManagementTest, ALoadThatFailsLeavesAnEmptyList) {
    const std::size_t held = HeldWithEmptyList();
    const std::size_t shortages =
        RunWithEveryShortage([&] { management::LoadList(&record); },
                             [&](Shortage) {
                                 EXPECT_EQ(EntryCount(), 0);
                                 EXPECT_EQ(List().ProjectName(), "");
                                 EXPECT_EQ(List().KindCount(), kKindCount);
                                 EXPECT_TRUE(messages.shown.empty());
                                 EXPECT_EQ(HeldWithEmptyList(), held);
                             });
    EXPECT_GT(shortages, 12U);
    EXPECT_EQ(EntryCount(), kEntryCount);
}

TEST_F(ShortMemoryManagementTest, AFailedSavingIsReportedAndKeepsTheList) {
    const std::string file = test::FileText(kListFile);
    const std::size_t held = HeldBlocks();
    const auto save = [&] { management::SaveList(&record); };
    const std::size_t shortages = RunWithEveryShortage(save, [&](Shortage shortage) {
        EXPECT_EQ(EntryCount(), kEntryCount);
        ExpectMessage(shortage);
        EXPECT_EQ(HeldBlocks(), held);
    });
    EXPECT_GT(shortages, 0U);
    EXPECT_EQ(test::FileText(kListFile), file);
}

TEST_F(ShortMemoryManagementTest, AFailedExportIsReportedAndKeepsTheList) {
    for (const char* path : {kExportedList, kExportedCsv}) {
        const std::string file = test::FileText(path);
        const std::size_t held = HeldBlocks();
        const std::size_t shortages =
            RunWithEveryShortage([&] { management::ExportList(&record, path); },
                                 [&](Shortage shortage) {
                                     EXPECT_EQ(EntryCount(), kEntryCount);
                                     ExpectMessage(shortage);
                                     EXPECT_EQ(HeldBlocks(), held);
                                 });
        EXPECT_GT(shortages, 0U);
        EXPECT_EQ(test::FileText(path), file);
    }
}

/// Of a file that has been written, at most the offer to open it is missing.
TEST_F(ShortMemoryManagementTest, AFailedExportIsNotOffered) {
    const std::string file = test::FileText(kExportedCsv);
    std::filesystem::remove(kExportedCsv);
    registry.texts[{platform::RegistryRoot::ClassesRoot, ".csv", ""}] = "Table";
    registry.texts[{platform::RegistryRoot::ClassesRoot, "Table\\SHELL\\OPEN\\COMMAND", ""}] =
        "C:\\Programs\\Table editor\\editor.exe";
    const auto exportAndOpen = [&] {
        messages.asked.clear();
        management::ExportAndOpenList(&record, kExportedCsv);
    };
    exportAndOpen();  // has all that is kept for later
    std::filesystem::remove(kExportedCsv);
    messages.asked.clear();
    const std::size_t held = HeldBlocks();
    const std::size_t shortages = RunWithEveryShortage(exportAndOpen, [&](Shortage shortage) {
        EXPECT_EQ(EntryCount(), kEntryCount);
        EXPECT_TRUE(messages.asked.empty());
        if (test::FileText(kExportedCsv) != file) {
            ExpectMessage(shortage);
        }
        EXPECT_TRUE(TakeMessages().empty());
        EXPECT_EQ(HeldBlocks(), held);
        std::filesystem::remove(kExportedCsv);
    });
    EXPECT_GT(shortages, 0U);
    EXPECT_EQ(messages.asked.size(), 1U);
}

TEST_F(ShortMemoryManagementTest, AFailedImportOfANewListIsReported) {
    const std::size_t held = HeldWithEmptyList();
    const std::size_t shortages =
        RunWithEveryShortage([&] { management::ImportNewList(&record, kExportedList); },
                             [&](Shortage shortage) {
                                 EXPECT_LE(EntryCount(), kEntryCount);
                                 EXPECT_EQ(List().KindCount(), kKindCount);
                                 ExpectMessage(shortage);
                                 EXPECT_EQ(HeldWithEmptyList(), held);
                             });
    EXPECT_GT(shortages, 12U);
    EXPECT_EQ(EntryCount(), kEntryCount);
}

TEST_F(ShortMemoryManagementTest, AFailedImportIntoTheListIsReported) {
    for (const char* path : {kExportedList, kExportedCsv}) {
        const std::size_t held = HeldWithEmptyList();
        FillList();
        const std::size_t shortages =
            RunWithEveryShortage([&] { management::ImportIntoList(&record, path); },
                                 [&](Shortage shortage) {
                                     EXPECT_EQ(EntryCount(), kEntryCount);
                                     ExpectMessage(shortage);
                                     EXPECT_EQ(HeldWithEmptyList(), held);
                                     FillList();
                                 });
        EXPECT_GT(shortages, 0U);
        EXPECT_EQ(EntryCount(), kEntryCount);
    }
}

TEST_F(ShortMemoryManagementTest, ClearingAndUpdatingNeedNoMemory) {
    EXPECT_TRUE(NeedsNoMemory([] {
        management::SetCallToken(7);
        management::SetCallToken(0);
        management::BeginUpdate();
        management::DeclareParameter("PT1", "PT1");
        management::EndUpdate();
    }));
    EXPECT_EQ(EntryCount(), 1);
    EXPECT_TRUE(NeedsNoMemory([] { management::ClearList(); }));
    EXPECT_EQ(EntryCount(), 0);
}

TEST_F(ShortMemoryManagementTest, ADeclarationIsWholeOrHasNotBeen) {
    const std::size_t held = HeldWithEmptyList();
    FillList();
    management::BeginUpdate();
    const auto declare = [] { management::DeclareParameter("PT1", "PT777777"); };
    const std::size_t shortages = RunWithEveryShortage(declare, [&](Shortage) {
        List().SetDeclaredOnly(false);
        const char* place = TextOf("PT777777") == kLongText ? "PT777777" : "PT1";
        EXPECT_EQ(TextOf(place), kLongText);
        EXPECT_EQ(DescriptionOf(place), "name|comment");
        EXPECT_EQ(HeldWithEmptyList(), held);
        FillList();
        management::BeginUpdate();
    });
    EXPECT_GT(shortages, 0U);
    EXPECT_EQ(TextOf("PT777777"), kLongText);
    management::EndUpdate();
}

/// Writing a value that needs memory, in each way that there is.
struct Writing {
    const char* name;
    std::int32_t (*write)();
    const char* address;
    const char* text;
};

std::int32_t WriteSignalText() {
    std::array<char, 31 + 64> signal{"PT99"};
    std::strcpy(signal.data() + 31, kLongText);
    STDSIL_SetTextValue(signal.data());
    return 1;
}

std::int32_t WriteSignalVector() {
    std::array<char, 31 + 4> signal{"PL99"};
    signal[31] = 5;
    std::uint16_t count = 1;
    STDSIL_SetTXValue(signal.data(), &count);
    return 1;
}

std::int32_t WriteInForm() {
    std::array<char, 64> buffer{};
    std::strcpy(buffer.data(), kLongText);
    return management::SetValue("PT99", buffer.data(), buffer.size(), 5);
}

std::int32_t WriteFromText() {
    management::SetValueFromText("PT99", kLongText);
    return 1;
}

std::int32_t WriteDoubles() {
    const double value = 2.5;
    management::SetDoubleVector("PF99", &value, 1);
    return 1;
}

constexpr Writing kWritings[] = {
    {"SetValue", WriteInForm, "PT99", kLongText},
    {"SetValueFromText", WriteFromText, "PT99", kLongText},
    {"SetDoubleVector", WriteDoubles, "PF99", "2.5"},
    {"SetTextValue", WriteSignalText, "PT99", kLongText},
    {"SetTXValue", WriteSignalVector, "PL99", "5"},
    {"SetTextParaValue", [] { return STDSIL_SetTextParaValue("PT99", "n", "c", kLongText); },
     "PT99", kLongText},
    {"SetBitParaValue", [] { return STDSIL_SetBitParaValue("E99", "n", "c", 1); }, "E99", "1"},
    {"SetWordParaValue", [] { return STDSIL_SetWordParaValue("PW99", "n", "c", 7); }, "PW99", "7"},
    {"SetFloatParaValue", [] { return STDSIL_SetFloatParaValue("PF99", "n", "c", 0.5); }, "PF99",
     "0.5"},
    {"SetTXParaValue", [] { return STDSIL_SetTXParaValue("TIMEPARA99", "n", "c", 8); },
     "TIMEPARA99", "8"},
};

std::int32_t WriteIntoEmptyList(const Writing& writing) {
    test::SuspendShortage(true);
    management::ClearList();
    test::SuspendShortage(false);
    return writing.write();
}

TEST_F(ShortMemoryManagementTest, AValueIsWrittenWholeOrUndefined) {
    for (const Writing& writing : kWritings) {
        SCOPED_TRACE(writing.name);
        writing.write();  // has all texts loaded
        management::ClearList();
        const std::size_t held = HeldBlocks();
        std::int32_t result = 0;
        const auto write = [&] { result = WriteIntoEmptyList(writing); };
        const std::size_t shortages = RunWithEveryShortage(write, [&](Shortage) {
            const std::string text = TextOf(writing.address);
            EXPECT_TRUE(text == "none" || text.empty() || text == writing.text) << text;
            management::ClearList();
            EXPECT_EQ(HeldBlocks(), held);
        });
        EXPECT_GT(shortages, 0U);
        EXPECT_EQ(result, 1);
        EXPECT_EQ(TextOf(writing.address), writing.text);
    }
}

TEST_F(ShortMemoryManagementTest, AccessorsTellThatWritingFailed) {
    for (const Writing& writing : kWritings) {
        const bool hasResult =
            std::string_view(writing.name).ends_with("ParaValue") || writing.write == WriteInForm;
        if (!hasResult) {
            continue;
        }
        SCOPED_TRACE(writing.name);
        const std::size_t held = HeldWithEmptyList();
        std::int32_t result = 0;
        const std::size_t shortages =
            RunWithEveryShortage([&] { result = WriteIntoEmptyList(writing); },
                                 [&](Shortage) {
                                     EXPECT_EQ(result, 0);
                                     EXPECT_EQ(HeldWithEmptyList(), held);
                                 });
        EXPECT_GT(shortages, 0U);
        EXPECT_EQ(result, 1);
    }
}

TEST_F(ShortMemoryManagementTest, NumbersAndNamesAreReadWithoutMemory) {
    STDSIL_SetFloatParaValue("PF1", "n", "c", 0.1);
    STDSIL_SetWordParaValue("PW1", "n", "c", 7);
    STDSIL_SetTXParaValue("PL1", "n", "c", 9);
    std::array<char, 64> name{};
    std::array<char, 64> comment{};
    std::array<char, 64> signal{"PL1"};
    double number = 0;
    std::uint16_t word = 0;
    std::uint16_t bit = 0xFFFF;
    std::uint16_t count = 1;
    std::int32_t found = 0;
    EXPECT_TRUE(NeedsNoMemory([&] {
        found = STDSIL_GetValue("PF1", &number, sizeof number, 9) +
                STDSIL_GetSignalInfo("PT1", name.data(), comment.data()) +
                STDSIL_GetName("PT1", name.data(), name.size()) +
                STDSIL_GetComment("PT1", comment.data(), comment.size());
        management::GetName("PT1", name.data(), name.size());
        management::GetComment("PT1", comment.data(), comment.size());
        STDSIL_GetBitValue("E1", &bit);
        STDSIL_GetWordValue("PW1", &word);
        STDSIL_GetWordVector("PW1", &word, 0, &count);
        STDSIL_GetFloatValue("PF1", &count, &number);
        STDSIL_GetTXValue(signal.data(), &count);
    }));
    EXPECT_EQ(found, 4);
    EXPECT_STREQ(name.data(), "name");
    EXPECT_STREQ(comment.data(), "comment");
    EXPECT_EQ(number, 0.1);
    EXPECT_EQ(word, 7);
    EXPECT_EQ(bit, 0);
    EXPECT_EQ(signal[31], 9);
}

TEST_F(ShortMemoryManagementTest, ATextThatCannotBeReadIsEmpty) {
    std::array<char, 64> text{};
    std::array<char, 64> signal{"PT1"};
    std::int32_t result = 0;
    const std::size_t held = HeldBlocks();
    const auto get = [&] {
        text.fill('x');
        result = management::GetValue("PT1", text.data(), text.size(), 5);
    };
    const std::size_t shortages = RunWithEveryShortage(get, [&](Shortage) {
        EXPECT_EQ(result, 0);
        EXPECT_EQ(text[0], '\0');
        EXPECT_EQ(HeldBlocks(), held);
    });
    EXPECT_GT(shortages, 0U);
    EXPECT_EQ(result, 1);
    EXPECT_STREQ(text.data(), kLongText);
    const auto getIntoSignal = [&] {
        signal[35] = '\0';
        STDSIL_GetStringValue(signal.data());
    };
    const std::size_t signalShortages = RunWithEveryShortage(getIntoSignal, [&](Shortage) {
        EXPECT_EQ(signal[35], '\0');
        EXPECT_EQ(HeldBlocks(), held);
    });
    EXPECT_GT(signalShortages, 0U);
    EXPECT_EQ(std::string(signal.data() + 35), std::string(kLongText).substr(0, 17));
}

TEST_F(ShortMemoryManagementTest, NamesAreSetWithoutMemory) {
    std::int32_t result = 0;
    EXPECT_TRUE(NeedsNoMemory([&] {
        result = STDSIL_SetName("PT1", "a new name") + STDSIL_SetComment("PT1", kLongText);
    }));
    EXPECT_EQ(result, 2);
    EXPECT_EQ(DescriptionOf("PT1"), "a new name|" + std::string(kLongText).substr(0, 30));
    EXPECT_EQ(TextOf("PT1"), kLongText);
}

TEST_F(ShortMemoryManagementTest, AVectorIsSetUpToTheElementThatFailed) {
    constexpr std::uint32_t kCount = 20;
    const std::vector<double> values(kCount, 1.5);
    const auto entries = [] {
        std::uint32_t count = 0;
        while (TextOf("PF" + std::to_string(count + 1)) == "1.5") {
            ++count;
        }
        return count;
    };
    const auto write = [&] { management::SetDoubleVector("PF1", values.data(), kCount); };
    write();  // has the text loaded
    management::ClearList();
    const std::size_t held = HeldBlocks();
    const std::size_t shortages = RunWithEveryShortage(write, [&](Shortage) {
        const std::uint32_t count = entries();
        for (std::uint32_t number = 1; number < count; ++number) {  // the last may lack it
            EXPECT_EQ(DescriptionOf("PF" + std::to_string(number)),
                      "|Vektorelement " + std::to_string(number));
        }
        EXPECT_FALSE(Exists("PF" + std::to_string(count + 2)));
        management::ClearList();
        EXPECT_EQ(HeldBlocks(), held);
    });
    EXPECT_GT(shortages, 0U);
    EXPECT_EQ(entries(), kCount);
}

}  // namespace
}  // namespace orvell::host
