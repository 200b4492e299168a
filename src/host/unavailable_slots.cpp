#include "host/standard_parameter_slots.h"

namespace orvell::host::slots {

namespace {

constexpr int32_t kFailure = 0;

}  // namespace

int32_t ORVELL_CALL EditStdParameter(DialogParameterRecord*, OnlineAccessRecord*) noexcept {
    return kFailure;
}

}  // namespace orvell::host::slots
