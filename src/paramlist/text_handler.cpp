#include "paramlist/text_handler.h"

#include "paramlist/field_text.h"
#include "paramlist/strict_number.h"

namespace orvell::paramlist {

bool TextHandler::SetFromListText(ParameterValue& value, std::string_view text,
                                  const ValueTexts& texts) const {
    if (text == texts.undefined) {
        value.Clear();
    } else {
        value.StoreText(text);
    }
    return true;
}

bool TextHandler::SetFromCsvText(ParameterValue& value, std::string_view text,
                                 const ValueTexts& /*texts*/) const {
    if (TrimBlanks(text).empty()) {
        value.Clear();
    } else {
        value.StoreText(text);
    }
    return true;
}

bool TextHandler::SetFromText(ParameterValue& value, std::optional<std::string_view> text) const {
    if (text) {
        value.StoreText(*text);
    } else {
        value.Clear();
    }
    return true;
}

void TextHandler::FormatListText(const ParameterValue& value, const ValueTexts& texts,
                                 std::string& out) const {
    const std::string_view text = value.LoadText();
    if (text.empty()) {
        out += texts.undefined;
    } else {
        AppendWithoutBlanks(out, text);
    }
}

void TextHandler::FormatCsvField(const ParameterValue& value, const ValueTexts& /*texts*/,
                                 std::string& out) const {
    AppendQuoted(out, value.LoadText());
    out += ';';
}

bool TextHandler::GetText(const ParameterValue& value, std::string& out) const {
    out += value.LoadText();
    return value.IsDefined();
}

}  // namespace orvell::paramlist
