#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace orvell::exhaustive {

// Decimal texts of floating-point numbers and back, exactly. All of it is integer arithmetic, which
// neither a locale nor the precision of the x87 unit can touch: it may run beside the code that is
// checked. Wide products with known error decide nearly all numbers; the rest is computed with as
// many digits as it takes.

/// `digits` * 10^`exponent`
struct Decimal {
    std::uint64_t digits;
    int exponent;

    bool operator==(const Decimal&) const = default;
};

/// Bits of IEEE 754 doubles.
inline constexpr std::uint64_t kDoubleSign = std::uint64_t{1} << 63;
inline constexpr std::uint64_t kDoubleInfinity = std::uint64_t{0x7FF} << 52;

/// Whether numbers near a tie only, or all of them, are computed with as many digits as it takes.
enum class Effort { WhereNeeded, Always };

/// The decimal number of so many digits (up to 17) that is nearest to a finite double other than 0,
/// of two the one with the even last digit. The sign is left out.
[[nodiscard]] Decimal NearestDecimal(std::uint64_t doubleBits, int digitCount,
                                     Effort effort = Effort::WhereNeeded);

/// Bits of the double nearest to the number, of two the one with the even last bit. The digits are
/// below 10^18, the exponent is within the powers that the table holds.
[[nodiscard]] std::uint64_t NearestDouble(const Decimal& decimal,
                                          Effort effort = Effort::WhereNeeded);

/// Bits of the single with the same value as the double, or the nearest to it.
[[nodiscard]] std::uint32_t NarrowToFloat(std::uint64_t doubleBits);

/// Bits of the double with the same value as the single.
[[nodiscard]] std::uint64_t WidenToDouble(std::uint32_t floatBits);

/// What "%.<digitCount>g" prints for a double (C11 7.21.6.1), and what that text is worth.
class GeneralPrint {
  public:
    GeneralPrint(std::uint64_t doubleBits, int digitCount);

    [[nodiscard]] std::string_view Text() const { return {text_.data(), length_}; }

    /// True for "inf", "-inf" and "nan".
    [[nodiscard]] bool IsWord() const { return isWord_; }

    /// Bits of the double nearest to the number that the text spells; not for words.
    [[nodiscard]] std::uint64_t ReadBack() const;

    /// Whether both have the same text.
    [[nodiscard]] bool operator==(const GeneralPrint& other) const {
        return decimal_ == other.decimal_ && isNegative_ == other.isNegative_ &&
               isWord_ == other.isWord_;
    }

  private:
    void Append(char character) { text_[length_++] = character; }
    void AppendWord(std::string_view word);
    void AppendDecimal(int digitCount);
    void AppendFixed(const char* digits, int count, int magnitude);
    void AppendExponential(const char* digits, int count, int magnitude);

    std::array<char, 32> text_;
    std::size_t length_ = 0;
    Decimal decimal_ = {0, 0};
    bool isNegative_;
    bool isWord_ = false;
};

}  // namespace orvell::exhaustive
