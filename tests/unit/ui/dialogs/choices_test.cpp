#include <gtest/gtest.h>

#include "ui/dialogs/format_choice.h"
#include "ui/dialogs/vector_choice.h"
#include "ui/dialogs/window_fit.h"

namespace orvell::ui {
namespace {

using resources::StringId;
using values::BaseTypeCode;
using values::DisplayFormat;

TEST(VectorChoiceTest, StartsWithWhatIsRecorded) {
    struct {
        std::uint32_t recorded;
        bool isVector;
        std::uint32_t length;
    } const cases[] = {{0, false, 1},    {1, false, 1},     {2, true, 2},
                       {999, true, 999}, {1000, true, 999}, {0xFFFFFFFFU, true, 999}};
    for (const auto& [recorded, isVector, length] : cases) {
        const VectorChoice choice(recorded);
        EXPECT_EQ(choice.IsVector(), isVector) << recorded;
        EXPECT_EQ(choice.Length(), length) << recorded;
    }
}

TEST(VectorChoiceTest, RemembersTheLengthWhileUnchecked) {
    VectorChoice choice(5);
    choice.BecomeSingle(5);
    EXPECT_FALSE(choice.IsVector());
    EXPECT_EQ(choice.Length(), 1U);
    choice.BecomeVector();
    EXPECT_EQ(choice.Length(), 5U);
    choice.BecomeSingle(0);  // the edit was empty
    choice.BecomeVector();
    EXPECT_EQ(choice.Length(), 2U);
}

TEST(VectorChoiceTest, AFirstVectorHasTwoElements) {
    VectorChoice choice(1);
    choice.BecomeVector();
    EXPECT_EQ(choice.Length(), 2U);
}

TEST(VectorChoiceTest, LimitsWhatIsTyped) {
    VectorChoice choice(5);
    for (const auto& [typed, length] :
         {std::pair{0U, 2U}, {1U, 2U}, {2U, 2U}, {3U, 3U}, {999U, 999U}, {1000U, 999U}}) {
        choice.Type(typed);
        EXPECT_EQ(choice.Length(), length) << typed;
    }
    choice.BecomeSingle(4);
    choice.Type(8);
    EXPECT_EQ(choice.Length(), 1U) << "the edit is disabled and shows 1";
    choice.BecomeVector();
    EXPECT_EQ(choice.Length(), 4U);
}

const std::vector<DisplayFormat> kIntegerFormats{DisplayFormat::Signed, DisplayFormat::Unsigned,
                                                 DisplayFormat::Hexadecimal};

TEST(FormatChoiceTest, IntegersOfferThreeFormats) {
    for (const BaseTypeCode code : {BaseTypeCode::Int, BaseTypeCode::UInt}) {
        for (const DisplayFormat wanted : kIntegerFormats) {
            const FormatChoice choice = OfferFormats(code, wanted);
            EXPECT_EQ(choice.formats, kIntegerFormats);
            EXPECT_EQ(choice.selected, wanted);
        }
    }
}

TEST(FormatChoiceTest, TheTypesOwnFormatStandsForTheDefault) {
    EXPECT_EQ(OfferFormats(BaseTypeCode::Int, DisplayFormat::Default).selected,
              DisplayFormat::Signed);
    EXPECT_EQ(OfferFormats(BaseTypeCode::UInt, DisplayFormat::Default).selected,
              DisplayFormat::Unsigned);
}

TEST(FormatChoiceTest, NothingIsOfferedWithoutAStoredFormat) {
    const FormatChoice choice = OfferFormats(BaseTypeCode::Int, std::nullopt);
    EXPECT_FALSE(choice.IsOffered());
    EXPECT_EQ(choice.selected, DisplayFormat::Default);
}

TEST(FormatChoiceTest, OtherTypesOfferNothing) {
    for (std::uint32_t code = values::kFirstBaseTypeCode + 2; code < values::kEndOfBaseTypeCodes;
         ++code) {
        const FormatChoice choice =
            OfferFormats(static_cast<BaseTypeCode>(code), DisplayFormat::Hexadecimal);
        EXPECT_FALSE(choice.IsOffered()) << code;
        EXPECT_EQ(choice.selected, DisplayFormat::Default) << code;
    }
}

TEST(FormatChoiceTest, NamesComeFromTheStringTable) {
    EXPECT_EQ(FormatName(DisplayFormat::Default), StringId::FormatDefault);
    EXPECT_EQ(FormatName(DisplayFormat::Signed), StringId::FormatSigned);
    EXPECT_EQ(FormatName(DisplayFormat::Unsigned), StringId::FormatUnsigned);
    EXPECT_EQ(FormatName(DisplayFormat::Hexadecimal), StringId::FormatHexadecimal);
}

constexpr VerticalPlace kScreen{0, 1000};
constexpr int kCaption = 20;
constexpr int kMinimum = 100;

TEST(FitHeightTest, StaysCentred) {
    const VerticalPlace higher = FitHeight({400, 200}, 300, kMinimum, kScreen, kCaption);
    EXPECT_EQ(higher.top, 350);
    EXPECT_EQ(higher.height, 300);
    const VerticalPlace lower = FitHeight({400, 200}, 120, kMinimum, kScreen, kCaption);
    EXPECT_EQ(lower.top, 440);
    EXPECT_EQ(lower.height, 120);
}

TEST(FitHeightTest, IsLimitedByTheMinimumAndTheScreen) {
    EXPECT_EQ(FitHeight({400, 200}, 50, kMinimum, kScreen, kCaption).height, kMinimum);
    EXPECT_EQ(FitHeight({400, 200}, 20'000'000, kMinimum, kScreen, kCaption).height, 960);
    EXPECT_EQ(FitHeight({0, 100}, 50, kMinimum, {0, 120}, kCaption).height, kMinimum)
        << "a small screen does not make the dialog unusable";
}

TEST(FitHeightTest, KeepsOnTheWorkArea) {
    const VerticalPlace screen{30, 1000};
    EXPECT_EQ(FitHeight({40, 100}, 300, kMinimum, screen, kCaption).top, 40);
    EXPECT_EQ(FitHeight({900, 100}, 300, kMinimum, screen, kCaption).top, 730);
    EXPECT_EQ(FitHeight({500, 100}, 5000, kMinimum, screen, kCaption).top, 70);
    EXPECT_EQ(FitHeight({-300, 100}, 100, kMinimum, screen, kCaption).top, 40);
}

}  // namespace
}  // namespace orvell::ui
