#include "fuzz/files/value_reference.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <optional>
#include <utility>

#include "fuzz/files/time_reference.h"

namespace orvell::fuzz {
namespace {

using paramlist::ValueTypeCode;

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kIntegerCharacters = "+-0123456789";
constexpr std::string_view kNumberCharacters = "+-.0123456789eE";

bool IsMadeOf(std::string_view text, std::string_view characters) {
    return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

/// The text from its first character on that is none of the given ones.
std::string_view Behind(std::string_view text, std::string_view characters) {
    return text.substr(std::min(text.find_first_not_of(characters), text.size()));
}

std::string_view WithoutBlanksAround(std::string_view text) {
    return Behind(text.substr(0, text.find_last_not_of(kBlanks) + 1), kBlanks);
}

std::string WithPoint(std::string_view text) {
    std::string withPoint(text);
    std::ranges::replace(withPoint, ',', '.');
    return withPoint;
}

template <typename Number>
ReadValue Bytes(Number number) {
    return {.bytes = std::string(reinterpret_cast<const char*>(&number), sizeof number)};
}

ReadValue Refused() {
    return {.isRefused = true, .bytes = {}};
}

template <typename Number>
ReadValue BytesOrRefused(const std::optional<Number>& number) {
    return number ? Bytes(*number) : Refused();
}

ReadValue Text(std::string_view text) {
    return {.bytes = std::string(text.substr(0, text.find('\0'))) + '\0'};
}

std::optional<double> NotFinite(std::string_view text) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    if (text == "inf" || text == "-inf") {
        return text == "inf" ? kInfinity : -kInfinity;
    }
    return text == "nan" ? std::optional(std::numeric_limits<double>::quiet_NaN()) : std::nullopt;
}

/// What the C library reads of a decimal number at the text's start; 0 when there is none.
double NumberAtStart(std::string_view text) {
    const std::string_view trimmed = Behind(text, kWhiteSpace);
    const std::string number(trimmed.substr(0, trimmed.find_first_not_of(kNumberCharacters)));
    return std::strtod(number.c_str(), nullptr);
}

/// The integer part of the number rounded to one decimal.
std::string IntegerPart(double number) {
    std::array<char, 400> print;
    std::snprintf(print.data(), print.size(), "%.1f", number);
    const std::string text = print.data();
    return text.substr(0, text.find('.'));
}

bool IsDecimal(std::string_view text) {
    return text.find_first_of(",eE") != std::string_view::npos;
}

/// Digits behind white space and a sign, modulo 2^64; 0 when there are none.
std::uint64_t Wrapped(std::string_view text) {
    text = Behind(text, kWhiteSpace);
    const bool isNegative = text.starts_with('-');
    text.remove_prefix(isNegative || text.starts_with('+') ? 1 : 0);
    std::uint64_t number = 0;
    for (const char digit : text.substr(0, text.find_first_not_of(kDigits))) {
        number = number * 10 + static_cast<std::uint64_t>(digit - '0');
    }
    return isNegative ? 0 - number : number;
}

/// The number that is the whole text, without blanks around it.
std::optional<double> WholeNumber(std::string_view text) {
    if (!IsMadeOf(text, "+-.,0123456789eE")) {
        return std::nullopt;
    }
    const std::string number = WithPoint(text);
    char* end = nullptr;
    const double value = std::strtod(number.c_str(), &end);
    const bool isWhole = end == number.c_str() + number.size();
    return isWhole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// The integer that is the whole text, as sign and digits; none for a text that is no integer.
std::optional<std::string> WholeInteger(std::string_view text) {
    std::string integer(text);
    if (IsDecimal(text)) {
        const std::optional<double> number = WholeNumber(text);
        integer = number ? IntegerPart(*number) : "";
    }
    const bool isSignInFront = integer.find_last_of("+-") + 1 <= 1;
    const bool hasDigits = integer.find_first_of(kDigits) != std::string::npos;
    return isSignInFront && hasDigits && IsMadeOf(integer, kIntegerCharacters)
               ? std::optional(integer)
               : std::nullopt;
}

ReadValue BitOf(std::string_view text) {
    const std::optional<std::string> integer = WholeInteger(text);
    if (!integer) {
        return Refused();
    }
    const bool isZero = integer->find_first_of("123456789") == std::string::npos;
    return Bytes(static_cast<std::uint8_t>(isZero ? 0 : 1));
}

template <typename Integer>
ReadValue Within(std::string_view text) {
    const std::optional<std::string> integer = WholeInteger(text);
    errno = 0;
    const long long number = integer ? std::strtoll(integer->c_str(), nullptr, 10) : 0;
    if (!integer || errno != 0 || !std::in_range<Integer>(number)) {
        return Refused();
    }
    return Bytes(static_cast<Integer>(number));
}

ReadValue NumberOfCsvText(std::string_view text) {
    const std::optional<double> number = WholeNumber(text);
    return BytesOrRefused(number ? number : NotFinite(text));
}

}  // namespace

ReadValue ValueOfListText(ValueTypeCode type, std::string_view text) {
    if (text == "undef") {
        return {};
    }
    switch (type) {
        case ValueTypeCode::Text:
            return Text(text);
        case ValueTypeCode::Float:
        case ValueTypeCode::OleDateTime:
            return Bytes(NotFinite(text).value_or(NumberAtStart(text)));
        case ValueTypeCode::Bit:
            return Bytes(static_cast<std::uint8_t>(Wrapped(text) != 0));
        case ValueTypeCode::Byte:
            return Bytes(static_cast<std::uint8_t>(Wrapped(text)));
        case ValueTypeCode::Word:
            return Bytes(static_cast<std::uint16_t>(Wrapped(text)));
        case ValueTypeCode::Integer64:
            return Bytes(IsDecimal(text) ? Wrapped(IntegerPart(NumberAtStart(WithPoint(text))))
                                         : Wrapped(text));
        default:
            return Bytes(static_cast<std::uint32_t>(Wrapped(text)));
    }
}

ReadValue ValueOfCsvText(ValueTypeCode type, std::string_view text) {
    const std::string_view value = WithoutBlanksAround(text);
    if (value.empty()) {
        return {};
    }
    switch (type) {
        case ValueTypeCode::Text:
            return Text(text);
        case ValueTypeCode::Float:
            return NumberOfCsvText(value);
        case ValueTypeCode::Bit:
            return BitOf(value);
        case ValueTypeCode::Byte:
            return Within<std::uint8_t>(value);
        case ValueTypeCode::Word:
            return Within<std::int16_t>(value);
        case ValueTypeCode::Long:
            return Within<std::int32_t>(value);
        case ValueTypeCode::Time:
            return Within<std::uint32_t>(value);
        case ValueTypeCode::Integer64:
            return Within<std::int64_t>(value);
        case ValueTypeCode::Date:
            return BytesOrRefused(DateOfText(value));
        case ValueTypeCode::TimeOfDay:
            return BytesOrRefused(TimeOfDayOfText(value));
        case ValueTypeCode::DateAndTime:
            return BytesOrRefused(DateAndTimeOfText(value));
        case ValueTypeCode::OleDateTime:
            return Bytes(OleDateTimeOfText(value));
        default:
            return Refused();
    }
}

}  // namespace orvell::fuzz
