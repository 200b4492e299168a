// Exports with format texts of a language library that nobody has checked.

#include "paramlist/csv_file_writer.h"
#include "paramlist/list_file_writer.h"
#include "resources/format_conversion.h"
#include "unit/paramlist/byte_stream_fakes.h"
#include "unit/paramlist/list_fixture.h"

namespace orvell::paramlist {
namespace {

using resources::FormatConversion;
using resources::StringId;

struct FormatCase {
    const char* format;
    const char* written;
};

class HostileFormatsTest : public test::ListFixture {
  protected:
    HostileFormatsTest() {
        list.SetProjectName("C:\\%n.prj");
        Add("E3.5", "n%s", "c%n", "1");
        Add("PW12", "n%s", "c%n", "-5");
    }

    /// The list file written with this text.
    std::string ListFileWith(StringId id, const std::string& text) {
        test::MemorySink sink;
        source.Change(id, text);
        const resources::StringTable changed(source);
        EXPECT_TRUE(WriteListFile(list, changed, sink));
        return sink.text;
    }

    std::string CsvFileWith(StringId id, const std::string& text) {
        test::MemorySink sink;
        source.Change(id, text);
        const resources::StringTable changed(source);
        EXPECT_TRUE(WriteCsvFile(list, changed, sink));
        return sink.text;
    }

    static std::string Between(const std::string& text, const std::string& before,
                               const std::string& behind) {
        const std::size_t begin = text.find(before) + before.size();
        return text.substr(begin, text.find(behind, begin) - begin);
    }
};

TEST_F(HostileFormatsTest, RecordsOfListFiles) {
    const FormatCase cases[] = {
        {"", ""},
        {"no conversion\n", "no conversion\r\n"},
        {"%s|%s|%s|%s|%s", "PW|12|n%s|-5|c%n"},
        {"%d|%d|%d|%d|%d", "PW|12|n%s|-5|c%n"},
        {"%u %u %u", "PW 12 n%s"},
        {"%c%c", "PW\x0C"},
        {"%x %X %x", "PW C n%s"},
        {"%s %u %s %s %s|%s|%d|%n", "PW 12 n%s -5 c%n|||%n"},
        {"%n%n%s", "%n%nPW"},
        {"%*s%s", "%*sPW"},
        {"%5$s%s", "%5$sPW"},
        {"%s%", "PW%"},
        {"%s%-", "PW%-"},
        {"%s%ll", "PW%ll"},
        {"%s%.", "PW%."},
        {"%f%e%g%p%a%s", "%f%e%g%p%aPW"},
        {"%%s%s", "%sPW"},
        {"%.1s%.1s", "P12"},
        {"%hhu%hu", "PW12"},
        {"%I64u%I64u", "PW12"},
        {"\x80%s\xFF", "\x80PW\xFF"},
    };
    for (const auto& [format, written] : cases) {
        const std::string text = ListFileWith(StringId::ListFileRecord, format);
        EXPECT_EQ(Between(text, " 9 Liste der PW\r\n", "11 Liste"), written) << format;
    }
}

TEST_F(HostileFormatsTest, RecordsOfCsvFiles) {
    const FormatCase cases[] = {
        {"", ""},
        {"%s%u;%s;%s;%s;%s;%u\n", "PW12;\"n%s\";-5;;\"c%n\";;\r\n"},
        {"%d%s;%u", "PW12;\"n%s\""},
        {"%n%s%", "%nPW%"},
    };
    for (const auto& [format, written] : cases) {
        const std::string text = CsvFileWith(StringId::CsvRecord, format);
        EXPECT_TRUE(text.ends_with(std::string("Kommentar\r\n") + written + "\r\n")) << text;
    }
}

TEST_F(HostileFormatsTest, RecordsOfBitsInCsvFiles) {
    const FormatCase cases[] = {
        {"", ""},
        {"%s%s.%s;%s", "E3.5;\"n%s\""},
        {"%u%d.%x", "E3.5"},
        {"%s%u.%u;%s;%s;%s%s\n", "E3.5;\"n%s\";1;;\"c%n\"\r\n"},
    };
    for (const auto& [format, written] : cases) {
        const std::string text = CsvFileWith(StringId::CsvBitRecord, format);
        EXPECT_EQ(Between(text, "Kommentar\r\n", "\r\nListe der PW"), written) << format;
    }
}

TEST_F(HostileFormatsTest, Headers) {
    const FormatCase cases[] = {
        {"", ""},         {"%s", "C:\\%n.prj"}, {"%d", "C:\\%n.prj"}, {"%s%s%n", "C:\\%n.prj%n"},
        {"100%", "100%"}, {"%.3s", "C:\\"},
    };
    for (const auto& [format, written] : cases) {
        const std::string listFile = ListFileWith(StringId::ListFileHeader, format);
        EXPECT_EQ(listFile.substr(0, listFile.find(" 2 Liste")), written) << format;
        const std::string csvFile = CsvFileWith(StringId::CsvProjectLine, format);
        EXPECT_EQ(Between(csvFile, "7.1.0.0\r\n", "Liste der E"), written) << format;
    }
}

TEST_F(HostileFormatsTest, TextsWithoutArgumentsAreNoFormats) {
    EXPECT_TRUE(ListFileWith(StringId::ListHeaderOLEDTPARA, "%s %n %").ends_with("%s %n %"));
    EXPECT_TRUE(CsvFileWith(StringId::CsvVersionLine, "%s %n").starts_with("%s %n"));
    EXPECT_NE(CsvFileWith(StringId::CsvColumnLine, "%s%n\n").find("%s%n\r\n"), std::string::npos);
    EXPECT_NE(CsvFileWith(StringId::CsvHeaderPW, "%d%n\n").find("%d%n\r\n"), std::string::npos);
    EXPECT_NE(ListFileWith(StringId::UndefinedValue, "%n").find("D : -5\r\n"), std::string::npos);
}

TEST_F(HostileFormatsTest, WidthsEnd) {
    const std::string text =
        ListFileWith(StringId::ListFileRecord, "%4294967295s%.4294967295u%-99999999999s\n");
    const std::string record = Between(text, " 9 Liste der PW\r\n", "11 Liste");
    EXPECT_EQ(record.size(), 3 * FormatConversion::kMaximumWidth + 2);
}

TEST_F(HostileFormatsTest, CommentsOfVectorElements) {
    const FormatCase cases[] = {
        {"", ""},
        {"%n", "%n"},
        {"%s of %s", "1 of "},
        {"%%", "%"},
        {"%99999lu", "                              "},
        {"%%%%", ""},
    };
    for (const auto& [format, comment] : cases) {
        test::ChangedStrings changed;
        changed.Change(StringId::VectorElementComment, format);
        const resources::StringTable table(changed);
        ParameterList vector(table);
        vector.BuildKinds();
        EXPECT_TRUE(vector.FillVector("PF1", std::array{1.0, 2.0}));
        EXPECT_EQ(vector.FindKind("PF")->Find(1)->Comment(), comment) << format;
    }
}

}  // namespace
}  // namespace orvell::paramlist
