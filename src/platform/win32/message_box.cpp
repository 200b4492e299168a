#include "platform/message_box.h"

#include <windows.h>

namespace orvell::platform {

namespace {

UINT Style(const Message& message, UINT buttons) {
    UINT style = buttons;
    switch (message.symbol) {
        case MessageSymbol::None:
            break;
        case MessageSymbol::Error:
            style |= MB_ICONERROR;
            break;
        case MessageSymbol::Exclamation:
            style |= MB_ICONEXCLAMATION;
            break;
        case MessageSymbol::Question:
            style |= MB_ICONQUESTION;
            break;
    }
    return message.topMost ? style | MB_TOPMOST : style;
}

/// The identifier of the button that was pressed, 0 when the box could not be shown.
int ShowBox(const Message& message, UINT buttons) {
    return MessageBoxA(static_cast<HWND>(message.owner), message.text.c_str(),
                       message.caption.c_str(), Style(message, buttons));
}

class SystemBoxes final : public MessageBoxes {
  public:
    void Show(const Message& message) override { ShowBox(message, MB_OK); }

    bool Ask(const Message& question) override { return ShowBox(question, MB_YESNO) == IDYES; }
};

}  // namespace

MessageBoxes& SystemMessageBoxes() {
    static SystemBoxes boxes;
    return boxes;
}

}  // namespace orvell::platform
