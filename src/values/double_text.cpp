#include "values/double_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

#include "values/characters.h"

namespace orvell::values {
namespace {

/// The parts of a decimal number. Its absolute value is `significand` times 10 to `exponent`,
/// unless some digits had no room in `significand`.
struct DecimalNumber {
    bool isNegative = false;
    std::string_view digits;  ///< digits, point and exponent, without the sign
    std::uint64_t significand = 0;
    bool isExact = true;         ///< all digits are in `significand`
    std::int64_t exponent = 0;   ///< of the significand's last digit
    std::int64_t magnitude = 0;  ///< of the first digit that is not 0: 10^(magnitude-1) or more
    std::size_t end = 0;         ///< of the number in the text; 0: there is none
};

/// Collects the digits from `position` on and returns the first position behind them.
std::size_t CollectDigits(std::string_view text, std::size_t position, bool inFraction,
                          DecimalNumber& number) {
    constexpr std::uint64_t kRoomForOneMoreDigit =
        (std::numeric_limits<std::uint64_t>::max() - 9) / 10;
    for (; position < text.size() && IsDigit(text[position]); ++position) {
        const unsigned digit = DigitValue(text[position]);
        const bool isSignificant = number.significand != 0 || digit != 0;
        if (number.isExact && number.significand <= kRoomForOneMoreDigit) {
            number.significand = number.significand * 10 + digit;
            number.exponent -= inFraction ? 1 : 0;
        } else {
            number.isExact = false;
        }
        number.magnitude += !inFraction && isSignificant ? 1 : 0;
        number.magnitude -= inFraction && !isSignificant ? 1 : 0;
    }
    return position;
}

/// Adds a complete exponent at `position` to the number; an incomplete one does not belong to it.
std::size_t CollectExponent(std::string_view text, std::size_t position, DecimalNumber& number) {
    constexpr std::int64_t kBeyondEveryDouble = std::int64_t{1} << 40;
    std::size_t next = position;
    if (next == text.size() || ToUpperAscii(text[next]) != 'E') {
        return position;
    }
    ++next;
    const bool isNegative = next < text.size() && text[next] == '-';
    if (next < text.size() && (text[next] == '-' || text[next] == '+')) {
        ++next;
    }
    if (next == text.size() || !IsDigit(text[next])) {
        return position;
    }
    std::int64_t exponent = 0;
    for (; next < text.size() && IsDigit(text[next]); ++next) {
        exponent = std::min(exponent * 10 + DigitValue(text[next]), kBeyondEveryDouble);
    }
    number.exponent += isNegative ? -exponent : exponent;
    number.magnitude += isNegative ? -exponent : exponent;
    return next;
}

DecimalNumber SplitNumber(std::string_view text) {
    DecimalNumber number;
    std::size_t position = SkipWhiteSpace(text);
    if (position < text.size() && (text[position] == '+' || text[position] == '-')) {
        number.isNegative = text[position] == '-';
        ++position;
    }
    const std::size_t start = position;
    position = CollectDigits(text, position, false, number);
    std::size_t digitCount = position - start;
    if (position < text.size() && text[position] == '.') {
        const std::size_t fraction = position + 1;
        position = CollectDigits(text, fraction, true, number);
        digitCount += position - fraction;
    }
    if (digitCount == 0) {
        return {};
    }
    number.end = CollectExponent(text, position, number);
    number.digits = text.substr(start, number.end - start);
    return number;
}

/// The value of a number whose significand and power of ten are both doubles: then one operation
/// rounds correctly. Our own arithmetic is SSE2; the run-time library may compute the same on the
/// x87 unit, in whatever precision the host has set. All longer numbers it computes in integers.
bool ValueOfShortNumber(const DecimalNumber& number, double& value) {
    constexpr std::array<double, 23> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                     1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                     1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    constexpr std::int64_t kLargestPower = kPowersOfTen.size() - 1;
    constexpr std::uint64_t kLargestSignificand = std::uint64_t{1}
                                                  << std::numeric_limits<double>::digits;
    if (!number.isExact || number.significand > kLargestSignificand ||
        number.exponent < -kLargestPower || number.exponent > kLargestPower) {
        return false;
    }
    // By way of a signed integer: the conversion of an unsigned one may add in the x87 unit.
    const auto significand = static_cast<double>(static_cast<std::int64_t>(number.significand));
    value = number.exponent < 0
                ? significand / kPowersOfTen[static_cast<std::size_t>(-number.exponent)]
                : significand * kPowersOfTen[static_cast<std::size_t>(number.exponent)];
    return true;
}

double AbsoluteValue(const DecimalNumber& number) {
    double value = 0.0;
    if (ValueOfShortNumber(number, value)) {
        return value;
    }
    const char* const begin = number.digits.data();
    const auto result = std::from_chars(begin, begin + number.digits.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // from_chars leaves open in which direction.
        return number.magnitude > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return value;
}

}  // namespace

DoubleScan ScanDouble(std::string_view text) {
    const DecimalNumber number = SplitNumber(text);
    if (number.end == 0) {
        return {0.0, 0};
    }
    const double value = AbsoluteValue(number);
    return {number.isNegative ? -value : value, number.end};
}

double ReadDouble(std::string_view text) {
    return ScanDouble(text).value;
}

void AppendGeneral(std::string& text, double value, int significantDigits) {
    if (std::isnan(value)) {
        text += "nan";
        return;
    }
    constexpr std::size_t kLongestText = 48;
    std::array<char, kLongestText> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::general, significantDigits);
    text.append(buffer.data(), result.ptr);
}

void AppendFixed(std::string& text, double value, int decimals) {
    if (std::isnan(value)) {
        text += "nan";
        return;
    }
    constexpr std::size_t kLongestText = 320;  // sign, 309 digits of the largest double, point
    std::array<char, kLongestText> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::fixed, decimals);
    text.append(buffer.data(), result.ptr);
}

}  // namespace orvell::values
