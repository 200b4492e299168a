#include <gtest/gtest.h>

#include <vector>

#include "message_watcher.h"
#include "module_host.h"

namespace orvell::test {
namespace {

constexpr const char* kNotSaved = "The parameter list could not be saved.";
constexpr const char* kNotImported = "The selected parameter list could not be imported.";

struct Value {
    const char* address;
    const char* text;
};

/// One of each kind.
constexpr Value kValues[] = {
    {"E3.5", "1"},
    {"A0.0", "0"},
    {"B12.7", "1"},
    {"UCHARPARA1", "255"},
    {"PW12", "-5"},
    {"PL4294967295", "-2147483648"},
    {"INT64PARA3", "-9223372036854775808"},
    {"PF2", "0.1"},
    {"DOUBLEPARA2", "1e+20"},
    {"PT7", "\xC4pfel; \"Birnen\""},
    {"TIMEPARA1", "-1"},
    {"DATEPARA1", "1608768000"},
    {"TODPARA1", "23400"},
    {"DTPARA1", "1608791400"},
    {"OLEDTPARA1", "44189.28125"},
};

class ListFilesTest : public testing::Test {
  protected:
    ListFilesTest() {
        stage.SetUpEverything();
        module = std::make_unique<LoadedModule>(stage);
        slots = module->Management();
        slots.LoadList(nullptr);
    }

    void SetAll() const {
        for (const auto& [address, text] : kValues) {
            slots.SetValueFromText(address, text);
            module->Export<decltype(&STDSIL_SetName)>("STDSIL_SetName")(address, "F\xFCllstand 1");
        }
    }

    void ChangeAll() const {
        for (const auto& [address, text] : kValues) {
            slots.SetValueFromText(address, "7");
            module->Export<decltype(&STDSIL_SetName)>("STDSIL_SetName")(address, "other");
        }
    }

    std::string TextOf(const char* address) const {
        char text[64] = "";
        return slots.GetValue(address, text, sizeof text, 5) == 1 ? text : "none";
    }

    void ExpectAll() const {
        for (const auto& [address, text] : kValues) {
            EXPECT_EQ(TextOf(address), text) << address;
            char name[16] = "";
            slots.GetName(address, name, sizeof name);
            EXPECT_STREQ(name, "F\xFCllstand 1") << address;
        }
    }

    /// The texts of all messages since the last call.
    std::vector<std::string> TakeTexts() {
        std::vector<std::string> texts;
        for (const MessageWatcher::Box& box : watcher.TakeBoxes()) {
            texts.push_back(box.text);
        }
        return texts;
    }

    Stage stage;
    MessageWatcher watcher;
    std::unique_ptr<LoadedModule> module;
    ManagementTable slots;
    const std::string listPath = stage.Path("list.txt");
    const std::string csvPath = stage.Path("list.csv");
};

TEST_F(ListFilesTest, AListFileBringsEveryKindBackIntoANewList) {
    SetAll();
    slots.ExportList(nullptr, listPath.c_str());
    const std::string before = stage.Read("list.txt");
    slots.ClearList();
    EXPECT_EQ(TextOf("PW12"), "none");
    slots.ImportNewList(nullptr, listPath.c_str());
    ExpectAll();
    slots.ExportList(nullptr, listPath.c_str());
    EXPECT_EQ(stage.Read("list.txt"), before);
    EXPECT_EQ(TakeTexts(), std::vector<std::string>());
}

TEST_F(ListFilesTest, ACsvFileBringsEveryKindBackIntoTheList) {
    SetAll();
    slots.ExportList(nullptr, csvPath.c_str());
    const std::string before = stage.Read("list.csv");
    ChangeAll();
    slots.ImportIntoList(nullptr, csvPath.c_str());
    ExpectAll();
    slots.ExportList(nullptr, csvPath.c_str());
    EXPECT_EQ(stage.Read("list.csv"), before);
    EXPECT_EQ(TakeTexts(), std::vector<std::string>());
}

TEST_F(ListFilesTest, OthersMayReadAndWriteAFileThatIsImported) {
    SetAll();
    slots.ExportList(nullptr, listPath.c_str());
    slots.ExportList(nullptr, csvPath.c_str());
    for (const std::string& path : {listPath, csvPath}) {
        ChangeAll();
        const OpenFile open(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                            OPEN_EXISTING);
        slots.ImportIntoList(nullptr, path.c_str());
        ExpectAll();
    }
    EXPECT_EQ(TakeTexts(), std::vector<std::string>());
}

TEST_F(ListFilesTest, FilesThatOthersKeepToThemselvesAreFailures) {
    SetAll();
    for (const std::string& path : {listPath, csvPath}) {
        const OpenFile open(path, GENERIC_WRITE, 0, CREATE_ALWAYS);
        slots.ExportList(nullptr, path.c_str());
        EXPECT_EQ(TakeTexts(), std::vector<std::string>{kNotSaved});
        slots.ImportIntoList(nullptr, path.c_str());
        EXPECT_EQ(TakeTexts(), std::vector<std::string>{kNotImported});
    }
    ExpectAll();
}

TEST_F(ListFilesTest, AFileThatOthersMayWriteToIsNotWritten) {
    SetAll();
    const OpenFile open(csvPath, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, CREATE_ALWAYS);
    slots.ExportList(nullptr, csvPath.c_str());
    EXPECT_EQ(TakeTexts(), std::vector<std::string>{kNotSaved}) << "two would write at once";
    EXPECT_EQ(stage.Read("list.csv"), "");
}

TEST_F(ListFilesTest, NoFileStaysOpen) {
    SetAll();
    slots.ExportList(nullptr, listPath.c_str());
    slots.ExportList(nullptr, csvPath.c_str());
    slots.ImportIntoList(nullptr, listPath.c_str());
    slots.ImportIntoList(nullptr, csvPath.c_str());
    for (const std::string& path : {listPath, csvPath}) {
        const OpenFile alone(path, GENERIC_READ | GENERIC_WRITE, 0, OPEN_EXISTING);
    }
}

}  // namespace
}  // namespace orvell::test
