#include <cstring>

#include "management_fixture.h"
#include "unit/memstruct/temporary_folder.h"

namespace orvell::host {
namespace {

using platform::MessageSymbol;
using platform::RegistryRoot;
using test::FileText;
using test::WriteFile;

constexpr const char* kNotSaved = "Die Parameterliste konnte nicht gespeichert werden.";
constexpr const char* kNotImported =
    "Die ausgew\xE4hlte Parameterliste konnte nicht importiert werden.";
constexpr const char* kOneWord = " 0 PW 1 N : n\n D : 5\n C : c\n";

class ManagementFilesTest : public ManagementTest {
  protected:
    ConfigurationRecord Project(const char* path) {
        return {sizeof(ConfigurationRecord), &window, path};
    }

    /// The single message since the last call must be this error, owned by the record's window.
    void ExpectError(const std::string& text) {
        const std::vector<platform::Message> shown = TakeMessages();
        ASSERT_EQ(shown.size(), 1U);
        EXPECT_EQ(shown[0].text, text);
        EXPECT_EQ(shown[0].caption, "Fehler !");
        EXPECT_EQ(shown[0].symbol, MessageSymbol::Error);
        EXPECT_EQ(shown[0].owner, &window);
        EXPECT_FALSE(shown[0].topMost);
    }

    void Register(const std::string& command) {
        registry.texts[{RegistryRoot::ClassesRoot, ".csv", ""}] = "Table";
        registry.texts[{RegistryRoot::ClassesRoot, "Table\\SHELL\\OPEN\\COMMAND", ""}] = command;
    }

    test::TemporaryFolder folder;
    int window = 0;
    ConfigurationRecord project = Project("plant.prj");
};

TEST_F(ManagementFilesTest, SavesAndLoadsTheProjectsList) {
    BuildKinds();
    management::SetValueFromText("PW1", "5");
    management::SaveList(&project);
    management::ClearList();
    management::LoadList(&project);
    EXPECT_EQ(TextOf("PW1"), "5");
    EXPECT_EQ(List().ProjectName(), "plant.prj");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ManagementFilesTest, LoadingIsSilentWhateverHappens) {
    ConfigurationRecord missing = Project("gone.prj");
    ConfigurationRecord empty = Project("");
    for (ConfigurationRecord* record :
         {&missing, &empty, static_cast<ConfigurationRecord*>(nullptr)}) {
        management::LoadList(record);
        EXPECT_EQ(List().KindCount(), 15U);
        EXPECT_EQ(List().ProjectName(), "");
    }
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ManagementFilesTest, AFailedSaveNamesItsFile) {
    std::filesystem::create_directory("PLANT.SIL");
    management::SaveList(&project);
    ExpectError("Die Datei PLANT.SIL konnte nicht gespeichert werden.");
    EXPECT_EQ(List().ProjectName(), "plant.prj");
}

TEST_F(ManagementFilesTest, WithoutAPathThereIsNoFileToName) {
    ConfigurationRecord empty = Project("");
    management::SaveList(&empty);
    ExpectError(kNotSaved);
    ConfigurationRecord none = Project(nullptr);
    management::SaveList(&none);
    ExpectError(kNotSaved);
    none = project;
    none.size = 8;  // ends before the path
    management::SaveList(&none);
    ExpectError(kNotSaved);
}

TEST_F(ManagementFilesTest, WithoutAWindowErrorsAreTopMost) {
    management::SaveList(nullptr);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].owner, nullptr);
    EXPECT_TRUE(messages.shown[0].topMost);
    EXPECT_EQ(messages.shown[0].text, kNotSaved);
}

TEST_F(ManagementFilesTest, ImportsReportTheirCourse) {
    BuildKinds();
    management::SetValueFromText("PW1", "1");
    WriteFile("LIST.CSV", "PW1;n;5;;c\nPW2;n;5;;c\nXX1;\nPW1;n;five;;c\n");
    management::ImportIntoList(&project, "LIST.CSV");
    EXPECT_EQ(TextOf("PW1"), "5");
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(reported,
              (std::vector<std::string>{
                  "Importiere LIST.CSV ...",
                  "Zeile 2:   Warnung !   Der Parameter PW2 ist im Projekt nicht definiert !",
                  "Zeile 3:   Warnung !   Unbekannter Datentyp XX1 !",
                  "Zeile 4:   Warnung !   Ung\xFCltiger Parameterwert !", "3 Warnungen"}));
}

TEST_F(ManagementFilesTest, OnlyANewListCreatesParameters) {
    WriteFile("LIST.SIL", kOneWord);
    BuildKinds();
    management::ImportIntoList(&project, "LIST.SIL");
    EXPECT_FALSE(Exists("PW1"));
    management::SetValueFromText("PW2", "9");
    management::ImportNewList(&project, "LIST.SIL");
    EXPECT_EQ(TextOf("PW1"), "5");
    EXPECT_FALSE(Exists("PW2"));
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(List().ProjectName(), "") << "an import is no project";
}

TEST_F(ManagementFilesTest, FailedImportsAreTold) {
    for (const char* path : {"GONE.CSV", "GONE.SIL", "", static_cast<const char*>(nullptr)}) {
        management::ImportIntoList(&project, path);
        ExpectError(kNotImported);
        management::ImportNewList(&project, path);
        ExpectError(kNotImported);
    }
    EXPECT_TRUE(reported.empty());
}

TEST_F(ManagementFilesTest, ExportsInBothForms) {
    BuildKinds();
    management::SetValueFromText("PW1", "5");
    management::ExportList(&project, "out.csv");
    management::ExportList(&project, "out.txt");
    EXPECT_NE(FileText("out.csv").find("PW1;\"\";5;;\"\""), std::string::npos);
    EXPECT_TRUE(FileText("out.txt").starts_with("99     "));
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(messages.asked.empty()) << "slot 14 offers nothing";
}

TEST_F(ManagementFilesTest, FailedExportsAreTold) {
    Register("editor");
    std::filesystem::create_directory("FOLDER.csv");
    for (const char* path : {"FOLDER.csv", "", static_cast<const char*>(nullptr)}) {
        management::ExportList(&project, path);
        ExpectError(kNotSaved);
        management::ExportAndOpenList(&project, path);
        ExpectError(kNotSaved);
    }
    EXPECT_TRUE(messages.asked.empty());
}

TEST_F(ManagementFilesTest, WithoutAnEditorNothingIsOffered) {
    management::ExportAndOpenList(&project, "out.csv");
    EXPECT_FALSE(FileText("out.csv").empty());
    EXPECT_TRUE(messages.asked.empty());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ManagementFilesTest, TheUserIsAskedBeforeTheEditorStarts) {
    Register("\"C:\\Program Files\\table.exe\" \"%1\"");
    management::ExportAndOpenList(&project, "out.csv");
    ASSERT_EQ(messages.asked.size(), 1U);
    const platform::Message& question = messages.asked[0];
    EXPECT_EQ(question.text,
              "Soll die exportierte Datei mit dem registrierten Editor\n"
              "\"C:\\Program Files\\table.exe\" \"%1\"\nge\xF6"
              "ffnet werden ?");
    EXPECT_EQ(question.caption, "Orvell");
    EXPECT_EQ(question.symbol, MessageSymbol::Question);
    EXPECT_EQ(question.owner, &window);
    EXPECT_FALSE(question.topMost);
    EXPECT_TRUE(processes.started.empty()) << "the answer was No";

    messages.answer = true;
    management::ExportAndOpenList(&project, "out.csv");
    EXPECT_EQ(processes.started,
              (std::vector<std::string>{"\"C:\\Program Files\\table.exe\" \"out.csv\""}));
    EXPECT_TRUE(messages.shown.empty());

    management::ExportAndOpenList(nullptr, "out.csv");
    EXPECT_TRUE(messages.asked.back().topMost);
}

TEST_F(ManagementFilesTest, AnEditorThatDoesNotStartIsNamed) {
    Register("gone.exe %1");
    messages.answer = true;
    processes.canStart = false;
    management::ExportAndOpenList(&project, "out.csv");
    ExpectError("gone.exe %1 konnte nicht gestartet werden.");
}

TEST_F(ManagementFilesTest, FileSlotsRunOncePerToken) {
    BuildKinds();
    management::SetValueFromText("PW1", "1");
    WriteFile("LIST.SIL", kOneWord);
    management::SetCallToken(5);
    management::SaveList(&project);
    EXPECT_FALSE(FileText("PLANT.SIL").empty());
    std::filesystem::remove("PLANT.SIL");
    management::SaveList(&project);
    management::SaveList(nullptr);
    management::ExportList(&project, "OUT.SIL");
    management::ExportAndOpenList(&project, "OUT.SIL");
    management::ImportIntoList(&project, "LIST.SIL");
    management::ImportNewList(&project, "LIST.SIL");
    management::ImportNewList(&project, "");
    EXPECT_FALSE(test::Exists("PLANT.SIL"));
    EXPECT_FALSE(test::Exists("OUT.SIL"));
    EXPECT_EQ(TextOf("PW1"), "1");
    EXPECT_TRUE(messages.shown.empty());
    management::SetCallToken(6);
    management::ImportIntoList(&project, "LIST.SIL");
    EXPECT_EQ(TextOf("PW1"), "5");
}

/// Runs out of memory in the middle of a file: where the text for undefined values is needed.
class ShortOfMemory final : public resources::BuiltInStrings {
  public:
    std::string Load(std::uint32_t number) const override {
        if (number == 111) {
            management::SetValueFromText("PW1", "5");  // as if read before
            throw std::bad_alloc();
        }
        return BuiltInStrings::Load(number);
    }
};

TEST_F(ManagementFilesTest, ShortMemoryIsAFailureLikeAnyOther) {
    const ShortOfMemory strings;
    TheModule().strings.UseSource(strings);
    BuildKinds();
    WriteFile("LIST.SIL", kOneWord);
    management::ImportIntoList(&project, "LIST.SIL");
    ExpectError(kNotImported);
    management::ExportList(&project, "OUT.SIL");
    ExpectError(kNotSaved);
    management::SaveList(&project);
    ExpectError("Die Datei PLANT.SIL konnte nicht gespeichert werden.");
}

TEST_F(ManagementFilesTest, HalfALoadedListIsDropped) {
    const ShortOfMemory strings;
    TheModule().strings.UseSource(strings);
    WriteFile("PLANT.SIL", kOneWord);
    management::LoadList(&project);
    EXPECT_EQ(List().KindCount(), 15U);
    EXPECT_FALSE(Exists("PW1"));
    EXPECT_EQ(List().ProjectName(), "");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ManagementFilesTest, ARequestRepeatedWhileItsMessageIsOpenDoesNothing) {
    messages.whileOpen = [this] {
        ASSERT_LT(messages.shown.size(), 3U);
        management::SaveList(nullptr);
    };
    management::SetCallToken(1);
    management::SaveList(nullptr);
    EXPECT_EQ(messages.shown.size(), 1U);
}

}  // namespace
}  // namespace orvell::host
