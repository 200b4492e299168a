#include "platform/file_system.h"

#include <windows.h>

namespace orvell::platform {

namespace {

constexpr DWORD kCopyBlockBytes = 64 * 1024;

/// Owns a file handle; an invalid one means that the file could not be opened.
class File {
  public:
    explicit File(HANDLE handle) : handle_(handle) {}
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { Close(); }

    [[nodiscard]] bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE Get() const { return handle_; }

    /// False when what was written could not be stored.
    bool Close() {
        if (!IsOpen()) {
            return true;
        }
        const bool closed = CloseHandle(handle_) != 0;
        handle_ = INVALID_HANDLE_VALUE;
        return closed;
    }

  private:
    HANDLE handle_;
};

File OpenForReading(const std::string& path, DWORD shareMode) {
    return File(CreateFileA(path.c_str(), GENERIC_READ, shareMode, nullptr, OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL, nullptr));
}

}  // namespace

bool FileExists(const std::string& path) {
    return OpenForReading(path, FILE_SHARE_READ | FILE_SHARE_WRITE).IsOpen();
}

bool CopyWholeFile(const std::string& source, const std::string& destination) {
    const File in = OpenForReading(source, FILE_SHARE_READ);
    if (!in.IsOpen()) {
        return false;
    }
    std::string block(kCopyBlockBytes, '\0');  // first: when memory is short, nothing is emptied
    File out(CreateFileA(destination.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                         FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!out.IsOpen()) {
        return false;
    }
    for (;;) {
        DWORD bytesRead = 0;
        if (!ReadFile(in.Get(), block.data(), kCopyBlockBytes, &bytesRead, nullptr)) {
            return false;
        }
        if (bytesRead == 0) {
            return out.Close();
        }
        DWORD bytesWritten = 0;
        if (!WriteFile(out.Get(), block.data(), bytesRead, &bytesWritten, nullptr) ||
            bytesWritten != bytesRead) {
            return false;
        }
    }
}

}  // namespace orvell::platform
