#include "unit/values/converter_test.h"

namespace orvell::values {
namespace {

class EnumeratedConverterTest : public ConverterTest {
  protected:
    [[nodiscard]] TypeDescription Enumerated(std::uint32_t size) const {
        return {BaseTypeCode::Enumerated, size, DateFormatCode::None, &items_};
    }

    const EnumItemList items_{{{"On", 1},
                               {"", 0},
                               {"off", 2},
                               {"Fault", 300},
                               {"Twin", 70000},
                               {"Twin", 5},
                               {"7", 9},
                               {"Last", 0xFFFFFFFF}}};
};

TEST_F(EnumeratedConverterTest, WidthComesFromTheDeclaredSize) {
    const std::uint32_t kWidths[][2] = {{0, 2}, {1, 1}, {2, 2},         {3, 4},
                                        {4, 4}, {8, 4}, {0xFFFFFFFF, 4}};
    for (const auto& [size, width] : kWidths) {
        EXPECT_EQ(converters_.GetSize(Enumerated(size)), width) << size;
        EXPECT_EQ(converters_.NormalizeParam(Enumerated(size)), width) << size;
    }
}

TEST_F(EnumeratedConverterTest, ShowsTheNameOrElseTheNumber) {
    EXPECT_EQ(Show(Enumerated(1), {1}), "On");
    EXPECT_EQ(Show(Enumerated(2), {0x2C, 1}), "Fault");
    EXPECT_EQ(Show(Enumerated(4), BytesOf(70000U)), "Twin");
    EXPECT_EQ(Show(Enumerated(4), BytesOf(0xFFFFFFFFU)), "Last");
    EXPECT_EQ(Show(Enumerated(1), {0}), "0");  // its name is empty
    EXPECT_EQ(Show(Enumerated(1), {3}), "3");  // between two items
    EXPECT_EQ(Show(Enumerated(1), {0xFF}), "255");
    EXPECT_EQ(Show(Enumerated(2), {0xFF, 0xFF}), "65535");
    EXPECT_EQ(Show(Enumerated(4), BytesOf(0xFFFFFFFEU)), "4294967294");
    EXPECT_EQ(Export(Enumerated(1), {1}), "On");
}

TEST_F(EnumeratedConverterTest, ReadsTheExactNameOrElseANumber) {
    EXPECT_EQ(Parse(Enumerated(2), "On"), (Bytes{1, 0}));
    EXPECT_EQ(Parse(Enumerated(2), "on"), (Bytes{0, 0}));
    EXPECT_EQ(Parse(Enumerated(2), "On "), (Bytes{0, 0}));
    EXPECT_EQ(Parse(Enumerated(2), "2"), (Bytes{2, 0}));
    EXPECT_EQ(Parse(Enumerated(2), "7"), (Bytes{9, 0}));  // a name that looks like a number
    EXPECT_EQ(Parse(Enumerated(2), " 7"), (Bytes{7, 0}));
    EXPECT_EQ(Parse(Enumerated(2), "12 x"), (Bytes{12, 0}));
    EXPECT_EQ(Parse(Enumerated(2), "-1"), (Bytes{0xFF, 0xFF}));
    EXPECT_EQ(Parse(Enumerated(4), "4294967297"), BytesOf(1U));
    EXPECT_EQ(Parse(Enumerated(4), "3000000000"), BytesOf(3000000000U));
    EXPECT_EQ(Import(Enumerated(2), "Fault"), (Bytes{0x2C, 1}));
}

TEST_F(EnumeratedConverterTest, OfTwoEqualNamesTheSmallerValueCounts) {
    EXPECT_EQ(Parse(Enumerated(4), "Twin"), BytesOf(5U));
}

TEST_F(EnumeratedConverterTest, CutsWhatExceedsTheWidth) {
    EXPECT_EQ(Parse(Enumerated(1), "Fault"), (Bytes{0x2C}));
    EXPECT_EQ(Parse(Enumerated(1), "256"), (Bytes{0}));
    EXPECT_EQ(Parse(Enumerated(1), "255"), (Bytes{0xFF}));
    EXPECT_EQ(Parse(Enumerated(2), "Last"), (Bytes{0xFF, 0xFF}));
}

TEST_F(EnumeratedConverterTest, DefaultTextIsTheFirstName) {
    EXPECT_EQ(Default(Enumerated(2)), "On");
    const EnumItemList unnamed({{"", 1}, {"", 2}});
    EXPECT_EQ(Default({BaseTypeCode::Enumerated, 2, DateFormatCode::None, &unnamed}), "0");
    EXPECT_EQ(Default({BaseTypeCode::Enumerated, 2}), "0");
}

TEST_F(EnumeratedConverterTest, WithoutItemsTheNumberIsShownAndRead) {
    const TypeDescription type = {BaseTypeCode::Enumerated, 2};
    EXPECT_EQ(Show(type, {1, 0}), "1");
    EXPECT_EQ(Parse(type, "513"), (Bytes{1, 2}));
    EXPECT_EQ(Parse(type, "On"), (Bytes{0, 0}));
}

TEST_F(EnumeratedConverterTest, NormalizeDoesNothing) {
    std::string text = "Fault ";
    EXPECT_FALSE(converters_.Normalize(BaseTypeCode::Enumerated, 2, text, DisplayFormat::Default));
    EXPECT_EQ(text, "Fault ");
}

}  // namespace
}  // namespace orvell::values
