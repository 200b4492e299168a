#include "ui/grid/grid_wheel.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace orvell::ui {
namespace {

constexpr unsigned kUsualRows = 3;
constexpr int kNotch = 120;

/// The settings of Windows write a whole page as -1.
std::optional<unsigned> RowsFrom(std::string_view text) {
    if (text == "-1") {
        return kWheelPage;
    }
    unsigned rows = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, rows);
    return error == std::errc() && stop == end ? std::optional(rows) : std::nullopt;
}

}  // namespace

unsigned WheelRows(std::optional<unsigned> ofSystem, const platform::Registry& registry) {
    if (ofSystem.has_value()) {
        return *ofSystem;
    }
    const std::optional<std::string> text = registry.ReadText(
        platform::RegistryRoot::CurrentUser, "Control Panel\\Desktop", "WheelScrollLines");
    return text.has_value() ? RowsFrom(*text).value_or(kUsualRows) : kUsualRows;
}

int WheelCounter::RowsFor(int delta, unsigned rowsForNotch, int pageRows) {
    const auto page = static_cast<unsigned>(std::max(pageRows, 1));
    const int rows = static_cast<int>(std::min(rowsForNotch, page));
    const bool turnsBack = (delta > 0) != (rest_ < 0) && rest_ != 0;
    const long long total = (turnsBack ? 0LL : rest_) - static_cast<long long>(delta) * rows;
    rest_ = static_cast<int>(total % kNotch);
    return static_cast<int>(total / kNotch);
}

}  // namespace orvell::ui
