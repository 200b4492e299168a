#include <windows.h>

#include <commctrl.h>

#include <cstring>

#include "dialog_fixture.h"
#include "online_target.h"

namespace orvell::ui {
namespace {

using test::DialogUser;

constexpr const char* kWriteFailed = "Der Wert kann nicht online geschrieben werden.";

class OnlineWritingTest : public DialogTest {
  protected:
    OnlineWritingTest() {
        host = OnlineTarget::Functions();
        vector.record.mode = 3;
        single.record.mode = 3;
        vectorBefore = vector.record;
    }

    void ExpectVectorUnchanged() const {
        EXPECT_EQ(std::memcmp(&vector.record, &vectorBefore, sizeof(vectorBefore)), 0);
        EXPECT_EQ(vector.Value(), (Bytes{1, 0, 2, 0, 3, 0, 4, 0}));
    }

    OnlineTarget target;
    OwnedDialogRecord single{kInt, {5, 0}};
    OwnedDialogRecord vector{kInt, {1, 0, 2, 0, 3, 0, 4, 0}, 4};
    DialogParameterRecord vectorBefore{};
};

TEST_F(OnlineWritingTest, ASingleValueIsWrittenAtOnce) {
    EXPECT_TRUE(EditWith(single, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        Enter(user, dialog, 1, "6");
        user.Press(dialog, IDOK);
    }));
    EXPECT_EQ(target.Puts(), (std::vector<OnlineTarget::Put>{{0, 0, 6, GetCurrentThreadId()}}));
    EXPECT_EQ(single.Value(), (Bytes{6, 0}));
}

TEST_F(OnlineWritingTest, ASingleValueThatFailsKeepsTheDialogOpen) {
    target.FailAt(0);
    EXPECT_FALSE(EditWith(single, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        Enter(user, dialog, 1, "6");
        user.Press(dialog, IDOK);
        EXPECT_EQ(user.AnswerBox(), kWriteFailed);
        EXPECT_EQ(GridRows(user, dialog), (Rows{"Element=6"}));
        user.Press(dialog, IDCANCEL);
    }));
    EXPECT_EQ(single.Value(), (Bytes{5, 0}));
}

TEST_F(OnlineWritingTest, WithoutTheHostsFunctionsNothingIsWritten) {
    host = {};
    EXPECT_FALSE(EditWith(single, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.Press(dialog, IDOK);
        EXPECT_EQ(user.AnswerBox(), kWriteFailed);
        user.Press(dialog, IDCANCEL);
    }));
}

TEST_F(OnlineWritingTest, OtherModesWriteNothing) {
    for (const std::uint32_t mode : {0U, 1U, 2U, 4U}) {
        vector.record.mode = mode;
        EXPECT_TRUE(EditWith(
            vector, [&](const DialogUser& user) { user.Press(ParameterDialogOf(user), IDOK); }));
    }
    EXPECT_TRUE(target.Puts().empty());
}

TEST_F(OnlineWritingTest, AVectorGoesThroughTheTransferDialog) {
    target.HoldAt(2);
    EXPECT_TRUE(EditWith(vector, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        Enter(user, dialog, 4, "44");
        user.Press(dialog, IDOK);
        const HWND transfer = TransferDialogOf(user);
        target.WaitUntilHeld();
        EXPECT_EQ(GetWindow(transfer, GW_OWNER), dialog);
        EXPECT_FALSE(IsWindowEnabled(dialog));
        EXPECT_TRUE(IsWindowEnabled(GetDlgItem(transfer, IDCANCEL)));
        DialogUser::WaitUntil("half of the progress", [transfer] {
            return SendDlgItemMessageW(transfer, ORVELL_TRANSFER_PROGRESS, PBM_GETPOS, 0, 0) == 50;
        });
        target.Release();
    }));
    EXPECT_EQ(target.Values(), (std::vector<std::uint16_t>{1, 2, 3, 44}));
    EXPECT_NE(target.Puts().at(0).thread, GetCurrentThreadId()) << "on a thread of its own";
    EXPECT_EQ(target.Puts().at(3).first, 3U);
    EXPECT_EQ(vector.Value(), (Bytes{1, 0, 2, 0, 3, 0, 44, 0}));
}

TEST_F(OnlineWritingTest, AStructureGoesThroughTheTransferDialog) {
    definitions.AddArea(60, Structure("Words", {Item("a", "Int"), Item("b", "Int", 2)}));
    definitions.store.ResolveReferences();
    OwnedDialogRecord owned(60, {1, 0, 2, 0, 3, 0});
    owned.record.mode = 3;
    EXPECT_TRUE(EditWith(
        owned, [&](const DialogUser& user) { user.Press(ParameterDialogOf(user), IDOK); }));
    ASSERT_EQ(target.Puts().size(), 3U);
    EXPECT_NE(target.Puts().at(0).thread, GetCurrentThreadId());
    EXPECT_EQ(target.Puts().at(2).first, 0U);
    EXPECT_EQ(target.Puts().at(2).second, 4U);
}

TEST_F(OnlineWritingTest, ATransferThatFailsAtItsLastElementKeepsTheDialogOpen) {
    target.FailAt(3);
    EXPECT_FALSE(EditWith(vector, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        Enter(user, dialog, 1, "11");
        user.Press(dialog, IDOK);
        const HWND box = user.MessageBox();
        EXPECT_EQ(user.TextOfBox(box), kWriteFailed);
        EXPECT_NE(GetDlgItem(GetWindow(box, GW_OWNER), ORVELL_TRANSFER_PROGRESS), nullptr)
            << "owned by the transfer dialog";
        Sleep(250);  // the timer's messages come in meanwhile
        EXPECT_EQ(user.DialogCount(), 3) << "and bring no second box";
        user.Press(box, IDOK);
        DialogUser::WaitUntil("the transfer's end", [&] { return user.DialogCount() == 1; });
        EXPECT_EQ(GridRows(user, dialog).at(0), "Element[0]=11");
        user.Press(dialog, IDCANCEL);
    }));
    EXPECT_EQ(target.Values(), (std::vector<std::uint16_t>{11, 2, 3})) << "these stay written";
    ExpectVectorUnchanged();
}

/// The ways to cancel a transfer.
class CancellingTest : public OnlineWritingTest,
                       public testing::WithParamInterface<void (*)(const DialogUser&, HWND)> {};

TEST_P(CancellingTest, StopsTheTransferOnceTheSetterReturns) {
    target.HoldAt(1);
    EXPECT_FALSE(EditWith(vector, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.Press(dialog, IDOK);
        const HWND transfer = TransferDialogOf(user);
        target.WaitUntilHeld();
        GetParam()(user, transfer);
        DialogUser::WaitUntil("the button to be disabled", [transfer] {
            return IsWindowEnabled(GetDlgItem(transfer, IDCANCEL)) == FALSE;
        });
        GetParam()(user, transfer);  // once more changes nothing
        Sleep(250);
        EXPECT_TRUE(IsWindowVisible(transfer)) << "it stays until the writing has stopped";
        target.Release();
        DialogUser::WaitUntilGone(transfer);
        EXPECT_EQ(user.DialogCount(), 1) << "without a message";
        user.Press(dialog, IDCANCEL);
    }));
    EXPECT_EQ(target.Values(), (std::vector<std::uint16_t>{1, 2}));
    ExpectVectorUnchanged();
}

INSTANTIATE_TEST_SUITE_P(
    Ways, CancellingTest,
    testing::Values([](const DialogUser& user, HWND transfer) { user.Press(transfer, IDCANCEL); },
                    [](const DialogUser& user, HWND) { user.PressKey(VK_ESCAPE); },
                    [](const DialogUser&, HWND transfer) {
                        PostMessageW(transfer, WM_CLOSE, 0, 0);
                    },
                    [](const DialogUser&, HWND transfer) {
                        PostMessageW(transfer, WM_SYSCOMMAND, SC_CLOSE, 0);
                    }));

TEST_F(OnlineWritingTest, ACancelledTransferMayBeTriedAgain) {
    target.HoldAt(1);
    EXPECT_TRUE(EditWith(vector, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.Press(dialog, IDOK);
        const HWND transfer = TransferDialogOf(user);
        target.WaitUntilHeld();
        SendMessageW(transfer, WM_COMMAND, IDCANCEL, 0);
        target.Release();
        DialogUser::WaitUntilGone(transfer);
        target.HoldAt(UINT32_MAX);
        user.Press(dialog, IDOK);
    }));
    EXPECT_EQ(target.Values(), (std::vector<std::uint16_t>{1, 2, 1, 2, 3, 4}));
}

TEST_F(OnlineWritingTest, TheParameterDialogDoesNotCloseUnderTheTransfer) {
    target.HoldAt(1);
    EXPECT_TRUE(EditWith(vector, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.Press(dialog, IDOK);
        static_cast<void>(TransferDialogOf(user));
        target.WaitUntilHeld();
        SendMessageW(dialog, WM_CLOSE, 0, 0);
        SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        EXPECT_EQ(user.DialogCount(), 2);
        target.Release();
    }));
    EXPECT_EQ(target.Values(), (std::vector<std::uint16_t>{1, 2, 3, 4})) << "written once";
}

TEST_F(OnlineWritingTest, AnOwnerThatGoesTakesBothDialogsWithIt) {
    const HWND owner = CreateWindowW(L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr,
                                     nullptr, nullptr, nullptr);
    vector.record.owner = owner;
    vectorBefore.owner = owner;
    target.HoldAt(1);
    EXPECT_FALSE(EditWith(vector, [&](const DialogUser& user) {
        user.Press(ParameterDialogOf(user), IDOK);
        static_cast<void>(TransferDialogOf(user));
        target.WaitUntilHeld();
        user.OnThread([&] { DestroyWindow(owner); });
        target.Release();
    }));
    EXPECT_EQ(target.Values(), (std::vector<std::uint16_t>{1, 2})) << "stopped";
    ExpectVectorUnchanged();
}

TEST_F(OnlineWritingTest, AnOwnerThatGoesInTheSetterLeavesTheRecordUnchanged) {
    const HWND owner = CreateWindowW(L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr,
                                     nullptr, nullptr, nullptr);
    single.record.owner = owner;
    target.meanwhile = [owner] { DestroyWindow(owner); };
    EXPECT_FALSE(EditWith(single, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        Enter(user, dialog, 1, "6");
        user.Press(dialog, IDOK);
    }));
    EXPECT_EQ(target.Values(), (std::vector<std::uint16_t>{6}));
    EXPECT_EQ(single.Value(), (Bytes{5, 0}));
}

}  // namespace
}  // namespace orvell::ui
