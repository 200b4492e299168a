#pragma once

#include <cstdint>
#include <string>

namespace orvell::fuzz {

// How accessors read numbers: what is before them is skipped if it is blank, what follows is
// ignored, and what spells none is 0.

/// An integer modulo 2^64.
[[nodiscard]] std::int64_t ReadInteger(const std::string& text);

/// As above; a text that looks like a decimal number is rounded to one place first.
[[nodiscard]] std::int64_t ReadInteger64(std::string text);

void ReadNumber(const std::string& text, double& number);

}  // namespace orvell::fuzz
