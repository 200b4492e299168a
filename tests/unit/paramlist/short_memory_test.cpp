// Memory runs out anywhere while files are read and written and values set: what was complete
// stays, and nothing is lost to the system.

#include "paramlist/csv_file_writer.h"
#include "paramlist/list_file_reader.h"
#include "paramlist/list_file_writer.h"
#include "paramlist/project_list.h"
#include "paramlist/value_access.h"
#include "unit/memstruct/temporary_folder.h"
#include "unit/paramlist/counted_memory.h"
#include "unit/paramlist/csv_import_fixture.h"

namespace orvell::paramlist {
namespace {

using test::Shortage;
using test::TakenBytes;

class SilentWarnings : public ImportWarnings {
  public:
    void Start(const std::string& /*path*/) override {}
    void Warning(resources::StringId /*message*/, std::uint32_t /*line*/,
                 std::optional<std::string_view> /*argument*/) override {}
    void End(std::int32_t /*warningCount*/) override {}
};

/// Takes bytes without memory of its own.
class CountingSink : public platform::ByteSink {
  public:
    [[nodiscard]] bool Write(std::string_view bytes) override {
        size += bytes.size();
        return true;
    }
    [[nodiscard]] bool Close() override { return true; }

    std::size_t size = 0;
};

/// Gives out a text that it does not own.
class ViewSource : public platform::ByteSource {
  public:
    explicit ViewSource(std::string_view text) : rest_(text) {}

    [[nodiscard]] std::size_t Read(std::span<char> buffer) override {
        const std::size_t size = std::min(buffer.size(), rest_.size());
        std::copy_n(rest_.begin(), size, buffer.begin());
        rest_.remove_prefix(size);
        return size;
    }

  private:
    std::string_view rest_;
};

class ShortMemoryTest : public test::ListFixture, public testing::WithParamInterface<Shortage> {
  protected:
    ShortMemoryTest() {
        for (int number = 1; number <= kCount; ++number) {
            Add("PT" + std::to_string(number), "name", "comment",
                "a text of more than a few bytes, number " + std::to_string(number));
        }
        test::MemorySink listSink;
        EXPECT_TRUE(WriteListFile(list, strings, listSink));
        listFile = listSink.text;
        test::MemorySink csvSink;
        EXPECT_TRUE(WriteCsvFile(list, strings, csvSink));
        csvFile = csvSink.text;
        Import(listFile);  // has all texts loaded
        ImportCsv();
        list.ClearAll();
    }

    template <typename Action, typename Check>
    static void FailEveryAllocation(const Action& action, const Check& check) {
        test::FailEveryAllocation(action, check, GetParam());
    }

    void Import(std::string_view text) {
        ViewSource bytes(text);
        EXPECT_TRUE(ReadListFile(list, strings, bytes, ListFileScope::AllEntries));
    }

    void ImportCsv() {
        ViewSource bytes(csvFile);
        SilentWarnings warnings;
        ReadCsvFile(list, strings, bytes, path_, warnings);
    }

    /// Of the first entries, how many are as in the file.
    int WholeEntries() {
        int count = 0;
        while (count < kCount && Entry("PT" + std::to_string(count + 1)) ==
                                     "name|a text of more than a few bytes, number " +
                                         std::to_string(count + 1) + "|comment") {
            ++count;
        }
        return count;
    }

    static constexpr int kCount = 100;

    const std::string path_ = "A.CSV";
    std::string listFile;
    std::string csvFile;
};

INSTANTIATE_TEST_SUITE_P(Shortage, ShortMemoryTest,
                         testing::Values(Shortage::Passing, Shortage::Lasting),
                         [](const auto& shortage) {
                             return shortage.param == Shortage::Passing ? "Passing" : "Lasting";
                         });

TEST_P(ShortMemoryTest, AListFileIsTakenOverUpToTheRecordThatFailed) {
    const std::size_t before = TakenBytes();
    int mostEntries = 0;
    FailEveryAllocation([&] { Import(listFile); },
                        [&] {
                            const auto entries = static_cast<int>(EntryCount());
                            EXPECT_LE(entries - WholeEntries(), 1)
                                << "only the last may lack its value";
                            EXPECT_GE(entries, mostEntries) << "more memory, no less entries";
                            mostEntries = entries;
                            list.ClearAll();
                            EXPECT_EQ(TakenBytes(), before) << entries;
                        });
    EXPECT_EQ(mostEntries, kCount);
    EXPECT_EQ(WholeEntries(), kCount);
    list.ClearAll();
    EXPECT_EQ(TakenBytes(), before);
}

TEST_P(ShortMemoryTest, ACsvFileIsTakenOverUpToTheRecordThatFailed) {
    const std::size_t before = TakenBytes();
    const auto addEmptyEntries = [&] {
        list.ClearAll();
        EXPECT_EQ(TakenBytes(), before);
        for (std::uint32_t number = 1; number <= kCount; ++number) {
            list.FindKind("PT")->Obtain(number, false);
        }
    };
    addEmptyEntries();
    int mostEntries = 0;
    FailEveryAllocation([&] { ImportCsv(); },
                        [&] {
                            const int entries = WholeEntries();
                            EXPECT_LT(entries, kCount);
                            EXPECT_GE(entries, mostEntries) << "more memory, no less entries";
                            mostEntries = entries;
                            addEmptyEntries();
                        });
    EXPECT_EQ(mostEntries, kCount - 1);
    EXPECT_EQ(WholeEntries(), kCount);
}

TEST_P(ShortMemoryTest, WritersLeaveNothingBehind) {
    Import(listFile);
    using Writer =
        bool (*)(const ParameterList&, const resources::StringTable&, platform::ByteSink&);
    for (const Writer write : {static_cast<Writer>(WriteListFile), Writer{WriteCsvFile}}) {
        const std::size_t before = TakenBytes();
        std::size_t written = 0;
        FailEveryAllocation(
            [&] {
                CountingSink sink;
                EXPECT_TRUE(write(list, strings, sink));
                written = sink.size;
            },
            [&] { EXPECT_EQ(TakenBytes(), before); });
        EXPECT_GT(written, listFile.size() / 3);
        EXPECT_EQ(TakenBytes(), before);
    }
}

TEST_P(ShortMemoryTest, AFailedLoadLeavesAnEmptyListWithoutAName) {
    const test::TemporaryFolder folder;
    test::WriteFile("PLANT.SIL", listFile);
    const std::string project = "plant.prj";
    ProjectList projectList(list, strings);
    projectList.Load(project);
    ASSERT_EQ(EntryCount(), static_cast<std::size_t>(kCount));
    FailEveryAllocation([&] { projectList.Load(project); },
                        [&] {
                            EXPECT_EQ(EntryCount(), 0U);
                            EXPECT_EQ(list.ProjectName(), "");
                            EXPECT_EQ(list.KindCount(), 15U);
                        });
    EXPECT_EQ(EntryCount(), static_cast<std::size_t>(kCount));
    EXPECT_EQ(list.ProjectName(), project);
}

TEST_P(ShortMemoryTest, TheFirstLoadHasAllKindsOrNone) {
    const test::TemporaryFolder folder;
    test::WriteFile("PLANT.SIL", listFile);
    const std::string project = "plant.prj";
    std::optional<ParameterList> fresh(strings);
    const std::size_t before = TakenBytes();
    FailEveryAllocation([&] { ProjectList(*fresh, strings).Load(project); },
                        [&] {
                            EXPECT_TRUE(fresh->KindCount() == 0 || fresh->KindCount() == 15)
                                << fresh->KindCount()
                                << " kinds: all later loads would miss the others";
                            EXPECT_EQ(Everything(*fresh), "");
                            fresh.emplace(strings);
                        });
    EXPECT_EQ(fresh->FindKind("PT")->EntryCount(), static_cast<std::size_t>(kCount));
    fresh.emplace(strings);
    EXPECT_EQ(TakenBytes(), before);
}

TEST_P(ShortMemoryTest, FailedOpeningsLeaveNoFileOpen) {
    const test::TemporaryFolder folder;
    const std::string path = "A.TXT";
    const std::size_t before = TakenBytes();
    test::WriteFile(path, "before");
    FailEveryAllocation([&] { EXPECT_NE(platform::OpenFileToWrite(path), nullptr); },
                        [&] { EXPECT_EQ(test::FileText(path), "before"); });
    FailEveryAllocation([&] { EXPECT_NE(platform::OpenFileToRead(path), nullptr); }, [] {});
    EXPECT_NE(platform::OpenFileToWrite(path), nullptr) << "one left open denies this";
    EXPECT_EQ(TakenBytes(), before);
}

TEST_P(ShortMemoryTest, AValueIsSetWithItsDescriptionOrUndefined) {
    const std::string text = "a text of more than a few bytes";
    const std::size_t before = TakenBytes();
    FailEveryAllocation(
        [&] {
            EXPECT_TRUE(SetFromText(list, "PT1", text, {"n", "c"}));
        },
        [&] {
            const std::string entry = Entry("PT1");
            EXPECT_TRUE(entry == "none" || entry == "|undefined|") << entry;
            list.ClearAll();
            EXPECT_EQ(TakenBytes(), before);
        });
    EXPECT_EQ(Entry("PT1"), "n|" + text + "|c");
}

TEST_P(ShortMemoryTest, AVectorIsSetUpToTheElementThatFailed) {
    const std::vector<double> values(kCount, 1.5);
    EXPECT_TRUE(list.FillVector("PF1", values));  // has the text loaded
    list.ClearAll();
    const std::size_t before = TakenBytes();
    FailEveryAllocation([&] { EXPECT_TRUE(list.FillVector("PF1", values)); },
                        [&] {
                            const auto entries = static_cast<int>(EntryCount());
                            for (int number = 1; number < entries; ++number) {
                                EXPECT_EQ(Entry("PF" + std::to_string(number)),
                                          "|1.5|Vektorelement " + std::to_string(number));
                            }
                            list.ClearAll();
                            EXPECT_EQ(TakenBytes(), before) << entries;
                        });
    EXPECT_EQ(EntryCount(), values.size());
}

/// Bytes that the action asks for, given back or not.
template <typename Action>
std::size_t Cost(const Action& action) {
    const std::size_t before = test::TotalBytes();
    action();
    return test::TotalBytes() - before;
}

TEST_P(ShortMemoryTest, FilesCostMemoryInProportion) {
    constexpr std::size_t kMegabyte = 1024 * 1024;
    const std::string huge(4 * kMegabyte, 'x');
    const std::string quotes(4 * kMegabyte, '"');
    Add("PT1");
    const std::string csvFiles[] = {
        huge, "PT1;" + huge + "\n", "PT1;n;\"" + quotes + "\";;c\n", "PT1;n" + quotes, huge + ";\n",
    };
    for (const std::string& file : csvFiles) {
        const std::size_t cost = Cost([&] {
            ViewSource bytes(file);
            SilentWarnings warnings;
            ReadCsvFile(list, strings, bytes, path_, warnings);
        });
        EXPECT_LT(cost, 8 * file.size()) << file.substr(0, 8);
    }
    const std::string listFiles[] = {
        huge + '\n',
        " 0 PT 1 N : " + huge + "\n D : 1\n C : 1\n",
        " 0 PT 1 N : 1\n D : " + huge + "\n C : 1\n",
        " 0 " + huge + " 1 N : 1\n D : 1\n C : 1\n",
    };
    for (const std::string& file : listFiles) {
        EXPECT_LT(Cost([&] { Import(file); }), 8 * file.size()) << file.substr(0, 8);
    }
    EXPECT_LT(Cost([&] { Import(std::string_view(huge).substr(0, 0)); }), kMegabyte)
        << "a short file costs a block";
}

}  // namespace
}  // namespace orvell::paramlist
