#include "fuzz/boundary/value_model.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "fuzz/boundary/decimal_model.h"
#include "fuzz/boundary/host_memory.h"

namespace orvell::fuzz {
namespace {

bool IsNarrow(ModelType type) {
    return type == ModelType::Bit || type == ModelType::Byte || type == ModelType::Word;
}

bool Is32Bit(ModelType type) {
    return type == ModelType::Long || type == ModelType::Seconds;
}

bool IsInteger(ModelType type) {
    return type != ModelType::Number && type != ModelType::Text;
}

/// Keeps as many of the integer's low bits as the type has.
bool Store(ModelType type, ModelValue& value, std::int64_t integer) {
    switch (type) {
        case ModelType::Bit:
            value.integer = integer != 0 ? 1 : 0;
            break;
        case ModelType::Byte:
            value.integer = static_cast<std::uint8_t>(integer);
            break;
        case ModelType::Word:
            value.integer = static_cast<std::int16_t>(integer);
            break;
        case ModelType::Long:
            value.integer = static_cast<std::int32_t>(integer);
            break;
        case ModelType::Seconds:
            value.integer = static_cast<std::uint32_t>(integer);
            break;
        default:
            value.integer = integer;
    }
    value.isDefined = true;
    return true;
}

bool StoreNumber(ModelValue& value, const double& number) {
    value.number = number;
    value.isDefined = true;
    return true;
}

std::string Print(const double& number) {
    char text[64];
    std::snprintf(text, sizeof text, "%.15g", number);
    return std::isnan(number) ? "nan" : text;
}

}  // namespace

std::int64_t IntegerPart(const double& number) {
    const bool isHeld = number >= -9223372036854775808.0 && number < 9223372036854775808.0;
    return isHeld ? static_cast<std::int64_t>(number) : std::numeric_limits<std::int64_t>::min();
}

bool SetWord(ModelType type, ModelValue& value, std::uint16_t word) {
    return IsNarrow(type) && Store(type, value, word);
}

bool SetDword(ModelType type, ModelValue& value, std::uint32_t dword) {
    return Is32Bit(type) && Store(type, value, dword);
}

bool SetQword(ModelType type, ModelValue& value, std::uint64_t qword) {
    return type == ModelType::Integer64 && Store(type, value, static_cast<std::int64_t>(qword));
}

bool SetNumber(ModelType type, ModelValue& value, const double& number) {
    switch (type) {
        case ModelType::Bit:
            return Store(type, value, number != 0.0 ? 1 : 0);
        case ModelType::Number:
            return StoreNumber(value, number);
        case ModelType::Integer64:
        case ModelType::Text:
            return false;
        default:
            return Store(type, value, IntegerPart(number));
    }
}

bool SetText(ModelType type, ModelValue& value, const std::optional<std::string>& text) {
    switch (type) {
        case ModelType::Text:
            value.isDefined = text.has_value();
            value.text = text.value_or("");
            return true;
        case ModelType::Number: {
            double number = 0;
            ReadNumber(text.value_or(""), number);
            return StoreNumber(value, number);
        }
        case ModelType::Integer64:
            return Store(type, value, ReadInteger64(text.value_or("")));
        default:
            return Store(type, value, ReadInteger(text.value_or("")));
    }
}

std::optional<std::uint16_t> WordOf(ModelType type, const ModelValue& value) {
    if (!value.isDefined || !IsNarrow(type)) {
        return std::nullopt;
    }
    return static_cast<std::uint16_t>(value.integer);
}

std::optional<std::uint32_t> DwordOf(ModelType type, const ModelValue& value) {
    if (!value.isDefined || !Is32Bit(type)) {
        return std::nullopt;
    }
    return static_cast<std::uint32_t>(value.integer);
}

std::optional<std::uint64_t> QwordOf(ModelType type, const ModelValue& value) {
    if (!value.isDefined || type != ModelType::Integer64) {
        return std::nullopt;
    }
    return static_cast<std::uint64_t>(value.integer);
}

std::optional<double> NumberOf(ModelType type, const ModelValue& value) {
    if (!value.isDefined || !(Is32Bit(type) || type == ModelType::Number)) {
        return std::nullopt;
    }
    return Is32Bit(type) ? static_cast<double>(value.integer) : value.number;
}

std::optional<std::string> TextOf(ModelType type, const ModelValue& value) {
    if (!value.isDefined) {
        return std::nullopt;
    }
    if (type == ModelType::Seconds) {  // printed as signed, as the list file has it
        return std::to_string(static_cast<std::int32_t>(value.integer));
    }
    if (IsInteger(type)) {
        return std::to_string(value.integer);
    }
    return type == ModelType::Number ? Print(value.number) : value.text;
}

std::string StoredBytes(ModelType type, const ModelValue& value) {
    if (!value.isDefined) {
        return {};
    }
    switch (type) {
        case ModelType::Number:
            return BytesOf(value.number);
        case ModelType::Text:
            return value.text + '\0';
        default: {
            const bool isByte = type == ModelType::Bit || type == ModelType::Byte;
            const std::size_t width = isByte                    ? 1
                                      : type == ModelType::Word ? 2
                                      : Is32Bit(type)           ? 4
                                                                : 8;
            return BytesOf(value.integer).substr(0, width);
        }
    }
}

ModelValue ValueOfBytes(ModelType type, const std::string& bytes) {
    ModelValue value;
    value.isDefined = !bytes.empty();
    if (type == ModelType::Text) {
        value.text = bytes.substr(0, bytes.empty() ? 0 : bytes.size() - 1);
    } else if (type == ModelType::Number) {
        std::memcpy(&value.number, bytes.data(), std::min(bytes.size(), sizeof value.number));
    } else if (!bytes.empty()) {
        std::int64_t integer = 0;
        std::memcpy(&integer, bytes.data(), std::min(bytes.size(), sizeof integer));
        Store(type, value, integer);
    }
    return value;
}

}  // namespace orvell::fuzz
