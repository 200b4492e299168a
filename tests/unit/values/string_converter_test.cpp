#include "unit/values/converter_test.h"
#include "unit/values/recording_host.h"

namespace orvell::values {
namespace {

using StringConverterTest = ConverterTest;

TypeDescription String(std::uint32_t size) {
    return {BaseTypeCode::String, size};
}

Bytes Characters(std::string_view text) {
    return Bytes(text.begin(), text.end());
}

TEST_F(StringConverterTest, WidthIsTheDeclaredSizeAndAtLeastOne) {
    EXPECT_EQ(converters_.GetSize(String(0)), 1U);
    EXPECT_EQ(converters_.GetSize(String(1)), 1U);
    EXPECT_EQ(converters_.GetSize(String(80)), 80U);
    EXPECT_EQ(converters_.GetSize(String(0xFFFFFFFF)), 0xFFFFFFFFU);
}

TEST_F(StringConverterTest, ShowsTheCharactersUpToTheFirstNul) {
    using namespace std::string_view_literals;
    EXPECT_EQ(Show(String(5), Characters("ab\0cd"sv)), "ab");
    EXPECT_EQ(Show(String(5), Characters("\0bcde"sv)), "");
    EXPECT_EQ(Show(String(5), Characters("abcde")), "abcd");
    EXPECT_EQ(Show(String(1), Characters("a")), "");
}

TEST_F(StringConverterTest, ShowsControlCharactersAsPointsAndAllOthersAsTheyAre) {
    EXPECT_EQ(Show(String(5), Characters(std::string_view("\t\x01\x1F \0", 5))), "... ");
    EXPECT_EQ(Show(String(5), Characters(std::string_view("\x7F\x80\xE4\xFF\0", 5))),
              "\x7F\x80\xE4\xFF");
}

TEST_F(StringConverterTest, EnclosesTheTextInQuotesUnlessRaw) {
    const Bytes bytes = Characters(std::string_view("a\"b\0\0", 5));
    EXPECT_EQ(Show(String(5), bytes, DisplayFormat::Default, true), "a\"b");
    EXPECT_EQ(Show(String(5), bytes, DisplayFormat::Default, false), "\"a\"b\"");
    EXPECT_EQ(Show(String(1), {0}, DisplayFormat::Default, false), "\"\"");
    EXPECT_EQ(Export(String(5), bytes), "\"a\"b\"");
}

TEST_F(StringConverterTest, StoresWhatHasRoomBeforeTheNul) {
    EXPECT_EQ(Parse(String(5), "abcdef"), (Bytes{'a', 'b', 'c', 'd', 0}));
    EXPECT_EQ(Parse(String(5), "abcde"), (Bytes{'a', 'b', 'c', 'd', 0}));
    EXPECT_EQ(Parse(String(5), "abcd"), (Bytes{'a', 'b', 'c', 'd', 0}));
    EXPECT_EQ(Parse(String(5), "abc"), (Bytes{'a', 'b', 'c', 0, 0}));
    EXPECT_EQ(Parse(String(5), ""), Bytes(5, 0));
    EXPECT_EQ(Parse(String(1), "a"), (Bytes{0}));
    EXPECT_EQ(Parse(String(0), "a"), (Bytes{0}));
    EXPECT_EQ(Parse(String(5), "\t\xE4"), (Bytes{9, 0xE4, 0, 0, 0}));
    EXPECT_EQ(Parse(String(5), "\"a\""), (Bytes{'"', 'a', '"', 0, 0}));
}

TEST_F(StringConverterTest, ImportTakesOneQuoteOffEachEnd) {
    EXPECT_EQ(Import(String(5), "\"ab\""), (Bytes{'a', 'b', 0, 0, 0}));
    EXPECT_EQ(Import(String(5), "ab"), (Bytes{'a', 'b', 0, 0, 0}));
    EXPECT_EQ(Import(String(5), "\"ab"), (Bytes{'a', 'b', 0, 0, 0}));
    EXPECT_EQ(Import(String(5), "ab\""), (Bytes{'a', 'b', 0, 0, 0}));
    EXPECT_EQ(Import(String(5), "\"\"a\"\""), (Bytes{'"', 'a', '"', 0, 0}));
    EXPECT_EQ(Import(String(5), "\"\""), Bytes(5, 0));
    EXPECT_EQ(Import(String(5), "\""), Bytes(5, 0));
    EXPECT_EQ(Import(String(5), ""), Bytes(5, 0));
    EXPECT_EQ(Import(String(5), "\"abcdef\""), (Bytes{'a', 'b', 'c', 'd', 0}));
}

TEST_F(StringConverterTest, NormalizeCutsToTheWidth) {
    EXPECT_EQ(Normalized(String(5), "abcdef"), "abcd");
    EXPECT_EQ(Normalized(String(5), "abcd"), "abcd");
    EXPECT_EQ(Normalized(String(5), "a\tb"), "a\tb");
    EXPECT_EQ(Normalized(String(1), "a"), "");
    std::string text = "a";
    EXPECT_TRUE(converters_.Normalize(BaseTypeCode::String, 0, text, DisplayFormat::Default));
    EXPECT_EQ(text, "");
}

TEST_F(StringConverterTest, DefaultTextIsEmpty) {
    EXPECT_EQ(Default(String(5)), "");
}

TEST_F(StringConverterTest, HostGetsTheBytesAsTheyAreUpToTheFirstNul) {
    RecordingHost host;
    EXPECT_TRUE(converters_.PutToHost(String(5), 1, 2, Bytes{'a', 9, 0xE4, 0, 'x'}, host.Online()));
    EXPECT_TRUE(converters_.PutToHost(String(3), 1, 2, Bytes{'a', 'b', 'c'}, host.Online()));
    EXPECT_TRUE(converters_.PutToHost(String(1), 1, 2, Bytes{'a'}, host.Online()));
    ASSERT_EQ(host.calls.size(), 3U);
    EXPECT_EQ(host.calls[0].bytes, (Bytes{'a', 9, 0xE4, 0}));
    EXPECT_EQ(host.calls[1].bytes, (Bytes{'a', 'b', 0}));
    EXPECT_EQ(host.calls[2].bytes, (Bytes{0}));
}

TEST_F(StringConverterTest, TextFromTheHostIsTerminatedAndPadded) {
    RecordingHost host;
    Bytes bytes(5, 0xCC);
    host.supply = {'a', 'b', 'c', 'd', 'e'};
    EXPECT_TRUE(converters_.GetFromHost(String(5), 1, 2, bytes, host.Online()));
    EXPECT_EQ(bytes, (Bytes{'a', 'b', 'c', 'd', 0}));
    host.supply = {'a', 0, 'c', 'd', 'e'};
    EXPECT_TRUE(converters_.GetFromHost(String(5), 1, 2, bytes, host.Online()));
    EXPECT_EQ(bytes, (Bytes{'a', 0, 0, 0, 0}));
    host.supply = {'a'};
    EXPECT_TRUE(converters_.GetFromHost(String(1), 1, 2, bytes, host.Online()));
    EXPECT_EQ(bytes, (Bytes{0, 0, 0, 0, 0}));
}

}  // namespace
}  // namespace orvell::values
