#include "values/calendar.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>

namespace orvell::values {

bool operator==(const CalendarDate& left, const CalendarDate& right) {
    return left.year == right.year && left.month == right.month && left.day == right.day;
}

std::ostream& operator<<(std::ostream& out, const CalendarDate& date) {
    return out << date.year << '-' << date.month << '-' << date.day;
}

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days kUnixEpoch = sys_days{days{0}};
constexpr sys_days kOleEpoch = std::chrono::year{1899} / 12 / 30;

CalendarDate DateOf(sys_days day) {
    const year_month_day date = day;
    return {static_cast<std::uint32_t>(static_cast<int>(date.year())),
            static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day())};
}

/// The days from 1 January of `firstYear` to the date, counted one month after the other.
std::uint64_t CountedDays(std::uint32_t firstYear, const CalendarDate& date) {
    constexpr std::uint32_t kLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const auto isLeap = [](std::uint32_t year) {
        return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    };
    std::uint64_t counted = 0;
    for (std::uint32_t year = firstYear; year < date.year; ++year) {
        counted += isLeap(year) ? 366 : 365;
    }
    std::uint32_t year = date.year;
    std::uint32_t month = 1;
    for (std::uint32_t step = 1; step < date.month; ++step) {
        counted += kLengths[month - 1] + (month == 2 && isLeap(year) ? 1 : 0);
        year += month == 12 ? 1 : 0;
        month = month % 12 + 1;
    }
    return counted + (date.day > 0 ? date.day - 1 : 0);
}

TEST(Calendar, AgreesWithTheStandardLibraryOnEveryDayOfTheSeconds) {
    for (std::uint32_t day = 0; day <= 0xFFFFFFFF / 86400; ++day) {
        const CalendarDate date = DateOf(kUnixEpoch + days{day});
        ASSERT_EQ(DateOfSeconds(day * 86400), date) << day;
        ASSERT_EQ(SecondsOfDate(date), day * 86400) << date;
    }
}

TEST(Calendar, DaysEndWithTheirLastSecond) {
    EXPECT_EQ(DateOfSeconds(86399), (CalendarDate{1970, 1, 1}));
    EXPECT_EQ(DateOfSeconds(86400), (CalendarDate{1970, 1, 2}));
    EXPECT_EQ(DateOfSeconds(0xFFFFFFFF), (CalendarDate{2106, 2, 7}));
}

TEST(Calendar, AgreesWithTheStandardLibraryOnEveryDayOfTheSerials) {
    for (std::int32_t serial = kFirstSerialDay; serial <= kLastSerialDay; ++serial) {
        const CalendarDate date = DateOf(kOleEpoch + days{serial});
        if (!(DateOfSerial(serial) == date) || SerialOfDate(date) != serial) {
            FAIL() << "serial " << serial << ": " << DateOfSerial(serial) << ", not " << date;
        }
    }
    EXPECT_EQ(DateOfSerial(kFirstSerialDay), (CalendarDate{100, 1, 1}));
    EXPECT_EQ(DateOfSerial(kLastSerialDay), (CalendarDate{9999, 12, 31}));
}

TEST(Calendar, CountsOnWhereNarrowNumbersEnd) {
    // 2^32 / 400 days after the year 0, and far behind.
    for (const std::int32_t first : {10'043'000, 2'000'000'000}) {
        for (std::int32_t serial = first; serial < first + 1000; ++serial) {
            const CalendarDate date = DateOfSerial(serial);
            ASSERT_EQ(SerialOfDate(date), serial);
            ASSERT_LE(date.day, 31U) << date;
        }
    }
}

TEST(Calendar, KnowsTheBaseYearsOfTheSerials) {
    EXPECT_EQ(SerialOfDate({1899, 12, 30}), 0.0);
    EXPECT_EQ(SerialOfDate({1899, 12, 29}), -1.0);
    EXPECT_EQ(SerialOfDate({1900, 1, 1}), 2.0);
    EXPECT_EQ(SerialOfDate({1900, 3, 1}), 61.0);  // 1900 was no leap year
    EXPECT_EQ(SerialOfDate({1950, 1, 1}), 18264.0);
    EXPECT_EQ(SerialOfDate({2000, 1, 1}), 36526.0);
    EXPECT_EQ(SerialOfDate({0, 1, 1}), -693959.0);
}

TEST(Calendar, DatesThatDoNotExistRunOn) {
    EXPECT_EQ(DateOfSeconds(SecondsOfDate({2021, 2, 31})), (CalendarDate{2021, 3, 3}));
    EXPECT_EQ(DateOfSeconds(SecondsOfDate({2021, 2, 29})), (CalendarDate{2021, 3, 1}));
    EXPECT_EQ(DateOfSeconds(SecondsOfDate({2020, 24, 12})), (CalendarDate{2021, 12, 12}));
    EXPECT_EQ(DateOfSeconds(SecondsOfDate({2019, 14, 30})), (CalendarDate{2020, 3, 1}));
    EXPECT_EQ(SerialOfDate({2021, 2, 31}), SerialOfDate({2021, 3, 3}));
}

TEST(Calendar, AgreesWithCountingOneMonthAfterTheOther) {
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        const CalendarDate date = {random() % 2500, random() % 200, random() % 4000};
        const std::uint64_t sinceYear0 = CountedDays(0, date);
        ASSERT_EQ(SerialOfDate(date), static_cast<double>(sinceYear0) - 693959.0) << date;
        const std::uint64_t sinceEpoch = date.year < 1970 ? 0 : CountedDays(1970, date);
        ASSERT_EQ(SecondsOfDate(date), static_cast<std::uint32_t>(sinceEpoch * 86400)) << date;
    }
}

TEST(Calendar, MonthAndDayZeroCountAsOne) {
    EXPECT_EQ(SecondsOfDate({2000, 0, 0}), SecondsOfDate({2000, 1, 1}));
    EXPECT_EQ(SecondsOfDate({2000, 3, 0}), SecondsOfDate({2000, 3, 1}));
    EXPECT_EQ(SerialOfDate({2000, 0, 5}), SerialOfDate({2000, 1, 5}));
}

TEST(Calendar, SecondsBefore1970AreZero) {
    EXPECT_EQ(SecondsOfDate({1969, 12, 31}), 0U);
    EXPECT_EQ(SecondsOfDate({1969, 13, 2}), 0U);
    EXPECT_EQ(SecondsOfDate({0, 0, 0}), 0U);
    EXPECT_EQ(SecondsOfDate({1970, 1, 1}), 0U);
}

// Counting these one year or month after the other would take minutes.
TEST(Calendar, LargestNumbersWrapAtOnce) {
    constexpr std::uint32_t kMax = 0xFFFFFFFF;
    EXPECT_EQ(SecondsOfDate({kMax, kMax, kMax}), 2220248832U);
    EXPECT_EQ(SecondsOfDate({4000000000, 1, 1}), 1328104448U);
    EXPECT_EQ(SecondsOfDate({2000, kMax, 1}), 941289984U);
    EXPECT_EQ(SecondsOfDate({1970, 1, kMax}), 4294794496U);
    EXPECT_EQ(SecondsOfDate({2106, 2, 7}), 4294944000U);
    EXPECT_EQ(SecondsOfDate({2106, 2, 8}), 63104U);
    EXPECT_EQ(SerialOfDate({kMax, kMax, kMax}), 1703724248235.0);
    EXPECT_EQ(SerialOfDate({4000000000, 1, 1}), 1460969306041.0);
}

}  // namespace
}  // namespace orvell::values
