#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "cli/dialog_script.h"

namespace workbench::cli {

/// Works the module's dialogs by keyboard, as a script says, while the module shows them. It is
/// called by a timer of its thread, which comes only when the dialog has nothing else to do: each
/// step finds the one before done. One object at a time.
class DialogDriver {
  public:
    explicit DialogDriver(std::vector<ScriptStep> steps);
    ~DialogDriver();
    DialogDriver(const DialogDriver&) = delete;
    DialogDriver& operator=(const DialogDriver&) = delete;

    /// To be called when the dialog has ended: why the script was not carried out; empty when it
    /// was.
    [[nodiscard]] std::string Problem() const;

  private:
    static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR timer, DWORD time);
    void Continue();
    void AwaitEnd(HWND dialog);
    void Wait();
    void EndDialog() const;
    void TakeStep(const ScriptStep& step, HWND dialog);
    void Focus(const ScriptStep& step, HWND dialog);
    void KeepPicture(const ScriptStep& step);
    void Pause(const ScriptStep& step);
    void NextStep();
    void GiveUp(const std::string& reason);

    std::vector<ScriptStep> steps_;
    std::size_t next_ = 0;
    std::uint32_t ticks_ = 0;   // spent on the step at hand
    std::uint32_t waited_ = 0;  // ticks before it could be begun
    std::string problem_;
    UINT_PTR timer_;
};

}  // namespace workbench::cli
