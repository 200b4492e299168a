#include "fuzz/boundary/memory_files.h"

#include <algorithm>
#include <memory>

#include "platform/byte_stream.h"
#include "platform/file_system.h"

namespace orvell {

namespace {

fuzz::FilesByPath* filesInUse = nullptr;

}  // namespace

void fuzz::UseFiles(FilesByPath& files) {
    filesInUse = &files;
}

fuzz::FilesByPath& fuzz::MemoryFiles() {
    return *filesInUse;
}

namespace platform {
namespace {

class MemorySource final : public ByteSource {
  public:
    explicit MemorySource(const std::string& text) : text_(text) {}

    [[nodiscard]] std::size_t Read(std::span<char> buffer) override {
        const std::size_t size = text_.copy(buffer.data(), buffer.size(), position_);
        position_ += size;
        return size;
    }

  private:
    std::string text_;  // the file may change meanwhile
    std::size_t position_ = 0;
};

class MemorySink final : public ByteSink {
  public:
    explicit MemorySink(const std::string& path) : path_(path) {
        fuzz::MemoryFiles()[path].clear();
    }

    [[nodiscard]] bool Write(std::string_view bytes) override {
        fuzz::MemoryFiles()[path_] += bytes;
        return true;
    }

    [[nodiscard]] bool Close() override { return true; }

  private:
    std::string path_;
};

}  // namespace

// In the place of the system's files.

std::unique_ptr<ByteSource> OpenFileToRead(const std::string& path) {
    const auto found = fuzz::MemoryFiles().find(path);
    return found == fuzz::MemoryFiles().end() ? nullptr
                                              : std::make_unique<MemorySource>(found->second);
}

std::unique_ptr<ByteSink> OpenFileToWrite(const std::string& path) {
    return path.empty() || path.starts_with('?') ? nullptr : std::make_unique<MemorySink>(path);
}

bool FileExists(const std::string& path) {
    return fuzz::MemoryFiles().contains(path);
}

bool CopyWholeFile(const std::string& source, const std::string& destination) {
    if (!FileExists(source) || source == destination || OpenFileToWrite(destination) == nullptr) {
        return false;
    }
    fuzz::MemoryFiles()[destination] = fuzz::MemoryFiles()[source];
    return true;
}

}  // namespace platform
}  // namespace orvell
