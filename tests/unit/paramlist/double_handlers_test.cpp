#include <cmath>
#include <limits>

#include "unit/paramlist/handler_test.h"

namespace orvell::paramlist {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct FloatHandlerTest : HandlerTest {
    FloatHandlerTest() : HandlerTest(ValueTypeCode::Float) {}
};
struct OleDateTimeHandlerTest : HandlerTest {
    OleDateTimeHandlerTest() : HandlerTest(ValueTypeCode::OleDateTime) {}
};

constexpr ValueTypeCode kDoubleTypes[] = {ValueTypeCode::Float, ValueTypeCode::OleDateTime};

struct DoubleHandlerTest : HandlerTest, testing::WithParamInterface<ValueTypeCode> {
    DoubleHandlerTest() : HandlerTest(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(Types, DoubleHandlerTest, testing::ValuesIn(kDoubleTypes));

TEST_P(DoubleHandlerTest, ReadsAndPrintsNumbersWithADecimalPoint) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"1.5", "1.5"}, {" -2e3x", "-2000"},
        {"1,5", "1"},   {"1e20", "1e+20"},
        {"0.1", "0.1"}, {"1e400", "inf"},
        {"abc", "0"},   {"", "0"},
        {"0x10", "0"},  {"0.1234567890123456", "0.123456789012346"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(FromList(text), expected) << text;
        EXPECT_EQ(FromText(text), expected) << text;
        EXPECT_EQ(Text(), expected) << text;
    }
    EXPECT_EQ(FromText(std::nullopt), "0");
    EXPECT_EQ(FromList("undef"), "undef");
    EXPECT_EQ(Text(), "none");
}

TEST_P(DoubleHandlerTest, ReadsBackFromTheListFileWhatIsNoNumber) {
    EXPECT_EQ(FromList("inf"), "inf");
    ExpectStored(kInfinity);
    EXPECT_EQ(FromList("-inf"), "-inf");
    ExpectStored(-kInfinity);
    EXPECT_EQ(FromList("nan"), "nan");
    EXPECT_TRUE(std::isnan(value_.Load<double>().value()));
    EXPECT_EQ(FromList("info"), "0");
    EXPECT_EQ(FromList("INF"), "0");
    EXPECT_EQ(FromText("inf"), "0");
}

TEST_P(DoubleHandlerTest, ExchangesDoubles) {
    EXPECT_TRUE(handler_.SetFromDouble(value_, -1.0 / 3));
    double number = 7.0;
    EXPECT_TRUE(handler_.GetDouble(value_, number));
    EXPECT_EQ(number, -1.0 / 3);
}

TEST_F(FloatHandlerTest, WritesADecimalCommaIntoCsvFiles) {
    const std::pair<double, std::string_view> cases[] = {
        {1.5, "1,5;"},          {0.1, "0,1;"},
        {1e20, "1e+20;"},       {-2.0, "-2;"},
        {1.25e-9, "1,25e-09;"}, {kInfinity, "inf;"},
        {-kInfinity, "-inf;"},  {1.0 / 3, "0,3333333333333333;"},
    };
    for (const auto& [number, field] : cases) {
        EXPECT_TRUE(handler_.SetFromDouble(value_, number));
        EXPECT_EQ(CsvField(), field);
        std::string text(field.substr(0, field.size() - 1));
        ParameterValue readBack;
        EXPECT_TRUE(handler_.SetFromCsvText(readBack, text, texts_));
        EXPECT_EQ(readBack.Load<double>(), number == 1.0 / 3 ? 0.3333333333333333 : number);
    }
    value_.Clear();
    EXPECT_EQ(CsvField(), ";");
}

TEST_F(FloatHandlerTest, LeavesOtherPointsAlone) {
    EXPECT_TRUE(handler_.SetFromDouble(value_, 1.5));
    std::string out = "PF1.2;";
    handler_.FormatCsvField(value_, texts_, out);
    EXPECT_EQ(out, "PF1.2;1,5;");
}

TEST_F(FloatHandlerTest, TakesWholeNumbersFromCsvFiles) {
    EXPECT_EQ(FromCsv("1,5"), "1.5");
    EXPECT_EQ(FromCsv(" 1.5\t"), "1.5");
    EXPECT_EQ(FromCsv("-1,5e-3"), "-0.0015");
    EXPECT_EQ(FromCsv("7"), "7");
    EXPECT_EQ(FromCsv(" -inf "), "-inf");
    EXPECT_EQ(FromCsv("nan"), "nan");
    EXPECT_EQ(FromCsv(" "), "undef");
    for (const std::string_view text :
         {"abc", "1,5x", "1,5,5", "1.5.5", "1e999", "-1e999", "0x10", "1 5", "undef", "infinity"}) {
        EXPECT_EQ(FromCsv(text), "rejected") << text;
    }
}

TEST_F(OleDateTimeHandlerTest, WritesTwoQuotedColumnsIntoCsvFiles) {
    const std::pair<double, std::string_view> cases[] = {
        {36526.75, "\"01.01.2000\";\"18:00:00;000\""},
        {0.5, "\"\";\"12:00:00;000\""},
        {0.0, "\"\";\"00:00:00;000\""},
        {-1.25, "\"29.12.1899\";\"06:00:00;000\""},
        {std::nan(""), "\"\";\"00:00:00;000\""},
    };
    for (const auto& [serial, field] : cases) {
        EXPECT_TRUE(handler_.SetFromDouble(value_, serial));
        EXPECT_EQ(CsvField(), field);
    }
    value_.Clear();
    EXPECT_EQ(CsvField(), "\"\";\"\"");
    texts_.csvDateFormat = values::DateFormatCode::MonthFirst;
    EXPECT_TRUE(handler_.SetFromDouble(value_, 36527.0));
    EXPECT_EQ(CsvField(), "\"01/02/2000\";\"00:00:00;000\"");
}

TEST_F(OleDateTimeHandlerTest, LeavesOtherCommasAndBlanksAlone) {
    EXPECT_TRUE(handler_.SetFromDouble(value_, 0.5));
    std::string out = "a, b;";
    handler_.FormatCsvField(value_, texts_, out);
    EXPECT_EQ(out, "a, b;\"\";\"12:00:00;000\"");
}

TEST_F(OleDateTimeHandlerTest, TakesEveryCsvText) {
    EXPECT_EQ(FromCsv("01.01.2000 18:00:00;000"), "36526.75");
    EXPECT_EQ(FromCsv(" 12:00:00;000"), "0.5");
    EXPECT_EQ(FromCsv("01.01.2000"), "36526");
    EXPECT_EQ(FromCsv("junk"), "0");
    EXPECT_EQ(FromCsv("01.01.2000 junk"), "36526");
    EXPECT_EQ(FromCsv(" "), "undef");
    EXPECT_EQ(FromCsv("02.01.2000"), "36527");
    texts_.csvDateFormat = values::DateFormatCode::MonthFirst;
    EXPECT_EQ(FromCsv("01/02/2000"), "36527");
}

}  // namespace
}  // namespace orvell::paramlist
