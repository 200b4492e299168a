#include "fuzz/boundary/leaf_model.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "fuzz/boundary/decimal_model.h"
#include "fuzz/boundary/host_memory.h"

namespace orvell::fuzz {
namespace {

/// A value of this type among the bytes of a value.
template <typename Number>
Number NumberIn(const std::string& bytes) {
    Number number = 0;
    std::memcpy(&number, bytes.data(), std::min(sizeof number, bytes.size()));
    return number;
}

std::string PrintedNumber(const double& number, int digits) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*g", digits, number);
    return std::isnan(number) ? "nan" : text;
}

std::string PrintedHexadecimal(unsigned long long number) {
    char text[32];
    std::snprintf(text, sizeof text, "%llXh", number);
    return text;
}

long long SignedNumber(const std::string& bytes) {
    const bool isNegative = (static_cast<unsigned char>(bytes.back()) & 0x80) != 0;
    std::string wide = bytes;
    wide.resize(sizeof(long long), isNegative ? '\xFF' : '\0');
    return NumberIn<long long>(wide);
}

std::string ShownInteger(const ModelLeafType& type, const std::string& bytes, std::uint8_t format) {
    if (format == 3) {
        return PrintedHexadecimal(NumberIn<unsigned long long>(bytes));
    }
    const bool isSigned = type.form == LeafForm::Signed ? format != 2 : format == 1;
    return isSigned ? std::to_string(SignedNumber(bytes))
                    : std::to_string(NumberIn<unsigned long long>(bytes));
}

/// A text without its last byte and what is behind its first NUL.
std::string ShownCharacters(const std::string& bytes) {
    std::string text = bytes.substr(0, std::min(bytes.find('\0'), bytes.size() - 1));
    for (char& character : text) {
        character = static_cast<unsigned char>(character) < ' ' ? '.' : character;
    }
    return text;
}

std::span<const ModelEnumerator> Modes() {
    constexpr std::int32_t kModeArea = 6;
    return FindArea(kModeArea)->enumerators;
}

std::string ShownEnumerator(const std::string& bytes) {
    const auto number = NumberIn<std::uint32_t>(bytes);
    for (const ModelEnumerator& enumerator : Modes()) {
        if (enumerator.value == number) {
            return enumerator.name;
        }
    }
    return std::to_string(number);
}

std::string ShownDuration(std::uint32_t milliseconds) {
    struct Unit {
        std::uint32_t factor;
        std::uint32_t limit;
        const char* name;
    };
    constexpr Unit kUnits[] = {{86400000, 50, " d"},
                               {3600000, 24, " h"},
                               {60000, 60, " min"},
                               {1000, 60, " s"},
                               {1, 1000, " ms"}};
    std::string text;
    for (const Unit& unit : kUnits) {
        const std::uint32_t part = milliseconds / unit.factor % unit.limit;
        if (part != 0) {
            text += (text.empty() ? "" : " ") + std::to_string(part) + unit.name;
        }
    }
    return text.empty() ? "0 ms" : text;
}

std::string ShownTime(std::uint32_t seconds) {
    char text[16];
    std::snprintf(text, sizeof text, "%02u:%02u:%02u", seconds / 3600 % 24, seconds / 60 % 60,
                  seconds % 60);
    return text;
}

std::string CutTo(const ModelLeafType& type, std::uint64_t integer) {
    return BytesOf(integer).substr(0, type.width);
}

std::string BytesOfNumber(const ModelLeafType& type, const double& number) {
    return type.form == LeafForm::Float ? BytesOf(static_cast<float>(number)) : BytesOf(number);
}

std::string BytesOfText(const ModelLeafType& type, std::string text) {
    text.resize(type.width - 1);
    text.resize(type.width);
    return text;
}

std::string ImportedNumber(const ModelLeafType& type, std::string text) {
    std::replace(text.begin(), text.end(), ',', '.');
    double number = 0;
    ReadNumber(text, number);
    return BytesOfNumber(type, number);
}

std::string ImportedText(const ModelLeafType& type, std::string text) {
    if (text.starts_with('"')) {
        text.erase(0, 1);
    }
    if (text.ends_with('"')) {
        text.pop_back();
    }
    return BytesOfText(type, text);
}

std::string ImportedEnumerator(const ModelLeafType& type, const std::string& text) {
    for (const ModelEnumerator& enumerator : Modes()) {
        if (text == enumerator.name) {
            return CutTo(type, enumerator.value);
        }
    }
    return CutTo(type, static_cast<std::uint64_t>(ReadInteger(text)));
}

double ImportedDate(const std::string& text) {
    constexpr double kDaysPerMillisecond = 1.1574074074074074e-8;
    return text == kTimeText ? kTimeSeconds * 1000.0 * kDaysPerMillisecond : 0;
}

/// Milliseconds, if the text spells but them; what is before the digits counts for nothing.
std::uint64_t ImportedDuration(const std::string& text) {
    const std::string digits = text.substr(text.starts_with('-') ? 1 : 0);
    const bool isNumber = digits.find_first_not_of("0123456789") == std::string::npos;
    return isNumber ? static_cast<std::uint64_t>(ReadInteger(digits)) : 0;
}

std::uint64_t IntegerOf(ModelType type, const ModelValue& value) {
    if (const auto qword = QwordOf(type, value)) {
        return *qword;
    }
    if (const auto dword = DwordOf(type, value)) {
        return *dword;
    }
    if (const auto word = WordOf(type, value)) {
        return *word;
    }
    const auto number = NumberOf(type, value);
    return number ? static_cast<std::uint64_t>(IntegerPart(*number)) : 0;
}

void StoreNumberOf(ModelType type, const ModelValue& value, double& number) {
    if (const auto given = NumberOf(type, value)) {
        number = *given;
    } else if (const auto qword = QwordOf(type, value)) {
        number = static_cast<double>(static_cast<std::int64_t>(*qword));
    } else if (const auto word = WordOf(type, value)) {
        number = static_cast<std::int16_t>(*word);
    }
}

}  // namespace

std::optional<std::string> ShownText(const ModelLeafType& type, const std::string& bytes,
                                     Showing showing) {
    switch (type.form) {
        case LeafForm::Signed:
        case LeafForm::Unsigned:
            return ShownInteger(type, bytes, showing.format);
        case LeafForm::Float:
            return PrintedNumber(NumberIn<float>(bytes), 7);
        case LeafForm::Double:
            return PrintedNumber(NumberIn<double>(bytes), 15);
        case LeafForm::Text:
            return showing.isBare ? ShownCharacters(bytes) : '"' + ShownCharacters(bytes) + '"';
        case LeafForm::Enumerated:
            return ShownEnumerator(bytes);
        case LeafForm::Duration:
            return ShownDuration(NumberIn<std::uint32_t>(bytes));
        case LeafForm::Time:
            return ShownTime(NumberIn<std::uint32_t>(bytes));
        case LeafForm::Date:
            break;
    }
    return std::nullopt;
}

std::optional<std::string> ListedText(const ModelLeafType& type, const std::string& bytes) {
    std::optional<std::string> text = ShownText(type, bytes, {0, false});
    if (type.form == LeafForm::Float || type.form == LeafForm::Double) {
        std::replace(text->begin(), text->end(), '.', ',');
    }
    return text;
}

std::optional<std::string> ImportedBytes(const ModelLeafType& type, const std::string& text) {
    switch (type.form) {
        case LeafForm::Signed:
        case LeafForm::Unsigned:
            return CutTo(type, static_cast<std::uint64_t>(ReadInteger64(text)));
        case LeafForm::Float:
        case LeafForm::Double:
            return ImportedNumber(type, text);
        case LeafForm::Text:
            return ImportedText(type, text);
        case LeafForm::Enumerated:
            return ImportedEnumerator(type, text);
        case LeafForm::Date:
            return BytesOf(ImportedDate(text));
        case LeafForm::Duration:
            return CutTo(type, ImportedDuration(text));
        case LeafForm::Time:
            break;
    }
    return text == kTimeText ? std::optional(BytesOf(kTimeSeconds)) : std::nullopt;
}

std::string BytesFromParameter(const ModelLeafType& type, ModelType parameterType,
                               const ModelValue& parameter) {
    if (type.form == LeafForm::Text) {
        return BytesOfText(type, TextOf(parameterType, parameter).value_or(""));
    }
    if (type.form == LeafForm::Float || type.form == LeafForm::Double ||
        type.form == LeafForm::Date) {
        double number = 0;
        StoreNumberOf(parameterType, parameter, number);
        return BytesOfNumber(type, number);
    }
    return CutTo(type, IntegerOf(parameterType, parameter));
}

}  // namespace orvell::fuzz
