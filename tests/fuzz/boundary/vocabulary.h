#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "fuzz/boundary/program.h"

namespace orvell::fuzz {

// What the programs' arguments are chosen from: few enough to meet again.

/// An address of a parameter; many of them mean the same one, or none at all.
[[nodiscard]] std::optional<std::string> ChooseAddress(Program& program);

/// A name, a comment or a value.
[[nodiscard]] std::optional<std::string> ChooseText(Program& program);

/// Finite numbers at the limits of the integers, and those that are not finite.
[[nodiscard]] const double& ChooseNumber(Program& program);

/// An integer at the limits of its bits.
[[nodiscard]] std::uint64_t ChooseInteger(Program& program);

/// Bytes of a buffer.
[[nodiscard]] std::uint32_t ChooseLength(Program& program);

}  // namespace orvell::fuzz
