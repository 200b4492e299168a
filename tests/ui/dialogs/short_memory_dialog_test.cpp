// Memory runs out at every single allocation while the dialogs are up: they can be closed all the
// same, the record is as before or whole, and nothing is left.

#include <array>
#include <cstring>

#include "dialog_fixture.h"
#include "support/limited_memory.h"

namespace orvell::ui {
namespace {

using test::EndLimit;
using test::HeldNewBlocks;
using test::LimitNew;

BOOL CALLBACK PressButton(HWND window, LPARAM button) {
    std::array<wchar_t, 16> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    if (std::wcscmp(name.data(), L"#32770") == 0 && IsWindowEnabled(window) != FALSE) {
        const bool isBox = GetDlgItem(window, ORVELL_VALUE_GRID) == nullptr &&
                           GetDlgItem(window, ORVELL_TRANSFER_PROGRESS) == nullptr;
        PostMessageW(window, WM_COMMAND,
                     isBox ? static_cast<WPARAM>(IDOK) : static_cast<WPARAM>(button), 0);
    }
    return TRUE;
}

/// A user on the dialogs' own thread, who needs no memory: answers messages with OK and presses
/// one button of the dialog, and Cancel from the third time on.
class TirelessUser {
  public:
    explicit TirelessUser(int button) : timer_(SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnTimer)) {
        button_ = button;
        presses_ = 0;
    }
    ~TirelessUser() { KillTimer(nullptr, timer_); }
    TirelessUser(const TirelessUser&) = delete;
    TirelessUser& operator=(const TirelessUser&) = delete;

  private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        constexpr int kAttempts = 2;
        EnumThreadWindows(GetCurrentThreadId(), PressButton,
                          ++presses_ <= kAttempts ? button_ : IDCANCEL);
    }

    static inline int button_ = 0;
    static inline int presses_ = 0;
    UINT_PTR timer_;
};

class ShortMemoryDialogTest : public DialogTest {
  protected:
    /// Opens the dialog with every number of allocations until they suffice; returns how many did
    /// not.
    std::size_t UseWithEveryLimit(int button, bool isLasting) {
        UseOnce(button);  // what is kept for later
        UseOnce(button);
        const std::size_t held = HeldNewBlocks();
        for (std::size_t allocations = 0;; ++allocations) {
            LimitNew(allocations, isLasting);
            UseOnce(button);
            const bool hasFailed = limitWasReached_;
            EXPECT_EQ(HeldNewBlocks(), held) << allocations;
            if (!hasFailed || HasFailure()) {
                return allocations;
            }
        }
    }

    void UseOnce(int button) {
        DialogParameterRecord& record = owned_.record;
        const DialogParameterRecord before = record;
        wasAccepted_ = false;
        {
            const TirelessUser user(button);
            wasAccepted_ = EditGuarded(&record);
        }
        limitWasReached_ = EndLimit();
        if (!wasAccepted_) {
            EXPECT_EQ(std::memcmp(&record, &before, sizeof(before)), 0);
        }
        EXPECT_EQ(owned_.Value(), value_);
        EXPECT_EQ(record.count, 2U);
    }

    /// As the slot does it.
    bool EditGuarded(DialogParameterRecord* record) {
        try {
            return Edit(record);
        } catch (const std::bad_alloc&) {
            return false;
        }
    }

    const Bytes value_{1, 0, 1, 0, 2, 0, 0, 1};
    OwnedDialogRecord owned_{kPair, value_, 2};
    bool wasAccepted_ = false;
    bool limitWasReached_ = false;
};

TEST_F(ShortMemoryDialogTest, TheDialogCanBeCancelled) {
    EXPECT_GT(UseWithEveryLimit(IDCANCEL, /*isLasting=*/true), 15U);
    EXPECT_FALSE(wasAccepted_);
}

TEST_F(ShortMemoryDialogTest, AcceptingStoresAllOrNothing) {
    EXPECT_GT(UseWithEveryLimit(IDOK, /*isLasting=*/false), 15U);
    EXPECT_TRUE(wasAccepted_);
}

}  // namespace
}  // namespace orvell::ui
