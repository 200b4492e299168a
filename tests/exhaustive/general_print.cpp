#include "exhaustive/general_print.h"

#include <algorithm>
#include <cstdlib>

namespace orvell::exhaustive {

GeneralPrint::GeneralPrint(std::uint64_t doubleBits, int digitCount)
    : isNegative_((doubleBits & kDoubleSign) != 0) {
    const std::uint64_t magnitude = doubleBits & ~kDoubleSign;
    if (magnitude > kDoubleInfinity) {
        isNegative_ = false;
        AppendWord("nan");
        return;
    }
    if (isNegative_) {
        Append('-');
    }
    if (magnitude == kDoubleInfinity) {
        AppendWord("inf");
    } else if (magnitude == 0) {
        Append('0');
    } else {
        decimal_ = NearestDecimal(magnitude, digitCount);
        AppendDecimal(digitCount);
    }
}

std::uint64_t GeneralPrint::ReadBack() const {
    return NearestDouble(decimal_) | (isNegative_ ? kDoubleSign : 0);
}

void GeneralPrint::AppendWord(std::string_view word) {
    isWord_ = true;
    // Tells the words apart from each other when prints are compared.
    decimal_ = {0, static_cast<int>(word.front())};
    for (const char character : word) {
        Append(character);
    }
}

void GeneralPrint::AppendDecimal(int digitCount) {
    constexpr std::uint32_t kHalf = 100000000;
    std::array<char, 17> digits;
    const auto high = static_cast<std::uint32_t>(decimal_.digits / kHalf);
    std::uint32_t rest = static_cast<std::uint32_t>(decimal_.digits - std::uint64_t{high} * kHalf);
    for (int i = digitCount - 1; i >= 0; --i) {
        if (i == digitCount - 9) {
            rest = high;
        }
        digits[static_cast<std::size_t>(i)] = static_cast<char>('0' + rest % 10);
        rest /= 10;
    }
    int count = digitCount;
    while (count > 1 && digits[static_cast<std::size_t>(count - 1)] == '0') {
        --count;
    }
    const int magnitude = decimal_.exponent + digitCount - 1;
    if (magnitude >= -4 && magnitude < digitCount) {
        AppendFixed(digits.data(), count, magnitude);
    } else {
        AppendExponential(digits.data(), count, magnitude);
    }
}

void GeneralPrint::AppendFixed(const char* digits, int count, int magnitude) {
    if (magnitude < 0) {
        Append('0');
        Append('.');
        for (int i = -1; i > magnitude; --i) {
            Append('0');
        }
    }
    for (int i = 0; i < std::max(count, magnitude + 1); ++i) {
        if (magnitude >= 0 && i == magnitude + 1) {
            Append('.');
        }
        Append(i < count ? digits[i] : '0');
    }
}

void GeneralPrint::AppendExponential(const char* digits, int count, int magnitude) {
    Append(digits[0]);
    if (count > 1) {
        Append('.');
    }
    for (int i = 1; i < count; ++i) {
        Append(digits[i]);
    }
    Append('e');
    Append(magnitude < 0 ? '-' : '+');
    const int absolute = std::abs(magnitude);
    if (absolute >= 100) {
        Append(static_cast<char>('0' + absolute / 100));
    }
    Append(static_cast<char>('0' + absolute / 10 % 10));
    Append(static_cast<char>('0' + absolute % 10));
}

}  // namespace orvell::exhaustive
