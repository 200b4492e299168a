// Disks that are full at every single byte of the configuration files, and files that others take
// away meanwhile.

#include "memstruct/config_files.h"
#include "memstruct_fixture.h"
#include "support/short_memory.h"
#include "support/small_disk.h"
#include "temporary_folder.h"

namespace orvell::test {
namespace {

using memstruct::ConfigFiles;
using memstruct::ConfigOutcome;

constexpr const char* kProjectDefinitions =
    R"(<D><TypeList><Type Name="W" BaseType="UINT" Size="2"/></TypeList>)"
    R"(<MemoryList><Memory ID="1" Type="W"/></MemoryList></D>)";

constexpr const char* kDeliveredDefinitions =
    R"(<D><TypeList><Type Name="L" BaseType="UINT" Size="4"/></TypeList>)"
    R"(<MemoryList><Memory ID="2" Type="L"/></MemoryList></D>)";

class FullDiskConfigTest : public MemstructTest {
  protected:
    FullDiskConfigTest() {
        std::filesystem::create_directory("OUT");
        WriteFile("P.STDMEMXML", kProjectDefinitions);
    }

    [[nodiscard]] std::uint32_t Size(std::uint32_t area) const {
        return memstruct::MemoryStructureStore::StoredSize(store.TypeOfArea(area));
    }

    /// What is held without definitions.
    std::size_t HeldWhenClosed() {
        files.Close();
        return HeldBlocks();
    }

    /// The same when all has been kept that is kept for later.
    std::size_t HeldAfterAFailedMerge() {
        {
            const SmallDisk disk(1);
            files.Merge("P", "OUT");
        }
        return HeldWhenClosed();
    }

    TemporaryFolder folder;
    ConfigFiles files{store, xml};
};

TEST_F(FullDiskConfigTest, SavingElsewhereFailsAndTheProjectKeepsItsFile) {
    ASSERT_EQ(files.Load("P"), ConfigOutcome::Done);
    const std::string whole = kProjectDefinitions;
    const std::size_t held = HeldBlocks();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        {
            const SmallDisk disk(size);
            EXPECT_EQ(files.Save("Q"), ConfigOutcome::Failed) << size;
        }
        EXPECT_EQ(store.GetCurrentPath(), "P.STDMEMXML");
        EXPECT_EQ(FileText("P.STDMEMXML"), whole);
        EXPECT_EQ(Size(1), 2U);
        EXPECT_EQ(HeldBlocks(), held);
    }
    const SmallDisk disk(whole.size());
    EXPECT_EQ(files.Save("Q"), ConfigOutcome::Done);
    EXPECT_EQ(store.GetCurrentPath(), "Q.STDMEMXML");
    EXPECT_EQ(FileText("Q.STDMEMXML"), whole);
}

TEST_F(FullDiskConfigTest, ExportingFailsAndTheProjectKeepsItsFile) {
    const std::string whole = kProjectDefinitions;
    const std::size_t held = HeldBlocks();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const SmallDisk disk(size);
        EXPECT_EQ(files.Export("P", "OUT"), ConfigOutcome::Failed) << size;
        EXPECT_EQ(FileText("P.STDMEMXML"), whole);
        EXPECT_EQ(HeldBlocks(), held);
    }
    const SmallDisk disk(whole.size());
    EXPECT_EQ(files.Export("P", "OUT"), ConfigOutcome::Done);
    EXPECT_EQ(FileText("OUT\\P.STDMEMXML"), whole);
}

/// A merge is silent, and what the file holds then is in use.
TEST_F(FullDiskConfigTest, AMergeUsesWhatItCouldWrite) {
    WriteFile("OUT\\P.STDMEMXML", kDeliveredDefinitions);
    files.Merge("P", "OUT");
    const std::string merged = FileText("P.STDMEMXML");
    const std::size_t held = HeldAfterAFailedMerge();
    std::size_t failures = 0;
    for (std::size_t size = 0; size <= merged.size(); ++size) {
        WriteFile("P.STDMEMXML", kProjectDefinitions);
        {
            const SmallDisk disk(size);
            files.Merge("P", "OUT");
        }
        EXPECT_EQ(FileText("P.STDMEMXML"), merged.substr(0, size));
        const bool isWhole = Size(1) == 2U && Size(2) == 4U;
        EXPECT_TRUE(isWhole || (store.Types().size() == 4 && store.Areas().empty())) << size;
        EXPECT_EQ(isWhole, store.GetCurrentPath() == "P.STDMEMXML");
        failures += isWhole ? 0 : 1;
        EXPECT_EQ(library.Complaints(), "");
        EXPECT_EQ(HeldWhenClosed(), held);
    }
    EXPECT_GE(failures, merged.size() - 1) << "all but the newline at the end is needed";
}

TEST_F(FullDiskConfigTest, AMergeIntoANewProjectNeedsNoWholeDefaultFile) {
    WriteFile("OUT\\P.STDMEMXML", kDeliveredDefinitions);
    WriteFile("DEFAULT.XML", kProjectDefinitions);
    store.SetDefaultPath("DEFAULT.XML");
    files.Merge("P", "OUT");
    const std::size_t room = FileText("P.STDMEMXML").size();
    bool isWhole = false;
    for (std::size_t size = 0; size <= room; ++size) {
        std::filesystem::remove("P.STDMEMXML");
        {
            const SmallDisk disk(size);
            files.Merge("P", "OUT");
        }
        isWhole = Size(1) == 2U && Size(2) == 4U;
        EXPECT_TRUE(isWhole || store.GetCurrentPath().empty() || Size(2) == 4U) << size;
        EXPECT_EQ(FileText("DEFAULT.XML"), kProjectDefinitions);
        EXPECT_EQ(library.Complaints(), "");
    }
    EXPECT_TRUE(isWhole);
}

std::uint64_t removingEntry = 0;
std::uint64_t libraryEntries = 0;

/// Takes all files away at one of the libraryEntries into the library.
void RemoveFiles(bool isEntry) {
    if (isEntry && ++libraryEntries == removingEntry) {
        for (const char* path : {"P.STDMEMXML", "OUT\\P.STDMEMXML", "DEFAULT.XML"}) {
            std::filesystem::remove(path);
        }
    }
}

class VanishingConfigTest : public FullDiskConfigTest {
  protected:
    VanishingConfigTest() { FakeXmlLibrary::onEntryAndReturn = RemoveFiles; }
    ~VanishingConfigTest() override { FakeXmlLibrary::onEntryAndReturn = nullptr; }

    /// Runs the operation while the files go at the library's call 1, 2, 3, ..., and `check` each
    /// time, until they stay.
    template <typename Operation, typename Check>
    void RemoveAtEachEntry(const Operation& operation, const Check& check) {
        for (removingEntry = 1;; ++removingEntry) {
            WriteFile("P.STDMEMXML", kProjectDefinitions);
            WriteFile("OUT\\P.STDMEMXML", kDeliveredDefinitions);
            WriteFile("DEFAULT.XML", kProjectDefinitions);
            libraryEntries = 0;
            operation();
            EXPECT_EQ(library.Complaints(), "");
            if (libraryEntries < removingEntry) {
                EXPECT_GT(removingEntry, 10U);
                return;
            }
            check();
        }
    }
};

TEST_F(VanishingConfigTest, AFileThatGoesBeforeItIsOpenedFailsToLoad) {
    ConfigOutcome outcome = ConfigOutcome::Done;
    RemoveAtEachEntry([&] { outcome = files.Load("P"); },
                      [&] {
                          const bool isLoaded = Size(1) == 2U;
                          EXPECT_EQ(isLoaded, removingEntry > 1) << "opened, it is read whole";
                          EXPECT_EQ(outcome,
                                    isLoaded ? ConfigOutcome::Done : ConfigOutcome::Failed);
                          EXPECT_EQ(store.GetCurrentPath(), isLoaded ? "P.STDMEMXML" : "");
                      });
    EXPECT_EQ(outcome, ConfigOutcome::Done);
}

TEST_F(VanishingConfigTest, AMergeHasWhatTheProjectsFileHolds) {
    bool wasReadAgain = false;
    const auto check = [&] {
        const bool isInUse = store.GetCurrentPath() == "P.STDMEMXML";
        if (Exists("P.STDMEMXML")) {
            EXPECT_GT(removingEntry, 1U) << "without the delivered file nothing is written";
            EXPECT_TRUE(isInUse);
            EXPECT_EQ(Size(1), removingEntry == 2 ? 0U : 2U) << "gone before it was opened";
            EXPECT_EQ(Size(2), 4U);
            return;
        }
        // It has never been written, or went behind that: before it was read again, or after.
        wasReadAgain = wasReadAgain || (isInUse && removingEntry > 3);
        EXPECT_EQ(isInUse, wasReadAgain);
        EXPECT_EQ(Size(1), wasReadAgain ? 2U : 0U);
        EXPECT_EQ(Size(2), wasReadAgain ? 4U : 0U);
        EXPECT_EQ(store.Types().size(), wasReadAgain ? 6U : 4U);
        EXPECT_EQ(store.Areas().size(), wasReadAgain ? 2U : 0U);
    };
    RemoveAtEachEntry([&] { files.Merge("P", "OUT"); }, check);
    EXPECT_TRUE(wasReadAgain);
    EXPECT_EQ(Size(1), 2U);
    EXPECT_EQ(Size(2), 4U);
}

}  // namespace
}  // namespace orvell::test
