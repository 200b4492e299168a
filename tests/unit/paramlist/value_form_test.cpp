#include "paramlist/value_form.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "paramlist/value_access.h"
#include "resources/built_in_strings.h"

namespace orvell::paramlist {
namespace {

using namespace std::string_literals;

constexpr std::size_t kFormCount = 10;
constexpr std::array<std::uint32_t, kFormCount> kMinimumLengths = {1, 2, 4, 4, 1, 4, 1, 8, 8, 8};
constexpr std::size_t kBufferSize = 16;
constexpr char kUntouched = '\xA5';

/// One answer a form: its bytes, or none when the form does not suit the kind.
using Answers = std::array<std::optional<std::string>, kFormCount>;
constexpr std::nullopt_t kRefused = std::nullopt;

template <typename Number>
std::string Bytes(Number number) {
    std::string bytes(sizeof number, '\0');
    std::memcpy(bytes.data(), &number, sizeof number);
    return bytes;
}

std::string Byte(int byte) {
    return Bytes(static_cast<std::uint8_t>(byte));
}
std::string Word(int word) {
    return Bytes(static_cast<std::uint16_t>(word));
}
std::string Dword(std::int64_t dword) {
    return Bytes(static_cast<std::uint32_t>(dword));
}
std::string Qword(std::int64_t qword) {
    return Bytes(qword);
}
std::string Float(float number) {
    return Bytes(number);
}
std::string Double(double number) {
    return Bytes(number);
}
std::string Text(const std::string& text) {
    return text + '\0';
}

ValueForm Form(std::size_t index) {
    return static_cast<ValueForm>(index + 1);
}

struct ValueFormTest : testing::Test {
    ValueFormTest() { EXPECT_TRUE(list_.BuildKinds()); }

    /// The bytes that a form gives of the buffer, whose rest must stay untouched.
    struct Given {
        bool isGiven;
        std::string bytes;
    };

    Given Get(const std::string& address, ValueForm form, std::size_t length = kBufferSize) {
        std::string memory(kBufferSize + 1, kUntouched);
        // One byte off, as packed records of hosts are.
        const std::span<std::uint8_t> buffer(reinterpret_cast<std::uint8_t*>(memory.data()) + 1,
                                             length);
        const bool isGiven = GetValue(list_, address, buffer, form);
        const std::size_t used = memory.find_last_not_of(kUntouched);
        EXPECT_EQ(memory[0], kUntouched);
        return {isGiven, used == std::string::npos ? "" : memory.substr(1, used)};
    }

    bool Set(const std::string& address, ValueForm form, const std::string& bytes) {
        const std::string memory = "?" + bytes;
        return SetValue(list_, address,
                        {reinterpret_cast<const std::uint8_t*>(memory.data()) + 1, bytes.size()},
                        form);
    }

    std::string TextOf(const std::string& address) {
        const Given given = Get(address, ValueForm::Text);
        return given.isGiven ? given.bytes.substr(0, given.bytes.size() - 1) : "undefined";
    }

    bool Exists(const std::string& address) {
        const ParameterAddress parsed = list_.ParseAddress(address);
        return parsed.kind->Find(parsed.number) != nullptr;
    }

    resources::BuiltInStrings source_;
    resources::StringTable strings_{source_};
    ParameterList list_{strings_};
};

TEST_F(ValueFormTest, EveryKindGivesTheFormsOfItsValueTypeAndNoOther) {
    constexpr double kFourBillion = 4e9;
    const Answers fourBillion = {
        kRefused,          kRefused, Dword(4000000000), Float(4e9F),          Text("-294967296"),
        Dword(4000000000), kRefused, kRefused,          Double(kFourBillion), Double(kFourBillion)};
    const Answers oneBit = {Byte(255), Word(1), kRefused, kRefused, Text("1"),
                            kRefused,  Byte(1), kRefused, kRefused, kRefused};
    const Answers floating = {kRefused, kRefused, Dword(-2), Float(-2.75F), Text("-2.75"),
                              kRefused, kRefused, kRefused,  Double(-2.75), Double(-2.75)};
    const struct {
        std::string address;
        const char* value;
        Answers answers;
    } kinds[] = {
        {"E0.1", "1", oneBit},
        {"A7", "-3", oneBit},
        {"B0.7", "9", oneBit},
        {"UCHARPARA1",
         "200",
         {Byte(255), Word(200), kRefused, kRefused, Text("200"), kRefused, Byte(200), kRefused,
          kRefused, kRefused}},
        {"PW1",
         "-5",
         {Byte(255), Word(-5), kRefused, kRefused, Text("-5"), kRefused, Byte(-5), kRefused,
          kRefused, kRefused}},
        {"PL1",
         "-70000",
         {kRefused, kRefused, Dword(-70000), Float(-70000), Text("-70000"), Dword(-70000), kRefused,
          kRefused, Double(-70000), Double(-70000)}},
        {"INT64PARA1",
         "-1234567890123",
         {kRefused, kRefused, kRefused, kRefused, Text("-1234567890123"), kRefused, kRefused,
          Qword(-1234567890123), kRefused, kRefused}},
        {"PF1", "-2.75", floating},
        {"DOUBLEPARA1", "-2.75", floating},
        {"PT1",
         "a b",
         {kRefused, kRefused, kRefused, kRefused, Text("a b"), kRefused, kRefused, kRefused,
          kRefused, kRefused}},
        {"TIMEPARA1", "4000000000", fourBillion},
        {"DATEPARA1", "4000000000", fourBillion},
        {"TODPARA1", "4000000000", fourBillion},
        {"DTPARA1", "4000000000", fourBillion},
        {"OLEDTPARA1", "-2.75", floating},
    };
    for (const auto& [address, value, answers] : kinds) {
        ASSERT_TRUE(SetFromText(list_, address, value)) << address;
        for (std::size_t index = 0; index < kFormCount; ++index) {
            const Given given = Get(address, Form(index));
            const std::string zeros(kMinimumLengths[index], '\0');
            EXPECT_EQ(given.isGiven, answers[index].has_value()) << address << " " << index + 1;
            EXPECT_EQ(given.bytes, answers[index].value_or(zeros)) << address << " " << index + 1;
        }
    }
}

TEST_F(ValueFormTest, EveryKindTakesTheFormsOfItsValueTypeAndNoOther) {
    const std::array<std::string, kFormCount> sent = {
        Byte(255),         Word(300), Dword(-70000), Float(2.75F),  "12",
        Dword(4000000000), Byte(128), Qword(-99),    Double(300.7), Double(-1.5)};
    const Answers bit = {"1", "1", "1", "1", "1", kRefused, "1", kRefused, "1", "1"};
    const Answers integer32 = {kRefused,     kRefused, "-70000", "2",   "12",
                               "-294967296", kRefused, kRefused, "300", "-1"};
    const Answers floating = {kRefused, kRefused, "-70000", "2.75",  "12",
                              kRefused, kRefused, kRefused, "300.7", "-1.5"};
    const struct {
        std::string keyword;
        Answers texts;  ///< what the kind makes of each form
    } kinds[] = {
        {"E", bit},
        {"A", bit},
        {"B", bit},
        {"UCHARPARA", {"255", "44", "144", "2", "12", kRefused, "128", kRefused, "44", "255"}},
        {"PW", {"255", "300", "-4464", "2", "12", kRefused, "128", kRefused, "300", "-1"}},
        {"PL", integer32},
        {"INT64PARA",
         {kRefused, kRefused, kRefused, kRefused, "12", kRefused, kRefused, "-99", kRefused,
          kRefused}},
        {"PF", floating},
        {"DOUBLEPARA", floating},
        {"PT",
         {kRefused, kRefused, kRefused, kRefused, "12", kRefused, kRefused, kRefused, kRefused,
          kRefused}},
        {"TIMEPARA", integer32},
        {"DATEPARA", integer32},
        {"TODPARA", integer32},
        {"DTPARA", integer32},
        {"OLEDTPARA", floating},
    };
    for (const auto& [keyword, texts] : kinds) {
        for (std::size_t index = 0; index < kFormCount; ++index) {
            const std::string address = keyword + std::to_string(index + 1);
            EXPECT_EQ(Set(address, Form(index), sent[index]), texts[index].has_value()) << address;
            EXPECT_EQ(TextOf(address), texts[index].value_or("undefined")) << address;
            EXPECT_TRUE(Exists(address)) << "a refused value leaves its entry: " << address;
        }
    }
}

TEST_F(ValueFormTest, ShortAndAbsentBuffersTouchNothing) {
    for (const std::string address : {"E1", "PW1", "PL1", "PF1", "INT64PARA1", "PT1"}) {
        ASSERT_TRUE(SetFromText(list_, address, "1"));
        const std::string missing = address + "9";
        for (std::size_t index = 0; index < kFormCount; ++index) {
            for (std::uint32_t length = 0; length < kMinimumLengths[index]; ++length) {
                const Given given = Get(address, Form(index), length);
                EXPECT_FALSE(given.isGiven) << address << " " << index + 1 << " " << length;
                EXPECT_EQ(given.bytes, "") << address << " " << index + 1 << " " << length;
                EXPECT_FALSE(Set(address, Form(index), std::string(length, '5')));
                EXPECT_FALSE(Set(missing, Form(index), std::string(length, '5')));
            }
            EXPECT_FALSE(GetValue(list_, address, {}, Form(index)));
            EXPECT_FALSE(SetValue(list_, missing, {}, Form(index)));
        }
        EXPECT_EQ(TextOf(address), "1");
        EXPECT_FALSE(Exists(missing));
    }
}

TEST_F(ValueFormTest, WhatIsNoFormTouchesNothing) {
    ASSERT_TRUE(SetFromText(list_, "PW1", "7"));
    for (const std::uint32_t number : {0U, 11U, 12U, 0x80000000U, 0xFFFFFFFFU}) {
        const auto form = static_cast<ValueForm>(number);
        EXPECT_EQ(MinimumLength(form), 0U);
        const Given given = Get("PW1", form);
        EXPECT_FALSE(given.isGiven) << number;
        EXPECT_EQ(given.bytes, "") << number;
        EXPECT_FALSE(Set("PW1", form, "12345678")) << number;
        EXPECT_FALSE(Set("PW2", form, "12345678")) << number;
    }
    EXPECT_EQ(TextOf("PW1"), "7");
    EXPECT_FALSE(Exists("PW2"));
}

TEST_F(ValueFormTest, MissingAndUndefinedValuesAreZeros) {
    for (const std::string keyword :
         {"E", "UCHARPARA", "PW", "PL", "INT64PARA", "PF", "PT", "TIMEPARA", "OLEDTPARA"}) {
        list_.FindKind(keyword)->Obtain(16, false);
        for (const std::string& address : {keyword + "2", keyword + "16", keyword + "99"}) {
            for (std::size_t index = 0; index < kFormCount; ++index) {
                const Given given = Get(address, Form(index));
                EXPECT_FALSE(given.isGiven) << address << " " << index + 1;
                EXPECT_EQ(given.bytes, std::string(kMinimumLengths[index], '\0'))
                    << address << " " << index + 1;
            }
        }
        EXPECT_FALSE(Exists(keyword + "99")) << "reading creates nothing";
    }
}

TEST_F(ValueFormTest, UnknownKindsTouchNothing) {
    for (const std::string address : {"", "1", "XY1", "pw1", " PW1", "PW1 "}) {
        for (std::size_t index = 0; index < kFormCount; ++index) {
            const Given given = Get(address, Form(index));
            EXPECT_FALSE(given.isGiven) << address;
            EXPECT_EQ(given.bytes, "") << address;
            EXPECT_FALSE(Set(address, Form(index), "12345678")) << address;
        }
    }
}

TEST_F(ValueFormTest, ATextIsCutToTheBuffer) {
    ASSERT_TRUE(SetFromText(list_, "PT1", "abcdef"));
    EXPECT_EQ(Get("PT1", ValueForm::Text, 1).bytes, "\0"s);
    EXPECT_EQ(Get("PT1", ValueForm::Text, 4).bytes, "abc\0"s);
    EXPECT_EQ(Get("PT1", ValueForm::Text, 7).bytes, "abcdef\0"s);
    EXPECT_TRUE(Get("PT1", ValueForm::Text, 1).isGiven);
}

TEST_F(ValueFormTest, ATextEndsAtItsNulOrWithTheBuffer) {
    EXPECT_TRUE(Set("PT1", ValueForm::Text, "abc"));
    EXPECT_EQ(TextOf("PT1"), "abc");
    EXPECT_TRUE(Set("PT1", ValueForm::Text, "de\0fgh"s));
    EXPECT_EQ(TextOf("PT1"), "de");
    EXPECT_TRUE(Set("PW1", ValueForm::Text, "12"));
    EXPECT_EQ(TextOf("PW1"), "12");
    EXPECT_TRUE(Set("PW1", ValueForm::Text, "\0"s));
    EXPECT_EQ(TextOf("PW1"), "0");
}

TEST_F(ValueFormTest, ATruthValueIsThatOfTheWholeWord) {
    for (const auto& [word, truth, byte] :
         {std::array{-5, 255, 0xFB}, std::array{3, 255, 3}, std::array{0, 0, 0},
          std::array{0x0100, 255, 0}, std::array{0x7FFF, 255, 0xFF}}) {
        ASSERT_TRUE(Set("PW1", ValueForm::Word, Word(word)));
        EXPECT_EQ(Get("PW1", ValueForm::Truth).bytes, Byte(truth)) << word;
        EXPECT_EQ(Get("PW1", ValueForm::Byte).bytes, Byte(byte)) << word;
    }
}

TEST_F(ValueFormTest, ALongIsADoublesTruncatedLowBytes) {
    const std::pair<double, std::int64_t> cases[] = {
        {0.9, 0},
        {-0.9, 0},
        {1.9, 1},
        {-1.9, -1},
        {2147483647.5, 2147483647},
        {2147483648.0, 2147483648},
        {-2147483649.0, 2147483647},
        {4294967297.0, 1},
        {1e300, 0},
        {-1e300, 0},
        {std::numeric_limits<double>::infinity(), 0},
        {std::numeric_limits<double>::quiet_NaN(), 0},
    };
    for (const auto& [number, expected] : cases) {
        ASSERT_TRUE(Set("PF1", ValueForm::Double, Double(number)));
        const Given given = Get("PF1", ValueForm::Long);
        EXPECT_TRUE(given.isGiven) << number;
        EXPECT_EQ(given.bytes, Dword(expected)) << number;
    }
}

TEST_F(ValueFormTest, DoublesBeyondAFloatAreInfinite) {
    ASSERT_TRUE(Set("PF1", ValueForm::Double, Double(1e300)));
    EXPECT_EQ(Get("PF1", ValueForm::Float).bytes, Float(std::numeric_limits<float>::infinity()));
    ASSERT_TRUE(Set("PF1", ValueForm::Float, Float(0.1F)));
    EXPECT_EQ(Get("PF1", ValueForm::Double).bytes, Double(static_cast<double>(0.1F)));
}

}  // namespace
}  // namespace orvell::paramlist
