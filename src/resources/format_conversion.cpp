#include "resources/format_conversion.h"

#include <algorithm>

namespace orvell::resources {
namespace {

constexpr std::string_view kLetters = "diuxXcs";

bool Take(std::string_view& text, std::string_view expected) {
    if (!text.starts_with(expected)) {
        return false;
    }
    text.remove_prefix(expected.size());
    return true;
}

bool TakeFlag(std::string_view& text, FormatConversion& conversion) {
    switch (text.empty() ? '\0' : text.front()) {
        case '-':
            conversion.leftAligned = true;
            break;
        case '0':
            conversion.zeroPadded = true;
            break;
        case '+':
            conversion.plusSign = true;
            break;
        case ' ':
            conversion.blankSign = true;
            break;
        case '#':
            conversion.alternative = true;
            break;
        default:
            return false;
    }
    text.remove_prefix(1);
    return true;
}

/// 0 when there are no digits, as the precision of "%.d" demands.
std::uint32_t TakeNumber(std::string_view& text) {
    std::uint32_t number = 0;
    while (!text.empty() && text.front() >= '0' && text.front() <= '9') {
        number = number * 10 + static_cast<std::uint32_t>(text.front() - '0');
        number = std::min(number, FormatConversion::kMaximumWidth);
        text.remove_prefix(1);
    }
    return number;
}

/// Lengths of 32 bits and more make no difference: arguments have 32 bits.
std::uint8_t TakeLength(std::string_view& text) {
    if (Take(text, "hh")) {
        return 8;
    }
    if (Take(text, "h")) {
        return 16;
    }
    for (const std::string_view length : {"ll", "l", "I32", "I64"}) {
        if (Take(text, length)) {
            break;
        }
    }
    return 32;
}

bool IsPlain(const FormatConversion& conversion) {
    return !conversion.zeroPadded && !conversion.plusSign && !conversion.blankSign &&
           !conversion.alternative && conversion.bits == 32 && conversion.precision < 0;
}

}  // namespace

std::size_t ParseConversion(std::string_view text, FormatConversion& conversion) {
    conversion = {};
    std::string_view rest = text.substr(1);
    while (TakeFlag(rest, conversion)) {
    }
    conversion.width = TakeNumber(rest);
    if (Take(rest, ".")) {
        conversion.precision = static_cast<std::int32_t>(TakeNumber(rest));
    }
    conversion.bits = TakeLength(rest);
    if (rest.empty() || kLetters.find(rest.front()) == std::string_view::npos) {
        return 0;
    }
    conversion.letter = rest.front();
    conversion.isPlain = IsPlain(conversion);
    return text.size() - rest.size() + 1;
}

}  // namespace orvell::resources
