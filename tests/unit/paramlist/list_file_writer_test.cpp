#include "paramlist/list_file_writer.h"

#include "unit/paramlist/byte_stream_fakes.h"
#include "unit/paramlist/list_fixture.h"

namespace orvell::paramlist {
namespace {

using resources::StringId;

constexpr const char* kHead =
    "99     ORVELL-PARAMETER-LIST-FILE-01\r\n"
    "98     Version_7.100\r\n"
    "97     Project: \r\n";

class ListFileWriterTest : public test::ListFixture {
  protected:
    std::string Written() const {
        test::MemorySink sink;
        EXPECT_TRUE(WriteListFile(list, strings, sink));
        EXPECT_EQ(sink.closeCount, 1);
        return sink.text;
    }

    /// What is written between the headings of PW and PL.
    std::string Words() const {
        const std::string text = Written();
        const std::string heading = " 9 Liste der PW\r\n";
        const std::size_t begin = text.find(heading) + heading.size();
        return text.substr(begin, text.find("11 Liste der PL\r\n") - begin);
    }
};

TEST_F(ListFileWriterTest, AnEmptyListIsItsHeaderAndTheHeadingsOfAllKinds) {
    list.SetProjectName("C:\\Anlagen\\F\xFCllwerk.prj");
    EXPECT_EQ(Written(),
              "99     ORVELL-PARAMETER-LIST-FILE-01\r\n"
              "98     Version_7.100\r\n"
              "97     Project: C:\\Anlagen\\F\xFCllwerk.prj\r\n"
              " 2 Liste der E\r\n"
              " 3 Liste der A\r\n"
              "10 Liste der B\r\n"
              "29 Liste der UCHARPARA\r\n"
              " 9 Liste der PW\r\n"
              "11 Liste der PL\r\n"
              "31 Liste der INT64PARA\r\n"
              " 8 Liste der PF\r\n"
              "33 Liste der DOUBLEPARA\r\n"
              "12 Liste der PT\r\n"
              "21 Liste der TIMEPARA\r\n"
              "23 Liste der DATEPARA\r\n"
              "25 Liste der TODPARA\r\n"
              "27 Liste der DTPARA\r\n"
              "35 Liste der OLEDTPARA\r\n");
}

TEST_F(ListFileWriterTest, WritesARecordOfEveryKind) {
    Add("E3.5", "Taster links", "Taster \"Ein\"", "1");
    Add("A0.0",
        "L\xFC"
        "fter",
        "", "0");
    Add("B12.7", "", "Merker", "1");
    Add("UCHARPARA1", "Byte", "", "255");
    Add("PW12", "Sollwert", "", "-5");
    Add("PL4294967295", "Lang", "", "-2147483648");
    Add("INT64PARA3", "Breit", "", "-9223372036854775808");
    Add("PF2", "Zehntel", "in bar", "0.1");
    Add("DOUBLEPARA2", "Gro\xDF", "", "1e20");
    Add("PT7", "Text", "", "\xC4pfel; \"Birnen\"");
    Add("TIMEPARA1", "Dauer", "", "4294967295");
    Add("DATEPARA1", "Tag", "", "1608768000");
    Add("TODPARA1", "Uhr", "", "23400");
    Add("DTPARA1", "Zeitpunkt", "", "1608791400");
    Add("OLEDTPARA1", "OLE", "", "44189.28125");
    EXPECT_EQ(Written(), std::string(kHead) +
                             " 2 Liste der E\r\n"
                             " 0 E            29 N : Taster@links\r\n"
                             "                   D : 1\r\n"
                             "                   C : Taster@\"Ein\"\r\n"
                             " 3 Liste der A\r\n"
                             " 0 A             0 N : L\xFC"
                             "fter\r\n"
                             "                   D : 0\r\n"
                             "                   C : %%\r\n"
                             "10 Liste der B\r\n"
                             " 0 B           103 N : %%\r\n"
                             "                   D : 1\r\n"
                             "                   C : Merker\r\n"
                             "29 Liste der UCHARPARA\r\n"
                             " 0 UCHARPARA     1 N : Byte\r\n"
                             "                   D : 255\r\n"
                             "                   C : %%\r\n"
                             " 9 Liste der PW\r\n"
                             " 0 PW           12 N : Sollwert\r\n"
                             "                   D : -5\r\n"
                             "                   C : %%\r\n"
                             "11 Liste der PL\r\n"
                             " 0 PL         4294967295 N : Lang\r\n"
                             "                   D : -2147483648\r\n"
                             "                   C : %%\r\n"
                             "31 Liste der INT64PARA\r\n"
                             " 0 INT64PARA     3 N : Breit\r\n"
                             "                   D : -9223372036854775808\r\n"
                             "                   C : %%\r\n"
                             " 8 Liste der PF\r\n"
                             " 0 PF            2 N : Zehntel\r\n"
                             "                   D : 0.1\r\n"
                             "                   C : in@bar\r\n"
                             "33 Liste der DOUBLEPARA\r\n"
                             " 0 DOUBLEPARA    2 N : Gro\xDF\r\n"
                             "                   D : 1e+20\r\n"
                             "                   C : %%\r\n"
                             "12 Liste der PT\r\n"
                             " 0 PT            7 N : Text\r\n"
                             "                   D : \xC4pfel;@\"Birnen\"\r\n"
                             "                   C : %%\r\n"
                             "21 Liste der TIMEPARA\r\n"
                             " 0 TIMEPARA      1 N : Dauer\r\n"
                             "                   D : -1\r\n"
                             "                   C : %%\r\n"
                             "23 Liste der DATEPARA\r\n"
                             " 0 DATEPARA      1 N : Tag\r\n"
                             "                   D : 1608768000\r\n"
                             "                   C : %%\r\n"
                             "25 Liste der TODPARA\r\n"
                             " 0 TODPARA       1 N : Uhr\r\n"
                             "                   D : 23400\r\n"
                             "                   C : %%\r\n"
                             "27 Liste der DTPARA\r\n"
                             " 0 DTPARA        1 N : Zeitpunkt\r\n"
                             "                   D : 1608791400\r\n"
                             "                   C : %%\r\n"
                             "35 Liste der OLEDTPARA\r\n"
                             " 0 OLEDTPARA     1 N : OLE\r\n"
                             "                   D : 44189.28125\r\n"
                             "                   C : %%\r\n");
}

TEST_F(ListFileWriterTest, UndefinedValuesOfEveryKindHaveTheSameText) {
    for (const ParameterKind& kind : list.Kinds()) {
        Add(kind.Keyword() + "8");
    }
    std::string text = Written();
    int undefined = 0;
    for (std::size_t at = text.find("D : undef\r\n"); at != std::string::npos;
         at = text.find("D : undef\r\n", at + 1)) {
        ++undefined;
    }
    EXPECT_EQ(undefined, 15);
}

TEST_F(ListFileWriterTest, EmptyTextsAreUndefinedAndTabsStay) {
    Add("PT1", " a\tb ", " ", "");
    Add("PT2", "@", "%%", " x@ y");
    EXPECT_NE(Written().find("12 Liste der PT\r\n"
                             " 0 PT            1 N : @a\tb@\r\n"
                             "                   D : undef\r\n"
                             "                   C : @\r\n"
                             " 0 PT            2 N : @\r\n"
                             "                   D : @x@@y\r\n"
                             "                   C : %%\r\n"
                             "21 Liste der TIMEPARA\r\n"),
              std::string::npos);
}

TEST_F(ListFileWriterTest, OrdersByNumberAndEqualNumbersByAge) {
    ParameterKind& words = *list.FindKind("PW");
    for (const std::uint32_t number : {40000U, 5U, 12345U, 5U}) {
        ParameterEntry& entry = words.Obtain(number, true);
        entry.SetName("n" + std::to_string(words.EntryCount()));
        entry.Value().Store(static_cast<std::int16_t>(words.EntryCount()));
    }
    EXPECT_EQ(Words(),
              " 0 PW            5 N : n2\r\n"
              "                   D : 2\r\n"
              "                   C : %%\r\n"
              " 0 PW            5 N : n4\r\n"
              "                   D : 4\r\n"
              "                   C : %%\r\n"
              " 0 PW         12345 N : n3\r\n"
              "                   D : 3\r\n"
              "                   C : %%\r\n"
              " 0 PW         40000 N : n1\r\n"
              "                   D : 1\r\n"
              "                   C : %%\r\n");
}

TEST_F(ListFileWriterTest, WritesEntriesWhetherDeclaredOrNot) {
    Add("PW1", "a", "", "1");
    list.SetFlagsAll(kDeclaredMark, true);
    Add("PW2", "b", "", "2");
    list.SetDeclaredOnly(true);
    EXPECT_NE(Words().find("N : a"), std::string::npos);
    EXPECT_NE(Words().find("N : b"), std::string::npos);
}

TEST_F(ListFileWriterTest, AKindWithoutHandlerHasNoValues) {
    source.Change(static_cast<StringId>(215), "NEU");
    source.Change(static_cast<StringId>(265), "40 Liste der NEU\n");
    list.BuildKinds(16);
    list.FindKind("NEU")->Obtain(3, false).Value().Store(std::uint8_t{1});
    EXPECT_TRUE(
        Written().ends_with("35 Liste der OLEDTPARA\r\n"
                            "40 Liste der NEU\r\n"
                            " 0 NEU           3 N : %%\r\n"
                            "                   D : undef\r\n"
                            "                   C : %%\r\n"));
}

TEST_F(ListFileWriterTest, AHeadingIsWrittenAlsoForAKeywordThatNoKindHas) {
    Add("PW1", "a", "", "1");
    Add("PL1", "b", "", "2");
    test::ChangedStrings others;
    others.Change(StringId::KeywordPW, "WORT");
    const resources::StringTable changed(others);
    test::MemorySink sink;
    EXPECT_TRUE(WriteListFile(list, changed, sink));
    EXPECT_NE(sink.text.find(" 9 Liste der PW\r\n"
                             "11 Liste der PL\r\n"
                             " 0 PL            1 N : b\r\n"),
              std::string::npos);
}

TEST_F(ListFileWriterTest, WithoutKindsThereAreNoHeadings) {
    EXPECT_TRUE(list.BuildKinds(0));
    EXPECT_EQ(Written(), kHead);
}

}  // namespace
}  // namespace orvell::paramlist
