#include "ui/dialogs/windows_parameter_editor.h"

#include "ui/dialogs/parameter_dialog.h"

namespace orvell::ui {

bool WindowsParameterEditor::Edit(DialogParameterRecord* record, const OnlineAccessRecord& host,
                                  const EditorServices& services) {
    if (!gridClass_.has_value()) {
        gridClass_.emplace(static_cast<HINSTANCE>(services.instance));
    }
    // A record without an owner window gives a dialog without one.
    const auto owner = static_cast<HWND>(record == nullptr ? nullptr : record->owner);
    ParameterDialog dialog(record, host, services);
    dialog.Run(owner);
    return dialog.HasStored();
}

}  // namespace orvell::ui
