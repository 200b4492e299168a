#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/leaf_table.h"
#include "cli/output.h"
#include "cli/value_argument.h"

namespace workbench::cli {

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
    Print(LeafTable(leaves));
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
