#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

namespace orvell::test {

/// Answers every message box of this thread and keeps what it showed: questions with No or Yes as
/// told, all others with OK. (Wine does not mark top-most boxes in their style, so that cannot be
/// seen here.)
class MessageWatcher {
  public:
    struct Box {
        std::string caption;
        std::string text;
        HWND owner;
        bool isQuestion;  ///< it had the buttons Yes and No
    };

    MessageWatcher();
    ~MessageWatcher();
    MessageWatcher(const MessageWatcher&) = delete;
    MessageWatcher& operator=(const MessageWatcher&) = delete;

    [[nodiscard]] const std::vector<Box>& Boxes() const { return boxes_; }

    /// The boxes since the last call.
    [[nodiscard]] std::vector<Box> TakeBoxes() { return std::exchange(boxes_, {}); }

    /// How questions are answered from now on; No at first.
    void AnswerYes(bool isYes) { answer_ = isYes ? IDYES : IDNO; }

  private:
    void Keep(HWND window);
    static LRESULT CALLBACK OnHook(int code, WPARAM window, LPARAM data);

    static MessageWatcher* current_;
    HHOOK hook_;
    std::vector<Box> boxes_;
    int answer_ = IDNO;
};

}  // namespace orvell::test
