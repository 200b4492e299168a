#include <algorithm>
#include <span>
#include <string>

#include "cli/commands.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/value_input.h"

namespace workbench::cli {
namespace {

/// The value that the command line gives; false when there is none, which has been reported.
bool TakeValue(const Session& session, Value& value) {
    const CommandLine& options = session.Options();
    std::string error;
    if (!session.ReadAreaId(value.area)) {
        return false;
    }
    if (!ReadValue(std::span(options.arguments).subspan(2), value.bytes, error)) {
        PrintError(error);
        return false;
    }
    value.count = options.count;
    value.format = options.format;
    value.bare = options.bare;
    return true;
}

/// Reports why the module refused a value.
ExitCode Refused(const HostModule& module, const Value& value) {
    const std::uint64_t size = module.AreaSize(value.area);
    const std::uint64_t needed = size * std::max(value.count, 1U);
    if (size == 0) {
        return Session::RefuseArea(value.area);
    }
    if (value.bytes.size() < needed) {
        PrintError("The value is too short for memory area " + std::to_string(value.area) +
                   ": bytes given " + std::to_string(value.bytes.size()) + ", needed " +
                   std::to_string(needed) + ". Give all bytes or another --count.");
    } else {
        PrintError("The module refused the value.");
    }
    return ExitCode::Refused;
}

}  // namespace

ExitCode PrintText(Session& session) {
    Value value;
    if (!TakeValue(session, value)) {
        return ExitCode::WrongUsage;
    }
    const HostModule& module = session.Module();
    const auto text = module.Text(value);
    if (!text && !module.Fits(value)) {
        return Refused(module, value);
    }
    Print(text.value_or("") + "\n");
    return ExitCode::Done;
}

ExitCode PrintLeaves(Session& session) {
    Value value;
    if (!TakeValue(session, value)) {
        return ExitCode::WrongUsage;
    }
    const HostModule& module = session.Module();
    const std::vector<Leaf> leaves = module.Leaves(value);
    if (leaves.empty() && !module.Fits(value)) {
        return Refused(module, value);
    }
    Table table({Align::Left, Align::Left});
    for (const Leaf& leaf : leaves) {
        table.Add({leaf.path.empty() ? "(value)" : leaf.path, leaf.text});
    }
    Print(table.Text());
    return ExitCode::Done;
}

ExitCode CheckValue(Session& session) {
    Value value;
    if (!TakeValue(session, value)) {
        return ExitCode::WrongUsage;
    }
    if (!session.Module().Fits(value)) {
        return Refused(session.Module(), value);
    }
    Print("The value fits.\n");
    return ExitCode::Done;
}

}  // namespace workbench::cli
