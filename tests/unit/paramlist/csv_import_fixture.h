#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "paramlist/csv_file_reader.h"
#include "unit/paramlist/byte_stream_fakes.h"
#include "unit/paramlist/list_fixture.h"

namespace orvell::test {

/// Notes each warning as "line number argument", the argument in brackets.
class RecordedWarnings : public paramlist::ImportWarnings {
  public:
    void Start(const std::string& path) override { startedPaths.push_back(path); }

    void Warning(resources::StringId message, std::uint32_t line,
                 std::optional<std::string_view> argument) override {
        std::string text =
            std::to_string(line) + ' ' + std::to_string(static_cast<std::uint32_t>(message));
        if (argument) {
            text.append(" [").append(*argument).append("]");
        }
        warnings.push_back(std::move(text));
    }

    void End(std::int32_t warningCount) override { endedCounts.push_back(warningCount); }

    std::vector<std::string> startedPaths;
    std::vector<std::string> warnings;
    std::vector<std::int32_t> endedCounts;
};

/// A list into which texts can be read as CSV files.
class CsvImportFixture : public ListFixture {
  protected:
    /// The warnings that the text gives.
    std::vector<std::string> Read(std::string text) { return Read(list, std::move(text)); }

    std::vector<std::string> Read(paramlist::ParameterList& into, std::string text) const {
        MemorySource bytes(std::move(text));
        RecordedWarnings report;
        paramlist::ReadCsvFile(into, strings, bytes, "A.CSV", report);
        EXPECT_EQ(report.startedPaths, std::vector<std::string>{"A.CSV"});
        EXPECT_EQ(report.endedCounts,
                  std::vector<std::int32_t>{static_cast<std::int32_t>(report.warnings.size())});
        return report.warnings;
    }
};

}  // namespace orvell::test
