#include "host/import_report.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "platform/system_color.h"
#include "resources/built_in_strings.h"

namespace orvell::host {
namespace {

using resources::StringId;
using resources::StringTable;

struct Line {
    std::int32_t page;
    std::string text;
    std::uint32_t color;
    std::int32_t emphasis;

    bool operator==(const Line&) const = default;
};

std::vector<std::string> lookedUp;
std::vector<Line> lines;

std::int32_t ORVELL_CALL RecordLookup(const char* name) {
    lookedUp.emplace_back(name);
    return 3;
}

std::int32_t ORVELL_CALL RecordLine(std::int32_t page, const char* line, std::uint32_t color,
                                    std::int32_t emphasis) {
    lines.push_back({page, line, color, emphasis});
    return 42;
}

/// A language library with few texts.
class SomeStrings final : public platform::StringSource {
  public:
    std::string Load(std::uint32_t number) const override {
        const auto found = texts.find(number);
        return found == texts.end() ? std::string() : found->second;
    }

    std::map<std::uint32_t, std::string> texts;
};

class ImportReportTest : public testing::Test {
  protected:
    ImportReportTest() {
        lookedUp.clear();
        lines.clear();
        const HostExportTable table{sizeof(HostExportTable), RecordLookup, RecordLine, nullptr,
                                    nullptr};
        callbacks.Install(&table);
    }

    HostCallbacks callbacks;
    resources::BuiltInStrings builtIn;
    StringTable strings{builtIn};
    ImportReport report{callbacks, strings};
    const std::uint32_t textColor = platform::WindowTextColor();
};

TEST_F(ImportReportTest, FindsThePageByItsName) {
    EXPECT_EQ(report.FindPage(), 3);
    EXPECT_EQ(lookedUp, std::vector<std::string>{"Import"});
    EXPECT_TRUE(lines.empty());
}

TEST_F(ImportReportTest, StartNamesTheFile) {
    EXPECT_EQ(report.Start("C:\\LIST.CSV"), 42);
    EXPECT_EQ(lines, (std::vector<Line>{{3, "Importiere C:\\LIST.CSV ...", textColor, 0}}));
}

TEST_F(ImportReportTest, StartWithoutANameIsAnEmptyLine) {
    EXPECT_EQ(report.Start(nullptr), 42);
    EXPECT_EQ(lines, (std::vector<Line>{{3, "", textColor, 0}}));
}

TEST_F(ImportReportTest, WarningsAreRedAndEmphasised) {
    EXPECT_EQ(report.Warning(StringId::WarningUnknownKind, 4000000000U, "XY"), 42);
    EXPECT_EQ(lines, (std::vector<Line>{{3,
                                         "Zeile 4000000000:   Warnung !   "
                                         "Unbekannter Datentyp XY !",
                                         0x0000FF, 1}}));
}

TEST_F(ImportReportTest, WithoutAnArgumentTheMessageIsNoFormat) {
    report.Warning(StringId::WarningUnknownKind, 7, std::nullopt);
    EXPECT_EQ(lines[0].text, "Zeile 7:   Warnung !   Unbekannter Datentyp %s !");
}

TEST_F(ImportReportTest, LongArgumentsAreKeptWhole) {
    const std::string longField(100000, 'x');
    report.Warning(StringId::WarningInvalidAddress, 1, longField);
    EXPECT_EQ(lines[0].text.size(), longField.size() + std::string("Zeile 1:   Warnung !   "
                                                                   "Ung.ltiger Parameter  !")
                                                           .size());
}

TEST_F(ImportReportTest, EndCountsTheWarnings) {
    report.End(0);
    report.End(-1);
    report.End(1);
    report.End(12);
    EXPECT_EQ(lines, (std::vector<Line>{{3, "Keine Warnungen", textColor, 0},
                                        {3, "Keine Warnungen", textColor, 0},
                                        {3, "1 Warnungen", textColor, 0},
                                        {3, "12 Warnungen", textColor, 0}}));
}

TEST_F(ImportReportTest, EveryLineLooksThePageUpAnew) {
    report.Start("a");
    report.Warning(StringId::WarningLineFormat, 1, std::nullopt);
    report.End(1);
    EXPECT_EQ(lookedUp.size(), 3U);
}

TEST_F(ImportReportTest, WithoutAStartTextNothingIsAppended) {
    SomeStrings few;
    few.texts[140] = "Import";
    strings.UseSource(few);
    EXPECT_EQ(report.Start("a"), 0);
    EXPECT_EQ(report.Start(nullptr), 0);
    EXPECT_TRUE(lines.empty());
    EXPECT_EQ(report.End(0), 42) << "a missing closing text is an empty line";
    EXPECT_EQ(lines, (std::vector<Line>{{3, "", textColor, 0}}));
}

TEST_F(ImportReportTest, MissingCallbacksAreNotCalled) {
    callbacks.Install(nullptr);
    EXPECT_EQ(report.FindPage(), 0);
    EXPECT_EQ(report.Start("a"), 0);
    EXPECT_EQ(report.Warning(StringId::WarningLineFormat, 1, std::nullopt), 0);
    EXPECT_EQ(report.End(0), 0);

    const HostExportTable lookupOnly{8, RecordLookup, RecordLine, nullptr, nullptr};
    callbacks.Install(&lookupOnly);
    EXPECT_EQ(report.Start("a"), 0);
    EXPECT_EQ(lookedUp.size(), 1U) << "the page is looked up although nothing can be appended";
    EXPECT_TRUE(lines.empty());
}

TEST_F(ImportReportTest, AHostileTranslationIsPrintedAsFarAsItGoes) {
    SomeStrings hostile;
    hostile.texts = {{140, "Import"}, {141, "%d %n %s"}, {142, "%s%s%s: "}, {144, "%s warnings"}};
    strings.UseSource(hostile);
    report.Start("file");
    report.Warning(StringId::WarningLineFormat, 5, std::nullopt);
    report.End(2);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1].text, "5: ");
    EXPECT_EQ(lines[2].text, "2 warnings");
}

}  // namespace
}  // namespace orvell::host
