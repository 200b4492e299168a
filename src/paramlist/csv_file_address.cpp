#include "paramlist/csv_file_address.h"

#include <algorithm>
#include <cstddef>

#include "values/characters.h"

namespace orvell::paramlist {
namespace {

/// The start of the digits that end at `end`.
std::size_t StartOfDigits(std::string_view text, std::size_t end) {
    while (end > 0 && values::IsDigit(text[end - 1])) {
        --end;
    }
    return end;
}

}  // namespace

CsvAddress SplitCsvAddress(std::string_view text) {
    std::size_t start = StartOfDigits(text, text.size());
    if (start > 0 && text[start - 1] == '.') {
        start = StartOfDigits(text, start - 1);
    }
    return {text.substr(0, start), text.substr(start)};
}

std::optional<std::uint32_t> ReadCsvNumber(std::string_view number, bool isBit) {
    const std::size_t dot = std::min(number.find('.'), number.size());
    std::uint32_t value = 0;
    for (const char digit : number.substr(0, dot)) {
        value = value * 10 + values::DigitValue(digit);
    }
    if (dot == number.size()) {
        return value;
    }
    const std::string_view bit = number.substr(dot + 1);
    if (!isBit || bit.size() != 1 || values::DigitValue(bit[0]) > 7) {
        return std::nullopt;
    }
    return value * 8 + values::DigitValue(bit[0]);
}

}  // namespace orvell::paramlist
