#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace orvell::test {

/// An empty folder that is the current one as long as the object lives.
///
/// Tests name files relative to it, in upper case and with backslashes, which mean the same file on
/// Windows and in native builds, where a backslash is a character of the name like any other.
class TemporaryFolder {
  public:
    TemporaryFolder() : before_(std::filesystem::current_path()) {
        std::random_device random;
        do {
            folder_ = std::filesystem::temp_directory_path() /
                      ("orvell-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(folder_));
        std::filesystem::current_path(folder_);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::current_path(before_, ignored);
        std::filesystem::remove_all(folder_, ignored);
    }

  private:
    std::filesystem::path before_;
    std::filesystem::path folder_;
};

inline void WriteFile(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    EXPECT_TRUE(file << text << std::flush) << path;
}

/// The file's content; empty when there is no such file.
inline std::string FileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline bool Exists(const std::string& path) {
    return std::filesystem::exists(path);
}

}  // namespace orvell::test
