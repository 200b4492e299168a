#include "platform/byte_stream.h"

#include <windows.h>

#include <algorithm>
#include <utility>

namespace orvell::platform {
namespace {

/// Largest number of bytes given to the system at once.
constexpr std::size_t kMaximumTransfer = 1U << 30;

class FileSource : public ByteSource {
  public:
    explicit FileSource(const std::string& path)
        : handle_(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                              nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr)) {}
    ~FileSource() override {
        if (IsOpen()) {
            CloseHandle(handle_);
        }
    }

    [[nodiscard]] bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }

    [[nodiscard]] std::size_t Read(std::span<char> buffer) override {
        const auto wanted = static_cast<DWORD>(std::min(buffer.size(), kMaximumTransfer));
        DWORD bytesRead = 0;
        return ReadFile(handle_, buffer.data(), wanted, &bytesRead, nullptr) ? bytesRead : 0;
    }

  private:
    HANDLE handle_;
};

class FileSink : public ByteSink {
  public:
    explicit FileSink(const std::string& path)
        : handle_(CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~FileSink() override {
        if (IsOpen()) {
            CloseHandle(handle_);
        }
    }

    [[nodiscard]] bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }

    [[nodiscard]] bool Write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kMaximumTransfer));
            DWORD bytesWritten = 0;
            if (!WriteFile(handle_, bytes.data(), wanted, &bytesWritten, nullptr) ||
                bytesWritten == 0) {
                return false;
            }
            bytes.remove_prefix(bytesWritten);
        }
        return true;
    }

    [[nodiscard]] bool Close() override {
        return CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE)) != 0;
    }

  private:
    HANDLE handle_;
};

/// The object's memory is taken before the file is opened: when it is short, nothing is left open
/// and no file has been emptied.
template <typename Stream>
std::unique_ptr<Stream> Open(const std::string& path) {
    auto stream = std::make_unique<Stream>(path);
    return stream->IsOpen() ? std::move(stream) : nullptr;
}

}  // namespace

std::unique_ptr<ByteSource> OpenFileToRead(const std::string& path) {
    return Open<FileSource>(path);
}

std::unique_ptr<ByteSink> OpenFileToWrite(const std::string& path) {
    return Open<FileSink>(path);
}

}  // namespace orvell::platform
