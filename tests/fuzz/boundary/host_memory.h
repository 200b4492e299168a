#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orvell::fuzz {

/// Memory of a host that ends exactly where it says, so that the sanitizer sees every byte that the
/// module touches beyond. It begins at an odd address, unless a record lies in it.
class HostMemory {
  public:
    enum class Place { Odd, Aligned };

    /// Filled with a pattern.
    explicit HostMemory(std::size_t size, Place place = Place::Odd)
        : size_(size),
          start_(place == Place::Odd ? 1 : 0),
          block_(std::make_unique_for_overwrite<std::uint8_t[]>(start_ + size)) {
        std::fill_n(Data(), size, kPattern);
    }

    explicit HostMemory(std::string_view bytes, Place place = Place::Odd)
        : HostMemory(bytes.size(), place) {
        Put(0, bytes);
    }

    [[nodiscard]] std::uint8_t* Data() { return block_.get() + start_; }

    template <typename Type>
    [[nodiscard]] Type* As() {
        return reinterpret_cast<Type*>(Data());
    }

    /// As much of the bytes as there is room for.
    void Put(std::size_t offset, std::string_view bytes) {
        if (offset < size_) {
            std::memcpy(Data() + offset, bytes.data(), std::min(bytes.size(), size_ - offset));
        }
    }

    [[nodiscard]] std::string Bytes() { return {As<char>(), size_}; }

    static constexpr std::uint8_t kPattern = 0xCD;

  private:
    std::size_t size_;
    std::size_t start_;
    std::unique_ptr<std::uint8_t[]> block_;
};

/// A text that a host passes in, or none.
class HostText {
  public:
    explicit HostText(const std::optional<std::string>& text) {
        if (text) {
            memory_.emplace(std::string_view(text->c_str(), text->size() + 1));
        }
    }

    [[nodiscard]] const char* Pointer() { return memory_ ? memory_->As<char>() : nullptr; }

  private:
    std::optional<HostMemory> memory_;
};

/// The bytes of a number.
template <typename Number>
[[nodiscard]] std::string BytesOf(const Number& number) {
    std::string bytes(sizeof number, '\0');
    std::memcpy(bytes.data(), &number, sizeof number);
    return bytes;
}

}  // namespace orvell::fuzz
