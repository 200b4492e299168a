// What holds for every base type alike: widths of buffers, what is written, and the host's
// functions.
#include <algorithm>
#include <ostream>

#include "unit/values/converter_test.h"
#include "unit/values/recording_host.h"

namespace orvell::values {
namespace {

constexpr std::uint32_t kFirst = 0x89ABCDEF;
constexpr std::uint32_t kSecond = 0xFEDCBA98;

struct TypeCase {
    const char* name;
    TypeDescription type;
    std::uint32_t width;
    const char* text;  ///< not that of a zero value
    Bytes value;
    const char* hostEntry;
    std::uint32_t kind;
    Bytes hostValue;  ///< what a setter gets and a getter gives
};

std::ostream& operator<<(std::ostream& out, const TypeCase& typeCase) {
    return out << typeCase.name;
}

Bytes TextBytes(std::string_view text, std::size_t width) {
    Bytes bytes(text.begin(), text.end());
    bytes.resize(width);
    return bytes;
}

const std::vector<TypeCase>& TypeCases() {
    using enum BaseTypeCode;
    static const std::vector<TypeCase> kCases = {
        {"Int1", {Int, 1}, 1, "-2", {0xFE}, "8", 7, {0xFE}},
        {"Int2", {Int, 2}, 2, "-2", {0xFE, 0xFF}, "16", 2, {0xFE, 0xFF}},
        {"Int4", {Int, 4}, 4, "305419896", BytesOf(0x12345678), "32", 3, BytesOf(0x12345678)},
        {"Int8",
         {Int, 8},
         8,
         "-2",
         Bytes{0xFE, 255, 255, 255, 255, 255, 255, 255},
         "64",
         8,
         Bytes{0xFE, 255, 255, 255, 255, 255, 255, 255}},
        {"UInt1", {UInt, 1}, 1, "254", {0xFE}, "8", 7, {0xFE}},
        {"UInt2", {UInt, 2}, 2, "65534", {0xFE, 0xFF}, "16", 2, {0xFE, 0xFF}},
        {"UInt4", {UInt, 4}, 4, "305419896", BytesOf(0x12345678), "32", 3, BytesOf(0x12345678)},
        {"UInt8",
         {UInt, 8},
         8,
         "81985529216486895",
         BytesOf(0x0123456789ABCDEFULL),
         "64",
         8,
         BytesOf(0x0123456789ABCDEFULL)},
        {"Float", {Float, 0}, 4, "-2.5", BytesOf(-2.5F), "Float", 4, BytesOf(-2.5F)},
        {"Double", {Double, 0}, 8, "-2.5", BytesOf(-2.5), "Double", 9, BytesOf(-2.5)},
        {"String", {String, 6}, 6, "abc", TextBytes("abc", 6), "Text", 5, TextBytes("abc", 4)},
        {"Duration", {Duration, 0}, 4, "1 h", BytesOf(3600000U), "32", 6, BytesOf(3600000U)},
        {"Time", {Time, 0}, 4, "01:00:01", BytesOf(3601U), "32", 6, BytesOf(3601U)},
        {"Date", {Date, 0}, 4, "03.01.1970", BytesOf(172800U), "32", 6, BytesOf(172800U)},
        {"DateTime",
         {DateTime, 0},
         4,
         "03.01.1970 00:00:01",
         BytesOf(172801U),
         "32",
         6,
         BytesOf(172801U)},
        {"OleDateTime",
         {OleDateTime, 0},
         8,
         "01.01.2000 18:00:00,000",
         BytesOf(36526.75),
         "Double",
         10,
         BytesOf(36526.75)},
        {"Enumerated1", {Enumerated, 1}, 1, "200", {200}, "8", 1, {200}},
        {"Enumerated2", {Enumerated, 2}, 2, "513", {1, 2}, "16", 2, {1, 2}},
        {"Enumerated4",
         {Enumerated, 4},
         4,
         "4294967295",
         BytesOf(0xFFFFFFFFU),
         "32",
         3,
         BytesOf(0xFFFFFFFFU)},
    };
    return kCases;
}

class ConverterContract : public ConverterTest, public ::testing::WithParamInterface<TypeCase> {
  protected:
    /// The value followed by bytes that no operation may touch.
    Bytes ValueAndMore() const {
        Bytes bytes = GetParam().value;
        bytes.resize(bytes.size() + kBytesBehind, kFiller);
        return bytes;
    }

    const TypeDescription& type_ = GetParam().type;
    RecordingHost host_;
};

INSTANTIATE_TEST_SUITE_P(Types, ConverterContract, ::testing::ValuesIn(TypeCases()),
                         [](const auto& instance) { return instance.param.name; });

TEST_P(ConverterContract, BufferIsUsableFromTheWidthOn) {
    const std::uint32_t width = GetParam().width;
    EXPECT_EQ(converters_.GetSize(type_), width);
    const Bytes bytes(width + 1);
    EXPECT_TRUE(converters_.HasRoom(type_, bytes));
    EXPECT_TRUE(converters_.HasRoom(type_, ConstValueBuffer(bytes).first(width)));
    EXPECT_FALSE(converters_.HasRoom(type_, ConstValueBuffer(bytes).first(width - 1)));
    EXPECT_FALSE(converters_.HasRoom(type_, {}));
}

TEST_P(ConverterContract, ReadsOnlyTheWidth) {
    EXPECT_EQ(Show(type_, ValueAndMore()), GetParam().text);
    EXPECT_EQ(Show(type_, GetParam().value), GetParam().text);
}

TEST_P(ConverterContract, TextAndValueConvertBothWays) {
    EXPECT_EQ(Parse(type_, GetParam().text), GetParam().value);
    EXPECT_EQ(Import(type_, Export(type_, GetParam().value)), GetParam().value);
    EXPECT_EQ(Import(type_, GetParam().text), GetParam().value);
}

TEST_P(ConverterContract, ShortBufferFailsEverythingButTheRawPut) {
    Bytes bytes(GetParam().width - 1, kFiller);
    const Bytes before = bytes;
    const OnlineAccessRecord online = host_.Online();
    for (const ValueBuffer buffer : {ValueBuffer(bytes), ValueBuffer()}) {
        std::string text = "left over";
        EXPECT_FALSE(converters_.ValueToText(type_, buffer, text, DisplayFormat::Default, false));
        EXPECT_NE(text, "left over");
        text = "left over";
        EXPECT_FALSE(converters_.ExportText(type_, buffer, text));
        EXPECT_NE(text, "left over");
        EXPECT_FALSE(
            converters_.TextToValue(type_, buffer, GetParam().text, DisplayFormat::Default));
        EXPECT_FALSE(converters_.ImportText(type_, GetParam().text, buffer));
        EXPECT_FALSE(converters_.PutToHost(type_, kFirst, kSecond, buffer, online));
        EXPECT_FALSE(converters_.PutToHostAlt(type_, kFirst, kSecond, buffer, online));
        EXPECT_FALSE(converters_.GetFromHost(type_, kFirst, kSecond, buffer, online));
    }
    EXPECT_EQ(bytes, before);
    EXPECT_TRUE(host_.calls.empty());
}

TEST_P(ConverterContract, TextOfUnusableBufferIsEmptyExceptForOleDates) {
    std::string text = "left over";
    converters_.ValueToText(type_, {}, text, DisplayFormat::Default, false);
    EXPECT_EQ(text, type_.baseType == BaseTypeCode::OleDateTime ? "01.01.1900 00:00:00,000" : "");
}

TEST_P(ConverterContract, SettersGetTheValueAndBothWordsUnchanged) {
    const OnlineAccessRecord online = host_.Online();
    EXPECT_TRUE(converters_.PutToHost(type_, kFirst, kSecond, ValueAndMore(), online));
    EXPECT_TRUE(converters_.PutToHostAlt(type_, kFirst, kSecond, ValueAndMore(), online));
    const std::string entry = GetParam().hostEntry;
    const std::vector<RecordingHost::Call> expected = {
        {"Put" + entry, kFirst, kSecond, GetParam().hostValue, 0, nullptr},
        {"Alt" + entry, kFirst, kSecond, GetParam().hostValue, 0, nullptr}};
    EXPECT_EQ(host_.calls, expected);
}

TEST_P(ConverterContract, GetterFillsTheValueAndNothingBeyond) {
    host_.supply = GetParam().hostValue;
    Bytes bytes(GetParam().width + kBytesBehind, kFiller);
    EXPECT_TRUE(converters_.GetFromHost(type_, kFirst, kSecond, bytes, host_.Online()));
    EXPECT_EQ(bytes, ValueAndMore());
    const std::vector<RecordingHost::Call> expected = {
        {std::string("Get") + GetParam().hostEntry, kFirst, kSecond, {}, 0, nullptr}};
    EXPECT_EQ(host_.calls, expected);
    EXPECT_EQ(host_.foundInPlace, Bytes(GetParam().width, 0)) << "not zeroed for the getter";
}

TEST_P(ConverterContract, MissingFunctionFailsAndNoOtherIsCalled) {
    const std::string entry = GetParam().hostEntry;
    Bytes bytes = ValueAndMore();
    EXPECT_FALSE(converters_.PutToHost(type_, kFirst, kSecond, bytes, host_.Online("Put" + entry)));
    EXPECT_FALSE(
        converters_.PutToHostAlt(type_, kFirst, kSecond, bytes, host_.Online("Alt" + entry)));
    EXPECT_FALSE(
        converters_.GetFromHost(type_, kFirst, kSecond, bytes, host_.Online("Get" + entry)));
    EXPECT_FALSE(converters_.PutRawToHost(type_, kFirst, kSecond, bytes, {8, nullptr}));
    EXPECT_TRUE(host_.calls.empty());
    EXPECT_EQ(bytes, ValueAndMore());
}

TEST_P(ConverterContract, FailureOfTheHostFailsAndLeavesTheValue) {
    host_.answer = 0;
    host_.supply = Bytes(GetParam().width, 'x');
    Bytes bytes = ValueAndMore();
    EXPECT_FALSE(converters_.PutToHost(type_, kFirst, kSecond, bytes, host_.Online()));
    EXPECT_FALSE(converters_.PutToHostAlt(type_, kFirst, kSecond, bytes, host_.Online()));
    EXPECT_FALSE(converters_.GetFromHost(type_, kFirst, kSecond, bytes, host_.Online()));
    EXPECT_EQ(host_.calls.size(), 3U);
    EXPECT_EQ(bytes, ValueAndMore());
    host_.supply.clear();
    EXPECT_FALSE(converters_.PutRawToHost(type_, kFirst, kSecond, bytes, host_.Fill()));
}

TEST_P(ConverterContract, EveryAnswerButZeroIsSuccess) {
    host_.answer = -1;
    Bytes bytes = ValueAndMore();
    EXPECT_TRUE(converters_.PutToHost(type_, kFirst, kSecond, bytes, host_.Online()));
    EXPECT_TRUE(converters_.GetFromHost(type_, kFirst, kSecond, bytes, host_.Online()));
    EXPECT_TRUE(converters_.PutRawToHost(type_, kFirst, kSecond, bytes, host_.Fill()));
}

TEST_P(ConverterContract, RawPutHandsOutTheBytesThemselvesWithTheKind) {
    Bytes bytes = ValueAndMore();
    EXPECT_TRUE(converters_.PutRawToHost(type_, kFirst, kSecond, bytes, host_.Fill()));
    const std::vector<RecordingHost::Call> expected = {
        {"PutRaw", kFirst, kSecond, GetParam().value, GetParam().kind, bytes.data()}};
    EXPECT_EQ(host_.calls, expected);

    host_.supply = Bytes(GetParam().width + kBytesBehind, 0x5A);
    EXPECT_TRUE(converters_.PutRawToHost(type_, kFirst, kSecond, bytes, host_.Fill()));
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), 0x5A),
              static_cast<std::ptrdiff_t>(GetParam().width));
}

TEST_P(ConverterContract, RawPutHandsOutAShortBufferButNoMissingOne) {
    EXPECT_FALSE(converters_.PutRawToHost(type_, kFirst, kSecond, {}, host_.Fill()));
    EXPECT_TRUE(host_.calls.empty());

    const Bytes whole = GetParam().value;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        host_.calls.clear();
        Bytes bytes = whole;
        EXPECT_TRUE(converters_.PutRawToHost(type_, kFirst, kSecond,
                                             ValueBuffer(bytes).first(length), host_.Fill()));
        ASSERT_EQ(host_.calls.size(), 1U);
        EXPECT_EQ(host_.calls[0].bytes, Bytes(whole.data(), whole.data() + length));
        EXPECT_EQ(host_.calls[0].kind, GetParam().kind);
    }
}

TEST_P(ConverterContract, NormalizingOnceIsEnough) {
    for (const char* text : {"", " 7", "-3.75e2", "FFh", "1:2", "1.2.2003", "4/5/2006 7:8:9,10",
                             "2 d 3 s", "12.24.2020 25:61:61", "junk", "99999999999999999999"}) {
        for (const DisplayFormat format : {DisplayFormat::Default, DisplayFormat::Signed,
                                           DisplayFormat::Unsigned, DisplayFormat::Hexadecimal}) {
            std::string once = text;
            const std::uint32_t param = converters_.NormalizeParam(type_);
            const bool isDone = converters_.Normalize(type_.baseType, param, once, format);
            std::string twice = once;
            EXPECT_EQ(converters_.Normalize(type_.baseType, param, twice, format), isDone);
            EXPECT_EQ(twice, once) << text;
        }
    }
}

TEST_P(ConverterContract, DefaultTextIsCanonical) {
    if (type_.baseType != BaseTypeCode::Enumerated) {
        EXPECT_EQ(Normalized(type_, Default(type_)), Default(type_));
    }
}

}  // namespace
}  // namespace orvell::values
