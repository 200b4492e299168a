#include "values/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "values/characters.h"
#include "values/double_text.h"

namespace orvell::values {
namespace {

constexpr std::size_t kLongestInteger = 20;

unsigned HexadecimalDigitValue(char character) {
    constexpr unsigned kNoDigit = 16;
    const char upper = ToUpperAscii(character);
    if (IsDigit(upper)) {
        return DigitValue(upper);
    }
    return upper >= 'A' && upper <= 'F' ? static_cast<unsigned>(upper - 'A') + 10 : kNoDigit;
}

template <typename Integer>
void AppendInteger(std::string& text, Integer value, int base) {
    std::array<char, kLongestInteger> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, base);
    text.append(buffer.data(), result.ptr);
}

std::size_t CountDigits(std::uint32_t value) {
    std::size_t count = 1;
    for (; value >= 10; value /= 10) {
        ++count;
    }
    return count;
}

}  // namespace

std::uint64_t ReadDecimal64(std::string_view text) {
    std::size_t position = SkipWhiteSpace(text);
    const bool isNegative = position < text.size() && text[position] == '-';
    if (position < text.size() && (text[position] == '-' || text[position] == '+')) {
        ++position;
    }
    std::uint64_t value = 0;
    for (; position < text.size() && IsDigit(text[position]); ++position) {
        value = value * 10 + DigitValue(text[position]);
    }
    return isNegative ? 0 - value : value;
}

std::uint32_t ReadDecimal32(std::string_view text) {
    return static_cast<std::uint32_t>(ReadDecimal64(text));
}

std::uint64_t ReadHexadecimal(std::string_view text) {
    std::size_t position = 0;
    while (position < text.size() && IsBlank(text[position])) {
        ++position;
    }
    if (text.size() - position >= 2 && text[position] == '0' &&
        ToUpperAscii(text[position + 1]) == 'X') {
        position += 2;
    }
    std::uint64_t value = 0;
    for (; position < text.size(); ++position) {
        const unsigned digit = HexadecimalDigitValue(text[position]);
        if (digit > 15) {
            break;
        }
        value = value << 4 | digit;
    }
    return value;
}

std::uint64_t ReadDecimalOrDouble(std::string_view text) {
    if (text.find_first_of(",eE") == std::string_view::npos) {
        return ReadDecimal64(text);
    }
    std::string withPoint(text);
    std::replace(withPoint.begin(), withPoint.end(), ',', '.');
    std::string print;
    AppendFixed(print, ReadDouble(withPoint), 1);
    return ReadDecimal64(print);
}

void AppendSigned(std::string& text, std::int64_t value) {
    // 64-bit divisions are slow on the 32-bit target, and most values are small.
    const auto low = static_cast<std::int32_t>(value);
    if (low == value) {
        AppendInteger(text, low, 10);
    } else {
        AppendInteger(text, value, 10);
    }
}

void AppendUnsigned(std::string& text, std::uint64_t value) {
    AppendInteger(text, value, 10);
}

char* WriteZeroPadded(char* out, std::uint32_t value, std::size_t minimumDigits) {
    char* const end = out + std::max(CountDigits(value), minimumDigits);
    for (char* position = end; position != out; value /= 10) {
        *--position = static_cast<char>('0' + value % 10);
    }
    return end;
}

void AppendHexadecimal(std::string& text, std::uint64_t value, std::uint32_t width) {
    if (width < 1 || width > sizeof value) {
        return;
    }
    const std::size_t start = text.size();
    AppendInteger(text, value, 16);
    std::transform(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(),
                   text.begin() + static_cast<std::ptrdiff_t>(start), ToUpperAscii);
    text += 'h';
}

}  // namespace orvell::values
