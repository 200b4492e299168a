#pragma once

#include <cstdint>
#include <string_view>

namespace orvell::paramlist {

/// The parts of an address text such as "PW12" or "E3.5".
struct AddressScan {
    std::string_view keyword;  ///< part of the scanned text; empty only for an empty text
    std::uint32_t number = 0;  ///< byte * 8 + bit for a dotted text; modulo 2^32
    bool hasDigits = false;    ///< the text ends in a digit that is not its first character
    bool isDotted = false;     ///< byte and bit were given, whatever the kind
};

/// Scans an address from its end. The first character is never read as a digit: "12" is the keyword
/// "1" with the number 2. Either number may lack its digits and is 0 then.
[[nodiscard]] AddressScan ScanAddress(std::string_view text);

}  // namespace orvell::paramlist
