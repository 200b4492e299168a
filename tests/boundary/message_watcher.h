#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace orvell::test {

/// Answers every message box of this thread with its default button and keeps what it showed. (Wine
/// does not mark top-most boxes in their style, so that cannot be seen here.)
class MessageWatcher {
  public:
    struct Box {
        std::string caption;
        std::string text;
        HWND owner;
    };

    MessageWatcher();
    ~MessageWatcher();
    MessageWatcher(const MessageWatcher&) = delete;
    MessageWatcher& operator=(const MessageWatcher&) = delete;

    [[nodiscard]] const std::vector<Box>& Boxes() const { return boxes_; }

  private:
    void Keep(HWND window);
    static LRESULT CALLBACK OnHook(int code, WPARAM window, LPARAM data);

    static MessageWatcher* current_;
    HHOOK hook_;
    std::vector<Box> boxes_;
};

}  // namespace orvell::test
