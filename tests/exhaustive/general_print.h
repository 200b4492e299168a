#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "exhaustive/decimal_reference.h"

namespace orvell::exhaustive {

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
