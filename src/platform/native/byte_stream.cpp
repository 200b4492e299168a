#include "platform/byte_stream.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace orvell::platform {
namespace {

constexpr mode_t kReadableByAll = 0666;

class FileSource : public ByteSource {
  public:
    explicit FileSource(int file) : file_(file) {}
    ~FileSource() override { close(file_); }

    [[nodiscard]] std::size_t Read(std::span<char> buffer) override {
        ssize_t bytesRead = 0;
        do {
            bytesRead = read(file_, buffer.data(), buffer.size());
        } while (bytesRead < 0 && errno == EINTR);
        return bytesRead < 0 ? 0 : static_cast<std::size_t>(bytesRead);
    }

  private:
    int file_;
};

class FileSink : public ByteSink {
  public:
    explicit FileSink(int file) : file_(file) {}
    ~FileSink() override {
        if (file_ >= 0) {
            close(file_);
        }
    }

    [[nodiscard]] bool Write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t bytesWritten = write(file_, bytes.data(), bytes.size());
            if (bytesWritten > 0) {
                bytes.remove_prefix(static_cast<std::size_t>(bytesWritten));
            } else if (bytesWritten == 0 || errno != EINTR) {
                return false;
            }
        }
        return true;
    }

    [[nodiscard]] bool Close() override { return close(std::exchange(file_, -1)) == 0; }

  private:
    int file_;
};

/// Windows opens no folder as a file.
bool IsFolder(int file) {
    struct stat status = {};
    return fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

std::unique_ptr<ByteSource> OpenFileToRead(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        return nullptr;
    }
    auto source = std::make_unique<FileSource>(file);
    return IsFolder(file) ? nullptr : std::move(source);
}

std::unique_ptr<ByteSink> OpenFileToWrite(const std::string& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kReadableByAll);
    return file < 0 ? nullptr : std::make_unique<FileSink>(file);
}

}  // namespace orvell::platform
