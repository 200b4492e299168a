// Disks that are full or broken, at every place of a file.

#include "paramlist/csv_file_writer.h"
#include "paramlist/list_file_reader.h"
#include "paramlist/list_file_writer.h"
#include "support/short_memory.h"
#include "unit/paramlist/csv_import_fixture.h"
#include "unit/paramlist/generated_list.h"

namespace orvell::paramlist {
namespace {

using Writer = bool (*)(const ParameterList&, const resources::StringTable&, platform::ByteSink&);

/// Enough for several blocks of either file.
constexpr std::uint32_t kEntryCount = 6000;

class WriteErrors : public test::ListFixture, public testing::WithParamInterface<Writer> {
  protected:
    WriteErrors() { test::FillList(list, kEntryCount); }

    bool Write(platform::ByteSink& sink) const { return GetParam()(list, strings, sink); }
};

INSTANTIATE_TEST_SUITE_P(Writers, WriteErrors,
                         testing::Values(static_cast<Writer>(WriteListFile),
                                         static_cast<Writer>(WriteCsvFile)));

TEST_P(WriteErrors, EveryFailedWriteIsNoticedAndIsTheLast) {
    test::MemorySink whole;
    ASSERT_TRUE(Write(whole));
    ASSERT_GE(whole.writeCount, 3);
    const std::size_t held = test::HeldBlocks();
    for (int failing = 0; failing < whole.writeCount; ++failing) {
        {
            test::MemorySink sink(failing);
            EXPECT_FALSE(Write(sink)) << failing;
            EXPECT_EQ(sink.writeCount, failing);
            EXPECT_EQ(sink.refusedCount, 1) << failing;
            EXPECT_EQ(sink.closeCount, 1) << failing;
            EXPECT_TRUE(whole.text.starts_with(sink.text)) << failing;
        }
        EXPECT_EQ(test::HeldBlocks(), held) << failing;
    }
    test::MemorySink never(whole.writeCount);
    EXPECT_TRUE(Write(never));
    EXPECT_EQ(never.text, whole.text);
}

TEST_P(WriteErrors, ClosingMayFailAlone) {
    test::MemorySink sink(test::MemorySink::kNever, /*failsToClose=*/true);
    EXPECT_FALSE(Write(sink));
    EXPECT_EQ(sink.closeCount, 1);
}

TEST_P(WriteErrors, AnEmptyListIsWrittenWithTheLastBlock) {
    list.ClearAll();
    test::MemorySink sink(0);
    EXPECT_FALSE(Write(sink));
    EXPECT_EQ(sink.closeCount, 1);
}

TEST_F(WriteErrors, FilesThatCannotBeWrittenAreFailures) {
    test::MemorySink anywhere;  // loads the texts, which are kept from then on
    ASSERT_TRUE(WriteListFile(list, strings, anywhere));
    ASSERT_TRUE(WriteCsvFile(list, strings, anywhere));
    const std::size_t held = test::HeldBlocks();
    // The last is a device that is always full, or nothing where there is no such device.
    for (const char* path : {"", "no such folder/A.SIL", "/", "/dev/full"}) {
        EXPECT_FALSE(WriteListFile(list, strings, std::string(path))) << path;
        EXPECT_FALSE(WriteCsvFile(list, strings, std::string(path))) << path;
        EXPECT_EQ(test::HeldBlocks(), held) << path;
    }
}

/// Fails with the read `failingRead`, counted from 0; would go on behind it.
class FailingSource : public test::MemorySource {
  public:
    FailingSource(std::string text, std::size_t portion, int failingRead)
        : MemorySource(std::move(text), portion), failingRead_(failingRead) {}

    [[nodiscard]] std::size_t Read(std::span<char> buffer) override {
        if (readCount == failingRead_) {
            ++readCount;
            return 0;
        }
        return MemorySource::Read(buffer);
    }

  private:
    const int failingRead_;
};

class ReadErrors : public test::CsvImportFixture {
  protected:
    ReadErrors() {
        test::FillList(list, kEntriesRead);
        for (ParameterList* each : {&failed, &cut}) {
            each->BuildKinds();
        }
    }

    static constexpr std::uint32_t kEntriesRead = 60;
    static constexpr std::size_t kPortion = 100;

    ParameterList failed{strings};
    ParameterList cut{strings};
};

TEST_F(ReadErrors, AListFileEndsWhereItCannotBeReadFurther) {
    test::MemorySink file;
    ASSERT_TRUE(WriteListFile(list, strings, file));
    const int reads = static_cast<int>(file.text.size() / kPortion) + 2;
    for (int failing = 0; failing < reads; ++failing) {
        FailingSource broken(file.text, kPortion, failing);
        failed.ClearAll();
        const bool isRead = ReadListFile(failed, strings, broken, ListFileScope::AllEntries);
        EXPECT_EQ(broken.readCount, failing + 1) << "read on behind the failure";

        test::MemorySource part(file.text.substr(0, static_cast<std::size_t>(failing) * kPortion));
        cut.ClearAll();
        EXPECT_EQ(isRead, ReadListFile(cut, strings, part, ListFileScope::AllEntries)) << failing;
        EXPECT_EQ(Everything(failed), Everything(cut)) << failing;
    }
    EXPECT_EQ(Everything(failed), Everything(list));
}

TEST_F(ReadErrors, ACsvFileEndsWhereItCannotBeReadFurther) {
    test::MemorySink file;
    ASSERT_TRUE(WriteCsvFile(list, strings, file));
    const int reads = static_cast<int>(file.text.size() / kPortion) + 2;
    for (int failing = 0; failing < reads; ++failing) {
        for (ParameterList* each : {&failed, &cut}) {
            each->ClearAll();
            test::FillList(*each, kEntriesRead, 2);
        }
        FailingSource broken(file.text, kPortion, failing);
        test::RecordedWarnings report;
        ReadCsvFile(failed, strings, broken, "A.CSV", report);
        EXPECT_EQ(broken.readCount, failing + 1) << "read on behind the failure";
        EXPECT_EQ(report.endedCounts.size(), 1U) << "the report is closed all the same";

        const std::size_t size = static_cast<std::size_t>(failing) * kPortion;
        EXPECT_EQ(report.warnings, Read(cut, file.text.substr(0, size))) << failing;
        EXPECT_EQ(Everything(failed), Everything(cut)) << failing;
    }
}

TEST_F(ReadErrors, FilesThatCannotBeOpenedAreFailures) {
    test::RecordedWarnings report;
    for (const char* path : {"", "no such file"}) {
        EXPECT_FALSE(ReadListFile(list, strings, std::string(path), ListFileScope::AllEntries));
        EXPECT_FALSE(ReadCsvFile(list, strings, std::string(path), report));
    }
    EXPECT_TRUE(report.startedPaths.empty());
    EXPECT_TRUE(report.endedCounts.empty());
}

}  // namespace
}  // namespace orvell::paramlist
