#include "cli/value_argument.h"

#include <algorithm>
#include <span>
#include <string>

#include "cli/output.h"
#include "cli/value_input.h"

namespace workbench::cli {

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
    value.count = options.count.value_or(1);
    value.format = options.format.value_or(0);
    value.bare = options.bare;
    return true;
}

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

}  // namespace workbench::cli
