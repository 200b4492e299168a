#include <array>
#include <stdexcept>
#include <utility>

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
enum class Page { Works, Refuses, Throws, CallsBack };
Page page = Page::Works;
PageLines pageLines;

/// Who calls back when an import begins; those that begin in between go no deeper than this.
constexpr int kDeepest = 3;
int depth = 0;
Session* importing = nullptr;
Program* remaining = nullptr;

constexpr std::int32_t kPageNumber = 17;

std::int32_t AnswerOfPage(std::int32_t answer) {
    if (page == Page::Throws) {
        throw std::runtime_error("a page that is none");
    }
    return page == Page::Refuses ? -1 : answer;
}

/// One call from within the page; what that reports has been compared when it returns.
void CallBack() {
    if (depth < kDeepest) {
        ++depth;
        const PageLines lines = std::exchange(pageLines, {});
        RunFromCallback(*importing, *remaining);
        pageLines = lines;
        --depth;
    }
}

std::int32_t ORVELL_CALL LookUp(const char* name) {
    Require(std::string(name) == "Import", "imports are reported in their own page");
    return AnswerOfPage(kPageNumber);
}

std::int32_t ORVELL_CALL Append(std::int32_t number, const char* line, std::uint32_t color,
                                std::int32_t emphasis) {
    pageLines.push_back({number, line, color, emphasis});
    if (page == Page::CallsBack && pageLines.size() == 1) {
        CallBack();
    }
    return AnswerOfPage(1);
}

void InstallPage(Session& session, Program& program) {
    constexpr std::array kPages = {Page::Works, Page::Refuses, Page::Throws, Page::CallsBack};
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
    const bool isFound = session.hasPageLookUp && (page == Page::Works || page == Page::CallsBack);
    Require(
        pageLines == (session.hasPageAppend ? ReportOf(path, warnings, isFound ? kPageNumber : 0)
                                            : PageLines()),
        "an import is reported line by line");
    pageLines.clear();
}

/// The file's bytes; none if it does not exist.
std::optional<std::string> BytesOfFile(const std::string& path) {
    return MemoryFiles().contains(path) ? std::optional(MemoryFiles()[path]) : std::nullopt;
}

/// What an import of these bytes into the model's list must give: whether it succeeds.
bool ImportIntoModel(Session& session, const std::string& path,
                     const std::optional<std::string>& bytes, ListFileScope scope) {
    if (!bytes) {
        return false;
    }
    if (FormOf(path) == FileForm::List) {
        return ReadIntoModel(session.list, *bytes, scope);
    }
    const bool hasKinds = !session.list.Kinds().empty();
    const PlainWarnings warnings = ReadCsvIntoModel(session.list, *bytes);
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
    if (isAdmitted && isNew) {
        session.list.BuildOrClear();
    }
    const std::optional<std::string> bytes = BytesOfFile(OrEmpty(path));
    importing = &session;
    remaining = &program;
    (isNew ? session.management.ImportNewList : session.management.ImportIntoList)(record.Pointer(),
                                                                                   file.Pointer());
    if (!isAdmitted) {
        session.ExpectMessages(0);
        return;
    }
    const bool isDone =
        ImportIntoModel(session, OrEmpty(path), bytes,
                        isNew ? ListFileScope::AllEntries : ListFileScope::ExistingEntries);
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
    Operation{'2', SaveList},
    Operation{'1', LoadList},
    Operation{'4', ExportList},
    Operation{'3', ImportList},
};

constexpr std::array kPageOperations = {Operation{'H', InstallPage}};

}  // namespace

std::span<const Operation> FileOperations() {
    return kFileOperations;
}

std::span<const Operation> PageOperations() {
    return kPageOperations;
}

}  // namespace orvell::fuzz
