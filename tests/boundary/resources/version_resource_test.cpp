#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "loaded_module.h"

namespace orvell::test {
namespace {

/// The version resource of a file, read by the system.
class VersionResource {
  public:
    explicit VersionResource(const std::string& path) {
        DWORD unused = 0;
        bytes_.resize(GetFileVersionInfoSizeA(path.c_str(), &unused));
        if (!bytes_.empty() &&
            GetFileVersionInfoA(path.c_str(), 0, static_cast<DWORD>(bytes_.size()),
                                bytes_.data()) == 0) {
            bytes_.clear();
        }
    }

    [[nodiscard]] bool IsEmpty() const { return bytes_.empty(); }

    /// The value at `path`, null when there is none of this size or more.
    template <typename Value>
    [[nodiscard]] const Value* Query(const std::wstring& path) const {
        void* value = nullptr;
        UINT size = 0;
        const bool isFound = VerQueryValueW(bytes_.data(), path.c_str(), &value, &size) != 0;
        return isFound && size >= sizeof(Value) ? static_cast<const Value*>(value) : nullptr;
    }

    [[nodiscard]] std::wstring Text(const std::wstring& path) const {
        void* value = nullptr;
        UINT size = 0;
        if (VerQueryValueW(bytes_.data(), path.c_str(), &value, &size) == 0) {
            return {};
        }
        return static_cast<const wchar_t*>(value);
    }

  private:
    std::vector<char> bytes_;
};

class VersionResourceTest : public testing::TestWithParam<ModuleUnderTest> {
  protected:
    void SetUp() override { ASSERT_FALSE(version_.IsEmpty()) << GetParam().path; }

    const VersionResource version_{BuiltFile(GetParam().path)};
};

TEST_P(VersionResourceTest, NumbersAreTheVersionOfTheFileAndOfTheProduct) {
    const auto* fixed = version_.Query<VS_FIXEDFILEINFO>(L"\\");
    ASSERT_NE(fixed, nullptr);
    EXPECT_EQ(fixed->dwSignature, 0xFEEF04BDU);
    EXPECT_EQ(fixed->dwFileVersionMS, GetParam().versionHigh);
    EXPECT_EQ(fixed->dwFileVersionLS, GetParam().versionLow);
    EXPECT_EQ(fixed->dwProductVersionMS, 0x00010000U);
    EXPECT_EQ(fixed->dwProductVersionLS, 0U);
    EXPECT_EQ(fixed->dwFileOS, static_cast<DWORD>(VOS_NT_WINDOWS32));
    EXPECT_EQ(fixed->dwFileType, static_cast<DWORD>(VFT_DLL));
}

TEST_P(VersionResourceTest, TextsLieUnderTheLanguageAndCodePageItNames) {
    struct Translation {
        WORD language;
        WORD codePage;
    };
    const auto* translation = version_.Query<Translation>(L"\\VarFileInfo\\Translation");
    ASSERT_NE(translation, nullptr);
    EXPECT_EQ(translation->language, GetParam().languageId);
    EXPECT_EQ(translation->codePage, 1252);

    const std::wstring block = GetParam().languageId == 0x0407 ? L"\\StringFileInfo\\040704E4\\"
                                                               : L"\\StringFileInfo\\040904E4\\";
    const std::wstring stem = GetParam().stem;
    EXPECT_EQ(version_.Text(block + L"ProductName"), L"Orvell");
    EXPECT_EQ(version_.Text(block + L"CompanyName"), L"Orvell");
    EXPECT_EQ(version_.Text(block + L"FileDescription"), GetParam().description);
    EXPECT_EQ(version_.Text(block + L"InternalName"), stem);
    EXPECT_EQ(version_.Text(block + L"OriginalFilename"), stem + L".DLL");
    EXPECT_EQ(version_.Text(block + L"FileVersion"), GetParam().version);
    EXPECT_EQ(version_.Text(block + L"ProductVersion"), L"1.0.0.0");
}

INSTANTIATE_TEST_SUITE_P(Modules, VersionResourceTest,
                         testing::Values(kModule, kGermanLibrary, kEnglishLibrary),
                         [](const auto& instance) { return CaseName(instance.param); });

}  // namespace
}  // namespace orvell::test
