#include "paramlist/value_access.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "resources/built_in_strings.h"

namespace orvell::paramlist {
namespace {

constexpr Description kSetPoint = {"Set point", "of the boiler"};

/// Names one kind more than there are value types.
class OneKindMore final : public resources::BuiltInStrings {
  public:
    [[nodiscard]] std::string Load(std::uint32_t number) const override {
        return number == 215 ? "NEW" : BuiltInStrings::Load(number);
    }
};

struct ValueAccessTest : testing::Test {
    ValueAccessTest() { EXPECT_TRUE(list_.BuildKinds()); }

    ParameterEntry* Entry(std::string_view address) {
        const ParameterAddress parsed = list_.ParseAddress(address);
        return parsed.kind->Find(parsed.number);
    }

    std::string TextOf(std::string_view address) {
        std::array<std::uint8_t, 64> buffer{};
        const bool isGiven = GetValue(list_, address, buffer, ValueForm::Text);
        return isGiven ? reinterpret_cast<const char*>(buffer.data()) : "undefined";
    }

    std::string DescriptionOf(std::string_view address) {
        const auto description = FindDescription(list_, address);
        return description
                   ? std::string(description->name) + "|" + std::string(description->comment)
                   : "missing";
    }

    /// Reads `count` numbers to an odd place, whose neighbours must stay untouched.
    template <typename Number, typename Read>
    std::vector<Number> Vector(std::string_view address, std::uint32_t count, const Read& read) {
        std::string memory(count * sizeof(Number) + 2, '\xEE');
        EXPECT_TRUE(read(list_, address, count, memory.data() + 1));
        EXPECT_EQ(memory.front(), '\xEE');
        EXPECT_EQ(memory.back(), '\xEE');
        std::vector<Number> numbers(count);
        std::memcpy(numbers.data(), memory.data() + 1, count * sizeof(Number));
        return numbers;
    }

    OneKindMore source_;
    resources::StringTable strings_{source_};
    ParameterList list_{strings_};
};

TEST_F(ValueAccessTest, AValueComesWithNameAndComment) {
    EXPECT_TRUE(SetFromWord(list_, "PW1", 300, kSetPoint));
    EXPECT_TRUE(SetFromDword(list_, "PL1", 4000000000, kSetPoint));
    EXPECT_TRUE(SetFromDouble(list_, "PF1", -0.5, kSetPoint));
    EXPECT_TRUE(SetFromText(list_, "PT1", "hot", kSetPoint));
    EXPECT_EQ(TextOf("PW1"), "300");
    EXPECT_EQ(TextOf("PL1"), "-294967296");
    EXPECT_EQ(TextOf("PF1"), "-0.5");
    EXPECT_EQ(TextOf("PT1"), "hot");
    for (const char* address : {"PW1", "PL1", "PF1", "PT1"}) {
        EXPECT_EQ(DescriptionOf(address), "Set point|of the boiler") << address;
    }
}

TEST_F(ValueAccessTest, ARefusedValueLeavesItsDescription) {
    EXPECT_FALSE(SetFromWord(list_, "PL1", 300, kSetPoint));
    EXPECT_FALSE(SetFromDword(list_, "PW1", 300, kSetPoint));
    EXPECT_FALSE(SetFromDouble(list_, "INT64PARA1", 300, kSetPoint));
    for (const char* address : {"PL1", "PW1", "INT64PARA1"}) {
        EXPECT_EQ(TextOf(address), "undefined") << address;
        EXPECT_EQ(DescriptionOf(address), "Set point|of the boiler") << address;
    }
}

TEST_F(ValueAccessTest, DescriptionsAreCutButNeverTakenForTheFilesEmptyMark) {
    const std::string letters = "abcdefghijklmnopqrstuvwxyz0123456789";
    EXPECT_TRUE(SetFromWord(list_, "PW1", 1, {letters, letters}));
    EXPECT_EQ(DescriptionOf("PW1"), letters.substr(0, 15) + "|" + letters.substr(0, 30));
    EXPECT_TRUE(SetFromWord(list_, "PW1", 1, {"%%", "%%"}));
    EXPECT_EQ(DescriptionOf("PW1"), "%%|%%");
    EXPECT_TRUE(SetFromWord(list_, "PW1", 1, {}));
    EXPECT_EQ(DescriptionOf("PW1"), "|");
}

TEST_F(ValueAccessTest, AnAbsentTextIsZeroAndForTextsUndefined) {
    EXPECT_TRUE(SetFromText(list_, "PW1", "5"));
    EXPECT_TRUE(SetFromText(list_, "PW1", std::nullopt));
    EXPECT_EQ(TextOf("PW1"), "0");
    EXPECT_TRUE(SetFromText(list_, "PT1", "5"));
    EXPECT_TRUE(SetFromText(list_, "PT1", std::nullopt));
    EXPECT_EQ(TextOf("PT1"), "undefined");
}

TEST_F(ValueAccessTest, ATextAloneKeepsTheDescription) {
    EXPECT_TRUE(SetFromWord(list_, "PW1", 1, kSetPoint));
    EXPECT_TRUE(SetFromText(list_, "PW1", "2"));
    EXPECT_EQ(DescriptionOf("PW1"), "Set point|of the boiler");
    EXPECT_FALSE(SetFromText(list_, "XX1", "2"));
}

TEST_F(ValueAccessTest, NamesAndCommentsAreSetInExistingEntriesOnly) {
    EXPECT_FALSE(SetName(list_, "PW1", "n"));
    EXPECT_FALSE(SetComment(list_, "PW1", "c"));
    EXPECT_EQ(DescriptionOf("PW1"), "missing");
    EXPECT_TRUE(SetFromText(list_, "PW1", "1"));
    EXPECT_EQ(DescriptionOf("PW1"), "|");
    EXPECT_TRUE(SetName(list_, "PW1", "n"));
    EXPECT_TRUE(SetComment(list_, "PW1", "%%"));
    EXPECT_EQ(DescriptionOf("PW1"), "n|%%");
    EXPECT_TRUE(SetName(list_, "PW1", {}));
    EXPECT_EQ(DescriptionOf("PW1"), "|%%");
    for (const char* unknown : {"", "XX1", "1"}) {
        EXPECT_FALSE(SetName(list_, unknown, "n"));
        EXPECT_FALSE(SetComment(list_, unknown, "c"));
        EXPECT_EQ(DescriptionOf(unknown), "missing");
    }
}

TEST_F(ValueAccessTest, InDeclaredOnlyModeValuesBelongToDeclaredEntriesOnly) {
    ASSERT_TRUE(SetFromText(list_, "PW1", "1"));
    ASSERT_TRUE(list_.FindKind("PW")->Declare(2, 2));
    list_.SetDeclaredOnly(true);
    EXPECT_FALSE(SetFromWord(list_, "PW1", 9, kSetPoint));
    EXPECT_FALSE(SetFromText(list_, "PW1", "9"));
    EXPECT_FALSE(SetFromWord(list_, "PW3", 9, kSetPoint));
    EXPECT_EQ(TextOf("PW1"), "undefined");
    EXPECT_EQ(Entry("PW3"), nullptr);
    EXPECT_TRUE(SetFromWord(list_, "PW2", 22, kSetPoint));
    EXPECT_EQ(TextOf("PW2"), "22");
    EXPECT_EQ(Vector<std::uint16_t>("PW1", 3, GetWords), (std::vector<std::uint16_t>{0, 22, 0}));

    EXPECT_EQ(DescriptionOf("PW1"), "|") << "names and comments do not ask for the mark";
    EXPECT_TRUE(SetName(list_, "PW1", "still here"));
    EXPECT_EQ(DescriptionOf("PW1"), "still here|");

    list_.SetDeclaredOnly(false);
    EXPECT_EQ(TextOf("PW1"), "1");
}

TEST_F(ValueAccessTest, OfEqualNumbersTheModeChoosesTheEntry) {
    ASSERT_TRUE(SetFromText(list_, "PW1", "10"));
    ASSERT_TRUE(SetFromText(list_, "PW2", "20"));
    ASSERT_TRUE(list_.FindKind("PW")->Declare(1, 2));
    EXPECT_EQ(TextOf("PW2"), "20");
    list_.SetDeclaredOnly(true);
    EXPECT_EQ(TextOf("PW2"), "10");
    EXPECT_TRUE(SetFromText(list_, "PW2", "11"));
    list_.SetDeclaredOnly(false);
    EXPECT_EQ(TextOf("PW2"), "20");
}

TEST_F(ValueAccessTest, VectorsAreConsecutiveNumbers) {
    ASSERT_TRUE(SetFromText(list_, "PW5", "-1"));
    ASSERT_TRUE(SetFromText(list_, "PW7", "7"));
    EXPECT_EQ(Vector<std::uint16_t>("PW5", 4, GetWords),
              (std::vector<std::uint16_t>{0xFFFF, 0, 7, 0}));
    ASSERT_TRUE(SetFromText(list_, "E1.7", "1"));
    ASSERT_TRUE(SetFromText(list_, "E2", "1"));
    EXPECT_EQ(Vector<std::uint16_t>("E1.6", 4, GetWords), (std::vector<std::uint16_t>{0, 1, 1, 0}));
    ASSERT_TRUE(SetFromText(list_, "PL2", "-3"));
    EXPECT_EQ(Vector<std::uint32_t>("PL1", 3, GetDwords),
              (std::vector<std::uint32_t>{0, 0xFFFFFFFD, 0}));
    ASSERT_TRUE(SetFromText(list_, "PF1", "0.25"));
    EXPECT_EQ(Vector<double>("PF0", 3, GetDoubles), (std::vector<double>{0, 0.25, 0}));
    double untouched = 7;
    EXPECT_TRUE(GetDoubles(list_, "PF1", 0, &untouched));
    EXPECT_EQ(untouched, 7.0);
    EXPECT_EQ(Entry("PW6"), nullptr) << "reading creates nothing";
}

TEST_F(ValueAccessTest, VectorsOfAnUnsuitableKindAreZero) {
    ASSERT_TRUE(SetFromText(list_, "PT1", "5"));
    EXPECT_EQ(Vector<std::uint16_t>("PT1", 2, GetWords), (std::vector<std::uint16_t>{0, 0}));
    EXPECT_EQ(Vector<std::uint32_t>("PT1", 2, GetDwords), (std::vector<std::uint32_t>{0, 0}));
    EXPECT_EQ(Vector<double>("PT1", 2, GetDoubles), (std::vector<double>{0, 0}));
}

TEST_F(ValueAccessTest, VectorsOfAnUnknownKindTouchNothing) {
    std::uint16_t word = 7;
    std::uint32_t dword = 7;
    double number = 7;
    for (const char* address : {"", "XX1", "1"}) {
        EXPECT_FALSE(GetWords(list_, address, 1, &word));
        EXPECT_FALSE(GetDwords(list_, address, 1, &dword));
        EXPECT_FALSE(GetDoubles(list_, address, 1, &number));
    }
    EXPECT_EQ(word, 7);
    EXPECT_EQ(dword, 7U);
    EXPECT_EQ(number, 7.0);
}

TEST_F(ValueAccessTest, AVectorRunsOnFromTheLastNumberToTheFirst) {
    ASSERT_TRUE(SetFromText(list_, "PW0", "5"));
    EXPECT_EQ(Vector<std::uint16_t>("PW4294967295", 2, GetWords),
              (std::vector<std::uint16_t>{0, 5}));
}

TEST_F(ValueAccessTest, AKindWithoutHandlerGivesNothingAndLosesWhatIsWritten) {
    ASSERT_TRUE(list_.BuildKinds(kParameterKindCount + 1));
    ParameterEntry& entry = list_.FindKind("NEW")->Obtain(1, false);
    entry.Value().Store<std::uint16_t>(5);
    EXPECT_EQ(Vector<std::uint16_t>("NEW1", 2, GetWords), (std::vector<std::uint16_t>{0, 0}));
    std::uint16_t word = 7;
    EXPECT_FALSE(
        GetValue(list_, "NEW1", {reinterpret_cast<std::uint8_t*>(&word), 2}, ValueForm::Word));
    EXPECT_EQ(word, 0);
    EXPECT_TRUE(entry.Value().IsDefined());
    EXPECT_FALSE(SetFromWord(list_, "NEW1", 5, kSetPoint));
    EXPECT_FALSE(entry.Value().IsDefined());
    EXPECT_EQ(DescriptionOf("NEW1"), "Set point|of the boiler");
    entry.Value().Store<std::uint16_t>(5);
    EXPECT_FALSE(SetValue(list_, "NEW1", {reinterpret_cast<const std::uint8_t*>(&word), 2},
                          ValueForm::Word));
    EXPECT_FALSE(entry.Value().IsDefined());
}

}  // namespace
}  // namespace orvell::paramlist
