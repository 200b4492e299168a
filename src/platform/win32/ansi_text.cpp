#include "platform/ansi_text.h"

#include <windows.h>

namespace orvell::platform {

std::string ToUpperAnsi(std::string_view text) {
    std::string upper(text);
    CharUpperBuffA(upper.data(), static_cast<DWORD>(upper.size()));
    return upper;
}

}  // namespace orvell::platform
