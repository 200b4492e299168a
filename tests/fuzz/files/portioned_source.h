#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "platform/byte_stream.h"

namespace orvell::fuzz {

/// Gives out a text in portions of sizes between 1 and 128 bytes that only `rhythm` decides on;
/// whole for the rhythm 0. The text must outlive the source.
class PortionedSource : public platform::ByteSource {
  public:
    PortionedSource(std::string_view text, std::uint32_t rhythm) : rest_(text), state_(rhythm) {}

    [[nodiscard]] std::size_t Read(std::span<char> buffer) override {
        const std::size_t size = std::min({buffer.size(), rest_.size(), NextPortion()});
        std::copy_n(rest_.begin(), size, buffer.begin());
        rest_.remove_prefix(size);
        return size;
    }

  private:
    std::size_t NextPortion() {
        if (state_ == 0) {
            return rest_.size();
        }
        state_ = state_ * 1664525U + 1013904223U;
        const std::uint32_t limit = 1U << (state_ >> 29);
        return 1 + (state_ >> 8) % limit;
    }

    std::string_view rest_;
    std::uint32_t state_;
};

}  // namespace orvell::fuzz
