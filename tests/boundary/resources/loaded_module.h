#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <ostream>
#include <string>

namespace orvell::test {

/// One of the libraries with our resources, as the build has left it.
struct ModuleUnderTest {
    const char* path;      ///< below the build's bin folder
    const char* language;  ///< code of its texts
    LANGID languageId;
    const wchar_t* version;
    DWORD versionHigh;
    DWORD versionLow;
    const wchar_t* stem;
    const wchar_t* description;
};

inline constexpr ModuleUnderTest kModule = {
    "ORVELL.DLL", "de", 0x0407,    L"1.0.0.0",
    0x00010000,   0,    L"ORVELL", L"Standardparameter und Parameterliste",
};
inline constexpr ModuleUnderTest kGermanLibrary = {
    "de\\ORVELLRES.DLL", "de",       0x0407,       L"2.1.5.0",
    0x00020001,          0x00050000, L"ORVELLRES", L"Orvell: Deutsch",
};
inline constexpr ModuleUnderTest kEnglishLibrary = {
    "en\\ORVELLRES.DLL", "en",       0x0409,       L"2.1.5.0",
    0x00020001,          0x00050000, L"ORVELLRES", L"Orvell: English",
};

/// Name of a test case: "ORVELL_DLL", "de_ORVELLRES_DLL".
[[nodiscard]] std::string CaseName(const ModuleUnderTest& module);
void PrintTo(const ModuleUnderTest& module, std::ostream* out);

/// Full path of a file below the build's bin folder.
[[nodiscard]] std::string BuiltFile(const char* path);

/// A library loaded for as long as the object lives.
class LoadedModule {
  public:
    /// `flags` as LoadLibraryEx takes them; 0 runs the library's start-up.
    LoadedModule(const char* path, DWORD flags)
        : handle_(LoadLibraryExA(BuiltFile(path).c_str(), nullptr, flags)) {}
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;
    ~LoadedModule() {
        if (handle_ != nullptr) {
            FreeLibrary(handle_);
        }
    }

    [[nodiscard]] HMODULE Handle() const { return handle_; }

    /// The string resource with this number; nothing when there is none.
    [[nodiscard]] std::optional<std::wstring> Text(UINT number) const;

  private:
    HMODULE handle_;
};

/// `text` in a code page of one byte a character; fails the running test when it has others.
[[nodiscard]] std::string ToCodePage(UINT codePage, const std::wstring& text);

}  // namespace orvell::test
