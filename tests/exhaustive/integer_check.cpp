#include "exhaustive/integer_check.h"

#include <array>
#include <cstdio>
#include <cstring>

namespace orvell::exhaustive {
namespace {

using values::BaseTypeCode;
using values::DisplayFormat;
using values::TypeDescription;

constexpr std::uint8_t kGuard = 0xA5;

/// A stored integer with bytes behind it that nothing may touch.
using Storage = std::array<std::uint8_t, 4>;

Storage Store(unsigned value, std::uint32_t width) {
    Storage storage;
    storage.fill(kGuard);
    for (std::uint32_t i = 0; i < width; ++i) {
        storage[i] = static_cast<std::uint8_t>(value >> 8 * i);
    }
    return storage;
}

std::string ExpectedText(const TypeDescription& type, unsigned value, DisplayFormat format) {
    std::array<char, 16> text;
    const bool showsSign = format == DisplayFormat::Signed ||
                           (format == DisplayFormat::Default && type.baseType == BaseTypeCode::Int);
    if (format == DisplayFormat::Hexadecimal) {
        std::snprintf(text.data(), text.size(), "%Xh", value);
    } else if (showsSign) {
        const int number =
            type.size == 1 ? static_cast<std::int8_t>(value) : static_cast<std::int16_t>(value);
        std::snprintf(text.data(), text.size(), "%d", number);
    } else {
        std::snprintf(text.data(), text.size(), "%u", value);
    }
    return text.data();
}

/// Everything that the converters make of one stored integer.
class IntegerCase {
  public:
    IntegerCase(const values::ValueConverterSet& converters, const TypeDescription& type,
                unsigned value, Differences& differences)
        : converters_(converters),
          type_(type),
          name_((type.baseType == BaseTypeCode::Int ? "INT " : "UINT ") +
                HexadecimalBits(value, static_cast<int>(type.size) * 8)),
          stored_(Store(value, type.size)),
          value_(value),
          differences_(differences) {}

    void CheckFormat(DisplayFormat format) const {
        const std::string expected = ExpectedText(type_, value_, format);
        std::string text = "?";
        ExpectTrue(converters_.ValueToText(type_, stored_, text, format, true));
        ExpectText("shown", text, expected);

        Storage readBack = Store(~value_, type_.size);
        ExpectTrue(converters_.TextToValue(type_, readBack, expected, format));
        ExpectStored(expected, readBack);

        text = expected;
        ExpectTrue(
            converters_.Normalize(type_.baseType, converters_.NormalizeParam(type_), text, format));
        ExpectText("normalised", text, expected);
    }

    void CheckList() const {
        const std::string expected = ExpectedText(type_, value_, DisplayFormat::Default);
        std::string text = "?";
        ExpectTrue(converters_.ExportText(type_, stored_, text));
        ExpectText("exported", text, expected);
        for (const std::string& spelling : {expected, expected + ",0", expected + "e0"}) {
            Storage readBack = Store(~value_, type_.size);
            ExpectTrue(converters_.ImportText(type_, spelling, readBack));
            ExpectStored(spelling, readBack);
        }
    }

  private:
    void ExpectTrue(bool result) const {
        if (!result) {
            differences_.Add("integer", name_, "failure", "success");
        }
    }

    void ExpectText(std::string_view what, const std::string& text,
                    const std::string& expected) const {
        if (text != expected) {
            differences_.Add(what, name_, text, expected);
        }
    }

    void ExpectStored(const std::string& text, const Storage& readBack) const {
        if (readBack != stored_) {
            std::uint32_t bits = 0;
            std::memcpy(&bits, readBack.data(), sizeof bits);
            differences_.Add("read from", text, HexadecimalBits(bits, 32), name_);
        }
    }

    const values::ValueConverterSet& converters_;
    const TypeDescription& type_;
    std::string name_;
    Storage stored_;
    unsigned value_;
    Differences& differences_;
};

}  // namespace

void CheckIntegers(const values::ValueConverterSet& converters, Range values,
                   Differences& differences) {
    for (std::uint64_t number = values.first; number != values.end; ++number) {
        const bool isByte = number < 256;
        const auto value = static_cast<unsigned>(isByte ? number : number - 256);
        for (const BaseTypeCode baseType : {BaseTypeCode::Int, BaseTypeCode::UInt}) {
            const TypeDescription type = {baseType, isByte ? 1U : 2U};
            const IntegerCase integer(converters, type, value, differences);
            for (const DisplayFormat format :
                 {DisplayFormat::Default, DisplayFormat::Signed, DisplayFormat::Unsigned,
                  DisplayFormat::Hexadecimal}) {
                integer.CheckFormat(format);
            }
            integer.CheckList();
        }
    }
}

}  // namespace orvell::exhaustive
