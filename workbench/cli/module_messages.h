#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace workbench::cli {

/// Answers the module's message boxes in place of a person, for as long as the object lives.
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

    /// Prints the texts of all boxes since the last call on the standard error; true when there
    /// were any.
    bool Report();

  private:
    static LRESULT CALLBACK OnWindowEvent(int code, WPARAM wParam, LPARAM lParam);
    void TakeBox(HWND box);

    HHOOK hook_;
    HWND lastBox_ = nullptr;
    std::vector<std::string> texts_;
};

}  // namespace workbench::cli
