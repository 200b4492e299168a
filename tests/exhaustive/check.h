#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "values/value_converter_set.h"

namespace orvell::exhaustive {

/// Half open: `first` belongs to it, `end` does not.
struct Range {
    std::uint64_t first;
    std::uint64_t end;
};

/// Counts what is not as expected and prints the first cases.
class Differences {
  public:
    /// One difference: what was done with which value, what came of it and what should have.
    void Add(std::string_view what, std::string_view value, std::string_view result,
             std::string_view expected);

    [[nodiscard]] std::uint64_t Count() const { return count_; }

  private:
    std::uint64_t count_ = 0;
};

/// "0x" and upper-case hexadecimal digits of so many bits.
[[nodiscard]] std::string HexadecimalBits(std::uint64_t bits, int bitCount);

}  // namespace orvell::exhaustive
