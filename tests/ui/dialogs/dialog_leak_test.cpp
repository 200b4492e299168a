#include <windows.h>

#include <array>

#include "dialog_fixture.h"
#include "online_target.h"

namespace orvell::ui {
namespace {

using test::DialogUser;

/// What the process holds. Handles are tried one by one: the system takes them without their upper
/// half, and not all systems count them.
struct Holdings {
    std::size_t gdiObjects = 0;
    std::size_t windows = 0;
    std::size_t heapBlocks = 0;
};

std::size_t CountGdiObjects() {
    std::size_t count = 0;
    for (std::uintptr_t handle = 1; handle < 0x10000; ++handle) {
        count += GetObjectType(reinterpret_cast<HGDIOBJ>(handle)) != 0 ? 1U : 0U;
    }
    return count;
}

std::size_t CountWindows() {
    std::size_t count = 0;
    for (std::uintptr_t handle = 1; handle < 0x10000; ++handle) {
        DWORD process = 0;
        GetWindowThreadProcessId(reinterpret_cast<HWND>(handle), &process);
        count += process == GetCurrentProcessId() ? 1U : 0U;
    }
    return count;
}

std::size_t CountHeapBlocks() {
    std::array<HANDLE, 64> heaps{};
    const DWORD heapCount = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    std::size_t count = 0;
    for (DWORD i = 0; i < heapCount; ++i) {
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[i], &entry) != FALSE) {
            count += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? 1U : 0U;
        }
    }
    return count;
}

class DialogLeakTest : public DialogTest {
  protected:
    /// Opens the dialog, uses what it has, and writes a vector online if it may.
    void UseOnce(bool isOnline) {
        OwnedDialogRecord owned(kInt, {1, 0, 2, 0, 3, 0}, 3);
        owned.record.mode = isOnline ? 3 : 1;
        owned.record.format = 0x80;
        owned.record.name = "Pump";
        EXPECT_TRUE(EditWith(owned, [&](const DialogUser& user) {
            const HWND dialog = ParameterDialogOf(user);
            Enter(user, dialog, 1, "7");
            user.SetText(dialog, ORVELL_VECTOR_LENGTH_EDIT, "5");
            user.Type(GetDlgItem(dialog, ORVELL_VALUE_GRID), "8");
            user.Press(dialog, IDOK);
        }));
    }

    [[nodiscard]] static Holdings Count() {
        return {CountGdiObjects(), CountWindows(), CountHeapBlocks()};
    }
};

TEST_F(DialogLeakTest, AHundredOpeningsHoldNothing) {
    OnlineTarget target;
    host = OnlineTarget::Functions();
    constexpr int kEach = 10;
    for (int warming = 0; warming < kEach; ++warming) {  // what Windows keeps for later
        UseOnce(warming == 0);
    }
    const Holdings before = Count();
    for (int opening = 0; opening < 100; ++opening) {
        UseOnce(opening % kEach == 0);
    }
    const Holdings after = Count();
    constexpr std::size_t kKeptBySystem = 5;  // far less than one an opening
    EXPECT_LT(after.gdiObjects, before.gdiObjects + kKeptBySystem);
    EXPECT_LT(after.windows, before.windows + kKeptBySystem);
    EXPECT_LT(after.heapBlocks, before.heapBlocks + kKeptBySystem);
}

}  // namespace
}  // namespace orvell::ui
