#include "platform/module_file.h"

#include <windows.h>

namespace orvell::platform {

namespace {

constexpr DWORD kFirstBufferBytes = 50;
constexpr DWORD kBufferGrowth = 20;
constexpr DWORD kLongestPath = 32768;  // limit of the system's own path texts

}  // namespace

std::string ModuleFileName(void* module) {
    // A path that does not fit is cut, and the length reported then depends on the system's
    // version; two spare bytes tell a whole path from a cut one everywhere.
    std::string path;
    for (DWORD size = kFirstBufferBytes; size <= kLongestPath; size += kBufferGrowth) {
        path.resize(size);
        const DWORD length = GetModuleFileNameA(static_cast<HMODULE>(module), path.data(), size);
        if (length < size - 2) {
            path.resize(length);
            return path;
        }
    }
    return {};
}

}  // namespace orvell::platform
