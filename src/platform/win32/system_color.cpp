#include "platform/system_color.h"

#include <windows.h>

namespace orvell::platform {

std::uint32_t WindowTextColor() {
    return GetSysColor(COLOR_WINDOWTEXT);
}

std::uint32_t WindowColor() {
    return GetSysColor(COLOR_WINDOW);
}

}  // namespace orvell::platform
