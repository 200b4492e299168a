#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvell::fuzz {

/// An address, split where its shortest keyword ends behind which nothing comes but digits, or
/// digits, a point and digits.
struct SplitAddress {
    std::string keyword;
    std::string digits;      ///< in front of the point, if there is one
    std::string lastDigits;  ///< behind it
    bool isDotted = false;
};

[[nodiscard]] SplitAddress SplitBehindKeyword(std::string_view text, std::size_t shortestKeyword);

/// The digits' number modulo 2^32, 0 for none.
[[nodiscard]] std::uint32_t NumberOfDigits(std::string_view digits);

/// The number of an address in a CSV file; none for one that is invalid.
[[nodiscard]] std::optional<std::uint32_t> CsvNumberOf(const SplitAddress& address, bool isBit);

}  // namespace orvell::fuzz
