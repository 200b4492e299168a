#include "paramlist/field_text.h"

#include <gtest/gtest.h>

namespace orvell::paramlist {
namespace {

TEST(AppendWithoutBlanks, ReplacesBlanksOfTheAppendedTextOnly) {
    std::string out = "a b";
    AppendWithoutBlanks(out, " Motor links\t@ ");
    EXPECT_EQ(out, "a b@Motor@links\t@@");
}

TEST(AppendQuoted, DoublesQuotationMarks) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"", "\"\""},
        {"Start", "\"Start\""},
        {"Taster \"Ein\"", "\"Taster \"\"Ein\"\"\""},
        {"\"", "\"\"\"\""},
        {"\"\"", "\"\"\"\"\"\""},
        {"a\"", "\"a\"\"\""},
        {"\"a", "\"\"\"a\""},
        {"a;b\nc", "\"a;b\nc\""},
    };
    for (const auto& [text, quoted] : cases) {
        std::string out = ">";
        AppendQuoted(out, text);
        EXPECT_EQ(out, ">" + std::string(quoted));
    }
}

}  // namespace
}  // namespace orvell::paramlist
