#include "dialog_fixture.h"

#include "platform/message_box.h"
#include "ui/grid/grid_control.h"

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
    definitions.store.ResolveReferences();
    host.size = sizeof(host);
}

bool DialogTest::Edit(DialogParameterRecord* record) {
    const EditorServices services{definitions.store,         definitions.converters,
                                  definitions.strings,       platform::SystemMessageBoxes(),
                                  GetModuleHandleW(nullptr), languageLibrary};
    return editor.Edit(record, host, services);
}

bool DialogTest::EditWith(DialogParameterRecord* record,
                          const std::function<void(const DialogUser&)>& script) {
    bool result = false;
    test::WorkDialogs([&] { result = Edit(record); }, script);
    return result;
}

Rows DialogTest::GridRows(const DialogUser& user, HWND dialog) {
    Rows rows;
    user.OnThread([&] {
        rows = RowsOf(CGridCtrl::FromWindow(GetDlgItem(dialog, ORVELL_VALUE_GRID))->Model());
    });
    return rows;
}

void DialogTest::Enter(const DialogUser& user, HWND dialog, int row, std::string_view text) {
    user.OnThread([&] {
        CGridCtrl::FromWindow(GetDlgItem(dialog, ORVELL_VALUE_GRID))
            ->EnterText({row, kValueColumn}, text);
    });
}

}  // namespace orvell::ui
