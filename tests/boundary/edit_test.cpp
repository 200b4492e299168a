// Editing a parameter through the loaded module: its own dialog, worked from outside.

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <vector>

#include "message_watcher.h"
#include "module_host.h"
#include "resources/dialog_ids.h"
#include "support/dialog_user.h"

namespace orvell::test {
namespace {

constexpr const char* kDefinitions =
    "Definitions\n"
    "\tTypeList\n"
    "\t\tType|Name=Word|BaseType=UINT|Size=2\n"
    "\t\tType|Name=Loop|BaseType=Structured\n"
    "\t\t\tItem|Name=self|Type=Loop\n"
    "\tMemoryList\n"
    "\t\tMemory|ID=17|Type=Word\n"
    "\t\tMemory|ID=18|Type=Loop\n";

std::vector<std::uint16_t> written;

std::int32_t ORVELL_CALL Put16(std::uint32_t, std::uint32_t, std::uint16_t value) {
    written.push_back(value);
    return 1;
}

class EditTest : public testing::Test {
  protected:
    EditTest() {
        stage.SetUpEverything();
        stage.Write("PLANT.STDMEMXML", kDefinitions);
        Load();
        online.size = sizeof(online);
        online.alternative.Put16 = Put16;
        written.clear();
        SetRecord(17, {5, 0});
    }

    ~EditTest() override {
        slots.FreeStdMemory(record.bytes);
        slots.FreeStdMemory(record.block);
    }

    void Load() {
        module = std::make_unique<LoadedModule>(stage);
        slots = module->Slots();
        const std::string project = stage.Path("plant.prj");
        ConfigurationRecord configuration{sizeof(configuration), nullptr, project.c_str()};
        slots.LoadStdMemConfig(&configuration, 1);
    }

    void SetRecord(std::int32_t identifier, const std::vector<std::uint8_t>& value) {
        record = {};
        record.size = sizeof(record);
        record.identifier = identifier;
        record.count = static_cast<std::uint32_t>(value.size() / 2);
        record.length = static_cast<std::uint32_t>(value.size());
        record.bytes = std::malloc(value.size());
        std::memcpy(record.bytes, value.data(), value.size());
        record.blockLength = 3;
        record.block = std::malloc(3);
    }

    [[nodiscard]] std::vector<std::uint8_t> Value() const {
        const auto* bytes = static_cast<const std::uint8_t*>(record.bytes);
        return {bytes, bytes + record.length};
    }

    std::int32_t EditWith(const std::function<void(const DialogUser&)>& script) {
        std::int32_t result = -1;
        WorkDialogs([&] { result = slots.EditStdParameter(&record, &online); }, script);
        return result;
    }

    [[nodiscard]] static HWND Dialog(const DialogUser& user) {
        return user.Dialog(ORVELL_VALUE_GRID);
    }

    Stage stage;
    std::unique_ptr<LoadedModule> module;
    StdParaFunctionTable slots{};
    DialogParameterRecord record{};
    OnlineAccessRecord online{};
};

TEST_F(EditTest, AcceptingChangesTheHostsRecord) {
    const void* block = record.block;
    record.boxWidth = 12;
    record.mode = 1;
    EXPECT_EQ(EditWith([](const DialogUser& user) {
                  const HWND dialog = Dialog(user);
                  user.OnThread(
                      [&] { SendDlgItemMessageW(dialog, ORVELL_VECTOR_CHECK, BM_CLICK, 0, 0); });
                  user.SetText(dialog, ORVELL_VECTOR_LENGTH_EDIT, "3");
                  user.SetText(dialog, ORVELL_BOX_WIDTH_EDIT, "21");
                  user.Press(dialog, IDOK);
              }),
              1);
    EXPECT_EQ(record.size, sizeof(record));
    EXPECT_EQ(record.count, 3U);
    EXPECT_EQ(Value(), (std::vector<std::uint8_t>{5, 0, 0, 0, 0, 0}));
    EXPECT_EQ(record.boxWidth, 25U);
    EXPECT_EQ(record.block, block);
    EXPECT_EQ(record.blockLength, 3U);
}

TEST_F(EditTest, CancellingLeavesEveryWord) {
    record.boxWidth = 12;
    record.format = 0x7F;
    record.name = "Pump";
    const DialogParameterRecord before = record;
    EXPECT_EQ(EditWith([](const DialogUser& user) { user.Press(Dialog(user), IDCANCEL); }), 0);
    EXPECT_EQ(std::memcmp(&record, &before, sizeof(before)), 0);
    EXPECT_EQ(Value(), (std::vector<std::uint8_t>{5, 0}));
}

TEST_F(EditTest, TheHostsRecordIsEmptyMeanwhile) {
    EXPECT_EQ(EditWith([this](const DialogUser& user) {
                  const HWND dialog = Dialog(user);
                  EXPECT_EQ(record.size, sizeof(record));
                  EXPECT_EQ(record.bytes, nullptr);
                  EXPECT_EQ(record.identifier, 0);
                  user.Press(dialog, IDCANCEL);
              }),
              0);
}

TEST_F(EditTest, OnlineASingleValueReachesTheTarget) {
    record.mode = 3;
    EXPECT_EQ(EditWith([](const DialogUser& user) { user.Press(Dialog(user), IDOK); }), 1);
    EXPECT_EQ(written, (std::vector<std::uint16_t>{5}));
}

TEST_F(EditTest, OnlineAVectorReachesTheTarget) {
    slots.FreeStdMemory(record.bytes);
    slots.FreeStdMemory(record.block);
    SetRecord(17, {1, 0, 2, 0, 3, 0});
    record.mode = 3;
    EXPECT_EQ(EditWith([](const DialogUser& user) { user.Press(Dialog(user), IDOK); }), 1);
    EXPECT_EQ(written, (std::vector<std::uint16_t>{1, 2, 3}));
}

TEST_F(EditTest, TheLanguageLibraryGivesDialogAndMessages) {
    EXPECT_EQ(EditWith([](const DialogUser& user) {
                  const HWND dialog = Dialog(user);
                  EXPECT_EQ(user.Text(dialog, IDCANCEL), "Cancel");
                  user.Press(dialog, IDCANCEL);
              }),
              0);
    record.identifier = 99;
    EXPECT_EQ(EditWith([](const DialogUser& user) {
                  EXPECT_EQ(user.AnswerBox(),
                            "No memory-structure definition was found for the ID 99.");
              }),
              0);
    record.identifier = 18;
    EXPECT_EQ(EditWith([](const DialogUser& user) {
                  EXPECT_NE(user.AnswerBox().find("Loop"), std::string::npos);
              }),
              0);
}

TEST_F(EditTest, WithoutALanguageLibraryTheDialogIsGerman) {
    module.reset();
    Stage::Set("FAKE_TOOL_LANGUAGE_PATH", "");
    {
        const MessageWatcher answering;  // no other thread can answer while the module loads
        Load();
    }
    EXPECT_EQ(EditWith([](const DialogUser& user) {
                  const HWND dialog = Dialog(user);
                  EXPECT_EQ(user.Text(dialog, IDCANCEL), "Abbrechen");
                  user.Press(dialog, IDCANCEL);
              }),
              0);
}

TEST_F(EditTest, NullAndDeadWindowsGiveNoDialog) {
    WorkDialogs([&] { EXPECT_EQ(slots.EditStdParameter(nullptr, nullptr), 0); },
                [](const DialogUser&) {});
    record.owner = reinterpret_cast<void*>(0x7FFF1234);
    const DialogParameterRecord before = record;
    EXPECT_EQ(EditWith([](const DialogUser&) {}), 0);
    EXPECT_EQ(std::memcmp(&record, &before, sizeof(before)), 0);
}

TEST_F(EditTest, AShortRecordIsReadAndWrittenAsFarAsItReaches) {
    for (const std::uint32_t size : {20U, 34U}) {  // before the value, and inside its pointer
        const GuardedBytes memory(size);
        DialogParameterRecord full = record;
        full.size = size;
        std::memcpy(memory.Data(), &full, size);
        auto* hostRecord = reinterpret_cast<DialogParameterRecord*>(memory.Data());
        if (size >= 28) {  // this block goes to the module
            hostRecord->block = std::malloc(3);
        }
        std::int32_t result = 0;
        WorkDialogs([&] { result = slots.EditStdParameter(hostRecord, nullptr); },
                    [](const DialogUser& user) { user.Press(Dialog(user), IDOK); });
        EXPECT_EQ(result, 1) << size;
        EXPECT_EQ(hostRecord->size, size);
        EXPECT_EQ(hostRecord->identifier, 17) << size;
        EXPECT_EQ(hostRecord->count, 1U) << size;
        if (size >= 28) {
            slots.FreeStdMemory(hostRecord->block);
        }
    }
}

TEST_F(EditTest, AModuleLoadedAgainHasItsDialogAgain) {
    for (int life = 0; life < 3; ++life) {
        EXPECT_EQ(EditWith([](const DialogUser& user) { user.Press(Dialog(user), IDOK); }), 1);
        module.reset();
        Load();
    }
}

TEST_F(EditTest, TwoModulesHaveTheirOwnDialogs) {
    const std::string second = stage.Path("SECOND.DLL");
    ASSERT_TRUE(CopyFileA(stage.Path("ORVELL.DLL").c_str(), second.c_str(), FALSE));
    EXPECT_EQ(EditWith([](const DialogUser& user) { user.Press(Dialog(user), IDOK); }), 1);
    const HMODULE library = LoadLibraryA(second.c_str());
    ASSERT_NE(library, nullptr);
    StdParaFunctionTable others{};
    others.size = sizeof(others);
    reinterpret_cast<decltype(&GetStdParaFctns)>(
        reinterpret_cast<void*>(GetProcAddress(library, "GetStdParaFctns")))(&others);
    const std::string project = stage.Path("plant.prj");
    ConfigurationRecord configuration{sizeof(configuration), nullptr, project.c_str()};
    others.LoadStdMemConfig(&configuration, 1);
    std::int32_t result = 0;
    WorkDialogs([&] { result = others.EditStdParameter(&record, &online); },
                [](const DialogUser& user) { user.Press(Dialog(user), IDOK); });
    EXPECT_EQ(result, 1);
    FreeLibrary(library);
    EXPECT_EQ(EditWith([](const DialogUser& user) { user.Press(Dialog(user), IDOK); }), 1);
}

}  // namespace
}  // namespace orvell::test
