#include "platform/ansi_text.h"

#include <algorithm>

namespace orvell::platform {

namespace {

/// Upper case of one byte of code page 1252.
char ToUpper1252(char character) {
    const auto byte = static_cast<unsigned char>(character);
    const bool isAsciiLetter = byte >= 'a' && byte <= 'z';
    const bool isLatinLetter = byte >= 0xE0 && byte != 0xF7 && byte != 0xFF;
    if (isAsciiLetter || isLatinLetter) {
        return static_cast<char>(byte - 0x20);
    }
    switch (byte) {
        case 0x9A:  // s with caron
        case 0x9C:  // oe ligature
        case 0x9E:  // z with caron
            return static_cast<char>(byte - 0x10);
        case 0xFF:  // y with diaeresis
            return static_cast<char>(0x9F);
        default:
            return character;
    }
}

}  // namespace

std::string ToUpperAnsi(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), ToUpper1252);
    return upper;
}

}  // namespace orvell::platform
