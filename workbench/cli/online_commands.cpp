#include <string>

#include "cli/cancel_word.h"
#include "cli/commands.h"
#include "cli/leaf_table.h"
#include "cli/online_session.h"
#include "cli/output.h"
#include "cli/value_argument.h"
#include "cli/value_input.h"

namespace workbench::cli {
namespace {

/// Stores a value where the command line wants it.
ExitCode StoreInto(const CommandLine& options, const Value& value) {
    std::string error;
    if (options.into && !WriteValueFile(*options.into, value.bytes, error)) {
        PrintError(error);
        return ExitCode::WrongUsage;
    }
    return ExitCode::Done;
}

/// Reports why the module has no room for the values.
ExitCode RefuseExtent(const HostModule& module, const Value& value) {
    if (module.AreaSize(value.area) == 0) {
        return Session::RefuseArea(value.area);
    }
    PrintError("There is no memory for " + std::to_string(value.count) +
               " values. Give a smaller --count.");
    return ExitCode::Refused;
}

}  // namespace

ExitCode ReadOnline(Session& session) {
    Value value;
    if (!TakeValue(session, value)) {
        return ExitCode::WrongUsage;
    }
    const HostModule& module = session.Module();
    OnlineSession online(session, value.area, value.count);
    if (online.LeafCount() == 0) {
        return RefuseExtent(module, value);
    }
    if (!online.Open()) {
        return ExitCode::WrongUsage;
    }
    TargetSystem target(online.Table(), value.area, online.Behaviour());
    const CancelByKeyboard cancelByKeyboard;
    if (!module.ReadOnline(value, TargetSystem::Access(), CancelWord())) {
        return online.Explain(target, "read");
    }
    Print(LeafTable(module.Leaves(value)));
    return StoreInto(session.Options(), value);
}

ExitCode WriteOnline(Session& session) {
    Value value;
    if (!TakeValue(session, value)) {
        return ExitCode::WrongUsage;
    }
    const HostModule& module = session.Module();
    if (!module.Fits(value)) {
        return Refused(module, value);
    }
    OnlineSession online(session, value.area, value.count);
    if (!online.Open()) {
        return ExitCode::WrongUsage;
    }
    TargetSystem target(online.Table(), value.area, online.Behaviour());
    const CancelByKeyboard cancelByKeyboard;
    const bool isWritten = module.WriteOnline(value, TargetSystem::Access(), CancelWord());
    if (!online.Save()) {  // what was written before a failure stays
        return ExitCode::Refused;
    }
    if (!isWritten) {
        return online.Explain(target, "written");
    }
    Print("Values written: " + std::to_string(target.Transferred()) + "\n");
    return ExitCode::Done;
}

}  // namespace workbench::cli
