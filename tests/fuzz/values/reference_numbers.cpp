#include "fuzz/values/reference_numbers.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "fuzz/values/stored_number.h"

namespace orvell::fuzz {

using values::BaseTypeCode;
using values::DisplayFormat;

namespace {

std::string Hexadecimal(std::uint64_t number) {
    std::array<char, 24> text;
    std::snprintf(text.data(), text.size(), "%llXh", static_cast<unsigned long long>(number));
    return text.data();
}

/// A sign and digits of any number.
std::uint64_t ModuloOfDigits(std::string_view text) {
    std::uint64_t number = 0;
    for (const char character : text) {
        if (std::isdigit(static_cast<unsigned char>(character)) != 0) {
            number = number * 10 + static_cast<std::uint64_t>(character - '0');
        }
    }
    return text.find('-') == std::string_view::npos ? number : 0 - number;
}

}  // namespace

std::string ReferenceInteger(BaseTypeCode baseType, DisplayFormat format, const Bytes& value) {
    const auto number = NumberOf<std::uint64_t>(value);
    if (format == DisplayFormat::Hexadecimal) {
        return Hexadecimal(number);
    }
    const bool isSigned = baseType == BaseTypeCode::Int ? format != DisplayFormat::Unsigned
                                                        : format == DisplayFormat::Signed;
    if (!isSigned) {
        return std::to_string(number);
    }
    switch (value.size()) {
        case 1:
            return std::to_string(NumberOf<std::int8_t>(value));
        case 2:
            return std::to_string(NumberOf<std::int16_t>(value));
        case 4:
            return std::to_string(NumberOf<std::int32_t>(value));
        default:
            return std::to_string(NumberOf<std::int64_t>(value));
    }
}

std::string ReferenceFloating(double number, int digits) {
    if (number != number) {
        return "nan";
    }
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), "%.*g", digits, number);
    return text.data();
}

std::uint64_t ReadReferenceInteger(const std::string& text) {
    errno = 0;
    char* end = nullptr;
    const std::uint64_t number = std::strtoull(text.c_str(), &end, 10);
    return errno == ERANGE ? ModuloOfDigits({text.c_str(), end}) : number;
}

/// The C library knows signs and white space before hexadecimal numbers too, the product only
/// blanks and tabs.
std::uint64_t ReadReferenceHexadecimal(const std::string& text) {
    constexpr std::ptrdiff_t kDigitsThatCount = 16;
    const char* const start = text.c_str() + std::min(text.find_first_not_of(" \t"), text.size());
    if (std::isxdigit(static_cast<unsigned char>(*start)) == 0) {
        return 0;
    }
    errno = 0;
    char* end = nullptr;
    const std::uint64_t number = std::strtoull(start, &end, 16);
    return errno == ERANGE
               ? std::strtoull(std::string(end - kDigitsThatCount, end).c_str(), nullptr, 16)
               : number;
}

std::uint64_t ReadReferenceListInteger(const std::string& text) {
    if (text.find_first_of(",eE") == std::string::npos) {
        return ReadReferenceInteger(text);
    }
    std::string withPoint = text;
    std::replace(withPoint.begin(), withPoint.end(), ',', '.');
    std::array<char, 400> print;
    std::snprintf(print.data(), print.size(), "%-22.1f", ReadReferenceFloating(withPoint));
    return ReadReferenceInteger(print.data());
}

/// The C library reads hexadecimal numbers and words too, the product does not.
double ReadReferenceFloating(const std::string& text) {
    return std::strtod(text.substr(0, text.find_first_of("xXiInN")).c_str(), nullptr);
}

}  // namespace orvell::fuzz
