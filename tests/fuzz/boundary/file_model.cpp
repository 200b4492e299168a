#include "fuzz/boundary/file_model.h"

#include <algorithm>

#include "fuzz/files/file_losses.h"
#include "fuzz/files/list_file_reference.h"
#include "paramlist/parameter_entry.h"

namespace orvell::fuzz {
namespace {

PlainEntry PlainEntryOf(const std::string& keyword, ModelType type, const ModelEntry& entry) {
    return {.keyword = keyword,
            .number = entry.number,
            .flags = entry.isDeclared ? paramlist::kDeclaredMark : 0,
            .name = entry.name,
            .comment = entry.comment,
            .value = StoredBytes(type, entry.value)};
}

void SetEntries(ListModel& list, const PlainList& entries) {
    for (auto& [keyword, kind] : list.Kinds()) {
        kind.entries.clear();
    }
    for (const PlainEntry& entry : entries) {
        ModelKind& kind = list.Kinds().at(entry.keyword);
        kind.entries.push_back({entry.number, (entry.flags & paramlist::kDeclaredMark) != 0,
                                entry.name, entry.comment, ValueOfBytes(kind.type, entry.value)});
    }
}

/// Each number's first entry.
PlainList OncePerNumber(const PlainList& entries) {
    PlainList once = entries;
    once.erase(std::unique(once.begin(), once.end(),
                           [](const PlainEntry& left, const PlainEntry& right) {
                               return left.keyword == right.keyword && left.number == right.number;
                           }),
               once.end());
    return once;
}

std::string TextOfMessage(const std::string& number, const std::string& argument) {
    if (number == "2000") {
        return "Unbekannter Datentyp " + argument + " !";
    }
    if (number == "2001") {
        return "Der Parameter " + argument + " ist im Projekt nicht definiert !";
    }
    if (number == "2002") {
        return "Ung\xFCltiger Parameter " + argument + " !";
    }
    return number == "2003" ? "Ung\xFCltiges Zeilenformat !" : "Ung\xFCltiger Parameterwert !";
}

/// A warning is "<message> in line <line>", perhaps with " [<argument>]" behind it.
std::string WarningLine(const std::string& warning) {
    const std::size_t line = std::string("2000 in line ").size();
    const std::size_t end = std::min(warning.find(' ', line), warning.size());
    std::string argument;
    if (end < warning.size()) {
        argument = warning.substr(end + 2, warning.size() - end - 3);
    }
    return "Zeile " + warning.substr(line, end - line) + ":   Warnung !   " +
           TextOfMessage(warning.substr(0, 4), argument);
}

}  // namespace

PlainList ModelEntries(ListModel& list) {
    PlainList entries;
    for (const auto& [keyword, kind] : list.Kinds()) {
        for (const ModelEntry& entry : kind.entries) {
            entries.push_back(PlainEntryOf(keyword, kind.type, entry));
        }
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const PlainEntry& left, const PlainEntry& right) {
                         return left.keyword == right.keyword ? left.number < right.number
                                                              : left.keyword < right.keyword;
                     });
    return entries;
}

bool ReadIntoModel(ListModel& list, const std::string& bytes, paramlist::ListFileScope scope) {
    ReferenceList reference(ModelEntries(list));
    const bool isDone = ReadListFileByReference(reference, bytes, scope);
    SetEntries(list, reference.Entries());
    return isDone;
}

PlainWarnings ReadCsvIntoModel(ListModel& list, const std::string& bytes) {
    ReferenceList reference(ModelEntries(list));
    PlainWarnings warnings = ReadCsvFileByReference(reference, bytes);
    SetEntries(list, reference.Entries());
    return warnings;
}

void RequireWritten(const PlainList& entries, const std::string& bytes, FileForm form) {
    if (form == FileForm::List) {
        if (HasNoneOf(entries, "", kForeignToListFile)) {
            ReferenceList read;
            ReadListFileByReference(read, bytes, paramlist::ListFileScope::AllEntries);
            RequireEqual(read.Entries(), AfterListFile(entries), "a list file has the list");
        }
    } else if (HasNoneOf(entries, "", kForeignToCsvFile)) {
        const PlainList before = OncePerNumber(entries);
        ReferenceList read(before);
        const PlainWarnings warnings = ReadCsvFileByReference(read, bytes);
        const CsvOutcome expected = AfterCsvFile(entries, before);
        RequireEqual(read.Entries(), expected.list, "a CSV file has the list");
        RequireEqual(warnings, expected.warnings, "a CSV file can be read");
    }
}

PageLines ReportOf(const std::string& path, const PlainWarnings& warnings, std::int32_t page) {
    constexpr std::uint32_t kTextColor = 0;
    constexpr std::uint32_t kRed = 0xFF;
    PageLines lines = {{page, "Importiere " + path + " ...", kTextColor, 0}};
    for (const std::string& warning : warnings) {
        lines.push_back({page, WarningLine(warning), kRed, 1});
    }
    lines.push_back(
        {page,
         warnings.empty() ? "Keine Warnungen" : std::to_string(warnings.size()) + " Warnungen",
         kTextColor, 0});
    return lines;
}

}  // namespace orvell::fuzz
