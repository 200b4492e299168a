// Files that nobody would write in good faith: no size, count or character makes trouble.

#include <limits>

#include "paramlist/list_file_reader.h"
#include "unit/paramlist/csv_import_fixture.h"

namespace orvell::paramlist {
namespace {

using Warnings = std::vector<std::string>;

constexpr std::size_t kMegabyte = 1024 * 1024;

class HostileFilesTest : public test::CsvImportFixture {
  protected:
    bool ReadList(std::string text) {
        const std::size_t size = text.size();
        test::MemorySource bytes(std::move(text));
        const bool isRead = ReadListFile(list, strings, bytes, ListFileScope::AllEntries);
        EXPECT_LE(static_cast<std::size_t>(bytes.readCount), size / (64 * 1024) + 2);
        return isRead;
    }

    static std::string Record(const std::string& keyword, const std::string& number,
                              const std::string& name, const std::string& value,
                              const std::string& comment) {
        return " 0 " + keyword + ' ' + number + " N : " + name + "\n D : " + value +
               "\n C : " + comment + '\n';
    }
};

TEST_F(HostileFilesTest, ListFieldsOfMegabytesAreCutOrTakenWhole) {
    const std::string huge(3 * kMegabyte, 'x');
    EXPECT_TRUE(ReadList(Record(huge, "1", "n", "1", "c") + Record("PT", "1", huge, huge, huge) +
                         Record("PW", "1", "n", huge, "c")));
    EXPECT_EQ(EntryCount(), 2U);
    EXPECT_EQ(Entry("PT1"), std::string(15, 'x') + '|' + huge + '|' + std::string(30, 'x'));
    EXPECT_EQ(Entry("PW1"), "n|0|c");
}

TEST_F(HostileFilesTest, ListLinesOfMegabytesAreSkipped) {
    const std::string huge(3 * kMegabyte, '0');
    EXPECT_TRUE(ReadList(huge + '\n' + std::string(kMegabyte, ' ') + '\n' +
                         std::string(kMegabyte, '\n') + Record("PW", "1", "n", "1", "c")));
    EXPECT_EQ(EntryCount(), 1U);
    EXPECT_FALSE(ReadList("\n" + huge)) << "a line without end and no record";
    EXPECT_TRUE(ReadList(std::string(kMegabyte, '\n')));
}

TEST_F(HostileFilesTest, ListNumbersOfAThousandDigitsWrap) {
    const std::string zeros(1000, '0');
    EXPECT_TRUE(ReadList(Record("PW", "1" + zeros, "a", "1" + zeros, "c") +
                         Record("PL", zeros + "7", "b", zeros + "65543", "c") +
                         Record("INT64PARA", "4294967297", "c", "18446744073709551617", "c") +
                         Record("PF", "4294967295", "d", "1" + zeros, "c") +
                         Record("UCHARPARA", "1", "e", "-" + zeros + "1", "c")));
    EXPECT_EQ(Entry("PW0"), "a|0|c");
    EXPECT_EQ(Entry("PL7"), "b|65543|c");
    EXPECT_EQ(Entry("INT64PARA1"), "c|1|c");
    EXPECT_EQ(Entry("PF4294967295"), "d|inf|c");
    EXPECT_EQ(Entry("UCHARPARA1"), "e|255|c");
}

TEST_F(HostileFilesTest, ZeroBytesEndNamesCommentsAndTexts) {
    const std::string text("a\0b", 3);
    EXPECT_TRUE(ReadList(
        Record("PT", "1", text, text, text) + Record(std::string("PT\0", 3), "2", "n", "v", "c") +
        Record("PT", std::string("3\0", 2), "n", "v", "c") + std::string(kMegabyte, '\0') + '\n'));
    EXPECT_EQ(EntryCount(), 1U);
    EXPECT_EQ(Entry("PT1"), "a|a|a");
    EXPECT_EQ(list.FindKind("PT")->Find(1)->Value().Bytes().size(), 2U);

    const std::string line("PT1;b\0c;d\0e;;f\0g\nPT1\0;n;v;;c\n", 29);
    const Warnings warnings = Read(line);
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_EQ(warnings[0], std::string("2 2000 [PT1\0]", 13));
    EXPECT_EQ(Entry("PT1"), "b|d|f");
}

TEST_F(HostileFilesTest, OneNumberAgainAndAgainIsOneEntry) {
    std::string text;
    for (int count = 0; count < 50'000; ++count) {
        text += Record("PW", "7", "n", "1", "c");
    }
    EXPECT_TRUE(ReadList(std::move(text)));
    EXPECT_EQ(EntryCount(), 1U);
}

TEST_F(HostileFilesTest, NumbersFarApartCostNoMoreThanOthers) {
    std::string text;
    for (std::uint32_t count = 0; count < 20'000; ++count) {
        text += Record("PW", std::to_string(count * 200'003U), "n", "1", "c");
    }
    EXPECT_TRUE(ReadList(std::move(text)));
    EXPECT_EQ(EntryCount(), 20'000U);
    EXPECT_EQ(Entry("PW" + std::to_string(19'999U * 200'003U)), "n|1|c");
}

TEST_F(HostileFilesTest, CsvFieldsOfMegabytesAreCutOrTakenWhole) {
    Add("PT1");
    Add("PW1", "", "", "1");
    const std::string huge(3 * kMegabyte, 'x');
    const std::string quotes(2 * kMegabyte, '"');
    EXPECT_EQ(Read("PT1;" + huge + ";" + huge + ";;" + huge + "\nPW1;n;" + huge + ";;c\n"),
              Warnings{"2 2004"});
    EXPECT_EQ(Entry("PT1"), std::string(15, 'x') + '|' + huge + '|' + std::string(30, 'x'));
    EXPECT_EQ(Entry("PW1"), "n|1|c");
    EXPECT_EQ(Read("PT1;\"" + quotes + "\";\"" + quotes + "\";;\n"), Warnings());
    EXPECT_EQ(Entry("PT1"), std::string(15, '"') + '|' + std::string(kMegabyte, '"') + '|');
}

TEST_F(HostileFilesTest, ACsvLineWithoutEndIsOneWarning) {
    Add("PT1", "old", "old", "old");
    const std::string huge(3 * kMegabyte, 'x');
    EXPECT_EQ(Read(huge), Warnings()) << "without a separator it is nothing";
    EXPECT_EQ(Read(huge + ';'), Warnings{"1 2000 [" + huge + "]"});
    EXPECT_EQ(Read("PT1;\"" + huge), Warnings{"1 2003"});
    EXPECT_EQ(Read("PT1;n;v;w;\"" + huge), Warnings{"1 2003"});
    EXPECT_EQ(Read("PT1;n" + std::string(kMegabyte, '"')), Warnings{"1 2003"});
    EXPECT_EQ(Entry("PT1"), "old|old|old");
}

TEST_F(HostileFilesTest, EveryLineMayGiveAWarning) {
    constexpr std::size_t kLines = 20'000;
    std::string text;
    for (std::size_t line = 0; line < kLines; ++line) {
        text += "X;\n";
    }
    const Warnings warnings = Read(std::move(text));
    ASSERT_EQ(warnings.size(), kLines);
    EXPECT_EQ(warnings.back(), std::to_string(kLines) + " 2000 [X]");
}

TEST_F(HostileFilesTest, ALineMayGiveManyWarnings) {
    Add("PT1", "old", "old", "old");
    std::string text;
    for (int count = 0; count < 10'000; ++count) {
        text += "PT1;x\"";
    }
    const Warnings warnings = Read(std::move(text));
    EXPECT_EQ(warnings, Warnings(10'000, "1 2003"));
    EXPECT_EQ(Entry("PT1"), "old|old|old");
}

TEST_F(HostileFilesTest, CsvNumbersOfAThousandDigitsWrapOrAreRejected) {
    const std::string zeros(1000, '0');
    for (const char* address : {"PW0", "PL7", "PF1", "INT64PARA1", "E29.0"}) {
        Add(address, "", "", "1");
    }
    EXPECT_EQ(Read("PW1" + zeros + ";a;" + zeros + "5;;\n" +     //
                   "PL" + zeros + "7;b;1" + zeros + ";;\n" +     //
                   "PF4294967297;c;1" + zeros + ";;\n" +         //
                   "PF1;d;0," + zeros + "1;;\n" +                //
                   "INT64PARA1;e;9223372036854775808;;\n" +      //
                   "E" + zeros + "29.0;f;-1" + zeros + ";;\n" +  //
                   "PF1;d;1e" + zeros + ";;\n"),
              (Warnings{"2 2004", "3 2004", "5 2004"}));
    EXPECT_EQ(Entry("PW0"), "a|5|");
    EXPECT_EQ(Entry("PL7"), "b|1|");
    EXPECT_EQ(Entry("PF1"), "d|1|");
    EXPECT_EQ(Entry("INT64PARA1"), "e|1|");
    EXPECT_EQ(Entry("E29.0"), "f|1|");
}

TEST_F(HostileFilesTest, AnyByteIsTakenForSomething) {
    std::string bytes;
    for (std::uint32_t state = 1, count = 0; count < kMegabyte; ++count) {
        state = state * 1664525U + 1013904223U;
        const char frequent[] = "\n\r;\" 0NDC:";
        const auto byte = static_cast<std::size_t>(state >> 24);
        bytes += byte < 200 ? frequent[byte % (sizeof frequent - 1)] : static_cast<char>(byte + 1);
    }
    bytes.erase(std::remove(bytes.begin(), bytes.end(), '\x1A'), bytes.end());
    const auto lineFeeds = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'));
    static_cast<void>(ReadList(bytes));
    EXPECT_EQ(EntryCount(), 0U);
    const Warnings warnings = Read(bytes + "\nX;\n");
    EXPECT_TRUE(warnings.back().starts_with(std::to_string(lineFeeds + 2) + " 2000"))
        << warnings.back();
}

}  // namespace
}  // namespace orvell::paramlist
