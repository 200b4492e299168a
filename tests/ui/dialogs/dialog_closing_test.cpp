// Closing Windows' way at every stage, and owners that go.

#include <thread>

#include "dialog_fixture.h"

namespace orvell::ui {
namespace {

using test::DialogUser;

class DialogClosingTest : public DialogTest {
  protected:
    static HWND NewOwner() {
        return CreateWindowW(L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr, nullptr,
                             nullptr, nullptr);
    }
};

TEST_F(DialogClosingTest, TheSystemMenuAndAltF4Cancel) {
    OwnedDialogRecord owned(kInt, {5, 0});
    EXPECT_FALSE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        Enter(user, dialog, 1, "6");
        PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
    }));
    EXPECT_FALSE(EditWith(owned, [&](const DialogUser& user) {
        user.OnThread([&] { PostMessageW(GetFocus(), WM_SYSKEYDOWN, VK_F4, 0x20000001); });
    }));
    EXPECT_FALSE(EditWith(owned, [&](const DialogUser& user) {
        PostMessageW(ParameterDialogOf(user), WM_CLOSE, 0, 0);
    }));
    EXPECT_EQ(owned.Value(), (Bytes{5, 0}));
}

TEST_F(DialogClosingTest, ClosingDuringAnEditCancelsBoth) {
    OwnedDialogRecord owned(kInt, {5, 0});
    EXPECT_FALSE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.Type(GetDlgItem(dialog, ORVELL_VALUE_GRID), "9");
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    }));
    EXPECT_EQ(owned.Value(), (Bytes{5, 0}));
}

TEST_F(DialogClosingTest, EscapeInAnEditEndsTheEditOnly) {
    OwnedDialogRecord owned(kInt, {5, 0});
    EXPECT_TRUE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.Type(GetDlgItem(dialog, ORVELL_VALUE_GRID), "9");
        user.PressKey(VK_ESCAPE);
        DialogUser::WaitUntil("the edit's end", [&] {
            bool isEditing = true;
            user.OnThread([&] { isEditing = GridOf(dialog).IsEditing(); });
            return !isEditing;
        });
        EXPECT_EQ(GridRows(user, dialog), (Rows{"Element=5"}));
        user.Press(dialog, IDOK);
    }));
    EXPECT_EQ(owned.Value(), (Bytes{5, 0}));
}

TEST_F(DialogClosingTest, ADialogDoesNotCloseUnderItsMessage) {
    OwnedDialogRecord owned(kDay, Bytes(4));
    EXPECT_FALSE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.OnThread([&] { GridOf(dialog).Model().SetItemText(1, kValueColumn, "never"); });
        user.Press(dialog, IDOK);
        const HWND box = user.MessageBox();
        SendMessageW(dialog, WM_CLOSE, 0, 0);
        SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        EXPECT_EQ(user.DialogCount(), 2);
        user.Press(box, IDOK);
        DialogUser::WaitUntilGone(box);
        EXPECT_TRUE(IsWindowVisible(dialog));
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    }));
}

TEST_F(DialogClosingTest, AnOwnerThatGoesTakesTheDialogWithIt) {
    OwnedDialogRecord owned(kInt, {5, 0});
    const HWND owner = NewOwner();
    owned.record.owner = owner;
    EXPECT_FALSE(EditWith(owned, [&](const DialogUser& user) {
        static_cast<void>(ParameterDialogOf(user));
        user.OnThread([&] { DestroyWindow(owner); });
    }));
    EXPECT_EQ(owned.Value(), (Bytes{5, 0}));
}

TEST_F(DialogClosingTest, AnOwnerThatGoesUnderAMessageTakesAllWithIt) {
    OwnedDialogRecord owned(kDay, Bytes(4));
    const HWND owner = NewOwner();
    owned.record.owner = owner;
    EXPECT_FALSE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.OnThread([&] { GridOf(dialog).Model().SetItemText(1, kValueColumn, "never"); });
        user.Press(dialog, IDOK);
        static_cast<void>(user.MessageBox());
        user.OnThread([&] {
            DestroyWindow(owner);
            PostMessageW(nullptr, WM_NULL, 0, 0);  // wakes the system's own box
        });
    }));
}

TEST_F(DialogClosingTest, AnOwnerThatGoesUnderTheFirstMessageTakesAllWithIt) {
    OwnedDialogRecord owned(kUnknown, {5, 0});
    const HWND owner = NewOwner();
    owned.record.owner = owner;
    EXPECT_FALSE(EditWith(owned, [&](const DialogUser& user) {
        static_cast<void>(user.MessageBox());
        user.OnThread([&] {
            DestroyWindow(owner);
            PostMessageW(nullptr, WM_NULL, 0, 0);
        });
    }));
}

LRESULT CALLBACK GoesWhenItIsEnabled(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_ENABLE && first != 0) {
        DestroyWindow(window);
        return 0;
    }
    return DefWindowProcW(window, message, first, second);
}

TEST_F(DialogClosingTest, WhatWasAcceptedStaysWhenTheOwnerGoesAtTheEnd) {
    OwnedDialogRecord owned(kInt, {5, 0});
    const HWND owner = NewOwner();
    SetWindowLongPtrW(owner, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(GoesWhenItIsEnabled));
    owned.record.owner = owner;
    EXPECT_TRUE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        Enter(user, dialog, 1, "7");
        user.Press(dialog, IDOK);
    }));
    EXPECT_EQ(owned.Value(), (Bytes{7, 0}));
    EXPECT_FALSE(IsWindow(owner));
}

TEST_F(DialogClosingTest, ADialogMayBeOpenedOnADialog) {
    OwnedDialogRecord outer(kInt, {5, 0});
    OwnedDialogRecord inner(kDay, Bytes(4));
    bool innerResult = false;
    EXPECT_TRUE(EditWith(outer, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        inner.record.owner = dialog;
        // As a host's timer may do: the outer dialog's loop runs the inner one.
        std::thread opening([&] { user.OnThread([&] { innerResult = Edit(inner); }); });
        DialogUser::WaitUntil("the second dialog", [&] { return user.DialogCount() == 2; });
        user.Press(GetLastActivePopup(dialog), IDOK);
        opening.join();
        user.Press(dialog, IDOK);
    }));
    EXPECT_TRUE(innerResult);
}

}  // namespace
}  // namespace orvell::ui
