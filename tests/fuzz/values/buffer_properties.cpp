#include "fuzz/values/buffer_properties.h"

#include <algorithm>

#include "fuzz/require.h"

namespace orvell::fuzz {

using values::BaseTypeCode;

void CheckShortBuffers(const values::ValueConverterSet& converters, const ConverterCase& testCase) {
    constexpr std::size_t kLargestBlock = 16;
    const values::TypeDescription type = testCase.Type();
    const std::size_t width = converters.GetSize(type);
    Bytes block = testCase.Value(std::min(width - 1, kLargestBlock));
    const Bytes before = block;
    for (const values::ValueBuffer buffer : {values::ValueBuffer(block), values::ValueBuffer()}) {
        std::string text = testCase.Text();
        Require(!converters.HasRoom(type, buffer), "a short block has no room");
        Require(!converters.ValueToText(type, buffer, text, testCase.Format(), testCase.IsRaw()),
                "a short block has no text");
        Require(text.empty() || type.baseType == BaseTypeCode::OleDateTime, "the text is emptied");
        Require(!converters.ExportText(type, buffer, text), "a short block is not exported");
        Require(!converters.TextToValue(type, buffer, testCase.Text(), testCase.Format()) &&
                    !converters.ImportText(type, testCase.Text(), buffer),
                "a short block takes no value");
    }
    Require(block == before, "a short block stays as it is");
}

void CheckWithoutConverter(const values::ValueConverterSet& converters,
                           const ConverterCase& testCase) {
    const values::TypeDescription type = testCase.Type();
    Bytes value = testCase.Value(16);
    const Bytes before = value;
    std::string text = testCase.Text();
    Require(converters.Find(type.baseType) == nullptr && converters.GetSize(type) == 0 &&
                !converters.HasRoom(type, value),
            "there is no width");
    Require(!converters.ValueToText(type, value, text, testCase.Format(), false) && text.empty(),
            "there is no text");
    Require(!converters.TextToValue(type, value, testCase.Text(), testCase.Format()) &&
                !converters.ImportText(type, testCase.Text(), value) && value == before,
            "there is no value");
    text = testCase.Text();
    Require(!converters.Normalize(type.baseType, 0, text, testCase.Format()) && text.empty(),
            "nothing is normalized");
}

}  // namespace orvell::fuzz
