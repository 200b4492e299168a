#pragma once

#include <windows.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace orvell::test {

/// Sits before the dialogs of one thread and works them from another: looks for windows, presses,
/// types and reads. What does not come within some seconds throws `TookTooLong`.
class DialogUser {
  public:
    struct TookTooLong : std::runtime_error {
        using runtime_error::runtime_error;
    };

    explicit DialogUser(HWND deskOfThread) : desk_(deskOfThread) {}

    /// The dialog that has this control, once it is shown.
    [[nodiscard]] HWND Dialog(int control) const;

    /// The message box that is open, once it is shown.
    [[nodiscard]] HWND MessageBox() const;
    [[nodiscard]] static std::string TextOfBox(HWND box);

    /// Waits for a message box, answers it with OK and returns its text.
    std::string AnswerBox() const;

    /// Runs something on the thread that shows the dialogs, which must be waiting for messages.
    void OnThread(const std::function<void()>& work) const;

    /// Presses a button without waiting for what comes of it.
    static void Press(HWND dialog, int button);

    /// Waits until a condition holds.
    static void WaitUntil(const char* what, const std::function<bool()>& condition);
    static void WaitUntilGone(HWND window);

    /// Puts a text into an edit, as a program does.
    static void SetText(HWND dialog, int control, std::string_view text);
    [[nodiscard]] static std::string Text(HWND dialog, int control);
    [[nodiscard]] static std::string TextOf(HWND window);

    /// Types characters into a control, which gets the focus.
    void Type(HWND control, std::string_view characters) const;

    /// Presses a key in whatever has the focus.
    void PressKey(WPARAM key) const;

    /// All visible dialogs of the thread.
    [[nodiscard]] int DialogCount() const;

  private:
    [[nodiscard]] HWND FindDialog(const std::function<bool(HWND)>& isWanted) const;

    HWND desk_;
};

/// Calls `show`, which opens dialogs, while a user works them by `script` on another thread. A
/// script that fails, or leaves dialogs open, fails the test; the dialogs are then closed.
void WorkDialogs(const std::function<void()>& show,
                 const std::function<void(const DialogUser&)>& script);

}  // namespace orvell::test
