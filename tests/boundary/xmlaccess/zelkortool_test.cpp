// Paths and language of the tool library.

#include <gtest/gtest.h>

#include <windows.h>

#include <string>

#include "boundary/xmlaccess/scratch_folder.h"
#include "zelkortool/zelkortool.h"

namespace workbench_test {
namespace {

class ZelkorToolTest : public testing::Test {
  protected:
    ZelkorToolTest() : library_(LoadLibraryA((LibraryFolder() + "ZELKORTOOL.DLL").c_str())) {}
    ~ZelkorToolTest() override {
        SetEnvironmentVariableA("ZELKOR_LANGUAGE", nullptr);
        FreeLibrary(library_);
    }

    template <typename Function>
    Function Get(const char* name) {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library_, name)));
    }

    /// The path that a function lends, "(none)" when it refuses.
    template <typename Function, typename... Arguments>
    std::string Path(const char* name, Arguments... arguments) {
        MStrBuf buffer{};
        const int result = Get<Function>(name)(&buffer, arguments...);
        const std::string path = result != 0 ? buffer.text : "(none)";
        Get<decltype(&DeleteMStrBuf)>("DeleteMStrBuf")(&buffer);
        EXPECT_EQ(buffer.text, nullptr);
        return path;
    }

    std::uint32_t LanguageFor(const char* code) {
        SetEnvironmentVariableA("ZELKOR_LANGUAGE", code);
        return Get<decltype(&GetZelkorLanguage)>("GetZelkorLanguage")();
    }

    std::string LanguagePath(std::uint32_t language) {
        return Path<decltype(&GetZelkorLanguagePath)>("GetZelkorLanguagePath", language);
    }

    HMODULE library_;
};

std::string Tail(const std::string& path, std::size_t length) {
    return path.size() < length ? path : path.substr(path.size() - length);
}

TEST_F(ZelkorToolTest, VersionSatisfiesTheModule) {
    const auto version = Get<decltype(&GetDLLVersion)>("GetDLLVersion");
    EXPECT_GE(version(), 3.0308 - 0.0000001);
    EXPECT_LT(version(), 3.0309);
}

TEST_F(ZelkorToolTest, LanguageComesFromTheEnvironment) {
    EXPECT_EQ(LanguageFor(nullptr), 7U);
    EXPECT_EQ(LanguageFor("de"), 7U);
    EXPECT_EQ(LanguageFor("en"), 9U);
    EXPECT_EQ(LanguageFor("fr"), 0U);
    EXPECT_EQ(LanguageFor("a name far longer than any language"), 0U);
}

TEST_F(ZelkorToolTest, LanguageFoldersLieBesideTheLibrary) {
    EXPECT_EQ(Tail(LanguagePath(7), 8), "\\bin\\de\\");
    EXPECT_EQ(Tail(LanguagePath(9), 8), "\\bin\\en\\");
    EXPECT_EQ(LanguagePath(0), "(none)");
    EXPECT_EQ(LanguagePath(8), "(none)");
}

TEST_F(ZelkorToolTest, XmlAccessLibraryLiesBesideIt) {
    const auto path = Path<decltype(&GetPathToXMLAccessDLL)>("GetPathToXMLAccessDLL");
    EXPECT_EQ(Tail(path, 18), "\\bin\\ZELKORXML.DLL");
    EXPECT_NE(GetFileAttributesA(path.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(ZelkorToolTest, BinPathFollowsTheInstance) {
    const auto ofFile = [this](const char* file) {
        return Path<decltype(&GetPathToLibDirFile)>("GetPathToLibDirFile", file);
    };
    EXPECT_EQ(Tail(ofFile("A.LIB"), 14), "\\bin\\LIB\\A.LIB");
    Get<decltype(&SetBINPath)>("SetBINPath")(GetModuleHandleA(nullptr));
    EXPECT_EQ(Tail(ofFile("A.LIB"), 16), "\\tests\\LIB\\A.LIB");
    EXPECT_EQ(ofFile(""), "(none)");
    EXPECT_EQ(ofFile(nullptr), "(none)");
}

TEST_F(ZelkorToolTest, FoldersOfAnInstance) {
    void* program = GetModuleHandleA(nullptr);
    EXPECT_EQ(
        Tail(Path<decltype(&GetPathToProjectZCDForInst)>("GetPathToProjectZCDForInst", program),
             11),
        "\\tests\\ZCD\\");
    EXPECT_EQ(Tail(Path<decltype(&GetPathToDDFForInst)>("GetPathToDDFForInst", program), 11),
              "\\tests\\DDF\\");
    EXPECT_EQ(Tail(Path<decltype(&GetTEMPPath)>("GetTEMPPath"), 1), "\\");
}

TEST_F(ZelkorToolTest, RefusesNullBuffersAndForeignTexts) {
    EXPECT_EQ(Get<decltype(&GetTEMPPath)>("GetTEMPPath")(nullptr), 0);
    char foreign[] = "foreign";
    MStrBuf buffer{foreign, 0, 0};
    const auto release = Get<decltype(&DeleteMStrBuf)>("DeleteMStrBuf");
    release(&buffer);
    EXPECT_EQ(buffer.text, foreign);
    release(nullptr);
}

TEST_F(ZelkorToolTest, MessageLinesNeedAPageAndAText) {
    const auto append = Get<decltype(&AppendMsgLine)>("AppendMsgLine");
    EXPECT_EQ(append(nullptr, "line"), 0);
    EXPECT_EQ(append("Import", nullptr), 0);
    EXPECT_EQ(append("Import", "a line of the message window"), 1);
    EXPECT_EQ(Get<decltype(&EmptyMsgWnd)>("EmptyMsgWnd")("Import"), 1);
    EXPECT_EQ(Get<decltype(&CloseMsgWnd)>("CloseMsgWnd")(nullptr), 0);
}

}  // namespace
}  // namespace workbench_test
