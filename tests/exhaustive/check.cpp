#include "exhaustive/check.h"

#include <array>
#include <cstdio>

namespace orvell::exhaustive {

void Differences::Add(std::string_view what, std::string_view value, std::string_view result,
                      std::string_view expected) {
    constexpr std::uint64_t kMostPrinted = 20;
    const auto widthOf = [](std::string_view text) { return static_cast<int>(text.size()); };
    if (++count_ <= kMostPrinted) {
        std::fprintf(stderr, "%.*s %.*s: %.*s instead of %.*s\n", widthOf(what), what.data(),
                     widthOf(value), value.data(), widthOf(result), result.data(),
                     widthOf(expected), expected.data());
    }
}

std::string HexadecimalBits(std::uint64_t bits, int bitCount) {
    std::array<char, 20> text;
    std::snprintf(text.data(), text.size(), "0x%0*llX", bitCount / 4,
                  static_cast<unsigned long long>(bits));
    return text.data();
}

}  // namespace orvell::exhaustive
