#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "values/base_types.h"

namespace orvell::fuzz {

using Bytes = std::vector<std::uint8_t>;

/// A type with a text to be read and bytes to be printed, decoded from an input of readable bytes:
///
///     'a' to 'k'   the base types INT to Enumerated; other letters have no converter
///     '0' to '3'   the display format; other bytes are formats that do not exist
///     '0' to '9'   the declared size; bytes from 0x80 on are large sizes
///     '0' to '7'   0 to 3: the date format, the last one unknown; 4 more: without quotation marks
///     ...          the text, and, as far as the width goes, the stored bytes; "5On|7Off|text"
///                  gives an enumerated type its items before the text
class ConverterCase {
  public:
    explicit ConverterCase(std::span<const std::uint8_t> input);

    [[nodiscard]] values::TypeDescription Type() const;
    /// The items of an enumerated type in the order of their definition.
    [[nodiscard]] const std::vector<values::EnumItem>& EnumItems() const { return definedItems_; }
    [[nodiscard]] values::DisplayFormat Format() const { return format_; }
    [[nodiscard]] bool IsRaw() const { return isRaw_; }
    [[nodiscard]] const std::string& Text() const { return text_; }

    /// The text's bytes, cut or filled with zeros to a value of this width.
    [[nodiscard]] Bytes Value(std::size_t width) const;

  private:
    void SplitEnumItems();

    values::BaseTypeCode baseType_ = values::BaseTypeCode::None;
    values::DisplayFormat format_ = values::DisplayFormat::Default;
    std::uint32_t size_ = 0;
    values::DateFormatCode dateFormat_ = values::DateFormatCode::None;
    bool isRaw_ = false;
    std::vector<values::EnumItem> definedItems_;
    values::EnumItemList enumItems_;
    std::string text_;
};

}  // namespace orvell::fuzz
