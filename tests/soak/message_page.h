#pragma once

#include <string>
#include <string_view>

#include "module_host.h"

namespace orvell::soak {

/// The host's message page, where imports report.
class MessagePage {
  public:
    /// Gives the module the callbacks.
    static void Install(ModuleHost& host);

    /// The lines since the last call; they live until the next one is appended.
    [[nodiscard]] static std::string_view TakeLines();
};

}  // namespace orvell::soak
