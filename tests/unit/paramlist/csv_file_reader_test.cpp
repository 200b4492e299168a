#include "paramlist/csv_file_reader.h"

#include "unit/paramlist/csv_import_fixture.h"

namespace orvell::paramlist {
namespace {

using resources::StringId;
using Warnings = std::vector<std::string>;

class CsvFileReaderTest : public test::CsvImportFixture {};

TEST_F(CsvFileReaderTest, UpdatesEntriesThatExist) {
    Add("PW12", "old", "old", "1");
    EXPECT_EQ(Read("PW12;\"Motor \"\"links\"\"\";-5;;\"F\xFCllstand\"\r\n"), Warnings());
    EXPECT_EQ(Entry("PW12"), "Motor \"links\"|-5|F\xFCllstand");
    EXPECT_EQ(EntryCount(), 1U);
}

TEST_F(CsvFileReaderTest, NeverCreatesEntries) {
    EXPECT_EQ(Read("PW12;n;1;;c\nE3.5;n;1;;c\n"), (Warnings{"1 2001 [PW12]", "2 2001 [E3.5]"}));
    EXPECT_EQ(EntryCount(), 0U);
}

TEST_F(CsvFileReaderTest, UpdatesTheOldestOfEqualNumbersWhetherDeclaredOrNot) {
    ParameterKind& words = *list.FindKind("PW");
    ParameterEntry& oldest = words.Obtain(1, true);
    ParameterEntry& declared = words.Obtain(2, true);
    EXPECT_TRUE(words.Declare(2, 1));
    list.SetDeclaredOnly(true);
    EXPECT_EQ(Read("PW1;n;7;;c\n"), Warnings());
    EXPECT_EQ(Describe(words, oldest), "n|7|c");
    EXPECT_EQ(oldest.Flags(), 0U);
    EXPECT_EQ(Describe(words, declared), "|undefined|");
}

TEST_F(CsvFileReaderTest, EachProblemHasItsWarning) {
    Add("PW1", "old", "old", "1");
    const std::pair<const char*, Warnings> cases[] = {
        {"XY1;n;1;;c\n", {"1 2000 [XY1]"}},
        {"pw1;n;1;;c\n", {"1 2000 [pw1]"}},
        {" X Y 1;n;1;;c\n", {"1 2000 [ X Y 1]"}},
        {"12;n;1;;c\n", {"1 2000 [12]"}},
        {"PW2;n;1;;c\n", {"1 2001 [PW2]"}},
        {" P W\t2 ;n;1;;c\n", {"1 2001 [PW2]"}},
        {"PW1.2;n;1;;c\n", {"1 2002 [PW1.2]"}},
        {"E1.8;n;1;;c\n", {"1 2002 [E1.8]"}},
        {"E1.;n;1;;c\n", {"1 2002 [E1.]"}},
        {"E1.22;n;1;;c\n", {"1 2002 [E1.22]"}},
        {"PW1\"\n", {}},
        {"PW1;n\n", {"1 2003"}},
        {"PW1;\"n\"x;1;;c\n", {"1 2003"}},
        {"\n\nPW1;\"n", {"3 2003"}},
    };
    for (const auto& [text, warnings] : cases) {
        EXPECT_EQ(Read(text), warnings) << text;
        EXPECT_EQ(Entry("PW1"), "old|1|old") << text;
    }
}

TEST_F(CsvFileReaderTest, ARejectedValueComesAfterNameAndComment) {
    Add("PW1", "old", "old", "1");
    EXPECT_EQ(Read("PW1;n;99999;;c\n"), Warnings{"1 2004"});
    EXPECT_EQ(Entry("PW1"), "n|1|c");
    EXPECT_EQ(Read("PW1;m;x;;d"), Warnings{"1 2004"}) << "also at the end of the file";
    EXPECT_EQ(Entry("PW1"), "m|1|d");
}

TEST_F(CsvFileReaderTest, ABlankValueMakesUndefined) {
    for (ParameterKind& kind : list.Kinds()) {
        kind.Handler()->SetFromText(kind.Obtain(8, false).Value(), "1");
        EXPECT_EQ(Read(kind.Keyword() + "8;n; \t;;c\n"), Warnings()) << kind.Keyword();
        EXPECT_FALSE(kind.Find(8)->Value().IsDefined()) << kind.Keyword();
    }
}

TEST_F(CsvFileReaderTest, PassesOverHeaderLinesAlsoWhenCutShort) {
    EXPECT_EQ(Read("Version:;Zelkor 7.1.0.0\n"
                   "Projekt:;C:\\PLANT.PRJ\n"
                   "\n"
                   "Liste der PW\n"
                   "Liste der PW;;;;\n"
                   "Liste der OLEDTPARA;\n"
                   "Adresse;Bezeichnung;Wert;;Kommentar\n"
                   "Ver;\n"
                   "Adr;\n"
                   ";;;;\n"),
              Warnings());
    EXPECT_EQ(Read("Adressen;\nliste der PW;\n Liste;\nListe der PWX;\n"),
              (Warnings{"1 2000 [Adressen]", "2 2000 [liste der PW]", "3 2000 [ Liste]",
                        "4 2000 [Liste der PWX]"}));
}

TEST_F(CsvFileReaderTest, AKeywordComesBeforeAHeaderLine) {
    EXPECT_EQ(Read("A;\nP;\n"), Warnings{"1 2001 [A]"}) << "\"A\" is A0, \"P\" begins \"Projekt\"";
}

TEST_F(CsvFileReaderTest, ABareKeywordIsNumberZero) {
    Add("PW0", "", "", "1");
    EXPECT_EQ(Read("PW;n;2;;c\n"), Warnings());
    EXPECT_EQ(Entry("PW0"), "n|2|c");
}

TEST_F(CsvFileReaderTest, ABitWithoutADotIsTheBitsOwnNumber) {
    Add("E3.5", "", "", "0");
    Add("E29", "", "", "0");
    EXPECT_EQ(Read("E29;by number;1;;\n"), Warnings());
    EXPECT_EQ(Entry("E3.5"), "by number|1|");
    EXPECT_EQ(Entry("E29.0"), "|0|");
}

TEST_F(CsvFileReaderTest, NamesAndCommentsAreCutAndMayBeMarkedEmpty) {
    Add("PW1", "old", "old", "1");
    EXPECT_EQ(Read("PW1;" + std::string(16, 'n') + ";1;;" + std::string(31, 'c') + "\n"),
              Warnings());
    EXPECT_EQ(Entry("PW1"), std::string(15, 'n') + "|1|" + std::string(30, 'c'));
    EXPECT_EQ(Read("PW1;%%;1;;\"%%\"\n"), Warnings());
    EXPECT_EQ(Entry("PW1"), "|1|");
    EXPECT_EQ(Read("PW1;%;1;;%%%\n"), Warnings());
    EXPECT_EQ(Entry("PW1"), "%|1|%%%");
}

TEST_F(CsvFileReaderTest, ALineWithoutACommentEmptiesIt) {
    for (const char* text : {"PW1;n;2\n", "PW1;n;2;\n", "PW1;n;2;;\n", "PW1;n;\"2\";\"\"\n"}) {
        Add("PW1", "old", "old", "1");
        EXPECT_EQ(Read(text), Warnings()) << text;
        EXPECT_EQ(Entry("PW1"), "n|2|") << text;
    }
}

TEST_F(CsvFileReaderTest, IgnoresWhatFollowsTheComment) {
    Add("PW1", "", "", "1");
    EXPECT_EQ(Read("PW1;n;2;;c;\"more;\nPW1;m;3;;\"d\";x\"y\n"), Warnings());
    EXPECT_EQ(Entry("PW1"), "m|3|d");
}

TEST_F(CsvFileReaderTest, ReadsTheSecondColumnOfDatesAndClocks) {
    Add("DTPARA1", "", "", "1");
    Add("OLEDTPARA1", "", "", "1");
    Add("PT1", "", "", "x");
    EXPECT_EQ(Read("DTPARA1;;24.12.2020;06:30:00;\n"
                   "OLEDTPARA1;;\"24.12.2020\";\"06:45:00;000\";\n"
                   "PT1;;two;words;\n"),
              Warnings());
    EXPECT_EQ(Entry("DTPARA1"), "|1608791400|");
    EXPECT_EQ(Entry("OLEDTPARA1"), "|44189.28125|");
    EXPECT_EQ(Entry("PT1"), "|two words|");
}

TEST_F(CsvFileReaderTest, ReadsDatesOfBothOrders) {
    Add("DATEPARA1", "", "", "1");
    Add("DATEPARA2", "", "", "1");
    EXPECT_EQ(Read("DATEPARA1;;12/24/2020;;\nDATEPARA2;;24.12.2020;;\n"), Warnings());
    EXPECT_EQ(Entry("DATEPARA1"), "|1608768000|");
    EXPECT_EQ(Entry("DATEPARA2"), "|1608768000|");
}

TEST_F(CsvFileReaderTest, AKindWithoutHandlerLosesItsValue) {
    source.Change(static_cast<StringId>(215), "NEU");
    list.BuildKinds(16);
    ParameterEntry& entry = list.FindKind("NEU")->Obtain(1, false);
    entry.Value().Store(std::uint8_t{1});
    EXPECT_EQ(Read("NEU1;n;1;;c\n"), Warnings{"1 2004"});
    EXPECT_EQ(entry.Name(), "n");
    EXPECT_EQ(entry.Comment(), "c");
    EXPECT_FALSE(entry.Value().IsDefined());
}

TEST_F(CsvFileReaderTest, TakesTheListOfKindsAsItIsAfterAWarning) {
    Add("PW1", "", "", "1");
    struct Rebuilding : test::RecordedWarnings {
        void Warning(StringId message, std::uint32_t line,
                     std::optional<std::string_view> argument) override {
            RecordedWarnings::Warning(message, line, argument);
            list->BuildKinds();
            list->FindKind("PW")->Obtain(3, false);
        }
        ParameterList* list = nullptr;
    } report;
    report.list = &list;
    test::MemorySource bytes("PW1;n;1;;c\nPW2;n;1;;c\nPW1;n;1;;c\nPW3;n;3;;c\n");
    ReadCsvFile(list, strings, bytes, "", report);
    EXPECT_EQ(report.warnings, (Warnings{"2 2001 [PW2]", "3 2001 [PW1]"}));
    EXPECT_EQ(Entry("PW3"), "n|3|c");
}

}  // namespace
}  // namespace orvell::paramlist
