#include <gtest/gtest.h>

#include "message_watcher.h"
#include "module_host.h"

namespace orvell::test {
namespace {

constexpr const char* kOneWord =
    "Definitions\n\tTypeList\n\t\tType|Name=Word|BaseType=UINT|Size=2\n"
    "\tMemoryList\n\t\tMemory|ID=1|Type=Word\n";
constexpr const char* kOneByte =
    "Definitions\n\tTypeList\n\t\tType|Name=Byte|BaseType=UINT|Size=1\n"
    "\tMemoryList\n\t\tMemory|ID=1|Type=Byte\n\t\tMemory|ID=2|Type=Byte\n";

constexpr const char* kLoadFailed =
    "The configuration file with the standard memory structures could not be loaded";

class ConfigurationTest : public testing::Test {
  protected:
    ConfigurationTest() {
        stage.SetUpEverything();
        module = std::make_unique<LoadedModule>(stage);
        slots = module->Slots();
    }

    ~ConfigurationTest() override { EXPECT_EQ(OutstandingXmlHandles(), 0); }

    void Load(const std::string& path) {
        ConfigurationRecord record = Record(path);
        slots.LoadStdMemConfig(&record, ++token);
    }

    static ConfigurationRecord Record(const std::string& path) {
        return {sizeof(ConfigurationRecord), nullptr, path.c_str()};
    }

    Stage stage;
    MessageWatcher watcher;
    std::unique_ptr<LoadedModule> module;
    StdParaFunctionTable slots;
    std::uint32_t token = 0;
    const std::string project = stage.Path("plant.prj");
};

TEST_F(ConfigurationTest, WithoutAnyFileNothingIsKnownAndNothingSaid) {
    Load(project);
    EXPECT_EQ(slots.GetStdStructSize(1), 0U);
    EXPECT_TRUE(watcher.Boxes().empty());
}

TEST_F(ConfigurationTest, TheDefaultFileBesideTheModuleServesProjectsWithoutTheirOwn) {
    stage.Write("ORVELL.XML", kOneWord);
    Load(project);
    EXPECT_EQ(slots.GetStdStructSize(1), 2U);
    stage.Write("PLANT.STDMEMXML", kOneByte);
    Load(project);
    EXPECT_EQ(slots.GetStdStructSize(1), 1U);
}

TEST_F(ConfigurationTest, ABrokenFileIsReportedWithTheLibrarysReason) {
    stage.Write("ORVELL.XML", kOneWord);
    stage.Write("PLANT.STDMEMXML", "broken");
    Load(project);
    ASSERT_EQ(watcher.Boxes().size(), 1U);
    const MessageWatcher::Box& box = watcher.Boxes()[0];
    EXPECT_TRUE(box.text.ends_with("\n\nline 1 is broken")) << box.text;
    EXPECT_EQ(box.caption, "Orvell");
    EXPECT_EQ(slots.GetStdStructSize(1), 0U) << "no default in place of a broken file";
}

TEST_F(ConfigurationTest, TheMessageBelongsToTheRecordsWindow) {
    const HWND window = CreateWindowW(L"STATIC", L"host", WS_OVERLAPPED, 0, 0, 100, 100, nullptr,
                                      nullptr, nullptr, nullptr);
    ASSERT_NE(window, nullptr) << "these tests need a display";
    ConfigurationRecord record{sizeof(record), window, ""};
    slots.LoadStdMemConfig(&record, ++token);
    ASSERT_EQ(watcher.Boxes().size(), 1U);
    EXPECT_EQ(watcher.Boxes()[0].owner, window);
    DestroyWindow(window);
}

TEST_F(ConfigurationTest, ADeadOwnerWindowDoesNoHarm) {
    const HWND window = CreateWindowW(L"STATIC", L"host", WS_OVERLAPPED, 0, 0, 100, 100, nullptr,
                                      nullptr, nullptr, nullptr);
    DestroyWindow(window);
    ConfigurationRecord record{sizeof(record), window, ""};
    slots.LoadStdMemConfig(&record, ++token);
    EXPECT_EQ(slots.GetStdStructSize(1), 0U);
}

TEST_F(ConfigurationTest, ARepeatedTokenLoadsOnce) {
    stage.Write("PLANT.STDMEMXML", kOneWord);
    ConfigurationRecord record = Record(project);
    slots.LoadStdMemConfig(&record, 7);
    stage.Write("PLANT.STDMEMXML", kOneByte);
    slots.LoadStdMemConfig(&record, 7);
    EXPECT_EQ(slots.GetStdStructSize(1), 2U);
    slots.LoadStdMemConfig(&record, 8);
    EXPECT_EQ(slots.GetStdStructSize(1), 1U);
}

TEST_F(ConfigurationTest, SavingCarriesTheFileAlong) {
    stage.Write("PLANT.STDMEMXML", kOneWord);
    Load(project);
    const std::string renamed = stage.Path("renamed.prj");
    ConfigurationRecord record = Record(renamed);
    slots.SaveStdMemConfig(&record, ++token);
    EXPECT_EQ(stage.Read("RENAMED.STDMEMXML"), kOneWord);
    EXPECT_TRUE(watcher.Boxes().empty());

    const std::string nowhere = stage.Path("no such folder\\x.prj");
    record = Record(nowhere);
    slots.SaveStdMemConfig(&record, ++token);
    ASSERT_EQ(watcher.Boxes().size(), 1U);
}

TEST_F(ConfigurationTest, ClosingForgetsFileAndDefinitions) {
    stage.Write("PLANT.STDMEMXML", kOneWord);
    Load(project);
    slots.CloseStdMemConfig(++token);
    EXPECT_EQ(slots.GetStdStructSize(1), 0U);
    const std::string renamed = stage.Path("renamed.prj");
    ConfigurationRecord record = Record(renamed);
    slots.SaveStdMemConfig(&record, ++token);
    EXPECT_FALSE(stage.Has("RENAMED.STDMEMXML"));
}

TEST_F(ConfigurationTest, ExportCopiesTheProjectsFile) {
    stage.Write("PLANT.STDMEMXML", kOneWord);
    const std::string target = stage.Path("target");
    CreateDirectoryA(target.c_str(), nullptr);
    ConfigurationRecord record = Record(project);
    slots.ExportStdMemConfig(&record, target.c_str(), ++token);
    EXPECT_EQ(stage.Read("target/PLANT.STDMEMXML"), kOneWord);
    EXPECT_TRUE(watcher.Boxes().empty());
}

TEST_F(ConfigurationTest, ExportOntoItselfIsRefusedAndLosesNothing) {
    stage.Write("PLANT.STDMEMXML", kOneWord);
    ConfigurationRecord record = Record(project);
    const std::string own = stage.Path("");
    slots.ExportStdMemConfig(&record, own.c_str(), ++token);
    EXPECT_EQ(watcher.Boxes().size(), 1U);
    EXPECT_EQ(stage.Read("PLANT.STDMEMXML"), kOneWord);
}

TEST_F(ConfigurationTest, FilesThatOthersKeepToThemselvesAreFailures) {
    const std::string file = stage.Write("PLANT.STDMEMXML", kOneWord);
    const std::string kept = stage.Write("OTHER.STDMEMXML", "kept");
    Load(project);
    ConfigurationRecord here = Record(project);
    const std::string otherProject = stage.Path("other.prj");
    ConfigurationRecord there = Record(otherProject);
    const std::string folder = stage.Path("OUT");
    std::filesystem::create_directory(folder);
    {
        const OpenFile target(kept, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
        slots.SaveStdMemConfig(&there, ++token);
        EXPECT_EQ(watcher.TakeBoxes().size(), 1U) << "the new place may not be written";
    }
    {
        const OpenFile source(file, GENERIC_WRITE, 0, OPEN_EXISTING);
        slots.SaveStdMemConfig(&there, ++token);
        slots.ExportStdMemConfig(&here, folder.c_str(), ++token);
        EXPECT_EQ(watcher.TakeBoxes().size(), 2U) << "the file may not be read";
        slots.MergeStdMemConfig(&here, folder.c_str(), ++token);
        EXPECT_TRUE(watcher.TakeBoxes().empty()) << "a merge is silent";
    }
    EXPECT_EQ(stage.Read("OTHER.STDMEMXML"), "kept");
    EXPECT_FALSE(stage.Has("OUT/PLANT.STDMEMXML"));
    EXPECT_EQ(slots.GetStdStructSize(1), 2U);
    slots.SaveStdMemConfig(&there, ++token);
    EXPECT_EQ(stage.Read("OTHER.STDMEMXML"), kOneWord) << "it goes once they let it";
}

TEST_F(ConfigurationTest, MergeAddsWhatTheProjectDoesNotHave) {
    stage.Write("PLANT.STDMEMXML", kOneWord);
    const std::string source = stage.Path("source");
    CreateDirectoryA(source.c_str(), nullptr);
    stage.Write("source/PLANT.STDMEMXML", kOneByte);
    ConfigurationRecord record = Record(project);
    slots.MergeStdMemConfig(&record, source.c_str(), ++token);
    EXPECT_EQ(slots.GetStdStructSize(1), 2U) << "the project's own definition stays";
    EXPECT_EQ(slots.GetStdStructSize(2), 1U) << "the new one is there";
    EXPECT_EQ(stage.Read("PLANT.STDMEMXML"),
              "Definitions\n\tTypeList\n\t\tType|Name=Word|BaseType=UINT|Size=2\n"
              "\t\tType|Name=Byte|BaseType=UINT|Size=1\n"
              "\tMemoryList\n\t\tMemory|ID=1|Type=Word\n\t\tMemory|ID=2|Type=Byte\n");
}

TEST_F(ConfigurationTest, NullRecordsAndDirectoriesAreAnswered) {
    slots.LoadStdMemConfig(nullptr, ++token);
    EXPECT_EQ(watcher.Boxes().size(), 1U);
    slots.SaveStdMemConfig(nullptr, ++token);
    EXPECT_EQ(watcher.Boxes().size(), 1U) << "nothing was loaded, so there is nothing to carry";
    slots.ExportStdMemConfig(nullptr, nullptr, ++token);
    EXPECT_EQ(watcher.Boxes().size(), 2U);
    slots.MergeStdMemConfig(nullptr, nullptr, ++token);
    EXPECT_EQ(watcher.Boxes().size(), 2U);
}

TEST_F(ConfigurationTest, TextsComeFromTheLanguageLibrary) {
    slots.LoadStdMemConfig(nullptr, ++token);
    ASSERT_EQ(watcher.Boxes().size(), 1U);
    EXPECT_TRUE(watcher.Boxes()[0].text.starts_with(kLoadFailed)) << watcher.Boxes()[0].text;
}

}  // namespace
}  // namespace orvell::test
