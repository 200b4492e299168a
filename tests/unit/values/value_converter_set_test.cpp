#include "values/value_converter_set.h"

#include "unit/values/converter_test.h"
#include "unit/values/recording_host.h"

namespace orvell::values {
namespace {

using ValueConverterSetTest = ConverterTest;

constexpr std::uint32_t kCodesWithoutConverter[] = {0,   1,   699,        711,
                                                    712, 713, 0x7FFFFFFF, 0xFFFFFFFF};

TEST_F(ValueConverterSetTest, FindsAConverterForElevenCodes) {
    for (std::uint32_t code = 700; code <= 710; ++code) {
        EXPECT_NE(converters_.Find(static_cast<BaseTypeCode>(code)), nullptr) << code;
    }
    for (const std::uint32_t code : kCodesWithoutConverter) {
        EXPECT_EQ(converters_.Find(static_cast<BaseTypeCode>(code)), nullptr) << code;
    }
}

TEST_F(ValueConverterSetTest, ForwardsToTheConverterOfTheCode) {
    // One text that the eleven types store in eleven ways.
    const std::string text = "12.10.2003 4:05:06";
    using enum BaseTypeCode;
    EXPECT_EQ(Parse({Int, 2}, text), IntegerBytes(12, 2));
    EXPECT_EQ(Show({Int, 1}, {0xFF}), "-1");
    EXPECT_EQ(Show({UInt, 1}, {0xFF}), "255");
    EXPECT_EQ(Parse({Float}, text), BytesOf(12.1F));
    EXPECT_EQ(Parse({Double}, text), BytesOf(12.1));
    EXPECT_EQ(Parse({String, 4}, text), (Bytes{'1', '2', '.', 0}));
    EXPECT_EQ(Parse({Duration}, "12 s"), BytesOf(12000U));
    EXPECT_EQ(Parse({Time}, "4:05:06"), BytesOf(14706U));
    EXPECT_EQ(Parse({Date}, text), BytesOf(1065916800U));
    EXPECT_EQ(Parse({DateTime}, text), BytesOf(1065931506U));
    EXPECT_EQ(Show({OleDateTime}, Parse({OleDateTime}, text)), "12.10.2003 04:05:06,000");
    EXPECT_EQ(Parse({Enumerated, 4}, text), BytesOf(12U));
}

TEST_F(ValueConverterSetTest, FailsForOtherCodesAndEmptiesTexts) {
    RecordingHost host;
    const OnlineAccessRecord online = host.Online();
    for (const std::uint32_t code : kCodesWithoutConverter) {
        const TypeDescription type = {static_cast<BaseTypeCode>(code), 4};
        Bytes bytes(16, 0xCC);
        EXPECT_EQ(converters_.GetSize(type), 0U);
        EXPECT_FALSE(converters_.HasRoom(type, bytes));
        std::string text = "left over";
        EXPECT_FALSE(converters_.ValueToText(type, bytes, text, DisplayFormat::Default, true));
        EXPECT_EQ(text, "");
        text = "left over";
        EXPECT_FALSE(converters_.DefaultText(type, text, DisplayFormat::Default));
        EXPECT_EQ(text, "");
        text = "left over";
        EXPECT_FALSE(converters_.ExportText(type, bytes, text));
        EXPECT_EQ(text, "");
        text = "left over";
        EXPECT_FALSE(converters_.Normalize(type.baseType, 2, text, DisplayFormat::Default));
        EXPECT_EQ(text, "");
        EXPECT_FALSE(converters_.TextToValue(type, bytes, "1", DisplayFormat::Default));
        EXPECT_FALSE(converters_.ImportText(type, "1", bytes));
        EXPECT_FALSE(converters_.PutToHost(type, 1, 2, bytes, online));
        EXPECT_FALSE(converters_.PutToHostAlt(type, 1, 2, bytes, online));
        EXPECT_FALSE(converters_.GetFromHost(type, 1, 2, bytes, online));
        EXPECT_FALSE(converters_.PutRawToHost(type, 1, 2, bytes, host.Fill()));
        EXPECT_EQ(converters_.NormalizeParam(type), 0U);
        EXPECT_EQ(bytes, Bytes(16, 0xCC));
    }
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(ValueConverterSetTest, NormalizeParamIsTheWidthTheDateFormatOrZero) {
    using enum BaseTypeCode;
    EXPECT_EQ(converters_.NormalizeParam({Int, 3}), 4U);
    EXPECT_EQ(converters_.NormalizeParam({UInt, 6}), 8U);
    EXPECT_EQ(converters_.NormalizeParam({String, 0}), 1U);
    EXPECT_EQ(converters_.NormalizeParam({Enumerated, 0}), 2U);
    for (const BaseTypeCode code : {Float, Double, Duration, Time}) {
        EXPECT_EQ(converters_.NormalizeParam({code, 5, DateFormatCode::MonthFirst}), 0U);
    }
    for (const BaseTypeCode code : {Date, DateTime, OleDateTime}) {
        EXPECT_EQ(converters_.NormalizeParam({code, 5, DateFormatCode::DayFirst}), 750U);
        EXPECT_EQ(converters_.NormalizeParam({code, 5, DateFormatCode::MonthFirst}), 751U);
        EXPECT_EQ(converters_.NormalizeParam({code, 5, DateFormatCode::None}), 750U);
    }
}

}  // namespace
}  // namespace orvell::values
