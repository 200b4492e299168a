#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace orvell::paramlist {

/// A text of at most `capacity` bytes that lies in the object itself: `capacity` + 1 bytes.
template <std::size_t capacity>
class ShortText {
  public:
    static constexpr std::size_t kCapacity = capacity;

    /// Takes the first `capacity` bytes of the text; a NUL ends it.
    void Assign(std::string_view text) {
        static_assert(capacity <= 255);
        const std::string_view cut = text.substr(0, capacity);
        const std::string_view kept = cut.substr(0, cut.find('\0'));
        std::copy(kept.begin(), kept.end(), characters_.begin());
        length_ = static_cast<std::uint8_t>(kept.size());
    }

    /// Valid as long as the object is neither changed nor destroyed.
    [[nodiscard]] std::string_view View() const { return {characters_.data(), length_}; }

    [[nodiscard]] bool IsEmpty() const { return length_ == 0; }

  private:
    std::uint8_t length_ = 0;
    std::array<char, capacity> characters_ = {};
};

}  // namespace orvell::paramlist
