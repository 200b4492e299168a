#include "platform/module_hold.h"

namespace orvell::platform {

// Native builds are programs, which nobody unloads.
ModuleHold::ModuleHold() = default;
ModuleHold::~ModuleHold() = default;

void AwaitReturnOfHolder() {}

}  // namespace orvell::platform
