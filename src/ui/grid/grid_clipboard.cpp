#include "ui/grid/grid_clipboard.h"

#include <algorithm>

#include "ui/grid/wide_text.h"

namespace orvell::ui {
namespace {

class OpenedClipboard {
  public:
    explicit OpenedClipboard(HWND owner) : isOpen_(OpenClipboard(owner) != 0) {}
    ~OpenedClipboard() {
        if (isOpen_) {
            CloseClipboard();
        }
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;

    [[nodiscard]] bool IsOpen() const { return isOpen_; }

  private:
    bool isOpen_;
};

class LockedMemory {
  public:
    explicit LockedMemory(HGLOBAL memory) : memory_(memory), text_(GlobalLock(memory)) {}
    ~LockedMemory() { GlobalUnlock(memory_); }
    LockedMemory(const LockedMemory&) = delete;
    LockedMemory& operator=(const LockedMemory&) = delete;

    /// Null when the memory cannot be locked.
    [[nodiscard]] wchar_t* Text() const { return static_cast<wchar_t*>(text_); }
    [[nodiscard]] std::size_t Length() const { return GlobalSize(memory_) / sizeof(wchar_t); }

  private:
    HGLOBAL memory_;
    void* text_;
};

/// Null when there is no memory.
HGLOBAL GlobalCopy(const std::wstring& text) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    if (memory == nullptr) {
        return nullptr;
    }
    const LockedMemory locked(memory);
    std::copy_n(text.c_str(), text.size() + 1, locked.Text());
    return memory;
}

}  // namespace

void PutOnClipboard(HWND owner, std::string_view text) {
    const std::wstring wide = ToWide(text);
    const OpenedClipboard clipboard(owner);
    const HGLOBAL memory = clipboard.IsOpen() ? GlobalCopy(wide) : nullptr;
    if (memory == nullptr) {
        return;
    }
    EmptyClipboard();
    if (SetClipboardData(CF_UNICODETEXT, memory) == nullptr) {
        GlobalFree(memory);  // else it is the clipboard's now
    }
}

std::string TextOnClipboard(HWND owner) {
    const OpenedClipboard clipboard(owner);
    const HGLOBAL memory = clipboard.IsOpen() ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    if (memory == nullptr) {
        return {};
    }
    const LockedMemory locked(memory);
    if (locked.Text() == nullptr) {
        return {};
    }
    const std::wstring_view all(locked.Text(), locked.Length());
    return ToAnsi(all.substr(0, all.find(L'\0')));
}

}  // namespace orvell::ui
