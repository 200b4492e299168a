#include "ui/grid/grid_wheel.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace orvell::ui {
namespace {

constexpr int kNotch = 120;
constexpr int kPage = 20;

/// A registry with one value.
class OneValue final : public platform::Registry {
  public:
    explicit OneValue(std::optional<std::string> text) : text_(std::move(text)) {}

    std::optional<std::string> ReadText(platform::RegistryRoot root, const std::string& key,
                                        const std::string& valueName) const override {
        const bool isAsked = root == platform::RegistryRoot::CurrentUser &&
                             key == "Control Panel\\Desktop" && valueName == "WheelScrollLines";
        return isAsked ? text_ : std::nullopt;
    }

  private:
    std::optional<std::string> text_;
};

TEST(WheelRows, AreTheSystems) {
    EXPECT_EQ(WheelRows(5, OneValue("7")), 5U);
    EXPECT_EQ(WheelRows(0, OneValue("7")), 0U);
}

TEST(WheelRows, AreTheRegistrysWhenTheSystemTellsNothing) {
    EXPECT_EQ(WheelRows(std::nullopt, OneValue("7")), 7U);
    EXPECT_EQ(WheelRows(std::nullopt, OneValue("-1")), kWheelPage);
    EXPECT_EQ(WheelRows(std::nullopt, OneValue("4294967295")), kWheelPage);
}

TEST(WheelRows, AreThreeWhenNothingElseIsKnown) {
    EXPECT_EQ(WheelRows(std::nullopt, OneValue(std::nullopt)), 3U);
    for (const char* const text : {"", "x", "3x", "-2", "4294967296", " 7"}) {
        EXPECT_EQ(WheelRows(std::nullopt, OneValue(text)), 3U) << text;
    }
}

TEST(WheelCounter, ScrollsByRowsForEachNotch) {
    WheelCounter counter;
    EXPECT_EQ(counter.RowsFor(-kNotch, 3, kPage), 3) << "towards the user is towards the end";
    EXPECT_EQ(counter.RowsFor(2 * kNotch, 3, kPage), -6);
    EXPECT_EQ(counter.RowsFor(kNotch, 0, kPage), 0);
}

TEST(WheelCounter, AddsPartsOfANotchUp) {
    WheelCounter counter;
    EXPECT_EQ(counter.RowsFor(-30, 3, kPage), 0);
    EXPECT_EQ(counter.RowsFor(-30, 3, kPage), 1);
    EXPECT_EQ(counter.RowsFor(-60, 3, kPage), 2);
    EXPECT_EQ(counter.RowsFor(-30, 3, kPage), 0);
}

TEST(WheelCounter, ForgetsTheRestWhenTheWheelTurnsBack) {
    WheelCounter counter;
    EXPECT_EQ(counter.RowsFor(-39, 3, kPage), 0);
    EXPECT_EQ(counter.RowsFor(40, 3, kPage), -1);
    EXPECT_EQ(counter.RowsFor(39, 3, kPage), 0);
    EXPECT_EQ(counter.RowsFor(-40, 3, kPage), 1);
}

TEST(WheelCounter, ScrollsNoMoreThanAPage) {
    WheelCounter counter;
    EXPECT_EQ(counter.RowsFor(-kNotch, kWheelPage, kPage), kPage);
    EXPECT_EQ(counter.RowsFor(-kNotch, 100, kPage), kPage);
    EXPECT_EQ(counter.RowsFor(-kNotch, 3, 0), 1) << "a grid without room";
    EXPECT_EQ(counter.RowsFor(std::numeric_limits<short>::min(), kWheelPage, 1000), 273066);
}

}  // namespace
}  // namespace orvell::ui
