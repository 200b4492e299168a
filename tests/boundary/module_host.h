#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string>

#include "orvell/orvell.h"

namespace orvell::test {

/// A folder of its own with the module and the libraries that a test gives it; empty at the start
/// and removed at the end.
class Stage {
  public:
    Stage();
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// Copies the module and the complete fake libraries; the tool library tells the usual version,
    /// English as the language, and where the others lie.
    void SetUpEverything();

    /// Copies a fake library (folder and name below the fakes' folder) beside the module.
    void PutFake(const std::string& folderAndName);
    void Remove(const std::string& name);

    /// Writes a file of the fake XML library and returns its path.
    std::string Write(const std::string& name, const std::string& content);
    [[nodiscard]] std::string Read(const std::string& name) const;
    [[nodiscard]] bool Has(const std::string& name) const;
    [[nodiscard]] std::string Path(const std::string& name) const;

    static void Set(const char* variable, const std::string& value);
    [[nodiscard]] static std::string Get(const char* variable);

  private:
    std::filesystem::path folder_;
};

/// The loaded module.
class LoadedModule {
  public:
    explicit LoadedModule(const Stage& stage);
    ~LoadedModule();
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    [[nodiscard]] bool IsLoaded() const { return module_ != nullptr; }
    [[nodiscard]] HMODULE Handle() const { return module_; }

    template <typename Function>
    [[nodiscard]] Function Export(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    }

    /// The standard-parameter table, whole.
    [[nodiscard]] StdParaFunctionTable Slots() const;

    /// The parameter-management table, whole; asking for it makes the module forget its tokens.
    [[nodiscard]] ManagementTable Management() const;

  private:
    HMODULE module_;
};

/// An open file, closed with the object.
class OpenFile {
  public:
    OpenFile(const std::string& path, DWORD access, DWORD sharing, DWORD disposition)
        : handle_(CreateFileA(path.c_str(), access, sharing, nullptr, disposition, 0, nullptr)) {
        EXPECT_NE(handle_, INVALID_HANDLE_VALUE) << path;
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() { CloseHandle(handle_); }

  private:
    HANDLE handle_;
};

/// Memory of an exact size before a page that must not be touched: reading or writing one byte too
/// many ends the test program.
class GuardedBytes {
  public:
    explicit GuardedBytes(std::uint32_t size);
    ~GuardedBytes() { VirtualFree(pages_, 0, MEM_RELEASE); }
    GuardedBytes(const GuardedBytes&) = delete;
    GuardedBytes& operator=(const GuardedBytes&) = delete;

    [[nodiscard]] unsigned char* Data() const { return data_; }

  private:
    unsigned char* pages_;
    unsigned char* data_;
};

/// Documents, handles and texts of the fake XML library that have not been given back.
[[nodiscard]] std::int32_t OutstandingXmlHandles();

}  // namespace orvell::test
