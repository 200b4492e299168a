#include "fuzz/values/converter_case.h"

#include <algorithm>
#include <array>

namespace orvell::fuzz {

using values::BaseTypeCode;
using values::DateFormatCode;
using values::DisplayFormat;

namespace {

constexpr std::uint32_t kLowDigit = 0x0F;
constexpr std::uint8_t kFirstLarge = 0x80;

/// Takes the first byte off, 0 when there is none.
std::uint8_t TakeByte(std::span<const std::uint8_t>& input) {
    if (input.empty()) {
        return 0;
    }
    const std::uint8_t byte = input.front();
    input = input.subspan(1);
    return byte;
}

BaseTypeCode BaseTypeOf(std::uint8_t byte) {
    return static_cast<BaseTypeCode>(values::kFirstBaseTypeCode - 1 + (byte & kLowDigit));
}

DisplayFormat FormatOf(std::uint8_t byte) {
    constexpr std::uint32_t kSome = 0x01010101;
    return static_cast<DisplayFormat>(byte < kFirstLarge ? byte & kLowDigit : byte * kSome);
}

std::uint32_t SizeOf(std::uint8_t byte) {
    constexpr std::array<std::uint32_t, 8> kLargeSizes = {
        16, 255, 256, 1000, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF};
    return byte < kFirstLarge ? byte & kLowDigit : kLargeSizes[byte % kLargeSizes.size()];
}

DateFormatCode DateFormatOf(std::uint8_t byte) {
    constexpr std::array<DateFormatCode, 4> kFormats = {
        DateFormatCode::None, DateFormatCode::DayFirst, DateFormatCode::MonthFirst,
        static_cast<DateFormatCode>(752)};
    return kFormats[byte % kFormats.size()];
}

/// The value of an item from the character before its name: '5' is 5.
std::uint32_t ItemValueOf(char character) {
    constexpr std::uint32_t kSome = 0x01010101;
    const auto byte = static_cast<std::uint8_t>(character);
    return byte < kFirstLarge ? static_cast<std::uint8_t>(byte - '0') : byte * kSome;
}

}  // namespace

ConverterCase::ConverterCase(std::span<const std::uint8_t> input)
    : baseType_(BaseTypeOf(TakeByte(input))),
      format_(FormatOf(TakeByte(input))),
      size_(SizeOf(TakeByte(input))) {
    const std::uint8_t dateFormatAndRaw = TakeByte(input);
    dateFormat_ = DateFormatOf(dateFormatAndRaw);
    isRaw_ = (dateFormatAndRaw & 4) != 0;
    text_.assign(input.begin(), input.end());
    if (baseType_ == BaseTypeCode::Enumerated) {
        SplitEnumItems();
    }
}

values::TypeDescription ConverterCase::Type() const {
    return {baseType_, size_, dateFormat_, &enumItems_};
}

Bytes ConverterCase::Value(std::size_t width) const {
    Bytes value(width);
    std::copy_n(text_.begin(), std::min(text_.size(), width), value.begin());
    return value;
}

void ConverterCase::SplitEnumItems() {
    for (std::size_t end = text_.find('|'); end != std::string::npos; end = text_.find('|')) {
        if (end > 0) {
            definedItems_.push_back({text_.substr(1, end - 1), ItemValueOf(text_.front())});
        }
        text_.erase(0, end + 1);
    }
    enumItems_ = values::EnumItemList(definedItems_);
}

}  // namespace orvell::fuzz
