// Files that come in odd pieces and with pauses, as over a network, and files that others cut while
// they are read.

#include <array>
#include <chrono>
#include <filesystem>
#include <functional>
#include <thread>

#include "paramlist/csv_file_writer.h"
#include "paramlist/list_file_reader.h"
#include "paramlist/list_file_writer.h"
#include "unit/memstruct/temporary_folder.h"
#include "unit/paramlist/csv_import_fixture.h"
#include "unit/paramlist/generated_list.h"

namespace orvell::paramlist {
namespace {

/// Never gives as much as it is asked for, and rests now and then.
class SlowSource : public platform::ByteSource {
  public:
    SlowSource(std::string_view text, std::function<std::size_t()> nextSize)
        : rest_(text), nextSize_(std::move(nextSize)) {}

    [[nodiscard]] std::size_t Read(std::span<char> buffer) override {
        constexpr int kReadsBetweenPauses = 1000;
        if (++readCount % kReadsBetweenPauses == 0) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        const std::size_t size = std::min({nextSize_(), buffer.size(), rest_.size()});
        std::copy_n(rest_.begin(), size, buffer.begin());
        rest_.remove_prefix(size);
        return size;
    }

    int readCount = 0;

  private:
    std::string_view rest_;
    std::function<std::size_t()> nextSize_;
};

/// A file in use that does something to itself behind one of its reads, or, behind read 0, before
/// the first.
class DisturbedSource : public platform::ByteSource {
  public:
    DisturbedSource(const std::string& path, int read, std::function<void()> disturb)
        : source_(platform::OpenFileToRead(path)), read_(read), disturb_(std::move(disturb)) {}

    [[nodiscard]] std::size_t Read(std::span<char> buffer) override {
        if (readCount == 0 && read_ == 0) {
            disturb_();
        }
        const std::size_t size = source_->Read(buffer);
        givenBytes += size;
        if (++readCount == read_) {
            disturb_();
        }
        return size;
    }

    int readCount = 0;
    std::size_t givenBytes = 0;

  private:
    std::unique_ptr<platform::ByteSource> source_;
    const int read_;
    const std::function<void()> disturb_;
};

class SlowFilesTest : public test::CsvImportFixture {
  protected:
    SlowFilesTest() { other.BuildKinds(); }

    void MakeFiles(std::uint32_t count) {
        entryCount = count;
        test::FillList(list, entryCount);
        test::MemorySink listSink;
        EXPECT_TRUE(WriteListFile(list, strings, listSink));
        listFile = std::move(listSink.text);
        test::MemorySink csvSink;
        EXPECT_TRUE(WriteCsvFile(list, strings, csvSink));
        csvFile = std::move(csvSink.text);
        everything = Everything(list);
    }

    void ReadListFrom(platform::ByteSource& bytes) {
        other.ClearAll();
        EXPECT_TRUE(ReadListFile(other, strings, bytes, ListFileScope::AllEntries));
    }

    /// The warnings.
    std::vector<std::string> ReadCsvFrom(platform::ByteSource& bytes) {
        other.ClearAll();
        test::FillList(other, entryCount);
        for (const ParameterKind& kind : other.Kinds()) {
            for (const ParameterEntry* const entry : kind.EntriesInOrder()) {
                other.FindKind(kind.Keyword())->Find(entry->Number())->Value().Clear();
            }
        }
        test::RecordedWarnings report;
        ReadCsvFile(other, strings, bytes, "A.CSV", report);
        EXPECT_EQ(report.endedCounts.size(), 1U);
        return report.warnings;
    }

    ParameterList other{strings};
    std::uint32_t entryCount = 0;
    std::string listFile;
    std::string csvFile;
    std::string everything;
};

TEST_F(SlowFilesTest, PiecesOfAnySizeGiveTheSame) {
    MakeFiles(200);
    std::uint32_t number = 1;
    const auto oddSize = [&number]() -> std::size_t {
        number = number * 1664525 + 1013904223;  // Numerical Recipes, ch. 7.1
        return 1 + (number >> 20) % 300;
    };
    const std::function<std::size_t()> sizes[] = {
        [] { return 1; },
        [] { return 2; },
        [] { return 7; },
        oddSize,
    };
    for (const auto& size : sizes) {
        SlowSource slowList(listFile, size);
        ReadListFrom(slowList);
        EXPECT_EQ(Everything(other), everything);
        SlowSource slowCsv(csvFile, size);
        EXPECT_EQ(ReadCsvFrom(slowCsv), std::vector<std::string>());
        EXPECT_EQ(Everything(other), everything);
        EXPECT_GE(slowList.readCount, 30);
    }
}

class VanishingFilesTest : public SlowFilesTest {
  protected:
    VanishingFilesTest() { MakeFiles(2000); }  // several blocks of either file

    /// Reads the file while it is cut behind read 0, 1, 2, ... to nothing: it ends there. `read`
    /// reads from a source into the other list and tells what it has become.
    template <typename ReadFrom>
    void ExpectEndBehindEachRead(const std::string& text, const ReadFrom& read) {
        int behind = 0;
        for (;; ++behind) {
            test::WriteFile("A.TXT", text);
            DisturbedSource cut("A.TXT", behind, [] { std::filesystem::resize_file("A.TXT", 0); });
            const auto found = read(cut);
            if (cut.readCount < behind) {
                break;
            }
            EXPECT_LE(cut.readCount, behind + 1);
            EXPECT_EQ(cut.givenBytes == 0, behind == 0) << behind;
            test::MemorySource part(text.substr(0, cut.givenBytes));
            EXPECT_EQ(found, read(part)) << behind;
        }
        EXPECT_GT(behind, 3);
    }

    static constexpr std::size_t kBlockBytes = 64 * 1024;

    test::TemporaryFolder folder;
};

TEST_F(VanishingFilesTest, AListFileEndsWhereItWasCut) {
    ExpectEndBehindEachRead(listFile, [this](platform::ByteSource& bytes) {
        ReadListFrom(bytes);
        return Everything(other);
    });
    EXPECT_EQ(Everything(other), everything);
}

TEST_F(VanishingFilesTest, ACsvFileEndsWhereItWasCut) {
    ExpectEndBehindEachRead(csvFile, [this](platform::ByteSource& bytes) {
        const std::vector<std::string> warnings = ReadCsvFrom(bytes);
        return std::pair(warnings, Everything(other));
    });
    EXPECT_EQ(Everything(other), everything);
}

TEST_F(VanishingFilesTest, AFileThatGrowsIsReadToItsNewEnd) {
    for (const int behind : {0, 1}) {
        test::WriteFile("A.TXT", listFile.substr(0, kBlockBytes));
        DisturbedSource growing("A.TXT", behind, [this] { test::WriteFile("A.TXT", listFile); });
        ReadListFrom(growing);
        EXPECT_EQ(Everything(other), everything) << behind;
    }
}

}  // namespace
}  // namespace orvell::paramlist
