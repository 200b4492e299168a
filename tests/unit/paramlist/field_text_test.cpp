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

TEST(WriteQuoted, StaysWithinItsRoom) {
    for (std::size_t size = 0; size < 40; ++size) {
        for (const char character : {'x', '"'}) {
            const std::string text(size, character);
            std::string out(QuotedRoom(size) + 1, '-');
            const char* const end = WriteQuoted(out.data(), text);
            const std::size_t expected = character == '"' ? QuotedRoom(size) : size + 2;
            EXPECT_EQ(std::string_view(out.data(), end),
                      '"' + std::string(expected - 2, character) + '"');
            EXPECT_EQ(out.substr(expected), std::string(out.size() - expected, '-'));
        }
    }
}

}  // namespace
}  // namespace orvell::paramlist
