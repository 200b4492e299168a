// The module is unloaded while its dialogs are up: it goes when the last of them has ended.

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <set>
#include <thread>
#include <vector>

#include "module_host.h"
#include "resources/dialog_ids.h"
#include "support/dialog_user.h"

namespace orvell::test {
namespace {

using Words = std::vector<std::uint16_t>;

constexpr const char* kDefinitions =
    "Definitions\n"
    "\tTypeList\n"
    "\t\tType|Name=Word|BaseType=UINT|Size=2\n"
    "\tMemoryList\n"
    "\t\tMemory|ID=17|Type=Word\n";

constexpr DWORD kPatience = 20'000;  // ms; never reached unless something is wrong

Words written;
std::function<void()> beforeWriting;

std::int32_t ORVELL_CALL Put16(std::uint32_t, std::uint32_t, std::uint16_t value) {
    if (beforeWriting) {
        beforeWriting();
    }
    written.push_back(value);
    return 1;
}

class UnloadingTest : public testing::Test {
  protected:
    UnloadingTest() {
        stage.SetUpEverything();
        stage.Write("PLANT.STDMEMXML", kDefinitions);
        online.size = sizeof(online);
        online.alternative.Put16 = Put16;
        record.size = sizeof(record);
        record.identifier = 17;
        record.count = 3;
        record.mode = 3;  // online
        record.length = sizeof(value);
        record.bytes = std::malloc(sizeof(value));
        std::memcpy(record.bytes, value, sizeof(value));
        written.clear();
        Load();
    }

    ~UnloadingTest() override {
        beforeWriting = nullptr;
        std::free(record.bytes);
        CloseHandle(held);
        CloseHandle(release);
        if (IsLoaded()) {
            Unload();
        }
    }

    void Load() {
        module = LoadLibraryA(stage.Path("ORVELL.DLL").c_str());
        ASSERT_NE(module, nullptr);
        slots = {};
        slots.size = sizeof(slots);
        reinterpret_cast<decltype(&GetStdParaFctns)>(
            reinterpret_cast<void*>(GetProcAddress(module, "GetStdParaFctns")))(&slots);
    }

    void LoadDefinitions() const {
        const std::string project = stage.Path("plant.prj");
        ConfigurationRecord configuration{sizeof(configuration), nullptr, project.c_str()};
        slots.LoadStdMemConfig(&configuration, 1);
    }

    void Unload() const { EXPECT_NE(FreeLibrary(module), FALSE); }

    static bool IsLoaded() { return GetModuleHandleA("ORVELL.DLL") != nullptr; }

    /// Nothing is left of the module, and what is loaded anew knows nothing of its former life.
    void ExpectGone() {
        for (const char* library :
             {"ORVELL.DLL", "ORVELLRES.DLL", "FAKEXML.DLL", "ZELKORTOOL.DLL"}) {
            EXPECT_EQ(GetModuleHandleA(library), nullptr) << library;
        }
        WNDCLASSA gridClass{};
        EXPECT_EQ(GetClassInfoA(module, "MFCGridCtrl", &gridClass), FALSE);
        Load();
        EXPECT_EQ(slots.GetStdStructSize(17), 0U);
        LoadDefinitions();
        EXPECT_EQ(slots.GetStdStructSize(17), 2U);
    }

    std::int32_t EditWith(const std::function<void(const DialogUser&)>& script) {
        std::int32_t result = -1;
        WorkDialogs(
            [&] {
                result = slots.EditStdParameter(&record, &online);
                isLoadedAfterwards = IsLoaded();
            },
            script);
        return result;
    }

    /// The setter stays in its first call until `release` is signalled.
    void HoldSetter() {
        beforeWriting = [this] {
            SetEvent(held);
            EXPECT_EQ(WaitForSingleObject(release, kPatience), WAIT_OBJECT_0);
        };
    }

    void WaitUntilHeld() const { EXPECT_EQ(WaitForSingleObject(held, kPatience), WAIT_OBJECT_0); }

    [[nodiscard]] static HWND Dialog(const DialogUser& user) {
        return user.Dialog(ORVELL_VALUE_GRID);
    }

    static constexpr std::uint16_t value[] = {1, 2, 3};

    Stage stage;
    HMODULE module = nullptr;
    StdParaFunctionTable slots{};
    OnlineAccessRecord online{};
    DialogParameterRecord record{};
    HANDLE held = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    HANDLE release = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    bool isLoadedAfterwards = false;
};

TEST_F(UnloadingTest, ATransferGoesOnAndTheModuleGoesBehindIt) {
    LoadDefinitions();
    HoldSetter();
    EXPECT_EQ(EditWith([this](const DialogUser& user) {
                  user.Press(Dialog(user), IDOK);
                  WaitUntilHeld();
                  Unload();
                  EXPECT_TRUE(IsLoaded());
                  EXPECT_TRUE(IsWindow(user.Dialog(ORVELL_TRANSFER_PROGRESS)));
                  SetEvent(release);
              }),
              1);
    EXPECT_FALSE(isLoadedAfterwards);
    EXPECT_EQ(written, (Words{1, 2, 3}));
    ExpectGone();
}

TEST_F(UnloadingTest, ATransferCanBeCancelledBehindIt) {
    LoadDefinitions();
    HoldSetter();
    const DialogParameterRecord before = record;
    EXPECT_EQ(EditWith([this](const DialogUser& user) {
                  const HWND dialog = Dialog(user);
                  user.Press(dialog, IDOK);
                  WaitUntilHeld();
                  Unload();
                  const HWND transfer = user.Dialog(ORVELL_TRANSFER_PROGRESS);
                  user.Press(transfer, IDCANCEL);
                  DialogUser::WaitUntil("the cancelling", [transfer] {
                      return IsWindowEnabled(GetDlgItem(transfer, IDCANCEL)) == FALSE;
                  });
                  SetEvent(release);
                  DialogUser::WaitUntilGone(transfer);
                  user.Press(dialog, IDCANCEL);
              }),
              0);
    EXPECT_FALSE(isLoadedAfterwards);
    EXPECT_EQ(std::memcmp(&record, &before, sizeof(before)), 0);
    EXPECT_EQ(written, Words{1});
    ExpectGone();
}

TEST_F(UnloadingTest, AFailedTransferIsToldBehindIt) {
    LoadDefinitions();
    HoldSetter();
    online.alternative.Put16 = [](std::uint32_t first, std::uint32_t second, std::uint16_t word) {
        return Put16(first, second, word) - 1;
    };
    EXPECT_EQ(EditWith([this](const DialogUser& user) {
                  const HWND dialog = Dialog(user);
                  user.Press(dialog, IDOK);
                  WaitUntilHeld();
                  Unload();
                  SetEvent(release);
                  EXPECT_EQ(user.AnswerBox(), "The value cannot be written online.");
                  user.Press(dialog, IDCANCEL);
              }),
              0);
    EXPECT_FALSE(isLoadedAfterwards);
    ExpectGone();
}

TEST_F(UnloadingTest, TheHostsOwnFunctionMayUnload) {
    LoadDefinitions();
    beforeWriting = [this] {
        if (written.empty()) {
            Unload();
        }
    };
    EXPECT_EQ(EditWith([](const DialogUser& user) { user.Press(Dialog(user), IDOK); }), 1);
    EXPECT_FALSE(isLoadedAfterwards);
    EXPECT_EQ(written, (Words{1, 2, 3}));
    ExpectGone();
}

TEST_F(UnloadingTest, SoMayAMessageOfTheDialogsThread) {
    LoadDefinitions();
    EXPECT_EQ(EditWith([this](const DialogUser& user) {
                  const HWND dialog = Dialog(user);
                  user.OnThread([this] { Unload(); });
                  EXPECT_TRUE(IsLoaded());
                  user.Press(dialog, IDOK);
              }),
              1);
    EXPECT_FALSE(isLoadedAfterwards);
    EXPECT_EQ(written, (Words{1, 2, 3}));
    ExpectGone();
}

TEST_F(UnloadingTest, AHostThatWaitsUnloadsAtOnce) {
    LoadDefinitions();
    EXPECT_EQ(EditWith([](const DialogUser& user) { user.Press(Dialog(user), IDCANCEL); }), 0);
    EXPECT_TRUE(isLoadedAfterwards);
    Unload();
    EXPECT_FALSE(IsLoaded());
    ExpectGone();
}

/// A thread that is told by its number would be another's, of any process, once it has ended.
TEST_F(UnloadingTest, TheThreadThatHasEditedStaysKnownBehindItsEnd) {
    LoadDefinitions();
    DWORD editing = 0;
    std::thread([&] {
        editing = GetCurrentThreadId();
        EXPECT_EQ(EditWith([](const DialogUser& user) { user.Press(Dialog(user), IDCANCEL); }), 0);
    }).join();
    constexpr int kThreads = 2000;  // never reached: numbers come again after some hundreds
    int comeAgain = 0;
    std::set<DWORD> numbers;
    for (int count = 0; count < kThreads && comeAgain < 50; ++count) {
        DWORD number = 0;
        std::thread([&] { number = GetCurrentThreadId(); }).join();
        ASSERT_NE(number, editing) << count;
        comeAgain += numbers.insert(number).second ? 0 : 1;
    }
    EXPECT_GT(comeAgain, 0) << "the test has seen nothing";
    Unload();
    ExpectGone();
}

TEST_F(UnloadingTest, NothingIsLeftOfManyLives) {
    DWORD handlesBefore = 0;
    constexpr int kLives = 9;
    constexpr int kWarming = 3;
    for (int life = 0; life < kLives; ++life) {
        if (life == kWarming) {
            GetProcessHandleCount(GetCurrentProcess(), &handlesBefore);
        }
        LoadDefinitions();
        const bool isUnloadedMeanwhile = life % 2 == 0;
        EXPECT_EQ(EditWith([&](const DialogUser& user) {
                      const HWND dialog = Dialog(user);
                      if (isUnloadedMeanwhile) {
                          Unload();
                      }
                      user.Press(dialog, IDCANCEL);
                  }),
                  0);
        if (!isUnloadedMeanwhile) {
            Unload();
        }
        ASSERT_FALSE(IsLoaded()) << life;
        Load();
    }
    DWORD handlesAfterwards = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handlesAfterwards);
    EXPECT_LT(handlesAfterwards, handlesBefore + kLives - kWarming)
        << "at least one a life is left";
}

}  // namespace
}  // namespace orvell::test
