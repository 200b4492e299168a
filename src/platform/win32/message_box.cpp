#include "platform/message_box.h"

#include <windows.h>

namespace orvell::platform {

namespace {

UINT Style(const Message& message) {
    UINT style = MB_OK;
    switch (message.symbol) {
        case MessageSymbol::None:
            break;
        case MessageSymbol::Error:
            style |= MB_ICONERROR;
            break;
        case MessageSymbol::Exclamation:
            style |= MB_ICONEXCLAMATION;
            break;
    }
    return message.topMost ? style | MB_TOPMOST : style;
}

class SystemBoxes final : public MessageBoxes {
  public:
    void Show(const Message& message) override {
        MessageBoxA(static_cast<HWND>(message.owner), message.text.c_str(), message.caption.c_str(),
                    Style(message));
    }
};

}  // namespace

MessageBoxes& SystemMessageBoxes() {
    static SystemBoxes boxes;
    return boxes;
}

}  // namespace orvell::platform
