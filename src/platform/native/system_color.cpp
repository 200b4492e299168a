#include "platform/system_color.h"

namespace orvell::platform {

// Black on white, as in the default colours of Windows.

std::uint32_t WindowTextColor() {
    return 0;
}

std::uint32_t WindowColor() {
    return 0x00FFFFFF;
}

}  // namespace orvell::platform
