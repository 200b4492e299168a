#include "paramlist/value_type_handler_set.h"

#include <gtest/gtest.h>

namespace orvell::paramlist {
namespace {

/// What each value type supports besides texts.
struct Support {
    ValueTypeCode code;
    std::size_t length;  ///< of a stored value in bytes
    bool setWord, setDword, setQword, setDouble;
    bool getWord, getDword, getQword, getDouble;
};

constexpr Support kSupport[] = {
    {ValueTypeCode::Bit, 1, true, false, false, true, true, false, false, false},
    {ValueTypeCode::Word, 2, true, false, false, true, true, false, false, false},
    {ValueTypeCode::Long, 4, false, true, false, true, false, true, false, true},
    {ValueTypeCode::Float, 8, false, false, false, true, false, false, false, true},
    {ValueTypeCode::Text, 2, false, false, false, false, false, false, false, false},
    {ValueTypeCode::Date, 4, false, true, false, true, false, true, false, true},
    {ValueTypeCode::Time, 4, false, true, false, true, false, true, false, true},
    {ValueTypeCode::TimeOfDay, 4, false, true, false, true, false, true, false, true},
    {ValueTypeCode::DateAndTime, 4, false, true, false, true, false, true, false, true},
    {ValueTypeCode::Byte, 1, true, false, false, true, true, false, false, false},
    {ValueTypeCode::Integer64, 8, false, false, true, false, false, false, true, false},
    {ValueTypeCode::OleDateTime, 8, false, false, false, true, false, false, false, true},
};

class SupportTest : public testing::TestWithParam<Support> {
  protected:
    ValueTypeHandlerSet handlers_;
    const ValueTypeHandler& handler_ = *handlers_.Find(GetParam().code);
    ParameterValue value_;

    void SetToOne() { ASSERT_TRUE(handler_.SetFromText(value_, "1")); }

    /// The setter succeeded, or failed and left the value.
    void ExpectSet(bool isSet, bool isSupported) {
        EXPECT_EQ(isSet, isSupported);
        std::string text;
        EXPECT_TRUE(handler_.GetText(value_, text));
        EXPECT_EQ(text == "1", !isSupported) << text;
        SetToOne();
    }
};

INSTANTIATE_TEST_SUITE_P(Types, SupportTest, testing::ValuesIn(kSupport));

TEST_P(SupportTest, StoresItsOwnWidth) {
    SetToOne();
    EXPECT_EQ(value_.Bytes().size(), GetParam().length);
    EXPECT_EQ(handler_.IsBitAddressed(), GetParam().code == ValueTypeCode::Bit);
}

TEST_P(SupportTest, SetsFromWhatItSupports) {
    SetToOne();
    ExpectSet(handler_.SetFromWord(value_, 0), GetParam().setWord);
    ExpectSet(handler_.SetFromDword(value_, 0), GetParam().setDword);
    ExpectSet(handler_.SetFromQword(value_, 0), GetParam().setQword);
    ExpectSet(handler_.SetFromDouble(value_, 0.0), GetParam().setDouble);
}

TEST_P(SupportTest, GivesWhatItSupportsElseZeros) {
    SetToOne();
    std::uint16_t word = 7;
    std::uint32_t dword = 7;
    std::uint64_t qword = 7;
    double number = 7.0;
    EXPECT_EQ(handler_.GetWord(value_, word), GetParam().getWord);
    EXPECT_EQ(word, GetParam().getWord ? 1 : 0);
    EXPECT_EQ(handler_.GetDword(value_, dword), GetParam().getDword);
    EXPECT_EQ(dword, GetParam().getDword ? 1U : 0U);
    EXPECT_EQ(handler_.GetQword(value_, qword), GetParam().getQword);
    EXPECT_EQ(qword, GetParam().getQword ? 1U : 0U);
    EXPECT_EQ(handler_.GetDouble(value_, number), GetParam().getDouble);
    EXPECT_EQ(number, GetParam().getDouble ? 1.0 : 0.0);
}

TEST_P(SupportTest, GivesZerosForAnUndefinedValue) {
    std::uint16_t word = 7;
    std::uint32_t dword = 7;
    std::uint64_t qword = 7;
    double number = 7.0;
    std::string text;
    EXPECT_FALSE(handler_.GetWord(value_, word));
    EXPECT_EQ(word, 0);
    EXPECT_FALSE(handler_.GetDword(value_, dword));
    EXPECT_EQ(dword, 0U);
    EXPECT_FALSE(handler_.GetQword(value_, qword));
    EXPECT_EQ(qword, 0U);
    EXPECT_FALSE(handler_.GetDouble(value_, number));
    EXPECT_EQ(number, 0.0);
    EXPECT_FALSE(handler_.GetText(value_, text));
    EXPECT_EQ(text, "");
}

TEST(ValueTypeHandlerSet, HasAHandlerForEveryCodeAndNoOther) {
    const ValueTypeHandlerSet handlers;
    EXPECT_EQ(std::size(kSupport), kValueTypeCount);
    for (const Support& support : kSupport) {
        EXPECT_NE(handlers.Find(support.code), nullptr);
    }
    EXPECT_EQ(handlers.Find(ValueTypeCode::None), nullptr);
    EXPECT_EQ(handlers.Find(static_cast<ValueTypeCode>(kValueTypeCount + 1)), nullptr);
    EXPECT_EQ(handlers.Find(static_cast<ValueTypeCode>(0xFFFFFFFF)), nullptr);
}

}  // namespace
}  // namespace orvell::paramlist
