#include "paramlist/csv_file_address.h"

#include <gtest/gtest.h>

#include <string>

namespace orvell::paramlist {
namespace {

TEST(SplitCsvAddress, CutsBeforeTheDigitsAtTheEnd) {
    const struct {
        std::string_view text, keyword, number;
    } cases[] = {
        {"PW12", "PW", "12"},
        {"E3.5", "E", "3.5"},
        {"E29", "E", "29"},
        {"PW", "PW", ""},
        {"PW.", "PW", "."},
        {"E3.", "E", "3."},
        {"E.5", "E", ".5"},
        {"INT64PARA7", "INT64PARA", "7"},
        {"INT64PARA", "INT64PARA", ""},
        {"12", "", "12"},
        {"1.2", "", "1.2"},
        {".", "", "."},
        {"", "", ""},
        {"E1.2.3", "E1.", "2.3"},
        {"E1..2", "E1.", ".2"},
        {"E1-2", "E1-", "2"},
        {"PW12a", "PW12a", ""},
        {"PW 12", "PW ", "12"},
        {"\xC4"
         "1",
         "\xC4", "1"},
        {"1a1", "1a", "1"},
    };
    for (const auto& [text, keyword, number] : cases) {
        const CsvAddress address = SplitCsvAddress(text);
        EXPECT_EQ(address.keyword, keyword) << text;
        EXPECT_EQ(address.number, number) << text;
    }
}

TEST(SplitCsvAddress, TakesBytesBesideTheDigitsForNone) {
    for (int byte = 1; byte < 256; ++byte) {
        const char character = static_cast<char>(byte);
        const std::string text = {'P', character, '7'};
        const bool isDigit = character >= '0' && character <= '9';
        const CsvAddress address = SplitCsvAddress(text);
        EXPECT_EQ(address.number, isDigit ? text.substr(1) : character == '.' ? ".7" : "7") << byte;
    }
}

TEST(ReadCsvNumber, ReadsPlainNumbersOfEveryKind) {
    const std::pair<std::string_view, std::uint32_t> cases[] = {
        {"", 0},      {"0", 0},
        {"007", 7},   {"12", 12},
        {"29", 29},   {"4294967295", 4294967295},
        {"800", 800}, {"1000000", 1000000},
    };
    for (const auto& [text, number] : cases) {
        EXPECT_EQ(ReadCsvNumber(text, false), number) << text;
        EXPECT_EQ(ReadCsvNumber(text, true), number) << "a bit's own number: " << text;
    }
}

TEST(ReadCsvNumber, ReadsBitsWithOneDigitBehindTheDot) {
    EXPECT_EQ(ReadCsvNumber("3.5", true), 29U);
    EXPECT_EQ(ReadCsvNumber("0.0", true), 0U);
    EXPECT_EQ(ReadCsvNumber("0.7", true), 7U);
    EXPECT_EQ(ReadCsvNumber(".5", true), 5U) << "nothing counts as byte 0";
    EXPECT_EQ(ReadCsvNumber("536870911.7", true), 4294967295U);
    for (const std::string_view text : {"3.", ".", "3.8", "3.9", "3.05", "3.55", "3.00"}) {
        EXPECT_EQ(ReadCsvNumber(text, true), std::nullopt) << text;
    }
}

TEST(ReadCsvNumber, RejectsADotInAllOtherNumbers) {
    for (const std::string_view text : {"3.5", "3.", ".5", ".", "12.0"}) {
        EXPECT_EQ(ReadCsvNumber(text, false), std::nullopt) << text;
    }
}

TEST(ReadCsvNumber, CountsModulo32Bits) {
    EXPECT_EQ(ReadCsvNumber("4294967296", false), 0U);
    EXPECT_EQ(ReadCsvNumber("4294967301", true), 5U);
    EXPECT_EQ(ReadCsvNumber("536870912.1", true), 1U) << "the byte's number times 8";
    EXPECT_EQ(ReadCsvNumber("18446744073709551617", false), 1U);
    EXPECT_EQ(ReadCsvNumber("1" + std::string(1000, '0'), false), 0U);
    EXPECT_EQ(ReadCsvNumber(std::string(1000, '0') + "7", false), 7U);
}

}  // namespace
}  // namespace orvell::paramlist
