#pragma once

#include <string>

namespace workbench_test {

/// A new folder for one test, removed with all its files at the end.
class ScratchFolder {
  public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] std::string Path(const std::string& file) const { return folder_ + file; }

    /// Path of a new file with these bytes.
    std::string Write(const std::string& file, const std::string& bytes) const;

    [[nodiscard]] std::string Read(const std::string& file) const;
    [[nodiscard]] bool Has(const std::string& file) const;

  private:
    std::string folder_;
};

/// Folder of the built libraries, ending with a backslash.
[[nodiscard]] std::string LibraryFolder();

}  // namespace workbench_test
