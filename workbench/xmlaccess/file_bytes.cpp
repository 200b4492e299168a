#include "xmlaccess/file_bytes.h"

#include <windows.h>

#include <memory>

namespace workbench::xmlaccess {
namespace {

constexpr LONGLONG kMaxFileBytes = 256LL * 1024 * 1024;

struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using FileHandle = std::unique_ptr<HANDLE, HandleCloser>;

FileHandle OpenFile(const std::wstring& path, DWORD access, DWORD share, DWORD disposition) {
    HANDLE handle = CreateFileW(path.c_str(), access, share, nullptr, disposition,
                                FILE_ATTRIBUTE_NORMAL, nullptr);
    return FileHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

std::string WindowsReason(const char* what) {
    const DWORD error = GetLastError();
    if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) {
        return std::string(what) + ": there is no such file or folder.";
    }
    return std::string(what) + ": Windows error " + std::to_string(error) + ".";
}

bool WriteWhole(const std::wstring& path, std::span<const std::byte> bytes) {
    const FileHandle file = OpenFile(path, GENERIC_WRITE, 0, CREATE_ALWAYS);
    DWORD written = 0;
    return file &&
           WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                     nullptr) != FALSE &&
           written == bytes.size() && FlushFileBuffers(file.get()) != FALSE;
}

}  // namespace

std::optional<std::vector<std::byte>> ReadFileBytes(const std::wstring& path, std::string& reason) {
    const FileHandle file = OpenFile(path, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    if (!file) {
        reason = WindowsReason("The file cannot be opened");
        return std::nullopt;
    }
    LARGE_INTEGER size{};
    if (GetFileType(file.get()) != FILE_TYPE_DISK || GetFileSizeEx(file.get(), &size) == FALSE ||
        size.QuadPart > kMaxFileBytes) {
        reason = "The file is no disk file or holds more than 256 MB.";
        return std::nullopt;
    }
    std::vector<std::byte> bytes(static_cast<std::size_t>(size.QuadPart));
    DWORD read = 0;
    if (ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr) ==
        FALSE) {
        reason = WindowsReason("The file cannot be read");
        return std::nullopt;
    }
    bytes.resize(read);
    return bytes;
}

bool ReplaceFileBytes(const std::wstring& path, std::span<const std::byte> bytes,
                      std::string& reason) {
    const std::wstring newPath = path + L".NEW";
    if (WriteWhole(newPath, bytes) &&
        MoveFileExW(newPath.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING) != FALSE) {
        return true;
    }
    reason = WindowsReason("The file cannot be written");
    DeleteFileW(newPath.c_str());
    return false;
}

}  // namespace workbench::xmlaccess
