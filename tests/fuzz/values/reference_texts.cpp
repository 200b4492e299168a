#include "fuzz/values/reference_texts.h"

#include <algorithm>

#include "fuzz/values/reference_names.h"
#include "fuzz/values/reference_numbers.h"
#include "fuzz/values/reference_ole_dates.h"
#include "fuzz/values/reference_times.h"
#include "fuzz/values/stored_number.h"

namespace orvell::fuzz {

using values::BaseTypeCode;
using values::DisplayFormat;

namespace {

std::string Replaced(std::string text, char from, char to) {
    std::replace(text.begin(), text.end(), from, to);
    return text;
}

std::string WithoutQuotationMarks(std::string text) {
    if (text.starts_with('"')) {
        text.erase(0, 1);
    }
    if (text.ends_with('"')) {
        text.pop_back();
    }
    return text;
}

std::string PrintString(const Bytes& value) {
    std::string text;
    for (std::size_t i = 0; i + 1 < value.size() && value[i] != 0; ++i) {
        text += value[i] < 32 ? '.' : static_cast<char>(value[i]);
    }
    return text;
}

StoredText StoredString(const std::string& text, std::size_t width) {
    StoredText stored{true, Bytes(width)};
    for (std::size_t i = 0; i < text.size() && i + 1 < width; ++i) {
        stored.value[i] = static_cast<std::uint8_t>(text[i]);
    }
    return stored;
}

std::optional<StoredText> Stored(const ReferenceCount& reading) {
    if (!reading.isTold) {
        return std::nullopt;
    }
    return StoredText{reading.isAccepted, BytesOf(reading.isAccepted ? reading.count : 0)};
}

std::optional<StoredText> Stored(std::optional<double> serial) {
    return serial ? std::optional(StoredText{true, BytesOf(*serial)}) : std::nullopt;
}

bool IsInteger(BaseTypeCode baseType) {
    return baseType == BaseTypeCode::Int || baseType == BaseTypeCode::UInt;
}

}  // namespace

std::optional<std::string> ReferencePrint(const ConverterCase& testCase, const Bytes& value) {
    const values::TypeDescription type = testCase.Type();
    const auto count = NumberOf<std::uint32_t>(value);
    switch (type.baseType) {
        case BaseTypeCode::Int:
        case BaseTypeCode::UInt:
            return ReferenceInteger(type.baseType, testCase.Format(), value);
        case BaseTypeCode::Float:
            return ReferenceFloating(NumberOf<float>(value), 7);
        case BaseTypeCode::Double:
            return ReferenceFloating(NumberOf<double>(value), 15);
        case BaseTypeCode::String:
            return PrintString(value);
        case BaseTypeCode::Duration:
            return ReferenceDuration(count);
        case BaseTypeCode::Time:
            return ReferenceTime(count);
        case BaseTypeCode::Date:
            return ReferenceDate(count, type.dateFormat);
        case BaseTypeCode::DateTime:
            return ReferenceDate(count, type.dateFormat) + ' ' + ReferenceTime(count);
        case BaseTypeCode::OleDateTime:
            return ReferenceOleDateTime(NumberOf<double>(value), type.dateFormat);
        case BaseTypeCode::Enumerated:
            return ReferenceName(testCase.EnumItems(), count);
        default:
            return std::nullopt;
    }
}

std::optional<std::string> ReferenceExport(const ConverterCase& testCase, const Bytes& value) {
    const BaseTypeCode baseType = testCase.Type().baseType;
    if (IsInteger(baseType)) {
        return ReferenceInteger(baseType, DisplayFormat::Default, value);
    }
    const auto printed = ReferencePrint(testCase, value);
    if (!printed) {
        return std::nullopt;
    }
    switch (baseType) {
        case BaseTypeCode::Float:
        case BaseTypeCode::Double:
            return Replaced(*printed, '.', ',');
        case BaseTypeCode::String:
            return '"' + *printed + '"';
        case BaseTypeCode::OleDateTime:
            return Replaced(*printed, ',', ';');
        default:
            return printed;
    }
}

std::optional<StoredText> ReferenceParse(const ConverterCase& testCase, const std::string& text,
                                         std::size_t width) {
    switch (testCase.Type().baseType) {
        case BaseTypeCode::Int:
        case BaseTypeCode::UInt: {
            const bool isHexadecimal = testCase.Format() == DisplayFormat::Hexadecimal;
            return StoredText{true, BytesOf(isHexadecimal ? ReadReferenceHexadecimal(text)
                                                          : ReadReferenceInteger(text),
                                            width)};
        }
        case BaseTypeCode::Float:
            return StoredText{true, BytesOf(static_cast<float>(ReadReferenceFloating(text)))};
        case BaseTypeCode::Double:
            return StoredText{true, BytesOf(ReadReferenceFloating(text))};
        case BaseTypeCode::String:
            return StoredString(text, width);
        case BaseTypeCode::Duration:
            return StoredText{true, BytesOf(ReadReferenceDuration(text))};
        case BaseTypeCode::Time:
            return Stored(ReadReferenceTime(text));
        case BaseTypeCode::Date:
            return Stored(ReadReferenceDate(text));
        case BaseTypeCode::DateTime:
            return Stored(ReadReferenceDateTime(text));
        case BaseTypeCode::OleDateTime:
            return Stored(ReadReferenceOleDateTime(text));
        case BaseTypeCode::Enumerated:
            return StoredText{true, BytesOf(ReadReferenceName(testCase.EnumItems(), text), width)};
        default:
            return std::nullopt;
    }
}

std::optional<StoredText> ReferenceImport(const ConverterCase& testCase, const std::string& text,
                                          std::size_t width) {
    switch (testCase.Type().baseType) {
        case BaseTypeCode::Int:
        case BaseTypeCode::UInt:
            return StoredText{true, BytesOf(ReadReferenceListInteger(text), width)};
        case BaseTypeCode::Float:
        case BaseTypeCode::Double:
            return ReferenceParse(testCase, Replaced(text, ',', '.'), width);
        case BaseTypeCode::String:
            return ReferenceParse(testCase, WithoutQuotationMarks(text), width);
        default:
            return ReferenceParse(testCase, text, width);
    }
}

std::optional<std::string> ReferenceDefault(const ConverterCase& testCase) {
    const bool isMonthFirst = testCase.Type().dateFormat == values::DateFormatCode::MonthFirst;
    const std::string firstDay = isMonthFirst ? "01/01/1970" : "01.01.1970";
    switch (testCase.Type().baseType) {
        case BaseTypeCode::Int:
        case BaseTypeCode::UInt:
            return testCase.Format() == DisplayFormat::Hexadecimal ? "0h" : "0";
        case BaseTypeCode::Float:
        case BaseTypeCode::Double:
            return "0";
        case BaseTypeCode::String:
            return "";
        case BaseTypeCode::Duration:
            return "0 ms";
        case BaseTypeCode::Time:
            return "00:00:00";
        case BaseTypeCode::Date:
            return firstDay;
        case BaseTypeCode::DateTime:
            return firstDay + " 00:00:00";
        case BaseTypeCode::Enumerated:
            return ReferenceDefaultName(testCase.EnumItems());
        default:
            return std::nullopt;
    }
}

}  // namespace orvell::fuzz
