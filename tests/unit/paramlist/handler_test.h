#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "paramlist/value_type_handler_set.h"

namespace orvell::paramlist {

/// A handler with a value to try it on.
class HandlerTest : public testing::Test {
  protected:
    explicit HandlerTest(ValueTypeCode code) : handler_(*handlers_.Find(code)) {}

    /// What a list file's text makes of a value that was 1 before, as a list file has it.
    std::string FromList(std::string_view text) {
        Preset();
        EXPECT_TRUE(handler_.SetFromListText(value_, text, texts_)) << text;
        return ListText();
    }

    /// As `FromList` for a CSV file; "rejected" for a rejected text, which must leave the value.
    std::string FromCsv(std::string_view text) {
        Preset();
        const std::string before = ListText();
        if (!handler_.SetFromCsvText(value_, text, texts_)) {
            EXPECT_EQ(ListText(), before) << text;
            return "rejected";
        }
        return ListText();
    }

    std::string FromText(std::optional<std::string_view> text) {
        Preset();
        EXPECT_TRUE(handler_.SetFromText(value_, text));
        return ListText();
    }

    std::string ListText() const {
        std::string out = ">";
        handler_.FormatListText(value_, texts_, out);
        EXPECT_TRUE(out.starts_with('>'));
        return out.substr(1);
    }

    std::string CsvField() const {
        std::string out = ">";
        handler_.FormatCsvField(value_, texts_, out);
        EXPECT_TRUE(out.starts_with('>'));
        return out.substr(1);
    }

    /// "none" when there is no text.
    std::string Text() const {
        std::string out = ">";
        const bool isGiven = handler_.GetText(value_, out);
        EXPECT_EQ(isGiven, value_.IsDefined());
        EXPECT_TRUE(isGiven || out == ">");
        return isGiven ? out.substr(1) : "none";
    }

    void Preset() { EXPECT_TRUE(handler_.SetFromListText(value_, "1", texts_)); }

    template <typename Number>
    void ExpectStored(Number number) const {
        EXPECT_EQ(value_.Load<Number>(), number);
    }

    ValueTypeHandlerSet handlers_;
    const ValueTypeHandler& handler_;
    ValueTexts texts_ = {.undefined = "undef", .csvDateFormat = values::DateFormatCode::DayFirst};
    ParameterValue value_;
};

}  // namespace orvell::paramlist
