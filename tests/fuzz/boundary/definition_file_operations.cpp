#include <array>

#include "fuzz/boundary/host_record.h"
#include "fuzz/boundary/session.h"
#include "fuzz/require.h"

namespace orvell::fuzz {
namespace {

/// A project, and where its definitions lie.
struct Project {
    const char* path;
    const char* file;
    const char* fileName;
};

constexpr const char* kPlant = "PLANT.STDMEMXML";

constexpr std::array kProjects = {
    Project{"C:\\Proj\\plant.prj", "C:\\PROJ\\PLANT.STDMEMXML", kPlant},
    Project{"c:\\proj.old\\Plant", "C:\\PROJ.OLD\\PLANT.STDMEMXML", kPlant},
    Project{"D:other.new.prj", "D:OTHER.NEW.STDMEMXML", "OTHER.NEW.STDMEMXML"},
    Project{"?", "?.STDMEMXML", "?.STDMEMXML"},
    Project{"", "", ""},
    Project{nullptr, "", ""}};

/// A directory, and what the paths of its files begin with.
struct Directory {
    const char* path;
    const char* start;
};

constexpr std::array kDirectories = {Directory{"d:\\out", "D:\\OUT\\"},
                                     Directory{"C:\\Proj\\", "C:\\PROJ\\"},
                                     Directory{"C:\\PROJ.OLD", "C:\\PROJ.OLD\\"},
                                     Directory{"", "\\"},
                                     Directory{"?", "?\\"},
                                     Directory{nullptr, ""}};

HostText TextOf(const char* text) {
    return HostText(text == nullptr ? std::nullopt : std::optional<std::string>(text));
}

/// What a configuration slot is called with, and what it must take from it.
class Request {
  public:
    Request(Session& session, Program& program, const Project& project, const Directory& directory)
        : path_(TextOf(project.path)),
          directory_(TextOf(directory.path)),
          record_(program, {sizeof(ConfigurationRecord), nullptr, path_.Pointer()}),
          token_(session.ChooseConfigToken(program)),
          understood_(record_.Understood().path != nullptr ? project : kProjects.back()),
          hasDirectory_(directory.path != nullptr),
          otherFile_(directory.start + std::string(understood_.fileName)) {}

    [[nodiscard]] ConfigurationRecord* Record() { return record_.Pointer(); }
    [[nodiscard]] const char* DirectoryText() { return directory_.Pointer(); }
    [[nodiscard]] std::uint32_t Token() const { return token_; }

    /// The project's file; empty without a project.
    [[nodiscard]] std::string File() const { return understood_.file; }

    /// The file of its name in the directory, if there is one.
    [[nodiscard]] std::optional<std::string> OtherFile() const {
        return hasDirectory_ && !File().empty() ? std::optional(otherFile_) : std::nullopt;
    }

  private:
    HostText path_;
    HostText directory_;
    HostRecord<ConfigurationRecord> record_;
    std::uint32_t token_;
    Project understood_;
    bool hasDirectory_;
    std::string otherFile_;
};

/// Compares what all of the configuration slots may change.
void RequireState(Session& session) {
    constexpr std::int32_t kLast = 23;
    session.definitions.RequireWritten();
    for (std::int32_t identifier = 0; identifier <= kLast; ++identifier) {
        const ModelArea* const area = session.AreaOf(identifier);
        Require(session.standard.GetStdStructSize(identifier) == (area != nullptr ? area->size : 0),
                "the areas defined are those expected");
    }
}

/// One message with this text, or none.
void RequireMessage(Session& session, const std::optional<std::string>& text) {
    if (text) {
        session.ExpectMessage(*text);
    } else {
        session.ExpectMessages(0);
    }
}

std::optional<std::string> MessageUnless(bool isDone, const char* whatFailed) {
    return isDone ? std::nullopt
                  : std::optional(
                        "Fehler !   Die Konfigurationsdatei mit den "
                        "Standardspeicherstrukturen konnte nicht " +
                        std::string(whatFailed) + " werden.");
}

/// What a loading must tell.
std::optional<std::string> Load(Session& session, const std::string& file) {
    const std::optional<std::string> reason =
        file.empty() ? "Der Pfad zur Konfigurationsdatei mit den Standardspeicherstrukturen konnte "
                       "nicht ermittelt werden."
                     : session.definitions.Load(file);
    return reason ? std::optional(
                        "Die Konfigurationsdatei mit den Standardspeicherstrukturen "
                        "konnte nicht geladen werden, weil:\n\n" +
                        *reason)
                  : std::nullopt;
}

void CallLoad(Session& session, Request request) {
    session.standard.LoadStdMemConfig(request.Record(), request.Token());
    const bool isAdmitted = session.AdmitConfig(request.Token());
    RequireMessage(session, isAdmitted ? Load(session, request.File()) : std::nullopt);
    RequireState(session);
}

void CallSave(Session& session, Request request) {
    session.standard.SaveStdMemConfig(request.Record(), request.Token());
    const bool isDone =
        !session.AdmitConfig(request.Token()) || session.definitions.Save(request.File());
    RequireMessage(session, MessageUnless(isDone, "gespeichert"));
    RequireState(session);
}

void CallExport(Session& session, Request request) {
    session.standard.ExportStdMemConfig(request.Record(), request.DirectoryText(), request.Token());
    const std::optional<std::string> target = request.OtherFile();
    const bool isDone = !session.AdmitConfig(request.Token()) ||
                        (target && session.definitions.Copy(request.File(), *target));
    RequireMessage(session, MessageUnless(isDone, "exportiert"));
    RequireState(session);
}

void CallMerge(Session& session, Request request) {
    session.standard.MergeStdMemConfig(request.Record(), request.DirectoryText(), request.Token());
    const std::optional<std::string> source = request.OtherFile();
    if (session.AdmitConfig(request.Token()) && source) {
        session.definitions.Merge(*source, request.File());
    }
    session.ExpectMessages(0);
    RequireState(session);
}

/// A project that mostly has no file of its own.
constexpr Project kSimpleProject = {"/dev/null/plant.prj", "/DEV/NULL/PLANT.STDMEMXML",
                                    "/DEV/NULL/PLANT.STDMEMXML"};

void LoadDefault(Session& session, Program& program) {
    session.definitions.Put(kDefaultDefinitions, &ChooseDefinitionFile(program));
    const bool hasPath = program.Choose(4) != 3;
    CallLoad(session,
             {session, program, hasPath ? kSimpleProject : kProjects.back(), kDirectories.back()});
}

void CloseDefinitions(Session& session, Program& program) {
    const std::uint32_t token = session.ChooseConfigToken(program);
    session.standard.CloseStdMemConfig(token);
    if (session.AdmitConfig(token)) {
        session.definitions.Close();
    }
    RequireState(session);
}

/// The simple project saved, exported or merged.
void CopySimpleProject(Session& session, Program& program) {
    const Directory& directory = program.Decide() ? kDirectories.front() : kDirectories.back();
    Request request(session, program, kSimpleProject, directory);
    if (program.Choose(3) == 0) {
        CallExport(session, std::move(request));
    } else if (program.Decide()) {
        CallMerge(session, std::move(request));
    } else {
        CallSave(session, std::move(request));
    }
}

/// Puts a definition file somewhere, or takes it away.
void PutFile(Session& session, Program& program) {
    constexpr std::array<const char*, 5> kPaths = {
        "C:\\PROJ\\PLANT.STDMEMXML", "C:\\PROJ.OLD\\PLANT.STDMEMXML", "D:\\OUT\\PLANT.STDMEMXML",
        kDefaultDefinitions, "\\OTHER.NEW.STDMEMXML"};
    const char* const path = program.Pick(kPaths);
    const ModelDefinitionFile& file = ChooseDefinitionFile(program);
    session.definitions.Put(path, program.Decide() ? nullptr : &file);
}

/// One of the slots for one of the projects, and one of the directories.
template <void (*call)(Session&, Request)>
void CallFor(Session& session, Program& program) {
    const Project& project = program.Pick(kProjects);
    const Directory& directory = program.Pick(kDirectories);
    call(session, {session, program, project, directory});
}

constexpr std::array kDefinitionFileOperations = {
    Operation{'L', LoadDefault},         Operation{'X', CloseDefinitions},
    Operation{'J', CopySimpleProject},   Operation{'8', PutFile},
    Operation{'6', CallFor<CallLoad>},   Operation{'7', CallFor<CallSave>},
    Operation{'9', CallFor<CallExport>}, Operation{'0', CallFor<CallMerge>},
};

}  // namespace

std::span<const Operation> DefinitionFileOperations() {
    return kDefinitionFileOperations;
}

}  // namespace orvell::fuzz
