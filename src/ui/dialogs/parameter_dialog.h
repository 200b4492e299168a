#pragma once

#include <windows.h>

#include <commctrl.h>

#include "ui/dialogs/dialog_layout.h"
#include "ui/dialogs/modal_dialog.h"
#include "ui/dialogs/parameter_editor.h"
#include "ui/dialogs/parameter_form.h"
#include "ui/dialogs/vector_choice.h"
#include "ui/grid/grid_control.h"

namespace orvell::ui {

/// Shows the value of a parameter as a grid of elements and lets the user edit it. `HasStored`
/// tells afterwards whether the record has been changed and, online, the target system as well;
/// otherwise the record is unchanged. The class of the grid's window must be registered.
class ParameterDialog final : public ModalDialog {
  public:
    /// `record` may be null: the dialog then ends by itself. All must outlive the dialog.
    ParameterDialog(DialogParameterRecord* record, const OnlineAccessRecord& host,
                    const EditorServices& services);

    /// What was accepted stays accepted, whatever becomes of the window afterwards.
    [[nodiscard]] bool HasStored() const { return hasStored_; }

  protected:
    bool OnInit() override;
    void OnCommand(int control, int code) override;
    std::optional<LRESULT> OnNotify(const NMHDR& notification) override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM first, LPARAM second) override;
    void OnClose() override;

  private:
    class Scope;

    // Start (parameter_dialog_start.cpp)
    void SetUpSymbols();
    void SetUpBoxWidth();
    void SetUpVector();
    void SetUpGrid();
    void SetUpLayout();
    void SetUpFormats();
    void OpenValue();

    // Controls
    void ShowVectorChoice();
    void OnVectorClicked();
    void OnLengthChanged();
    void OnLengthLeft();
    void ApplyLength(ParameterForm::DroppedElements dropped);
    void OnFormatChosen();
    LRESULT OnSpin(const NMUPDOWN& spin);

    // Acceptance
    void Accept();
    [[nodiscard]] bool WriteOnline();
    [[nodiscard]] bool WriteSingleValue();

    // Size (parameter_dialog_start.cpp)
    [[nodiscard]] int HeightOfRows(int count) const;
    void FitHeightToRows();
    void OnSize();
    void FitColumns();
    void ShowRows();

    /// The controls hear of the system's look through their parent only.
    void TellControls(UINT message, WPARAM first, LPARAM second) const;

    [[nodiscard]] bool HasGrid() const;
    [[nodiscard]] CGridCtrl& Grid() const;

    const EditorServices& services_;
    const OnlineAccessRecord& host_;
    ParameterForm form_;
    VectorChoice vector_;
    DialogLayout layout_;
    SIZE minimumSize_{};
    DialogResources::Icon largeSymbol_;
    DialogResources::Icon smallSymbol_;
    bool isFilled_ = false;    ///< the grid shows the record's value
    bool isUpdating_ = false;  ///< changes of controls are the dialog's own
    bool isSpinning_ = false;  ///< the length's change comes from its spin
    bool hasStored_ = false;
    bool isAccepting_ = false;  ///< messages that come in meanwhile change nothing
};

}  // namespace orvell::ui
