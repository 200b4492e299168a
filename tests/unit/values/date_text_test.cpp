#include "values/date_text.h"

#include <gtest/gtest.h>

#include <string>

#include "unit/values/transition_table_test.h"

namespace orvell::values {
namespace {

constexpr DateFormatCode kDayFirst = DateFormatCode::DayFirst;
constexpr DateFormatCode kMonthFirst = DateFormatCode::MonthFirst;

/// Year-month-day and the position behind the date.
std::string Date(std::string_view text, DateFormatCode format = kDayFirst) {
    const std::optional<DateReading> reading = ReadDate(text, format);
    if (!reading) {
        return "rejected";
    }
    return std::to_string(reading->date.year) + "-" + std::to_string(reading->date.month) + "-" +
           std::to_string(reading->date.day) + " @" + std::to_string(reading->end);
}

void CheckDateTable(char separator, char otherSeparator) {
    const std::string sep(1, separator);
    const std::string other = std::string(1, otherSeparator) + ":,;";
    CheckTransitions(
        {{"blank", " \t"},
         {"digit", "0123456789"},
         {"separator", sep},
         {"other", other},
         {"other", kOtherCharacters}},
        {{0, "before the first number", "", {0, 1, -1, -1, -1}},
         {0, "before the first number, blanks", "\t ", {0, 1, -1, -1, -1}},
         {1, "in the first number", "4", {2, 1, 3, -1, -1}},
         {2, "behind the first number", "4 ", {2, -1, 3, -1, -1}},
         {3, "before the second number", "4" + sep, {3, 4, -1, -1, -1}},
         {3, "before the second number, blanks", "4 " + sep + " ", {3, 4, -1, -1, -1}},
         {4, "in the second number", "4" + sep + "5", {5, 4, 6, -1, -1}},
         {5, "behind the second number", "4" + sep + "5 ", {5, -1, 6, -1, -1}},
         {6, "before the third number", "4" + sep + "5" + sep, {6, 7, -1, -1, -1}},
         {6, "before the third number, blanks", "4" + sep + "5 " + sep + "\t", {6, 7, -1, -1, -1}},
         {7, "in the third number", "4" + sep + "5" + sep + "6", {8, 7, 8, 8, 8}}},
        8, [separator](const std::string& text) { return ScanDate(text, separator); });
}

TEST(DateTable, EveryTransitionWithPoints) {
    CheckDateTable('.', '/');
}

TEST(DateTable, EveryTransitionWithSlashes) {
    CheckDateTable('/', '.');
}

TEST(ReadDate, IsAcceptedFromTheThirdNumberOn) {
    EXPECT_EQ(Date(""), "rejected");                 // state 0
    EXPECT_EQ(Date("4"), "rejected");                // state 1
    EXPECT_EQ(Date("4 "), "rejected");               // state 2
    EXPECT_EQ(Date("4."), "rejected");               // state 3
    EXPECT_EQ(Date("4.5"), "rejected");              // state 4
    EXPECT_EQ(Date("4.5 "), "rejected");             // state 5
    EXPECT_EQ(Date("4.5."), "rejected");             // state 6
    EXPECT_EQ(Date("4.5.2006"), "2006-5-4 @8");      // state 7
    EXPECT_EQ(Date("4.5.2006 7:8"), "2006-5-4 @8");  // state 8
    EXPECT_EQ(Date("4.5.2006."), "2006-5-4 @8");     // state 8
    EXPECT_EQ(Date("4.5.2006x"), "2006-5-4 @8");     // state 8
    EXPECT_EQ(Date(" 04 . 05 .\t2006"), "2006-5-4 @15");
    EXPECT_EQ(Date("4-5-2006"), "rejected");
}

TEST(ReadDate, TriesTheOrderOfTheFormatFirstAndThenTheOther) {
    EXPECT_EQ(Date("4.5.2006", kDayFirst), "2006-5-4 @8");
    EXPECT_EQ(Date("4.5.2006", kMonthFirst), "2006-5-4 @8");
    EXPECT_EQ(Date("4/5/2006", kDayFirst), "2006-4-5 @8");
    EXPECT_EQ(Date("4/5/2006", kMonthFirst), "2006-4-5 @8");
    EXPECT_EQ(Date("12.24.2020", kMonthFirst), "2020-24-12 @10");
    EXPECT_EQ(Date("4.5/2006", kDayFirst), "rejected");
    EXPECT_EQ(Date("4/5.2006", kMonthFirst), "rejected");
    EXPECT_EQ(Date("4.5.2006", DateFormatCode::None), "2006-5-4 @8");
    EXPECT_EQ(Date("4.5.2006", static_cast<DateFormatCode>(752)), "2006-5-4 @8");
}

TEST(ReadDate, TakesNumbersOfAnySizeModuloTwoToThe32) {
    EXPECT_EQ(Date("0.0.0"), "0-0-0 @5");
    EXPECT_EQ(Date("1.2.99"), "99-2-1 @6");
    EXPECT_EQ(Date("4294967297.4294967298.4294969296"), "2000-2-1 @32");
}

TEST(AppendDate, PrintsTheOrderOfTheFormat) {
    const auto printed = [](const CalendarDate& date, DateFormatCode format) {
        std::string text;
        AppendDate(text, date, format);
        return text;
    };
    EXPECT_EQ(printed({2006, 5, 4}, kDayFirst), "04.05.2006");
    EXPECT_EQ(printed({2006, 5, 4}, kMonthFirst), "05/04/2006");
    EXPECT_EQ(printed({2006, 5, 4}, DateFormatCode::None), "04.05.2006");
    EXPECT_EQ(printed({2006, 5, 4}, static_cast<DateFormatCode>(752)), "04.05.2006");
    EXPECT_EQ(printed({100, 12, 31}, kDayFirst), "31.12.0100");
}

}  // namespace
}  // namespace orvell::values
