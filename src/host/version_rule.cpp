#include "host/version_rule.h"

#include "orvell/services.h"
#include "platform/host_call.h"

namespace orvell::host {

namespace {

constexpr double kTolerance = 0.0000001;

}  // namespace

double RequiredDllVersion::AsNumber() const {
    return ((d * 0.01 + c) * 0.01 + b) * 0.01 + a;
}

bool RequiredDllVersion::IsMetBy(double reported) const {
    return AsNumber() - kTolerance <= reported;  // false for NaN
}

bool RequiredDllVersion::IsMetBy(const platform::Library& library) const {
    const auto getVersion = platform::FindFunction<GetDLLVersionFunction>(library, "GetDLLVersion");
    return getVersion != nullptr && IsMetBy(platform::CallHost(getVersion));
}

}  // namespace orvell::host
