#include "fuzz/texts/hostile_messages.h"

#include <array>
#include <string_view>
#include <vector>

#include "fuzz/require.h"
#include "fuzz/texts/changed_strings.h"
#include "fuzz/texts/format_reference.h"
#include "host/import_report.h"
#include "paramlist/parameter_list.h"

namespace orvell::fuzz {
namespace {

using paramlist::ParameterEntry;
using resources::FormatArgument;
using resources::StringId;
using resources::StringTable;

constexpr char kPath[] = "C:\\%n.csv";
constexpr std::string_view kAddress = "PW%s";
constexpr std::uint32_t kLine = 4'000'000'000;
constexpr std::int32_t kCount = 2'000'000'000;

std::vector<std::string> reported;

std::int32_t ORVELL_CALL FindPage(const char*) {
    return 1;
}

std::int32_t ORVELL_CALL NoteLine(std::int32_t, const char* line, std::uint32_t, std::int32_t) {
    reported.emplace_back(line);
    return 1;
}

std::string Format(const StringTable& strings, StringId id, FormatArgument argument) {
    return FormatByReference(strings.Text(id), std::array{argument});
}

/// As a host sees a line.
void ExpectLine(const std::string& line, const char* what) {
    Require(reported.size() == 1 && reported.front() == line.c_str(), what);
    reported.clear();
}

void RequireStart(const host::ImportReport& report, const StringTable& strings) {
    report.Start(kPath);
    if (strings.Text(StringId::ImportStart).empty()) {
        Require(reported.empty(), "without its text a report has no start");
    } else {
        ExpectLine(Format(strings, StringId::ImportStart, kPath), "a report starts as its format");
    }
}

void RequireReport(const StringTable& strings) {
    host::HostCallbacks callbacks;
    const HostExportTable table{sizeof table, FindPage, NoteLine, nullptr, nullptr};
    callbacks.Install(&table);
    const host::ImportReport report(callbacks, strings);
    reported.clear();
    RequireStart(report, strings);
    const std::string place = Format(strings, StringId::ImportWarning, kLine);
    for (const StringId id : {StringId::WarningUnknownKind, StringId::WarningNotDefined,
                              StringId::WarningInvalidAddress}) {
        report.Warning(id, kLine, kAddress);
        ExpectLine(place + Format(strings, id, kAddress), "warnings are what the formats say");
        report.Warning(id, kLine, std::nullopt);
        ExpectLine(place + strings.Text(id), "a warning without argument is no format");
    }
    report.End(kCount);
    ExpectLine(Format(strings, StringId::ImportWarningCount, kCount), "the count is its format's");
    report.End(0);
    ExpectLine(strings.Text(StringId::ImportNoWarnings), "a report without warnings says so");
}

/// What a comment keeps of a text: "%%" is empty, a zero byte ends it.
std::string Comment(const std::string& text) {
    const std::string kept = text.substr(0, ParameterEntry::kMaximumCommentLength);
    return text == "%%" ? std::string() : kept.substr(0, kept.find('\0'));
}

void RequireComments(const platform::StringSource& source) {
    static const resources::BuiltInStrings kGerman;
    static StringTable strings(kGerman);
    static paramlist::ParameterList list(strings);
    list.BuildOrClear();
    strings.UseSource(source);
    constexpr std::array<std::uint32_t, 3> kValues = {7, 8, 9};
    list.FillVector("PL1", kValues);
    for (std::uint32_t element = 1; element <= kValues.size(); ++element) {
        const std::string expected =
            Comment(Format(strings, StringId::VectorElementComment, element));
        const auto address = list.ParseAddress("PL" + std::to_string(element));
        Require(address.kind->Find(element)->Comment() == expected,
                "vectors have the comments that the format says");
    }
    strings.UseSource(kGerman);
}

}  // namespace

void ReportWithTranslation(std::uint8_t choice, const std::string& text) {
    constexpr std::array kIds = {StringId::ImportStart,           StringId::ImportWarning,
                                 StringId::ImportWarningCount,    StringId::ImportNoWarnings,
                                 StringId::WarningUnknownKind,    StringId::WarningNotDefined,
                                 StringId::WarningInvalidAddress, StringId::VectorElementComment};
    const ChangedStrings source(kIds[choice % kIds.size()], text);
    const StringTable strings(source);
    RequireReport(strings);
    RequireComments(source);
}

}  // namespace orvell::fuzz
