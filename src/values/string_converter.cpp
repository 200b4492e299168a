#include "values/string_converter.h"

#include <algorithm>

namespace orvell::values {
namespace {

constexpr char kQuote = '"';
constexpr std::uint8_t kFirstPrintable = 32;

char PrintableOf(std::uint8_t byte) {
    return byte < kFirstPrintable ? '.' : static_cast<char>(byte);
}

}  // namespace

std::uint32_t StringConverter::GetSize(const TypeDescription& type) const {
    return std::max(type.size, 1U);
}

bool StringConverter::ValueToText(const TypeDescription& type, ConstValueBuffer buffer,
                                  std::string& text, DisplayFormat /*format*/, bool raw) const {
    text.clear();
    if (!HasRoom(type, buffer)) {
        return false;
    }
    const ConstValueBuffer characters = buffer.first(GetSize(type) - 1);
    const auto end = std::find(characters.begin(), characters.end(), 0);
    const auto length = static_cast<std::size_t>(end - characters.begin());
    text.reserve(length + 2);
    if (!raw) {
        text += kQuote;
    }
    std::transform(characters.begin(), end, std::back_inserter(text), PrintableOf);
    if (!raw) {
        text += kQuote;
    }
    return true;
}

bool StringConverter::DefaultText(const TypeDescription& /*type*/, std::string& text,
                                  DisplayFormat /*format*/) const {
    text.clear();
    return true;
}

bool StringConverter::TextToValue(const TypeDescription& type, ValueBuffer buffer,
                                  std::string_view text, DisplayFormat /*format*/) const {
    if (!HasRoom(type, buffer)) {
        return false;
    }
    const ValueBuffer value = buffer.first(GetSize(type));
    const std::string_view kept = text.substr(0, value.size() - 1);
    std::fill(std::copy(kept.begin(), kept.end(), value.begin()), value.end(), std::uint8_t{0});
    return true;
}

bool StringConverter::ExportText(const TypeDescription& type, ConstValueBuffer buffer,
                                 std::string& text) const {
    return ValueToText(type, buffer, text, DisplayFormat::Default, /*raw=*/false);
}

bool StringConverter::ImportText(const TypeDescription& type, std::string_view text,
                                 ValueBuffer buffer) const {
    std::string_view bare = text;
    if (bare.starts_with(kQuote)) {
        bare.remove_prefix(1);
    }
    if (bare.ends_with(kQuote)) {
        bare.remove_suffix(1);
    }
    return TextToValue(type, buffer, bare, DisplayFormat::Default);
}

std::uint32_t StringConverter::NormalizeParam(const TypeDescription& type) const {
    return GetSize(type);
}

bool StringConverter::Normalize(std::uint32_t param, std::string& text,
                                DisplayFormat /*format*/) const {
    const std::size_t capacity = std::max(param, 1U) - 1;
    if (text.size() > capacity) {
        text.resize(capacity);
    }
    return true;
}

HostForm StringConverter::GetHostForm(const TypeDescription& /*type*/) const {
    return {HostEntry::Text, ParameterKind::Text};
}

}  // namespace orvell::values
