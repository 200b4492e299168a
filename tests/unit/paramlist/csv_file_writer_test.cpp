#include "paramlist/csv_file_writer.h"

#include "unit/paramlist/byte_stream_fakes.h"
#include "unit/paramlist/list_fixture.h"

namespace orvell::paramlist {
namespace {

using resources::StringId;

const std::string kCsvHead = "Version:;Zelkor 7.1.0.0\r\nProjekt:;\r\n\r\n";
const std::string kColumns = "Adresse;Bezeichnung;Wert;;Kommentar\r\n";

class CsvFileWriterTest : public test::ListFixture {
  protected:
    std::string Written() const {
        test::MemorySink sink;
        EXPECT_TRUE(WriteCsvFile(list, strings, sink));
        EXPECT_EQ(sink.closeCount, 1);
        return sink.text;
    }
};

TEST_F(CsvFileWriterTest, AnEmptyListIsThreeLines) {
    list.SetProjectName("C:\\Anlagen\\F\xFCllwerk.prj");
    EXPECT_EQ(Written(),
              "Version:;Zelkor 7.1.0.0\r\n"
              "Projekt:;C:\\Anlagen\\F\xFCllwerk.prj\r\n"
              "\r\n");
}

TEST_F(CsvFileWriterTest, WritesARecordOfEveryKind) {
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
    EXPECT_EQ(Written(),
              "Version:;Zelkor 7.1.0.0\r\n"
              "Projekt:;\r\n"
              "\r\n"
              "Liste der E\r\n"
              "Adresse;Bezeichnung;Wert;;Kommentar\r\n"
              "E3.5;\"Taster links\";1;;\"Taster \"\"Ein\"\"\"\r\n"
              "\r\n"
              "Liste der A\r\n"
              "Adresse;Bezeichnung;Wert;;Kommentar\r\n"
              "A0.0;\"L\xFC"
              "fter\";0;;\"\"\r\n"
              "\r\n"
              "Liste der B\r\n"
              "Adresse;Bezeichnung;Wert;;Kommentar\r\n"
              "B12.7;\"\";1;;\"Merker\"\r\n"
              "\r\n"
              "Liste der UCHARPARA\r\n"
              "Adresse;Bezeichnung;Wert;;Kommentar\r\n"
              "UCHARPARA1;\"Byte\";255;;\"\"\r\n"
              "\r\n"
              "Liste der PW\r\n"
              "Adresse;Bezeichnung;Wert;;Kommentar\r\n"
              "PW12;\"Sollwert\";-5;;\"\"\r\n"
              "\r\n"
              "Liste der PL\r\n"
              "Adresse;Bezeichnung;Wert;;Kommentar\r\n"
              "PL4294967295;\"Lang\";-2147483648;;\"\"\r\n"
              "\r\n"
              "Liste der INT64PARA\r\n"
              "Adresse;Bezeichnung;Wert;;Kommentar\r\n"
              "INT64PARA3;\"Breit\";-9223372036854775808;;\"\"\r\n"
              "\r\n"
              "Liste der PF\r\n"
              "Adresse;Bezeichnung;Wert;;Kommentar\r\n"
              "PF2;\"Zehntel\";0,1;;\"in bar\"\r\n"
              "\r\n"
              "Liste der DOUBLEPARA\r\n"
              "Adresse;Bezeichnung;Wert;;Kommentar\r\n"
              "DOUBLEPARA2;\"Gro\xDF\";1e+20;;\"\"\r\n"
              "\r\n"
              "Liste der PT\r\n"
              "Adresse;Bezeichnung;Wert;;Kommentar\r\n"
              "PT7;\"Text\";\"\xC4pfel; \"\"Birnen\"\"\";;\"\"\r\n"
              "\r\n"
              "Liste der TIMEPARA\r\n"
              "Adresse;Bezeichnung;Wert;;Kommentar\r\n"
              "TIMEPARA1;\"Dauer\";4294967295;;\"\"\r\n"
              "\r\n"
              "Liste der DATEPARA\r\n"
              "Adresse;Bezeichnung;Wert;;Kommentar\r\n"
              "DATEPARA1;\"Tag\";24.12.2020;;\"\"\r\n"
              "\r\n"
              "Liste der TODPARA\r\n"
              "Adresse;Bezeichnung;Wert;;Kommentar\r\n"
              "TODPARA1;\"Uhr\";06:30:00;;\"\"\r\n"
              "\r\n"
              "Liste der DTPARA\r\n"
              "Adresse;Bezeichnung;Wert;;Kommentar\r\n"
              "DTPARA1;\"Zeitpunkt\";24.12.2020;06:30:00;\"\"\r\n"
              "\r\n"
              "Liste der OLEDTPARA\r\n"
              "Adresse;Bezeichnung;Wert;;Kommentar\r\n"
              "OLEDTPARA1;\"OLE\";\"24.12.2020\";\"06:45:00;000\";\"\"\r\n"
              "\r\n");
}

TEST_F(CsvFileWriterTest, UndefinedValuesKeepTheirColumns) {
    for (const ParameterKind& kind : list.Kinds()) {
        Add(kind.Keyword() + "1");
    }
    const std::string text = Written();
    for (const std::string record :
         {"E1.0;\"\";;;\"\"", "A1.0;\"\";;;\"\"", "B1.0;\"\";;;\"\"", "UCHARPARA1;\"\";;;\"\"",
          "PW1;\"\";;;\"\"", "PL1;\"\";;;\"\"", "INT64PARA1;\"\";;;\"\"", "PF1;\"\";;;\"\"",
          "DOUBLEPARA1;\"\";;;\"\"", "PT1;\"\";\"\";;\"\"", "TIMEPARA1;\"\";;;\"\"",
          "DATEPARA1;\"\";;;\"\"", "TODPARA1;\"\";;;\"\"", "DTPARA1;\"\";;;\"\"",
          "OLEDTPARA1;\"\";\"\";\"\";\"\""}) {
        EXPECT_NE(text.find("\r\n" + record + "\r\n"), std::string::npos) << record;
    }
}

TEST_F(CsvFileWriterTest, ATimeWithoutADayHasAnEmptyFirstColumn) {
    Add("OLEDTPARA1", "", "", "0.5");
    EXPECT_EQ(Written(), kCsvHead + "Liste der OLEDTPARA\r\n" + kColumns +
                             "OLEDTPARA1;\"\";\"\";\"12:00:00;000\";\"\"\r\n\r\n");
}

TEST_F(CsvFileWriterTest, EmptyTextsAndUndefinedOnesLookAlike) {
    Add("PT1", "\"", ";", "");
    Add("PT2", "%%", "a\tb@", " \" ");
    EXPECT_EQ(Written(), kCsvHead + "Liste der PT\r\n" + kColumns +
                             "PT1;\"\"\"\";\"\";;\";\"\r\n"
                             "PT2;\"%%\";\" \"\" \";;\"a\tb@\"\r\n"
                             "\r\n");
}

TEST_F(CsvFileWriterTest, OrdersByNumberAndEqualNumbersByAge) {
    ParameterKind& words = *list.FindKind("PW");
    for (const std::uint32_t number : {40000U, 5U, 12345U, 5U}) {
        words.Obtain(number, true).Value().Store(static_cast<std::int16_t>(words.EntryCount()));
    }
    EXPECT_EQ(Written(), kCsvHead + "Liste der PW\r\n" + kColumns +
                             "PW5;\"\";2;;\"\"\r\n"
                             "PW5;\"\";4;;\"\"\r\n"
                             "PW12345;\"\";3;;\"\"\r\n"
                             "PW40000;\"\";1;;\"\"\r\n"
                             "\r\n");
}

TEST_F(CsvFileWriterTest, TheLanguageLibraryMayPutTheMonthFirst) {
    source.Change(StringId::CsvDateFormat, "MM/DD/YYYY");
    Add("DATEPARA1", "", "", "1608768000");
    Add("DTPARA1", "", "", "1608791400");
    Add("OLEDTPARA1", "", "", "44189.28125");
    const std::string text = Written();
    for (const std::string record :
         {"DATEPARA1;\"\";12/24/2020;;\"\"", "DTPARA1;\"\";12/24/2020;06:30:00;\"\"",
          "OLEDTPARA1;\"\";\"12/24/2020\";\"06:45:00;000\";\"\""}) {
        EXPECT_NE(text.find("\r\n" + record + "\r\n"), std::string::npos) << record;
    }
}

TEST_F(CsvFileWriterTest, AKindWithoutHandlerHasNoValuesAndNoBits) {
    source.Change(static_cast<StringId>(215), "NEU");
    source.Change(static_cast<StringId>(315), "Liste der NEU\n");
    list.BuildKinds(16);
    list.FindKind("NEU")->Obtain(9, false).Value().Store(std::uint8_t{1});
    EXPECT_EQ(Written(),
              kCsvHead + "Liste der NEU\r\n" + kColumns + "NEU9;\"\";;;\"\"\r\n" + "\r\n");
}

TEST_F(CsvFileWriterTest, AKeywordThatNoKindHasIsLeftOut) {
    Add("PW1", "", "", "1");
    Add("PL1", "", "", "2");
    test::ChangedStrings others;
    others.Change(StringId::KeywordPW, "WORT");
    const resources::StringTable changed(others);
    test::MemorySink sink;
    EXPECT_TRUE(WriteCsvFile(list, changed, sink));
    EXPECT_EQ(sink.text,
              kCsvHead + "Liste der PL\r\n" + kColumns + "PL1;\"\";2;;\"\"\r\n" + "\r\n");
}

}  // namespace
}  // namespace orvell::paramlist
