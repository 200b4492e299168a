#include <gtest/gtest.h>

#include "form_fixture.h"
#include "ui/dialogs/dialog_record.h"

namespace orvell::ui {
namespace {

using values::DisplayFormat;

std::string NameOf(const char* name, const char* extension) {
    DialogParameterRecord record{};
    record.name = name;
    record.extension = extension;
    return DialogRecord(record).DisplayName();
}

TEST(DialogRecordTest, JoinsItsTwoNames) {
    EXPECT_EQ(NameOf("Pump", "Limits"), "Pump - Limits");
    EXPECT_EQ(NameOf("Pump", ""), "Pump");
    EXPECT_EQ(NameOf("Pump", nullptr), "Pump");
    EXPECT_EQ(NameOf("", "Limits"), " - Limits");
    EXPECT_EQ(NameOf(nullptr, nullptr), "");
}

TEST(DialogRecordTest, ModeSaysWhatIsOffered) {
    DialogParameterRecord record{};
    const DialogRecord view(record);
    for (const std::uint32_t mode : {0U, 1U, 2U, 3U, 4U, 0xFFFFFFFFU}) {
        record.mode = mode;
        EXPECT_EQ(view.OffersVector(), mode == 1) << mode;
        EXPECT_EQ(view.IsOnline(), mode == 3) << mode;
    }
}

TEST(DialogRecordTest, AFormatIsThereOnlyWithItsMark) {
    DialogParameterRecord record{};
    const DialogRecord view(record);
    for (const std::uint8_t format : Bytes{0x00, 0x02, 0x7F}) {
        record.format = format;
        EXPECT_FALSE(view.Format().has_value()) << int{format};
    }
    const std::pair<std::uint8_t, DisplayFormat> marked[] = {
        {0x80, DisplayFormat::Default},     {0x81, DisplayFormat::Signed},
        {0x82, DisplayFormat::Unsigned},    {0x83, DisplayFormat::Hexadecimal},
        {0x84, DisplayFormat::Default},     {0x8F, DisplayFormat::Default},
        {0xF3, DisplayFormat::Hexadecimal},
    };
    for (const auto& [byte, format] : marked) {
        record.format = byte;
        EXPECT_EQ(view.Format(), format) << int{byte};
    }
}

TEST(DialogRecordTest, ShowsTheBoxWidthRoundedDownAndLimited) {
    const std::pair<std::uint32_t, std::uint32_t> widths[] = {
        {0, 10},  {9, 10},    {10, 10},    {12, 10},           {14, 10},          {15, 15},
        {19, 15}, {995, 995}, {1000, 995}, {0x80000000U, 995}, {0xFFFFFFFFU, 995}};
    for (const auto& [stored, shown] : widths) {
        DialogParameterRecord record{};
        record.boxWidth = stored;
        EXPECT_EQ(DialogRecord(record).ShownBoxWidth(), shown) << stored;
    }
}

TEST(DialogRecordTest, StoresTheBoxWidthRoundedUpWithoutLimit) {
    const std::pair<std::uint32_t, std::uint32_t> widths[] = {{0, 10},
                                                              {1, 10},
                                                              {10, 10},
                                                              {11, 15},
                                                              {12, 15},
                                                              {15, 15},
                                                              {995, 995},
                                                              {996, 1000},
                                                              {999, 1000},
                                                              {1000, 1000},
                                                              {0xFFFFFFFEU, 0xFFFFFFFFU},
                                                              {0xFFFFFFFFU, 0xFFFFFFFFU}};
    for (const auto& [typed, stored] : widths) {
        DialogParameterRecord record{};
        EXPECT_TRUE(
            DialogRecord(record).Store({.vectorLength = 1, .value = {}, .boxWidth = typed}));
        EXPECT_EQ(record.boxWidth, stored) << typed;
    }
}

TEST(DialogRecordTest, KeepsAFormatOnlyWithItsMark) {
    const std::pair<std::uint8_t, std::uint8_t> bytes[] = {
        {0x80, 0x82}, {0x83, 0x82}, {0xFF, 0xF2}, {0x00, 0x00}, {0x03, 0x00}, {0x7F, 0x70}};
    for (const auto& [before, after] : bytes) {
        DialogParameterRecord record{};
        record.format = before;
        EXPECT_TRUE(DialogRecord(record).Store({.value = {}, .format = DisplayFormat::Unsigned}));
        EXPECT_EQ(record.format, after) << int{before};
    }
}

TEST(DialogRecordTest, AValueOfTheSameLengthStaysWhereItIs) {
    OwnedDialogRecord owned(1, {1, 2, 3});
    const void* before = owned.record.bytes;
    const Bytes value{4, 5, 6};
    EXPECT_TRUE(DialogRecord(owned.record).Store({.vectorLength = 7, .value = value}));
    EXPECT_EQ(owned.record.bytes, before);
    EXPECT_EQ(owned.Value(), value);
    EXPECT_EQ(owned.record.count, 7U);
}

TEST(DialogRecordTest, AValueOfAnotherLengthGetsABlockOfItsOwn) {
    OwnedDialogRecord owned(1, {1, 2, 3});
    for (const Bytes& value : {Bytes{4, 5, 6, 7}, Bytes{8}, Bytes{}, Bytes{9}}) {
        EXPECT_TRUE(DialogRecord(owned.record).Store({.value = value}));
        EXPECT_EQ(owned.Value(), value);
        EXPECT_EQ(owned.record.length, value.size());
    }
}

TEST(DialogRecordTest, ALengthWithoutBytesIsNoValue) {
    DialogParameterRecord record{};
    record.length = 1000;
    EXPECT_TRUE(DialogRecord(record).Value().empty());
    EXPECT_TRUE(DialogRecord(record).Store({.value = {}}));
    EXPECT_EQ(record.length, 0U);
}

}  // namespace
}  // namespace orvell::ui
