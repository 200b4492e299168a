#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace orvell::fuzz {

/// Takes an input apart from its start; behind its end there are zeros and empty texts.
class Input {
  public:
    explicit Input(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    [[nodiscard]] bool IsEmpty() const { return bytes_.empty(); }

    [[nodiscard]] std::uint8_t TakeByte() {
        if (bytes_.empty()) {
            return 0;
        }
        const std::uint8_t byte = bytes_.front();
        bytes_ = bytes_.subspan(1);
        return byte;
    }

    /// The low byte comes first.
    [[nodiscard]] std::uint64_t TakeInteger(unsigned byteCount) {
        std::uint64_t integer = 0;
        for (unsigned index = 0; index < byteCount; ++index) {
            integer |= std::uint64_t{TakeByte()} << (8 * index);
        }
        return integer;
    }

    /// At most `length` characters, which live as long as the input.
    [[nodiscard]] std::string_view TakeText(std::size_t length) {
        const auto taken = bytes_.first(std::min(length, bytes_.size()));
        bytes_ = bytes_.subspan(taken.size());
        return {reinterpret_cast<const char*>(taken.data()), taken.size()};
    }

    [[nodiscard]] std::string_view TakeRest() { return TakeText(bytes_.size()); }

  private:
    std::span<const std::uint8_t> bytes_;
};

}  // namespace orvell::fuzz
