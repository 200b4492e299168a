#include "slots_fixture.h"

namespace orvell::host {
namespace {

using ConfigurationSlotsTest = SlotsTest;

constexpr const char* kLoadFailed =
    "Die Konfigurationsdatei mit den Standardspeicherstrukturen konnte nicht geladen werden, "
    "weil:\n\n";
constexpr const char* kPathUnknown =
    "Der Pfad zur Konfigurationsdatei mit den Standardspeicherstrukturen konnte nicht ermittelt "
    "werden.";

TEST_F(ConfigurationSlotsTest, LoadingWithoutAPathIsReported) {
    int window = 0;
    ConfigurationRecord record{sizeof(ConfigurationRecord), &window, ""};
    slots::LoadStdMemConfig(&record, 1);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, std::string(kLoadFailed) + kPathUnknown);
    EXPECT_EQ(messages.shown[0].caption, "Orvell");
    EXPECT_EQ(messages.shown[0].owner, &window);
    EXPECT_FALSE(messages.shown[0].topMost);
    EXPECT_EQ(messages.shown[0].symbol, platform::MessageSymbol::None);
    EXPECT_EQ(slots::GetStdStructSize(kWord), 2U) << "nothing was loaded";
}

TEST_F(ConfigurationSlotsTest, WithoutAnOwnerMessagesAreTopMost) {
    slots::LoadStdMemConfig(nullptr, 1);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].owner, nullptr);
    EXPECT_TRUE(messages.shown[0].topMost);
}

TEST_F(ConfigurationSlotsTest, WithoutAnyFileOnlyTheImplicitTypesRemain) {
    ConfigurationRecord record{sizeof(ConfigurationRecord), nullptr, "nowhere\\none.prj"};
    slots::LoadStdMemConfig(&record, 1);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(slots::GetStdStructSize(kWord), 0U);
    EXPECT_EQ(TheModule().store.Types().size(), 4U);
}

/// A host whose message loop, running while the box is open, sends the request once more.
class RepeatedRequest final : public platform::MessageBoxes {
  public:
    void Show(const platform::Message&) override {
        ++shown;
        if (shown < 3) {
            slots::LoadStdMemConfig(nullptr, 1);
        }
    }

    bool Ask(const platform::Message&) override { return false; }

    int shown = 0;
};

TEST_F(ConfigurationSlotsTest, ARequestThatComesAgainWhileItsMessageIsOpenDoesNothing) {
    RepeatedRequest boxes;
    const SystemServices services{loader, boxes, TestServices().moduleFileName,
                                  TestServices().openStrings};
    UseModule(services);
    slots::LoadStdMemConfig(nullptr, 1);
    EXPECT_EQ(boxes.shown, 1);
}

/// A string table that runs out of memory.
class NoMemory final : public platform::StringSource {
  public:
    std::string Load(std::uint32_t) const override { throw std::bad_alloc(); }
};

TEST_F(ConfigurationSlotsTest, ALoadThatRunsOutOfMemoryLeavesNothingHalfDone) {
    const NoMemory noMemory;
    TheModule().strings.UseSource(noMemory);
    TheModule().store.SetCurrentPath("C:\\OLD.STDMEMXML");
    ConfigurationRecord record{sizeof(ConfigurationRecord), nullptr, "nowhere\\none.prj"};
    slots::LoadStdMemConfig(&record, 1);
    EXPECT_TRUE(TheModule().store.Types().empty());
    EXPECT_TRUE(TheModule().store.Areas().empty());
    EXPECT_EQ(TheModule().store.GetCurrentPath(), "");
    EXPECT_EQ(TheModule().configCallStamp, 1U);
}

TEST_F(ConfigurationSlotsTest, TheSameTokenActsOnceAcrossAllSlots) {
    slots::LoadStdMemConfig(nullptr, 0);
    EXPECT_TRUE(messages.shown.empty()) << "0 is the token remembered at the start";
    slots::LoadStdMemConfig(nullptr, 5);
    slots::LoadStdMemConfig(nullptr, 5);
    EXPECT_EQ(messages.shown.size(), 1U);
    slots::CloseStdMemConfig(5);
    EXPECT_EQ(slots::GetStdStructSize(kWord), 2U) << "closing with the same token does nothing";
    slots::CloseStdMemConfig(6);
    EXPECT_EQ(slots::GetStdStructSize(kWord), 0U);
    slots::ExportStdMemConfig(nullptr, nullptr, 6);
    EXPECT_EQ(messages.shown.size(), 1U);
    slots::LoadStdMemConfig(nullptr, 5);
    EXPECT_EQ(messages.shown.size(), 2U) << "only the last token is remembered";
}

TEST_F(ConfigurationSlotsTest, SavingWithoutALoadedProjectFileDoesNothing) {
    ConfigurationRecord record{sizeof(ConfigurationRecord), nullptr, "nowhere\\none.prj"};
    slots::SaveStdMemConfig(&record, 1);
    slots::SaveStdMemConfig(nullptr, 2);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ConfigurationSlotsTest, AFailedSaveIsReported) {
    TheModule().store.SetCurrentPath("NOWHERE\\GONE.STDMEMXML");
    ConfigurationRecord record{sizeof(ConfigurationRecord), nullptr, "nowhere\\new.prj"};
    slots::SaveStdMemConfig(&record, 1);
    slots::SaveStdMemConfig(nullptr, 2);
    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_EQ(messages.shown[0].text,
              "Fehler !   Die Konfigurationsdatei mit den Standardspeicherstrukturen konnte nicht "
              "gespeichert werden.");
    EXPECT_EQ(messages.shown[1].text, messages.shown[0].text);
}

TEST_F(ConfigurationSlotsTest, AFailedExportIsReported) {
    ConfigurationRecord record{sizeof(ConfigurationRecord), nullptr, "nowhere\\none.prj"};
    slots::ExportStdMemConfig(&record, "C:\\TARGET", 1);
    slots::ExportStdMemConfig(&record, nullptr, 2);
    slots::ExportStdMemConfig(nullptr, "C:\\TARGET", 3);
    ASSERT_EQ(messages.shown.size(), 3U);
    EXPECT_EQ(messages.shown[2].text,
              "Fehler !   Die Konfigurationsdatei mit den Standardspeicherstrukturen konnte nicht "
              "exportiert werden.");
}

TEST_F(ConfigurationSlotsTest, AMergeWithNothingToReadIsSilentAndKeepsTheStore) {
    ConfigurationRecord record{sizeof(ConfigurationRecord), nullptr, "nowhere\\none.prj"};
    slots::MergeStdMemConfig(&record, nullptr, 1);
    slots::MergeStdMemConfig(nullptr, "C:\\SOURCE", 2);
    slots::MergeStdMemConfig(&record, "C:\\SOURCE", 3);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(slots::GetStdStructSize(kWord), 2U);
}

}  // namespace
}  // namespace orvell::host
