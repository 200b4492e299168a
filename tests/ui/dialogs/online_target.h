#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <vector>

#include "orvell/orvell.h"

namespace orvell::ui {

/// A target system whose host has one setter, that of words. It keeps what it gets, fails where the
/// test wants it, and can be held back in the middle of a write.
class OnlineTarget {
  public:
    OnlineTarget();
    ~OnlineTarget();
    OnlineTarget(const OnlineTarget&) = delete;
    OnlineTarget& operator=(const OnlineTarget&) = delete;

    struct Put {
        std::uint32_t first;
        std::uint32_t second;
        std::uint16_t value;
        DWORD thread;
        bool operator==(const Put&) const = default;
    };

    /// The record of the host's functions; the setter is that of online writing.
    [[nodiscard]] static OnlineAccessRecord Functions();

    /// What the setter got; only to be read while it is not at work.
    [[nodiscard]] const std::vector<Put>& Puts() const { return puts_; }
    [[nodiscard]] std::vector<std::uint16_t> Values() const;

    /// The setter fails at this element from now on.
    void FailAt(std::uint32_t element) { failAt_ = element; }

    /// The setter does not return at this element before `Release`.
    void HoldAt(std::uint32_t element);
    void Release() { SetEvent(release_); }

    /// What the setter does before it answers, on the thread that has called it.
    std::function<void()> meanwhile;

    /// Waits until the setter is held.
    void WaitUntilHeld() const;

  private:
    static std::int32_t ORVELL_CALL Put16(std::uint32_t first, std::uint32_t second,
                                          std::uint16_t value);
    std::int32_t OnPut(const Put& put);

    static OnlineTarget* current_;
    std::vector<Put> puts_;
    std::uint32_t failAt_ = UINT32_MAX;
    std::uint32_t holdAt_ = UINT32_MAX;
    HANDLE held_;
    HANDLE release_;
};

}  // namespace orvell::ui
