#include <memory>

#include "ui/grid/accessible_call.h"
#include "ui/grid/child_numbers.h"
#include "ui/grid/grid_painter.h"

namespace orvell::ui {
namespace {

constexpr LONG kNowhere = STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE;
constexpr LONG kSelectFlags = SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION | SELFLAG_EXTENDSELECTION;

std::optional<std::string> NoText(const auto&) {
    return std::nullopt;
}

}  // namespace

HRESULT GridAccessible::get_accName(VARIANT child, BSTR* name) {
    return AnswerText(child, name, [&](const Element& element) -> std::optional<std::string> {
        if (element.IsGrid()) {
            return grid_->AccessibleName();
        }
        const auto [row, column] = element.cell;
        const bool isValue = grid_->Model().IsValueCell(row, column);
        return grid_->Model().GetItemText(row, isValue ? 0 : column);
    });
}

HRESULT GridAccessible::get_accValue(VARIANT child, BSTR* value) {
    return AnswerText(child, value, [&](const Element& element) -> std::optional<std::string> {
        if (element.IsGrid()) {
            return std::nullopt;
        }
        return grid_->Model().GetItemText(element.cell.row, element.cell.column);
    });
}

HRESULT GridAccessible::get_accDescription(VARIANT child, BSTR* description) {
    return AnswerText(child, description, NoText<Element>);
}

HRESULT GridAccessible::get_accRole(VARIANT child, VARIANT* role) {
    if (role == nullptr) {
        return E_POINTER;
    }
    VariantInit(role);
    return AnswerFor(child, [&](const Element& element) -> HRESULT {
        *role = NumberVariant(RoleOf(element));
        return S_OK;
    });
}

HRESULT GridAccessible::get_accState(VARIANT child, VARIANT* state) {
    if (state == nullptr) {
        return E_POINTER;
    }
    VariantInit(state);
    return AnswerFor(child, [&](const Element& element) -> HRESULT {
        *state = NumberVariant(element.IsGrid() ? StateOfGrid() : StateOfCell(element.cell));
        return S_OK;
    });
}

HRESULT GridAccessible::get_accHelp(VARIANT child, BSTR* help) {
    return AnswerText(child, help, NoText<Element>);
}

HRESULT GridAccessible::get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) {
    if (topic == nullptr) {
        return E_POINTER;
    }
    *topic = 0;
    return AnswerText(child, file, NoText<Element>);
}

HRESULT GridAccessible::get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) {
    return AnswerText(child, shortcut, NoText<Element>);
}

HRESULT GridAccessible::get_accDefaultAction(VARIANT child, BSTR* action) {
    return AnswerText(child, action, [&](const Element& element) -> std::optional<std::string> {
        if (!grid_->CanChange(element.cell)) {
            return std::nullopt;
        }
        const bool isCheck = RoleOf(element) == ROLE_SYSTEM_CHECKBUTTON;
        const GridActionNames& names = grid_->ActionNames();
        const std::string& name = isCheck ? names.toggle : names.edit;
        return name.empty() ? std::nullopt : std::optional(name);
    });
}

HRESULT GridAccessible::accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                    VARIANT child) {
    if (left == nullptr || top == nullptr || width == nullptr || height == nullptr) {
        return E_POINTER;
    }
    *left = *top = *width = *height = 0;
    return AnswerFor(child, [&](const Element& element) -> HRESULT {
        const RECT rect = ScreenRectOf(element);
        *left = rect.left;
        *top = rect.top;
        *width = rect.right - rect.left;
        *height = rect.bottom - rect.top;
        return S_OK;
    });
}

HRESULT GridAccessible::accHitTest(LONG left, LONG top, VARIANT* child) {
    if (child == nullptr) {
        return E_POINTER;
    }
    VariantInit(child);
    return Answer([&]() -> HRESULT {
        POINT point = {left, top};
        ScreenToClient(grid_->Window(), &point);
        const GridLayout& layout = grid_->Layout();
        if (!GridRect{0, 0, layout.ClientWidth(), layout.ClientHeight()}.Contains(point.x,
                                                                                  point.y)) {
            return S_FALSE;
        }
        const auto cell = layout.CellAtPoint(point.x, point.y);
        *child = NumberVariant(grid_->ChildIdOf(cell.value_or(GridPosition())));
        return S_OK;
    });
}

HRESULT GridAccessible::get_accFocus(VARIANT* child) {
    if (child == nullptr) {
        return E_POINTER;
    }
    VariantInit(child);
    return Answer([&]() -> HRESULT {
        if (!HasFocus()) {
            return S_FALSE;
        }
        *child = NumberVariant(grid_->ChildIdOf(grid_->Selection().Current()));
        return S_OK;
    });
}

HRESULT GridAccessible::get_accSelection(VARIANT* children) {
    if (children == nullptr) {
        return E_POINTER;
    }
    VariantInit(children);
    return Answer([&]() -> HRESULT {
        const GridSelection& selection = grid_->Selection();
        const GridPosition current = selection.Current();
        if (current.IsNone()) {
            return S_FALSE;
        }
        if (!selection.IsRange()) {
            *children = NumberVariant(grid_->ChildIdOf(current));
            return S_OK;
        }
        const LONG first = grid_->ChildIdOf({selection.FirstRow(), current.column});
        const ULONG count = static_cast<ULONG>(selection.LastRow() - selection.FirstRow()) + 1;
        auto numbers =
            std::make_unique<ChildNumbers>(first, grid_->Model().GetColumnCount(), count);
        children->vt = VT_UNKNOWN;
        children->punkVal = numbers.release();
        return S_OK;
    });
}

HRESULT GridAccessible::accSelect(LONG flags, VARIANT child) {
    return AnswerFor(child, [&](const Element& element) -> HRESULT {
        if (!element.IsGrid()) {
            return Select(flags, element.cell);
        }
        if (flags != SELFLAG_TAKEFOCUS) {
            return E_INVALIDARG;
        }
        SetFocus(grid_->Window());
        return S_OK;
    });
}

HRESULT GridAccessible::Select(LONG flags, GridPosition cell) const {
    const bool isExtended = (flags & SELFLAG_EXTENDSELECTION) != 0;
    const bool isContradiction = isExtended && (flags & SELFLAG_TAKESELECTION) != 0;
    if (flags == SELFLAG_NONE || (flags & ~kSelectFlags) != 0 || isContradiction ||
        !grid_->Model().IsValueCell(cell.row, cell.column)) {
        return E_INVALIDARG;
    }
    grid_->EndEdit(true);
    if (grid_ != nullptr && (flags & SELFLAG_TAKEFOCUS) != 0) {
        SetFocus(grid_->Window());
    }
    if (grid_ == nullptr) {  // the parent has ended it
        return CO_E_OBJNOTCONNECTED;
    }
    if (isExtended) {
        grid_->ExtendSelection(cell.row);
    } else {
        grid_->SetCurrentCell(cell);
    }
    return S_OK;
}

HRESULT GridAccessible::accDoDefaultAction(VARIANT child) {
    return AnswerFor(child, [&](const Element& element) -> HRESULT {
        if (!grid_->CanChange(element.cell)) {
            return DISP_E_MEMBERNOTFOUND;
        }
        return grid_->Activate(element.cell, GridEditStart::WholeText) ? S_OK : E_FAIL;
    });
}

HRESULT GridAccessible::put_accName(VARIANT child, BSTR) {
    return AnswerFor(child, [](const Element&) -> HRESULT { return DISP_E_MEMBERNOTFOUND; });
}

HRESULT GridAccessible::put_accValue(VARIANT child, BSTR value) {
    return AnswerFor(child, [&](const Element& element) -> HRESULT {
        if (!grid_->CanChange(element.cell)) {
            return E_ACCESSDENIED;
        }
        const std::string text = ToAnsi({value, SysStringLen(value)});
        return grid_->EnterText(element.cell, text) ? S_OK : E_INVALIDARG;
    });
}

LONG GridAccessible::RoleOf(const Element& element) const {
    if (element.IsGrid()) {
        return ROLE_SYSTEM_TABLE;
    }
    const auto [row, column] = element.cell;
    if (row < grid_->Model().GetFixedRowCount()) {
        return ROLE_SYSTEM_COLUMNHEADER;
    }
    return grid_->Model().GetCellType(row, column) == GridCellKind::Check ? ROLE_SYSTEM_CHECKBUTTON
                                                                          : ROLE_SYSTEM_CELL;
}

LONG GridAccessible::StateOfGrid() const {
    LONG state = STATE_SYSTEM_FOCUSABLE;
    state |= HasFocus() ? STATE_SYSTEM_FOCUSED : 0;
    state |= IsWindowEnabled(grid_->Window()) != 0 ? 0 : STATE_SYSTEM_UNAVAILABLE;
    state |= IsWindowVisible(grid_->Window()) != 0 ? 0 : STATE_SYSTEM_INVISIBLE;
    return state;
}

LONG GridAccessible::StateOfCell(GridPosition cell) const {
    const auto [row, column] = cell;
    const GridModel& model = grid_->Model();
    LONG state = model.IsCellEditable(row, column) ? 0 : STATE_SYSTEM_READONLY;
    if (model.IsValueCell(row, column)) {
        state |= STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
    }
    state |= grid_->Selection().Contains(cell) ? STATE_SYSTEM_SELECTED : 0;
    state |= grid_->Selection().Current() == cell ? STATE_SYSTEM_FOCUSED : 0;
    if (model.GetCellType(row, column) == GridCellKind::Check) {
        state |=
            (model.GetItemState(row, column) & kGridCellChecked) != 0 ? STATE_SYSTEM_CHECKED : 0;
    }
    state |= grid_->Layout().VisiblePart(cell).IsEmpty() ? kNowhere : 0;
    state |= IsWindowEnabled(grid_->Window()) != 0 ? 0 : STATE_SYSTEM_UNAVAILABLE;
    return state;
}

RECT GridAccessible::ScreenRectOf(const Element& element) const {
    const GridLayout& layout = grid_->Layout();
    RECT rect = element.IsGrid() ? RECT{0, 0, layout.ClientWidth(), layout.ClientHeight()}
                                 : ToRect(layout.CellRect(element.cell));
    MapWindowPoints(grid_->Window(), nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

bool GridAccessible::HasFocus() const {
    const HWND focus = GetFocus();
    return focus != nullptr && (focus == grid_->Window() || IsChild(grid_->Window(), focus) != 0);
}

}  // namespace orvell::ui
