#include <windows.h>

#include <oleacc.h>

#include <gtest/gtest.h>

#include <memory>

#include "ui/grid/grid_dialog.h"
#include "ui/grid/wide_text.h"

namespace orvell::ui {
namespace {

using test::GridDialog;
using Position = GridPosition;
using Numbers = std::vector<LONG>;

struct ReleaseObject {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <typename Interface>
using ComPointer = std::unique_ptr<Interface, ReleaseObject>;

constexpr LONG kGrid = CHILDID_SELF;

/// In a grid of two columns.
constexpr LONG Child(int row, int column) {
    return row * 2 + column + 1;
}

VARIANT Number(LONG number) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_I4;
    variant.lVal = number;
    return variant;
}

std::string TakeText(BSTR text) {
    const std::string ansi = text == nullptr ? "(none)" : ToAnsi({text, SysStringLen(text)});
    SysFreeString(text);
    return ansi;
}

/// Asks as a screen reader does.
class Reader {
  public:
    explicit Reader(HWND grid) {
        void* object = nullptr;
        result_ = AccessibleObjectFromWindow(grid, static_cast<DWORD>(OBJID_CLIENT),
                                             IID_IAccessible, &object);
        object_.reset(static_cast<IAccessible*>(object));
    }

    [[nodiscard]] bool Found() const { return SUCCEEDED(result_) && object_ != nullptr; }
    IAccessible* operator->() const { return object_.get(); }

    [[nodiscard]] std::string Name(LONG child) const {
        BSTR text = nullptr;
        object_->get_accName(Number(child), &text);
        return TakeText(text);
    }
    [[nodiscard]] std::string Value(LONG child) const {
        BSTR text = nullptr;
        object_->get_accValue(Number(child), &text);
        return TakeText(text);
    }
    [[nodiscard]] std::string Action(LONG child) const {
        BSTR text = nullptr;
        object_->get_accDefaultAction(Number(child), &text);
        return TakeText(text);
    }
    [[nodiscard]] LONG Role(LONG child) const {
        VARIANT role = {};
        object_->get_accRole(Number(child), &role);
        return role.vt == VT_I4 ? role.lVal : -1;
    }
    [[nodiscard]] LONG State(LONG child) const {
        VARIANT state = {};
        object_->get_accState(Number(child), &state);
        return state.vt == VT_I4 ? state.lVal : -1;
    }
    [[nodiscard]] LONG Navigate(LONG direction, LONG start) const {
        VARIANT end = {};
        return object_->accNavigate(direction, Number(start), &end) == S_OK ? end.lVal : -1;
    }
    HRESULT PutValue(LONG child, const wchar_t* text) const {
        const BSTR value = SysAllocString(text);
        const HRESULT result = object_->put_accValue(Number(child), value);
        SysFreeString(value);
        return result;
    }

  private:
    HRESULT result_;
    ComPointer<IAccessible> object_;
};

/// Keeps what a window tells assistive technology.
class EventWatcher {
  public:
    explicit EventWatcher(const GridDialog& dialog) : dialog_(dialog) {
        current_ = this;
        hook_ = SetWinEventHook(EVENT_MIN, EVENT_MAX, nullptr, OnEvent, GetCurrentProcessId(), 0,
                                WINEVENT_OUTOFCONTEXT);
    }
    ~EventWatcher() {
        UnhookWinEvent(hook_);
        current_ = nullptr;
    }
    EventWatcher(const EventWatcher&) = delete;
    EventWatcher& operator=(const EventWatcher&) = delete;

    /// The children that this event was told of since the last call.
    [[nodiscard]] Numbers Take(DWORD event) {
        dialog_.Pump();
        Numbers children;
        for (const auto& [told, child] : events_) {
            if (told == event) {
                children.push_back(child);
            }
        }
        return children;
    }
    void Forget() {
        dialog_.Pump();
        events_.clear();
    }

  private:
    static void CALLBACK OnEvent(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child,
                                 DWORD, DWORD) {
        if (current_ != nullptr && window == current_->dialog_.GridWindow() &&
            object == OBJID_CLIENT) {
            current_->events_.emplace_back(event, child);
        }
    }

    static inline EventWatcher* current_ = nullptr;
    const GridDialog& dialog_;
    HWINEVENTHOOK hook_;
    std::vector<std::pair<DWORD, LONG>> events_;
};

constexpr LONG kValueState = STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
constexpr LONG kCurrentState = kValueState | STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED;
constexpr LONG kScrolledOut = STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE;

TEST(GridAccessibleTest, IsATableWithAChildForEachCell) {
    GridDialog dialog(20);
    dialog.Grid().SetAccessibleName("Dosierung");
    const Reader reader(dialog.GridWindow());
    ASSERT_TRUE(reader.Found());
    LONG count = 0;
    EXPECT_EQ(reader->get_accChildCount(&count), S_OK);
    EXPECT_EQ(count, 42);
    EXPECT_EQ(reader.Role(kGrid), ROLE_SYSTEM_TABLE);
    EXPECT_EQ(reader.Name(kGrid), "Dosierung");
    EXPECT_EQ(reader.Value(kGrid), "(none)");
    EXPECT_EQ(reader.State(kGrid), STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_FOCUSED);
    SetFocus(dialog.Window());
    EXPECT_EQ(reader.State(kGrid), STATE_SYSTEM_FOCUSABLE);
    IDispatch* object = nullptr;
    EXPECT_EQ(reader->get_accChild(Number(3), &object), S_FALSE);
    EXPECT_EQ(object, nullptr) << "cells are simple elements";
}

TEST(GridAccessibleTest, NamesAndValuesAreTheTexts) {
    GridDialog dialog;
    dialog.Model().SetItemText(1, 1, "12 \x80");
    const Reader reader(dialog.GridWindow());
    EXPECT_EQ(reader.Name(Child(0, 0)), "Element");
    EXPECT_EQ(reader.Name(Child(0, 1)), "Wert");
    EXPECT_EQ(reader.Name(Child(1, 0)), "name 1");
    EXPECT_EQ(reader.Name(Child(1, 1)), "name 1") << "a value is called as its row";
    EXPECT_EQ(reader.Value(Child(1, 1)), "12 \x80");
    EXPECT_EQ(reader.Value(Child(1, 0)), "name 1");
    EXPECT_EQ(reader.Value(Child(0, 1)), "Wert");
    EXPECT_EQ(reader.Value(Child(20, 1)), "value 20");
}

TEST(GridAccessibleTest, RolesFollowTheCells) {
    GridDialog dialog;
    dialog.Model().SetCellType(2, 1, GridCellKind::Check);
    const Reader reader(dialog.GridWindow());
    EXPECT_EQ(reader.Role(Child(0, 0)), ROLE_SYSTEM_COLUMNHEADER);
    EXPECT_EQ(reader.Role(Child(0, 1)), ROLE_SYSTEM_COLUMNHEADER);
    EXPECT_EQ(reader.Role(Child(1, 0)), ROLE_SYSTEM_CELL);
    EXPECT_EQ(reader.Role(Child(1, 1)), ROLE_SYSTEM_CELL);
    EXPECT_EQ(reader.Role(Child(2, 1)), ROLE_SYSTEM_CHECKBUTTON);
}

TEST(GridAccessibleTest, StatesFollowTheCells) {
    GridDialog dialog(100);
    dialog.Model().SetCellType(2, 1, GridCellKind::Check);
    const Reader reader(dialog.GridWindow());
    EXPECT_EQ(reader.State(Child(0, 1)), STATE_SYSTEM_READONLY);
    EXPECT_EQ(reader.State(Child(1, 0)), STATE_SYSTEM_READONLY);
    EXPECT_EQ(reader.State(Child(1, 1)), kCurrentState);
    EXPECT_EQ(reader.State(Child(2, 1)), kValueState);
    dialog.Model().SetItemState(2, 1, kGridCellChecked);
    EXPECT_EQ(reader.State(Child(2, 1)), kValueState | STATE_SYSTEM_CHECKED);
    EXPECT_EQ(reader.State(Child(90, 1)), kValueState | kScrolledOut);
    EXPECT_EQ(reader.State(Child(90, 0)), STATE_SYSTEM_READONLY | kScrolledOut);
    dialog.Model().SetItemState(3, 1, kGridCellReadOnly);
    EXPECT_EQ(reader.State(Child(3, 1)), kValueState | STATE_SYSTEM_READONLY);
    dialog.Press(VK_DOWN, {VK_SHIFT});
    EXPECT_EQ(reader.State(Child(1, 1)), kValueState | STATE_SYSTEM_SELECTED);
    EXPECT_EQ(reader.State(Child(2, 1)), kCurrentState | STATE_SYSTEM_CHECKED);
    EnableWindow(dialog.GridWindow(), FALSE);
    EXPECT_EQ(reader.State(Child(4, 1)), kValueState | STATE_SYSTEM_UNAVAILABLE);
}

TEST(GridAccessibleTest, LocationAndHitTestAgree) {
    GridDialog dialog(100);
    const Reader reader(dialog.GridWindow());
    for (const LONG child : {Child(0, 0), Child(1, 1), Child(3, 0)}) {
        LONG left = 0;
        LONG top = 0;
        LONG width = 0;
        LONG height = 0;
        ASSERT_EQ(reader->accLocation(&left, &top, &width, &height, Number(child)), S_OK);
        EXPECT_EQ(width, 120);
        EXPECT_EQ(height, dialog.Grid().GetRowHeight(1));
        VARIANT hit = {};
        EXPECT_EQ(reader->accHitTest(left + 5, top + 5, &hit), S_OK);
        EXPECT_EQ(hit.lVal, child);
    }
    RECT client = {};
    GetClientRect(dialog.GridWindow(), &client);
    MapWindowPoints(dialog.GridWindow(), nullptr, reinterpret_cast<POINT*>(&client), 2);
    LONG left = 0;
    LONG top = 0;
    LONG width = 0;
    LONG height = 0;
    EXPECT_EQ(reader->accLocation(&left, &top, &width, &height, Number(kGrid)), S_OK);
    EXPECT_EQ(left, client.left);
    EXPECT_EQ(height, client.bottom - client.top);
    VARIANT hit = {};
    EXPECT_EQ(reader->accHitTest(client.right - 3, client.top + 30, &hit), S_OK);
    EXPECT_EQ(hit.lVal, kGrid) << "beside the cells";
    EXPECT_EQ(reader->accHitTest(client.left - 50, client.top, &hit), S_FALSE);
    EXPECT_EQ(hit.vt, VT_EMPTY);
}

TEST(GridAccessibleTest, NavigatesAmongTheCells) {
    GridDialog dialog(3);
    const Reader reader(dialog.GridWindow());
    EXPECT_EQ(reader.Navigate(NAVDIR_FIRSTCHILD, kGrid), Child(0, 0));
    EXPECT_EQ(reader.Navigate(NAVDIR_LASTCHILD, kGrid), Child(3, 1));
    EXPECT_EQ(reader.Navigate(NAVDIR_DOWN, Child(1, 1)), Child(2, 1));
    EXPECT_EQ(reader.Navigate(NAVDIR_UP, Child(1, 1)), Child(0, 1));
    EXPECT_EQ(reader.Navigate(NAVDIR_LEFT, Child(1, 1)), Child(1, 0));
    EXPECT_EQ(reader.Navigate(NAVDIR_RIGHT, Child(1, 0)), Child(1, 1));
    EXPECT_EQ(reader.Navigate(NAVDIR_NEXT, Child(1, 1)), Child(2, 0));
    EXPECT_EQ(reader.Navigate(NAVDIR_PREVIOUS, Child(1, 0)), Child(0, 1));
    EXPECT_EQ(reader.Navigate(NAVDIR_UP, Child(0, 1)), -1);
    EXPECT_EQ(reader.Navigate(NAVDIR_DOWN, Child(3, 1)), -1);
    EXPECT_EQ(reader.Navigate(NAVDIR_LEFT, Child(1, 0)), -1);
    EXPECT_EQ(reader.Navigate(NAVDIR_RIGHT, Child(1, 1)), -1);
    EXPECT_EQ(reader.Navigate(NAVDIR_NEXT, Child(3, 1)), -1);
    EXPECT_EQ(reader.Navigate(NAVDIR_PREVIOUS, Child(0, 0)), -1);
    EXPECT_EQ(reader.Navigate(NAVDIR_FIRSTCHILD, Child(1, 1)), -1);
    for (const LONG direction :
         {NAVDIR_UP, NAVDIR_DOWN, NAVDIR_LEFT, NAVDIR_RIGHT, NAVDIR_NEXT, NAVDIR_PREVIOUS}) {
        EXPECT_EQ(reader.Navigate(direction, kGrid), -1);
    }
    VARIANT end = {};
    EXPECT_EQ(reader->accNavigate(99, Number(1), &end), E_INVALIDARG);
}

TEST(GridAccessibleTest, SelectingMovesTheCurrentCellIntoView) {
    GridDialog dialog(100);
    const Reader reader(dialog.GridWindow());
    EXPECT_EQ(reader->accSelect(SELFLAG_TAKESELECTION, Number(Child(90, 1))), S_OK);
    EXPECT_EQ(dialog.Current(), (Position{90, 1}));
    EXPECT_EQ(reader.State(Child(90, 1)), kCurrentState) << "scrolled into view";
    SetFocus(GetDlgItem(dialog.Window(), IDOK));
    EXPECT_EQ(reader->accSelect(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION, Number(Child(5, 1))),
              S_OK);
    EXPECT_EQ(GetFocus(), dialog.GridWindow());
    EXPECT_EQ(dialog.Current(), (Position{5, 1}));
    EXPECT_EQ(reader->accSelect(SELFLAG_TAKEFOCUS, Number(Child(6, 1))), S_OK);
    EXPECT_EQ(dialog.Current(), (Position{6, 1}));
    EXPECT_EQ(reader->accSelect(SELFLAG_EXTENDSELECTION, Number(Child(8, 1))), S_OK);
    EXPECT_EQ(dialog.Grid().Selection().FirstRow(), 6);
    EXPECT_EQ(dialog.Current(), (Position{8, 1}));
}

TEST(GridAccessibleTest, SelectsNothingElse) {
    GridDialog dialog;
    const Reader reader(dialog.GridWindow());
    EXPECT_EQ(reader->accSelect(SELFLAG_TAKESELECTION, Number(Child(2, 0))), E_INVALIDARG);
    EXPECT_EQ(reader->accSelect(SELFLAG_TAKESELECTION, Number(Child(0, 1))), E_INVALIDARG);
    EXPECT_EQ(reader->accSelect(SELFLAG_NONE, Number(Child(2, 1))), E_INVALIDARG);
    EXPECT_EQ(reader->accSelect(SELFLAG_ADDSELECTION, Number(Child(2, 1))), E_INVALIDARG);
    EXPECT_EQ(
        reader->accSelect(SELFLAG_TAKESELECTION | SELFLAG_EXTENDSELECTION, Number(Child(2, 1))),
        E_INVALIDARG);
    EXPECT_EQ(reader->accSelect(SELFLAG_TAKESELECTION, Number(kGrid)), E_INVALIDARG);
    EXPECT_EQ(dialog.Current(), (Position{1, 1}));
    SetFocus(GetDlgItem(dialog.Window(), IDOK));
    EXPECT_EQ(reader->accSelect(SELFLAG_TAKEFOCUS, Number(kGrid)), S_OK);
    EXPECT_EQ(GetFocus(), dialog.GridWindow());
}

TEST(GridAccessibleTest, TellsFocusAndSelection) {
    GridDialog dialog;
    const Reader reader(dialog.GridWindow());
    dialog.Press(VK_DOWN);
    VARIANT focus = {};
    EXPECT_EQ(reader->get_accFocus(&focus), S_OK);
    EXPECT_EQ(focus.lVal, Child(2, 1));
    VARIANT selection = {};
    EXPECT_EQ(reader->get_accSelection(&selection), S_OK);
    EXPECT_EQ(selection.lVal, Child(2, 1));
    SetFocus(GetDlgItem(dialog.Window(), IDOK));
    EXPECT_EQ(reader->get_accFocus(&focus), S_FALSE);
    EXPECT_EQ(focus.vt, VT_EMPTY);
}

TEST(GridAccessibleTest, ASelectedRangeIsListed) {
    GridDialog dialog;
    const Reader reader(dialog.GridWindow());
    dialog.Press(VK_DOWN, {VK_SHIFT});
    dialog.Press(VK_DOWN, {VK_SHIFT});
    VARIANT selection = {};
    ASSERT_EQ(reader->get_accSelection(&selection), S_OK);
    ASSERT_EQ(selection.vt, VT_UNKNOWN);
    void* object = nullptr;
    ASSERT_EQ(selection.punkVal->QueryInterface(IID_IEnumVARIANT, &object), S_OK);
    VariantClear(&selection);
    const ComPointer<IEnumVARIANT> numbers(static_cast<IEnumVARIANT*>(object));
    VARIANT found[5] = {};
    ULONG count = 0;
    EXPECT_EQ(numbers->Next(2, found, &count), S_OK);
    EXPECT_EQ(found[0].lVal, Child(1, 1));
    EXPECT_EQ(found[1].lVal, Child(2, 1));
    IEnumVARIANT* copied = nullptr;
    ASSERT_EQ(numbers->Clone(&copied), S_OK);
    const ComPointer<IEnumVARIANT> copy(copied);
    EXPECT_EQ(numbers->Next(5, found, &count), S_FALSE);
    EXPECT_EQ(count, 1U);
    EXPECT_EQ(found[0].lVal, Child(3, 1));
    EXPECT_EQ(numbers->Next(1, found, nullptr), S_FALSE);
    EXPECT_EQ(numbers->Reset(), S_OK);
    EXPECT_EQ(numbers->Skip(2), S_OK);
    EXPECT_EQ(numbers->Skip(2), S_FALSE);
    EXPECT_EQ(copy->Next(1, found, nullptr), S_OK);
    EXPECT_EQ(found[0].lVal, Child(3, 1)) << "a copy goes on by itself";
    EXPECT_EQ(numbers->Next(1, nullptr, nullptr), E_INVALIDARG);
    EXPECT_EQ(numbers->Next(2, found, nullptr), E_INVALIDARG);
    EXPECT_EQ(numbers->Clone(nullptr), E_POINTER);
    EXPECT_EQ(numbers->QueryInterface(IID_IDispatch, &object), E_NOINTERFACE);
}

TEST(GridAccessibleTest, TheDefaultActionEdits) {
    GridDialog dialog;
    dialog.MakeCombo(2, {"Off", "On"});
    dialog.Model().SetCellType(3, 1, GridCellKind::Check);
    const Reader reader(dialog.GridWindow());
    EXPECT_EQ(reader.Action(Child(1, 1)), "(none)") << "without a name";
    dialog.Grid().SetActionNames({"edit", "toggle"});
    EXPECT_EQ(reader.Action(Child(1, 1)), "edit");
    EXPECT_EQ(reader.Action(Child(3, 1)), "toggle");
    EXPECT_EQ(reader.Action(Child(1, 0)), "(none)");
    EXPECT_EQ(reader.Action(kGrid), "(none)");
    char name[32] = "";
    EXPECT_EQ(reader->accDoDefaultAction(Number(Child(1, 1))), S_OK);
    GetClassNameA(dialog.Editor(), name, sizeof name);
    EXPECT_STREQ(name, "Edit");
    EXPECT_EQ(dialog.Current(), (Position{1, 1}));
    EXPECT_EQ(reader->accDoDefaultAction(Number(Child(2, 1))), S_OK);
    GetClassNameA(dialog.Editor(), name, sizeof name);
    EXPECT_STREQ(name, "ComboBox");
    EXPECT_EQ(reader->accDoDefaultAction(Number(Child(3, 1))), S_OK);
    EXPECT_EQ(dialog.Model().GetItemState(3, 1), kGridCellChecked);
    EXPECT_EQ(reader->accDoDefaultAction(Number(Child(1, 0))), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(reader->accDoDefaultAction(Number(kGrid)), DISP_E_MEMBERNOTFOUND);
}

TEST(GridAccessibleTest, SettingAValueIsAnEdit) {
    GridDialog dialog;
    dialog.onEdit = [&](const GridNotification& edit) {
        dialog.Model().SetItemText(edit.row, edit.column, "1 h");
    };
    const Reader reader(dialog.GridWindow());
    EXPECT_EQ(reader.PutValue(Child(4, 1), L"1h"), S_OK);
    EXPECT_EQ(dialog.Text(4), "1 h");
    ASSERT_EQ(dialog.edits.size(), 1U);
    EXPECT_EQ(dialog.edits[0], (GridDialog::Edit{4, 1, "1h"}));
    EXPECT_EQ(reader->put_accValue(Number(Child(5, 1)), nullptr), S_OK);
    EXPECT_EQ(dialog.edits[1].text, "") << "no text is an empty one";
}

TEST(GridAccessibleTest, ReadOnlyCellsRefuseValues) {
    GridDialog dialog;
    const Reader reader(dialog.GridWindow());
    dialog.Model().SetItemState(3, 1, kGridCellReadOnly);
    for (const LONG child : {Child(0, 1), Child(1, 0), Child(3, 1), kGrid}) {
        EXPECT_EQ(reader.PutValue(child, L"x"), E_ACCESSDENIED) << child;
    }
    EXPECT_TRUE(dialog.edits.empty());
    EnableWindow(dialog.Window(), FALSE);
    EXPECT_EQ(reader.PutValue(Child(1, 1), L"x"), E_ACCESSDENIED) << "behind a message box";
    EXPECT_EQ(dialog.Text(1), "value 1");
}

TEST(GridAccessibleTest, ComboCellsTakeTheirChoices) {
    GridDialog dialog;
    dialog.MakeCombo(1, {"Off", "On"});
    const Reader reader(dialog.GridWindow());
    EXPECT_EQ(reader.PutValue(Child(1, 1), L"On"), S_OK);
    EXPECT_EQ(reader.PutValue(Child(1, 1), L"none"), E_INVALIDARG);
    EXPECT_EQ(dialog.Text(1), "On");
    dialog.answer = 1;
    EXPECT_EQ(reader.PutValue(Child(1, 1), L"Off"), E_INVALIDARG) << "the parent refuses";
    EXPECT_EQ(dialog.Text(1), "On");
}

TEST(GridAccessibleTest, AValueReplacesAnEditOfTheSameCell) {
    GridDialog dialog;
    dialog.Type("typed");
    const Reader reader(dialog.GridWindow());
    EXPECT_EQ(reader.PutValue(Child(1, 1), L"set"), S_OK);
    EXPECT_EQ(dialog.Editor(), nullptr);
    EXPECT_EQ(dialog.Text(1), "set");
    EXPECT_EQ(dialog.edits.size(), 1U);
}

TEST(GridAccessibleTest, RefusesChildrenThatAreNone) {
    GridDialog dialog(3);
    const Reader reader(dialog.GridWindow());
    VARIANT text = {};
    text.vt = VT_BSTR;
    VARIANT empty = {};
    for (const VARIANT& child : {Number(-1), Number(9), text, empty}) {
        BSTR name = nullptr;
        VARIANT result = {};
        LONG place = 0;
        IDispatch* object = nullptr;
        EXPECT_EQ(reader->get_accName(child, &name), E_INVALIDARG);
        EXPECT_EQ(reader->get_accValue(child, &name), E_INVALIDARG);
        EXPECT_EQ(reader->get_accRole(child, &result), E_INVALIDARG);
        EXPECT_EQ(reader->get_accState(child, &result), E_INVALIDARG);
        EXPECT_EQ(reader->get_accDefaultAction(child, &name), E_INVALIDARG);
        EXPECT_EQ(reader->accDoDefaultAction(child), E_INVALIDARG);
        EXPECT_EQ(reader->accSelect(SELFLAG_TAKESELECTION, child), E_INVALIDARG);
        EXPECT_EQ(reader->accLocation(&place, &place, &place, &place, child), E_INVALIDARG);
        EXPECT_EQ(reader->accNavigate(NAVDIR_UP, child, &result), E_INVALIDARG);
        EXPECT_EQ(reader->put_accValue(child, nullptr), E_INVALIDARG);
        EXPECT_EQ(reader->get_accChild(child, &object), E_INVALIDARG);
    }
}

TEST(GridAccessibleTest, RefusesNullPointers) {
    GridDialog dialog;
    const Reader reader(dialog.GridWindow());
    LONG place = 0;
    EXPECT_EQ(reader->get_accName(Number(1), nullptr), E_POINTER);
    EXPECT_EQ(reader->get_accRole(Number(1), nullptr), E_POINTER);
    EXPECT_EQ(reader->get_accState(Number(1), nullptr), E_POINTER);
    EXPECT_EQ(reader->get_accChildCount(nullptr), E_POINTER);
    EXPECT_EQ(reader->get_accParent(nullptr), E_POINTER);
    EXPECT_EQ(reader->get_accChild(Number(1), nullptr), E_POINTER);
    EXPECT_EQ(reader->get_accFocus(nullptr), E_POINTER);
    EXPECT_EQ(reader->get_accSelection(nullptr), E_POINTER);
    EXPECT_EQ(reader->accHitTest(0, 0, nullptr), E_POINTER);
    EXPECT_EQ(reader->accNavigate(NAVDIR_UP, Number(1), nullptr), E_POINTER);
    EXPECT_EQ(reader->accLocation(&place, &place, nullptr, &place, Number(1)), E_POINTER);
    EXPECT_EQ(reader->QueryInterface(IID_IAccessible, nullptr), E_POINTER);
}

TEST(GridAccessibleTest, HasNothingElseToTell) {
    GridDialog dialog;
    const Reader reader(dialog.GridWindow());
    BSTR text = nullptr;
    LONG topic = 1;
    EXPECT_EQ(reader->get_accDescription(Number(1), &text), S_FALSE);
    EXPECT_EQ(reader->get_accHelp(Number(1), &text), S_FALSE);
    EXPECT_EQ(reader->get_accHelpTopic(&text, Number(1), &topic), S_FALSE);
    EXPECT_EQ(topic, 0);
    EXPECT_EQ(reader->get_accKeyboardShortcut(Number(1), &text), S_FALSE);
    EXPECT_EQ(reader->put_accName(Number(1), nullptr), DISP_E_MEMBERNOTFOUND);
    void* object = nullptr;
    EXPECT_EQ(reader->QueryInterface(IID_IEnumVARIANT, &object), E_NOINTERFACE);
}

TEST(GridAccessibleTest, OutlivesItsWindow) {
    GridDialog dialog;
    const Reader reader(dialog.GridWindow());
    DestroyWindow(dialog.GridWindow());
    BSTR text = nullptr;
    VARIANT result = {};
    LONG number = 0;
    IDispatch* object = nullptr;
    EXPECT_EQ(reader->get_accName(Number(1), &text), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(reader->get_accValue(Number(1), &text), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(reader->get_accRole(Number(1), &result), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(reader->get_accState(Number(1), &result), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(reader->get_accChildCount(&number), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(reader->get_accParent(&object), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(reader->get_accFocus(&result), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(reader->get_accSelection(&result), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(reader->accHitTest(0, 0, &result), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(reader->accLocation(&number, &number, &number, &number, Number(1)),
              CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(reader->accNavigate(NAVDIR_UP, Number(1), &result), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(reader->accSelect(SELFLAG_TAKEFOCUS, Number(1)), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(reader->accDoDefaultAction(Number(1)), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(reader->put_accValue(Number(1), nullptr), CO_E_OBJNOTCONNECTED);
}

TEST(GridAccessibleTest, AValueMayEndTheWindow) {
    GridDialog dialog;
    dialog.onEdit = [&](const GridNotification&) { DestroyWindow(dialog.GridWindow()); };
    const Reader reader(dialog.GridWindow());
    reader.PutValue(Child(1, 1), L"x");
    EXPECT_EQ(dialog.edits.size(), 1U);
    LONG count = 0;
    EXPECT_EQ(reader->get_accChildCount(&count), CO_E_OBJNOTCONNECTED);
}

TEST(GridAccessibleTest, TheSameObjectAnswersEveryTime) {
    GridDialog dialog;
    const Reader one(dialog.GridWindow());
    const Reader other(dialog.GridWindow());
    void* first = nullptr;
    void* second = nullptr;
    ASSERT_EQ(one->QueryInterface(IID_IUnknown, &first), S_OK);
    ASSERT_EQ(other->QueryInterface(IID_IUnknown, &second), S_OK);
    EXPECT_EQ(first, second);
    static_cast<IUnknown*>(first)->Release();
    static_cast<IUnknown*>(second)->Release();
}

TEST(GridAccessibleTest, ItsParentIsTheWindow) {
    GridDialog dialog;
    const Reader reader(dialog.GridWindow());
    IDispatch* parent = nullptr;
    EXPECT_EQ(reader->get_accParent(&parent), S_OK);
    ASSERT_NE(parent, nullptr);
    parent->Release();
}

TEST(GridAccessibleTest, ScriptsMayCallByName) {
    GridDialog dialog;
    const Reader reader(dialog.GridWindow());
    UINT count = 0;
    ASSERT_EQ(reader->GetTypeInfoCount(&count), S_OK);
    wchar_t name[] = L"accChildCount";
    LPOLESTR names[] = {name};
    DISPID id = 0;
    const HRESULT found = reader->GetIDsOfNames(IID_NULL, names, 1, LOCALE_NEUTRAL, &id);
    DISPPARAMS none = {};
    VARIANT result = {};
    const HRESULT called = reader->Invoke(DISPID_ACC_CHILDCOUNT, IID_NULL, LOCALE_NEUTRAL,
                                          DISPATCH_PROPERTYGET, &none, &result, nullptr, nullptr);
    if (count == 0) {  // the system brings no type library
        EXPECT_EQ(found, E_NOTIMPL);
        EXPECT_EQ(called, E_NOTIMPL);
        EXPECT_EQ(result.vt, VT_EMPTY);
        return;
    }
    ASSERT_EQ(found, S_OK);
    EXPECT_EQ(id, DISPID_ACC_CHILDCOUNT);
    ASSERT_EQ(called, S_OK);
    EXPECT_EQ(result.lVal, 42);
}

TEST(GridEvents, MovingTellsFocusAndSelection) {
    GridDialog dialog;
    EventWatcher events(dialog);
    events.Forget();
    dialog.Press(VK_DOWN);
    EXPECT_EQ(events.Take(EVENT_OBJECT_FOCUS), Numbers{Child(2, 1)});
    EXPECT_EQ(events.Take(EVENT_OBJECT_SELECTION), Numbers{Child(2, 1)});
    events.Forget();
    dialog.Press(VK_LEFT);
    EXPECT_TRUE(events.Take(EVENT_OBJECT_FOCUS).empty()) << "the cell stays the same";
}

TEST(GridEvents, ComingIntoTheGridTellsTheCurrentCell) {
    GridDialog dialog;
    SetFocus(GetDlgItem(dialog.Window(), IDOK));
    EventWatcher events(dialog);
    events.Forget();
    SetFocus(dialog.GridWindow());
    const Numbers told = events.Take(EVENT_OBJECT_FOCUS);
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.back(), Child(1, 1));
}

TEST(GridEvents, ChangesTellTheValue) {
    GridDialog dialog;
    EventWatcher events(dialog);
    dialog.Type("new");
    events.Forget();
    dialog.Press(VK_RETURN);
    EXPECT_EQ(events.Take(EVENT_OBJECT_VALUECHANGE), Numbers{Child(1, 1)});
    events.Forget();
    dialog.Press(VK_F2);
    dialog.Press(VK_RETURN);
    EXPECT_TRUE(events.Take(EVENT_OBJECT_VALUECHANGE).empty()) << "the text is the same";
}

TEST(GridEvents, MarksTellTheState) {
    GridDialog dialog;
    dialog.Model().SetCellType(1, 1, GridCellKind::Check);
    EventWatcher events(dialog);
    events.Forget();
    dialog.Type(" ");
    EXPECT_EQ(events.Take(EVENT_OBJECT_STATECHANGE), Numbers{Child(1, 1)});
}

TEST(GridEvents, OtherRowsTellANewOrder) {
    GridDialog dialog;
    EventWatcher events(dialog);
    events.Forget();
    dialog.Model().InsertRow("more");
    dialog.Grid().AdjustSizes();
    EXPECT_EQ(events.Take(EVENT_OBJECT_REORDER), Numbers{kGrid});
    events.Forget();
    dialog.Grid().AdjustSizes();
    EXPECT_TRUE(events.Take(EVENT_OBJECT_REORDER).empty());
}

TEST(GridEvents, OtherTextsTellTheValueOfTheCurrentCell) {
    GridDialog dialog;
    EventWatcher events(dialog);
    dialog.Press(VK_DOWN);
    events.Forget();
    for (int row = 1; row <= 20; ++row) {
        dialog.Model().SetItemText(row, 1, "refilled");
    }
    dialog.Grid().AdjustSizes();
    dialog.Grid().Refresh();
    EXPECT_EQ(events.Take(EVENT_OBJECT_VALUECHANGE), Numbers{Child(2, 1)});
    EXPECT_TRUE(events.Take(EVENT_OBJECT_FOCUS).empty()) << "the cell stays the same";
    EXPECT_TRUE(events.Take(EVENT_OBJECT_SELECTION).empty());
    events.Forget();
    dialog.Model().SetItemText(1, 1, "of another cell");
    dialog.Grid().Refresh();
    dialog.Press(VK_UP);
    dialog.Grid().Refresh();
    EXPECT_TRUE(events.Take(EVENT_OBJECT_VALUECHANGE).empty()) << "read when it became current";
}

TEST(GridEvents, AParentThatRefreshesTellsTheValueOnce) {
    GridDialog dialog;
    dialog.onEdit = [&](const GridNotification& edit) {
        dialog.Model().SetItemText(edit.row, edit.column, "1 h");
        dialog.Grid().Refresh();
    };
    EventWatcher events(dialog);
    dialog.Type("1h");
    events.Forget();
    dialog.Press(VK_RETURN);
    EXPECT_EQ(events.Take(EVENT_OBJECT_VALUECHANGE), Numbers{Child(1, 1)});
}

TEST(GridEvents, ValuesSetElsewhereAreTold) {
    GridDialog dialog;
    const Reader reader(dialog.GridWindow());
    EventWatcher events(dialog);
    events.Forget();
    EXPECT_EQ(reader.PutValue(Child(4, 1), L"set"), S_OK);
    EXPECT_EQ(events.Take(EVENT_OBJECT_VALUECHANGE), Numbers{Child(4, 1)});
}

TEST(GridEvents, RowsThatGoTellTheNewCurrentCell) {
    GridDialog dialog;
    dialog.Press(VK_END, {VK_CONTROL});
    EventWatcher events(dialog);
    events.Forget();
    dialog.Model().SetRowCount(11);
    dialog.Grid().AdjustSizes();
    EXPECT_EQ(events.Take(EVENT_OBJECT_REORDER), Numbers{kGrid}) << "not one a row";
    EXPECT_EQ(events.Take(EVENT_OBJECT_FOCUS), Numbers{Child(10, 1)});
    EXPECT_EQ(events.Take(EVENT_OBJECT_SELECTION), Numbers{Child(10, 1)});
    EXPECT_TRUE(events.Take(EVENT_OBJECT_VALUECHANGE).empty());
    SetFocus(GetDlgItem(dialog.Window(), IDOK));
    events.Forget();
    dialog.Model().SetRowCount(3);
    dialog.Grid().Refresh();
    EXPECT_EQ(events.Take(EVENT_OBJECT_REORDER), Numbers{kGrid});
    EXPECT_EQ(events.Take(EVENT_OBJECT_SELECTION), Numbers{Child(2, 1)});
    EXPECT_TRUE(events.Take(EVENT_OBJECT_FOCUS).empty()) << "the focus is elsewhere";
}

TEST(GridEvents, AnEmptyGridHasTheFocusItself) {
    GridDialog dialog(2);
    EventWatcher events(dialog);
    events.Forget();
    dialog.Model().SetRowCount(1);
    dialog.Grid().AdjustSizes();
    EXPECT_EQ(events.Take(EVENT_OBJECT_FOCUS), Numbers{kGrid});
    EXPECT_EQ(events.Take(EVENT_OBJECT_SELECTIONWITHIN), Numbers{kGrid});
    EXPECT_TRUE(events.Take(EVENT_OBJECT_SELECTION).empty()) << "nothing is selected";
}

}  // namespace
}  // namespace orvell::ui
