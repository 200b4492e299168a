// How the parameter dialog is set up, and its size.

#include <algorithm>
#include <array>

#include "resources/dialog_ids.h"
#include "ui/dialogs/error_message.h"
#include "ui/dialogs/parameter_dialog.h"
#include "ui/dialogs/value_rows.h"
#include "ui/dialogs/window_fit.h"

namespace orvell::ui {

using resources::StringId;

namespace {

constexpr WPARAM kDigits = 3;
constexpr int kSmallestRowCount = 2;

/// From which second on a spin that is held moves by which step.
using Acceleration = std::array<UDACCEL, 3>;
constexpr Acceleration kBoxWidthAcceleration{{{0, 5}, {2, 20}, {5, 50}}};
constexpr Acceleration kVectorAcceleration{{{0, 1}, {2, 5}, {5, 20}}};

void SetUpSpin(HWND spin, std::uint32_t smallest, std::uint32_t largest,
               const Acceleration& acceleration) {
    SendMessageW(spin, UDM_SETRANGE32, smallest, static_cast<LPARAM>(largest));
    SendMessageW(spin, UDM_SETACCEL, acceleration.size(),
                 reinterpret_cast<LPARAM>(acceleration.data()));
}

SIZE SizeOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return {place.right - place.left, place.bottom - place.top};
}

/// What a window has around its client area, scroll bars not counted.
SIZE FrameOf(HWND window) {
    const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    const auto extendedStyle = static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE));
    RECT frame{};
    AdjustWindowRectEx(&frame, style & ~DWORD{WS_HSCROLL | WS_VSCROLL}, FALSE, extendedStyle);
    return {frame.right - frame.left, frame.bottom - frame.top};
}

RECT WorkAreaAround(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

}  // namespace

void ParameterDialog::SetUpSymbols() {
    largeSymbol_ = Resources().LoadWindowSymbol(ORVELL_IMAGE_PARAMETER, true);
    smallSymbol_ = Resources().LoadWindowSymbol(ORVELL_IMAGE_PARAMETER, false);
    SendMessageW(Window(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(largeSymbol_.get()));
    SendMessageW(Window(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(smallSymbol_.get()));
    Show(ORVELL_FORMAT_LABEL, false);
    Show(ORVELL_FORMAT_BOX, false);
}

void ParameterDialog::SetUpBoxWidth() {
    SendMessageW(Control(ORVELL_BOX_WIDTH_EDIT), EM_SETLIMITTEXT, kDigits, 0);
    SetUpSpin(Control(ORVELL_BOX_WIDTH_SPIN), kSmallestBoxWidth, kLargestShownBoxWidth,
              kBoxWidthAcceleration);
    const auto& record = form_.Record();
    const std::uint32_t width = record.has_value() ? record->ShownBoxWidth() : kSmallestBoxWidth;
    SendMessageW(Control(ORVELL_BOX_WIDTH_SPIN), UDM_SETPOS32, 0, static_cast<LPARAM>(width));
    SetText(ORVELL_BOX_WIDTH_EDIT, std::to_string(width));
    Enable(ORVELL_BOX_WIDTH_EDIT, record.has_value());
    Enable(ORVELL_BOX_WIDTH_SPIN, record.has_value());
}

void ParameterDialog::SetUpVector() {
    SendMessageW(Control(ORVELL_VECTOR_LENGTH_EDIT), EM_SETLIMITTEXT, kDigits, 0);
    SetUpSpin(Control(ORVELL_VECTOR_LENGTH_SPIN), kShortestVector, kLongestVector,
              kVectorAcceleration);
    ShowVectorChoice();
    const auto& record = form_.Record();
    if (!record.has_value()) {
        Enable(ORVELL_VECTOR_CHECK, false);
        SetText(ORVELL_VECTOR_LENGTH_EDIT, "0");
    }
    const bool isOffered = record.has_value() && record->OffersVector();
    for (const int control :
         {ORVELL_VECTOR_CHECK, ORVELL_VECTOR_LENGTH_EDIT, ORVELL_VECTOR_LENGTH_SPIN}) {
        Show(control, isOffered);
    }
}

void ParameterDialog::SetUpGrid() {
    Grid().SetActionNames({services_.strings.Text(StringId::EditAction),
                           services_.strings.Text(StringId::ToggleAction)});
    form_.SetUpGrid(Grid().Model());
    FitColumns();
}

void ParameterDialog::SetUpLayout() {
    using enum OnGrowth;
    layout_.Measure(Window(), {{ORVELL_AREA_NAME, Stretch, Stay},
                               {ORVELL_VECTOR_CHECK, Move, Stay},
                               {ORVELL_VECTOR_LENGTH_EDIT, Move, Stay},
                               {ORVELL_VECTOR_LENGTH_SPIN, Move, Stay},
                               {ORVELL_FORMAT_LABEL, Move, Stay},
                               {ORVELL_FORMAT_BOX, Move, Stay},
                               {ORVELL_VALUE_GRID, Stretch, Stretch},
                               {IDOK, Move, Move},
                               {IDCANCEL, Move, Move}});
    minimumSize_ = SizeOf(Window());
    const LONG gridHeight = SizeOf(Control(ORVELL_VALUE_GRID)).cy;
    minimumSize_.cy -= std::max<LONG>(gridHeight - HeightOfRows(kSmallestRowCount), 0);
}

void ParameterDialog::OpenValue() {
    std::string message;
    isFilled_ = form_.Open(Grid().Model(), message);
    if (!isFilled_) {
        if (form_.Record().has_value()) {
            ShowError(services_, Window(), message);
        }
        return;
    }
    SetText(ORVELL_AREA_NAME, form_.AreaName());
    Grid().SetAccessibleName(form_.AreaName());
    SetUpFormats();
    ShowRows();
}

void ParameterDialog::SetUpFormats() {
    const FormatChoice& choice = form_.Formats();
    const HWND box = Control(ORVELL_FORMAT_BOX);
    for (const values::DisplayFormat format : choice.formats) {
        const std::string& name = services_.strings.Text(FormatName(format));
        const LRESULT index =
            SendMessageA(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
        SendMessageW(box, CB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(format));
        if (format == choice.selected) {
            SendMessageW(box, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        }
    }
    Show(ORVELL_FORMAT_LABEL, choice.IsOffered());
    Show(ORVELL_FORMAT_BOX, choice.IsOffered());
}

/// The height of the grid's window that shows so many rows.
int ParameterDialog::HeightOfRows(int count) const {
    const LONG frame = FrameOf(Control(ORVELL_VALUE_GRID)).cy;
    return count * Grid().GetRowHeight(kHeaderRow) + static_cast<int>(frame);
}

void ParameterDialog::FitHeightToRows() {
    RECT place{};
    GetWindowRect(Window(), &place);
    const RECT workArea = WorkAreaAround(Window());
    const LONG gridHeight = SizeOf(Control(ORVELL_VALUE_GRID)).cy;
    const int height = static_cast<int>(place.bottom - place.top);
    const int wanted =
        height + HeightOfRows(Grid().Model().GetRowCount()) - static_cast<int>(gridHeight);
    const VerticalPlace fitted = FitHeight(
        {static_cast<int>(place.top), height}, wanted, static_cast<int>(minimumSize_.cy),
        {static_cast<int>(workArea.top), static_cast<int>(workArea.bottom - workArea.top)},
        GetSystemMetrics(SM_CYCAPTION));
    SetWindowPos(Window(), nullptr, place.left, fitted.top, place.right - place.left, fitted.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void ParameterDialog::OnSize() {
    if (IsIconic(Window()) || minimumSize_.cx == 0) {  // not measured yet
        return;
    }
    layout_.Apply();
    FitColumns();
    InvalidateRect(Window(), nullptr, TRUE);
}

/// Both columns together leave room for the vertical scroll bar, whether it is there or not. At
/// first they are equal; later they keep the ratio that the user has given them.
void ParameterDialog::FitColumns() {
    const HWND window = Control(ORVELL_VALUE_GRID);
    const int width =
        static_cast<int>(SizeOf(window).cx - FrameOf(window).cx) - GetSystemMetrics(SM_CXVSCROLL);
    CGridCtrl& grid = Grid();
    const int before = grid.GetColumnWidth(kNameColumn) + grid.GetColumnWidth(kValueColumn);
    const int nameWidth = isFilled_ && before > 0
                              ? MulDiv(width, grid.GetColumnWidth(kNameColumn), before)
                              : width / 2;
    grid.SetColumnWidth(kNameColumn, nameWidth);
    grid.SetColumnWidth(kValueColumn, width - nameWidth);
    grid.AdjustSizes();
}

void ParameterDialog::ShowRows() {
    Grid().AdjustSizes();
    Grid().Refresh();
}

}  // namespace orvell::ui
