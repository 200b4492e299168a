#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

#include "ui/grid/grid_editor.h"
#include "ui/grid/grid_layout.h"
#include "ui/grid/grid_look.h"
#include "ui/grid/grid_model.h"
#include "ui/grid/grid_selection.h"
#include "ui/grid/grid_wheel.h"

namespace orvell::ui {

class GridAccessible;

/// What assistive technology calls the action that a cell offers; an empty name is not told.
struct GridActionNames {
    std::string edit;
    std::string toggle;
};

/// Sent to the parent with WM_NOTIFY when the user has changed a cell. The cell has its new text
/// already; the parent may replace it through the model. The answer 0 accepts the change, any other
/// takes it back.
struct GridNotification {
    NMHDR header;  ///< code: `kGridEndEdit`
    int row;
    int column;
};
inline constexpr UINT kGridEndEdit = 0xF0000001;  // far from the codes of Windows' own controls

/// A window of the class "MFCGridCtrl" (see GridWindowClass): a grid of cells that are edited in
/// place. It lives as long as its window. The window shows what the model holds; who changes the
/// model tells it by `Refresh` or `AdjustSizes`.
class CGridCtrl {
  public:
    /// The grid of a window, null if the window is no grid. Valid until the window is destroyed.
    [[nodiscard]] static CGridCtrl* FromWindow(HWND window);

    explicit CGridCtrl(HWND window);
    ~CGridCtrl();
    CGridCtrl(const CGridCtrl&) = delete;
    CGridCtrl& operator=(const CGridCtrl&) = delete;

    [[nodiscard]] HWND Window() const { return window_; }
    [[nodiscard]] GridModel& Model() { return model_; }
    [[nodiscard]] const GridModel& Model() const { return model_; }

    /// In pixels. The column must be there.
    void SetColumnWidth(int column, int pixels);
    [[nodiscard]] int GetColumnWidth(int column) const { return layout_.ColumnWidth(column); }

    /// In pixels; all rows have the same.
    [[nodiscard]] int GetRowHeight(int row) const;

    /// Draws everything anew, after any change of the model, and tells assistive technology what
    /// has become of the rows, the current cell and its text.
    void Refresh();

    /// Refreshes and adapts the scroll bars to the model's rows and columns.
    void AdjustSizes();

    /// The name by which assistive technology calls the grid.
    void SetAccessibleName(std::string name) { accessibleName_ = std::move(name); }
    [[nodiscard]] const std::string& AccessibleName() const { return accessibleName_; }

    void SetActionNames(GridActionNames names) { actionNames_ = std::move(names); }
    [[nodiscard]] const GridActionNames& ActionNames() const { return actionNames_; }

    /// Ends the edit, if there is one: with `accept` as Enter does, the notification included, else
    /// as Escape does. The current cell stays.
    void EndEdit(bool accept);
    [[nodiscard]] bool IsEditing() const { return editor_ != nullptr; }

    /// Draws for a screen with so many dots per inch; columns keep their width in inches.
    void SetDpi(int dpi);

    // What follows serves the user's hands and assistive technology alike.

    [[nodiscard]] const GridLayout& Layout() const { return layout_; }
    [[nodiscard]] const GridSelection& Selection() const { return selection_; }

    /// Makes a value cell the current one and scrolls it into view.
    void SetCurrentCell(GridPosition position);
    /// Selects from where the selection began to this row.
    void ExtendSelection(int row);

    /// Whether the user may change this cell now.
    [[nodiscard]] bool CanChange(GridPosition position) const;
    /// Starts an edit; a check cell changes at once. False when the cell cannot be changed.
    bool Activate(GridPosition position, GridEditStart start);
    /// Does what typing the text and ending the edit does. False when the cell does not take it or
    /// the parent refuses it.
    bool EnterText(GridPosition position, std::string_view text);

    /// The number by which assistive technology knows a cell.
    [[nodiscard]] LONG ChildIdOf(GridPosition position) const;

  private:
    friend class GridWindowClass;

    /// Keeps the object alive while code of its window is running.
    class Use {
      public:
        explicit Use(CGridCtrl& grid) : grid_(grid) { ++grid_.uses_; }
        ~Use();
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

      private:
        CGridCtrl& grid_;
    };

    enum class Drag { None, Rows, Column };

    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnInput(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnDefault(UINT message, WPARAM wParam, LPARAM lParam);
    void OnDestroy();
    void OnGone();

    // grid_drawing.cpp
    void OnPaint();
    void PaintArea(HDC canvas, const GridRect& area) const;
    void PaintBuffered(HDC canvas, const GridRect& area) const;
    void Invalidate() const;
    void Invalidate(GridPosition position) const;
    void InvalidateSelection(const GridSelection& selection) const;

    // grid_sizes.cpp
    void OnSetFont(HFONT font, bool redraw);
    void TakeSystemLook();
    void UpdateMetrics();
    void UpdateScrollBars();
    void UpdateBarPositions();
    void TakeClientSize();
    void OnScroll(int bar, WPARAM wParam);
    void OnWheel(WPARAM wParam);
    void ScrollTo(int bar, int position);
    [[nodiscard]] int ScrollTarget(int bar, WPARAM wParam) const;

    // grid_keyboard.cpp
    [[nodiscard]] LRESULT DialogCode(const MSG* message) const;
    bool OnKeyDown(WPARAM key);
    bool OnShortcut(WPARAM key, bool isShiftDown);
    bool OnSystemKeyDown(WPARAM key);
    bool OnCharacter(WPARAM character);

    // grid_mouse.cpp
    void OnButtonDown(POINT point, bool isShiftDown);
    void OnDoubleClick(POINT point);
    void OnMouseMove(POINT point);
    void OnDragTimer();
    void EndDrag();
    bool OnSetCursor() const;
    void BeginColumnDrag(int column, int x);
    void PressCell(GridPosition position, POINT point, bool isShiftDown);
    [[nodiscard]] int DraggableBorderAt(POINT point) const;

    // grid_editing.cpp
    bool BeginEdit(GridPosition position, GridEditStart start);
    void OnEditorEvent(GridEditEvent event, LPARAM edit);
    bool CommitText(GridPosition position, std::string_view text);
    void ToggleCheck(GridPosition position);
    [[nodiscard]] bool ParentAccepts(GridPosition position) const;
    void Copy() const;
    void Paste();

    // grid_current.cpp
    [[nodiscard]] GridRange ValueCells() const;
    void MoveCurrent(GridMovement movement, bool extend);
    template <typename Change>
    void ChangeSelection(const Change& change);
    void TellModelChange(GridPosition currentBefore);
    void TellCurrentCell();
    void TellNewText();
    [[nodiscard]] const std::string& CurrentText() const;
    void Tell(DWORD event, GridPosition position) const;
    LRESULT OnGetObject(WPARAM wParam, LPARAM lParam);

    HWND window_;
    int uses_ = 0;
    GridModel model_;
    GridLayout layout_;
    GridSelection selection_;
    GridFont font_;
    GridMetrics metrics_ = {};
    GridColours colours_ = {};
    int dpi_;
    int toldRows_ = 0;
    std::string toldText_;  ///< of the current cell, as assistive technology knows it
    bool isAdjustingBars_ = false;

    std::unique_ptr<GridEditor> editor_;
    GridPosition edited_;
    LPARAM edit_ = 0;  ///< counts the edits

    WheelCounter verticalWheel_;
    Drag drag_ = Drag::None;
    int draggedColumn_ = 0;
    int dragStart_ = 0;  ///< x of the mouse less the column's width

    std::string accessibleName_;
    GridActionNames actionNames_;
    GridAccessible* accessible_ = nullptr;  ///< counted by COM; held until the window is gone
};

/// Registers the window class "MFCGridCtrl" for a module, so that its dialogs can have grids, and
/// unregisters it. Dialogs must be made with this instance. All windows of the class must be gone
/// before the object.
class GridWindowClass {
  public:
    static constexpr const char* kName = "MFCGridCtrl";

    explicit GridWindowClass(HINSTANCE instance);
    ~GridWindowClass();
    GridWindowClass(const GridWindowClass&) = delete;
    GridWindowClass& operator=(const GridWindowClass&) = delete;

    /// False when the instance has a class of this name already or Windows has no more room.
    [[nodiscard]] bool IsRegistered() const { return isRegistered_; }

  private:
    friend class CGridCtrl;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HINSTANCE instance_;
    bool isRegistered_;
};

}  // namespace orvell::ui
