#include "ui/grid/grid_editor.h"

#include <algorithm>
#include <array>

namespace orvell::ui {
namespace {

constexpr int kShownChoices = 10;
constexpr auto kField = static_cast<WPARAM>(-1);  // of a combo box: what is seen when it is closed

struct EndingKey {
    WPARAM key;
    GridEditEvent alone;
    GridEditEvent withShift;
};

constexpr std::array kEndingKeys = {
    EndingKey{VK_RETURN, GridEditEvent::AcceptDown, GridEditEvent::AcceptUp},
    EndingKey{VK_TAB, GridEditEvent::AcceptNext, GridEditEvent::AcceptPrevious},
    EndingKey{VK_ESCAPE, GridEditEvent::Cancel, GridEditEvent::Cancel},
};

bool EndsAnEdit(WPARAM key) {
    return std::any_of(kEndingKeys.begin(), kEndingKeys.end(),
                       [key](const EndingKey& ending) { return ending.key == key; });
}

bool IsPressed(int key) {
    return GetKeyState(key) < 0;
}

std::string WindowText(HWND window) {
    const int length = GetWindowTextLengthA(window);
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    const int copied = GetWindowTextA(window, text.data(), length + 1);
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

}  // namespace

GridEditor::GridEditor(const GridEditorPlace& place, const GridRect& rect, const char* windowClass,
                       DWORD style)
    : grid_(place.grid), edit_(place.edit) {
    window_ = CreateWindowExA(0, windowClass, "", WS_CHILD | style, rect.left, rect.top,
                              rect.right - rect.left, rect.bottom - rect.top, place.grid, nullptr,
                              nullptr, nullptr);
    if (window_ == nullptr) {
        return;
    }
    SendMessageA(window_, WM_SETFONT, reinterpret_cast<WPARAM>(place.font), FALSE);
    SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    original_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure)));
}

GridEditor::~GridEditor() {
    if (window_ != nullptr) {
        SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original_));
        DestroyWindow(window_);
    }
}

void GridEditor::DropDown() {}

void GridEditor::OnCommand(UINT) {}

void GridEditor::Tell(GridEditEvent event) const {
    SendMessageA(grid_, kGridEditorMessage, static_cast<WPARAM>(event), edit_);
}

void GridEditor::PostAccept() const {
    PostMessageA(grid_, kGridEditorMessage, static_cast<WPARAM>(GridEditEvent::Accept), edit_);
}

/// Ends of an edit destroy the editor: nothing of it may be touched behind them.
LRESULT CALLBACK GridEditor::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const editor = reinterpret_cast<GridEditor*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    const WNDPROC original = editor->original_;
    switch (message) {
        case WM_GETDLGCODE:
            return CallWindowProcA(original, window, message, wParam, lParam) | DLGC_WANTALLKEYS;
        case WM_KEYDOWN:
            if (editor->OnKey(wParam)) {
                return 0;
            }
            break;
        case WM_CHAR:
            if (EndsAnEdit(wParam)) {  // these keys' characters have the keys' codes
                return 0;
            }
            break;
        case WM_KILLFOCUS: {
            CallWindowProcA(original, window, message, wParam, lParam);
            editor->Tell(GridEditEvent::Accept);
            return 0;
        }
        case WM_NCDESTROY:
            editor->window_ = nullptr;
            break;
        default:
            break;
    }
    return CallWindowProcA(original, window, message, wParam, lParam);
}

bool GridEditor::OnKey(WPARAM key) const {
    const auto ending =
        std::find_if(kEndingKeys.begin(), kEndingKeys.end(),
                     [key](const EndingKey& candidate) { return candidate.key == key; });
    if (ending == kEndingKeys.end()) {
        return false;
    }
    Tell(IsPressed(VK_SHIFT) ? ending->withShift : ending->alone);
    return true;
}

namespace {

class TextEditor final : public GridEditor {
  public:
    TextEditor(const GridEditorPlace& place, const std::string& text, GridEditStart start)
        : GridEditor(place, Shrunk(place.cell, place.frame), "EDIT", WS_VISIBLE | ES_AUTOHSCROLL) {
        const auto margin = static_cast<WORD>(std::max(place.padding - place.frame, 0));
        SendMessageA(Window(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN,
                     MAKELPARAM(margin, margin));
        SendMessageA(Window(), EM_SETLIMITTEXT, 0, 0);
        if (start != GridEditStart::Nothing) {
            SetWindowTextA(Window(), text.c_str());
            SendMessageA(Window(), EM_SETSEL, 0, -1);
        }
    }

    std::optional<std::string> Text() const override { return WindowText(Window()); }
};

class ComboEditor final : public GridEditor {
  public:
    ComboEditor(const GridEditorPlace& place, const std::string& text, GridChoices choices)
        : GridEditor(place, place.cell, "COMBOBOX", CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL),
          choices_(std::move(choices)) {
        for (const std::string& choice : Choices()) {
            SendMessageA(Window(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(choice.c_str()));
        }
        FitInto(place.cell);
        Select(text);
        ShowWindow(Window(), SW_SHOWNA);
    }

    std::optional<std::string> Text() const override {
        const LRESULT index = SendMessageA(Window(), CB_GETCURSEL, 0, 0);
        if (index < 0 || static_cast<std::size_t>(index) >= Choices().size()) {
            return std::nullopt;
        }
        return Choices()[static_cast<std::size_t>(index)];
    }

    void DropDown() override { SendMessageA(Window(), CB_SHOWDROPDOWN, TRUE, 0); }

    /// The list closes in the middle of the control's own work: the edit must not end there yet.
    void OnCommand(UINT notification) override {
        switch (notification) {
            case CBN_DROPDOWN:
                isChosen_ = false;
                break;
            case CBN_SELENDOK:
                isChosen_ = true;
                break;
            case CBN_CLOSEUP:
                if (isChosen_) {
                    PostAccept();
                }
                break;
            default:
                break;
        }
    }

  private:
    [[nodiscard]] const std::vector<std::string>& Choices() const {
        static const std::vector<std::string> kNone;
        return choices_ == nullptr ? kNone : choices_->Texts();
    }

    /// The height that is set reaches to the end of the list; that of the closed field follows from
    /// its text's.
    void FitInto(const GridRect& rect) {
        const int height = rect.bottom - rect.top;
        const auto item = static_cast<int>(SendMessageA(Window(), CB_GETITEMHEIGHT, 0, 0));
        const int shown = std::min(static_cast<int>(Choices().size()), kShownChoices);
        SetWindowPos(Window(), nullptr, 0, 0, rect.right - rect.left, height + (shown + 1) * item,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        const auto field = SendMessageA(Window(), CB_GETITEMHEIGHT, kField, 0);
        const int excess = ClosedHeight() - height;
        SendMessageA(Window(), CB_SETITEMHEIGHT, kField, std::max<LRESULT>(field - excess, 1));
    }

    [[nodiscard]] int ClosedHeight() const {
        RECT outside = {};
        GetWindowRect(Window(), &outside);
        return static_cast<int>(outside.bottom - outside.top);
    }

    /// The control's own search does not tell capital letters from small ones.
    void Select(const std::string& text) {
        const auto found = std::find(Choices().begin(), Choices().end(), text);
        if (found != Choices().end()) {
            SendMessageA(Window(), CB_SETCURSEL, static_cast<WPARAM>(found - Choices().begin()), 0);
        }
    }

    GridChoices choices_;
    bool isChosen_ = false;
};

}  // namespace

std::unique_ptr<GridEditor> MakeGridEditor(const GridEditorPlace& place, const CGridCellBase& cell,
                                           const GridChoices* choices, GridEditStart start) {
    std::unique_ptr<GridEditor> editor;
    if (choices == nullptr) {
        editor = std::make_unique<TextEditor>(place, cell.Text(), start);
    } else {
        editor = std::make_unique<ComboEditor>(place, cell.Text(), *choices);
    }
    return editor->Window() == nullptr ? nullptr : std::move(editor);
}

}  // namespace orvell::ui
