#include <gtest/gtest.h>

#include <vector>

#include "message_watcher.h"
#include "module_host.h"

namespace orvell::test {
namespace {

constexpr std::uint32_t kSlotCount = 17;
constexpr const char* kNotSaved = "The parameter list could not be saved.";
constexpr const char* kNotImported = "The selected parameter list could not be imported.";

struct ReportedLine {
    std::string text;
    std::uint32_t color;
    std::int32_t emphasis;
};

std::vector<ReportedLine> reported;

std::int32_t ORVELL_CALL FindPage(const char* name) {
    return name == std::string("Import") ? 3 : -1;
}

std::int32_t ORVELL_CALL AppendLine(std::int32_t page, const char* line, std::uint32_t color,
                                    std::int32_t emphasis) {
    EXPECT_EQ(page, 3);
    reported.push_back({line, color, emphasis});
    return 1;
}

class ManagementTest : public testing::Test {
  protected:
    ManagementTest() {
        stage.SetUpEverything();
        module = std::make_unique<LoadedModule>(stage);
        slots = module->Management();
        reported.clear();
    }

    /// The words of a host's table of `size` bytes after the hand-over; the memory ends with it.
    std::vector<std::uint32_t> HandOver(std::uint32_t size, std::int32_t result) {
        const GuardedBytes table(std::max<std::uint32_t>(size, 4));
        std::memcpy(table.Data(), &size, sizeof(size));
        EXPECT_EQ(module->Export<decltype(&GetParaMGMTFunc)>("GetParaMGMTFunc")(table.Data()),
                  result);
        std::vector<std::uint32_t> words(std::max<std::uint32_t>(size, 4) / 4);
        std::memcpy(words.data(), table.Data(), words.size() * 4);
        return words;
    }

    static ConfigurationRecord Record(const std::string& path) {
        return {sizeof(ConfigurationRecord), nullptr, path.c_str()};
    }

    std::string TextOf(const char* address) const {
        char text[64] = "";
        return slots.GetValue(address, text, sizeof text, 5) == 1 ? text : "none";
    }

    bool Exists(const char* address) const {
        return module->Export<decltype(&STDSIL_GetName)>("STDSIL_GetName")(address, nullptr, 0) ==
               1;
    }

    /// The single message since the last call.
    MessageWatcher::Box TakeBox() {
        const std::vector<MessageWatcher::Box> boxes = watcher.TakeBoxes();
        EXPECT_EQ(boxes.size(), 1U);
        return boxes.empty() ? MessageWatcher::Box{} : boxes[0];
    }

    Stage stage;
    MessageWatcher watcher;
    std::unique_ptr<LoadedModule> module;
    ManagementTable slots;
    const std::string projectPath = stage.Path("Plant.prj");
    ConfigurationRecord project = Record(projectPath);
};

// ---- hand-over ---------------------------------------------------------------------------------

TEST_F(ManagementTest, TablesOfAnySizeGetTheSlotsThatFit) {
    const std::vector<std::uint32_t> full = HandOver(72, 1);
    for (std::uint32_t slot = 1; slot <= kSlotCount; ++slot) {
        EXPECT_NE(full[slot], 0U) << slot;
    }
    for (std::uint32_t size = 1; size <= 96; ++size) {
        const std::vector<std::uint32_t> words = HandOver(size, 1);
        EXPECT_EQ(words[0], size);
        for (std::uint32_t slot = 1; slot < words.size(); ++slot) {
            EXPECT_EQ(words[slot], slot <= kSlotCount ? full[slot] : 0U)
                << size << " bytes, slot " << slot;
        }
    }
}

TEST_F(ManagementTest, NoTableAndATableWithoutASizeAreRefused) {
    EXPECT_EQ(module->Export<decltype(&GetParaMGMTFunc)>("GetParaMGMTFunc")(nullptr), 0);
    EXPECT_EQ(HandOver(0, 0)[0], 0U);
}

TEST_F(ManagementTest, AnOddTableEndsInTheMiddleOfASlot) {
    const GuardedBytes table(7);
    const std::uint32_t size = 7;
    std::memcpy(table.Data(), &size, sizeof(size));
    EXPECT_EQ(module->Export<decltype(&GetParaMGMTFunc)>("GetParaMGMTFunc")(table.Data()), 1);
    EXPECT_EQ(std::memcmp(table.Data() + 4, &slots.LoadList, 3), 0);
}

// ---- files -------------------------------------------------------------------------------------

TEST_F(ManagementTest, SavesAndLoadsTheProjectsList) {
    slots.LoadList(&project);
    slots.SetValueFromText("PW12", "-5");
    slots.SetValueFromText("E3.5", "1");
    slots.SaveList(&project);
    const std::string saved = stage.Read("PLANT.SIL");
    EXPECT_TRUE(
        saved.starts_with("99     ORVELL-PARAMETER-LIST-FILE-01\r\n98     Version_7.100\r\n"
                          "97     Project: " +
                          projectPath + "\r\n"))
        << saved;
    EXPECT_NE(saved.find(" 0 PW           12 N : %%\r\n                   D : -5\r\n"),
              std::string::npos);
    slots.ClearList();
    EXPECT_FALSE(Exists("PW12"));
    slots.LoadList(&project);
    EXPECT_EQ(TextOf("PW12"), "-5");
    EXPECT_EQ(TextOf("E3.5"), "1");
    EXPECT_TRUE(watcher.Boxes().empty());
}

TEST_F(ManagementTest, AProjectWithoutAListFileBeginsEmptyAndSilent) {
    slots.LoadList(&project);
    slots.SetValueFromText("PW12", "-5");
    slots.LoadList(&project);
    EXPECT_FALSE(Exists("PW12"));
    slots.LoadList(nullptr);
    EXPECT_TRUE(watcher.Boxes().empty());
}

TEST_F(ManagementTest, FailedSavesAreTold) {
    const std::string nowhere = stage.Path("no such folder\\Plant.prj");
    ConfigurationRecord record = Record(nowhere);
    slots.SaveList(&record);
    const MessageWatcher::Box box = TakeBox();
    EXPECT_EQ(box.caption, "Error !");
    EXPECT_TRUE(box.text.starts_with("The file ")) << box.text;
    EXPECT_TRUE(box.text.ends_with("\\NO SUCH FOLDER\\PLANT.SIL could not be saved.")) << box.text;
    EXPECT_FALSE(box.isQuestion);
    EXPECT_EQ(box.owner, nullptr);
    record = Record("");
    slots.SaveList(&record);
    EXPECT_EQ(TakeBox().text, kNotSaved);
    slots.SaveList(nullptr);
    EXPECT_EQ(TakeBox().text, kNotSaved);
}

TEST_F(ManagementTest, ErrorsBelongToTheRecordsWindow) {
    const HWND window = CreateWindowW(L"STATIC", L"host", WS_OVERLAPPED, 0, 0, 100, 100, nullptr,
                                      nullptr, nullptr, nullptr);
    ASSERT_NE(window, nullptr) << "these tests need a display";
    project.owner = window;
    slots.ImportIntoList(&project, "");
    EXPECT_EQ(TakeBox().owner, window);
    DestroyWindow(window);
}

TEST_F(ManagementTest, RecordsOfAnySizeAreReadAsFarAsTheyReach) {
    for (std::uint32_t size = 4; size <= 12; ++size) {
        const GuardedBytes bytes(size);
        ConfigurationRecord whole = project;
        whole.size = size;
        std::memcpy(bytes.Data(), &whole, size);
        slots.SaveList(reinterpret_cast<ConfigurationRecord*>(bytes.Data()));
        EXPECT_EQ(watcher.TakeBoxes().size(), size < 12 ? 1U : 0U) << size;
        EXPECT_EQ(std::memcmp(bytes.Data(), &whole, size), 0) << size;
    }
    EXPECT_TRUE(stage.Has("PLANT.SIL"));
}

TEST_F(ManagementTest, ExportsGoToTheFormOfTheirExtension) {
    slots.LoadList(&project);
    slots.SetValueFromText("PW12", "-5");
    slots.ExportList(&project, stage.Path("list.Csv").c_str());
    slots.ExportList(&project, stage.Path("list.txt").c_str());
    EXPECT_EQ(stage.Read("list.Csv"),
              "Version:;Zelkor 7.1.0.0\r\nProjekt:;\r\n\r\nListe der PW\r\n"
              "Adresse;Bezeichnung;Wert;;Kommentar\r\nPW12;\"\";-5;;\"\"\r\n\r\n");
    EXPECT_TRUE(stage.Read("list.txt").starts_with("99     "));
    EXPECT_TRUE(watcher.Boxes().empty());
}

TEST_F(ManagementTest, FailedExportsAreTold) {
    for (const std::string& path : {std::string(), stage.Path("no such folder\\list.csv"),
                                    stage.Path("no such folder\\list.txt")}) {
        slots.ExportList(&project, path.c_str());
        EXPECT_EQ(TakeBox().text, kNotSaved);
        slots.ExportAndOpenList(&project, path.c_str());
        EXPECT_EQ(TakeBox().text, kNotSaved);
    }
    slots.ExportList(nullptr, nullptr);
    EXPECT_EQ(TakeBox().text, kNotSaved);
}

TEST_F(ManagementTest, ImportsReportInTheHostsMessagePage) {
    const HostExportTable callbacks{sizeof(callbacks), FindPage, AppendLine, nullptr, nullptr};
    module->Export<decltype(&SetZelkorExportFctns)>("SetZelkorExportFctns")(
        const_cast<HostExportTable*>(&callbacks));
    slots.LoadList(&project);
    slots.SetValueFromText("PW12", "1");
    const std::string path =
        stage.Write("list.csv", "PW12;\"Set point\";-5;;\"x\"\r\nPW13;;1;;\r\nPW12;n;high;;\r\n");
    slots.ImportIntoList(&project, path.c_str());
    EXPECT_EQ(TextOf("PW12"), "-5");
    EXPECT_FALSE(Exists("PW13"));
    ASSERT_EQ(reported.size(), 4U);
    EXPECT_EQ(reported[0].text, "Importing " + path + " ...");
    EXPECT_EQ(reported[0].emphasis, 0);
    EXPECT_EQ(reported[1].text,
              "Line 2:   Warning !   The parameter PW13 is not defined in the project !");
    EXPECT_EQ(reported[1].color, 0x000000FFU);
    EXPECT_EQ(reported[1].emphasis, 1);
    EXPECT_EQ(reported[2].text, "Line 3:   Warning !   Invalid parameter value !");
    EXPECT_EQ(reported[3].text, "2 warnings");

    reported.clear();
    slots.ImportNewList(&project, path.c_str());
    EXPECT_FALSE(Exists("PW12")) << "a CSV file creates nothing";
    ASSERT_EQ(reported.size(), 5U);
    EXPECT_EQ(reported[4].text, "3 warnings");
    EXPECT_TRUE(watcher.Boxes().empty());
}

TEST_F(ManagementTest, AListFileIsImportedWithOrWithoutItsNewParameters) {
    const std::string path = stage.Write(
        "list.txt", " 0 PW 12 N : n\r\n D : 7\r\n C : c\r\n 0 PW 13 N : n\r\n D : 8\r\n C : c\r\n");
    slots.LoadList(&project);
    slots.SetValueFromText("PW12", "1");
    slots.ImportIntoList(&project, path.c_str());
    EXPECT_EQ(TextOf("PW12"), "7");
    EXPECT_FALSE(Exists("PW13"));
    slots.SetValueFromText("PW14", "1");
    slots.ImportNewList(&project, path.c_str());
    EXPECT_EQ(TextOf("PW13"), "8");
    EXPECT_FALSE(Exists("PW14"));
    EXPECT_TRUE(watcher.Boxes().empty());
}

TEST_F(ManagementTest, FailedImportsAreTold) {
    const std::string cut = stage.Write("cut.txt", " 0 PW 12 N : n\r\n D : 7\r\n");
    for (const std::string& path :
         {std::string(), stage.Path("gone.csv"), stage.Path("gone.txt"), cut}) {
        slots.ImportIntoList(&project, path.c_str());
        EXPECT_EQ(TakeBox().text, kNotImported) << path;
        slots.ImportNewList(&project, path.c_str());
        EXPECT_EQ(TakeBox().text, kNotImported) << path;
    }
    slots.ImportNewList(nullptr, nullptr);
    EXPECT_EQ(TakeBox().text, kNotImported);
}

// ---- the list as a whole -----------------------------------------------------------------------

TEST_F(ManagementTest, AnUpdateMovesParametersToTheirNewAddresses) {
    slots.LoadList(&project);
    slots.SetValueFromText("PW1", "10");
    slots.SetValueFromText("PW2", "20");
    slots.SetValueFromText("PW3", "30");
    slots.BeginUpdate();
    slots.DeclareParameter("PW1", "PW2");
    slots.DeclareParameter("PW2", "PW1");
    slots.DeclareParameter(nullptr, "PW4");
    slots.DeclareParameter(nullptr, nullptr);
    EXPECT_EQ(TextOf("PW3"), "none") << "not declared";
    const auto setWord =
        module->Export<decltype(&STDSIL_SetWordParaValue)>("STDSIL_SetWordParaValue");
    EXPECT_EQ(setWord("PW3", "n", "c", 1), 0);
    EXPECT_EQ(setWord("PW9", "n", "c", 1), 0);
    EXPECT_EQ(setWord("PW4", "n", "c", 40), 1);
    slots.EndUpdate();
    EXPECT_EQ(TextOf("PW1"), "20");
    EXPECT_EQ(TextOf("PW2"), "10");
    EXPECT_EQ(TextOf("PW4"), "40");
    EXPECT_FALSE(Exists("PW3"));
    EXPECT_FALSE(Exists("PW9"));
    EXPECT_EQ(setWord("PW9", "n", "c", 1), 1) << "the update is over";
}

TEST_F(ManagementTest, ATokenRunsAListOperationOnce) {
    slots.SetCallToken(5);
    slots.LoadList(&project);
    slots.SetValueFromText("PW1", "10");
    slots.LoadList(&project);
    slots.ClearList();
    slots.SaveList(nullptr);
    EXPECT_TRUE(Exists("PW1"));
    EXPECT_TRUE(watcher.Boxes().empty());
    slots.SetCallToken(0);
    slots.LoadList(&project);
    EXPECT_FALSE(Exists("PW1"));
    slots.SetCallToken(5);
    slots.SetValueFromText("PW1", "10");
    slots.ClearList();
    EXPECT_TRUE(Exists("PW1")) << "token 0 leaves the last one remembered";
    slots = module->Management();
    slots.SetCallToken(5);
    slots.ClearList();
    EXPECT_FALSE(Exists("PW1")) << "a new hand-over forgets it";
}

TEST_F(ManagementTest, UnloadingForgetsTheList) {
    slots.LoadList(&project);
    slots.SetValueFromText("PW1", "10");
    slots.BeginUpdate();
    module.reset();
    module = std::make_unique<LoadedModule>(stage);
    slots = module->Management();
    EXPECT_EQ(TextOf("PW1"), "none");
    slots.SetValueFromText("PW1", "10");
    EXPECT_FALSE(Exists("PW1")) << "no kinds before the first load";
    slots.LoadList(nullptr);
    slots.SetValueFromText("PW1", "10");
    EXPECT_EQ(TextOf("PW1"), "10") << "and no update is running";
}

TEST_F(ManagementTest, AVectorOfDoublesIsReadAsFarAsItGoes) {
    slots.LoadList(&project);
    const GuardedBytes values(3 * sizeof(double));
    const double numbers[] = {1.5, -2, 4};
    std::memcpy(values.Data(), numbers, sizeof numbers);
    slots.SetDoubleVector("PF7", reinterpret_cast<const double*>(values.Data()), 3);
    EXPECT_EQ(TextOf("PF9"), "4");
    char comment[31] = "";
    slots.GetComment("PF9", comment, sizeof comment);
    EXPECT_STREQ(comment, "Vector element 3");
    slots.SetDoubleVector("PF1", nullptr, 3);
    slots.SetDoubleVector(nullptr, reinterpret_cast<const double*>(values.Data()), 3);
    EXPECT_FALSE(Exists("PF1"));
}

}  // namespace
}  // namespace orvell::test
