#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace workbench::cli {

/// Answers the module's message boxes in place of a person, for as long as the object lives. Its
/// other dialogs are left alone.
///
/// It watches its own thread's windows, without a second thread: the module may show a box while it
/// is being loaded, when no new thread can start. One object at a time.
class ModuleMessages {
  public:
    ModuleMessages();
    ~ModuleMessages();
    ModuleMessages(const ModuleMessages&) = delete;
    ModuleMessages& operator=(const ModuleMessages&) = delete;

    /// False when this session cannot show windows, so that messages would be lost.
    [[nodiscard]] static bool CanShowWindows();

    /// Leaves the boxes to the person at the display while it lives.
    class LetThrough {
      public:
        explicit LetThrough(ModuleMessages& messages) : messages_(messages) {
            messages_.isLettingThrough_ = true;
        }
        ~LetThrough() { messages_.isLettingThrough_ = false; }
        LetThrough(const LetThrough&) = delete;
        LetThrough& operator=(const LetThrough&) = delete;

      private:
        ModuleMessages& messages_;
    };

    /// Prints the texts of all boxes since the last call on the standard error; true when there
    /// were any.
    bool Report();

  private:
    static LRESULT CALLBACK OnWindowEvent(int code, WPARAM wParam, LPARAM lParam);
    void TakeBox(HWND box);

    HHOOK hook_;
    HWND lastBox_ = nullptr;
    bool isLettingThrough_ = false;
    std::vector<std::string> texts_;
};

}  // namespace workbench::cli
