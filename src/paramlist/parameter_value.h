#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>

namespace orvell::paramlist {

/// The stored bytes of a parameter's value; none at all mean that it is undefined.
///
/// Values of up to 8 bytes lie in the object, longer ones (texts) in memory of their own.
class ParameterValue {
  public:
    ParameterValue() = default;
    ParameterValue(const ParameterValue& other);
    ParameterValue(ParameterValue&& other) noexcept;
    ParameterValue& operator=(const ParameterValue& other);
    ParameterValue& operator=(ParameterValue&& other) noexcept;
    ~ParameterValue() { Clear(); }

    [[nodiscard]] bool IsDefined() const { return length_ != 0; }

    /// Valid until the value is changed.
    [[nodiscard]] std::span<const std::uint8_t> Bytes() const { return {Data(), length_}; }

    /// Makes the value undefined and gives its memory back.
    void Clear() noexcept;

    /// Takes a copy of the bytes, which may be the value's own; none make it undefined. When memory
    /// is short the value becomes undefined.
    void Assign(std::span<const std::uint8_t> bytes);

    /// Stores the bytes of a number.
    template <typename Number>
    void Store(Number number) {
        static_assert(std::is_arithmetic_v<Number> && sizeof(Number) <= kInlineCapacity);
        Clear();
        std::memcpy(storage_.data(), &number, sizeof number);
        length_ = sizeof number;
    }

    /// The stored number; none when the value is undefined or has another width.
    template <typename Number>
    [[nodiscard]] std::optional<Number> Load() const {
        static_assert(std::is_arithmetic_v<Number> && sizeof(Number) <= kInlineCapacity);
        if (length_ != sizeof(Number)) {
            return std::nullopt;
        }
        Number number;
        std::memcpy(&number, storage_.data(), sizeof number);
        return number;
    }

    /// Stores the text up to its first NUL with a closing NUL. When memory is short the value
    /// becomes undefined.
    void StoreText(std::string_view text);

    /// The stored text without its closing NUL, empty when undefined; valid until the value is
    /// changed.
    [[nodiscard]] std::string_view LoadText() const;

  private:
    static constexpr std::size_t kInlineCapacity = 8;

    [[nodiscard]] bool IsInline() const { return length_ <= kInlineCapacity; }
    [[nodiscard]] const std::uint8_t* Data() const {
        return IsInline() ? storage_.data() : HeapPointer();
    }
    [[nodiscard]] std::uint8_t* MutableData() {
        return IsInline() ? storage_.data() : HeapPointer();
    }
    [[nodiscard]] std::uint8_t* HeapPointer() const;

    /// Makes an undefined value `length` bytes long, their content being undetermined.
    void Allocate(std::size_t length);
    void Copy(const void* bytes, std::size_t count);
    void TakeFrom(ParameterValue& other) noexcept;  // this value being undefined

    std::uint32_t length_ = 0;
    /// The bytes, or the address of longer ones, which are owned. Bytes rather than a pointer, so
    /// that the object needs no padding.
    std::array<std::uint8_t, kInlineCapacity> storage_ = {};
};

}  // namespace orvell::paramlist
