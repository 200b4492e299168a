#include "paramlist/project_list.h"

#include <gtest/gtest.h>

#include "paramlist/value_access.h"
#include "resources/built_in_strings.h"
#include "unit/memstruct/temporary_folder.h"

namespace orvell::paramlist {
namespace {

using test::Exists;
using test::FileText;
using test::WriteFile;
using SaveOutcome = ProjectList::SaveOutcome;

/// A record of a list file.
std::string Record(const std::string& keyword, int number, const std::string& value) {
    return " 0 " + keyword + " " + std::to_string(number) + " N : n\r\n D : " + value +
           "\r\n C : c\r\n";
}

class CountedWarnings final : public ImportWarnings {
  public:
    void Start(const std::string& path) override { started += path; }
    void Warning(resources::StringId, std::uint32_t, std::optional<std::string_view>) override {
        ++warnings;
    }
    void End(std::int32_t) override { isEnded = true; }

    std::string started;
    int warnings = 0;
    bool isEnded = false;
};

struct ProjectListTest : testing::Test {
    std::string TextOf(std::string_view address) {
        std::array<std::uint8_t, 64> buffer{};
        const bool isGiven = GetValue(list_, address, buffer, ValueForm::Text);
        return isGiven ? reinterpret_cast<const char*>(buffer.data()) : "none";
    }

    std::size_t EntryCount() const {
        std::size_t count = 0;
        for (const ParameterKind& kind : list_.Kinds()) {
            count += kind.EntryCount();
        }
        return count;
    }

    test::TemporaryFolder folder_;
    resources::BuiltInStrings source_;
    resources::StringTable strings_{source_};
    ParameterList list_{strings_};
    ProjectList projectList_{list_, strings_};
    CountedWarnings warnings_;
};

TEST_F(ProjectListTest, LoadsTheListFileBesideTheProject) {
    WriteFile("PLANT.SIL", Record("PW", 1, "5") + Record("E", 29, "1"));
    projectList_.Load("plant.prj");
    EXPECT_EQ(list_.KindCount(), 15U);
    EXPECT_EQ(TextOf("PW1"), "5");
    EXPECT_EQ(TextOf("E3.5"), "1");
    EXPECT_EQ(list_.ProjectName(), "plant.prj");
}

TEST_F(ProjectListTest, LoadingReplacesWhatWasThere) {
    WriteFile("PLANT.SIL", Record("PW", 1, "5"));
    projectList_.Load("plant.prj");
    ASSERT_TRUE(SetFromText(list_, "PW2", "9"));
    list_.SetDeclaredOnly(true);
    projectList_.Load("plant.prj");
    EXPECT_FALSE(list_.IsDeclaredOnly());
    EXPECT_EQ(EntryCount(), 1U);
    EXPECT_EQ(TextOf("PW1"), "5");
}

TEST_F(ProjectListTest, WithoutAReadableFileTheListIsEmptyAndNameless) {
    WriteFile("PLANT.SIL", Record("PW", 1, "5"));
    WriteFile("CUT.SIL", " 0 PW 1 N : n\r\n D : 5\r\n");
    for (const char* path : {"gone.prj", "cut.prj", ""}) {
        projectList_.Load("plant.prj");
        ASSERT_EQ(EntryCount(), 1U);
        projectList_.Load(path);
        EXPECT_EQ(list_.KindCount(), 15U) << path;
        EXPECT_EQ(EntryCount(), 0U) << path;
        EXPECT_EQ(list_.ProjectName(), "") << path;
    }
}

TEST_F(ProjectListTest, SavesTheListFileBesideTheProject) {
    list_.BuildKinds();
    ASSERT_TRUE(SetFromText(list_, "PW1", "5"));
    EXPECT_EQ(projectList_.Save("plant.prj"), SaveOutcome::Done);
    EXPECT_EQ(list_.ProjectName(), "plant.prj");
    const std::string text = FileText("PLANT.SIL");
    EXPECT_NE(text.find("97     Project: plant.prj\r\n"), std::string::npos) << text;
    EXPECT_NE(text.find("PW            1 N : %%\r\n"), std::string::npos) << text;
    projectList_.Clear();
    EXPECT_EQ(EntryCount(), 0U);
    projectList_.Load("plant.prj");
    EXPECT_EQ(TextOf("PW1"), "5");
}

TEST_F(ProjectListTest, AListWithoutKindsIsSavedAsItsHeader) {
    EXPECT_EQ(projectList_.Save("plant.prj"), SaveOutcome::Done);
    EXPECT_EQ(FileText("PLANT.SIL"),
              "99     ORVELL-PARAMETER-LIST-FILE-01\r\n98     Version_7.100\r\n"
              "97     Project: plant.prj\r\n");
}

TEST_F(ProjectListTest, SavingTellsWhyItFailed) {
    list_.SetProjectName("before");
    EXPECT_EQ(projectList_.Save(""), SaveOutcome::PathUnknown);
    EXPECT_EQ(list_.ProjectName(), "before");
    std::filesystem::create_directory("PLANT.SIL");
    EXPECT_EQ(projectList_.Save("plant.prj"), SaveOutcome::FileNotWritten);
    EXPECT_EQ(list_.ProjectName(), "plant.prj");
}

TEST_F(ProjectListTest, AnImportIntoTheListUpdatesOnly) {
    list_.BuildKinds();
    list_.SetProjectName("kept");
    ASSERT_TRUE(SetFromText(list_, "PW1", "1"));
    WriteFile("LIST.TXT", Record("PW", 1, "5") + Record("PW", 2, "6"));
    EXPECT_TRUE(projectList_.ImportIntoList("LIST.TXT", warnings_));
    EXPECT_EQ(TextOf("PW1"), "5");
    EXPECT_EQ(EntryCount(), 1U);
    WriteFile("LIST.Csv", "PW1;n;7;;c\r\nPW2;n;8;;c\r\n");
    EXPECT_TRUE(projectList_.ImportIntoList("LIST.Csv", warnings_));
    EXPECT_EQ(TextOf("PW1"), "7");
    EXPECT_EQ(EntryCount(), 1U);
    EXPECT_EQ(warnings_.started, "LIST.Csv");
    EXPECT_EQ(warnings_.warnings, 1);
    EXPECT_TRUE(warnings_.isEnded);
    EXPECT_EQ(list_.ProjectName(), "kept");
}

TEST_F(ProjectListTest, ANewListIsImportedIntoAnEmptiedOne) {
    WriteFile("LIST.TXT", Record("PW", 1, "5"));
    EXPECT_TRUE(projectList_.ImportNewList("LIST.TXT", warnings_));
    EXPECT_EQ(list_.KindCount(), 15U);
    EXPECT_EQ(TextOf("PW1"), "5");
    ASSERT_TRUE(SetFromText(list_, "PW2", "9"));
    list_.SetDeclaredOnly(true);
    EXPECT_TRUE(projectList_.ImportNewList("LIST.TXT", warnings_));
    EXPECT_TRUE(list_.IsDeclaredOnly()) << "only loading ends the mode";
    EXPECT_EQ(EntryCount(), 1U);
    WriteFile("LIST.CSV", "PW1;n;7;;c\r\n");
    EXPECT_TRUE(projectList_.ImportNewList("LIST.CSV", warnings_));
    EXPECT_EQ(EntryCount(), 0U) << "a CSV file creates nothing";
    EXPECT_EQ(warnings_.warnings, 1);
}

TEST_F(ProjectListTest, FailedImportsReportNoCourse) {
    list_.BuildKinds();
    ASSERT_TRUE(SetFromText(list_, "PW1", "1"));
    WriteFile("CUT.TXT", " 0 PW 1 N : n\r\n D : 5\r\n");
    for (const std::string path : {"", "GONE.TXT", "GONE.CSV", "CUT.TXT"}) {
        EXPECT_FALSE(projectList_.ImportIntoList(path, warnings_)) << path;
        EXPECT_EQ(TextOf("PW1"), "1") << path;
    }
    EXPECT_FALSE(projectList_.ImportNewList("GONE.CSV", warnings_));
    EXPECT_EQ(EntryCount(), 0U) << "the list has been emptied by then";
    EXPECT_EQ(warnings_.started, "");
    EXPECT_FALSE(warnings_.isEnded);
}

TEST_F(ProjectListTest, TheExtensionChoosesTheFormOfAnExport) {
    list_.BuildKinds();
    list_.SetProjectName("plant");
    ASSERT_TRUE(SetFromText(list_, "PW1", "5"));
    list_.SetDeclaredOnly(true);
    EXPECT_TRUE(projectList_.Export("OUT.cSV"));
    EXPECT_TRUE(FileText("OUT.cSV").starts_with("Version:;"));
    EXPECT_NE(FileText("OUT.cSV").find("PW1;\"\";5;;\"\"\r\n"), std::string::npos);
    EXPECT_TRUE(projectList_.Export("OUT"));
    EXPECT_TRUE(FileText("OUT").starts_with("99     "));
    EXPECT_FALSE(projectList_.Export(""));
    std::filesystem::create_directory("FOLDER.CSV");
    EXPECT_FALSE(projectList_.Export("FOLDER.CSV"));
}

}  // namespace
}  // namespace orvell::paramlist
