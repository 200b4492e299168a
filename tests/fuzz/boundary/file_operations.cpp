#include <array>
#include <stdexcept>

#include "fuzz/boundary/file_model.h"
#include "fuzz/boundary/host_record.h"
#include "fuzz/boundary/memory_files.h"
#include "fuzz/boundary/session.h"
#include "fuzz/boundary/vocabulary.h"
#include "fuzz/require.h"

namespace orvell::fuzz {
namespace {

using paramlist::ListFileScope;
using Path = std::optional<std::string>;

constexpr const char* kListNotSaved = "Die Parameterliste konnte nicht gespeichert werden.";

FileForm FormOf(const std::string& path) {
    return path.ends_with(".csv") || path.ends_with(".Csv") ? FileForm::Csv : FileForm::List;
}

/// A record that names a project, or is too short to.
HostRecord<ConfigurationRecord> Project(Program& program, HostText& path) {
    return {program, {sizeof(ConfigurationRecord), nullptr, path.Pointer()}};
}

Path ChooseProject(Program& program) {
    constexpr std::array<const char*, 4> kProjects = {"plant.prj", "?", "other", nullptr};
    const char* const project = program.Pick(kProjects);
    return project == nullptr ? std::nullopt : Path(project);
}

/// The project's list file; empty without a project.
std::string ListFile(const ConfigurationRecord& record) {
    const std::string project = record.path == nullptr ? "" : record.path;
    if (project == "plant.prj") {
        return "PLANT.SIL";
    }
    return project.empty() ? "" : project == "?" ? "?.SIL" : "OTHER.SIL";
}

void SaveList(Session& session, Program& program) {
    HostText path(ChooseProject(program));
    auto record = Project(program, path);
    const std::string file = ListFile(record.Understood());
    session.management.SaveList(record.Pointer());
    if (!session.list.Admit()) {
        session.ExpectMessages(0);
    } else if (file.empty()) {
        session.ExpectMessage(kListNotSaved);
    } else if (file.front() == '?') {
        session.ExpectMessage("Die Datei " + file + " konnte nicht gespeichert werden.");
    } else {
        session.ExpectMessages(0);
        RequireWritten(ModelEntries(session.list), MemoryFiles()[file], FileForm::List);
    }
}

void LoadList(Session& session, Program& program) {
    HostText path(ChooseProject(program));
    auto record = Project(program, path);
    const std::string file = ListFile(record.Understood());
    session.management.LoadList(record.Pointer());
    if (session.list.Admit()) {
        session.list.SetDeclaredOnly(false);
        session.list.BuildOrClear();
        if (!MemoryFiles().contains(file) ||
            !ReadIntoModel(session.list, MemoryFiles()[file], ListFileScope::AllEntries)) {
            session.list.BuildOrClear();
        }
        session.CompareList();
    }
}

Path ChooseFile(Program& program) {
    constexpr std::array<const char*, 8> kFiles = {"PLANT.SIL", "list.csv", "OTHER.SIL", "raw.Csv",
                                                   "raw.sil",   "?.csv",    "",          nullptr};
    const char* const file = program.Pick(kFiles);
    if (file != nullptr && std::string(file).starts_with("raw")) {
        MemoryFiles()[file] = program.Text();
    }
    return file == nullptr ? std::nullopt : Path(file);
}

void ExportList(Session& session, Program& program) {
    HostText project(std::nullopt);
    auto record = Project(program, project);
    const Path path = ChooseFile(program);
    HostText file(path);
    const auto slot =
        program.Decide() ? session.management.ExportAndOpenList : session.management.ExportList;
    slot(record.Pointer(), file.Pointer());
    if (!session.list.Admit()) {
        session.ExpectMessages(0);
    } else if (OrEmpty(path).empty() || path->starts_with('?')) {
        session.ExpectMessage(kListNotSaved);
    } else {
        session.ExpectMessages(0);
        RequireWritten(ModelEntries(session.list), MemoryFiles()[*path], FormOf(*path));
    }
}

/// What the host's message page does.
enum class Page { Works, Refuses, Throws };
Page page = Page::Works;
PageLines pageLines;

constexpr std::int32_t kPageNumber = 17;

std::int32_t AnswerOfPage(std::int32_t answer) {
    if (page == Page::Throws) {
        throw std::runtime_error("a page that is none");
    }
    return page == Page::Works ? answer : -1;
}

std::int32_t ORVELL_CALL LookUp(const char* name) {
    Require(std::string(name) == "Import", "imports are reported in their own page");
    return AnswerOfPage(kPageNumber);
}

std::int32_t ORVELL_CALL Append(std::int32_t number, const char* line, std::uint32_t color,
                                std::int32_t emphasis) {
    pageLines.push_back({number, line, color, emphasis});
    return AnswerOfPage(1);
}

void InstallPage(Session& session, Program& program) {
    constexpr std::array kPages = {Page::Works, Page::Refuses, Page::Throws};
    page = program.Pick(kPages);
    const HostExportTable callbacks{sizeof callbacks, LookUp, Append, nullptr, nullptr};
    HostRecord<HostExportTable> record(program, callbacks);
    const std::string before = record.Bytes();
    const bool isGiven = program.Choose(4) != 3;
    Require(SetZelkorExportFctns(isGiven ? record.Pointer() : nullptr) == 1,
            "callbacks are always taken");
    session.hasPageLookUp = isGiven && record.Understood().MessagePageLookup != nullptr;
    session.hasPageAppend = isGiven && record.Understood().MessagePageAppend != nullptr;
    RequireSame(record.Bytes(), before, "a table of callbacks stays");
}

/// The page's lines since the last call must report this import.
void ExpectReport(const Session& session, const std::string& path, const PlainWarnings& warnings) {
    const bool isFound = session.hasPageLookUp && page == Page::Works;
    Require(
        pageLines == (session.hasPageAppend ? ReportOf(path, warnings, isFound ? kPageNumber : 0)
                                            : PageLines()),
        "an import is reported line by line");
    pageLines.clear();
}

/// What an import into the model's list must give: whether it succeeds.
bool ImportIntoModel(Session& session, const std::string& path, ListFileScope scope) {
    if (!MemoryFiles().contains(path)) {
        return false;
    }
    if (FormOf(path) == FileForm::List) {
        return ReadIntoModel(session.list, MemoryFiles()[path], scope);
    }
    const bool hasKinds = !session.list.Kinds().empty();
    const PlainWarnings warnings = ReadCsvIntoModel(session.list, MemoryFiles()[path]);
    if (hasKinds) {
        ExpectReport(session, path, warnings);
    }
    pageLines.clear();  // a list that has not been built yet knows no kind
    return true;
}

void ImportList(Session& session, Program& program) {
    HostText project(std::nullopt);
    auto record = Project(program, project);
    const Path path = ChooseFile(program);
    HostText file(path);
    const bool isNew = program.Decide();
    const bool isAdmitted = session.list.Admit();
    pageLines.clear();
    (isNew ? session.management.ImportNewList : session.management.ImportIntoList)(record.Pointer(),
                                                                                   file.Pointer());
    if (!isAdmitted) {
        session.ExpectMessages(0);
        return;
    }
    if (isNew) {
        session.list.BuildOrClear();
    }
    const bool isDone = ImportIntoModel(
        session, OrEmpty(path), isNew ? ListFileScope::AllEntries : ListFileScope::ExistingEntries);
    Require(pageLines.empty(), "nothing else is reported");
    if (isDone) {
        session.ExpectMessages(0);
    } else {
        session.ExpectMessage(
            "Die ausgew\xE4"
            "hlte Parameterliste konnte nicht importiert werden.");
    }
    session.CompareList();
}

constexpr std::array kFileOperations = {
    Operation{'2', SaveList},   Operation{'1', LoadList},    Operation{'4', ExportList},
    Operation{'3', ImportList}, Operation{'H', InstallPage},
};

}  // namespace

std::span<const Operation> FileOperations() {
    return kFileOperations;
}

}  // namespace orvell::fuzz
