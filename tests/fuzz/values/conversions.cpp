#include "fuzz/values/conversions.h"

#include <algorithm>

#include "fuzz/require.h"

namespace orvell::fuzz {

using values::BaseTypeCode;
using values::ValueBuffer;

namespace {

constexpr std::size_t kBytesBehind = 9;
constexpr std::uint8_t kFiller = 0xCC;
constexpr const char* kLeftOver = "left over";

}  // namespace

std::string Conversions::Print(const Bytes& value, bool isRaw) const {
    std::string text = kLeftOver;
    Require(converters_.ValueToText(type_, value, text, case_.Format(), isRaw), "value has a text");
    return text;
}

std::string Conversions::Export(const Bytes& value) const {
    std::string text = kLeftOver;
    Require(converters_.ExportText(type_, value, text), "value has a text for lists");
    return text;
}

StoredText Conversions::Parse(std::string_view text) const {
    return StoreInBlocks([&](ValueBuffer block) {
        return converters_.TextToValue(type_, block, text, case_.Format());
    });
}

StoredText Conversions::Import(std::string_view text) const {
    return StoreInBlocks(
        [&](ValueBuffer block) { return converters_.ImportText(type_, text, block); });
}

std::string Conversions::Normalize(std::string text) const {
    return Normalize(std::move(text), converters_.NormalizeParam(type_));
}

std::string Conversions::Normalize(std::string text, std::uint32_t param) const {
    const bool isDone = converters_.Normalize(type_.baseType, param, text, case_.Format());
    Require(isDone == (type_.baseType != BaseTypeCode::Enumerated), "all but names are normalized");
    return text;
}

std::string Conversions::DefaultText() const {
    std::string text = kLeftOver;
    Require(converters_.DefaultText(type_, text, case_.Format()), "every type has a default");
    return text;
}

ConversionResults Conversions::All() const {
    const Bytes value = case_.Value(Width());
    return {Parse(case_.Text()), Import(case_.Text()), Print(value, case_.IsRaw()), Export(value),
            Normalize(case_.Text())};
}

template <typename Store>
StoredText Conversions::StoreInBlocks(const Store& store) const {
    StoredText stored;
    stored.value.resize(Width());
    stored.isAccepted = store(ValueBuffer(stored.value));

    Bytes longer(Width() + kBytesBehind, kFiller);
    const auto behind = longer.begin() + static_cast<std::ptrdiff_t>(Width());
    Require(store(ValueBuffer(longer)) == stored.isAccepted, "what lies in a buffer is ignored");
    Require(std::equal(stored.value.begin(), stored.value.end(), longer.begin(), behind),
            "the whole width is written");
    Require(std::count(behind, longer.end(), kFiller) == kBytesBehind, "nothing is written behind");
    return stored;
}

}  // namespace orvell::fuzz
