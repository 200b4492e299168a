#pragma once

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
        std::memcpy(inlineBytes_, &number, sizeof number);
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
        std::memcpy(&number, inlineBytes_, sizeof number);
        return number;
    }

    /// Stores the text up to its first NUL with a closing NUL. When memory is short the value
    /// becomes undefined.
    void StoreText(std::string_view text);

    /// The stored text without its closing NUL, empty when undefined; valid until the value is
    /// changed.
    [[nodiscard]] std::string_view LoadText() const;

  private:
    static constexpr std::uint32_t kInlineCapacity = 8;

    [[nodiscard]] bool IsInline() const { return length_ <= kInlineCapacity; }
    [[nodiscard]] const std::uint8_t* Data() const {
        return IsInline() ? inlineBytes_ : heapBytes_;
    }

    /// Makes room for `length` bytes and returns it; what was stored stays alive in `previous`.
    std::uint8_t* Replace(std::size_t length, std::unique_ptr<std::uint8_t[]>& previous);
    std::unique_ptr<std::uint8_t[]> Release() noexcept;

    std::uint32_t length_ = 0;
    union {
        std::uint8_t inlineBytes_[kInlineCapacity] = {};
        std::uint8_t* heapBytes_;  ///< owned, when the value is longer than `kInlineCapacity`
    };
};

}  // namespace orvell::paramlist
