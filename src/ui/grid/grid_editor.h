#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "ui/grid/grid_cell.h"
#include "ui/grid/grid_layout.h"

namespace orvell::ui {

/// Sent by an editor to its grid; wParam tells the event, lParam which edit it belongs to.
inline constexpr UINT kGridEditorMessage = WM_USER + 1;

/// How a user ends an edit.
enum class GridEditEvent : WPARAM {
    Accept,          ///< the editor has lost the focus or a choice was made
    AcceptDown,      ///< Enter
    AcceptUp,        ///< Shift+Enter
    AcceptNext,      ///< Tab
    AcceptPrevious,  ///< Shift+Tab
    Cancel,          ///< Escape
};

/// What an editor shows at first.
enum class GridEditStart {
    WholeText,  ///< the cell's text, selected
    Nothing,    ///< nothing, for a character that was typed
    DropDown,   ///< as WholeText, and a combo cell's list opens
};

/// Where an editor opens.
struct GridEditorPlace {
    HWND grid;
    GridRect cell;  ///< what can be seen of it, without lines
    HFONT font;
    int frame;    ///< thickness of the current cell's frame
    int padding;  ///< between the cell's edge and its text
    LPARAM edit;  ///< identifies the edit towards the grid
};

/// An editor in a cell's place: a child window of the grid. It tells the grid by
/// `kGridEditorMessage` how the user ends the edit, and takes part in nothing else.
class GridEditor {
  public:
    virtual ~GridEditor();
    GridEditor(const GridEditor&) = delete;
    GridEditor& operator=(const GridEditor&) = delete;

    [[nodiscard]] HWND Window() const { return window_; }

    /// What the user has entered; none when the cell's text stays.
    [[nodiscard]] virtual std::optional<std::string> Text() const = 0;

    /// Opens the list of choices, if there is one. Needs the focus.
    virtual void DropDown();

    /// The child has sent WM_COMMAND with this notification.
    virtual void OnCommand(UINT notification);

  protected:
    /// The window may be missing when Windows has no more: then the editor answers with nothing.
    GridEditor(const GridEditorPlace& place, const GridRect& rect, const char* windowClass,
               DWORD style);

    void Tell(GridEditEvent event) const;
    void PostAccept() const;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    [[nodiscard]] bool OnKey(WPARAM key) const;

    HWND grid_;
    LPARAM edit_;
    HWND window_ = nullptr;
    WNDPROC original_ = nullptr;
};

/// Opens an editor for a cell, without giving it the focus: a list of choices when `choices` is not
/// null, else a text field. Null when Windows gives no window.
[[nodiscard]] std::unique_ptr<GridEditor> MakeGridEditor(const GridEditorPlace& place,
                                                         const CGridCellBase& cell,
                                                         const GridChoices* choices,
                                                         GridEditStart start);

}  // namespace orvell::ui
