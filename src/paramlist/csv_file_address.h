#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace orvell::paramlist {

/// The parts of the address in a CSV record's first field; both are parts of the given text.
struct CsvAddress {
    std::string_view keyword;  ///< empty when the text is nothing but a number
    std::string_view number;   ///< may be empty, or have one dot
};

/// Splits an address before the digits at its end, of which the last may follow a dot.
[[nodiscard]] CsvAddress SplitCsvAddress(std::string_view text);

/// The number that `CsvAddress::number` spells, modulo 2^32; none when it is malformed. Nothing at
/// all counts as 0. Only bits may have a dot, with one digit from 0 to 7 behind it. A bit without
/// dot is the number of the bit itself: "E29" is "E3.5".
[[nodiscard]] std::optional<std::uint32_t> ReadCsvNumber(std::string_view number, bool isBit);

}  // namespace orvell::paramlist
