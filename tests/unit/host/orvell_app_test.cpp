#include "host/orvell_app.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "host/module.h"
#include "resources/built_in_strings.h"
#include "support/fake_zelkor_tool.h"
#include "support/recorded_messages.h"
#include "support/xml_library_symbols.h"

namespace orvell::host {
namespace {

using resources::StringId;
using test::FakeLoader;
using test::FakeZelkorTool;

constexpr const char* kModulePath = "D:\\Bin\\Orvell.dll";
constexpr const char* kToolPath = "D:\\Bin\\ZELKORTOOL.DLL";
constexpr const char* kXmlPath = "XML.DLL";
constexpr const char* kLanguagePath = "C:\\LANG\\ORVELLRES.DLL";

double xmlVersion;
double languageVersion;

double ORVELL_CALL XmlVersion() {
    return xmlVersion;
}
double ORVELL_CALL LanguageVersion() {
    return languageVersion;
}
void ORVELL_CALL NotCalled() {
    ADD_FAILURE() << "nothing is read at start-up";
}

test::Symbols XmlSymbols() {
    test::Symbols symbols = test::XmlLibrarySymbols(NotCalled);
    symbols["GetDLLVersion"] = test::Address(XmlVersion);
    return symbols;
}

/// Texts that tell from which module they were read.
class TaggedStrings final : public platform::StringSource {
  public:
    explicit TaggedStrings(std::string tag) : tag_(std::move(tag)) {}
    std::string Load(std::uint32_t number) const override { return tag_ + std::to_string(number); }

  private:
    std::string tag_;
};

int instance = 0;

std::string ModulePath(void* module) {
    EXPECT_EQ(module, &instance);
    return kModulePath;
}

std::unique_ptr<platform::StringSource> OpenStrings(void* module) {
    return std::make_unique<TaggedStrings>(module == &instance ? "own" : "language");
}

class OrvellAppTest : public testing::Test {
  protected:
    OrvellAppTest() {
        FakeZelkorTool::Reset();
        xmlVersion = 2.01;
        languageVersion = 2.0105;
        loader.libraries[kToolPath] = FakeZelkorTool::AllSymbols();
        loader.libraries[kXmlPath] = XmlSymbols();
        loader.libraries[kLanguagePath]["GetDLLVersion"] = test::Address(LanguageVersion);
        module.app.SetInstance(&instance);
    }

    std::string Text(std::uint32_t number) {
        return module.strings.Text(static_cast<StringId>(number));
    }

    void ExpectRefusedSilently() {
        EXPECT_FALSE(module.app.InitInstance());
        module.app.ExitInstance();
        EXPECT_TRUE(messages.shown.empty());
        const auto loads = std::count_if(loader.journal.begin(), loader.journal.end(),
                                         [](auto& line) { return line.starts_with("load "); });
        const auto frees = std::count_if(loader.journal.begin(), loader.journal.end(),
                                         [](auto& line) { return line.starts_with("free "); });
        const auto missing =
            std::count_if(loader.journal.begin(), loader.journal.end(), [this](auto& line) {
                return line.starts_with("load ") && !loader.libraries.contains(line.substr(5));
            });
        EXPECT_EQ(loads - missing, frees) << "everything that was bound is undone";
    }

    void ExpectBuiltInTexts() {
        EXPECT_TRUE(module.app.InitInstance());
        ASSERT_EQ(messages.shown.size(), 1U);
        EXPECT_EQ(messages.shown[0].text, "own1013");
        EXPECT_EQ(messages.shown[0].caption, "own1");
        EXPECT_EQ(messages.shown[0].symbol, platform::MessageSymbol::Exclamation);
        EXPECT_EQ(messages.shown[0].owner, nullptr);
        EXPECT_TRUE(messages.shown[0].topMost);
        EXPECT_EQ(Text(500), "own500");
        EXPECT_EQ(module.app.ResourceHandle(), &instance);
    }

    FakeLoader loader;
    test::RecordedMessages messages;
    const SystemServices services{loader, messages, ModulePath, OpenStrings};
    Module module{services};
};

TEST_F(OrvellAppTest, BindsEverythingInOrder) {
    ASSERT_TRUE(module.app.InitInstance());
    EXPECT_EQ(loader.journal, (std::vector<std::string>{std::string("load ") + kToolPath,
                                                        std::string("load ") + kXmlPath,
                                                        std::string("load ") + kLanguagePath}));
    EXPECT_EQ(
        FakeZelkorTool::calls,
        (std::vector<std::string>{"SetBINPath", "GetZelkorLanguage", "GetPathToXMLAccessDLL",
                                  "DeleteMStrBuf", "GetZelkorLanguagePath 7", "DeleteMStrBuf"}));
    EXPECT_EQ(FakeZelkorTool::instance, &instance);
    EXPECT_EQ(module.store.GetDefaultPath(), "D:\\BIN\\ORVELL.XML");
    EXPECT_EQ(Text(500), "language500");
    EXPECT_NE(module.app.ResourceHandle(), &instance);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(OrvellAppTest, ReleasesInOrderAndOnce) {
    ASSERT_TRUE(module.app.InitInstance());
    loader.journal.clear();
    EXPECT_EQ(module.app.ExitInstance(), 0);
    EXPECT_EQ(loader.journal, (std::vector<std::string>{std::string("free ") + kLanguagePath,
                                                        std::string("free ") + kXmlPath,
                                                        std::string("free ") + kToolPath}));
    EXPECT_EQ(module.app.ResourceHandle(), &instance);
    EXPECT_EQ(Text(500), "own500");
    loader.journal.clear();
    module.app.ExitInstance();
    EXPECT_TRUE(loader.journal.empty());
}

TEST_F(OrvellAppTest, LeavesTheLibrariesToAnEndingProcess) {
    ASSERT_TRUE(module.app.InitInstance());
    loader.journal.clear();
    module.app.Abandon();
    EXPECT_EQ(std::count_if(loader.journal.begin(), loader.journal.end(),
                            [](auto& line) { return line.starts_with("abandon "); }),
              3);
}

TEST_F(OrvellAppTest, CanStartAgain) {
    ASSERT_TRUE(module.app.InitInstance());
    module.app.ExitInstance();
    ASSERT_TRUE(module.app.InitInstance());
    EXPECT_EQ(Text(500), "language500");
}

TEST_F(OrvellAppTest, EmptiesTheCallbackTable) {
    const HostExportTable table{sizeof(HostExportTable), nullptr, nullptr, &instance, nullptr};
    module.callbacks.Install(&table);
    ASSERT_TRUE(module.app.InitInstance());
    EXPECT_EQ(module.callbacks.Table().reserved3, nullptr);
}

TEST_F(OrvellAppTest, RefusedWithoutTheToolLibrary) {
    loader.libraries.erase(kToolPath);
    ExpectRefusedSilently();
}

TEST_F(OrvellAppTest, RefusedWithAnOldToolLibrary) {
    FakeZelkorTool::version = 3.0307;
    ExpectRefusedSilently();
    EXPECT_EQ(FakeZelkorTool::calls, (std::vector<std::string>{"SetBINPath", "GetZelkorLanguage"}));
}

TEST_F(OrvellAppTest, RefusedWithoutTheToolLibrarysVersion) {
    loader.libraries[kToolPath].erase("GetDLLVersion");
    ExpectRefusedSilently();
}

TEST_F(OrvellAppTest, RefusedWithoutAnXmlPath) {
    FakeZelkorTool::xmlPath = "";
    ExpectRefusedSilently();
    EXPECT_EQ(loader.journal.size(), 2U) << "an empty path is never loaded";
}

TEST_F(OrvellAppTest, RefusedWithoutTheXmlLibrary) {
    loader.libraries.erase(kXmlPath);
    ExpectRefusedSilently();
}

TEST_F(OrvellAppTest, RefusedWithAnOldXmlLibrary) {
    xmlVersion = 2.0099;
    ExpectRefusedSilently();
}

TEST_F(OrvellAppTest, RefusedWithAnIncompleteXmlLibrary) {
    const test::Symbols all = XmlSymbols();
    for (const auto& [name, address] : all) {
        loader.libraries[kXmlPath] = all;
        loader.libraries[kXmlPath].erase(name);
        ExpectRefusedSilently();
    }
}

TEST_F(OrvellAppTest, WithoutALanguageTheBuiltInTextsAreUsed) {
    FakeZelkorTool::language = 0;
    ExpectBuiltInTexts();
    EXPECT_EQ(loader.journal.size(), 2U) << "no language library is looked for";
}

TEST_F(OrvellAppTest, WithoutALanguageFolderTheBuiltInTextsAreUsed) {
    FakeZelkorTool::languageFolder = nullptr;
    ExpectBuiltInTexts();
}

TEST_F(OrvellAppTest, WithoutTheLanguageLibraryTheBuiltInTextsAreUsed) {
    loader.libraries.erase(kLanguagePath);
    ExpectBuiltInTexts();
}

TEST_F(OrvellAppTest, AnOldLanguageLibraryIsFreed) {
    languageVersion = 2.0104;
    ExpectBuiltInTexts();
    EXPECT_EQ(loader.journal.back(), std::string("free ") + kLanguagePath);
}

TEST_F(OrvellAppTest, ALanguageLibraryWithoutAVersionIsFreed) {
    loader.libraries[kLanguagePath].clear();
    ExpectBuiltInTexts();
    EXPECT_EQ(loader.journal.back(), std::string("free ") + kLanguagePath);
}

}  // namespace
}  // namespace orvell::host
