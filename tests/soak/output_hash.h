#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace orvell::soak {

/// A hash over everything that the module has put out; not cryptographic, but fast.
class OutputHash {
  public:
    void Add(std::string_view bytes) {
        AddWord(bytes.size());
        for (; bytes.size() >= sizeof(std::uint64_t); bytes.remove_prefix(sizeof(std::uint64_t))) {
            std::uint64_t word = 0;
            std::memcpy(&word, bytes.data(), sizeof word);
            AddWord(word);
        }
        for (const char byte : bytes) {
            AddWord(static_cast<unsigned char>(byte));
        }
    }

    /// A text that may be missing, which is not the same as an empty one.
    void Add(const char* text) { text == nullptr ? AddWord(~0U) : Add(std::string_view(text)); }

    void AddWord(std::uint64_t word) {
        constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;
        value_ = (value_ ^ word) * kOdd;
        value_ ^= value_ >> 32;
    }

    [[nodiscard]] std::uint64_t Value() const { return value_; }

  private:
    std::uint64_t value_ = 0;
};

}  // namespace orvell::soak
