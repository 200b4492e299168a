// Measures the parameter list: files both ways, look-ups, update cycles, memory.
//
// usage: list_benchmark [FOLDER]
//   FOLDER   holds param.sil, param.csv and shuffled.csv (records of param.csv in any order); a
//            scratch file is written there. Without it, lists of 10,000, 100,000 and 1,000,000
//            entries of all kinds are generated into the current folder, one after the other.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "measurement.h"
#include "paramlist/csv_file_reader.h"
#include "paramlist/csv_file_writer.h"
#include "paramlist/list_file_reader.h"
#include "paramlist/list_file_writer.h"
#include "paramlist/parameter_list.h"
#include "platform/byte_stream.h"
#include "process.h"
#include "resources/built_in_strings.h"
#include "resources/string_table.h"
#include "unit/paramlist/generated_list.h"
#include "update_cycle.h"

namespace orvell::benchmarks {
namespace {

using paramlist::ListFileScope;
using paramlist::ParameterAddress;
using paramlist::ParameterKind;
using paramlist::ParameterList;

class CountedWarnings : public paramlist::ImportWarnings {
  public:
    void Start(const std::string&) override {}
    void Warning(resources::StringId, std::uint32_t, std::optional<std::string_view>) override {}
    void End(std::int32_t warningCount) override {
        Require(warningCount == 0, "the CSV import warns");
    }
};

std::string ReadWhole(const std::string& path) {
    const auto source = platform::OpenFileToRead(path);
    Require(source != nullptr, "cannot open " + path);
    std::string text;
    std::vector<char> block(1 << 20);
    while (const std::size_t size = source->Read(block)) {
        text.append(block.data(), size);
    }
    return text;
}

void WriteWhole(const std::string& path, std::string_view text) {
    const auto sink = platform::OpenFileToWrite(path);
    Require(sink != nullptr && sink->Write(text) && sink->Close(), "cannot write " + path);
}

/// Everything that the measurements work on.
class Bench {
  public:
    Bench(std::string folder, std::string name)
        : folder_(std::move(folder)), name_(std::move(name)) {}

    void Generate(std::uint32_t entryCount) {
        list_.BuildKinds();
        list_.SetProjectName(kProjectName);
        test::FillList(list_, entryCount);
        Require(paramlist::WriteListFile(list_, strings_, ListPath()), "cannot write the list");
        Require(paramlist::WriteCsvFile(list_, strings_, CsvPath()), "cannot write the CSV file");
        WriteShuffledRecords();
        list_.ClearAll();
    }

    void Run() {
        MeasureMemory();
        MeasureCsv();
        MeasureListFile();
        MeasureLookUps();
        MeasureUpdateCycles(list_, name_);
        std::remove(ScratchPath().c_str());
    }

  private:
    static constexpr const char* kProjectName = "ANLAGE1";

    [[nodiscard]] std::string ListPath() const { return folder_ + "/param.sil"; }
    [[nodiscard]] std::string CsvPath() const { return folder_ + "/param.csv"; }
    [[nodiscard]] std::string ShuffledPath() const { return folder_ + "/shuffled.csv"; }
    [[nodiscard]] std::string ScratchPath() const { return folder_ + "/scratch.tmp"; }

    void WriteShuffledRecords() const {
        const std::string text = ReadWhole(CsvPath());
        std::vector<std::string_view> records;
        for (std::size_t start = 0; start < text.size();) {
            const std::size_t end = text.find('\n', start) + 1;
            const std::string_view line(text.data() + start, end - start);
            if (std::ranges::count(line, ';') >= 4 && !line.starts_with("Adresse")) {
                records.push_back(line);
            }
            start = end;
        }
        std::ranges::shuffle(records, std::mt19937(1));
        std::string shuffled;
        for (const std::string_view record : records) {
            shuffled += record;
        }
        WriteWhole(ShuffledPath(), shuffled);
    }

    void LoadList() {
        list_.BuildOrClear();
        ImportList(ListPath(), ListFileScope::AllEntries);
    }

    void ImportList(const std::string& path, ListFileScope scope) {
        Require(paramlist::ReadListFile(list_, strings_, path, scope), "cannot read " + path);
    }

    void ExportList() const {
        Require(paramlist::WriteListFile(list_, strings_, ScratchPath()),
                "cannot write the list file");
    }

    void ImportCsv(const std::string& path) {
        CountedWarnings warnings;
        Require(paramlist::ReadCsvFile(list_, strings_, path, warnings), "cannot read " + path);
    }

    void MeasureMemory() {
        list_.BuildOrClear();
        const std::uint64_t before = HeapBytes();
        LoadList();
        const std::uint64_t used = HeapBytes() - before;
        for (const ParameterKind& kind : list_.Kinds()) {
            entryCount_ += static_cast<double>(kind.EntryCount());
        }
        PrintFigure("heap-bytes-per-entry", name_, static_cast<double>(used) / entryCount_);
    }

    void MeasureCsv() {
        const std::string expected = ReadWhole(CsvPath());
        const auto bytes = static_cast<double>(expected.size());
        Measure({"csv-import", name_, bytes, entryCount_}, [&] { ImportCsv(CsvPath()); });
        Measure({"csv-import-shuffled", name_, bytes, entryCount_},
                [&] { ImportCsv(ShuffledPath()); });
        list_.SetProjectName(kProjectName);
        Measure({"csv-export", name_, bytes, entryCount_}, [&] {
            Require(paramlist::WriteCsvFile(list_, strings_, ScratchPath()), "CSV export fails");
        });
        Require(ReadWhole(ScratchPath()) == expected, "the CSV export differs from the import");
    }

    void MeasureListFile() {
        const auto bytes = static_cast<double>(ReadWhole(ListPath()).size());
        Measure({"list-export", name_, bytes, entryCount_}, [&] { ExportList(); });
        const std::string exported = ReadWhole(ScratchPath());
        list_.ClearAll();
        ImportList(ScratchPath(), ListFileScope::AllEntries);
        ExportList();
        Require(ReadWhole(ScratchPath()) == exported, "the list changes on its way through a file");

        Measure({"list-import", name_, bytes, entryCount_},
                [&] { ImportList(ListPath(), ListFileScope::ExistingEntries); });
        Measure({"list-load", name_, bytes, entryCount_}, [&] { LoadList(); });
    }

    void MeasureLookUps() {
        std::vector<std::string> addresses;
        const std::string text = ReadWhole(ShuffledPath());
        for (std::size_t start = 0; start < text.size(); start = text.find('\n', start) + 1) {
            addresses.push_back(text.substr(start, text.find(';', start) - start));
        }
        const auto count = static_cast<double>(addresses.size());
        Measure({"look-up", name_, 0, count}, [&] {
            for (const std::string& address : addresses) {
                const ParameterAddress parsed = list_.ParseAddress(address);
                Require(parsed.kind->Find(parsed.number) != nullptr, "look-up fails");
            }
        });
    }

    const std::string folder_;
    const std::string name_;  ///< in the printed lines
    const resources::BuiltInStrings texts_;
    const resources::StringTable strings_{texts_};
    ParameterList list_{strings_};
    double entryCount_ = 0;
};

}  // namespace
}  // namespace orvell::benchmarks

int main(int argumentCount, char** arguments) {
    if (argumentCount > 1) {
        orvell::benchmarks::Bench(arguments[1], "orvell").Run();
        return 0;
    }
    for (const std::uint32_t entryCount : {10'000U, 100'000U, 1'000'000U}) {
        const std::string name = "orvell, " + std::to_string(entryCount) + " entries";
        orvell::benchmarks::Bench bench(".", name);
        bench.Generate(entryCount);
        bench.Run();
    }
    return 0;
}
