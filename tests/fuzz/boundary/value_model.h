#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace orvell::fuzz {

/// How the values of a kind behave; several kinds behave alike.
enum class ModelType { Bit, Byte, Word, Long, Seconds, Integer64, Number, Text };

/// A parameter's value, told once more in the plainest way: what each type takes and gives.
struct ModelValue {
    bool isDefined = false;
    std::int64_t integer = 0;  ///< within the limits of the type
    double number = 0;
    std::string text;
};

// The setters: false, with the value unchanged, for what the type does not take.
bool SetWord(ModelType type, ModelValue& value, std::uint16_t word);
bool SetDword(ModelType type, ModelValue& value, std::uint32_t dword);
bool SetQword(ModelType type, ModelValue& value, std::uint64_t qword);
bool SetNumber(ModelType type, ModelValue& value, const double& number);
bool SetText(ModelType type, ModelValue& value, const std::optional<std::string>& text);

// The getters: none for what the type does not give, and for an undefined value.
[[nodiscard]] std::optional<std::uint16_t> WordOf(ModelType type, const ModelValue& value);
[[nodiscard]] std::optional<std::uint32_t> DwordOf(ModelType type, const ModelValue& value);
[[nodiscard]] std::optional<std::uint64_t> QwordOf(ModelType type, const ModelValue& value);
[[nodiscard]] std::optional<double> NumberOf(ModelType type, const ModelValue& value);
[[nodiscard]] std::optional<std::string> TextOf(ModelType type, const ModelValue& value);

/// The value as it is stored; empty when it is undefined.
[[nodiscard]] std::string StoredBytes(ModelType type, const ModelValue& value);

/// The value that is stored so.
[[nodiscard]] ModelValue ValueOfBytes(ModelType type, const std::string& bytes);

/// The integer part of a number; -2^63 for one that 64 bits do not hold.
[[nodiscard]] std::int64_t IntegerPart(const double& number);

}  // namespace orvell::fuzz
