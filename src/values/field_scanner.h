#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "values/characters.h"

namespace orvell::values {

/// A text of numbers with separators between them, such as "7:05" or "24.12.2020", is read by a
/// transition table: one row per state, one column per class of character.
///
/// States come in threes, one triple per field: 3n before its number, 3n+1 in it, 3n+2 behind it.
/// A transition to a state without a row ends the scan without consuming the character:
/// `kRejected`, or the state that follows the last row.
template <std::size_t stateCount, std::size_t classCount>
using TransitionTable = std::array<std::array<std::int16_t, classCount>, stateCount>;

inline constexpr std::int16_t kRejected = -1;
inline constexpr std::size_t kMaximumFieldCount = 4;

/// Where a scan ended, and the numbers that it read modulo 2^32, 0 where there was none.
struct FieldScan {
    int state = 0;
    std::array<std::uint32_t, kMaximumFieldCount> fields = {};
    std::size_t end = 0;  ///< position of the first character not consumed

    [[nodiscard]] bool EndedIn(std::initializer_list<int> states) const {
        for (const int candidate : states) {
            if (state == candidate) {
                return true;
            }
        }
        return false;
    }
};

/// Scans `text` from `start` on. `classOf` gives the column of a character; only digits may lead
/// into a number.
template <std::size_t stateCount, std::size_t classCount, typename ClassOf>
[[nodiscard]] FieldScan ScanFields(const TransitionTable<stateCount, classCount>& table,
                                   const ClassOf& classOf, std::string_view text,
                                   std::size_t start) {
    FieldScan scan;
    for (scan.end = start; scan.end < text.size(); ++scan.end) {
        const char character = text[scan.end];
        scan.state = table[static_cast<std::size_t>(scan.state)][classOf(character)];
        if (scan.state < 0 || scan.state >= static_cast<int>(stateCount)) {
            break;
        }
        if (scan.state % 3 == 1) {
            std::uint32_t& field = scan.fields[static_cast<std::size_t>(scan.state / 3)];
            field = field * 10 + DigitValue(character);
        }
    }
    return scan;
}

/// Columns of a table with one separator.
enum SeparatedColumn : std::size_t { BlankColumn, DigitColumn, SeparatorColumn, OtherColumn };

/// Tells the column of a character when `separator` stands between the numbers.
struct SeparatedBy {
    char separator;

    std::size_t operator()(char character) const {
        if (IsBlank(character)) {
            return BlankColumn;
        }
        if (IsDigit(character)) {
            return DigitColumn;
        }
        return character == separator ? SeparatorColumn : OtherColumn;
    }
};

}  // namespace orvell::values
