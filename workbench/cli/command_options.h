#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "cli/command_line.h"

namespace workbench::cli {

/// Takes an option, and its value from `following`, the words behind it, if it has one; `taken`
/// then grows by 1. False, with `error` saying what to do, when it is none or its value cannot be
/// used.
[[nodiscard]] bool TakeOption(const std::string& option, std::span<const std::string> following,
                              CommandLine& result, std::size_t& taken, std::string& error);

/// A display format, as the option spells it.
[[nodiscard]] std::string_view FormatName(std::uint8_t format);

/// The words, separated by commas.
template <typename Range>
[[nodiscard]] std::string Alternatives(const Range& words) {
    std::string text;
    for (const auto& word : words) {
        text += (text.empty() ? "" : ", ") + std::string(word);
    }
    return text;
}

}  // namespace workbench::cli
