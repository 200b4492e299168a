#include <string>

#include "cli/commands.h"
#include "cli/definition_file.h"
#include "cli/output.h"
#include "cli/table.h"

namespace workbench::cli {
namespace {

/// Why an area has no value.
constexpr const char* kNoValue = "no value: its type is not defined, empty or contains itself";

}  // namespace

ExitCode ListAreas(Session& session) {
    Definitions definitions;
    std::string error;
    if (!ReadDefinitions(session.DefinitionPath(), definitions, error)) {
        PrintError("The definitions " + session.DefinitionPath() + " cannot be listed: " + error);
        return ExitCode::Refused;
    }
    Table table({Align::Right, Align::Left, Align::Right, Align::Left});
    table.Add({"ID", "Type", "Bytes", ""});
    for (const Area& area : definitions.areas) {
        const std::uint32_t size = session.Module().AreaSize(area.id);
        table.Add({std::to_string(area.id), area.typeName, std::to_string(size),
                   size == 0 ? kNoValue : ""});
    }
    Print(table.Text());
    return ExitCode::Done;
}

ExitCode PrintSize(Session& session) {
    std::uint32_t area = 0;
    if (!session.ReadAreaId(area)) {
        return ExitCode::WrongUsage;
    }
    const std::uint32_t size = session.Module().AreaSize(area);
    if (size == 0) {
        return Session::RefuseArea(area);
    }
    Print(std::to_string(size) + "\n");
    return ExitCode::Done;
}

}  // namespace workbench::cli
