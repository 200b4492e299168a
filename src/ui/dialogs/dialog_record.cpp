#include "ui/dialogs/dialog_record.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace orvell::ui {

using values::DisplayFormat;

namespace {

constexpr std::uint32_t kVectorMode = 1;
constexpr std::uint32_t kOnlineMode = 3;
constexpr std::uint8_t kHasFormat = 0x80;
constexpr std::uint8_t kFormatBits = 0x0F;

std::string TextOrNothing(const char* text) {
    return text == nullptr ? std::string() : std::string(text);
}

}  // namespace

std::uint32_t DialogRecord::Identifier() const {
    return static_cast<std::uint32_t>(record_.identifier);
}

bool DialogRecord::OffersVector() const {
    return record_.mode == kVectorMode;
}

bool DialogRecord::IsOnline() const {
    return record_.mode == kOnlineMode;
}

std::string DialogRecord::DisplayName() const {
    std::string name = TextOrNothing(record_.name);
    const std::string extension = TextOrNothing(record_.extension);
    if (!extension.empty()) {
        name += " - " + extension;
    }
    return name;
}

std::optional<DisplayFormat> DialogRecord::Format() const {
    if ((record_.format & kHasFormat) == 0) {
        return std::nullopt;
    }
    const std::uint32_t format = record_.format & kFormatBits;
    return format <= static_cast<std::uint32_t>(DisplayFormat::Hexadecimal)
               ? static_cast<DisplayFormat>(format)
               : DisplayFormat::Default;
}

std::uint32_t DialogRecord::ShownBoxWidth() const {
    const std::uint32_t rounded = record_.boxWidth - record_.boxWidth % kBoxWidthStep;
    return std::clamp(rounded, kSmallestBoxWidth, kLargestShownBoxWidth);
}

values::ConstValueBuffer DialogRecord::Value() const {
    if (record_.bytes == nullptr) {
        return {};
    }
    return {static_cast<const std::uint8_t*>(record_.bytes), record_.length};
}

bool DialogRecord::Store(const EditedParameter& edited) {
    if (!StoreValue(edited.value)) {
        return false;
    }
    record_.count = edited.vectorLength;
    StoreBoxWidth(edited.boxWidth);
    StoreFormat(edited.format);
    return true;
}

/// A block that already has the right length is kept, so that a host which looks at it while it
/// owns the record elsewhere still finds the value.
bool DialogRecord::StoreValue(values::ConstValueBuffer value) {
    if (Value().size() != value.size()) {
        void* bytes = value.empty() ? nullptr : std::malloc(value.size());
        if (bytes == nullptr && !value.empty()) {
            return false;
        }
        std::free(record_.bytes);
        record_.bytes = bytes;
    }
    record_.length = static_cast<std::uint32_t>(value.size());
    if (!value.empty()) {
        std::memcpy(record_.bytes, value.data(), value.size());
    }
    return true;
}

void DialogRecord::StoreBoxWidth(std::uint32_t width) {
    constexpr std::uint32_t kLargest = UINT32_MAX - UINT32_MAX % kBoxWidthStep;
    const std::uint32_t limited = std::clamp(width, kSmallestBoxWidth, kLargest);
    const std::uint32_t excess = limited % kBoxWidthStep;
    record_.boxWidth = excess == 0 ? limited : limited + (kBoxWidthStep - excess);
}

void DialogRecord::StoreFormat(DisplayFormat format) {
    const auto others = static_cast<std::uint8_t>(record_.format & ~kFormatBits);
    const auto bits = static_cast<std::uint8_t>(format);
    record_.format =
        (record_.format & kHasFormat) != 0 ? static_cast<std::uint8_t>(others | bits) : others;
}

}  // namespace orvell::ui
