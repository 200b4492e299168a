#include "cli/online_session.h"

#include <algorithm>

#include "cli/leaf_table.h"
#include "cli/output.h"

namespace workbench::cli {
namespace {

std::string ProblemText(TargetSystem::Problem problem) {
    switch (problem) {
        case TargetSystem::Problem::Refused:
            return "refuses";
        case TargetSystem::Problem::Missing:
            return "has no value for";
        case TargetSystem::Problem::OtherWidth:
            return "has a value of another width for";
    }
    return {};
}

}  // namespace

OnlineSession::OnlineSession(const Session& session, std::uint32_t area, std::uint32_t count)
    : session_(session), area_(area), places_(session.Module().Places(area, count)) {}

bool OnlineSession::Open() {
    const CommandLine& options = session_.Options();
    behaviour_.delay = options.delay.value_or(0);
    behaviour_.cancelAfter = options.cancelAfter;
    std::string error;
    if (!ReadTargetTable(session_.TargetPath(), table_, error)) {
        PrintError(error);
        return false;
    }
    return !options.refuse || TakeRefusedPath(*options.refuse);
}

bool OnlineSession::TakeRefusedPath(const std::string& path) {
    const auto found = std::ranges::find_if(
        places_, [&](const LeafPlace& place) { return ShownPath(place.path) == path; });
    if (found == places_.end()) {
        PrintError("The value has no element \"" + path +
                   "\" to be refused. Give a path as workbench leaves shows it.");
        return false;
    }
    behaviour_.refused = {area_, found->element, found->offset};
    return true;
}

bool OnlineSession::Save() const {
    std::string error;
    if (!WriteTargetTable(session_.TargetPath(), table_, error)) {
        PrintError(error);
        return false;
    }
    return true;
}

ExitCode OnlineSession::Explain(const TargetSystem& target, const std::string& done) const {
    const std::string extent = std::to_string(target.Transferred()) + " of " +
                               std::to_string(places_.size()) + " values " + done + ".";
    if (const auto& failure = target.LastFailure()) {
        PrintError("The target system " + ProblemText(failure->problem) + " " +
                   PathOf(failure->address) + " (area " + std::to_string(failure->address.area) +
                   ", element " + std::to_string(failure->address.element) + ", offset " +
                   std::to_string(failure->address.offset) + "): " + extent);
        return ExitCode::Refused;
    }
    if (CancelWord() != 0) {
        PrintError("Cancelled: " + extent);
        return ExitCode::Cancelled;
    }
    PrintError("The module has not finished the transfer: " + extent);
    return ExitCode::Refused;
}

std::string OnlineSession::PathOf(const TargetAddress& address) const {
    const auto found = std::ranges::find_if(places_, [&](const LeafPlace& place) {
        return place.element == address.element && place.offset == address.offset;
    });
    return found == places_.end() ? "a value" : ShownPath(found->path);
}

}  // namespace workbench::cli
