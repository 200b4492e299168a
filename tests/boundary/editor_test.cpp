#include <gtest/gtest.h>

#include "message_watcher.h"
#include "module_host.h"

namespace orvell::test {
namespace {

constexpr const char* kExtension = ".orvelltest";
constexpr const char* kFileType = "OrvellTest.List";
constexpr const char* kApplication = "orvell-test-editor.exe";
constexpr const char* kChoice =
    "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\FileExts\\.orvelltest";

std::string CommandKey(const std::string& classKey) {
    return classKey + "\\shell\\open\\command";
}

/// Removes every key that the tests make, before and after them.
void ForgetEditors() {
    RegDeleteTreeA(HKEY_CLASSES_ROOT, kExtension);
    RegDeleteTreeA(HKEY_CLASSES_ROOT, kFileType);
    RegDeleteTreeA(HKEY_CLASSES_ROOT, (std::string("Applications\\") + kApplication).c_str());
    RegDeleteTreeA(HKEY_CURRENT_USER, kChoice);
}

/// `data` goes into the registry as it is, with or without a closing NUL.
void Put(HKEY root, const std::string& path, const char* name, DWORD type,
         const std::wstring& data) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExA(root, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    const std::wstring wideName(name, name + std::strlen(name));
    EXPECT_EQ(
        RegSetValueExW(key, wideName.c_str(), 0, type, reinterpret_cast<const BYTE*>(data.data()),
                       static_cast<DWORD>(data.size() * sizeof(wchar_t))),
        ERROR_SUCCESS);
    RegCloseKey(key);
}

std::wstring WithNul(const std::string& text) {
    return std::wstring(text.begin(), text.end()) + L'\0';
}

/// The offer to open an exported file, with editors in the real registry.
class EditorTest : public testing::Test {
  protected:
    EditorTest() : started(CreateEventA(nullptr, FALSE, FALSE, EventName().c_str())) {
        ForgetEditors();
        stage.SetUpEverything();
        stage.PutFake("editor/recording_editor.exe");
        Stage::Set("FAKE_EDITOR_RECORD", stage.Path("record.txt"));
        Stage::Set("FAKE_EDITOR_DONE", EventName());
        module = std::make_unique<LoadedModule>(stage);
        slots = module->Management();
    }

    ~EditorTest() override {
        ForgetEditors();
        CloseHandle(started);
    }

    static std::string EventName() {
        return "orvell-editor-" + std::to_string(GetCurrentProcessId());
    }

    void RegisterType(const std::string& command, DWORD type = REG_SZ) {
        Put(HKEY_CLASSES_ROOT, kExtension, "", REG_SZ, WithNul(kFileType));
        Put(HKEY_CLASSES_ROOT, CommandKey(kFileType), "", type, WithNul(command));
    }

    void Export() {
        ConfigurationRecord record{sizeof(record), nullptr, nullptr};
        slots.ExportAndOpenList(&record, file.c_str());
        EXPECT_TRUE(stage.Has("my list.orvelltest"));
    }

    /// The command line that the recording editor got; waits for it to have been written.
    std::string StartedAs() {
        constexpr DWORD kLongEnough = 60000;
        EXPECT_EQ(WaitForSingleObject(started, kLongEnough), WAIT_OBJECT_0) << "no editor started";
        return stage.Read("record.txt");
    }

    /// The text of the single question since the last call.
    std::string TakeQuestion() {
        const std::vector<MessageWatcher::Box> boxes = watcher.TakeBoxes();
        EXPECT_EQ(boxes.size(), 1U);
        if (boxes.size() != 1) {
            return "";
        }
        EXPECT_TRUE(boxes[0].isQuestion);
        EXPECT_EQ(boxes[0].caption, "Orvell");
        return boxes[0].text;
    }

    static std::string Question(const std::string& command) {
        return "Should the exported file be opened with the registered editor\n" + command + " ?";
    }

    Stage stage;
    MessageWatcher watcher;
    std::unique_ptr<LoadedModule> module;
    ManagementTable slots;
    HANDLE started;
    const std::string editor = stage.Path("recording_editor.exe");
    const std::string file = stage.Path("my list.orvelltest");
};

TEST_F(EditorTest, WithoutARegisteredEditorNothingIsAsked) {
    Export();
    EXPECT_TRUE(watcher.Boxes().empty());
}

TEST_F(EditorTest, TheFileTypesEditorIsStartedAfterYes) {
    const std::string command = "\"" + editor + "\" /list \"%1\" /end";
    RegisterType(command);
    Export();
    EXPECT_EQ(TakeQuestion(), Question(command));
    EXPECT_FALSE(stage.Has("record.txt")) << "the answer was No";
    watcher.AnswerYes(true);
    Export();
    EXPECT_EQ(TakeQuestion(), Question(command));
    EXPECT_EQ(StartedAs(), "\"" + editor + "\" /list \"" + file + "\" /end");
}

TEST_F(EditorTest, TheUsersChoiceComesBeforeTheFileType) {
    RegisterType("wrong.exe %1");
    const std::string command = editor + " %1";
    Put(HKEY_CURRENT_USER, kChoice, "Application", REG_SZ, WithNul(kApplication));
    Put(HKEY_CLASSES_ROOT, CommandKey(std::string("Applications\\") + kApplication), "", REG_SZ,
        WithNul(command));
    watcher.AnswerYes(true);
    Export();
    EXPECT_EQ(TakeQuestion(), Question(command));
    EXPECT_EQ(StartedAs(), editor + " \"" + file + "\"");
}

TEST_F(EditorTest, AChoiceWithoutACommandLeavesTheFileType) {
    RegisterType("editor.exe %1");
    Put(HKEY_CURRENT_USER, kChoice, "Application", REG_SZ, WithNul(kApplication));
    Export();
    EXPECT_EQ(TakeQuestion(), Question("editor.exe %1"));
}

TEST_F(EditorTest, EditorsOfTheSystemAreFoundOnTheSearchPath) {
    char windows[MAX_PATH] = "";
    ASSERT_NE(GetWindowsDirectoryA(windows, MAX_PATH), 0U);
    const std::string copy = std::string(windows) + "\\" + kApplication;
    ASSERT_TRUE(CopyFileA(editor.c_str(), copy.c_str(), FALSE));
    const std::string command = std::string("%SystemRoot%\\") + kApplication + " %1";
    RegisterType(command, REG_EXPAND_SZ);
    watcher.AnswerYes(true);
    Export();
    EXPECT_EQ(TakeQuestion(), Question(command));
    EXPECT_EQ(StartedAs(), kApplication + std::string(" \"") + file + "\"");
    while (!DeleteFileA(copy.c_str()) && GetLastError() == ERROR_ACCESS_DENIED) {
        Sleep(10);  // the editor is still going down
    }
}

TEST_F(EditorTest, AnEditorThatDoesNotStartIsNamed) {
    const std::string command = stage.Path("gone.exe") + " \"%1\"";
    RegisterType(command);
    watcher.AnswerYes(true);
    Export();
    const std::vector<MessageWatcher::Box> boxes = watcher.TakeBoxes();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_TRUE(boxes[0].isQuestion);
    EXPECT_FALSE(boxes[1].isQuestion);
    EXPECT_EQ(boxes[1].text, command + " could not be started.");
    EXPECT_EQ(boxes[1].caption, "Error !");
}

TEST_F(EditorTest, LongCommandsAreReadWhole) {
    const std::string command = "\"" + editor + "\" " + std::string(700, 'x') + " %1";
    RegisterType(command);
    watcher.AnswerYes(true);
    Export();
    EXPECT_EQ(TakeQuestion(), Question(command));
    EXPECT_EQ(StartedAs(), "\"" + editor + "\" " + std::string(700, 'x') + " \"" + file + "\"");
}

TEST_F(EditorTest, TextsWithoutAClosingNulAreReadToTheirEnd) {
    Put(HKEY_CLASSES_ROOT, kExtension, "", REG_SZ, L"OrvellTest.List");
    Put(HKEY_CLASSES_ROOT, CommandKey(kFileType), "", REG_SZ, L"editor.exe %1");
    Export();
    EXPECT_EQ(TakeQuestion(), Question("editor.exe %1"));
}

TEST_F(EditorTest, OnlyTextsNameAnEditor) {
    RegisterType("editor.exe %1", REG_BINARY);
    Export();
    EXPECT_TRUE(watcher.TakeBoxes().empty());
    RegisterType("editor.exe %1", REG_MULTI_SZ);
    Export();
    EXPECT_TRUE(watcher.TakeBoxes().empty());
    RegisterType("");
    Export();
    EXPECT_TRUE(watcher.TakeBoxes().empty());
}

TEST_F(EditorTest, ThePlainExportOffersNothing) {
    RegisterType("editor.exe %1");
    slots.ExportList(nullptr, file.c_str());
    EXPECT_TRUE(stage.Has("my list.orvelltest"));
    EXPECT_TRUE(watcher.Boxes().empty());
}

}  // namespace
}  // namespace orvell::test
