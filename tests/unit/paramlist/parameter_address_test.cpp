#include "paramlist/parameter_address.h"

#include <gtest/gtest.h>

namespace orvell::paramlist {
namespace {

struct AddressCase {
    std::string_view text;
    std::string_view keyword;
    std::uint32_t number;
    bool hasDigits;
    bool isDotted;
};

TEST(ScanAddress, SplitsFromTheEnd) {
    const AddressCase cases[] = {
        {"PW12", "PW", 12, true, false},   {"PW", "PW", 0, false, false},
        {"E3", "E", 3, true, false},       {"E3.5", "E", 29, true, true},
        {"E0.07", "E", 7, true, true},     {"E07", "E", 7, true, false},
        {"E1.9", "E", 17, true, true},     {"E2.1", "E", 17, true, true},
        {"PW12.3", "PW", 99, true, true},  {"pw1", "pw", 1, true, false},
        {"P1W2", "P1W", 2, true, false},   {"INT64PARA64", "INT64PARA", 64, true, false},
        {"PW-1", "PW-", 1, true, false},   {"PW 1", "PW ", 1, true, false},
        {"PW1 ", "PW1 ", 0, false, false},
    };
    for (const AddressCase& expected : cases) {
        const AddressScan scan = ScanAddress(expected.text);
        EXPECT_EQ(scan.keyword, expected.keyword) << expected.text;
        EXPECT_EQ(scan.number, expected.number) << expected.text;
        EXPECT_EQ(scan.hasDigits, expected.hasDigits) << expected.text;
        EXPECT_EQ(scan.isDotted, expected.isDotted) << expected.text;
    }
}

TEST(ScanAddress, LeavesTheFirstCharacterToTheKeyword) {
    const AddressCase cases[] = {
        {"", "", 0, false, false},     {"1", "1", 0, false, false},
        {"12", "1", 2, true, false},   {"123", "1", 23, true, false},
        {".", ".", 0, false, false},   {".5", ".", 5, true, false},
        {"1.5", "1", 5, true, true},   {"12.3", "1", 19, true, true},
        {"E.", "E", 0, false, true},   {"E.5", "E", 5, true, true},
        {"E3.", "E", 24, false, true}, {"E3..", "E3.", 0, false, true},
        {"..1", ".", 1, true, true},
    };
    for (const AddressCase& expected : cases) {
        const AddressScan scan = ScanAddress(expected.text);
        EXPECT_EQ(scan.keyword, expected.keyword) << expected.text;
        EXPECT_EQ(scan.number, expected.number) << expected.text;
        EXPECT_EQ(scan.hasDigits, expected.hasDigits) << expected.text;
        EXPECT_EQ(scan.isDotted, expected.isDotted) << expected.text;
    }
}

TEST(ScanAddress, CountsModulo32Bits) {
    EXPECT_EQ(ScanAddress("PW4294967295").number, 4294967295U);
    EXPECT_EQ(ScanAddress("PW4294967296").number, 0U);
    EXPECT_EQ(ScanAddress("PW4294967303").number, 7U);
    EXPECT_EQ(ScanAddress("PW00000000000000000000000000000000000000012").number, 12U);
    EXPECT_EQ(ScanAddress("E536870912.3").number, 3U);
}

}  // namespace
}  // namespace orvell::paramlist
