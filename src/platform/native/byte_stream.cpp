#include "platform/byte_stream.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace orvell::platform {
namespace {

constexpr mode_t kReadableByAll = 0666;

/// Windows opens no folder as a file.
bool IsFolder(int file) {
    struct stat status = {};
    return fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
}

class FileSource : public ByteSource {
  public:
    explicit FileSource(const std::string& path)
        : file_(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
    ~FileSource() override {
        if (file_ >= 0) {
            close(file_);
        }
    }

    [[nodiscard]] bool IsOpen() const { return file_ >= 0 && !IsFolder(file_); }

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
    explicit FileSink(const std::string& path)
        : file_(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kReadableByAll)) {}
    ~FileSink() override {
        if (file_ >= 0) {
            close(file_);
        }
    }

    [[nodiscard]] bool IsOpen() const { return file_ >= 0; }

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
