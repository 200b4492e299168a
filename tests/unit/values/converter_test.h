#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "platform/local_clock.h"
#include "values/value_converter_set.h"

namespace orvell::values {

using Bytes = std::vector<std::uint8_t>;

/// The bytes of a number as the target stores them.
template <typename Number>
Bytes BytesOf(Number number) {
    Bytes bytes(sizeof number);
    std::memcpy(bytes.data(), &number, sizeof number);
    return bytes;
}

/// The low bytes of an integer.
inline Bytes IntegerBytes(std::uint64_t value, std::size_t width) {
    Bytes bytes = BytesOf(value);
    bytes.resize(width);
    return bytes;
}

template <typename Number>
Number NumberOf(const Bytes& bytes) {
    Number number{};
    EXPECT_EQ(bytes.size(), sizeof number);
    std::memcpy(&number, bytes.data(), std::min(bytes.size(), sizeof number));
    return number;
}

class FixedClock final : public platform::LocalClock {
  public:
    [[nodiscard]] platform::CivilTime Now() const override { return {2021, 3, 4, 5, 6, 7}; }
};

/// Gives access to the converters by short calls that check the rule about buffers on the way.
class ConverterTest : public ::testing::Test {
  protected:
    /// Text of the stored bytes.
    std::string Show(const TypeDescription& type, const Bytes& bytes,
                     DisplayFormat format = DisplayFormat::Default, bool raw = true) const {
        std::string text = "left over";
        EXPECT_TRUE(converters_.ValueToText(type, bytes, text, format, raw));
        return text;
    }

    std::string Default(const TypeDescription& type,
                        DisplayFormat format = DisplayFormat::Default) const {
        std::string text = "left over";
        EXPECT_TRUE(converters_.DefaultText(type, text, format));
        return text;
    }

    std::string Export(const TypeDescription& type, const Bytes& bytes) const {
        std::string text = "left over";
        EXPECT_TRUE(converters_.ExportText(type, bytes, text));
        return text;
    }

    /// The bytes that a text is stored as; `accepted` is what `TextToValue` must answer.
    Bytes Parse(const TypeDescription& type, std::string_view text,
                DisplayFormat format = DisplayFormat::Default, bool accepted = true) const {
        Bytes bytes = Filled(type);
        EXPECT_EQ(converters_.TextToValue(type, bytes, text, format), accepted) << text;
        return Stored(type, bytes);
    }

    Bytes Import(const TypeDescription& type, std::string_view text, bool accepted = true) const {
        Bytes bytes = Filled(type);
        EXPECT_EQ(converters_.ImportText(type, text, bytes), accepted) << text;
        return Stored(type, bytes);
    }

    std::string Normalized(const TypeDescription& type, std::string text,
                           DisplayFormat format = DisplayFormat::Default) const {
        EXPECT_TRUE(
            converters_.Normalize(type.baseType, converters_.NormalizeParam(type), text, format));
        return text;
    }

    static constexpr std::uint8_t kFiller = 0xCC;
    static constexpr std::size_t kBytesBehind = 16;

    FixedClock clock_;
    ValueConverterSet converters_{clock_};

  private:
    Bytes Filled(const TypeDescription& type) const {
        return Bytes(converters_.GetSize(type) + kBytesBehind, kFiller);
    }

    /// The value's own bytes; those behind it must be as they were.
    Bytes Stored(const TypeDescription& type, const Bytes& bytes) const {
        const auto end = bytes.begin() + static_cast<std::ptrdiff_t>(converters_.GetSize(type));
        EXPECT_EQ(Bytes(end, bytes.end()), Bytes(kBytesBehind, kFiller)) << "written beyond";
        return Bytes(bytes.begin(), end);
    }
};

}  // namespace orvell::values
