#include "ui/grid/grid_dialog.h"

#include <array>
#include <memory>

#include "ui/grid/grid_dialog_ids.h"

namespace orvell::test {
namespace {

HINSTANCE ThisProgram() {
    return GetModuleHandleA(nullptr);
}

/// Holds keys down for as long as it lives, as far as this thread can see.
class HeldKeys {
  public:
    explicit HeldKeys(std::initializer_list<int> keys) {
        GetKeyboardState(before_.data());
        std::array<BYTE, 256> state = before_;
        for (const int key : keys) {
            state[static_cast<std::size_t>(key)] = 0x80;
        }
        SetKeyboardState(state.data());
    }
    ~HeldKeys() { SetKeyboardState(before_.data()); }
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;

  private:
    std::array<BYTE, 256> before_ = {};
};

}  // namespace

GridDialog::GridDialog(int rows) : class_(ThisProgram()) {
    dialog_ = CreateDialogParamA(ThisProgram(), MAKEINTRESOURCEA(kGridDialog), nullptr, Procedure,
                                 reinterpret_cast<LPARAM>(this));
    grid_ = GetDlgItem(dialog_, kGridControl);
    Fill(rows);
    Pump();
    SetFocus(grid_);
    UpdateWindow(grid_);
}

GridDialog::~GridDialog() {
    DestroyWindow(dialog_);
    Pump();
}

void GridDialog::Fill(int rows) const {
    ui::CGridCtrl& grid = Grid();
    ui::GridModel& model = grid.Model();
    model.SetFixedRowCount(1);
    model.SetColumnCount(2);
    model.SetRowCount(1);
    model.SetItemText(0, 0, "Element");
    model.SetItemText(0, 1, "Wert");
    for (int row = 1; row <= rows; ++row) {
        model.InsertRow("name " + std::to_string(row));
        model.SetItemText(row, 1, "value " + std::to_string(row));
        model.SetItemState(row, 0, ui::kGridCellReadOnly);
    }
    grid.SetColumnWidth(0, 120);
    grid.SetColumnWidth(1, 120);
    grid.AdjustSizes();
}

std::string GridDialog::EditorText() const {
    std::array<char, 256> text = {};
    GetWindowTextA(Editor(), text.data(), static_cast<int>(text.size()));
    return text.data();
}

void GridDialog::MakeCombo(int row, std::vector<std::string> choices) const {
    Model().SetCellType(row, 1, ui::GridCellKind::Combo);
    Model().SetItemText(row, 1, choices.front());
    Model().SetChoices(row, 1, std::make_shared<const ui::GridChoiceList>(std::move(choices)));
    Grid().Refresh();
}

void GridDialog::Press(WPARAM key, std::initializer_list<int> heldKeys) const {
    const HeldKeys held(heldKeys);
    const bool isWithAlt = GetKeyState(VK_MENU) < 0;
    PostMessageA(GetFocus(), isWithAlt ? WM_SYSKEYDOWN : WM_KEYDOWN, key,
                 isWithAlt ? 0x20000001 : 1);
    Pump();
}

void GridDialog::Type(std::string_view characters) const {
    for (const char character : characters) {
        PostMessageA(GetFocus(), WM_CHAR, static_cast<BYTE>(character), 1);
        Pump();
    }
}

void GridDialog::Pump() const {
    MSG message = {};
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
        if (!IsDialogMessageA(dialog_, &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
}

INT_PTR CALLBACK GridDialog::Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(dialog, DWLP_USER, lParam);
        return FALSE;
    }
    auto* const self = reinterpret_cast<GridDialog*>(GetWindowLongPtrA(dialog, DWLP_USER));
    if (self == nullptr) {
        return FALSE;
    }
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == ui::kGridEndEdit) {
        const INT_PTR result =
            self->OnNotify(*reinterpret_cast<const ui::GridNotification*>(lParam));
        SetWindowLongPtrA(dialog, DWLP_MSGRESULT, result);
        return TRUE;
    }
    if (message == WM_COMMAND) {
        self->okCount += LOWORD(wParam) == IDOK ? 1 : 0;
        self->cancelCount += LOWORD(wParam) == IDCANCEL ? 1 : 0;
    }
    return FALSE;
}

INT_PTR GridDialog::OnNotify(const ui::GridNotification& notification) {
    edits.push_back({notification.row, notification.column,
                     Model().GetItemText(notification.row, notification.column)});
    onEdit(notification);
    return answer;
}

}  // namespace orvell::test
