#include <windows.h>

#include <array>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/list_table.h"
#include "cli/output.h"
#include "cli/table.h"

namespace workbench::cli {
namespace {

/// A name for a CSV file in the system's folder for temporary files. What lies under it goes with
/// the object.
class TemporaryCsvFile {
  public:
    TemporaryCsvFile() {
        std::array<char, MAX_PATH + 1> folder{};
        std::array<char, MAX_PATH + 1> file{};
        GetTempPathA(static_cast<DWORD>(folder.size()), folder.data());
        GetTempFileNameA(folder.data(), "wb", 0, file.data());  // makes the file: the name is ours
        reserved_ = file.data();
        path_ = reserved_ + ".CSV";
    }
    ~TemporaryCsvFile() {
        DeleteFileA(path_.c_str());
        DeleteFileA(reserved_.c_str());
    }
    TemporaryCsvFile(const TemporaryCsvFile&) = delete;
    TemporaryCsvFile& operator=(const TemporaryCsvFile&) = delete;

    [[nodiscard]] const std::string& Path() const { return path_; }

  private:
    std::string reserved_;
    std::string path_;
};

/// All parameters. The module lets a host ask for an address but not for all addresses there are,
/// so they come from a file that it exports. False when that failed, which has been reported.
bool TakeLines(Session& session, std::vector<ListLine>& lines) {
    const TemporaryCsvFile file;
    session.Module().List().Export(session.ProjectAsGiven(), file.Path());
    if (session.Messages().Report()) {
        return false;
    }
    if (!ReadListTable(file.Path(), lines)) {
        PrintError("The list exported to " + file.Path() + " cannot be read.");
        return false;
    }
    return true;
}

std::string Quoted(const std::string& text) {
    return text.empty() ? text : "\"" + text + "\"";
}

}  // namespace

ExitCode ShowList(Session& session) {
    session.Module().List().Load(session.ProjectAsGiven());
    std::vector<ListLine> lines;
    if (!TakeLines(session, lines)) {
        return ExitCode::Refused;
    }
    const std::vector<std::string>& arguments = session.Options().arguments;
    const bool isOneKind = arguments.size() > 1;
    if (isOneKind) {
        std::erase_if(lines, [&](const ListLine& line) { return line.Kind() != arguments[1]; });
    }
    if (lines.empty()) {
        PrintError("The list has no parameters" + (isOneKind ? " of kind " + arguments[1] : "") +
                   ".");
        return isOneKind ? ExitCode::Refused : ExitCode::Done;
    }
    Table table({Align::Left, Align::Left, Align::Left, Align::Left});
    for (const ListLine& line : lines) {
        table.Add({line.address, line.value, Quoted(line.name), Quoted(line.comment)});
    }
    Print(table.Text());
    return ExitCode::Done;
}

ExitCode PrintParameter(Session& session) {
    HostParameterList& list = session.Module().List();
    list.Load(session.ProjectAsGiven());
    const std::string& address = session.Options().arguments[1];
    const auto parameter = list.Find(address);
    if (!parameter) {
        PrintError("There is no parameter " + address +
                   ". workbench list show PROJECT lists the parameters.");
        return ExitCode::Refused;
    }
    Table table({Align::Left, Align::Left});
    table.Add({"Value", parameter->value.value_or("(undefined)")});
    table.Add({"Name", Quoted(parameter->name)});
    table.Add({"Comment", Quoted(parameter->comment)});
    Print(table.Text());
    return ExitCode::Done;
}

ExitCode SetParameter(Session& session) {
    HostParameterList& list = session.Module().List();
    const CommandLine& options = session.Options();
    const std::string& address = options.arguments[1];
    list.Load(session.ProjectAsGiven());
    if (!list.Set(address, {options.arguments[2], options.name, options.comment})) {
        PrintError("\"" + address +
                   "\" is no address of a parameter. Give a kind and a number, such as PW12 or "
                   "E3.5.");
        return ExitCode::Refused;
    }
    list.Save(session.ProjectAsGiven());
    return session.Messages().Report() ? ExitCode::Refused : ExitCode::Done;
}

}  // namespace workbench::cli
