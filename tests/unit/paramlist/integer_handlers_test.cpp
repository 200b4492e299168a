#include "unit/paramlist/handler_test.h"

namespace orvell::paramlist {
namespace {

struct BitHandlerTest : HandlerTest {
    BitHandlerTest() : HandlerTest(ValueTypeCode::Bit) {}
};
struct ByteHandlerTest : HandlerTest {
    ByteHandlerTest() : HandlerTest(ValueTypeCode::Byte) {}
};
struct WordHandlerTest : HandlerTest {
    WordHandlerTest() : HandlerTest(ValueTypeCode::Word) {}
};
struct Integer64HandlerTest : HandlerTest {
    Integer64HandlerTest() : HandlerTest(ValueTypeCode::Integer64) {}
};

TEST_F(BitHandlerTest, IsOneForEveryNumberButZero) {
    EXPECT_TRUE(handler_.IsBitAddressed());
    for (const std::string_view text : {"1", "2", "-1", "256", "65536", "4294967296", " +7x"}) {
        EXPECT_EQ(FromList(text), "1") << text;
        EXPECT_EQ(FromText(text), "1") << text;
        ExpectStored<std::uint8_t>(1);
    }
    for (const std::string_view text : {"0", "-0", "", "abc", "0,9", "0.9"}) {
        EXPECT_EQ(FromList(text), "0") << text;
        EXPECT_EQ(FromText(text), "0") << text;
        ExpectStored<std::uint8_t>(0);
    }
    EXPECT_EQ(FromText(std::nullopt), "0");
    EXPECT_EQ(FromList("undef"), "undef");
    EXPECT_FALSE(value_.IsDefined());
    EXPECT_EQ(FromList("UNDEF"), "0");
}

TEST_F(BitHandlerTest, TakesEveryIntegerOfACsvFile) {
    for (const std::string_view text : {"1", " -1\t", "99999999999999999999", "1e300", "0,96"}) {
        EXPECT_EQ(FromCsv(text), "1") << text;
    }
    for (const std::string_view text : {"0", "-0", "0,94", "0e5"}) {
        EXPECT_EQ(FromCsv(text), "0") << text;
    }
    for (const std::string_view text : {"x", "1x", "0.5", "undef", "true", "1 1"}) {
        EXPECT_EQ(FromCsv(text), "rejected") << text;
    }
    for (const std::string_view text : {"", " ", "\t "}) {
        EXPECT_EQ(FromCsv(text), "undef") << text;
    }
}

TEST_F(BitHandlerTest, TakesWordsAndDoubles) {
    for (const auto& [word, bit] : {std::pair{0, 0}, {1, 1}, {256, 1}, {65535, 1}}) {
        EXPECT_TRUE(handler_.SetFromWord(value_, static_cast<std::uint16_t>(word)));
        ExpectStored(static_cast<std::uint8_t>(bit));
    }
    for (const auto& [number, bit] :
         {std::pair{0.0, 0}, {-0.0, 0}, {0.1, 1}, {-1e300, 1}, {256.0, 1}}) {
        EXPECT_TRUE(handler_.SetFromDouble(value_, number));
        ExpectStored(static_cast<std::uint8_t>(bit));
    }
    std::uint16_t word = 7;
    EXPECT_TRUE(handler_.GetWord(value_, word));
    EXPECT_EQ(word, 1);
    EXPECT_EQ(Text(), "1");
    EXPECT_EQ(CsvField(), "1;");
}

TEST_F(ByteHandlerTest, KeepsTheLowByteOfListTexts) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"0", "0"},   {"255", "255"}, {"256", "0"},       {"-1", "255"}, {"300x", "44"},
        {"abc", "0"}, {"", "0"},      {"undef", "undef"}, {" 7", "7"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(FromList(text), expected) << text;
        EXPECT_EQ(FromText(text), expected == "undef" ? "0" : expected) << text;
    }
    EXPECT_EQ(FromText(std::nullopt), "0");
}

TEST_F(ByteHandlerTest, RejectsCsvNumbersBeyondItsLimits) {
    EXPECT_EQ(FromCsv("0"), "0");
    EXPECT_EQ(FromCsv("255"), "255");
    EXPECT_EQ(FromCsv("254,96"), "255");
    EXPECT_EQ(FromCsv(" "), "undef");
    for (const std::string_view text : {"-1", "256", "255,96", "1e3", "1.0", "4294967296", "x"}) {
        EXPECT_EQ(FromCsv(text), "rejected") << text;
    }
}

TEST_F(ByteHandlerTest, ExchangesWordsAndDoubles) {
    EXPECT_TRUE(handler_.SetFromWord(value_, 0x1234));
    ExpectStored<std::uint8_t>(0x34);
    EXPECT_TRUE(handler_.SetFromDouble(value_, 300.7));
    ExpectStored<std::uint8_t>(44);
    EXPECT_TRUE(handler_.SetFromDouble(value_, -1.5));
    ExpectStored<std::uint8_t>(255);
    std::uint16_t word = 7;
    EXPECT_TRUE(handler_.GetWord(value_, word));
    EXPECT_EQ(word, 255);
    EXPECT_EQ(Text(), "255");
    EXPECT_EQ(CsvField(), "255;");
    EXPECT_TRUE(handler_.SetFromDouble(value_, 1e300));
    ExpectStored<std::uint8_t>(0);
}

TEST_F(WordHandlerTest, KeepsTheLow16BitsOfListTexts) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"32767", "32767"}, {"32768", "-32768"}, {"-32768", "-32768"}, {"-32769", "32767"},
        {"65535", "-1"},    {"65536", "0"},      {"12,9", "12"},       {"\t-5 6", "-5"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(FromList(text), expected) << text;
        EXPECT_EQ(FromText(text), expected) << text;
    }
    EXPECT_EQ(FromText(std::nullopt), "0");
    EXPECT_EQ(FromList("undef"), "undef");
}

TEST_F(WordHandlerTest, RejectsCsvNumbersBeyondItsLimits) {
    EXPECT_EQ(FromCsv("32767"), "32767");
    EXPECT_EQ(FromCsv("-32768"), "-32768");
    EXPECT_EQ(FromCsv(" -5\t"), "-5");
    EXPECT_EQ(FromCsv("1e3"), "1000");
    EXPECT_EQ(FromCsv("-32768,04"), "-32768");
    EXPECT_EQ(FromCsv(""), "undef");
    for (const std::string_view text :
         {"32768", "-32769", "32767,96", "65535", "3.7", "1,2,3", "-", "undef"}) {
        EXPECT_EQ(FromCsv(text), "rejected") << text;
    }
}

TEST_F(WordHandlerTest, ExchangesWordsAndDoubles) {
    EXPECT_TRUE(handler_.SetFromWord(value_, 0xFFFB));
    ExpectStored<std::int16_t>(-5);
    EXPECT_EQ(Text(), "-5");
    EXPECT_EQ(CsvField(), "-5;");
    std::uint16_t word = 7;
    EXPECT_TRUE(handler_.GetWord(value_, word));
    EXPECT_EQ(word, 0xFFFB);
    EXPECT_TRUE(handler_.SetFromDouble(value_, -1.5));
    ExpectStored<std::int16_t>(-1);
    EXPECT_TRUE(handler_.SetFromDouble(value_, 65537.9));
    ExpectStored<std::int16_t>(1);
    EXPECT_TRUE(handler_.SetFromDouble(value_, 1e19));
    ExpectStored<std::int16_t>(0);
}

TEST_F(Integer64HandlerTest, ReadsTextsByTheRuleOfNumbersWithADecimalComma) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"9223372036854775807", "9223372036854775807"},
        {"9223372036854775808", "-9223372036854775808"},
        {"-9223372036854775808", "-9223372036854775808"},
        {"18446744073709551615", "-1"},
        {"2,96", "3"},
        {"2,94", "2"},
        {"3.7", "3"},
        {"1e3", "1000"},
        {"3.7e0", "3"},
        {"12e", "12"},
        {"FEh", "0"},
        {"", "0"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(FromList(text), expected) << text;
        EXPECT_EQ(FromText(text), expected) << text;
        EXPECT_EQ(Text(), expected) << text;
        EXPECT_EQ(CsvField(), std::string(expected) + ";") << text;
    }
    EXPECT_EQ(FromText(std::nullopt), "0");
    EXPECT_EQ(FromList("undef"), "undef");
}

TEST_F(Integer64HandlerTest, RejectsCsvNumbersBeyondItsLimits) {
    EXPECT_EQ(FromCsv("9223372036854775807"), "9223372036854775807");
    EXPECT_EQ(FromCsv("-9223372036854775808"), "-9223372036854775808");
    EXPECT_EQ(FromCsv("1e18"), "1000000000000000000");
    EXPECT_EQ(FromCsv(" "), "undef");
    for (const std::string_view text :
         {"9223372036854775808", "-9223372036854775809", "1e19", "3.7", "FEh", "12e"}) {
        EXPECT_EQ(FromCsv(text), "rejected") << text;
    }
}

TEST_F(Integer64HandlerTest, ExchangesQwords) {
    EXPECT_TRUE(handler_.SetFromQword(value_, 0x8000000000000001));
    EXPECT_EQ(Text(), "-9223372036854775807");
    std::uint64_t qword = 7;
    EXPECT_TRUE(handler_.GetQword(value_, qword));
    EXPECT_EQ(qword, 0x8000000000000001);
}

}  // namespace
}  // namespace orvell::paramlist
