#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "ui/dialogs/dialog_resources.h"

namespace orvell::ui {

/// A modal dialog made from a template of the module's resources. It lives on the stack of the
/// function that shows it:
///
///     TransferDialog dialog(...);
///     if (dialog.Run(owner) == IDOK) ...
///
/// The window may go while a handler is still at work, when the handler lets messages through and
/// the owner is destroyed meanwhile: `Window` is null from then on. No exception of a handler
/// leaves the window procedure; one from `OnInit` ends the dialog.
class ModalDialog {
  public:
    ModalDialog(const ModalDialog&) = delete;
    ModalDialog& operator=(const ModalDialog&) = delete;

    /// Shows the dialog until it ends; the result given to `End`, IDCANCEL when the window was
    /// destroyed, and when it could not be created: no such template, dead owner, no display.
    int Run(HWND owner);

    [[nodiscard]] HWND Window() const { return window_; }

  protected:
    ModalDialog(const DialogResources& resources, int templateNumber)
        : resources_(resources), templateNumber_(templateNumber) {}
    virtual ~ModalDialog() = default;

    /// The window and its controls are there but not yet shown. False: has set the focus itself.
    virtual bool OnInit() = 0;

    /// A control tells something: WM_COMMAND with its number and notification code.
    virtual void OnCommand(int /*control*/, int /*code*/) {}

    /// The result of the notification; none for one that is not known.
    virtual std::optional<LRESULT> OnNotify(const NMHDR& /*notification*/) { return std::nullopt; }

    /// Any other message: its result, none when the dialog does not treat it.
    virtual std::optional<LRESULT> OnMessage(UINT /*message*/, WPARAM /*first*/,
                                             LPARAM /*second*/) {
        return std::nullopt;
    }

    /// The user closes the window, Windows' way or by the Escape key.
    virtual void OnClose() { End(IDCANCEL); }

    /// The window goes; its controls are still there.
    virtual void OnDestroy() {}

    void End(int result);

    [[nodiscard]] const DialogResources& Resources() const { return resources_; }
    [[nodiscard]] HWND Control(int number) const { return GetDlgItem(window_, number); }
    void Enable(int control, bool isEnabled) const;
    void Show(int control, bool isVisible) const;
    void SetText(int control, const std::string& text) const;

    /// The decimal number that the control's text begins with, 0 when there is none.
    [[nodiscard]] unsigned int Number(int control) const;

  private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);

    [[nodiscard]] bool Begin(HWND window) noexcept;
    [[nodiscard]] std::optional<LRESULT> Dispatch(UINT message, WPARAM first, LPARAM second);
    [[nodiscard]] std::optional<LRESULT> DispatchGuarded(UINT message, WPARAM first,
                                                         LPARAM second) noexcept;

    DialogResources resources_;
    int templateNumber_;
    HWND window_ = nullptr;
};

/// Centres a window on its owner, or on its monitor when the owner is not to be seen, and keeps it
/// on that monitor.
void PlaceOnOwnersMonitor(HWND window);

/// Shows the wait cursor while it lives.
class WaitCursor {
  public:
    WaitCursor() : before_(SetCursor(LoadCursor(nullptr, IDC_WAIT))) {}
    ~WaitCursor() { SetCursor(before_); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

  private:
    HCURSOR before_;
};

}  // namespace orvell::ui
