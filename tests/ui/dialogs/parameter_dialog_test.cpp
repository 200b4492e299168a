#include <cstring>

#include "dialog_fixture.h"

namespace orvell::ui {
namespace {

using test::DialogUser;

int helpRequests = 0;

LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    helpRequests += message == WM_HELP ? 1 : 0;
    return DefWindowProcW(window, message, first, second);
}

class ParameterDialogTest : public DialogTest {
  protected:
    static void ClickVector(const DialogUser& user, HWND dialog) {
        user.OnThread(
            [dialog] { SendDlgItemMessageW(dialog, ORVELL_VECTOR_CHECK, BM_CLICK, 0, 0); });
    }

    static void ChooseFormat(const DialogUser& user, HWND dialog, WPARAM index) {
        user.OnThread([=] {
            SendDlgItemMessageW(dialog, ORVELL_FORMAT_BOX, CB_SETCURSEL, index, 0);
            SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(ORVELL_FORMAT_BOX, CBN_SELCHANGE),
                         reinterpret_cast<LPARAM>(GetDlgItem(dialog, ORVELL_FORMAT_BOX)));
        });
    }
};

TEST_F(ParameterDialogTest, AcceptingWritesEverythingIntoTheRecord) {
    OwnedDialogRecord owned(kPair, {5, 0, 1, 0});
    owned.record.boxWidth = 12;
    EXPECT_TRUE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        Enter(user, dialog, 1, "-2");
        Enter(user, dialog, 3, "On");
        user.SetText(dialog, ORVELL_BOX_WIDTH_EDIT, "42");
        user.Press(dialog, IDOK);
    }));
    EXPECT_EQ(owned.Value(), (Bytes{0xFE, 0xFF, 1, 1}));
    EXPECT_EQ(owned.record.count, 1U);
    EXPECT_EQ(owned.record.boxWidth, 45U);
    EXPECT_EQ(owned.record.format, 0);
}

TEST_F(ParameterDialogTest, AcceptingWithoutEditsKeepsWhatIsShown) {
    OwnedDialogRecord owned(kInt, {5, 0});
    owned.record.boxWidth = 12;
    EXPECT_TRUE(EditWith(
        owned, [&](const DialogUser& user) { user.Press(ParameterDialogOf(user), IDOK); }));
    EXPECT_EQ(owned.Value(), (Bytes{5, 0}));
    EXPECT_EQ(owned.record.boxWidth, 10U);
}

TEST_F(ParameterDialogTest, TypedTextsBecomeCanonical) {
    OwnedDialogRecord number(kInt, {5, 0});
    OwnedDialogRecord day(kDay, Bytes(4));
    OwnedDialogRecord times(kTimes, Bytes(4));
    const struct {
        OwnedDialogRecord* owned;
        const char* typed;
        const char* shown;
    } cases[] = {{&number, "abc", "0"},
                 {&day, "31.02.2021", "03.03.2021"},
                 {&times, "1h", "1 h"},
                 {&times, "1h30min", "0 ms"}};
    for (const auto& [owned, typed, shown] : cases) {
        EditWith(*owned, [&](const DialogUser& user) {
            const HWND dialog = ParameterDialogOf(user);
            Enter(user, dialog, 1, typed);
            EXPECT_EQ(GridRows(user, dialog), (Rows{std::string("Element=") + shown})) << typed;
            user.Press(dialog, IDCANCEL);
        });
    }
}

TEST_F(ParameterDialogTest, TypesIntoACellByKeyboard) {
    OwnedDialogRecord owned(kInt, {5, 0});
    EXPECT_TRUE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        const HWND grid = GetDlgItem(dialog, ORVELL_VALUE_GRID);
        user.Type(grid, "4");
        HWND edit = nullptr;
        user.OnThread([&] { edit = GetFocus(); });
        ASSERT_NE(edit, grid) << "an editor has opened";
        user.Type(edit, "2x");
        user.PressKey(VK_RETURN);
        DialogUser::WaitUntil("the edit to end",
                              [&] { return GridRows(user, dialog) == Rows{"Element=42"}; });
        user.Press(dialog, IDOK);
    }));
    EXPECT_EQ(owned.Value(), (Bytes{42, 0}));
}

TEST_F(ParameterDialogTest, AcceptingEndsTheEditThatIsOpen) {
    OwnedDialogRecord owned(kInt, {5, 0});
    EXPECT_TRUE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.Type(GetDlgItem(dialog, ORVELL_VALUE_GRID), "9");
        user.OnThread([&] { EXPECT_TRUE(GridOf(dialog).IsEditing()); });
        user.Press(dialog, IDOK);
    }));
    EXPECT_EQ(owned.Value(), (Bytes{9, 0}));
}

TEST_F(ParameterDialogTest, EnterAndEscapeAreOkAndCancel) {
    OwnedDialogRecord owned(kInt, {5, 0});
    EXPECT_TRUE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.OnThread([&] { SetFocus(GetDlgItem(dialog, ORVELL_BOX_WIDTH_EDIT)); });
        user.PressKey(VK_RETURN);
    }));
    EXPECT_FALSE(EditWith(owned, [&](const DialogUser& user) {
        static_cast<void>(ParameterDialogOf(user));
        user.PressKey(VK_ESCAPE);
    }));
}

TEST_F(ParameterDialogTest, TheVectorBoxRemembersTheLength) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0, 3, 0}, 3);
    owned.record.mode = 1;
    EXPECT_TRUE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        ClickVector(user, dialog);
        EXPECT_EQ(user.Text(dialog, ORVELL_VECTOR_LENGTH_EDIT), "1");
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, ORVELL_VECTOR_LENGTH_EDIT)));
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, ORVELL_VECTOR_LENGTH_SPIN)));
        EXPECT_EQ(GridRows(user, dialog), (Rows{"Element=1"}));
        ClickVector(user, dialog);
        EXPECT_EQ(user.Text(dialog, ORVELL_VECTOR_LENGTH_EDIT), "3");
        EXPECT_TRUE(IsWindowEnabled(GetDlgItem(dialog, ORVELL_VECTOR_LENGTH_EDIT)));
        EXPECT_EQ(GridRows(user, dialog), (Rows{"Element[0]=1", "Element[1]=0", "Element[2]=0"}));
        user.Press(dialog, IDOK);
    }));
    EXPECT_EQ(owned.record.count, 3U);
    EXPECT_EQ(owned.Value(), (Bytes{1, 0, 0, 0, 0, 0}));
}

TEST_F(ParameterDialogTest, AVectorGrowsAndShrinks) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0, 3, 0}, 3);
    owned.record.mode = 1;
    EXPECT_TRUE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.SetText(dialog, ORVELL_VECTOR_LENGTH_EDIT, "5");
        EXPECT_EQ(GridRows(user, dialog), (Rows{"Element[0]=1", "Element[1]=2", "Element[2]=3",
                                                "Element[3]=0", "Element[4]=0"}));
        Enter(user, dialog, 5, "50");
        user.SetText(dialog, ORVELL_VECTOR_LENGTH_EDIT, "3");
        EXPECT_EQ(GridRows(user, dialog), (Rows{"Element[0]=1", "Element[1]=2", "Element[2]=3"}));
        user.SetText(dialog, ORVELL_VECTOR_LENGTH_EDIT, "5");
        EXPECT_EQ(GridRows(user, dialog).at(4), "Element[4]=0");
        user.SetText(dialog, ORVELL_VECTOR_LENGTH_EDIT, "3");
        user.Press(dialog, IDOK);
    }));
    EXPECT_EQ(owned.record.count, 3U);
    EXPECT_EQ(owned.Value(), (Bytes{1, 0, 2, 0, 3, 0, 0, 0, 0, 0}));
}

TEST_F(ParameterDialogTest, LengthsAreLimitedAndShownSoWhenTheEditIsLeft) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0, 3, 0}, 3);
    owned.record.mode = 1;
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        const std::pair<const char*, std::size_t> lengths[] = {
            {"", 2}, {"0", 2}, {"1", 2}, {"999", 999}, {"5000", 999}};
        for (const auto& [typed, length] : lengths) {
            user.OnThread([&] { SetFocus(GetDlgItem(dialog, ORVELL_VECTOR_LENGTH_EDIT)); });
            user.SetText(dialog, ORVELL_VECTOR_LENGTH_EDIT, typed);
            EXPECT_EQ(GridRows(user, dialog).size(), length) << typed;
            user.OnThread([&] { SetFocus(GetDlgItem(dialog, IDOK)); });
            EXPECT_EQ(user.Text(dialog, ORVELL_VECTOR_LENGTH_EDIT), std::to_string(length));
        }
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(ParameterDialogTest, TypingALengthLosesNoElementOnTheWay) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0, 3, 0}, 3);
    owned.record.mode = 1;
    EXPECT_TRUE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        const HWND edit = GetDlgItem(dialog, ORVELL_VECTOR_LENGTH_EDIT);
        SendMessageW(edit, EM_SETSEL, 0, -1);
        user.Type(edit, "2");
        EXPECT_EQ(GridRows(user, dialog).size(), 2U);
        user.Type(edit, "0");
        EXPECT_EQ(GridRows(user, dialog).size(), 20U);
        EXPECT_EQ(GridRows(user, dialog).at(2), "Element[2]=3");
        user.Press(dialog, IDOK);
    }));
    EXPECT_EQ(owned.record.count, 20U);
    EXPECT_EQ(owned.Value().size(), 40U);
    EXPECT_EQ(owned.Value().at(4), 3);
}

TEST_F(ParameterDialogTest, LeavingTheLengthForgetsWhatItDropped) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0, 3, 0}, 3);
    owned.record.mode = 1;
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        const HWND edit = GetDlgItem(dialog, ORVELL_VECTOR_LENGTH_EDIT);
        SendMessageW(edit, EM_SETSEL, 0, -1);
        user.Type(edit, "2");
        user.OnThread([&] { SetFocus(GetDlgItem(dialog, IDOK)); });
        SendMessageW(edit, EM_SETSEL, 0, -1);
        user.Type(edit, "3");
        EXPECT_EQ(GridRows(user, dialog), (Rows{"Element[0]=1", "Element[1]=2", "Element[2]=0"}));
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(ParameterDialogTest, LettersAreNoLength) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0, 3, 0}, 3);
    owned.record.mode = 1;
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.Type(GetDlgItem(dialog, ORVELL_VECTOR_LENGTH_EDIT), "x-");
        EXPECT_EQ(user.Text(dialog, ORVELL_VECTOR_LENGTH_EDIT), "3");
        EXPECT_EQ(GridRows(user, dialog).size(), 3U);
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(ParameterDialogTest, TheSpinChangesTheLength) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0, 3, 0}, 3);
    owned.record.mode = 1;
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        ClickSpin(user, dialog, ORVELL_VECTOR_LENGTH_SPIN, true);
        EXPECT_EQ(user.Text(dialog, ORVELL_VECTOR_LENGTH_EDIT), "4");
        EXPECT_EQ(GridRows(user, dialog).size(), 4U);
        ClickSpin(user, dialog, ORVELL_VECTOR_LENGTH_SPIN, false);
        ClickSpin(user, dialog, ORVELL_VECTOR_LENGTH_SPIN, false);
        EXPECT_EQ(GridRows(user, dialog), (Rows{"Element[0]=1", "Element[1]=2"}));
        ClickSpin(user, dialog, ORVELL_VECTOR_LENGTH_SPIN, false);
        EXPECT_EQ(GridRows(user, dialog).size(), 2U) << "the shortest vector";
        ClickSpin(user, dialog, ORVELL_VECTOR_LENGTH_SPIN, true);
        EXPECT_EQ(GridRows(user, dialog).at(2), "Element[2]=0") << "dropped elements are gone";
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(ParameterDialogTest, ArrowKeysSpinTheLength) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0, 3, 0}, 3);
    owned.record.mode = 1;
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.OnThread([&] { SetFocus(GetDlgItem(dialog, ORVELL_VECTOR_LENGTH_EDIT)); });
        user.PressKey(VK_UP);
        DialogUser::WaitUntil("a fourth row", [&] { return GridRows(user, dialog).size() == 4; });
        user.PressKey(VK_DOWN);
        DialogUser::WaitUntil("three rows", [&] { return GridRows(user, dialog).size() == 3; });
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(ParameterDialogTest, TheSpinMovesTheBoxWidthByWholeSteps) {
    OwnedDialogRecord owned(kInt, {1, 0});
    EXPECT_TRUE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        const struct {
            const char* typed;
            bool isUpper;
            const char* spun;
        } clicks[] = {{"10", true, "15"},   {"10", false, "10"}, {"12", true, "15"},
                      {"12", false, "10"},  {"17", false, "15"}, {"995", true, "995"},
                      {"999", true, "995"}, {"", true, "10"},    {"995", false, "990"}};
        for (const auto& [typed, isUpper, spun] : clicks) {
            user.SetText(dialog, ORVELL_BOX_WIDTH_EDIT, typed);
            ClickSpin(user, dialog, ORVELL_BOX_WIDTH_SPIN, isUpper);
            EXPECT_EQ(user.Text(dialog, ORVELL_BOX_WIDTH_EDIT), spun) << typed << isUpper;
        }
        user.Press(dialog, IDOK);
    }));
    EXPECT_EQ(owned.record.boxWidth, 990U);
}

TEST_F(ParameterDialogTest, AnotherFormatShowsTheSameValues) {
    OwnedDialogRecord owned(kInt, {0xFF, 0xFF, 10, 0}, 2);
    owned.record.format = 0x80;
    EXPECT_TRUE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        ChooseFormat(user, dialog, 2);
        EXPECT_EQ(GridRows(user, dialog), (Rows{"Element[0]=FFFFh", "Element[1]=Ah"}));
        Enter(user, dialog, 2, "1f");
        ChooseFormat(user, dialog, 1);
        EXPECT_EQ(GridRows(user, dialog), (Rows{"Element[0]=65535", "Element[1]=31"}));
        ChooseFormat(user, dialog, 2);
        user.Press(dialog, IDOK);
    }));
    EXPECT_EQ(owned.record.format, 0x83);
    EXPECT_EQ(owned.Value(), (Bytes{0xFF, 0xFF, 31, 0}));
}

TEST_F(ParameterDialogTest, ATextWithoutValueKeepsTheDialogOpen) {
    OwnedDialogRecord owned(kDay, Bytes(4));
    EXPECT_FALSE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.OnThread([&] { GridOf(dialog).Model().SetItemText(1, kValueColumn, "never"); });
        user.Press(dialog, IDOK);
        EXPECT_EQ(user.AnswerBox(), "Der angegebene Parameterwert kann nicht konvertiert werden.");
        EXPECT_EQ(GridRows(user, dialog), (Rows{"Element=never"}));
        user.Press(dialog, IDCANCEL);
    }));
    EXPECT_EQ(owned.Value(), Bytes(4));
}

TEST_F(ParameterDialogTest, ALengthThatCannotBeLaidOutIsTakenBack) {
    definitions.AddArea(60, Structure("Thousands", {Item("w", "Int", 3000)}));
    definitions.store.ResolveReferences();
    OwnedDialogRecord owned(60, {1, 0}, 2);
    owned.record.mode = 1;
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.SetText(dialog, ORVELL_VECTOR_LENGTH_EDIT, "900");
        EXPECT_EQ(user.Text(dialog, ORVELL_VECTOR_LENGTH_EDIT), "2");
        EXPECT_EQ(GridRows(user, dialog).size(), 6000U);
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(ParameterDialogTest, DefinitionsMayGoWhileTheDialogIsOpen) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0}, 2);
    owned.record.mode = 1;
    EXPECT_FALSE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.OnThread([&] { definitions.store.Clear(); });
        user.SetText(dialog, ORVELL_VECTOR_LENGTH_EDIT, "7");
        EXPECT_EQ(user.Text(dialog, ORVELL_VECTOR_LENGTH_EDIT), "2");
        user.Press(dialog, IDOK);
        EXPECT_EQ(user.AnswerBox(), "Der angegebene Parameterwert kann nicht konvertiert werden.");
        user.Press(dialog, IDCANCEL);
    }));
    EXPECT_EQ(owned.Value(), (Bytes{1, 0, 2, 0}));
}

/// The colour of a point of the grid as it would be painted now.
COLORREF PaintedAt(HWND grid, int x, int y) {
    const HDC screen = GetDC(grid);
    const HDC context = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, x + 1, y + 1);
    const HGDIOBJ before = SelectObject(context, bitmap);
    SendMessageW(grid, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(context), PRF_CLIENT);
    const COLORREF colour = GetPixel(context, x, y);
    SelectObject(context, before);
    DeleteObject(bitmap);
    DeleteDC(context);
    ReleaseDC(grid, screen);
    return colour;
}

/// Windows tells top-level windows only.
TEST_F(ParameterDialogTest, OtherSystemColoursReachTheGrid) {
    constexpr COLORREF kOther = 0x00204060;
    const int index = COLOR_WINDOW;
    const COLORREF before = GetSysColor(index);
    OwnedDialogRecord owned(kInt, {5, 0});
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        COLORREF painted = before;
        user.OnThread([&] {
            SetSysColors(1, &index, &kOther);
            SendMessageW(dialog, WM_SYSCOLORCHANGE, 0, 0);
            const GridRect value = GridOf(dialog).Layout().CellRect({1, kValueColumn});
            painted =
                PaintedAt(GetDlgItem(dialog, ORVELL_VALUE_GRID), value.right - 6, value.bottom - 6);
            SetSysColors(1, &index, &before);
            SendMessageW(dialog, WM_SYSCOLORCHANGE, 0, 0);
        });
        EXPECT_EQ(painted, kOther);
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(ParameterDialogTest, HelpIsTheOwnersMatter) {
    helpRequests = 0;
    const HWND owner =
        CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(owner, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(OwnerProcedure));
    OwnedDialogRecord owned(kInt, {1, 0});
    owned.record.owner = owner;
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        HELPINFO help{};
        help.cbSize = sizeof(help);
        user.OnThread([&] { SendMessageW(dialog, WM_HELP, 0, reinterpret_cast<LPARAM>(&help)); });
        user.Press(dialog, IDCANCEL);
    });
    EXPECT_EQ(helpRequests, 1);
    DestroyWindow(owner);
}

}  // namespace
}  // namespace orvell::ui
