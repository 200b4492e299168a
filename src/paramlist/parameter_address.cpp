#include "paramlist/parameter_address.h"

#include <cstddef>

#include "values/characters.h"

namespace orvell::paramlist {
namespace {

struct TrailingNumber {
    std::uint32_t value = 0;
    std::size_t start;  ///< position of its first digit; the given end when it has none
};

/// The number whose digits end at `end`; the text's first character does not belong to it.
TrailingNumber ScanTrailingNumber(std::string_view text, std::size_t end) {
    TrailingNumber number = {.value = 0, .start = end};
    std::uint32_t power = 1;
    while (number.start > 1 && values::IsDigit(text[number.start - 1])) {
        --number.start;
        number.value += values::DigitValue(text[number.start]) * power;
        power *= 10;
    }
    return number;
}

}  // namespace

AddressScan ScanAddress(std::string_view text) {
    const TrailingNumber last = ScanTrailingNumber(text, text.size());
    const bool hasDigits = last.start < text.size();
    if (last.start < 2 || text[last.start - 1] != '.') {
        return {text.substr(0, last.start), last.value, hasDigits, false};
    }
    const TrailingNumber byte = ScanTrailingNumber(text, last.start - 1);
    return {text.substr(0, byte.start), last.value + byte.value * 8, hasDigits, true};
}

}  // namespace orvell::paramlist
