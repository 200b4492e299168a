#pragma once

#include <string>

#include "platform/message_box.h"
#include "ui/dialogs/parameter_editor.h"

namespace orvell::ui {

/// Shows an error with the error caption and an OK button, above everything when no window owns it.
inline void ShowError(const EditorServices& services, platform::WindowHandle owner,
                      const std::string& text) {
    services.messageBoxes.Show({.owner = owner,
                                .text = text,
                                .caption = services.strings.Text(resources::StringId::ErrorCaption),
                                .symbol = platform::MessageSymbol::Error,
                                .topMost = owner == nullptr});
}

inline void ShowError(const EditorServices& services, platform::WindowHandle owner,
                      resources::StringId message) {
    ShowError(services, owner, services.strings.Text(message));
}

}  // namespace orvell::ui
