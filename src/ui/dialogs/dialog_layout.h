#pragma once

#include <windows.h>

#include <initializer_list>
#include <vector>

namespace orvell::ui {

/// What a control does when its dialog gets wider or higher.
enum class OnGrowth {
    Stay,     ///< keeps its distance from the left or upper edge
    Move,     ///< keeps its distance from the right or lower edge
    Stretch,  ///< keeps both distances
};

/// A control and how it follows its dialog's size.
struct FollowingControl {
    int number;
    OnGrowth horizontally;
    OnGrowth vertically;
};

/// Keeps the controls of a dialog at their distances from its edges. Controls that are not named
/// stay where they are.
class DialogLayout {
  public:
    /// Measures the distances as they are now.
    void Measure(HWND dialog, std::initializer_list<FollowingControl> controls);

    /// Moves all controls to where they belong at the dialog's present size.
    void Apply() const;

  private:
    struct Place {
        HWND control;
        FollowingControl rule;
        RECT rectangle;  // in client coordinates when measured
    };

    HWND dialog_ = nullptr;
    SIZE measured_{};
    std::vector<Place> places_;
};

}  // namespace orvell::ui
