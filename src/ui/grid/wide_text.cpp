#include "ui/grid/wide_text.h"

#include <windows.h>

namespace orvell::ui {

std::wstring ToWide(std::string_view text) {
    const int length = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');  // no code page of 8 bits needs more
    const int written = MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), length);
    wide.resize(static_cast<std::size_t>(written));
    return wide;
}

std::string ToAnsi(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int needed =
        WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string ansi(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, ansi.data(), needed, nullptr, nullptr);
    return ansi;
}

}  // namespace orvell::ui
