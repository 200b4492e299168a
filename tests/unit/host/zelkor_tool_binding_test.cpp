#include "host/zelkor_tool_binding.h"

#include <gtest/gtest.h>

#include "host/version_rule.h"
#include "support/fake_zelkor_tool.h"

namespace orvell::host {
namespace {

using test::FakeLoader;
using test::FakeZelkorTool;

constexpr const char* kPath = "D:\\BIN\\ZELKORTOOL.DLL";

TEST(ZelkorToolPath, LiesBesideTheModule) {
    EXPECT_EQ(ZelkorToolPath("D:\\Bin\\ORVELL.DLL"), "D:\\Bin\\ZELKORTOOL.DLL");
    EXPECT_EQ(ZelkorToolPath("\\ORVELL.DLL"), "\\ZELKORTOOL.DLL");
    EXPECT_EQ(ZelkorToolPath("D:ORVELL.DLL"), "D:\\ZELKORTOOL.DLL");
}

TEST(ZelkorToolPath, IsRelativeWithoutAFolder) {
    EXPECT_EQ(ZelkorToolPath("ORVELL.DLL"), ".\\ZELKORTOOL.DLL");
    EXPECT_EQ(ZelkorToolPath(""), ".\\ZELKORTOOL.DLL");
    EXPECT_EQ(ZelkorToolPath("bin/ORVELL.DLL"), ".\\ZELKORTOOL.DLL") << "a slash separates nothing";
}

class ZelkorToolBindingTest : public testing::Test {
  protected:
    ZelkorToolBindingTest() {
        FakeZelkorTool::Reset();
        loader.libraries[kPath] = FakeZelkorTool::AllSymbols();
    }

    FakeLoader loader;
    ZelkorToolBinding tool;
    int instance = 0;
};

TEST_F(ZelkorToolBindingTest, TellsTheInstanceAndAsksForTheLanguage) {
    ASSERT_TRUE(tool.Bind(loader, kPath, &instance));
    EXPECT_EQ(FakeZelkorTool::calls, (std::vector<std::string>{"SetBINPath", "GetZelkorLanguage"}));
    EXPECT_EQ(FakeZelkorTool::instance, &instance);
    EXPECT_EQ(tool.Language(), 7U);
}

TEST_F(ZelkorToolBindingTest, EveryRequiredFunctionMustBeThere) {
    for (const char* name :
         {"AppendMsgLine", "EmptyMsgWnd", "CloseMsgWnd", "SetBINPath", "DeleteMStrBuf",
          "GetTEMPPath", "GetPathToProjectZCDForInst", "GetPathToDDFForInst", "GetPathToLibDirFile",
          "GetZelkorLanguage", "GetZelkorLanguagePath"}) {
        FakeZelkorTool::calls.clear();
        loader.journal.clear();
        loader.libraries[kPath] = FakeZelkorTool::AllSymbols();
        loader.libraries[kPath].erase(name);
        EXPECT_FALSE(tool.Bind(loader, kPath, &instance)) << name;
        EXPECT_EQ(tool.BoundLibrary(), nullptr) << name;
        EXPECT_EQ(tool.Language(), 0U) << name;
        EXPECT_TRUE(FakeZelkorTool::calls.empty()) << name;
        EXPECT_EQ(loader.journal.back(), std::string("free ") + kPath) << name;
    }
}

TEST_F(ZelkorToolBindingTest, NeedsNeitherTheXmlPathNorAVersionToBind) {
    loader.libraries[kPath].erase("GetPathToXMLAccessDLL");
    loader.libraries[kPath].erase("GetDLLVersion");
    EXPECT_TRUE(tool.Bind(loader, kPath, &instance));
    EXPECT_EQ(tool.XmlAccessPath(), "");
    EXPECT_EQ(FakeZelkorTool::calls.back(), "GetZelkorLanguage") << "no buffer was lent";
}

TEST_F(ZelkorToolBindingTest, FailsWithoutTheLibrary) {
    EXPECT_FALSE(tool.Bind(loader, "D:\\OTHER\\ZELKORTOOL.DLL", &instance));
    EXPECT_EQ(tool.BoundLibrary(), nullptr);
}

TEST_F(ZelkorToolBindingTest, BindingAgainFreesTheFirst) {
    ASSERT_TRUE(tool.Bind(loader, kPath, &instance));
    ASSERT_TRUE(tool.Bind(loader, kPath, &instance));
    tool.Unbind();
    tool.Unbind();
    const std::string load = std::string("load ") + kPath;
    const std::string free = std::string("free ") + kPath;
    EXPECT_EQ(loader.journal, (std::vector<std::string>{load, free, load, free}));
    EXPECT_EQ(tool.Language(), 0U);
}

TEST_F(ZelkorToolBindingTest, CopiesTheXmlPathAndGivesTheBufferBack) {
    ASSERT_TRUE(tool.Bind(loader, kPath, &instance));
    EXPECT_EQ(tool.XmlAccessPath(), "XML.DLL");
    EXPECT_EQ(FakeZelkorTool::calls.back(), "DeleteMStrBuf");
    EXPECT_EQ(FakeZelkorTool::lentBuffers, 0);
    EXPECT_TRUE(FakeZelkorTool::bufferWasZero);
}

TEST_F(ZelkorToolBindingTest, GivesTheBufferBackAlsoWhenTheCallFails) {
    ASSERT_TRUE(tool.Bind(loader, kPath, &instance));
    FakeZelkorTool::pathResult = 0;
    EXPECT_EQ(tool.XmlAccessPath(), "");
    EXPECT_EQ(tool.LanguageLibraryPath(), "");
    FakeZelkorTool::pathResult = 1;
    FakeZelkorTool::xmlPath = nullptr;
    FakeZelkorTool::languageFolder = nullptr;
    EXPECT_EQ(tool.XmlAccessPath(), "");
    EXPECT_EQ(tool.LanguageLibraryPath(), "");
    EXPECT_EQ(FakeZelkorTool::lentBuffers, 0);
}

TEST_F(ZelkorToolBindingTest, LanguageLibraryLiesInTheLanguagesFolder) {
    ASSERT_TRUE(tool.Bind(loader, kPath, &instance));
    EXPECT_EQ(tool.LanguageLibraryPath(), "C:\\LANG\\ORVELLRES.DLL");
    EXPECT_EQ(FakeZelkorTool::calls[2], "GetZelkorLanguagePath 7");
    FakeZelkorTool::languageFolder = "C:\\LANG\\";
    EXPECT_EQ(tool.LanguageLibraryPath(), "C:\\LANG\\ORVELLRES.DLL");
    FakeZelkorTool::languageFolder = "";
    EXPECT_EQ(tool.LanguageLibraryPath(), "ORVELLRES.DLL");
}

TEST_F(ZelkorToolBindingTest, WithoutALanguageNoFolderIsAskedFor) {
    FakeZelkorTool::language = 0;
    ASSERT_TRUE(tool.Bind(loader, kPath, &instance));
    EXPECT_EQ(tool.LanguageLibraryPath(), "");
    EXPECT_EQ(FakeZelkorTool::calls.size(), 2U);
}

TEST_F(ZelkorToolBindingTest, NothingIsAskedOfAnUnboundLibrary) {
    EXPECT_EQ(tool.XmlAccessPath(), "");
    EXPECT_EQ(tool.LanguageLibraryPath(), "");
}

TEST_F(ZelkorToolBindingTest, AStartThatThrowsIsAsIfItHadAnsweredNothing) {
    FakeZelkorTool::throwing = "SetBINPath";
    ASSERT_TRUE(tool.Bind(loader, kPath, &instance));
    EXPECT_EQ(tool.Language(), 7U) << "is asked for all the same";
    FakeZelkorTool::throwing = "GetZelkorLanguage";
    ASSERT_TRUE(tool.Bind(loader, kPath, &instance));
    EXPECT_EQ(tool.Language(), 0U);
    EXPECT_EQ(tool.LanguageLibraryPath(), "");
    EXPECT_EQ(FakeZelkorTool::calls.back(), "GetZelkorLanguage") << "no buffer was lent";
}

TEST_F(ZelkorToolBindingTest, APathThatThrowsIsNoneAndItsBufferGoesBack) {
    ASSERT_TRUE(tool.Bind(loader, kPath, &instance));
    FakeZelkorTool::throwing = "GetPathToXMLAccessDLL";
    EXPECT_EQ(tool.XmlAccessPath(), "");
    EXPECT_EQ(FakeZelkorTool::lentBuffers, 0);
    EXPECT_EQ(tool.LanguageLibraryPath(), "C:\\LANG\\ORVELLRES.DLL");
    FakeZelkorTool::throwing = "GetZelkorLanguagePath";
    EXPECT_EQ(tool.LanguageLibraryPath(), "");
    EXPECT_EQ(FakeZelkorTool::lentBuffers, 0);
    EXPECT_EQ(tool.XmlAccessPath(), "XML.DLL");
}

TEST_F(ZelkorToolBindingTest, AGivingBackThatThrowsDoesNotSpoilThePath) {
    ASSERT_TRUE(tool.Bind(loader, kPath, &instance));
    FakeZelkorTool::throwing = "DeleteMStrBuf";
    EXPECT_EQ(tool.XmlAccessPath(), "XML.DLL");
    EXPECT_EQ(tool.LanguageLibraryPath(), "C:\\LANG\\ORVELLRES.DLL");
    EXPECT_EQ(FakeZelkorTool::lentBuffers, 0);
}

TEST_F(ZelkorToolBindingTest, AVersionThatThrowsIsTooOld) {
    ASSERT_TRUE(tool.Bind(loader, kPath, &instance));
    EXPECT_TRUE(kRequiredZelkorTool.IsMetBy(*tool.BoundLibrary()));
    FakeZelkorTool::throwing = "GetDLLVersion";
    EXPECT_FALSE(kRequiredZelkorTool.IsMetBy(*tool.BoundLibrary()));
}

TEST_F(ZelkorToolBindingTest, AbandoningDoesNotFree) {
    ASSERT_TRUE(tool.Bind(loader, kPath, &instance));
    tool.Abandon();
    EXPECT_EQ(loader.journal[1], std::string("abandon ") + kPath);
    EXPECT_EQ(tool.BoundLibrary(), nullptr);
}

}  // namespace
}  // namespace orvell::host
