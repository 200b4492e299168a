#include <cstring>

#include "slots_fixture.h"

namespace orvell::host {
namespace {

class ValueSlotsTest : public SlotsTest {
  protected:
    static std::string Text(ParameterRecord record) {
        char* text = slots::GetStdParameterText(&record);
        const std::string result = text == nullptr ? "(null)" : text;
        slots::FreeStdMemory(text);
        return result;
    }

    static std::string Leaves(ParameterRecord record) {
        NameListNode* list = slots::GetStdParameterTextList(&record);
        std::string result = list == nullptr ? "(null)" : "";
        for (const NameListNode* node = list; node != nullptr; node = node->next) {
            result += std::string(node->first) + "=" + node->second + ";";
        }
        slots::FreeStdTextList(list);
        return result;
    }
};

TEST_F(ValueSlotsTest, TextOfASingleValueFollowsTheFormat) {
    ParameterRecord record = Record(kWord, bytes, 2);
    EXPECT_EQ(Text(record), "-1");
    record.format = 2;
    EXPECT_EQ(Text(record), "65535");
    record.format = 3;
    EXPECT_EQ(Text(record), "FFFFh");
    record.format = 0xF4;
    EXPECT_EQ(Text(record), "-1") << "formats above 3 count as none; the upper bits are not read";
    record.format = 0x83;
    EXPECT_EQ(Text(record), "FFFFh");
}

TEST_F(ValueSlotsTest, TextOfAStringIsBareOnlyWhenTheAttributeAsks) {
    ParameterRecord record = Record(kText, text, 4);
    EXPECT_EQ(Text(record), "\"ab\"");
    record.attribute = -1;
    EXPECT_EQ(Text(record), "ab");
    text[0] = 0;
    EXPECT_EQ(Text(record), "(null)") << "an empty text is none";
}

TEST_F(ValueSlotsTest, TextOfStructuresAndVectorsIsJoined) {
    EXPECT_EQ(Text(Record(kPoint, bytes, 6)), "-1; 2; 3");
    EXPECT_EQ(Text(Record(kPoint, bytes, 12, 2)), "-1; 2; 3; 4; 5; 6");
    EXPECT_EQ(Text(Record(kWord, bytes, 4, 2)), "-1; 2");
}

TEST_F(ValueSlotsTest, CountsBelowTwoAreASingleValue) {
    EXPECT_EQ(Text(Record(kWord, bytes, 2, 0)), "-1");
    EXPECT_EQ(Leaves(Record(kWord, bytes, 2, 0)), "=-1;");
    EXPECT_EQ(Leaves(Record(kWord, bytes, 2, 1)), "=-1;");
    EXPECT_EQ(Leaves(Record(kWord, bytes, 4, 2)), "[0]=-1;[1]=2;");
}

TEST_F(ValueSlotsTest, NoTextWithoutAWholeValueOrAUsableType) {
    EXPECT_EQ(Text(Record(kWord, nullptr, 2)), "(null)");
    EXPECT_EQ(Text(Record(kWord, bytes, 1)), "(null)");
    EXPECT_EQ(Text(Record(kPoint, bytes, 5)), "(null)");
    EXPECT_EQ(Text(Record(kPoint, bytes, 11, 2)), "(null)");
    for (const std::int32_t id : {kUnknown, kLoop, kUnresolved, 0, -1}) {
        EXPECT_EQ(Text(Record(id, bytes, 12)), "(null)") << id;
        EXPECT_EQ(Leaves(Record(id, bytes, 12)), "(null)") << id;
        ParameterRecord record = Record(id, bytes, 12);
        EXPECT_EQ(slots::CheckStdParameter(&record), 0) << id;
        EXPECT_EQ(slots::GetStdStructSize(id), 0U) << id;
    }
}

TEST_F(ValueSlotsTest, LeavesCarryTheirPaths) {
    EXPECT_EQ(Leaves(Record(kPoint, bytes, 6)), "x=-1;y[0]=2;y[1]=3;");
    EXPECT_EQ(Leaves(Record(kPoint, bytes, 12, 2)),
              "[0].x=-1;[0].y[0]=2;[0].y[1]=3;[1].x=4;[1].y[0]=5;[1].y[1]=6;");
    EXPECT_EQ(Leaves(Record(kPoint, bytes, 11, 2)), "(null)");
}

TEST_F(ValueSlotsTest, SizesAreThoseOfOneElement) {
    EXPECT_EQ(slots::GetStdStructSize(kWord), 2U);
    EXPECT_EQ(slots::GetStdStructSize(kPoint), 6U);
    EXPECT_EQ(slots::GetStdStructSize(kText), 4U);
}

TEST_F(ValueSlotsTest, CheckComparesTheWholeVector) {
    ParameterRecord record = Record(kPoint, bytes, 12, 2);
    EXPECT_EQ(slots::CheckStdParameter(&record), 1);
    record.length = 11;
    EXPECT_EQ(slots::CheckStdParameter(&record), 0);
    record = Record(kPoint, nullptr, 12, 2);
    EXPECT_EQ(slots::CheckStdParameter(&record), 0);
    record = Record(kWord, bytes, 12, 0xFFFFFFFF);
    EXPECT_EQ(slots::CheckStdParameter(&record), 0);
}

TEST_F(ValueSlotsTest, IdentifiersAreComparedAsBitPatterns) {
    TheModule().store.AddArea(0xFFFFFFFF, "Word");
    TheModule().store.ResolveReferences();
    EXPECT_EQ(slots::GetStdStructSize(-1), 2U);
}

TEST_F(ValueSlotsTest, NullRecordsAreUnknown) {
    EXPECT_EQ(slots::GetStdParameterText(nullptr), nullptr);
    EXPECT_EQ(slots::GetStdParameterTextList(nullptr), nullptr);
    EXPECT_EQ(slots::CheckStdParameter(nullptr), 0);
    slots::FreeStdParameter(nullptr);
    slots::FreeStdMemory(nullptr);
    slots::FreeStdTextList(nullptr);
    slots::FreeStdElementRecord(nullptr);
    slots::FreeStdTypeInfo(nullptr);
}

TEST_F(ValueSlotsTest, ReleasingAParameterFreesItsBytesAndEmptiesIt) {
    ParameterRecord record = Record(kWord, std::malloc(16), 16, 2);
    slots::FreeStdParameter(&record);
    EXPECT_EQ(record.bytes, nullptr);
    EXPECT_EQ(record.identifier, 0);
    EXPECT_EQ(record.size, sizeof(ParameterRecord));
    slots::FreeStdParameter(&record);
}

TEST_F(ValueSlotsTest, AShortRecordsPointerIsNotFreed) {
    ParameterRecord record = Record(kWord, bytes, 2);
    record.size = 18;  // ends inside the pointer to the bytes, which are not from the heap
    slots::FreeStdParameter(&record);
    EXPECT_EQ(record.identifier, 0);
    EXPECT_EQ(record.size, 18U);
}

TEST_F(ValueSlotsTest, ReleasingDescriptionsFreesTheirTexts) {
    TypeInformationRecord info{sizeof(TypeInformationRecord), 3, strdup("Point"), 6, nullptr, 2};
    slots::FreeStdTypeInfo(&info);
    EXPECT_EQ(info.name, nullptr);
    EXPECT_EQ(info.kind, 0U);
    ElementRecord element{sizeof(ElementRecord), strdup("x"), strdup("Word"), 0, 1, 0, 2};
    slots::FreeStdElementRecord(&element);
    EXPECT_EQ(element.name, nullptr);
    EXPECT_EQ(element.typeName, nullptr);
    EXPECT_EQ(element.width, 0U);
}

}  // namespace
}  // namespace orvell::host
