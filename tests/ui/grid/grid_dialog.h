#pragma once

#include <windows.h>

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "ui/grid/grid_control.h"

namespace orvell::test {

/// A dialog on the screen with a field, a grid and the buttons OK and Cancel. The grid has a
/// heading and the focus.
class GridDialog {
  public:
    /// Rows "name 1" and "value 1" and so on.
    explicit GridDialog(int rows = 20);
    ~GridDialog();
    GridDialog(const GridDialog&) = delete;
    GridDialog& operator=(const GridDialog&) = delete;

    [[nodiscard]] HWND Window() const { return dialog_; }
    [[nodiscard]] HWND GridWindow() const { return grid_; }
    [[nodiscard]] ui::CGridCtrl& Grid() const { return *ui::CGridCtrl::FromWindow(grid_); }
    [[nodiscard]] ui::GridModel& Model() const { return Grid().Model(); }
    [[nodiscard]] ui::GridPosition Current() const { return Grid().Selection().Current(); }
    [[nodiscard]] const std::string& Text(int row) const { return Model().GetItemText(row, 1); }
    /// The child of the grid that edits, null while nothing is edited.
    [[nodiscard]] HWND Editor() const { return GetWindow(grid_, GW_CHILD); }
    [[nodiscard]] std::string EditorText() const;

    /// Makes the value cell a combo cell with these choices.
    void MakeCombo(int row, std::vector<std::string> choices) const;

    /// A key goes to the window that has the focus, through the dialog's message loop.
    void Press(WPARAM key, std::initializer_list<int> heldKeys = {}) const;
    void Type(std::string_view characters) const;
    /// Handles all messages that wait.
    void Pump() const;

    /// What the parent has heard of ended edits: texts in the order in which they came.
    struct Edit {
        int row;
        int column;
        std::string text;
        friend bool operator==(const Edit&, const Edit&) = default;
    };
    std::vector<Edit> edits;
    LRESULT answer = 0;  ///< to each of them
    std::function<void(const ui::GridNotification&)> onEdit = [](const auto&) {};
    int okCount = 0;
    int cancelCount = 0;

  private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnNotify(const ui::GridNotification& notification);
    void Fill(int rows) const;

    ui::GridWindowClass class_;
    HWND dialog_ = nullptr;
    HWND grid_ = nullptr;
};

}  // namespace orvell::test
