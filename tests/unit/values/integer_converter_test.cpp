#include "unit/values/converter_test.h"

namespace orvell::values {
namespace {

using IntegerConverterTest = ConverterTest;

constexpr DisplayFormat kDefault = DisplayFormat::Default;
constexpr DisplayFormat kSigned = DisplayFormat::Signed;
constexpr DisplayFormat kUnsigned = DisplayFormat::Unsigned;
constexpr DisplayFormat kHexadecimal = DisplayFormat::Hexadecimal;

TypeDescription Int(std::uint32_t size) {
    return {BaseTypeCode::Int, size};
}

TypeDescription UInt(std::uint32_t size) {
    return {BaseTypeCode::UInt, size};
}

TEST_F(IntegerConverterTest, WidthComesFromTheDeclaredSize) {
    const std::uint32_t kWidths[][2] = {{0, 2}, {1, 1}, {2, 2}, {3, 4},  {4, 4},
                                        {5, 8}, {6, 8}, {8, 8}, {99, 8}, {0xFFFFFFFF, 8}};
    for (const auto& [size, width] : kWidths) {
        EXPECT_EQ(converters_.GetSize(Int(size)), width) << size;
        EXPECT_EQ(converters_.GetSize(UInt(size)), width) << size;
        EXPECT_EQ(converters_.NormalizeParam(Int(size)), width) << size;
    }
}

/// The stored value and its texts in the formats signed, unsigned and hexadecimal.
struct Limit {
    std::uint32_t width;
    std::uint64_t value;
    const char* signedText;
    const char* unsignedText;
    const char* hexadecimalText;
};

constexpr Limit kLimits[] = {
    {1, 0, "0", "0", "0h"},
    {1, 1, "1", "1", "1h"},
    {1, 0x7F, "127", "127", "7Fh"},
    {1, 0x80, "-128", "128", "80h"},
    {1, 0xFF, "-1", "255", "FFh"},
    {2, 0x7FFF, "32767", "32767", "7FFFh"},
    {2, 0x8000, "-32768", "32768", "8000h"},
    {2, 0xFFFF, "-1", "65535", "FFFFh"},
    {2, 0x00FF, "255", "255", "FFh"},
    {4, 0x7FFFFFFF, "2147483647", "2147483647", "7FFFFFFFh"},
    {4, 0x80000000, "-2147483648", "2147483648", "80000000h"},
    {4, 0xFFFFFFFF, "-1", "4294967295", "FFFFFFFFh"},
    {8, 0x7FFFFFFFFFFFFFFF, "9223372036854775807", "9223372036854775807", "7FFFFFFFFFFFFFFFh"},
    {8, 0x8000000000000000, "-9223372036854775808", "9223372036854775808", "8000000000000000h"},
    {8, 0xFFFFFFFFFFFFFFFF, "-1", "18446744073709551615", "FFFFFFFFFFFFFFFFh"},
};

TEST_F(IntegerConverterTest, ShowsAndReadsTheLimitsOfEachWidth) {
    for (const Limit& limit : kLimits) {
        const Bytes bytes = IntegerBytes(limit.value, limit.width);
        for (const TypeDescription& type : {Int(limit.width), UInt(limit.width)}) {
            const bool isInt = type.baseType == BaseTypeCode::Int;
            const std::string defaultText = isInt ? limit.signedText : limit.unsignedText;
            EXPECT_EQ(Show(type, bytes, kDefault), defaultText);
            EXPECT_EQ(Show(type, bytes, kSigned), limit.signedText);
            EXPECT_EQ(Show(type, bytes, kUnsigned), limit.unsignedText);
            EXPECT_EQ(Show(type, bytes, kHexadecimal), limit.hexadecimalText);
            EXPECT_EQ(Export(type, bytes), defaultText);
            for (const char* text : {limit.signedText, limit.unsignedText}) {
                EXPECT_EQ(Parse(type, text, kDefault), bytes) << text;
                EXPECT_EQ(Parse(type, text, kSigned), bytes) << text;
                EXPECT_EQ(Parse(type, text, kUnsigned), bytes) << text;
                EXPECT_EQ(Import(type, text), bytes) << text;
                EXPECT_EQ(Normalized(type, text, kDefault), defaultText);
                EXPECT_EQ(Normalized(type, text, kSigned), limit.signedText);
                EXPECT_EQ(Normalized(type, text, kUnsigned), limit.unsignedText);
            }
            EXPECT_EQ(Parse(type, limit.hexadecimalText, kHexadecimal), bytes);
            EXPECT_EQ(Normalized(type, limit.hexadecimalText, kHexadecimal), limit.hexadecimalText);
        }
    }
}

TEST_F(IntegerConverterTest, CutsWhatExceedsTheWidth) {
    EXPECT_EQ(Parse(Int(1), "300"), (Bytes{44}));
    EXPECT_EQ(Parse(Int(1), "128"), (Bytes{0x80}));
    EXPECT_EQ(Parse(Int(1), "-129"), (Bytes{0x7F}));
    EXPECT_EQ(Parse(UInt(1), "256"), (Bytes{0}));
    EXPECT_EQ(Parse(Int(2), "32768"), (Bytes{0x00, 0x80}));
    EXPECT_EQ(Parse(Int(2), "-32769"), (Bytes{0xFF, 0x7F}));
    EXPECT_EQ(Parse(UInt(2), "65536"), (Bytes{0, 0}));
    EXPECT_EQ(Parse(Int(4), "2147483648"), BytesOf(0x80000000U));
    EXPECT_EQ(Parse(UInt(4), "4294967296"), BytesOf(0U));
    EXPECT_EQ(Parse(Int(8), "9223372036854775808"), BytesOf(0x8000000000000000ULL));
    EXPECT_EQ(Parse(UInt(8), "18446744073709551616"), BytesOf(0ULL));
    EXPECT_EQ(Parse(UInt(1), "1FFh", kHexadecimal), (Bytes{0xFF}));
    EXPECT_EQ(Normalized(Int(1), "300"), "44");
    EXPECT_EQ(Normalized(Int(1), "200"), "-56");
    EXPECT_EQ(Normalized(UInt(1), "-1"), "255");
    EXPECT_EQ(Normalized(Int(2), "12345h", kHexadecimal), "2345h");
}

TEST_F(IntegerConverterTest, ReadsWhatSpellsNoNumberAsZeroOrItsLeadingPart) {
    for (const char* text : {"", " ", "abc", "-", ",5", "h"}) {
        EXPECT_EQ(Parse(Int(2), text), (Bytes{0, 0})) << text;
        EXPECT_EQ(Normalized(Int(2), text), "0") << text;
    }
    EXPECT_EQ(Parse(Int(2), " +12abc"), (Bytes{12, 0}));
    EXPECT_EQ(Parse(Int(2), "FFh"), (Bytes{0, 0}));
    EXPECT_EQ(Parse(Int(2), "1,96"), (Bytes{1, 0}));
    EXPECT_EQ(Parse(Int(2), "-1", kHexadecimal), (Bytes{0, 0}));
    EXPECT_EQ(Normalized(UInt(2), "0x1f", kHexadecimal), "1Fh");
    EXPECT_EQ(Normalized(UInt(2), "x1", kHexadecimal), "0h");
}

TEST_F(IntegerConverterTest, ImportsDecimalCommasAndExponents) {
    EXPECT_EQ(Import(Int(2), "2,96"), (Bytes{3, 0}));
    EXPECT_EQ(Import(Int(2), "2,94"), (Bytes{2, 0}));
    EXPECT_EQ(Import(Int(2), "1e3"), (Bytes{0xE8, 3}));
    EXPECT_EQ(Import(Int(2), "3.7"), (Bytes{3, 0}));
    EXPECT_EQ(Import(Int(2), "1,5"), (Bytes{1, 0}));
    EXPECT_EQ(Import(Int(2), "1,96"), (Bytes{2, 0}));
    EXPECT_EQ(Import(Int(1), "-1,96"), (Bytes{0xFE}));
    EXPECT_EQ(Import(UInt(1), "3e2"), (Bytes{44}));
    EXPECT_EQ(Import(UInt(8), "18446744073709551615"), Bytes(8, 0xFF));
    EXPECT_EQ(Import(UInt(8), "1e300"), Import(Int(8), "1e300"));
    EXPECT_EQ(Import(Int(2), "FEh"), (Bytes{0, 0}));
}

TEST_F(IntegerConverterTest, DefaultTextIsZero) {
    for (const TypeDescription& type : {Int(4), UInt(1)}) {
        EXPECT_EQ(Default(type, kDefault), "0");
        EXPECT_EQ(Default(type, kSigned), "0");
        EXPECT_EQ(Default(type, kUnsigned), "0");
        EXPECT_EQ(Default(type, kHexadecimal), "0h");
    }
}

TEST_F(IntegerConverterTest, UnknownFormatsShowAsDefault) {
    const auto unknown = static_cast<DisplayFormat>(4);
    EXPECT_EQ(Show(Int(1), {0xFF}, unknown), "-1");
    EXPECT_EQ(Show(UInt(1), {0xFF}, unknown), "255");
    EXPECT_EQ(Parse(Int(1), "10", unknown), (Bytes{10}));
}

TEST_F(IntegerConverterTest, NormalizeStandsWidthsThatNoIntegerHas) {
    const auto normalized = [&](std::uint32_t width, std::string text, DisplayFormat format) {
        EXPECT_TRUE(converters_.Normalize(BaseTypeCode::Int, width, text, format));
        return text;
    };
    EXPECT_EQ(normalized(0, "5", kDefault), "0");
    EXPECT_EQ(normalized(0, "5", kHexadecimal), "");
    EXPECT_EQ(normalized(3, "16777215", kDefault), "-1");
    EXPECT_EQ(normalized(9, "-1", kUnsigned), "18446744073709551615");
    EXPECT_EQ(normalized(9, "5", kHexadecimal), "");
}

TEST_F(IntegerConverterTest, EveryByteReadsBackInEveryFormat) {
    for (std::uint32_t value = 0; value <= 0xFF; ++value) {
        const Bytes bytes = IntegerBytes(value, 1);
        for (const DisplayFormat format : {kDefault, kSigned, kUnsigned, kHexadecimal}) {
            ASSERT_EQ(Parse(Int(1), Show(Int(1), bytes, format), format), bytes);
            ASSERT_EQ(Parse(UInt(1), Show(UInt(1), bytes, format), format), bytes);
        }
    }
}

std::uint32_t lastWord = 0;

/// What a host sees that looks at the whole word which carries the argument.
std::int32_t ORVELL_CALL PutWholeWord(std::uint32_t, std::uint32_t, std::uint32_t word) {
    lastWord = word;
    return 1;
}

template <typename Setter>
void SetWholeWordSetter(Setter& setter) {
    setter = reinterpret_cast<Setter>(reinterpret_cast<void*>(PutWholeWord));
}

TEST_F(IntegerConverterTest, ShortNumbersContinueInTheWordThatCarriesThem) {
    OnlineAccessRecord host = {};
    SetWholeWordSetter(host.setters.Put8);
    SetWholeWordSetter(host.setters.Put16);
    const TypeDescription kEnumerated[] = {{BaseTypeCode::Enumerated, 1},
                                           {BaseTypeCode::Enumerated, 2}};
    for (const std::uint32_t width : {1U, 2U}) {
        const Bytes bytes = IntegerBytes(0xFFFFFFFE, width);
        EXPECT_TRUE(converters_.PutToHost(Int(width), 0, 0, bytes, host));
        EXPECT_EQ(lastWord, 0xFFFFFFFE) << width;
        EXPECT_TRUE(converters_.PutToHost(UInt(width), 0, 0, bytes, host));
        EXPECT_EQ(lastWord, width == 1 ? 0xFEU : 0xFFFEU);
        EXPECT_TRUE(converters_.PutToHost(kEnumerated[width - 1], 0, 0, bytes, host));
        EXPECT_EQ(lastWord, width == 1 ? 0xFEU : 0xFFFEU);
        EXPECT_TRUE(converters_.PutToHost(Int(width), 0, 0, IntegerBytes(0x7F, width), host));
        EXPECT_EQ(lastWord, 0x7FU);
    }
}

}  // namespace
}  // namespace orvell::values
