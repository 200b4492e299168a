#pragma once

#include <windows.h>

#include <oleacc.h>

#include <atomic>
#include <optional>

#include "ui/grid/grid_movement.h"

// COM's interfaces have no virtual destructor: objects end by their own Release.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace orvell::ui {

class CGridCtrl;

/// The grid as assistive technology sees it (Microsoft Active Accessibility): a table whose cells
/// are simple elements, numbered row by row from 1. It may outlive the grid: after `Disconnect` all
/// calls of IAccessible answer CO_E_OBJNOTCONNECTED. Counted by COM; the creator has the first
/// reference.
class GridAccessible final : public IAccessible {
  public:
    explicit GridAccessible(CGridCtrl& grid) : grid_(&grid) {}
    GridAccessible(const GridAccessible&) = delete;
    GridAccessible& operator=(const GridAccessible&) = delete;

    /// The grid's window is going.
    void Disconnect() { grid_ = nullptr; }

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // IDispatch, from the type library that comes with Windows
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrongArgument) override;

    // IAccessible: structure
    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override;
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override;
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override;
    HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* end) override;

    // IAccessible: what a cell is
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override;
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) override;
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override;
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override;
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* help) override;
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override;
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override;
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override;

    // IAccessible: place and selection
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                          VARIANT child) override;
    HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override;
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override;
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override;
    HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override;

    // IAccessible: changes
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override;
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT child, BSTR name) override;
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) override;

  private:
    /// The object itself or one of its cells.
    struct Element {
        GridPosition cell;  ///< none for the object itself
        [[nodiscard]] bool IsGrid() const { return cell.IsNone(); }
    };

    template <typename Body>
    HRESULT Answer(const Body& body) const;
    template <typename Body>
    HRESULT AnswerFor(const VARIANT& child, const Body& body) const;
    template <typename Body>
    HRESULT AnswerText(const VARIANT& child, BSTR* text, const Body& body) const;

    [[nodiscard]] std::optional<Element> ElementOf(const VARIANT& child) const;
    [[nodiscard]] std::optional<GridPosition> Neighbour(LONG direction, const Element& start) const;
    [[nodiscard]] GridPosition CellNumber(LONG childId) const;
    [[nodiscard]] LONG ChildCount() const;
    [[nodiscard]] LONG RoleOf(const Element& element) const;
    [[nodiscard]] LONG StateOfGrid() const;
    [[nodiscard]] LONG StateOfCell(GridPosition cell) const;
    [[nodiscard]] RECT ScreenRectOf(const Element& element) const;
    [[nodiscard]] bool HasFocus() const;
    HRESULT Select(LONG flags, GridPosition cell) const;

    std::atomic<ULONG> references_ = 1;
    CGridCtrl* grid_;
};

}  // namespace orvell::ui

#pragma GCC diagnostic pop
