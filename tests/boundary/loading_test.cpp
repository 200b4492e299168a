#include <gtest/gtest.h>

#include "message_watcher.h"
#include "module_host.h"

namespace orvell::test {
namespace {

constexpr const char* kExports[] = {
    "SetZelkorExportFctns",     "GetStdParaFctns",         "GetParaMGMTFunc",
    "STDSIL_GetSignalInfo",     "STDSIL_SetBitParaValue",  "STDSIL_SetWordParaValue",
    "STDSIL_SetFloatParaValue", "STDSIL_SetTextParaValue", "STDSIL_SetTXParaValue",
    "STDSIL_GetName",           "STDSIL_SetName",          "STDSIL_GetComment",
    "STDSIL_SetComment",        "STDSIL_GetValue",         "STDSIL_SetValue",
    "STDSIL_GetBitValue",       "STDSIL_GetWordValue",     "STDSIL_GetWordVector",
    "STDSIL_GetFloatValue",     "STDSIL_GetStringValue",   "STDSIL_SetTextValue",
    "STDSIL_GetTXValue",        "STDSIL_SetTXValue"};

constexpr const char* kGermanNotice =
    "Fehler !   Die Ressourcen-DLL f\xFCr die ausgew\xE4hlte Sprache kann nicht geladen werden.\n"
    "Die internen deutschen Ressourcen werden verwendet.";

class LoadingTest : public testing::Test {
  protected:
    LoadingTest() { stage.SetUpEverything(); }

    void ExpectRefused(const char* reason) {
        {
            const LoadedModule module(stage);
            EXPECT_FALSE(module.IsLoaded()) << reason;
        }
        EXPECT_TRUE(watcher.Boxes().empty()) << reason;
        EXPECT_EQ(GetModuleHandleA("ZELKORTOOL.DLL"), nullptr) << reason;
        EXPECT_EQ(GetModuleHandleA("FAKEXML.DLL"), nullptr) << reason;
        EXPECT_EQ(Stage::Get("FAKE_TOOL_LENT"), "0") << reason;
    }

    Stage stage;
    MessageWatcher watcher;
};

TEST_F(LoadingTest, LoadsAndReleasesEverything) {
    {
        const LoadedModule module(stage);
        ASSERT_TRUE(module.IsLoaded());
        EXPECT_EQ(Stage::Get("FAKE_TOOL_INSTANCE"),
                  std::to_string(reinterpret_cast<std::uintptr_t>(module.Handle())));
        EXPECT_NE(GetModuleHandleA("ORVELLRES.DLL"), nullptr);
        for (const char* name : kExports) {
            EXPECT_NE(GetProcAddress(module.Handle(), name), nullptr) << name;
        }
    }
    EXPECT_TRUE(watcher.Boxes().empty());
    EXPECT_EQ(Stage::Get("FAKE_TOOL_LENT"), "0");
    for (const char* library : {"ORVELL.DLL", "ORVELLRES.DLL", "FAKEXML.DLL", "ZELKORTOOL.DLL"}) {
        EXPECT_EQ(GetModuleHandleA(library), nullptr) << library;
    }
}

TEST_F(LoadingTest, LoadsAgainAndAgain) {
    for (int round = 0; round < 20; ++round) {
        const LoadedModule module(stage);
        ASSERT_TRUE(module.IsLoaded()) << round;
        EXPECT_EQ(module.Slots().GetStdStructSize(1), 0U);
    }
    EXPECT_EQ(GetModuleHandleA("ORVELL.DLL"), nullptr);
}

TEST_F(LoadingTest, RefusedWithoutTheToolLibrary) {
    stage.Remove("ZELKORTOOL.DLL");
    ExpectRefused("missing");
    stage.Write("ZELKORTOOL.DLL", "this is no library");
    ExpectRefused("broken");
}

TEST_F(LoadingTest, RefusedWithAnIncompleteToolLibrary) {
    stage.PutFake("tool-incomplete/ZELKORTOOL.DLL");
    ExpectRefused("one function missing");
}

TEST_F(LoadingTest, RefusedWithAnOldToolLibrary) {
    Stage::Set("FAKE_TOOL_VERSION", "3.0307");
    ExpectRefused("too old");
}

TEST_F(LoadingTest, RefusedWithoutTheXmlLibrary) {
    Stage::Set("FAKE_TOOL_XML_PATH", "");
    ExpectRefused("no path");
    Stage::Set("FAKE_TOOL_XML_PATH", stage.Path("NOWHERE.DLL"));
    ExpectRefused("no file");
    Stage::Set("FAKE_TOOL_XML_PATH", stage.Write("BROKEN.DLL", "this is no library"));
    ExpectRefused("broken");
}

TEST_F(LoadingTest, RefusedWithAnIncompleteXmlLibrary) {
    stage.PutFake("xml-incomplete/FAKEXML.DLL");
    ExpectRefused("one function missing");
}

TEST_F(LoadingTest, RefusedWithAnOldXmlLibrary) {
    Stage::Set("FAKE_XML_VERSION", "2.0099");
    ExpectRefused("too old");
}

TEST_F(LoadingTest, CanBeLoadedOnceTheCauseIsGone) {
    Stage::Set("FAKE_XML_VERSION", "1.0");
    ExpectRefused("too old");
    Stage::Set("FAKE_XML_VERSION", "2.01");
    const LoadedModule module(stage);
    EXPECT_TRUE(module.IsLoaded());
}

TEST_F(LoadingTest, TellsThatTheBuiltInTextsAreUsed) {
    const struct {
        const char* variable;
        std::string value;
    } cases[] = {
        {"FAKE_TOOL_LANGUAGE", "0"},
        {"FAKE_TOOL_LANGUAGE_PATH", ""},
        {"FAKE_TOOL_LANGUAGE_PATH", stage.Path("no such folder")},
    };
    for (const auto& [variable, value] : cases) {
        Stage::Set("FAKE_TOOL_LANGUAGE", "9");
        Stage::Set(variable, value);
        const std::size_t before = watcher.Boxes().size();
        const LoadedModule module(stage);
        EXPECT_TRUE(module.IsLoaded());
        ASSERT_EQ(watcher.Boxes().size(), before + 1) << variable << "=" << value;
        const MessageWatcher::Box& box = watcher.Boxes().back();
        EXPECT_EQ(box.text, kGermanNotice);
        EXPECT_EQ(box.caption, "Orvell");
        EXPECT_EQ(box.owner, nullptr);
    }
}

}  // namespace
}  // namespace orvell::test
