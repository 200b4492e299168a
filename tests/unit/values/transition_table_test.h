#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "values/field_scanner.h"

namespace orvell::values {

/// A column of a transition table: what its characters are called, and some of them.
struct ColumnCase {
    const char* name;
    std::string_view characters;
};

/// A row: the state, a text that leads into it, and the next state in each column.
struct StateCase {
    int state;
    const char* name;
    std::string leadingText;
    std::vector<int> next;
};

inline constexpr std::string_view kOtherCharacters = "x-+#\n\r\x0B\xE4\x80\x7F";

/// Checks every transition by scanning the leading text and one more character. `scan` takes text
/// and returns the scan; states from `ended` on, and -1, do not consume the character.
template <typename Scan>
void CheckTransitions(const std::vector<ColumnCase>& columns, const std::vector<StateCase>& states,
                      int ended, const Scan& scan) {
    for (const StateCase& row : states) {
        const FieldScan reached = scan(row.leadingText);
        EXPECT_EQ(reached.state, row.state) << row.name;
        EXPECT_EQ(reached.end, row.leadingText.size()) << row.name;
        ASSERT_EQ(row.next.size(), columns.size()) << row.name;
        for (std::size_t column = 0; column < columns.size(); ++column) {
            for (const char character : columns[column].characters) {
                const FieldScan next = scan(row.leadingText + character);
                const int expected = row.next[column];
                EXPECT_EQ(next.state, expected)
                    << row.name << " with " << columns[column].name << " '" << character << "'";
                const bool isConsumed = expected >= 0 && expected < ended;
                EXPECT_EQ(next.end, row.leadingText.size() + (isConsumed ? 1 : 0))
                    << row.name << " with " << columns[column].name << " '" << character << "'";
            }
        }
    }
}

}  // namespace orvell::values
