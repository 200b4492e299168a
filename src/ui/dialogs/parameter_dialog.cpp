#include "ui/dialogs/parameter_dialog.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "memstruct/online_transfer.h"
#include "resources/dialog_ids.h"
#include "ui/dialogs/error_message.h"
#include "ui/dialogs/size_grip.h"
#include "ui/dialogs/transfer_dialog.h"

namespace orvell::ui {

using memstruct::TypeDef;
using resources::StringId;
using DroppedElements = ParameterForm::DroppedElements;

namespace {

/// For a writing that cannot be cancelled.
class UnwatchedTransfer final : public memstruct::TransferWatch {
  public:
    [[nodiscard]] bool IsCancelled() override { return false; }
    void AddProgress(std::uint32_t /*bytes*/) override {}
};

/// The number that a spin's click leads to, a multiple of `step`.
unsigned int Spun(unsigned int number, int change, unsigned int step, unsigned int smallest,
                  unsigned int largest) {
    const int to = static_cast<int>(std::min(number, largest)) + change;
    const int wholeSteps = static_cast<int>(step);
    const int rounded =
        change > 0 ? to - to % wholeSteps : to + (wholeSteps - to % wholeSteps) % wholeSteps;
    return std::clamp(static_cast<unsigned int>(std::max(rounded, 0)), smallest, largest);
}

}  // namespace

/// Sets a flag while it lives.
class ParameterDialog::Scope {
  public:
    explicit Scope(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~Scope() { flag_ = before_; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

  private:
    bool& flag_;
    bool before_;
};

ParameterDialog::ParameterDialog(DialogParameterRecord* record, const OnlineAccessRecord& host,
                                 const EditorServices& services)
    : ModalDialog(
          {static_cast<HINSTANCE>(services.instance), static_cast<HMODULE>(services.resources)},
          ORVELL_DIALOG_PARAMETER),
      services_(services),
      host_(host),
      form_(record, {services.store, services.converters, services.strings}),
      vector_(record == nullptr ? 1 : record->count) {}

bool ParameterDialog::OnInit() {
    if (!HasGrid()) {  // a translated template may lack it
        End(IDCANCEL);
        return true;
    }
    const Scope updating(isUpdating_);
    SetUpSymbols();
    SetUpBoxWidth();
    SetUpVector();
    SetUpGrid();
    PlaceOnOwnersMonitor(Window());
    SetUpLayout();
    OpenValue();
    if (isFilled_) {
        FitHeightToRows();
    } else {
        Enable(IDOK, false);
        PostMessageW(Window(), WM_CLOSE, 0, 0);
    }
    return true;
}

void ParameterDialog::OnCommand(int control, int code) {
    if (isUpdating_ || !isFilled_ || isAccepting_) {
        return;
    }
    if (control == IDOK && code == BN_CLICKED) {
        Accept();
    } else if (control == ORVELL_VECTOR_CHECK && code == BN_CLICKED) {
        OnVectorClicked();
    } else if (control == ORVELL_VECTOR_LENGTH_EDIT && code == EN_CHANGE) {
        OnLengthChanged();
    } else if (control == ORVELL_VECTOR_LENGTH_EDIT && code == EN_KILLFOCUS) {
        OnLengthLeft();
    } else if (control == ORVELL_FORMAT_BOX && code == CBN_SELCHANGE) {
        OnFormatChosen();
    }
}

std::optional<LRESULT> ParameterDialog::OnNotify(const NMHDR& notification) {
    if (notification.code == static_cast<UINT>(UDN_DELTAPOS)) {
        return OnSpin(reinterpret_cast<const NMUPDOWN&>(notification));
    }
    if (notification.idFrom == ORVELL_VALUE_GRID && notification.code == kGridEndEdit) {
        const auto& edit = reinterpret_cast<const GridNotification&>(notification);
        form_.NormalizeText(Grid().Model(), edit.row);
        return 0;
    }
    return std::nullopt;
}

std::optional<LRESULT> ParameterDialog::OnMessage(UINT message, WPARAM first, LPARAM second) {
    if (!HasGrid()) {
        return std::nullopt;
    }
    switch (message) {
        case WM_SIZE:
            OnSize();
            return 0;
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(second)->ptMinTrackSize = {minimumSize_.cx,
                                                                     minimumSize_.cy};
            return 0;
        case WM_NCHITTEST:
            return IsOnSizeGrip(Window(), {GET_X_LPARAM(second), GET_Y_LPARAM(second)})
                       ? std::optional<LRESULT>(HTBOTTOMRIGHT)
                       : std::nullopt;
        case WM_PAINT:
            PaintSizeGrip(Window());
            return 0;
        case WM_QUERYDRAGICON:
            return reinterpret_cast<LRESULT>(largeSymbol_.get());
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
            TellControls(message, first, second);
            form_.ColourNames(Grid().Model());
            Grid().Refresh();
            return 0;
        case WM_HELP:
            SendMessageW(GetWindow(Window(), GW_OWNER), message, first, second);
            return TRUE;
        default:
            return std::nullopt;
    }
}

/// Closing waits until what was accepted has been written or refused.
void ParameterDialog::OnClose() {
    if (!isAccepting_) {
        End(IDCANCEL);
    }
}

void ParameterDialog::TellControls(UINT message, WPARAM first, LPARAM second) const {
    for (HWND control = GetWindow(Window(), GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        SendMessageW(control, message, first, second);
    }
}

bool ParameterDialog::HasGrid() const {
    return CGridCtrl::FromWindow(Control(ORVELL_VALUE_GRID)) != nullptr;
}

CGridCtrl& ParameterDialog::Grid() const {
    return *CGridCtrl::FromWindow(Control(ORVELL_VALUE_GRID));
}

void ParameterDialog::ShowVectorChoice() {
    const Scope updating(isUpdating_);
    const bool isVector = vector_.IsVector();
    CheckDlgButton(Window(), ORVELL_VECTOR_CHECK, isVector ? BST_CHECKED : BST_UNCHECKED);
    Enable(ORVELL_VECTOR_LENGTH_EDIT, isVector);
    Enable(ORVELL_VECTOR_LENGTH_SPIN, isVector);
    if (isVector) {
        SendMessageW(Control(ORVELL_VECTOR_LENGTH_SPIN), UDM_SETPOS32, 0,
                     static_cast<LPARAM>(vector_.Length()));
    }
    SetText(ORVELL_VECTOR_LENGTH_EDIT, std::to_string(vector_.Length()));
}

void ParameterDialog::OnVectorClicked() {
    if (IsDlgButtonChecked(Window(), ORVELL_VECTOR_CHECK) == BST_CHECKED) {
        vector_.BecomeVector();
    } else {
        vector_.BecomeSingle(Number(ORVELL_VECTOR_LENGTH_EDIT));
    }
    ShowVectorChoice();
    ApplyLength(DroppedElements::Forget);
}

/// Whoever types "20" over "5" passes by 2: the elements behind that are needed again.
void ParameterDialog::OnLengthChanged() {
    const bool isTyping = !isSpinning_ && GetFocus() == Control(ORVELL_VECTOR_LENGTH_EDIT);
    vector_.Type(Number(ORVELL_VECTOR_LENGTH_EDIT));
    ApplyLength(isTyping ? DroppedElements::Keep : DroppedElements::Forget);
}

void ParameterDialog::OnLengthLeft() {
    form_.ForgetDroppedElements();
    ShowVectorChoice();
}

void ParameterDialog::ApplyLength(DroppedElements dropped) {
    if (vector_.Length() == form_.VectorLength()) {
        return;
    }
    Grid().EndEdit(true);
    if (!form_.ChangeVectorLength(Grid().Model(), vector_.Length(), dropped)) {
        vector_ = VectorChoice(form_.VectorLength());
        ShowVectorChoice();
        MessageBeep(MB_ICONEXCLAMATION);
        return;
    }
    ShowRows();
    FitHeightToRows();
}

void ParameterDialog::OnFormatChosen() {
    const LRESULT index = SendMessageW(Control(ORVELL_FORMAT_BOX), CB_GETCURSEL, 0, 0);
    const auto& formats = form_.Formats().formats;
    if (index < 0 || static_cast<std::size_t>(index) >= formats.size()) {
        return;
    }
    Grid().EndEdit(true);
    if (form_.ChangeFormat(Grid().Model(), formats[static_cast<std::size_t>(index)])) {
        ShowRows();
    }
}

/// The new number is set here, the control's own one is not wanted: it knows no limits of typed
/// numbers and no steps.
LRESULT ParameterDialog::OnSpin(const NMUPDOWN& spin) {
    constexpr LRESULT kRefuseOwnChange = 1;
    if (spin.hdr.idFrom == ORVELL_VECTOR_LENGTH_SPIN) {
        const Scope spinning(isSpinning_);
        SetText(ORVELL_VECTOR_LENGTH_EDIT,
                std::to_string(Spun(Number(ORVELL_VECTOR_LENGTH_EDIT), spin.iDelta, 1,
                                    kShortestVector, kLongestVector)));
    } else if (spin.hdr.idFrom == ORVELL_BOX_WIDTH_SPIN) {
        SetText(ORVELL_BOX_WIDTH_EDIT,
                std::to_string(Spun(Number(ORVELL_BOX_WIDTH_EDIT), spin.iDelta, kBoxWidthStep,
                                    kSmallestBoxWidth, kLargestShownBoxWidth)));
    }
    return kRefuseOwnChange;
}

void ParameterDialog::Accept() {
    const Scope accepting(isAccepting_);
    Grid().EndEdit(true);
    if (!form_.TakeBack(Grid().Model())) {
        ShowError(services_, Window(), StringId::ValueNotConvertible);
        return;
    }
    if (form_.Record()->IsOnline() && !WriteOnline()) {
        return;
    }
    if (Window() == nullptr) {  // destroyed with its owner while the value was written
        return;
    }
    if (!form_.Store(Number(ORVELL_BOX_WIDTH_EDIT))) {
        ShowError(services_, Window(), StringId::ValueNotConvertible);
        return;
    }
    hasStored_ = true;
    End(IDOK);
}

bool ParameterDialog::WriteOnline() {
    const TypeDef* type = form_.Type();
    if (type != nullptr && form_.VectorLength() == 1 && !type->IsStructured()) {
        return WriteSingleValue();
    }
    TransferDialog transfer(services_, form_.Value(), form_.Record()->Identifier(),
                            form_.VectorLength(), host_);
    return transfer.Run(Window()) == IDOK;
}

bool ParameterDialog::WriteSingleValue() {
    bool isWritten = false;
    {
        const WaitCursor waiting;
        const memstruct::DefinitionsInUse inUse(services_.store);
        UnwatchedTransfer watch;
        isWritten = memstruct::OnlineTransfer(services_.converters, form_.Type(), 1)
                        .Write(form_.Value(), host_, watch)
                        .succeeded;
    }
    if (!isWritten) {
        ShowError(services_, Window(), StringId::OnlineWriteFailed);
    }
    return isWritten;
}

}  // namespace orvell::ui
