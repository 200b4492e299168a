#include "fuzz/texts/hostile_exports.h"

#include <array>
#include <string_view>
#include <vector>

#include "fuzz/require.h"
#include "fuzz/texts/changed_strings.h"
#include "fuzz/texts/format_reference.h"
#include "paramlist/csv_file_writer.h"
#include "paramlist/list_file_writer.h"
#include "paramlist/text_kinds.h"
#include "unit/paramlist/byte_stream_fakes.h"

namespace orvell::fuzz {
namespace {

using paramlist::ParameterList;
using resources::FormatArgument;
using resources::StringId;
using resources::StringTable;

constexpr std::string_view kProjectName = "C:\\%n.prj";

/// A bit, a word and an undefined text.
const ParameterList& SmallList() {
    static ParameterList* const kList = [] {
        static const resources::BuiltInStrings kSource;
        static const StringTable kStrings(kSource);
        static ParameterList list(kStrings);
        list.BuildKinds();
        list.SetProjectName(std::string(kProjectName));
        for (const char* address : {"E3.5", "PW12", "PT1"}) {
            const auto parsed = list.ParseAddress(address);
            paramlist::ParameterEntry& entry = parsed.kind->Obtain(parsed.number, false);
            entry.SetName("n%s");
            entry.SetComment("%n \"");
        }
        for (const char* address : {"E3.5", "PW12"}) {
            const auto parsed = list.ParseAddress(address);
            parsed.kind->Handler()->SetFromText(parsed.kind->Find(parsed.number)->Value(), "1");
        }
        return &list;
    }();
    return *kList;
}

std::string InFile(const std::string& text) {
    std::string bytes;
    for (const char character : text) {
        bytes += character == '\n' ? std::string("\r\n") : std::string(1, character);
    }
    return bytes;
}

std::string Format(const StringTable& strings, StringId id,
                   std::initializer_list<FormatArgument> arguments) {
    return FormatByReference(strings.Text(id), {arguments.begin(), arguments.size()});
}

std::string ExpectedListFile(const StringTable& strings) {
    std::string text = Format(strings, StringId::ListFileHeader, {kProjectName});
    for (std::uint32_t index = 0; index < paramlist::kParameterKindCount; ++index) {
        text += paramlist::KindText(strings, StringId::ListHeaderE, index);
        const std::string& keyword = paramlist::KindText(strings, StringId::KeywordE, index);
        const auto record = [&](std::uint32_t number, std::string_view value) {
            text +=
                Format(strings, StringId::ListFileRecord, {keyword, number, "n%s", value, "%n@\""});
        };
        if (keyword == "E") {
            record(29, "1");
        } else if (keyword == "PW") {
            record(12, "1");
        } else if (keyword == "PT") {
            record(1, strings.Text(StringId::UndefinedValue));
        }
    }
    return InFile(text);
}

std::string ExpectedCsvFile(const StringTable& strings) {
    constexpr std::string_view kName = "\"n%s\"";
    constexpr std::string_view kComment = "\"%n \"\"\"";
    std::string text = strings.Text(StringId::CsvVersionLine);
    text += Format(strings, StringId::CsvProjectLine, {kProjectName});
    const auto beginKind = [&](StringId header) {
        text += strings.Text(header) + strings.Text(StringId::CsvColumnLine);
    };
    beginKind(StringId::CsvHeaderE);
    text += Format(strings, StringId::CsvBitRecord, {"E", 3U, 5U, kName, "1;", kComment}) + '\n';
    beginKind(StringId::CsvHeaderPW);
    text += Format(strings, StringId::CsvRecord, {"PW", 12U, kName, "1;", kComment}) + '\n';
    beginKind(StringId::CsvHeaderPT);
    text += Format(strings, StringId::CsvRecord, {"PT", 1U, kName, "\"\";", kComment}) + '\n';
    return InFile(text);
}

}  // namespace

void ExportWithTranslation(std::uint8_t choice, const std::string& text) {
    constexpr std::array kIds = {StringId::ListFileRecord, StringId::ListFileHeader,
                                 StringId::CsvRecord,      StringId::CsvBitRecord,
                                 StringId::CsvProjectLine, StringId::UndefinedValue,
                                 StringId::ListHeaderPW,   StringId::CsvColumnLine};
    const ChangedStrings source(kIds[choice % kIds.size()], text);
    const StringTable strings(source);
    test::MemorySink listFile;
    Require(WriteListFile(SmallList(), strings, listFile), "an export does not depend on texts");
    Require(listFile.text == ExpectedListFile(strings), "list files are what the formats say");
    test::MemorySink csvFile;
    Require(WriteCsvFile(SmallList(), strings, csvFile), "an export does not depend on texts");
    Require(csvFile.text == ExpectedCsvFile(strings), "CSV files are what the formats say");
}

}  // namespace orvell::fuzz
