#include "fuzz/files/value_reference.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <utility>

namespace orvell::fuzz {
namespace {

using paramlist::ValueTypeCode;

constexpr std::string_view kIntegerCharacters = "+-0123456789";
constexpr std::string_view kNumberCharacters = "+-.0123456789eE";

bool IsMadeOf(std::string_view text, std::string_view characters) {
    return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

template <typename Number>
ReadValue Bytes(Number number) {
    return {.bytes = std::string(reinterpret_cast<const char*>(&number), sizeof number)};
}

/// Digits behind a sign modulo 2^64, up to the first character that is none.
std::uint64_t Wrapped(std::string_view text) {
    const bool isNegative = text.front() == '-';
    text.remove_prefix(isNegative || text.front() == '+' ? 1 : 0);
    std::uint64_t number = 0;
    for (const char digit : text.substr(0, text.find_first_of("+-"))) {
        number = number * 10 + static_cast<std::uint64_t>(digit - '0');
    }
    return isNegative ? 0 - number : number;
}

template <typename Integer>
ReadValue Within(std::string_view text) {
    const std::string terminated(text);
    char* end = nullptr;
    errno = 0;
    const long long number = std::strtoll(terminated.c_str(), &end, 10);
    const bool isWhole = end == terminated.c_str() + terminated.size();
    if (!isWhole || errno != 0 || !std::in_range<Integer>(number)) {
        return {.isRefused = true, .bytes = {}};
    }
    return Bytes(static_cast<Integer>(number));
}

ReadValue BitOf(std::string_view text) {
    const bool hasDigit = text.find_first_of("0123456789") != std::string_view::npos;
    if (!hasDigit || text.find_last_of("+-") + 1 > 1) {
        return {.isRefused = true, .bytes = {}};
    }
    return Bytes(static_cast<std::uint8_t>(text.find_first_of("123456789") == text.npos ? 0 : 1));
}

ReadValue WholeNumber(std::string text) {
    std::ranges::replace(text, ',', '.');
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    const bool isWhole = end == text.c_str() + text.size();
    return isWhole && std::isfinite(number) ? Bytes(number) : ReadValue{true, {}};
}

}  // namespace

std::optional<ReadValue> ValueOfListText(ValueTypeCode type, std::string_view text) {
    if (type == ValueTypeCode::Float || type == ValueTypeCode::OleDateTime) {
        return IsMadeOf(text, kNumberCharacters)
                   ? std::optional(Bytes(std::strtod(std::string(text).c_str(), nullptr)))
                   : std::nullopt;
    }
    if (type == ValueTypeCode::Text || !IsMadeOf(text, kIntegerCharacters)) {
        return std::nullopt;
    }
    const std::uint64_t number = Wrapped(text);
    switch (type) {
        case ValueTypeCode::Bit:
            return Bytes(static_cast<std::uint8_t>(number != 0));
        case ValueTypeCode::Byte:
            return Bytes(static_cast<std::uint8_t>(number));
        case ValueTypeCode::Word:
            return Bytes(static_cast<std::uint16_t>(number));
        case ValueTypeCode::Integer64:
            return Bytes(number);
        default:
            return Bytes(static_cast<std::uint32_t>(number));
    }
}

std::optional<ReadValue> ValueOfCsvText(ValueTypeCode type, std::string_view text) {
    if (type == ValueTypeCode::Float) {
        return IsMadeOf(text, kNumberCharacters) || IsMadeOf(text, "+-,0123456789eE")
                   ? std::optional(WholeNumber(std::string(text)))
                   : std::nullopt;
    }
    if (!IsMadeOf(text, kIntegerCharacters)) {
        return std::nullopt;
    }
    switch (type) {
        case ValueTypeCode::Bit:
            return BitOf(text);
        case ValueTypeCode::Byte:
            return Within<std::uint8_t>(text);
        case ValueTypeCode::Word:
            return Within<std::int16_t>(text);
        case ValueTypeCode::Long:
            return Within<std::int32_t>(text);
        case ValueTypeCode::Time:
            return Within<std::uint32_t>(text);
        case ValueTypeCode::Integer64:
            return Within<std::int64_t>(text);
        default:
            return std::nullopt;
    }
}

}  // namespace orvell::fuzz
