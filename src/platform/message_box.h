#pragma once

#include <string>

namespace orvell::platform {

/// Opaque window handle (HWND); null means none.
using WindowHandle = void*;

enum class MessageSymbol { None, Error, Exclamation, Question };

/// What a message box shows. Texts are in the ANSI code page.
struct Message {
    WindowHandle owner = nullptr;  ///< null: no owner
    std::string text;
    std::string caption;
    MessageSymbol symbol = MessageSymbol::None;
    bool topMost = false;
};

/// Shows messages to the user; tests record them instead.
class MessageBoxes {
  public:
    MessageBoxes() = default;
    MessageBoxes(const MessageBoxes&) = delete;
    MessageBoxes& operator=(const MessageBoxes&) = delete;
    virtual ~MessageBoxes() = default;

    /// Shows the message with an OK button and returns when it has been answered, or at once when
    /// no window can be shown (no display, owner window gone).
    virtual void Show(const Message& message) = 0;

    /// Asks with the buttons Yes and No. True only for Yes; false also when no window can be shown.
    [[nodiscard]] virtual bool Ask(const Message& question) = 0;
};

/// The message boxes of Windows.
[[nodiscard]] MessageBoxes& SystemMessageBoxes();

}  // namespace orvell::platform
