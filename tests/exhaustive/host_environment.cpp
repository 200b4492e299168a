#include "exhaustive/host_environment.h"

#include <cstdint>
#include <cstdio>
#include <locale>
#include <stdexcept>
#include <string_view>

namespace orvell::exhaustive {
namespace {

/// As the script `exhaustive` has it made: a Windows host's own code page.
constexpr const char* kLocaleName = "de_DE.CP1252";

constexpr std::uint16_t kPrecisionMask = 0x0300;  // of the x87 control word; 0: 24 bits

void SetSinglePrecision() {
    std::uint16_t word = 0;
    asm volatile("fnstcw %0" : "=m"(word));
    word = static_cast<std::uint16_t>(word & ~kPrecisionMask);
    asm volatile("fldcw %0" : : "m"(word));
}

bool PrintsDecimalComma() {
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", 1.5);
    return std::string_view(text) == "1,5";
}

/// 1 + 2^-40, added by the x87 unit.
bool LosesLowBits() {
    double sum = 0.0;
    const double small = 0x1p-40;
    asm volatile("fld1\n\tfaddl %1\n\tfstpl %0" : "=m"(sum) : "m"(small));
    return sum == 1.0;
}

}  // namespace

bool EnterHostEnvironment() {
    try {
        std::locale::global(std::locale(kLocaleName));
    } catch (const std::runtime_error&) {
        return false;
    }
    SetSinglePrecision();
    return IsHostEnvironment();
}

bool IsHostEnvironment() {
    return PrintsDecimalComma() && LosesLowBits();
}

}  // namespace orvell::exhaustive
