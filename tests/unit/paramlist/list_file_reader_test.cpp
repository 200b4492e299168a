#include "paramlist/list_file_reader.h"

#include "unit/paramlist/byte_stream_fakes.h"
#include "unit/paramlist/list_fixture.h"

namespace orvell::paramlist {
namespace {

using resources::StringId;
using enum ListFileScope;

std::string Record(const std::string& address, const std::string& name, const std::string& value,
                   const std::string& comment) {
    return " 0 " + address + " N : " + name + "\r\n                   D : " + value +
           "\r\n                   C : " + comment + "\r\n";
}

class ListFileReaderTest : public test::ListFixture {
  protected:
    bool Read(std::string text, ListFileScope scope = AllEntries) {
        test::MemorySource bytes(std::move(text));
        return ReadListFile(list, strings, bytes, scope);
    }
};

TEST_F(ListFileReaderTest, CreatesMissingEntriesAndUpdatesTheOthers) {
    Add("PW12", "old", "old", "1");
    EXPECT_TRUE(Read(Record("PW 12", "Motor@links", "-5", "F\xFCllstand") +
                     Record("E 29", "bit", "1", "%%")));
    EXPECT_EQ(Entry("PW12"), "Motor links|-5|F\xFCllstand");
    EXPECT_EQ(Entry("E3.5"), "bit|1|");
    EXPECT_EQ(EntryCount(), 2U);
}

TEST_F(ListFileReaderTest, UpdatesOnlyWhenToldSo) {
    Add("PW12", "old", "old", "1");
    EXPECT_TRUE(
        Read(Record("PW 12", "n", "2", "c") + Record("PW 13", "n", "2", "c"), ExistingEntries));
    EXPECT_EQ(Entry("PW12"), "n|2|c");
    EXPECT_EQ(Entry("PW13"), "none");
}

TEST_F(ListFileReaderTest, UpdatesTheOldestOfEqualNumbersWhetherDeclaredOrNot) {
    ParameterKind& words = *list.FindKind("PW");
    ParameterEntry& oldest = words.Obtain(1, true);
    EXPECT_TRUE(words.Declare(0, 1));
    list.SetDeclaredOnly(true);
    EXPECT_TRUE(Read(Record("PW 1", "n", "2", "c")));
    EXPECT_EQ(Describe(words, oldest), "n|2|c");
    EXPECT_EQ(oldest.Flags(), 0U);
    EXPECT_EQ(words.EntryCount(), 2U);
}

TEST_F(ListFileReaderTest, PassesOverUnknownKeywords) {
    EXPECT_TRUE(Read(Record("pw 1", "n", "2", "c") + Record("XY 1", "n", "2", "c") +
                     Record("PWX 1", "n", "2", "c") + Record("PW 1", "n", "2", "c")));
    EXPECT_EQ(EntryCount(), 1U);
    EXPECT_TRUE(Read(Record("XY 1", "n", "2", "c") + " 0 PW")) << "a passed-over record counts";
}

TEST_F(ListFileReaderTest, HeadersAloneChangeNothing) {
    Add("PW12", "old", "old", "1");
    EXPECT_TRUE(Read(""));
    EXPECT_TRUE(
        Read("99     TOKEN\r\n98     Version_7.100\r\n97     Project: x\r\n"
             " 2 Liste der E\r\n29 Liste der UCHARPARA\r\n"));
    EXPECT_FALSE(Read(" 2 Liste der E\r\n29 Liste der UCHARPARA"));
    EXPECT_EQ(Entry("PW12"), "old|1|old");
}

TEST_F(ListFileReaderTest, NamesAndCommentsAreCutAndMayBeMarkedEmpty) {
    EXPECT_TRUE(Read(Record("PW 1", std::string(16, 'n'), "1", std::string(31, 'c')) +
                     Record("PW 2", "%%", "1", "%%") + Record("PW 3", "%%@", "1", "@%%")));
    EXPECT_EQ(Entry("PW1"), std::string(15, 'n') + "|1|" + std::string(30, 'c'));
    EXPECT_EQ(Entry("PW2"), "|1|");
    EXPECT_EQ(Entry("PW3"), "%% |1| %%");
}

TEST_F(ListFileReaderTest, UndefMakesEveryKindUndefined) {
    for (ParameterKind& kind : list.Kinds()) {
        kind.Handler()->SetFromText(kind.Obtain(8, false).Value(), "1");
        EXPECT_TRUE(Read(Record(kind.Keyword() + " 8", "n", "undef", "c")));
        EXPECT_FALSE(kind.Find(8)->Value().IsDefined()) << kind.Keyword();
        EXPECT_EQ(kind.Find(8)->Name(), "n");
    }
    EXPECT_TRUE(Read(Record("PT 1", "n", "Undef", "c") + Record("PW 1", "n", "UNDEF", "c")));
    EXPECT_EQ(Entry("PT1"), "n|Undef|c");
    EXPECT_EQ(Entry("PW1"), "n|0|c");
}

TEST_F(ListFileReaderTest, OfATextTheFirstCharacterStays) {
    EXPECT_TRUE(Read(Record("PT 1", "n", "@a@b@", "c")));
    EXPECT_EQ(Entry("PT1"), "n|@a b |c");
}

TEST_F(ListFileReaderTest, AKindWithoutHandlerLosesItsValue) {
    source.Change(static_cast<StringId>(215), "NEU");
    list.BuildKinds(16);
    ParameterEntry& entry = list.FindKind("NEU")->Obtain(1, false);
    entry.Value().Store(std::uint8_t{1});
    EXPECT_TRUE(Read(Record("NEU 1", "n", "1", "c")));
    EXPECT_EQ(entry.Name(), "n");
    EXPECT_FALSE(entry.Value().IsDefined());
}

TEST_F(ListFileReaderTest, TheTextModeEndsAtCtrlZ) {
    EXPECT_TRUE(Read(Record("PW 1", "n", "2", "c") + "\x1A" + Record("PW 2", "n", "2", "c")));
    EXPECT_EQ(Entry("PW1"), "n|2|c");
    EXPECT_EQ(Entry("PW2"), "none");
}

}  // namespace
}  // namespace orvell::paramlist
