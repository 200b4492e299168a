#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "check/bench.h"
#include "check/host_record.h"

namespace workbench::check {

/// A value as text (form 5); "(none)" when it cannot be read.
[[nodiscard]] std::string ValueText(Bench& bench, std::string_view address);

/// Sets a word parameter with its name and comment; the result.
std::int32_t SetWord(Bench& bench, std::string_view address, std::int32_t value,
                     std::string_view name = "", std::string_view comment = "");

/// "name|comment", or "(none)" without a parameter.
[[nodiscard]] std::string DescriptionText(Bench& bench, std::string_view address);

/// Texts that may be addresses: of a known kind, of none, cut, long.
[[nodiscard]] std::string RandomAddress(Bench& bench);

/// The keywords of all kinds.
[[nodiscard]] std::span<const std::string_view> AllKinds();

}  // namespace workbench::check
