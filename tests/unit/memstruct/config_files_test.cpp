#include "memstruct/config_files.h"

#include "memstruct_fixture.h"
#include "temporary_folder.h"

namespace orvell::test {
namespace {

using memstruct::ConfigFiles;
using memstruct::ConfigOutcome;

constexpr const char* kProject = "proj\\plant.prj";
constexpr const char* kProjectFile = "PROJ\\PLANT.STDMEMXML";
constexpr const char* kSourceFile = "OUT\\PLANT.STDMEMXML";

class ConfigFilesTest : public MemstructTest {
  protected:
    ConfigFilesTest() {
        for (const char* directory : {"PROJ", "NEW", "OUT"}) {
            std::filesystem::create_directory(directory);
        }
        store.SetDefaultPath("DEFAULT.XML");
    }

    /// A file with one type of this name and a memory area.
    static std::string OneType(const std::string& name, const std::string& id) {
        return "<Definitions><TypeList><Type Name=\"" + name +
               "\" BaseType=\"INT\"/></TypeList><MemoryList><Memory ID=\"" + id + "\" Type=\"" +
               name + "\"/></MemoryList></Definitions>";
    }

    /// Names of the types in the store after the implicit ones.
    [[nodiscard]] std::string OwnTypes() const {
        std::string names;
        for (const memstruct::TypeDef& type : store.Types()) {
            names += type.name + ' ';
        }
        const std::string implicit = "FLOAT DOUBLE DURATION TIME ";
        return names.starts_with(implicit) ? names.substr(implicit.size()) : "no implicit types";
    }

    TemporaryFolder folder;
    ConfigFiles files{store, xml};
};

TEST_F(ConfigFilesTest, LoadsTheProjectsFile) {
    WriteFile(kProjectFile, OneType("Own", "1"));
    WriteFile("DEFAULT.XML", OneType("Default", "2"));
    EXPECT_EQ(files.Load(kProject), ConfigOutcome::Done);
    EXPECT_EQ(OwnTypes(), "Own ");
    EXPECT_EQ(store.GetCurrentPath(), kProjectFile);
}

TEST_F(ConfigFilesTest, LoadsTheDefaultFileForAProjectWithoutOne) {
    WriteFile("DEFAULT.XML", OneType("Default", "2"));
    EXPECT_EQ(files.Load(kProject), ConfigOutcome::Done);
    EXPECT_EQ(OwnTypes(), "Default ");
    EXPECT_EQ(store.GetCurrentPath(), "");
}

TEST_F(ConfigFilesTest, LoadsWithoutAnyFile) {
    EXPECT_EQ(files.Load(kProject), ConfigOutcome::Done);
    EXPECT_EQ(OwnTypes(), "");
}

TEST_F(ConfigFilesTest, LoadingWithoutAPathLeavesTheStoreAsItIs) {
    WriteFile(kProjectFile, OneType("Own", "1"));
    ASSERT_EQ(files.Load(kProject), ConfigOutcome::Done);
    EXPECT_EQ(files.Load(""), ConfigOutcome::PathUnknown);
    EXPECT_EQ(OwnTypes(), "Own ");
    EXPECT_EQ(store.GetCurrentPath(), kProjectFile);
}

TEST_F(ConfigFilesTest, LoadingABrokenFileFailsWithTheLibrarysReason) {
    WriteFile(kProjectFile, "<Definitions><TypeList></Definitions>");
    EXPECT_EQ(files.Load(kProject), ConfigOutcome::Failed);
    EXPECT_EQ(xml.LastError(), "end tag without start tag");
    EXPECT_EQ(OwnTypes(), "");
    EXPECT_EQ(store.GetCurrentPath(), "");
}

TEST_F(ConfigFilesTest, SavingCarriesTheFileAlong) {
    const std::string text = OneType("Own", "1") + "\r\n<!-- as it is -->";
    WriteFile(kProjectFile, text);
    ASSERT_EQ(files.Load(kProject), ConfigOutcome::Done);
    EXPECT_EQ(files.Save("new\\other.prj"), ConfigOutcome::Done);
    EXPECT_EQ(FileText("NEW\\OTHER.STDMEMXML"), text);
    EXPECT_EQ(FileText(kProjectFile), text);
    EXPECT_EQ(store.GetCurrentPath(), "NEW\\OTHER.STDMEMXML");
}

TEST_F(ConfigFilesTest, SavingInPlaceWritesNothing) {
    WriteFile(kProjectFile, OneType("Own", "1"));
    ASSERT_EQ(files.Load(kProject), ConfigOutcome::Done);
    std::filesystem::remove(kProjectFile);
    EXPECT_EQ(files.Save("Proj\\PLANT.bak"), ConfigOutcome::Done);
    EXPECT_FALSE(Exists(kProjectFile));
    EXPECT_EQ(store.GetCurrentPath(), kProjectFile);
}

TEST_F(ConfigFilesTest, SavingWithoutAFileInUseDoesNothing) {
    WriteFile("DEFAULT.XML", OneType("Default", "2"));
    ASSERT_EQ(files.Load(kProject), ConfigOutcome::Done);
    EXPECT_EQ(files.Save("new\\other.prj"), ConfigOutcome::Done);
    EXPECT_EQ(files.Save(""), ConfigOutcome::Done);
    EXPECT_FALSE(Exists("NEW\\OTHER.STDMEMXML"));
    EXPECT_EQ(store.GetCurrentPath(), "");
}

TEST_F(ConfigFilesTest, AFailedSaveKeepsThePath) {
    WriteFile(kProjectFile, OneType("Own", "1"));
    ASSERT_EQ(files.Load(kProject), ConfigOutcome::Done);
    EXPECT_EQ(files.Save(""), ConfigOutcome::PathUnknown);
    std::filesystem::remove(kProjectFile);
    EXPECT_EQ(files.Save("new\\other.prj"), ConfigOutcome::Failed);
    EXPECT_EQ(store.GetCurrentPath(), kProjectFile);
}

TEST_F(ConfigFilesTest, ClosingEmptiesTheStore) {
    WriteFile(kProjectFile, OneType("Own", "1"));
    ASSERT_EQ(files.Load(kProject), ConfigOutcome::Done);
    files.Close();
    EXPECT_TRUE(store.Types().empty());
    EXPECT_TRUE(store.Areas().empty());
    EXPECT_EQ(store.GetCurrentPath(), "");
    EXPECT_EQ(store.GetDefaultPath(), "DEFAULT.XML");
}

TEST_F(ConfigFilesTest, ExportingCopiesTheProjectsFile) {
    WriteFile(kProjectFile, "anything, \xE4\x1A\r\n");
    EXPECT_EQ(files.Export(kProject, "out"), ConfigOutcome::Done);
    EXPECT_EQ(FileText(kSourceFile), "anything, \xE4\x1A\r\n");
    WriteFile(kProjectFile, "shorter");
    EXPECT_EQ(files.Export(kProject, "Out\\"), ConfigOutcome::Done);
    EXPECT_EQ(FileText(kSourceFile), "shorter");
}

TEST_F(ConfigFilesTest, ExportingFailsWithoutDirectoryPathOrFile) {
    EXPECT_EQ(files.Export(kProject, "out"), ConfigOutcome::Failed);
    EXPECT_FALSE(Exists(kSourceFile));
    WriteFile(kProjectFile, "text");
    EXPECT_EQ(files.Export(kProject, nullptr), ConfigOutcome::Failed);
    EXPECT_EQ(files.Export("", "out"), ConfigOutcome::PathUnknown);
}

TEST_F(ConfigFilesTest, ExportingOntoItselfKeepsTheFile) {
    WriteFile(kProjectFile, "text");
    EXPECT_EQ(files.Export(kProject, "PROJ"), ConfigOutcome::Failed);
    EXPECT_EQ(FileText(kProjectFile), "text");
}

class MergeTest : public ConfigFilesTest {};

TEST_F(MergeTest, AddsDefinitionsAndLoadsTheResult) {
    WriteFile("DEFAULT.XML", OneType("Default", "3"));
    WriteFile(kProjectFile, OneType("Own", "1"));
    WriteFile(kSourceFile, OneType("Other", "2"));
    files.Merge(kProject, "out");
    EXPECT_EQ(OwnTypes(), "Own Other ");
    EXPECT_EQ(store.Areas().size(), 2U);
    EXPECT_EQ(store.GetCurrentPath(), kProjectFile);
    EXPECT_EQ(FileText(kSourceFile), OneType("Other", "2"));
    EXPECT_EQ(files.Load(kProject), ConfigOutcome::Done);
    EXPECT_EQ(OwnTypes(), "Own Other ");
}

TEST_F(MergeTest, KeepsThePathThatSavingComparesWith) {
    WriteFile(kProjectFile, OneType("Own", "1"));
    WriteFile(kSourceFile, OneType("Other", "2"));
    files.Merge("Proj\\Plant.PRJ", "Out\\");
    EXPECT_EQ(store.GetCurrentPath(), kProjectFile);
    std::filesystem::remove(kProjectFile);
    EXPECT_EQ(files.Save(kProject), ConfigOutcome::Done);
}

TEST_F(MergeTest, RewritesTheFileEvenWhenNothingIsNew) {
    WriteFile(kProjectFile, OneType("Own", "1"));
    WriteFile(kSourceFile, OneType("Own", "1"));
    const std::string before = FileText(kProjectFile);
    files.Merge(kProject, "out");
    EXPECT_NE(FileText(kProjectFile), before);
    EXPECT_EQ(OwnTypes(), "Own ");
}

TEST_F(MergeTest, BeginsAProjectsFileWithTheDefaultFile) {
    WriteFile("DEFAULT.XML", OneType("Default", "3"));
    WriteFile(kSourceFile, OneType("Other", "2"));
    files.Merge(kProject, "out");
    EXPECT_EQ(OwnTypes(), "Default Other ");
    EXPECT_EQ(store.GetCurrentPath(), kProjectFile);
    EXPECT_EQ(FileText("DEFAULT.XML"), OneType("Default", "3"));
}

TEST_F(MergeTest, BeginsANewFileWithoutADefaultFile) {
    store.SetDefaultPath("");
    WriteFile(kSourceFile, OneType("Other", "2"));
    files.Merge(kProject, "out");
    EXPECT_EQ(OwnTypes(), "Other ");
    EXPECT_NE(FileText(kProjectFile).find("<Definitions>"), std::string::npos);
    EXPECT_EQ(store.GetCurrentPath(), kProjectFile);
}

TEST_F(MergeTest, BeginsANewFileInPlaceOfABrokenOne) {
    WriteFile(kProjectFile, "broken");
    WriteFile(kSourceFile, OneType("Other", "2"));
    files.Merge(kProject, "out");
    EXPECT_EQ(OwnTypes(), "Other ");
}

TEST_F(MergeTest, ABrokenSourceChangesNothingButLoads) {
    WriteFile(kProjectFile, OneType("Own", "1"));
    WriteFile(kSourceFile, "broken");
    files.Merge(kProject, "out");
    EXPECT_EQ(FileText(kProjectFile), OneType("Own", "1"));
    EXPECT_EQ(OwnTypes(), "Own ");
    EXPECT_EQ(store.GetCurrentPath(), kProjectFile);
}

TEST_F(MergeTest, ABrokenSourceStillBeginsTheProjectsFile) {
    WriteFile("DEFAULT.XML", OneType("Default", "3"));
    WriteFile(kSourceFile, "broken");
    files.Merge(kProject, "out");
    EXPECT_EQ(FileText(kProjectFile), OneType("Default", "3"));
    EXPECT_EQ(OwnTypes(), "Default ");
    EXPECT_EQ(store.GetCurrentPath(), kProjectFile);
}

TEST_F(MergeTest, DoesNothingWithoutDirectoryPathOrSource) {
    WriteFile(kProjectFile, OneType("Own", "1"));
    ASSERT_EQ(files.Load(kProject), ConfigOutcome::Done);
    WriteFile(kProjectFile, OneType("Changed", "1"));
    files.Merge(kProject, "out");
    files.Merge(kProject, nullptr);
    files.Merge("", "out");
    EXPECT_EQ(OwnTypes(), "Own ");
    EXPECT_EQ(store.GetCurrentPath(), kProjectFile);
    EXPECT_EQ(FileText(kProjectFile), OneType("Changed", "1"));
}

/// Looks into a store while the library saves.
struct Onlooker {
    static std::int32_t ORVELL_CALL Save(XmlDocumentHandle, const char*) {
        typesSeen = store->Types().size();
        pathSeen = store->GetCurrentPath();
        return 0;
    }
    static inline const memstruct::MemoryStructureStore* store;
    static inline std::size_t typesSeen;
    static inline std::string pathSeen;
};

TEST_F(MergeTest, EmptiesTheStoreFirst) {
    WriteFile(kProjectFile, OneType("Own", "1"));
    WriteFile(kSourceFile, OneType("Other", "2"));
    ASSERT_EQ(files.Load(kProject), ConfigOutcome::Done);
    Onlooker::store = &store;
    Onlooker::typesSeen = 1;
    Onlooker::pathSeen = "none";
    loader.libraries["XML.DLL"]["XMLIF_Save"] = Address(&Onlooker::Save);
    ASSERT_TRUE(xml.Bind(loader, "XML.DLL"));
    files.Merge(kProject, "out");
    EXPECT_EQ(Onlooker::typesSeen, 0U);
    EXPECT_EQ(Onlooker::pathSeen, "");
    EXPECT_EQ(OwnTypes(), "Own ");
    EXPECT_EQ(store.GetCurrentPath(), kProjectFile);
}

TEST_F(MergeTest, LoadsEvenWhenTheResultCannotBeSaved) {
    WriteFile(kProjectFile, OneType("Own", "1"));
    WriteFile(kSourceFile, OneType("Other", "2"));
    const std::uint64_t before = library.calls;
    files.Merge(kProject, "out");
    const std::uint64_t mergeCalls = library.calls - before;
    WriteFile(kProjectFile, OneType("Own", "1"));
    // Loading comes last: everything from the middle of the merge on fails.
    library.failingCall = library.calls + mergeCalls / 3;
    library.staysBroken = true;
    files.Merge(kProject, "out");
    EXPECT_EQ(FileText(kProjectFile), OneType("Own", "1"));
    EXPECT_EQ(OwnTypes(), "");
    library.failingCall = 0;
    EXPECT_EQ(files.Load(kProject), ConfigOutcome::Done);
    EXPECT_EQ(OwnTypes(), "Own ");
}

TEST_F(MergeTest, MergesAnExportOfAnotherProject) {
    WriteFile("NEW\\PLANT.STDMEMXML", OneType("Other", "2"));
    ASSERT_EQ(files.Export("new\\plant.x", "out"), ConfigOutcome::Done);
    WriteFile(kProjectFile, OneType("Own", "1"));
    files.Merge(kProject, "out");
    EXPECT_EQ(OwnTypes(), "Own Other ");
}

}  // namespace
}  // namespace orvell::test
