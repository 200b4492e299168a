#include <windows.h>

#include <oleacc.h>

#include "dialog_fixture.h"

namespace orvell::ui {
namespace {

using test::DialogUser;

/// A value cell's number among the grid's children.
constexpr LONG ChildOf(int row, int column) {
    return row * 2 + column + 1;
}

VARIANT Self(LONG child) {
    VARIANT value{};
    value.vt = VT_I4;
    value.lVal = child;
    return value;
}

std::string Taken(BSTR text) {
    std::string ansi;
    for (UINT i = 0; i < SysStringLen(text); ++i) {
        ansi += static_cast<char>(text[i]);
    }
    SysFreeString(text);
    return ansi;
}

class DialogAccessibilityTest : public DialogTest {
  protected:
    DialogAccessibilityTest() { CoInitialize(nullptr); }
    ~DialogAccessibilityTest() override { CoUninitialize(); }

    /// Runs `look` with the grid's accessible object, on the dialog's thread.
    static void WithGrid(const DialogUser& user, HWND dialog,
                         const std::function<void(IAccessible&)>& look) {
        user.OnThread([&] {
            IAccessible* grid = nullptr;
            ASSERT_EQ(AccessibleObjectFromWindow(GetDlgItem(dialog, ORVELL_VALUE_GRID),
                                                 static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                                 reinterpret_cast<void**>(&grid)),
                      S_OK);
            look(*grid);
            grid->Release();
        });
    }

    static std::string NameOf(IAccessible& grid, LONG child) {
        BSTR name = nullptr;
        EXPECT_EQ(grid.get_accName(Self(child), &name), S_OK);
        return Taken(name);
    }

    static std::string ValueOf(IAccessible& grid, LONG child) {
        BSTR value = nullptr;
        EXPECT_EQ(grid.get_accValue(Self(child), &value), S_OK);
        return Taken(value);
    }

    static std::string ActionOf(IAccessible& grid, LONG child) {
        BSTR action = nullptr;
        EXPECT_EQ(grid.get_accDefaultAction(Self(child), &action), S_OK);
        return Taken(action);
    }
};

TEST_F(DialogAccessibilityTest, TheTreeTellsAreaElementsAndValues) {
    OwnedDialogRecord owned(kPair, {5, 0, 1, 0});
    owned.record.name = "Pump";
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        WithGrid(user, dialog, [](IAccessible& grid) {
            EXPECT_EQ(NameOf(grid, CHILDID_SELF), "Pump");
            LONG count = 0;
            EXPECT_EQ(grid.get_accChildCount(&count), S_OK);
            EXPECT_EQ(count, 8);
            EXPECT_EQ(NameOf(grid, ChildOf(0, 1)), "Wert");
            EXPECT_EQ(NameOf(grid, ChildOf(1, 1)), "Element.a");
            EXPECT_EQ(ValueOf(grid, ChildOf(1, 1)), "5");
            EXPECT_EQ(ValueOf(grid, ChildOf(2, 1)), "On");
        });
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(DialogAccessibilityTest, ActionsAreNamedInTheLanguageOfTheTexts) {
    const resources::BuiltInStrings english("en");
    definitions.strings.UseSource(english);
    OwnedDialogRecord owned(kTimes, Bytes(4));
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        WithGrid(user, dialog, [&](IAccessible& grid) {
            EXPECT_EQ(ActionOf(grid, ChildOf(1, 1)), "Edit");
            CGridCtrl& control = GridOf(dialog);
            control.Model().SetCellType(1, 1, GridCellKind::Check);
            control.Refresh();
            EXPECT_EQ(ActionOf(grid, ChildOf(1, 1)), "Toggle");
        });
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(DialogAccessibilityTest, AValueSetThroughItIsNormalisedAndAccepted) {
    OwnedDialogRecord owned(kTimes, Bytes(4));
    EXPECT_TRUE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        WithGrid(user, dialog, [](IAccessible& grid) {
            BSTR text = SysAllocString(L"1h");
            EXPECT_EQ(grid.put_accValue(Self(ChildOf(1, 1)), text), S_OK);
            EXPECT_EQ(grid.put_accValue(Self(ChildOf(1, 0)), text), E_ACCESSDENIED);
            SysFreeString(text);
            EXPECT_EQ(ValueOf(grid, ChildOf(1, 1)), "1 h");
        });
        user.Press(dialog, IDOK);
    }));
    EXPECT_EQ(owned.Value(), (Bytes{0x80, 0xEE, 0x36, 0}));
}

}  // namespace
}  // namespace orvell::ui
