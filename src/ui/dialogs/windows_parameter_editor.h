#pragma once

#include <optional>

#include "ui/dialogs/parameter_editor.h"
#include "ui/grid/grid_control.h"

namespace orvell::ui {

/// Shows the parameter dialog. The window class of its grid is registered with the first dialog and
/// gone with this object.
class WindowsParameterEditor final : public ParameterEditor {
  public:
    [[nodiscard]] bool Edit(DialogParameterRecord* record, const OnlineAccessRecord& host,
                            const EditorServices& services) override;

  private:
    std::optional<GridWindowClass> gridClass_;
};

}  // namespace orvell::ui
