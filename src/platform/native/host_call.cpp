#include "platform/host_call.h"

namespace orvell::platform {

bool RunHostFunction(void (*function)(void*), void* argument) noexcept {
    try {
        function(argument);
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace orvell::platform
