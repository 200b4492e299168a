#pragma once

namespace orvell::exhaustive {

/// Sets what a host may set for the whole process: a German locale with its decimal comma for C and
/// C++, and 24 bits of precision for the x87 unit. False when the system has no such locale, or
/// does not print by it.
[[nodiscard]] bool EnterHostEnvironment();

/// Whether both are still set and have their effect.
[[nodiscard]] bool IsHostEnvironment();

}  // namespace orvell::exhaustive
