#include "ui/grid/grid_accessible.h"

#include <memory>

#include "ui/grid/accessible_call.h"

namespace orvell::ui {
namespace {

/// A reference to the description of IAccessible; none on systems without its type library.
class AccessibleTypeInfo {
  public:
    AccessibleTypeInfo() {
        ITypeLib* library = nullptr;
        if (SUCCEEDED(LoadRegTypeLib(LIBID_Accessibility, 1, 1, LOCALE_NEUTRAL, &library))) {
            library->GetTypeInfoOfGuid(IID_IAccessible, &info_);
            library->Release();
        }
    }
    ~AccessibleTypeInfo() {
        if (info_ != nullptr) {
            info_->Release();
        }
    }
    AccessibleTypeInfo(const AccessibleTypeInfo&) = delete;
    AccessibleTypeInfo& operator=(const AccessibleTypeInfo&) = delete;

    [[nodiscard]] ITypeInfo* Get() const { return info_; }

  private:
    ITypeInfo* info_ = nullptr;
};

}  // namespace

HRESULT GridAccessible::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) {
        return E_POINTER;
    }
    const bool isKnown = iid == IID_IUnknown || iid == IID_IDispatch || iid == IID_IAccessible;
    *object = isKnown ? this : nullptr;
    if (!isKnown) {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

ULONG GridAccessible::AddRef() {
    return ++references_;
}

ULONG GridAccessible::Release() {
    const ULONG left = --references_;
    if (left == 0) {
        const std::unique_ptr<GridAccessible> ended(this);
    }
    return left;
}

HRESULT GridAccessible::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) {
        return E_POINTER;
    }
    *count = AccessibleTypeInfo().Get() == nullptr ? 0 : 1;
    return S_OK;
}

HRESULT GridAccessible::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    if (info == nullptr) {
        return E_POINTER;
    }
    *info = nullptr;
    const AccessibleTypeInfo type;
    if (index != 0 || type.Get() == nullptr) {
        return DISP_E_BADINDEX;
    }
    type.Get()->AddRef();
    *info = type.Get();
    return S_OK;
}

HRESULT GridAccessible::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    const AccessibleTypeInfo type;
    return type.Get() == nullptr ? E_NOTIMPL : DispGetIDsOfNames(type.Get(), names, count, ids);
}

HRESULT GridAccessible::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                               VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) {
    const AccessibleTypeInfo type;
    return type.Get() == nullptr ? E_NOTIMPL
                                 : DispInvoke(static_cast<IAccessible*>(this), type.Get(), member,
                                              flags, parameters, result, exception, wrongArgument);
}

HRESULT GridAccessible::get_accParent(IDispatch** parent) {
    if (parent == nullptr) {
        return E_POINTER;
    }
    *parent = nullptr;
    return Answer([&] {
        return AccessibleObjectFromWindow(grid_->Window(), static_cast<DWORD>(OBJID_WINDOW),
                                          IID_IDispatch, reinterpret_cast<void**>(parent));
    });
}

HRESULT GridAccessible::get_accChildCount(LONG* count) {
    if (count == nullptr) {
        return E_POINTER;
    }
    *count = 0;
    return Answer([&]() -> HRESULT {
        *count = ChildCount();
        return S_OK;
    });
}

/// Cells are simple elements: they have no objects of their own.
HRESULT GridAccessible::get_accChild(VARIANT child, IDispatch** object) {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    return AnswerFor(child, [&](const Element&) -> HRESULT { return S_FALSE; });
}

HRESULT GridAccessible::accNavigate(LONG direction, VARIANT start, VARIANT* end) {
    if (end == nullptr) {
        return E_POINTER;
    }
    VariantInit(end);
    return AnswerFor(start, [&](const Element& element) -> HRESULT {
        if (direction <= NAVDIR_MIN || direction >= NAVDIR_MAX) {
            return E_INVALIDARG;
        }
        const std::optional<GridPosition> found = Neighbour(direction, element);
        if (!found.has_value()) {
            return S_FALSE;
        }
        *end = NumberVariant(grid_->ChildIdOf(*found));
        return S_OK;
    });
}

std::optional<GridAccessible::Element> GridAccessible::ElementOf(const VARIANT& child) const {
    if (child.vt != VT_I4 || child.lVal < 0 || child.lVal > ChildCount()) {
        return std::nullopt;
    }
    return Element{child.lVal == CHILDID_SELF ? GridPosition() : CellNumber(child.lVal)};
}

GridPosition GridAccessible::CellNumber(LONG childId) const {
    const int columns = grid_->Model().GetColumnCount();
    return {static_cast<int>(childId - 1) / columns, static_cast<int>(childId - 1) % columns};
}

LONG GridAccessible::ChildCount() const {
    return grid_->Model().GetRowCount() * grid_->Model().GetColumnCount();
}

std::optional<GridPosition> GridAccessible::Neighbour(LONG direction, const Element& start) const {
    const GridPosition from = start.cell;
    const LONG count = ChildCount();
    const LONG number = grid_->ChildIdOf(from);
    GridPosition to;
    switch (direction) {
        case NAVDIR_FIRSTCHILD:
            to = start.IsGrid() && count > 0 ? CellNumber(1) : to;
            break;
        case NAVDIR_LASTCHILD:
            to = start.IsGrid() && count > 0 ? CellNumber(count) : to;
            break;
        case NAVDIR_NEXT:
            to = !start.IsGrid() && number < count ? CellNumber(number + 1) : to;
            break;
        case NAVDIR_PREVIOUS:
            to = !start.IsGrid() && number > 1 ? CellNumber(number - 1) : to;
            break;
        case NAVDIR_UP:
            to = {from.row - 1, from.column};
            break;
        case NAVDIR_DOWN:
            to = {from.row + 1, from.column};
            break;
        case NAVDIR_LEFT:
            to = {from.row, from.column - 1};
            break;
        default:
            to = {from.row, from.column + 1};
            break;
    }
    const bool isCell = grid_->Model().CellAt(to.row, to.column) != nullptr;
    return isCell ? std::optional(to) : std::nullopt;
}

}  // namespace orvell::ui
