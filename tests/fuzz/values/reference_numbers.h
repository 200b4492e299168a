#pragma once

#include <cstdint>
#include <string>

#include "fuzz/values/converter_case.h"

namespace orvell::fuzz {

// Texts of numbers by the C library, which must be in the locale "C".

[[nodiscard]] std::string ReferenceInteger(values::BaseTypeCode baseType,
                                           values::DisplayFormat format, const Bytes& value);

/// With so many significant digits.
[[nodiscard]] std::string ReferenceFloating(double number, int digits);

/// What is too large counts modulo 2^64.
[[nodiscard]] std::uint64_t ReadReferenceInteger(const std::string& text);
[[nodiscard]] std::uint64_t ReadReferenceHexadecimal(const std::string& text);

/// An integer in a list, which may have a fraction behind a comma and an exponent: then what counts
/// stands before the point of a print with one decimal.
[[nodiscard]] std::uint64_t ReadReferenceListInteger(const std::string& text);

[[nodiscard]] double ReadReferenceFloating(const std::string& text);

}  // namespace orvell::fuzz
