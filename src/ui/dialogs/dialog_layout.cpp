#include "ui/dialogs/dialog_layout.h"

namespace orvell::ui {

namespace {

SIZE ClientSize(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

void Follow(OnGrowth rule, LONG growth, LONG& begin, LONG& end) {
    if (rule == OnGrowth::Move) {
        begin += growth;
    }
    if (rule != OnGrowth::Stay) {
        end += growth;
    }
}

}  // namespace

void DialogLayout::Measure(HWND dialog, std::initializer_list<FollowingControl> controls) {
    dialog_ = dialog;
    measured_ = ClientSize(dialog);
    places_.clear();
    for (const FollowingControl& rule : controls) {
        const HWND control = GetDlgItem(dialog, rule.number);
        RECT rectangle{};
        GetWindowRect(control, &rectangle);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rectangle), 2);
        places_.push_back({control, rule, rectangle});
    }
}

void DialogLayout::Apply() const {
    const SIZE now = ClientSize(dialog_);
    HDWP moves = BeginDeferWindowPos(static_cast<int>(places_.size()));
    for (const Place& place : places_) {
        RECT to = place.rectangle;
        Follow(place.rule.horizontally, now.cx - measured_.cx, to.left, to.right);
        Follow(place.rule.vertically, now.cy - measured_.cy, to.top, to.bottom);
        if (moves != nullptr) {
            moves =
                DeferWindowPos(moves, place.control, nullptr, to.left, to.top, to.right - to.left,
                               to.bottom - to.top, SWP_NOZORDER | SWP_NOACTIVATE);
        }
    }
    if (moves != nullptr) {
        EndDeferWindowPos(moves);
    }
}

}  // namespace orvell::ui
