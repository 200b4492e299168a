#pragma once

#include <string_view>

#include "fuzz/files/plain_list.h"

namespace orvell::fuzz {

/// The text of a text value; empty for an undefined one.
[[nodiscard]] std::string_view TextOf(const PlainEntry& entry);

/// The number that the value's bytes are.
template <typename Number>
[[nodiscard]] Number NumberOf(const PlainEntry& entry) {
    Number number = 0;
    entry.value.copy(reinterpret_cast<char*>(&number), sizeof number);
    return number;
}

template <typename Number>
void StoreNumber(PlainEntry& entry, Number number) {
    entry.value.assign(reinterpret_cast<const char*>(&number), sizeof number);
}

/// The double that a print with so many significant digits spells.
[[nodiscard]] double AfterPrint(double number, int digits);

/// True when such a print spells a larger number than there are.
[[nodiscard]] bool IsPrintedTooLarge(double number, int digits);

/// An OLE automation date to whole milliseconds, within the dates that can be shown.
[[nodiscard]] double InMilliseconds(double serial);

/// True when a date's time of day is perhaps rounded up to 24:00, which is read as the next day's
/// 00:00.
[[nodiscard]] bool IsNearlyMidnight(double serial);

}  // namespace orvell::fuzz
