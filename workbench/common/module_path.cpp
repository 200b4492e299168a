#include "common/module_path.h"

#include "common/code_page.h"

namespace workbench {

std::string FolderOfModule(HMODULE module) {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) {
            return {};
        }
        if (length < path.size()) {
            path.resize(length);
            break;
        }
        path.resize(path.size() * 2);
    }
    return AnsiFromWide(std::wstring_view(path).substr(0, path.rfind(L'\\') + 1));
}

HMODULE OwnModule() {
    HMODULE module = nullptr;
    static const char kAnchor = 0;
    GetModuleHandleExA(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        &kAnchor, &module);
    return module;
}

}  // namespace workbench
