#pragma once

#include <cstddef>
#include <string_view>

namespace orvell::values {

// Classes of characters in the texts of values, whatever the locale says.

[[nodiscard]] constexpr bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

/// A blank or a tab.
[[nodiscard]] constexpr bool IsBlank(char character) {
    return character == ' ' || character == '\t';
}

/// A blank, a tab, or one of the line and page controls: the white space of the "C" locale.
[[nodiscard]] constexpr bool IsWhiteSpace(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

/// The first position in the text that is not white space.
[[nodiscard]] constexpr std::size_t SkipWhiteSpace(std::string_view text) {
    std::size_t position = 0;
    while (position < text.size() && IsWhiteSpace(text[position])) {
        ++position;
    }
    return position;
}

/// The letter in upper case if it is one of A to Z, else the character as it is.
[[nodiscard]] constexpr char ToUpperAscii(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                                : character;
}

[[nodiscard]] constexpr unsigned DigitValue(char digit) {
    return static_cast<unsigned>(digit - '0');
}

}  // namespace orvell::values
