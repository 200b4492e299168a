// The language libraries as the loader sees them.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "loaded_module.h"

namespace orvell::test {
namespace {

/// The headers of a loaded library (Microsoft's PE format).
class Image {
  public:
    explicit Image(HMODULE module) : base_(reinterpret_cast<const char*>(module)) {}

    [[nodiscard]] const IMAGE_OPTIONAL_HEADER32& Header() const {
        const auto offset = static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0)->e_lfanew);
        return At<IMAGE_NT_HEADERS32>(offset)->OptionalHeader;
    }

    [[nodiscard]] std::vector<std::string> ExportedNames() const {
        const auto* directory = At<IMAGE_EXPORT_DIRECTORY>(Start(IMAGE_DIRECTORY_ENTRY_EXPORT));
        EXPECT_EQ(directory->NumberOfFunctions, directory->NumberOfNames);
        std::vector<std::string> names;
        for (DWORD i = 0; i < directory->NumberOfNames; ++i) {
            names.emplace_back(At<char>(At<DWORD>(directory->AddressOfNames)[i]));
        }
        return names;
    }

    [[nodiscard]] std::vector<std::string> ImportedLibraries() const {
        std::vector<std::string> names;
        const auto* descriptor = At<IMAGE_IMPORT_DESCRIPTOR>(Start(IMAGE_DIRECTORY_ENTRY_IMPORT));
        for (; descriptor->Name != 0; ++descriptor) {
            std::string name = At<char>(descriptor->Name);
            std::ranges::transform(name, name.begin(), [](char character) {
                return static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
            });
            names.push_back(name);
        }
        return names;
    }

  private:
    template <typename Record>
    [[nodiscard]] const Record* At(DWORD offset) const {
        return reinterpret_cast<const Record*>(base_ + offset);
    }

    [[nodiscard]] DWORD Start(int directory) const {
        return Header().DataDirectory[directory].VirtualAddress;
    }

    const char* base_;
};

class LanguageLibraryTest : public testing::TestWithParam<ModuleUnderTest> {
  protected:
    void SetUp() override { ASSERT_NE(library_.Handle(), nullptr) << GetLastError(); }

    const LoadedModule library_{GetParam().path, 0};
};

TEST_P(LanguageLibraryTest, ReportsTheVersionThatTheModuleRequires) {
    using GetVersion = double(__cdecl*)();
    const FARPROC address = GetProcAddress(library_.Handle(), "GetDLLVersion");
    ASSERT_NE(address, nullptr);
    const double version = reinterpret_cast<GetVersion>(reinterpret_cast<void*>(address))();
    EXPECT_LE(2.0105 - 0.0000001, version);
    EXPECT_DOUBLE_EQ(version, 2.0105);
}

TEST_P(LanguageLibraryTest, ExportsNothingElse) {
    EXPECT_EQ(Image(library_.Handle()).ExportedNames(), std::vector<std::string>{"GetDLLVersion"});
}

TEST_P(LanguageLibraryTest, NeedsTheSystemsLibrariesOnly) {
    for (const std::string& name : Image(library_.Handle()).ImportedLibraries()) {
        EXPECT_TRUE(name == "KERNEL32.DLL" || name == "MSVCRT.DLL") << name;
    }
}

TEST_P(LanguageLibraryTest, MayBeLoadedAnywhereAndRunsNoData) {
    const WORD flags = Image(library_.Handle()).Header().DllCharacteristics;
    EXPECT_TRUE((flags & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE) != 0);
    EXPECT_TRUE((flags & IMAGE_DLLCHARACTERISTICS_NX_COMPAT) != 0);
}

INSTANTIATE_TEST_SUITE_P(Languages, LanguageLibraryTest,
                         testing::Values(kGermanLibrary, kEnglishLibrary),
                         [](const auto& instance) { return CaseName(instance.param); });

TEST(LanguageLibrariesTest, BothLanguagesMayBeLoadedAtOnce) {
    const LoadedModule german(kGermanLibrary.path, 0);
    const LoadedModule english(kEnglishLibrary.path, 0);
    EXPECT_EQ(german.Text(2), L"Fehler !");
    EXPECT_EQ(english.Text(2), L"Error !");
}

}  // namespace
}  // namespace orvell::test
