#pragma once

#include <cstdint>

namespace workbench::cli {

/// The word through which a transfer is cancelled: 0 until it is to stop.
[[nodiscard]] volatile std::uint32_t& CancelWord();

/// Makes Ctrl+C set the cancel word, in place of ending the program, for as long as it lives.
class CancelByKeyboard {
  public:
    CancelByKeyboard();
    ~CancelByKeyboard();
    CancelByKeyboard(const CancelByKeyboard&) = delete;
    CancelByKeyboard& operator=(const CancelByKeyboard&) = delete;
};

}  // namespace workbench::cli
