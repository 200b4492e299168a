#include <bit>
#include <cstdio>
#include <cstdlib>

#include "exhaustive/decimal_reference.h"
#include "exhaustive/double_checks.h"
#include "exhaustive/general_print.h"
#include "exhaustive/random_doubles.h"

namespace orvell::exhaustive {
namespace {

void CheckNarrowing(std::uint64_t bits, Differences& differences) {
    const auto single = static_cast<float>(std::bit_cast<double>(bits));
    const std::uint32_t narrowed = NarrowToFloat(bits);
    if (narrowed != std::bit_cast<std::uint32_t>(single)) {
        differences.Add("narrowed", HexadecimalBits(bits, 64), HexadecimalBits(narrowed, 32),
                        HexadecimalBits(std::bit_cast<std::uint32_t>(single), 32));
    }
    const std::uint64_t widened = WidenToDouble(narrowed);
    if (widened != std::bit_cast<std::uint64_t>(static_cast<double>(single))) {
        differences.Add("widened", HexadecimalBits(narrowed, 32), HexadecimalBits(widened, 64),
                        "another");
    }
}

void CheckPrint(std::uint64_t bits, int digitCount, Differences& differences) {
    const GeneralPrint print(bits, digitCount);
    char text[40];
    std::snprintf(text, sizeof text, "%.*g", digitCount, std::bit_cast<double>(bits));
    if (print.Text() != text) {
        differences.Add("print of", HexadecimalBits(bits, 64), print.Text(), text);
    }
    const auto readBack = std::bit_cast<std::uint64_t>(std::strtod(text, nullptr));
    if (print.ReadBack() != readBack) {
        differences.Add("read from", text, HexadecimalBits(print.ReadBack(), 64),
                        HexadecimalBits(readBack, 64));
    }
}

/// Both ways of computing against each other.
void CheckEfforts(std::uint64_t bits, int digitCount, Differences& differences) {
    const Decimal quick = NearestDecimal(bits & ~kDoubleSign, digitCount);
    const Decimal thorough = NearestDecimal(bits & ~kDoubleSign, digitCount, Effort::Always);
    if (quick != thorough || NearestDouble(quick) != NearestDouble(quick, Effort::Always)) {
        differences.Add("effort for", HexadecimalBits(bits, 64), std::to_string(quick.digits),
                        std::to_string(thorough.digits));
    }
}

}  // namespace

void CheckReference(Range values, Differences& differences) {
    constexpr std::uint64_t kEffortStep = 64;
    for (std::uint64_t number = values.first; number != values.end; ++number) {
        const std::uint64_t bits = RandomDouble(number);
        const std::uint64_t magnitude = bits & ~kDoubleSign;
        if (magnitude >= kDoubleInfinity || magnitude == 0) {
            continue;
        }
        // Half of the numbers are brought into the range of singles, so that narrowing rounds.
        const std::uint64_t near = (bits & ~(std::uint64_t{7} << 60)) | std::uint64_t{3} << 60;
        CheckNarrowing(number % 4 < 2 ? bits : near, differences);
        for (const int digitCount : {7, 15, 16}) {
            CheckPrint(bits, digitCount, differences);
            if (number / 2 % kEffortStep == 0) {
                CheckEfforts(bits, digitCount, differences);
            }
        }
        const std::uint64_t widened = WidenToDouble(static_cast<std::uint32_t>(bits));
        if ((widened & ~kDoubleSign) < kDoubleInfinity) {
            CheckPrint(widened, 7, differences);
        }
    }
}

}  // namespace orvell::exhaustive
