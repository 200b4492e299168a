#include "platform/pause.h"

#include <windows.h>

namespace orvell::platform {

void Pause(std::uint32_t milliseconds) {
    Sleep(milliseconds);
}

}  // namespace orvell::platform
