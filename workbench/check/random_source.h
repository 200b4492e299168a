#pragma once

#include <cstdint>
#include <random>
#include <span>
#include <string>
#include <string_view>

namespace workbench::check {

/// Numbers that are the same in every run with the same seed, whatever the compiler.
class RandomSource {
  public:
    explicit RandomSource(std::uint32_t seed) : engine_(seed) {}

    [[nodiscard]] std::uint32_t Word() { return static_cast<std::uint32_t>(engine_()); }

    /// From 0 to `end` - 1.
    [[nodiscard]] std::uint32_t Below(std::size_t end) {
        return Word() % static_cast<std::uint32_t>(end);
    }

    void Fill(std::span<std::uint8_t> bytes) {
        for (std::uint8_t& byte : bytes) {
            byte = static_cast<std::uint8_t>(Word());
        }
    }

    template <typename Range>
    [[nodiscard]] const auto& OneOf(const Range& range) {
        return range[Below(std::size(range))];
    }

    /// Up to `longest` of these characters.
    [[nodiscard]] std::string Text(std::size_t longest, std::string_view characters) {
        std::string text(Below(longest + 1), '\0');
        for (char& character : text) {
            character = OneOf(characters);
        }
        return text;
    }

  private:
    std::mt19937 engine_;
};

}  // namespace workbench::check
