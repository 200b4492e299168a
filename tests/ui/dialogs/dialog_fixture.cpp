#include "dialog_fixture.h"

#include "platform/message_box.h"

namespace orvell::ui {

using test::DialogUser;
using values::BaseTypeCode;

DialogTest::DialogTest() {
    definitions.store.AddImplicitTypes();
    definitions.AddArea(kInt, BasicType("Int", BaseTypeCode::Int, 2));
    memstruct::TypeDef mode = BasicType("Mode", BaseTypeCode::Enumerated, 1);
    mode.enumItems = values::EnumItemList({{"On", 1}, {"Off", 0}});
    definitions.AddArea(kMode, std::move(mode));
    definitions.AddArea(kPair, Structure("Pair", {Item("a", "Int"), Item("m", "Mode", 2)}));
    definitions.AddArea(kDay, BasicType("Day", BaseTypeCode::Date));
    definitions.AddArea(kLoop, Structure("Loop", {Item("self", "Loop")}));
    definitions.AddArea(kBroken, Structure("Broken", {Item("b", "Gone")}));
    definitions.AddArea(kHuge, Structure("Huge", {Item("w", "Int", 4'000'000'000U)}));
    definitions.AddArea(kLong, Structure("Long", {Item("w", "Int", 200)}));
    definitions.AddArea(kTimes, BasicType("Times", BaseTypeCode::Duration));
    definitions.store.AddArea(kLost, "Lost");
    definitions.store.ResolveReferences();
    host.size = sizeof(host);
}

EditorServices DialogTest::Services() {
    return {definitions.store,         definitions.converters,
            definitions.strings,       platform::SystemMessageBoxes(),
            GetModuleHandleW(nullptr), languageLibrary};
}

bool DialogTest::Edit(DialogParameterRecord* record) {
    return editor.Edit(record, host, Services());
}

bool DialogTest::EditWith(DialogParameterRecord* record,
                          const std::function<void(const DialogUser&)>& script) {
    bool result = false;
    test::WorkDialogs([&] { result = Edit(record); }, script);
    return result;
}

CGridCtrl& DialogTest::GridOf(HWND dialog) {
    return *CGridCtrl::FromWindow(GetDlgItem(dialog, ORVELL_VALUE_GRID));
}

Rows DialogTest::GridRows(const DialogUser& user, HWND dialog) {
    Rows rows;
    user.OnThread([&] { rows = RowsOf(GridOf(dialog).Model()); });
    return rows;
}

void DialogTest::Enter(const DialogUser& user, HWND dialog, int row, std::string_view text) {
    user.OnThread([&] { GridOf(dialog).EnterText({row, kValueColumn}, text); });
}

void DialogTest::ClickSpin(const DialogUser& user, HWND dialog, int spin, bool isUpper) {
    user.OnThread([&] {
        const HWND control = GetDlgItem(dialog, spin);
        RECT client{};
        GetClientRect(control, &client);
        const int x = static_cast<int>(client.right / 2);
        const int y = static_cast<int>(isUpper ? client.bottom / 4 : client.bottom * 3 / 4);
        SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        SendMessageW(control, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    });
}

RECT DialogTest::PlaceOf(HWND dialog, int control) {
    RECT place{};
    GetWindowRect(GetDlgItem(dialog, control), &place);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

}  // namespace orvell::ui
