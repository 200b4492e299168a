#include "fuzz/values/reference_texts.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "fuzz/values/reference_times.h"

namespace orvell::fuzz {

using values::BaseTypeCode;
using values::DisplayFormat;

namespace {

template <typename Number>
Number NumberOf(const Bytes& value) {
    Number number{};
    std::memcpy(&number, value.data(), std::min(sizeof number, value.size()));
    return number;
}

template <typename Number>
Bytes BytesOf(Number number, std::size_t width) {
    Bytes bytes(width);
    std::memcpy(bytes.data(), &number, std::min(sizeof number, width));
    return bytes;
}

std::string Hexadecimal(std::uint64_t number) {
    std::array<char, 24> text;
    std::snprintf(text.data(), text.size(), "%llXh", static_cast<unsigned long long>(number));
    return text.data();
}

std::string General(double number, int digits) {
    if (number != number) {
        return "nan";
    }
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), "%.*g", digits, number);
    return text.data();
}

std::string PrintInteger(const ConverterCase& testCase, const Bytes& value) {
    const auto number = NumberOf<std::uint64_t>(value);
    if (testCase.Format() == DisplayFormat::Hexadecimal) {
        return Hexadecimal(number);
    }
    const bool isSigned = testCase.Type().baseType == BaseTypeCode::Int
                              ? testCase.Format() != DisplayFormat::Unsigned
                              : testCase.Format() == DisplayFormat::Signed;
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

std::string PrintString(const Bytes& value) {
    std::string text;
    for (std::size_t i = 0; i + 1 < value.size() && value[i] != 0; ++i) {
        text += value[i] < 32 ? '.' : static_cast<char>(value[i]);
    }
    return text;
}

/// The C library knows signs and white space before hexadecimal numbers too, the product does not.
std::optional<StoredText> ParseInteger(const ConverterCase& testCase, std::size_t width) {
    const std::string& text = testCase.Text();
    const bool isHexadecimal = testCase.Format() == DisplayFormat::Hexadecimal;
    if (isHexadecimal &&
        (text.empty() || std::isxdigit(static_cast<unsigned char>(text[0])) == 0)) {
        return std::nullopt;
    }
    errno = 0;
    const unsigned long long number = std::strtoull(text.c_str(), nullptr, isHexadecimal ? 16 : 10);
    return errno == ERANGE ? std::nullopt : std::optional(StoredText{true, BytesOf(number, width)});
}

/// The C library reads hexadecimal numbers and words too, the product does not.
template <typename Number>
std::optional<StoredText> ParseFloating(const std::string& text) {
    const std::size_t start = std::min(text.find_first_not_of(" \t\n\v\f\r+-"), text.size());
    const bool isDecimal = text.find_first_not_of("0123456789.eE+-", start) == std::string::npos &&
                           text.find_first_of("eE", start) != start;
    if (!isDecimal) {
        return std::nullopt;
    }
    const auto number = static_cast<Number>(std::strtod(text.c_str(), nullptr));
    return StoredText{true, BytesOf(number, sizeof number)};
}

std::optional<StoredText> Stored(const ReferenceCount& reading) {
    if (!reading.isTold) {
        return std::nullopt;
    }
    return StoredText{reading.isAccepted,
                      BytesOf(reading.isAccepted ? reading.count : 0, sizeof reading.count)};
}

}  // namespace

std::optional<std::string> ReferencePrint(const ConverterCase& testCase, const Bytes& value) {
    const values::DateFormatCode dateFormat = testCase.Type().dateFormat;
    const auto count = NumberOf<std::uint32_t>(value);
    switch (testCase.Type().baseType) {
        case BaseTypeCode::Int:
        case BaseTypeCode::UInt:
            return PrintInteger(testCase, value);
        case BaseTypeCode::Float:
            return General(NumberOf<float>(value), 7);
        case BaseTypeCode::Double:
            return General(NumberOf<double>(value), 15);
        case BaseTypeCode::String:
            return PrintString(value);
        case BaseTypeCode::Duration:
            return ReferenceDuration(count);
        case BaseTypeCode::Time:
            return ReferenceTime(count);
        case BaseTypeCode::Date:
            return ReferenceDate(count, dateFormat);
        case BaseTypeCode::DateTime:
            return ReferenceDate(count, dateFormat) + ' ' + ReferenceTime(count);
        case BaseTypeCode::OleDateTime:
            return ReferenceOleDateTime(NumberOf<double>(value), dateFormat);
        default:
            return std::nullopt;
    }
}

std::optional<StoredText> ReferenceParse(const ConverterCase& testCase, std::size_t width) {
    const std::string& text = testCase.Text();
    switch (testCase.Type().baseType) {
        case BaseTypeCode::Int:
        case BaseTypeCode::UInt:
            return ParseInteger(testCase, width);
        case BaseTypeCode::Float:
            return ParseFloating<float>(text);
        case BaseTypeCode::Double:
            return ParseFloating<double>(text);
        case BaseTypeCode::String: {
            StoredText stored{true, testCase.Value(width)};
            stored.value.back() = 0;
            return stored;
        }
        case BaseTypeCode::Duration:
            return StoredText{true, BytesOf(ReadReferenceDuration(text), width)};
        case BaseTypeCode::Time:
            return Stored(ReadReferenceTime(text));
        case BaseTypeCode::Date:
            return Stored(ReadReferenceDate(text));
        case BaseTypeCode::DateTime:
            return Stored(ReadReferenceDateTime(text));
        default:
            return std::nullopt;
    }
}

}  // namespace orvell::fuzz
