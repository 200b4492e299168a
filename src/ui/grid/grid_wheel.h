#pragma once

#include <limits>
#include <optional>
#include <string_view>

#include "platform/registry.h"

namespace orvell::ui {

/// Rows for one notch of the mouse wheel that stand for a whole page.
inline constexpr unsigned kWheelPage = std::numeric_limits<unsigned>::max();

/// Rows for one notch: what the system says, else what the user's registry holds as a decimal
/// number, else 3.
[[nodiscard]] unsigned WheelRows(std::optional<unsigned> ofSystem,
                                 const platform::Registry& registry);

/// Turns the wheel's movements into rows. Fine wheels send parts of a notch, which add up.
class WheelCounter {
  public:
    /// `delta` in units of 120 for a notch, positive away from the user. Returns by how many rows
    /// to scroll, positive towards the end; never more than a page for each notch.
    [[nodiscard]] int RowsFor(int delta, unsigned rowsForNotch, int pageRows);

  private:
    int rest_ = 0;  ///< in 120ths of a row
};

}  // namespace orvell::ui
