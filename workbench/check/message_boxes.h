#pragma once

#include <windows.h>

#include <cstddef>

namespace workbench::check {

/// Answers the module's message boxes and dialogs in place of a person, as soon as they come up,
/// and counts them. Watches its own thread's windows. One object at a time.
class MessageBoxes {
  public:
    MessageBoxes();
    ~MessageBoxes();
    MessageBoxes(const MessageBoxes&) = delete;
    MessageBoxes& operator=(const MessageBoxes&) = delete;

    /// False when this session cannot show windows: no box would ever come.
    [[nodiscard]] static bool CanBeShown();

    /// The button to press where there is one: IDOK (as at the start) or IDCANCEL. Questions are
    /// answered with No.
    void AnswerWith(int button) { answer_ = button; }

    /// How many boxes there were since the last call.
    std::size_t TakeCount();

  private:
    static LRESULT CALLBACK OnWindowEvent(int code, WPARAM wParam, LPARAM lParam);
    void Answer(HWND box);

    HHOOK hook_;
    HWND lastBox_ = nullptr;
    int answer_ = IDOK;
    std::size_t count_ = 0;
};

}  // namespace workbench::check
