#include "ui/grid/grid_clipboard.h"
#include "ui/grid/grid_clipboard_text.h"
#include "ui/grid/grid_control.h"

namespace orvell::ui {
bool CGridCtrl::CanChange(GridPosition position) const {
    return window_ != nullptr && model_.IsCellEditable(position.row, position.column) &&
           IsWindowEnabled(window_) != 0 && IsWindowEnabled(GetAncestor(window_, GA_ROOT)) != 0;
}

bool CGridCtrl::Activate(GridPosition position, GridEditStart start) {
    const Use use(*this);
    EndEdit(true);
    if (!CanChange(position)) {
        return false;
    }
    SetCurrentCell(position);
    if (model_.GetCellType(position.row, position.column) == GridCellKind::Check) {
        ToggleCheck(position);
        return true;
    }
    return BeginEdit(position, start);
}

bool CGridCtrl::BeginEdit(GridPosition position, GridEditStart start) {
    const CGridCellBase& cell = *model_.CellAt(position.row, position.column);
    const bool isCombo = model_.GetCellType(position.row, position.column) == GridCellKind::Combo;
    const GridChoices choices = model_.GetChoices(position.row, position.column);
    edited_ = position;
    const GridEditorPlace place = {
        .grid = window_,
        .cell = WithoutLine(layout_.VisiblePart(position)),
        .font = cell.Font() == nullptr ? font_.Get() : static_cast<HFONT>(cell.Font()),
        .frame = metrics_.frame,
        .padding = metrics_.padding,
        .edit = ++edit_,
    };
    editor_ = MakeGridEditor(place, cell, isCombo ? &choices : nullptr, start);
    if (editor_ == nullptr) {
        return false;
    }
    SetFocus(editor_->Window());
    if (start == GridEditStart::DropDown && IsEditing()) {
        editor_->DropDown();
    }
    return IsEditing();
}

void CGridCtrl::EndEdit(bool accept) {
    if (editor_ == nullptr) {
        return;
    }
    const Use use(*this);
    // Nothing that follows, the loss of the focus included, finds the edit a second time.
    std::unique_ptr<GridEditor> editor = std::move(editor_);
    const std::optional<std::string> text = accept ? editor->Text() : std::nullopt;
    if (GetFocus() == editor->Window()) {
        SetFocus(window_);
    }
    editor.reset();
    Invalidate(edited_);
    // The model may have changed below the editor.
    if (accept && model_.IsCellEditable(edited_.row, edited_.column)) {
        CommitText(edited_, text.has_value()
                                ? *text
                                : std::string(model_.GetItemText(edited_.row, edited_.column)));
    }
}

void CGridCtrl::OnEditorEvent(GridEditEvent event, LPARAM edit) {
    if (!IsEditing() || edit != edit_) {
        return;  // posted by an editor that is gone
    }
    EndEdit(event != GridEditEvent::Cancel);
    switch (event) {
        case GridEditEvent::AcceptDown:
            return MoveCurrent(GridMovement::Down, false);
        case GridEditEvent::AcceptUp:
            return MoveCurrent(GridMovement::Up, false);
        case GridEditEvent::AcceptNext:
            return MoveCurrent(GridMovement::Next, false);
        case GridEditEvent::AcceptPrevious:
            return MoveCurrent(GridMovement::Previous, false);
        case GridEditEvent::Accept:
        case GridEditEvent::Cancel:
            return;
    }
}

bool CGridCtrl::EnterText(GridPosition position, std::string_view text) {
    const Use use(*this);
    EndEdit(edited_ != position);
    return CanChange(position) && model_.TakesText(position.row, position.column, text) &&
           CommitText(position, text);
}

bool CGridCtrl::CommitText(GridPosition position, std::string_view text) {
    const std::string before = model_.GetItemText(position.row, position.column);
    model_.SetItemText(position.row, position.column, text);
    const bool isAccepted = ParentAccepts(position);
    if (!isAccepted) {
        model_.SetItemText(position.row, position.column, before);
    }
    Invalidate(position);
    if (position == selection_.Current()) {
        TellNewText();
    } else if (model_.GetItemText(position.row, position.column) != before) {
        Tell(EVENT_OBJECT_VALUECHANGE, position);
    }
    return isAccepted;
}

void CGridCtrl::ToggleCheck(GridPosition position) {
    const std::uint32_t before = model_.GetItemState(position.row, position.column);
    model_.SetItemState(position.row, position.column, before ^ kGridCellChecked);
    if (!ParentAccepts(position)) {
        model_.SetItemState(position.row, position.column, before);
    }
    Invalidate(position);
    Tell(EVENT_OBJECT_STATECHANGE, position);
}

bool CGridCtrl::ParentAccepts(GridPosition position) const {
    GridNotification notification = {};
    notification.header.hwndFrom = window_;
    notification.header.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(window_));
    notification.header.code = kGridEndEdit;
    notification.row = position.row;
    notification.column = position.column;
    return SendMessageA(GetParent(window_), WM_NOTIFY, notification.header.idFrom,
                        reinterpret_cast<LPARAM>(&notification)) == 0;
}

void CGridCtrl::Copy() const {
    if (!selection_.Current().IsNone()) {
        PutOnClipboard(window_, CopiedText(model_, selection_));
    }
}

/// Each line is an edit of its own: while the parent hears of it, it may even change the grid.
void CGridCtrl::Paste() {
    const Use use(*this);
    const std::string text = TextOnClipboard(window_);
    GridPosition cell = selection_.Current();
    ClipboardLines lines(text);
    while (window_ != nullptr && !cell.IsNone() && cell.row < model_.GetRowCount()) {
        const auto line = lines.Next();
        if (!line.has_value()) {
            return;
        }
        EnterText(cell, *line);
        ++cell.row;
    }
}

}  // namespace orvell::ui
