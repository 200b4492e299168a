#include <cstring>
#include <vector>

#include "paramlist/value_access.h"
#include "slots_fixture.h"
#include "values/stored_value.h"

namespace orvell::host {
namespace {

class ResolveSlotTest : public SlotsTest {
  protected:
    ResolveSlotTest() { List().BuildKinds(); }

    static paramlist::ParameterList& List() { return TheModule().parameters; }

    static ParameterDescriptionRecord Wanted(std::int32_t id, std::uint32_t count) {
        ParameterDescriptionRecord record{};
        record.size = sizeof record;
        record.identifier = id;
        record.count = count;
        return record;
    }

    /// The value's leaves as the host gets them from the module; "refused" when it cannot be built.
    static std::string Resolve(ParameterDescriptionRecord record) {
        const ParameterDescriptionRecord before = record;
        if (slots::ResolveStdParameter(&record) == 0) {
            EXPECT_EQ(std::memcmp(&record, &before, sizeof record), 0);
            return "refused";
        }
        ParameterRecord value =
            Record(record.identifier, record.bytes, record.length, record.count);
        NameListNode* list = slots::GetStdParameterTextList(&value);
        std::string leaves;
        for (const NameListNode* node = list; node != nullptr; node = node->next) {
            leaves += std::string(node->first) + "=" + node->second + ";";
        }
        slots::FreeStdTextList(list);
        slots::FreeStdMemory(record.bytes);
        return leaves;
    }

    /// Builds a value from (path, text) pairs; null texts are passed on.
    static std::string FromTexts(std::int32_t id, std::uint32_t count,
                                 const std::vector<std::pair<const char*, const char*>>& pairs) {
        std::vector<NameListNode> nodes(pairs.size());
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            nodes[i] = {const_cast<char*>(pairs[i].first), const_cast<char*>(pairs[i].second),
                        i + 1 < pairs.size() ? &nodes[i + 1] : nullptr};
        }
        ParameterDescriptionRecord record = Wanted(id, count);
        record.texts = nodes.data();
        record.address = "no such kind";
        return Resolve(record);
    }

    static std::string FromList(std::int32_t id, std::uint32_t count, const char* address) {
        ParameterDescriptionRecord record = Wanted(id, count);
        record.address = address;
        return Resolve(record);
    }

    static void Set(const char* address, double value) {
        EXPECT_TRUE(paramlist::SetFromDouble(List(), address, value, {}));
    }

    static void SetText(const char* address, const char* value) {
        EXPECT_TRUE(paramlist::SetFromText(List(), address, value));
    }
};

TEST_F(ResolveSlotTest, StoresTextsByTheirPaths) {
    EXPECT_EQ(FromTexts(kPoint, 1, {{"y[1]", "7"}, {"x", "-3"}}), "x=-3;y[0]=0;y[1]=7;");
    EXPECT_EQ(FromTexts(kPoint, 2, {{"[1].y[0]", "5"}}),
              "[0].x=0;[0].y[0]=0;[0].y[1]=0;[1].x=0;[1].y[0]=5;[1].y[1]=0;");
    EXPECT_EQ(FromTexts(kWord, 0, {{"", "12"}}), "=12;");
    EXPECT_EQ(FromTexts(kWord, 2, {{"[1]", "12"}, {"[1]", "13"}}), "[0]=0;[1]=13;")
        << "the last text of a path stays";
    EXPECT_EQ(FromTexts(kText, 1, {{nullptr, "\"ab\""}}), "=\"ab\";");
}

TEST_F(ResolveSlotTest, GivesEachOfSeveralLeavesOfOnePathItsOwnText) {
    EXPECT_EQ(FromTexts(kTwins, 1, {{"x", "1"}, {"x", "2"}}), "x=1;x=2;");
    EXPECT_EQ(FromTexts(kTwins, 1, {{"x", "1"}}), "x=1;x=1;");
    EXPECT_EQ(FromTexts(kTwins, 1, {{"x", "1"}, {"x", "2"}, {"x", "3"}}), "x=1;x=3;");
    EXPECT_EQ(FromTexts(kTwins, 1, {{"x", "1"}, {"zzz", "9"}}), "refused");
}

TEST_F(ResolveSlotTest, RefusesUnknownPaths) {
    EXPECT_EQ(FromTexts(kPoint, 1, {{"x", "1"}, {"z", "1"}}), "refused");
    EXPECT_EQ(FromTexts(kPoint, 1, {{"[0].x", "1"}}), "refused");
    EXPECT_EQ(FromTexts(kAll, 1, {{"lost", "1"}}), "refused");
}

TEST_F(ResolveSlotTest, RefusesTextsThatSpellNoValue) {
    EXPECT_EQ(FromTexts(kTime, 1, {{"", "12:00:00"}}), "=12:00:00;");
    EXPECT_EQ(FromTexts(kTime, 1, {{"", "noon"}}), "refused");
    EXPECT_EQ(FromTexts(kMode, 1, {{"", "Neither"}}), "=0;") << "no name is no failure";
}

TEST_F(ResolveSlotTest, GivesBackWhatTheLeafListTells) {
    EXPECT_EQ(FromTexts(kAll, 1,
                        {{"n.x", "-1"},
                         {"n.y[0]", "2"},
                         {"n.y[1]", "3"},
                         {"f", "1,5"},
                         {"o", "29.02.2024 12:00:00;500"},
                         {"m", "Off"}}),
              "n.x=-1;n.y[0]=2;n.y[1]=3;f=1,5;o=29.02.2024 12:00:00;500;m=Off;");
}

TEST_F(ResolveSlotTest, TakesConsecutiveParameters) {
    Set("PW10", 65535);
    Set("PW12", 3);
    EXPECT_EQ(FromList(kPoint, 1, "PW10"), "x=-1;y[0]=0;y[1]=3;") << "PW11 does not exist";
    EXPECT_EQ(FromList(kWord, 3, "PW10"), "[0]=-1;[1]=0;[2]=3;");
    EXPECT_EQ(FromList(kWord, 2, "PW4294967295"), "[0]=0;[1]=0;");
    EXPECT_EQ(List().FindKind("PW")->Find(11), nullptr) << "reading creates nothing";
}

TEST_F(ResolveSlotTest, TakesNumbersInTheFormOfTheLeaf) {
    Set("PF1", 2.75);
    Set("PF2", -2.75);
    EXPECT_EQ(FromList(kWord, 2, "PF1"), "[0]=2;[1]=-2;");
    Set("PW7", -5);
    EXPECT_EQ(FromList(kAll, 1, "PW4"), "n.x=0;n.y[0]=0;n.y[1]=0;f=-5;o=00:00:00;000;m=0;")
        << "a word is signed";
    Set("PL6", -7);
    Set("PL7", -7);
    EXPECT_EQ(FromList(kWord, 1, "PL6"), "=-7;");
    EXPECT_EQ(FromList(kAll, 1, "PL4"), "n.x=0;n.y[0]=0;n.y[1]=-7;f=-7;o=00:00:00;000;m=0;");
}

TEST_F(ResolveSlotTest, TakesTheTextOfAParameter) {
    SetText("PT1", "abcdef");
    EXPECT_EQ(FromList(kText, 1, "PT1"), "=\"abc\";");
    Set("PW1", 42);
    EXPECT_EQ(FromList(kText, 1, "PW1"), "=\"42\";");
}

TEST_F(ResolveSlotTest, TakesDeclaredParametersOnlyWhileTheHostUpdates) {
    Set("PW1", 5);
    List().SetDeclaredOnly(true);
    EXPECT_EQ(FromList(kWord, 1, "PW1"), "=0;");
}

TEST_F(ResolveSlotTest, RefusesWhatCannotBeBuilt) {
    EXPECT_EQ(FromList(kWord, 1, "XX1"), "refused");
    EXPECT_EQ(FromList(kWord, 1, ""), "refused");
    EXPECT_EQ(FromList(kWord, 1, nullptr), "refused");
    for (const std::int32_t id : {kUnknown, kUnresolved, kLoop, 0}) {
        EXPECT_EQ(FromList(id, 1, "PW1"), "refused") << id;
    }
    EXPECT_EQ(FromList(kWord, 0xFFFFFFFF, "PW1"), "refused");
    EXPECT_EQ(slots::ResolveStdParameter(nullptr), 0);
}

TEST_F(ResolveSlotTest, AShortRecordNamesNeitherTextsNorAddress) {
    Set("PW1", 5);
    ParameterDescriptionRecord record = Wanted(kWord, 1);
    record.address = "PW1";
    for (record.size = 4; record.size < sizeof record; ++record.size) {
        EXPECT_EQ(slots::ResolveStdParameter(&record), 0) << record.size;
        EXPECT_EQ(record.bytes, nullptr);
    }
}

}  // namespace
}  // namespace orvell::host
