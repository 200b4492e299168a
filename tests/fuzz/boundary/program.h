#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace orvell::fuzz {

/// The bytes of an input as a program of calls. An operation is a letter, its arguments are the
/// bytes behind it: 'a' is the first choice of everything, 'b' the second. Every sequence of bytes
/// is a program; what lies behind its end counts as first choices.
class Program {
  public:
    explicit Program(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    [[nodiscard]] bool IsAtEnd() const { return position_ == bytes_.size(); }

    /// One of `count` choices.
    [[nodiscard]] std::uint32_t Choose(std::size_t count) {
        return static_cast<std::uint8_t>(Byte() - kFirstChoice) % static_cast<std::uint32_t>(count);
    }

    /// True for the second choice of two.
    [[nodiscard]] bool Decide() { return Choose(2) == 1; }

    /// One of the range's elements.
    template <typename Range>
    [[nodiscard]] const auto& Pick(const Range& range) {
        return range[Choose(std::size(range))];
    }

    /// The next byte; the first choice behind the end.
    [[nodiscard]] std::uint8_t Byte() { return IsAtEnd() ? kFirstChoice : bytes_[position_++]; }

    /// The bytes up to the next '|', which is taken too, a NUL or the end.
    [[nodiscard]] std::string Text() {
        std::string text;
        while (!IsAtEnd()) {
            const auto byte = static_cast<char>(bytes_[position_++]);
            if (byte == '|' || byte == '\0') {
                break;
            }
            text += byte;
        }
        return text;
    }

  private:
    static constexpr std::uint8_t kFirstChoice = 'a';

    std::span<const std::uint8_t> bytes_;
    std::size_t position_ = 0;
};

}  // namespace orvell::fuzz
