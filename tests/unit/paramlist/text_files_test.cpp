// The text mode of files: what readers and writers do to line ends.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "paramlist/text_collector.h"
#include "paramlist/text_reader.h"
#include "paramlist/text_scan.h"
#include "paramlist/text_writer.h"
#include "unit/paramlist/byte_stream_fakes.h"

namespace orvell::paramlist {
namespace {

using test::MemorySink;
using test::MemorySource;

std::string ReadText(const std::string& bytes, std::size_t portion) {
    MemorySource source(bytes, portion);
    TextReader reader(source);
    std::string text;
    for (std::string_view piece = reader.Next(); !piece.empty(); piece = reader.Next()) {
        text += piece;
    }
    EXPECT_EQ(reader.Next(), "");
    return text;
}

TEST(TextReaderTest, FollowsTheRulesOfTextMode) {
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"a\r\nb\r\n", "a\nb\n"},
        {"a\nb", "a\nb"},
        {"a\rb\r", "a\rb\r"},
        {"\r\r\n\r\r", "\r\n\r\r"},
        {"\n\r\n\r", "\n\n\r"},
        {"\r", "\r"},
        {"a\x1A"
         "b\r\n",
         "a"},
        {"\x1A", ""},
        {"a\r\x1A\n", "a\r"},
        {"\xFF\xFE\x80", "\xFF\xFE\x80"},
        {std::string("a\0b\r\n", 5), std::string("a\0b\n", 4)},
    };
    for (const auto& [bytes, text] : cases) {
        for (const std::size_t portion : {1U, 2U, 3U, 100U}) {
            EXPECT_EQ(ReadText(bytes, portion), text)
                << testing::PrintToString(bytes) << " by " << portion;
        }
    }
}

TEST(TextReaderTest, FindsLineEndsWhereverBlocksEnd) {
    for (const std::size_t length : {0U, 15U, 16U, 17U, 33U, 65534U, 65535U, 65536U, 65537U}) {
        const std::string line(length, 'x');
        EXPECT_EQ(ReadText(line + "\r\n" + line + "\r\n\r", 1 << 20), line + "\n" + line + "\n\r");
    }
}

TEST(TextReaderTest, ReadsNothingBehindTheEndOfTheText) {
    MemorySource source(
        "a\x1A"
        "bc",
        2);
    TextReader reader(source);
    EXPECT_EQ(reader.Next(), "a");
    EXPECT_EQ(reader.Next(), "");
    EXPECT_EQ(reader.Next(), "");
    EXPECT_EQ(source.readCount, 1);
}

TEST(TextWriterTest, WritesALineFeedAsTwoCharacters) {
    MemorySink sink;
    TextWriter writer(sink);
    writer.Text() += "a\nb\r\n\n";
    EXPECT_TRUE(writer.EndRecord());
    EXPECT_EQ(sink.writeCount, 0) << "small texts are collected";
    writer.Text() += "c";
    EXPECT_TRUE(writer.Finish());
    EXPECT_EQ(sink.text, "a\r\nb\r\r\n\r\nc");
    EXPECT_EQ(sink.writeCount, 1);
    EXPECT_EQ(sink.closeCount, 1);
}

TEST(TextWriterTest, WritesLargeBlocks) {
    MemorySink sink;
    TextWriter writer(sink);
    std::string expected;
    for (int index = 0; index < 10'000; ++index) {
        writer.Text() += "a line of thirty characters..\n";
        expected += "a line of thirty characters..\r\n";
        EXPECT_TRUE(writer.EndRecord());
    }
    EXPECT_TRUE(writer.Finish());
    EXPECT_EQ(sink.text, expected);
    EXPECT_LE(sink.writeCount, 5);
}

TEST(TextWriterTest, WritesNothingWhereThereIsNoText) {
    MemorySink sink;
    TextWriter writer(sink);
    EXPECT_TRUE(writer.EndRecord());
    EXPECT_TRUE(writer.Finish());
    EXPECT_EQ(sink.writeCount, 0);
    EXPECT_EQ(sink.closeCount, 1);
}

TEST(TextWriterTest, NoticesEveryError) {
    const std::string block(64 * 1024, 'x');
    for (int failing = 0; failing < 3; ++failing) {
        MemorySink sink(failing);
        TextWriter writer(sink);
        for (int index = 0; index < 3; ++index) {
            writer.Text() += block;
            EXPECT_EQ(writer.EndRecord(), index < failing) << failing;
        }
        EXPECT_FALSE(writer.Finish());
        EXPECT_EQ(sink.closeCount, 1);
        EXPECT_EQ(sink.text.size(), block.size() * static_cast<std::size_t>(failing));
        EXPECT_EQ(sink.refusedCount, 1) << "nothing is written behind a failure";
    }
}

TEST(TextWriterTest, NoticesErrorsOfTheLastBlockAndOfClosing) {
    MemorySink full(0);
    TextWriter toFull(full);
    toFull.Text() += "x";
    EXPECT_TRUE(toFull.EndRecord());
    EXPECT_FALSE(toFull.Finish());

    MemorySink unclosable(MemorySink::kNever, true);
    TextWriter toUnclosable(unclosable);
    toUnclosable.Text() += "x";
    EXPECT_FALSE(toUnclosable.Finish());
}

TEST(TextScanTest, FindsTheFirstMatchAtEveryDistance) {
    for (std::size_t length = 0; length < 70; ++length) {
        for (std::size_t place = 0; place <= length; ++place) {
            std::string text(length, 'x');
            std::string blanks(length, place % 2 == 0 ? ' ' : '\t');
            if (place < length) {
                text[place] = place % 2 == 0 ? ';' : '\xFF';
                blanks[place] = 'x';
            }
            if (place + 1 < length) {
                text[length - 1] = ';';
            }
            const char* const begin = text.data();
            const char* const found = FindFirstOf<'\xFF', ';'>(begin, begin + length);
            ASSERT_EQ(static_cast<std::size_t>(found - begin), place) << length;
            const char* const first = blanks.data();
            const char* const other = FindFirstNotOf<' ', '\t'>(first, first + length);
            ASSERT_EQ(static_cast<std::size_t>(other - first), place) << length;
            ASSERT_EQ(Contains<'\xFF'>(text), text.find('\xFF') < length) << length;
            ASSERT_EQ(Contains<'-'>(text), false) << length;
        }
    }
}

TEST(TextScanTest, CopiesUpToTheFirstMatchWithinTheRoom) {
    for (std::size_t length = 0; length < 70; ++length) {
        for (std::size_t place = 0; place <= length; ++place) {
            std::string text(length, 'x');
            if (place < length) {
                text[place] = text[length - 1] = '\n';
            }
            std::vector<char> out(length + kBytesPerStep - 1, '-');
            const char* const begin = text.data();
            ASSERT_EQ(CopyUntil<'\n'>(begin, begin + length, out.data()), place) << length;
            ASSERT_EQ(std::string(out.data(), place), std::string(place, 'x')) << length;
        }
    }
}

TEST(TextScanTest, ReplacesEveryMatchAndNothingElse) {
    for (std::size_t length = 0; length < 70; ++length) {
        std::string text(length, ' ');
        std::string expected(length, ' ');
        for (std::size_t place = 0; place < length; ++place) {
            text[place] = place % 3 == 0 ? '@' : static_cast<char>(0x3F + place);
            expected[place] = text[place] == '@' ? ' ' : text[place];
        }
        std::vector<char> out(length + 1, '-');
        CopyReplacing<'@', ' '>(text, out.data());
        ASSERT_EQ(std::string(out.data(), length), expected);
        ASSERT_EQ(out[length], '-') << "written beyond the text";
    }
}

TEST(TextCollectorTest, JoinsRunsOfAPieceAndKeepsThemBeyondIt) {
    TextCollector collector;
    EXPECT_TRUE(collector.IsEmpty());
    std::string piece = "abcdef";
    const std::string_view view = piece;
    collector.Append(view.substr(0, 2));
    collector.Append(view.substr(2, 1));
    EXPECT_EQ(collector.View(), "abc");
    EXPECT_EQ(collector.View().data(), piece.data()) << "not copied";
    collector.Append(view.substr(4, 1));
    EXPECT_EQ(collector.View(), "abce");
    collector.Append(view.substr(5, 1));
    EXPECT_EQ(collector.View(), "abcef");

    collector.Clear();
    EXPECT_TRUE(collector.IsEmpty());
    collector.Append(view.substr(3, 3));
    collector.Keep();
    piece = "123456";
    EXPECT_EQ(collector.View(), "def");
    collector.Append(std::string_view(piece).substr(0, 1));
    collector.Keep();
    collector.Keep();
    piece = "------";
    EXPECT_EQ(collector.View(), "def1");
}

}  // namespace
}  // namespace orvell::paramlist
