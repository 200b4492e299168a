// Memory runs out at every single allocation of the start-up: the module is not loaded, or it is
// whole.

#include <gtest/gtest.h>

#include <optional>

#include "host/module.h"
#include "resources/built_in_strings.h"
#include "support/fake_libraries.h"
#include "support/short_memory.h"
#include "support/xml_library_symbols.h"

namespace orvell::host {
namespace {

using test::HeldBlocks;
using test::RunWithEveryShortage;
using test::Shortage;
using test::SuspendShortage;

/// Libraries whose loading is not part of the test; how many are loaded.
int loadedLibraries = 0;

/// Knows every function, and all of them are never called.
class QuietLibrary final : public platform::Library {
  public:
    explicit QuietLibrary(const test::Symbols& symbols) : symbols_(symbols) { ++loadedLibraries; }
    ~QuietLibrary() override { --loadedLibraries; }

    void* Find(const char* symbol) const override {
        SuspendShortage(true);
        const auto found = symbols_.find(symbol);
        void* const address = found == symbols_.end() ? nullptr : found->second;
        SuspendShortage(false);
        return address;
    }
    void* Handle() const override { return const_cast<test::Symbols*>(&symbols_); }
    void Abandon() override {}

  private:
    const test::Symbols& symbols_;
};

double ORVELL_CALL Version() {
    return 4;
}

void ORVELL_CALL NeverCalled() {
    ADD_FAILURE() << "nothing is read at start-up";
}

int lentBuffers = 0;

std::int32_t ORVELL_CALL LendPath(MStrBuf* buffer) {
    static char path[] = "C:\\A folder with a long name\\XML.DLL";
    buffer->text = path;
    ++lentBuffers;
    return 1;
}

std::int32_t ORVELL_CALL LendLanguagePath(MStrBuf* buffer, std::uint32_t) {
    return LendPath(buffer);
}

void ORVELL_CALL TakeBack(MStrBuf*) {
    --lentBuffers;
}

test::Symbols ToolSymbols() {
    test::Symbols symbols;
    for (const char* name :
         {"AppendMsgLine", "EmptyMsgWnd", "CloseMsgWnd", "GetTEMPPath",
          "GetPathToProjectZCDForInst", "GetPathToDDFForInst", "GetPathToLibDirFile"}) {
        symbols[name] = test::Address(NeverCalled);
    }
    symbols["SetBINPath"] = test::Address(+[](void*) {});
    symbols["GetZelkorLanguage"] = test::Address(+[]() -> std::uint32_t { return 7; });
    symbols["GetPathToXMLAccessDLL"] = test::Address(LendPath);
    symbols["GetZelkorLanguagePath"] = test::Address(LendLanguagePath);
    symbols["DeleteMStrBuf"] = test::Address(TakeBack);
    symbols["GetDLLVersion"] = test::Address(Version);
    return symbols;
}

const test::Symbols& SymbolsOf(const std::string& path) {
    static const test::Symbols tool = ToolSymbols();
    static const test::Symbols language{{"GetDLLVersion", test::Address(Version)}};
    static const test::Symbols xml = [] {
        test::Symbols symbols = test::XmlLibrarySymbols(NeverCalled);
        symbols.insert(language.begin(), language.end());
        return symbols;
    }();
    return path.ends_with("TOOL.DLL") ? tool : path.ends_with("RES.DLL") ? language : xml;
}

class QuietLoader final : public platform::LibraryLoader {
  public:
    /// As the system's loader: its object takes memory, and then the library is loaded.
    std::unique_ptr<platform::Library> Load(const std::string& path) override {
        return std::make_unique<QuietLibrary>(SymbolsOf(path));
    }
};

class CountedMessages final : public platform::MessageBoxes {
  public:
    void Show(const platform::Message&) override { ++shown; }
    bool Ask(const platform::Message&) override { return false; }

    int shown = 0;
};

TEST(ShortMemoryStartUpTest, TheModuleIsLoadedWholeOrNotAtAll) {
    QuietLoader loader;
    CountedMessages messages;
    const SystemServices services{
        loader, messages, [](void*) { return std::string("D:\\A long folder\\ORVELL.DLL"); },
        [](void*) -> std::unique_ptr<platform::StringSource> {
            return std::make_unique<resources::BuiltInStrings>();
        }};
    int started = 0;
    int unmade = 0;
    const auto expectWhole = [](const Module& module) {
        EXPECT_EQ(module.app.Tool().Language(), 7U);
        EXPECT_NE(module.xml.BoundLibrary(), nullptr);
        EXPECT_EQ(module.store.GetDefaultPath(), "D:\\A LONG FOLDER\\ORVELL.XML");
        EXPECT_EQ(loadedLibraries, 3);
    };
    const auto liveOnce = [&] {
        std::optional<Module> module;
        bool isStarted = false;
        try {
            module.emplace(services);
            isStarted = module->app.InitInstance();
        } catch (const std::bad_alloc&) {  // the loader's entry point sees it
        }
        SuspendShortage(true);
        started += isStarted ? 1 : 0;
        unmade += module.has_value() ? 0 : 1;
        if (isStarted) {
            expectWhole(*module);
        }
        if (module.has_value()) {
            module->app.ExitInstance();
        }
        EXPECT_EQ(loadedLibraries, 0);
    };
    liveOnce();
    ASSERT_EQ(started, 1);
    const std::size_t held = HeldBlocks();
    started = 0;
    const std::size_t shortages = RunWithEveryShortage(liveOnce, [&](Shortage) {
        EXPECT_EQ(HeldBlocks(), held);
        EXPECT_EQ(lentBuffers, 0);
    });
    EXPECT_GT(shortages, 10U);
    EXPECT_GT(unmade, 2 * 20) << "the module object asks for memory itself";
    EXPECT_EQ(started, 2) << "each kind of shortage ends with enough memory";
    EXPECT_EQ(messages.shown, 0) << "short memory is no missing language library";
}

}  // namespace
}  // namespace orvell::host
