#include "platform/pause.h"

#include <chrono>
#include <thread>

namespace orvell::platform {

void Pause(std::uint32_t milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace orvell::platform
