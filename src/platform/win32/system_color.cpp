#include "platform/system_color.h"

#include <windows.h>

namespace orvell::platform {

std::uint32_t WindowTextColor() {
    return GetSysColor(COLOR_WINDOWTEXT);
}

}  // namespace orvell::platform
