#include "platform/system_color.h"

namespace orvell::platform {

std::uint32_t WindowTextColor() {
    return 0;
}  // black, as in the default colours of Windows

}  // namespace orvell::platform
