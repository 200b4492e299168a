#pragma once

#include <algorithm>
#include <cstdint>

namespace orvell::ui {

inline constexpr std::uint32_t kShortestVector = 2;
inline constexpr std::uint32_t kLongestVector = 999;

/// Whether the value is a vector and how long it then is: what stands behind the check box and the
/// length's edit. The length survives while the box is not checked.
class VectorChoice {
  public:
    explicit VectorChoice(std::uint32_t recordedLength)
        : isVector_(recordedLength >= kShortestVector), length_(Limited(recordedLength)) {}

    [[nodiscard]] bool IsVector() const { return isVector_; }

    /// The number of elements, which is also what the edit shows.
    [[nodiscard]] std::uint32_t Length() const { return isVector_ ? length_ : 1; }

    /// The box was checked.
    void BecomeVector() { isVector_ = true; }

    /// The box was unchecked while the edit held `typedLength`.
    void BecomeSingle(std::uint32_t typedLength) {
        isVector_ = false;
        length_ = Limited(typedLength);
    }

    /// The number in the edit has changed; it counts only while the edit is enabled.
    void Type(std::uint32_t typedLength) {
        if (isVector_) {
            length_ = Limited(typedLength);
        }
    }

    [[nodiscard]] static std::uint32_t Limited(std::uint32_t length) {
        return std::clamp(length, kShortestVector, kLongestVector);
    }

  private:
    bool isVector_;
    std::uint32_t length_;
};

}  // namespace orvell::ui
