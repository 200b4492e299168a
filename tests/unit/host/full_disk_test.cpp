// Disks that are full at every single byte of the files that the management table's slots write.

#include "management_fixture.h"
#include "paramlist/list_file_writer.h"
#include "support/short_memory.h"
#include "support/small_disk.h"
#include "unit/memstruct/temporary_folder.h"

namespace orvell::host {
namespace {

constexpr const char* kListNotSaved = "Die Parameterliste konnte nicht gespeichert werden.";

class FullDiskTest : public ManagementTest {
  protected:
    FullDiskTest() {
        BuildKinds();
        STDSIL_SetTextParaValue("PT1", "name", "comment", "text");
        STDSIL_SetWordParaValue("PW1", "", "", 7);
        STDSIL_SetFloatParaValue("PF1", "", "", 0.5);
        registry.texts[{platform::RegistryRoot::ClassesRoot, ".csv", ""}] = "Table";
        registry.texts[{platform::RegistryRoot::ClassesRoot, "Table\\SHELL\\OPEN\\COMMAND", ""}] =
            "editor";
    }

    /// Writes the file on disks of 0, 1, 2, ... bytes until it has room: each time the user is
    /// told, the file ends where the disk does, and the list stays.
    template <typename Write>
    void ExpectToldUntilThereIsRoom(const std::string& path, const std::string& message,
                                    const Write& write) {
        write();
        const std::string whole = test::FileText(path);
        EXPECT_GT(whole.size(), 100U);
        EXPECT_TRUE(messages.shown.empty());
        messages.asked.clear();
        ExpectTold(path, message, "", write);  // has the message's text loaded
        const std::size_t held = test::HeldBlocks();
        for (std::size_t size = 0; size < whole.size() && !HasFailure(); ++size) {
            ExpectTold(path, message, whole.substr(0, size), write);
            EXPECT_EQ(test::HeldBlocks(), held) << size;
        }
        {
            const test::SmallDisk disk(whole.size());
            write();
        }
        EXPECT_TRUE(messages.shown.empty());
        EXPECT_EQ(test::FileText(path), whole);
        EXPECT_EQ(TextOf("PT1") + TextOf("PW1") + TextOf("PF1"), "text70.5");
    }

    /// Writes the file on a disk that has room for `part` only.
    template <typename Write>
    void ExpectTold(const std::string& path, const std::string& message, const std::string& part,
                    const Write& write) {
        {
            const test::SmallDisk disk(part.size());
            write();
        }
        const std::vector<platform::Message> shown = TakeMessages();
        ASSERT_EQ(shown.size(), 1U) << part.size();
        EXPECT_EQ(shown[0].text, message);
        EXPECT_EQ(test::FileText(path), part);
        EXPECT_TRUE(messages.asked.empty()) << "a part of a file is not offered";
    }

    test::TemporaryFolder folder;
};

TEST_F(FullDiskTest, SavingIsReportedWithItsFile) {
    ConfigurationRecord project{sizeof(project), nullptr, "plant.prj"};
    ExpectToldUntilThereIsRoom("PLANT.SIL", "Die Datei PLANT.SIL konnte nicht gespeichert werden.",
                               [&] { management::SaveList(&project); });
}

TEST_F(FullDiskTest, ExportingIsReported) {
    ExpectToldUntilThereIsRoom("out.sil", kListNotSaved,
                               [] { management::ExportList(nullptr, "out.sil"); });
    ExpectToldUntilThereIsRoom("out.csv", kListNotSaved,
                               [] { management::ExportList(nullptr, "out.csv"); });
}

TEST_F(FullDiskTest, APartOfAFileIsNotOfferedToTheEditor) {
    ExpectToldUntilThereIsRoom("out.csv", kListNotSaved,
                               [] { management::ExportAndOpenList(nullptr, "out.csv"); });
    EXPECT_EQ(messages.asked.size(), 1U);
}

}  // namespace
}  // namespace orvell::host
