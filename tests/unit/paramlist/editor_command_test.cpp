#include "paramlist/editor_command.h"

#include <gtest/gtest.h>

#include <map>
#include <tuple>

namespace orvell::paramlist {
namespace {

using platform::RegistryRoot;

class FakeRegistry final : public platform::Registry {
  public:
    std::optional<std::string> ReadText(RegistryRoot root, const std::string& key,
                                        const std::string& valueName) const override {
        const auto found = texts.find({root, key, valueName});
        return found == texts.end() ? std::nullopt : std::optional(found->second);
    }

    std::map<std::tuple<RegistryRoot, std::string, std::string>, std::string> texts;
};

struct EditorCommandTest : testing::Test {
    void Choose(const std::string& extension, const std::string& application) {
        const std::string key =
            "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\FileExts\\" + extension;
        registry_.texts[{RegistryRoot::CurrentUser, key, "Application"}] = application;
    }

    void AddClass(const std::string& key, const std::string& text) {
        registry_.texts[{RegistryRoot::ClassesRoot, key, ""}] = text;
    }

    FakeRegistry registry_;
};

TEST_F(EditorCommandTest, TheUsersChoiceComesFirst) {
    Choose(".csv", "calc.exe");
    AddClass("Applications\\calc.exe\\SHELL\\OPEN\\COMMAND", "calc \"%1\"");
    AddClass(".csv", "Table");
    AddClass("Table\\SHELL\\OPEN\\COMMAND", "table \"%1\"");
    EXPECT_EQ(FindEditorCommand(registry_, "C:\\x.y\\list.csv"), "calc \"%1\"");
}

TEST_F(EditorCommandTest, TheFileTypeServesWithoutAUsableChoice) {
    AddClass(".csv", "Table");
    AddClass("Table\\SHELL\\OPEN\\COMMAND", "table \"%1\"");
    EXPECT_EQ(FindEditorCommand(registry_, "list.csv"), "table \"%1\"");
    Choose(".csv", "");
    EXPECT_EQ(FindEditorCommand(registry_, "list.csv"), "table \"%1\"");
    Choose(".csv", "gone.exe");
    EXPECT_EQ(FindEditorCommand(registry_, "list.csv"), "table \"%1\"");
}

TEST_F(EditorCommandTest, WithoutACommandThereIsNoEditor) {
    EXPECT_EQ(FindEditorCommand(registry_, "list.csv"), "");
    AddClass(".csv", "Table");
    EXPECT_EQ(FindEditorCommand(registry_, "list.csv"), "") << "a type without a command";
    AddClass(".csv", "");
    AddClass("\\SHELL\\OPEN\\COMMAND", "wrong");
    EXPECT_EQ(FindEditorCommand(registry_, "list.csv"), "") << "an extension without a type";
    AddClass("", "Root");
    AddClass("Root\\SHELL\\OPEN\\COMMAND", "wrong");
    EXPECT_EQ(FindEditorCommand(registry_, "list"), "") << "no extension";
    EXPECT_EQ(FindEditorCommand(registry_, ""), "");
}

TEST(EditorCommandLine, ThePathTakesThePlaceLeftForIt) {
    EXPECT_EQ(EditorCommandLine("\"C:\\Program Files\\e.exe\" \"%1\"", "C:\\a b.csv"),
              "\"C:\\Program Files\\e.exe\" \"C:\\a b.csv\"");
    EXPECT_EQ(EditorCommandLine("e.exe %1 /x", "C:\\a b.csv"), "e.exe \"C:\\a b.csv\" /x");
    EXPECT_EQ(EditorCommandLine("e.exe %1 \"%1\"", "f"), "e.exe %1 \"f\"");
    EXPECT_EQ(EditorCommandLine("e.exe \"/open:%1\"", "a b"), "e.exe \"/open:a b\"");
    EXPECT_EQ(EditorCommandLine("e.exe %1 %1", "a%1b"), "e.exe \"a%1b\" %1");
}

TEST(EditorCommandLine, WithoutAPlaceThePathComesLast) {
    EXPECT_EQ(EditorCommandLine("e.exe", "a b"), "e.exe \"a b\"");
    EXPECT_EQ(EditorCommandLine("\"C:\\x y\\e.exe\" /x", "f"), "\"C:\\x y\\e.exe\" /x \"f\"");
    EXPECT_EQ(EditorCommandLine("e.exe %L", "f"), "e.exe %L \"f\"");
}

TEST(EditorCommandLine, ProgramsOfTheSystemLoseItsDirectory) {
    EXPECT_EQ(EditorCommandLine("%SystemRoot%\\system32\\notepad.exe %1", "f"),
              "system32\\notepad.exe \"f\"");
    EXPECT_EQ(EditorCommandLine("\"%SYSTEMROOT%\\a b\\e.exe\" \"%1\"", "f"),
              "\"a b\\e.exe\" \"f\"");
    EXPECT_EQ(EditorCommandLine("C:\\%SystemRoot%\\e.exe", "f"), "C:\\%SystemRoot%\\e.exe \"f\"");
    EXPECT_EQ(EditorCommandLine("%SystemRoot%", "f"), "%SystemRoot% \"f\"");
    EXPECT_EQ(EditorCommandLine("%SystemRoot%x\\e.exe", "f"), "%SystemRoot%x\\e.exe \"f\"");
}

TEST(EditorCommandLine, AnUnclosedProgramNameIsClosed) {
    EXPECT_EQ(EditorCommandLine("\"C:\\x y\\e.exe", "f"), "\"C:\\x y\\e.exe\" \"f\"");
}

}  // namespace
}  // namespace orvell::paramlist
