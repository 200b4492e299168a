#include "platform/string_resources.h"

#include <windows.h>

namespace orvell::platform {

std::string ModuleStringSource::Load(std::uint32_t number) const {
    // With size 0 the system yields the resource itself, of any length and without a final zero.
    const wchar_t* wide = nullptr;
    const int length =
        LoadStringW(static_cast<HINSTANCE>(module_), number, reinterpret_cast<LPWSTR>(&wide), 0);
    if (length <= 0) {
        return {};
    }
    const int size = WideCharToMultiByte(CP_ACP, 0, wide, length, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide, length, text.data(), size, nullptr, nullptr);
    return text;
}

}  // namespace orvell::platform
