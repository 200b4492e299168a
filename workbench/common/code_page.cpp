#include "common/code_page.h"

#include <windows.h>

namespace workbench {
namespace {

std::string Narrow(std::wstring_view text, UINT codePage, DWORD flags, BOOL* lossy) {
    if (text.empty()) {
        return {};
    }
    const int length = static_cast<int>(text.size());
    const int needed =
        WideCharToMultiByte(codePage, flags, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(codePage, flags, text.data(), length, result.data(), needed, nullptr,
                        lossy);
    return result;
}

std::wstring Widen(std::string_view text, UINT codePage) {
    if (text.empty()) {
        return {};
    }
    const int length = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(codePage, 0, text.data(), length, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(codePage, 0, text.data(), length, result.data(), needed);
    return result;
}

}  // namespace

std::wstring WideFromAnsi(std::string_view text) {
    return Widen(text, CP_ACP);
}

std::wstring WideFromUtf8(std::string_view text) {
    return Widen(text, CP_UTF8);
}

// Best-fit characters would make different names equal, so they are not wanted.
std::string AnsiFromWide(std::wstring_view text) {
    return Narrow(text, CP_ACP, WC_NO_BEST_FIT_CHARS, nullptr);
}

std::string Utf8FromWide(std::wstring_view text) {
    return Narrow(text, CP_UTF8, 0, nullptr);
}

bool FitsAnsi(std::wstring_view text) {
    BOOL lossy = FALSE;
    Narrow(text, CP_ACP, WC_NO_BEST_FIT_CHARS, &lossy);
    return lossy == FALSE;
}

}  // namespace workbench
