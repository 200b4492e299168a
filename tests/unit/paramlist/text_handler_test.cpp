#include <vector>

#include "unit/paramlist/handler_test.h"

namespace orvell::paramlist {
namespace {

struct TextHandlerTest : HandlerTest {
    TextHandlerTest() : HandlerTest(ValueTypeCode::Text) {}

    std::string Stored() const { return std::string(value_.LoadText()); }
};

TEST_F(TextHandlerTest, KeepsTextsAsTheyAre) {
    for (const std::string_view text :
         {"Motor links", " a\tb ", "UNDEF", "\xE4\xFF", "a text of more than eight bytes"}) {
        FromText(text);
        EXPECT_EQ(Stored(), text);
        EXPECT_EQ(Text(), text);
        FromCsv(text);
        EXPECT_EQ(Stored(), text);
        FromList(text);
        EXPECT_EQ(Stored(), text);
    }
}

TEST_F(TextHandlerTest, TellsEmptyFromUndefined) {
    FromText("");
    EXPECT_TRUE(value_.IsDefined());
    EXPECT_EQ(Text(), "");
    FromText(std::nullopt);
    EXPECT_FALSE(value_.IsDefined());
    EXPECT_EQ(Text(), "none");
    FromList("undef");
    EXPECT_FALSE(value_.IsDefined());
    FromText("undef");
    EXPECT_EQ(Stored(), "undef");
    FromCsv("undef");
    EXPECT_EQ(Stored(), "undef");
    FromCsv(" \t");
    EXPECT_FALSE(value_.IsDefined());
}

TEST_F(TextHandlerTest, WritesListTextsWithoutBlanks) {
    EXPECT_EQ(FromText(" Motor  links\t@"), "@Motor@@links\t@");
    EXPECT_EQ(FromText(""), "undef");
    EXPECT_EQ(FromText(std::nullopt), "undef");
}

TEST_F(TextHandlerTest, QuotesCsvFields) {
    FromText("Taster \"Ein\"; 1");
    EXPECT_EQ(CsvField(), "\"Taster \"\"Ein\"\"; 1\";");
    FromText("");
    EXPECT_EQ(CsvField(), "\"\";");
    FromText(std::nullopt);
    EXPECT_EQ(CsvField(), "\"\";");
}

TEST_F(TextHandlerTest, CutsTheTextToTheBuffer) {
    FromText("abcdef");
    for (const std::size_t size : {1U, 3U, 6U, 7U, 20U}) {
        std::vector<char> buffer(size, '#');
        EXPECT_TRUE(handler_.GetTextInto(value_, buffer));
        EXPECT_EQ(std::string(buffer.data()), std::string("abcdef").substr(0, size - 1));
    }
    EXPECT_TRUE(handler_.GetTextInto(value_, {}));
    value_.Clear();
    std::vector<char> buffer(4, '#');
    EXPECT_FALSE(handler_.GetTextInto(value_, buffer));
    EXPECT_EQ(buffer[0], '\0');
    EXPECT_EQ(buffer[1], '#');
}

}  // namespace
}  // namespace orvell::paramlist
