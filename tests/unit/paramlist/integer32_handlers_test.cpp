#include "unit/paramlist/handler_test.h"

namespace orvell::paramlist {
namespace {

using values::DateFormatCode;

struct LongHandlerTest : HandlerTest {
    LongHandlerTest() : HandlerTest(ValueTypeCode::Long) {}
};
struct TimeHandlerTest : HandlerTest {
    TimeHandlerTest() : HandlerTest(ValueTypeCode::Time) {}
};
struct DateHandlerTest : HandlerTest {
    DateHandlerTest() : HandlerTest(ValueTypeCode::Date) {}
};
struct TimeOfDayHandlerTest : HandlerTest {
    TimeOfDayHandlerTest() : HandlerTest(ValueTypeCode::TimeOfDay) {}
};
struct DateAndTimeHandlerTest : HandlerTest {
    DateAndTimeHandlerTest() : HandlerTest(ValueTypeCode::DateAndTime) {}
};

constexpr ValueTypeCode kInteger32Types[] = {ValueTypeCode::Long, ValueTypeCode::Time,
                                             ValueTypeCode::Date, ValueTypeCode::TimeOfDay,
                                             ValueTypeCode::DateAndTime};

struct Integer32HandlerTest : HandlerTest, testing::WithParamInterface<ValueTypeCode> {
    Integer32HandlerTest() : HandlerTest(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(Types, Integer32HandlerTest, testing::ValuesIn(kInteger32Types));

TEST_P(Integer32HandlerTest, ReadsAndPrintsPlainIntegers) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"0", "0"},
        {"2147483647", "2147483647"},
        {"2147483648", "-2147483648"},
        {"-2147483648", "-2147483648"},
        {"4294967295", "-1"},
        {"4294967296", "0"},
        {"24.12.2020", "24"},
        {"1e3", "1"},
        {"abc", "0"},
        {"", "0"},
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

TEST_P(Integer32HandlerTest, ExchangesDwordsAndDoubles) {
    const bool isSigned = GetParam() == ValueTypeCode::Long;
    EXPECT_TRUE(handler_.SetFromDword(value_, 0xFFFFFFFE));
    std::uint32_t dword = 7;
    EXPECT_TRUE(handler_.GetDword(value_, dword));
    EXPECT_EQ(dword, 0xFFFFFFFE);
    double number = 7.0;
    EXPECT_TRUE(handler_.GetDouble(value_, number));
    EXPECT_EQ(number, isSigned ? -2.0 : 4294967294.0);

    EXPECT_TRUE(handler_.SetFromDouble(value_, -1.9));
    ExpectStored<std::int32_t>(-1);
    EXPECT_TRUE(handler_.SetFromDouble(value_, 4294967295.9));
    ExpectStored<std::int32_t>(-1);
    EXPECT_TRUE(handler_.SetFromDouble(value_, 1e300));
    ExpectStored<std::int32_t>(0);
}

TEST_F(LongHandlerTest, TakesCsvIntegersWithinItsLimits) {
    EXPECT_EQ(FromCsv("2147483647"), "2147483647");
    EXPECT_EQ(FromCsv("-2147483648"), "-2147483648");
    EXPECT_EQ(CsvField(), "-2147483648;");
    EXPECT_EQ(FromCsv("1,96"), "2");
    EXPECT_EQ(FromCsv("\t"), "undef");
    EXPECT_EQ(CsvField(), ";");
    for (const std::string_view text : {"2147483648", "-2147483649", "4294967295", "1.5", "a"}) {
        EXPECT_EQ(FromCsv(text), "rejected") << text;
    }
}

TEST_F(TimeHandlerTest, TakesCsvIntegersWithinItsLimits) {
    EXPECT_EQ(FromCsv("0"), "0");
    EXPECT_EQ(FromCsv("4294967295"), "-1");
    EXPECT_EQ(CsvField(), "4294967295;");
    EXPECT_EQ(FromCsv("1e9"), "1000000000");
    EXPECT_EQ(FromCsv(""), "undef");
    EXPECT_EQ(CsvField(), ";");
    for (const std::string_view text : {"-1", "4294967296", "1 h", "10:00", "1.5"}) {
        EXPECT_EQ(FromCsv(text), "rejected") << text;
    }
}

TEST_F(DateHandlerTest, TakesWholeDatesFromCsvFiles) {
    EXPECT_EQ(FromCsv("24.12.2020"), "1608768000");
    EXPECT_EQ(CsvField(), "24.12.2020;");
    EXPECT_EQ(FromCsv(" 24 . 12 . 2020\t"), "1608768000");
    EXPECT_EQ(FromCsv("12/24/2020"), "1608768000");
    EXPECT_EQ(FromCsv("31.02.2021"), "1614729600");
    EXPECT_EQ(FromCsv("01.01.1969"), "0");
    EXPECT_EQ(FromCsv(" "), "undef");
    EXPECT_EQ(CsvField(), ";");
    for (const std::string_view text : {"24.12.", "24.12", "24.12.2020x", "24.12.2020 10:00",
                                        "24.12.2020 x", "x24.12.2020", "1608768000", "undef"}) {
        EXPECT_EQ(FromCsv(text), "rejected") << text;
    }
    texts_.csvDateFormat = DateFormatCode::MonthFirst;
    EXPECT_EQ(FromCsv("12/24/2020"), "1608768000");
    EXPECT_EQ(CsvField(), "12/24/2020;");
}

TEST_F(TimeOfDayHandlerTest, TakesWholeClocksFromCsvFiles) {
    EXPECT_EQ(FromCsv("06:30:00"), "23400");
    EXPECT_EQ(CsvField(), "06:30:00;");
    EXPECT_EQ(FromCsv(" 7 : 5 "), "25500");
    EXPECT_EQ(CsvField(), "07:05:00;");
    EXPECT_EQ(FromCsv("25:61:61"), "7321");
    EXPECT_EQ(FromCsv(""), "undef");
    EXPECT_EQ(CsvField(), ";");
    for (const std::string_view text :
         {"7", "7:", "7:5:", "7:5:3x", "7:5x", "7:5:3 x", "7:5:3:2", "7:5:3,5", "x7:5", "7.5"}) {
        EXPECT_EQ(FromCsv(text), "rejected") << text;
    }
    EXPECT_TRUE(handler_.SetFromDword(value_, 90061));
    EXPECT_EQ(CsvField(), "01:01:01;");
}

TEST_F(DateAndTimeHandlerTest, TakesWholeDatesWithClocksFromCsvFiles) {
    EXPECT_EQ(FromCsv("24.12.2020 10:00:05"), "1608804005");
    EXPECT_EQ(CsvField(), "24.12.2020;10:00:05");
    EXPECT_EQ(FromCsv("24.12.2020"), "1608768000");
    EXPECT_EQ(FromCsv("24.12.2020 \t10:00 "), "1608804000");
    EXPECT_EQ(FromCsv("24.12.2020 25:00"), "1608858000");
    EXPECT_EQ(FromCsv("12:00"), "43200");
    EXPECT_EQ(FromCsv(" 10:00:05"), "36005");
    EXPECT_EQ(FromCsv("\t "), "undef");
    EXPECT_EQ(CsvField(), ";");
    for (const std::string_view text :
         {"24.12.2020 x", "24.12.2020 10", "24.12.2020 10:00:05x", "24.12.2020x10:00", "10", "x",
          "24.12. 10:00", "24.12.2020 10:00:05 1", "24.12.2020;10:00:05"}) {
        EXPECT_EQ(FromCsv(text), "rejected") << text;
    }
    texts_.csvDateFormat = DateFormatCode::MonthFirst;
    EXPECT_EQ(FromCsv("12/24/2020 10:00:05"), "1608804005");
    EXPECT_EQ(CsvField(), "12/24/2020;10:00:05");
}

}  // namespace
}  // namespace orvell::paramlist
