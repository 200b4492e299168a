#include <array>
#include <stdexcept>

#include "fuzz/boundary/host_record.h"
#include "fuzz/boundary/memory_files.h"
#include "fuzz/boundary/session.h"
#include "fuzz/boundary/vocabulary.h"
#include "fuzz/require.h"

namespace orvell::fuzz {
namespace {

using Path = std::optional<std::string>;

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
    const bool fails = file.empty() || file.front() == '?';
    session.ExpectMessages(session.list.Admit() && fails ? 1 : 0);
}

/// What a file holds is a matter of the readers: the model takes over what they have made of it.
void LoadList(Session& session, Program& program) {
    HostText path(ChooseProject(program));
    auto record = Project(program, path);
    const std::string file = ListFile(record.Understood());
    session.management.LoadList(record.Pointer());
    if (session.list.Admit()) {
        session.list.SetDeclaredOnly(false);
        session.list.BuildOrClear();
        if (MemoryFiles().contains(file)) {
            session.AdoptList();
        }
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
    const bool fails = OrEmpty(path).empty() || OrEmpty(path).starts_with('?');
    session.ExpectMessages(session.list.Admit() && fails ? 1 : 0);
}

void ImportList(Session& session, Program& program) {
    HostText project(std::nullopt);
    auto record = Project(program, project);
    const Path path = ChooseFile(program);
    HostText file(path);
    const bool isNew = program.Decide();
    const bool isThere = MemoryFiles().contains(OrEmpty(path));
    const bool isAdmitted = session.list.Admit();
    (isNew ? session.management.ImportNewList : session.management.ImportIntoList)(record.Pointer(),
                                                                                   file.Pointer());
    if (!isAdmitted) {
        session.ExpectMessages(0);
        return;
    }
    Require(session.messages.shown.size() <= 1, "an import fails once");
    Require(isThere || session.messages.shown.size() == 1, "an import without a file fails");
    session.messages.shown.clear();
    if (isThere) {
        session.AdoptList();
    } else if (isNew) {
        session.list.BuildOrClear();
    }
}

/// What the host's message page does.
enum class Page { Works, Refuses, Throws };
Page page = Page::Works;

std::int32_t AnswerOfPage() {
    if (page == Page::Throws) {
        throw std::runtime_error("a page that is none");
    }
    return page == Page::Works ? 1 : -1;
}

std::int32_t ORVELL_CALL LookUp(const char*) {
    return AnswerOfPage();
}

std::int32_t ORVELL_CALL Append(std::int32_t, const char* line, std::uint32_t, std::int32_t) {
    Require(line != nullptr, "a line has a text");
    return AnswerOfPage();
}

void InstallPage(Session&, Program& program) {
    constexpr std::array kPages = {Page::Works, Page::Refuses, Page::Throws};
    page = program.Pick(kPages);
    const HostExportTable callbacks{sizeof callbacks, LookUp, Append, nullptr, nullptr};
    HostRecord<HostExportTable> record(program, callbacks);
    const std::string before = record.Bytes();
    Require(SetZelkorExportFctns(program.Choose(4) == 3 ? nullptr : record.Pointer()) == 1,
            "callbacks are always taken");
    RequireSame(record.Bytes(), before, "a table of callbacks stays");
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
