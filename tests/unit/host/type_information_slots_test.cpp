#include <cstring>

#include "slots_fixture.h"

namespace orvell::host {
namespace {

/// A record as a host may hand it in: with rubbish in all words but the first.
template <typename Record>
Record Rubbish(std::uint32_t size = sizeof(Record)) {
    Record record;
    std::memset(static_cast<void*>(&record), 0xA5, sizeof record);
    record.size = size;
    return record;
}

/// "kind name size baseTypeName count"; "-" for a null text.
std::string Told(const TypeInformationRecord& record) {
    const auto text = [](const char* value) { return std::string(value == nullptr ? "-" : value); };
    return std::to_string(record.kind) + ' ' + text(record.name) + ' ' +
           std::to_string(record.storedSize) + ' ' + text(record.baseTypeName) + ' ' +
           std::to_string(record.count);
}

constexpr const char* kEmptied = "0 - 0 - 0";

class TypeInformationTest : public SlotsTest {
  protected:
    /// Result and content after the call; released afterwards.
    template <typename Call>
    static std::string Ask(const Call& call) {
        auto record = Rubbish<TypeInformationRecord>();
        const std::int32_t result = call(&record);
        std::string told = std::to_string(result) + ": " + Told(record);
        slots::FreeStdTypeInfo(&record);
        EXPECT_EQ(Told(record), kEmptied);
        return told;
    }

    static std::string TypeInfo(std::int32_t id) {
        return Ask([id](auto* record) { return slots::GetStdTypeInfo(id, record); });
    }

    static std::string StructInfo(std::int32_t id) {
        return Ask([id](auto* record) { return slots::GetStdStructInfo(id, record); });
    }

    static std::string EnumInfo(std::int32_t id, std::uint32_t position) {
        return Ask([=](auto* record) { return slots::GetStdEnumInfo(id, position, record); });
    }

    /// "result: name typeName index dimension offset width | type information".
    static std::string MemberInfo(std::int32_t id, std::uint32_t index) {
        auto element = Rubbish<ElementRecord>();
        element.index = index;
        std::string told;
        const std::string type = Ask([&](auto* record) {
            const std::int32_t result = slots::GetStdStructMemberInfo(id, &element, record);
            told =
                element.name == nullptr ? "-" : std::string(element.name) + ' ' + element.typeName;
            for (const std::uint32_t word :
                 {element.index, element.dimension, element.offset, element.width}) {
                told += ' ' + std::to_string(word);
            }
            return result;
        });
        slots::FreeStdElementRecord(&element);
        return told + " | " + type;
    }
};

TEST_F(TypeInformationTest, TellsAllKindsOfTypes) {
    EXPECT_EQ(TypeInfo(kWord), "1: 1 Word 2 INT 700");
    EXPECT_EQ(TypeInfo(kText), "1: 1 Text 4 STRING 704");
    EXPECT_EQ(TypeInfo(kMode), "1: 2 Mode 1 - 2");
    EXPECT_EQ(TypeInfo(kAll), "1: 3 All 19 - 5");
    EXPECT_EQ(TypeInfo(kEmpty), "1: 3 Empty 0 - 0");
    EXPECT_EQ(TypeInfo(kLoop), "1: 3 Loop 0 - 1");
    for (const std::int32_t id : {kUnknown, kUnresolved, 0, -1}) {
        EXPECT_EQ(TypeInfo(id), std::string("0: ") + kEmptied) << id;
    }
}

TEST_F(TypeInformationTest, TellsStructuresOnly) {
    EXPECT_EQ(StructInfo(kPoint), "1: 3 Point 6 - 2");
    for (const std::int32_t id : {kWord, kMode, kUnknown, kUnresolved}) {
        EXPECT_EQ(StructInfo(id), std::string("0: ") + kEmptied) << id;
    }
}

TEST_F(TypeInformationTest, TellsEnumeratorsInAscendingOrder) {
    EXPECT_EQ(EnumInfo(kMode, 0), "1: 2 On 1 Mode 1");
    EXPECT_EQ(EnumInfo(kMode, 1), "1: 2 Off 1 Mode 200");
    EXPECT_EQ(EnumInfo(kMode, 2), std::string("0: ") + kEmptied);
    EXPECT_EQ(EnumInfo(kMode, 0xFFFFFFFF), std::string("0: ") + kEmptied);
    EXPECT_EQ(EnumInfo(kPoint, 0), std::string("0: ") + kEmptied);
    EXPECT_EQ(EnumInfo(kUnknown, 0), std::string("0: ") + kEmptied);
}

TEST_F(TypeInformationTest, TellsElementsInTheirOrder) {
    EXPECT_EQ(MemberInfo(kPoint, 0), "x Word 0 1 0 2 | 1: 1 Word 2 INT 700");
    EXPECT_EQ(MemberInfo(kPoint, 1), "y Word 1 2 2 2 | 1: 1 Word 2 INT 700");
    EXPECT_EQ(MemberInfo(kAll, 0), "n Point 0 1 0 6 | 1: 3 Point 6 - 2");
    EXPECT_EQ(MemberInfo(kAll, 1), "lost Nothing 1 1 6 0 | 1: 0 Nothing 0 - 0");
    EXPECT_EQ(MemberInfo(kAll, 2), "f FLOAT 2 1 6 4 | 1: 1 FLOAT 4 FLOAT 702");
    EXPECT_EQ(MemberInfo(kAll, 4), "m Mode 4 1 18 1 | 1: 2 Mode 1 - 2");
}

TEST_F(TypeInformationTest, EmptiesBothRecordsOfAnElementThatThereIsNot) {
    EXPECT_EQ(MemberInfo(kPoint, 2), "- 2 0 0 0 | 0: 0 - 0 - 0");
    EXPECT_EQ(MemberInfo(kPoint, 0xFFFFFFFF), "- 4294967295 0 0 0 | 0: 0 - 0 - 0");
    EXPECT_EQ(MemberInfo(kWord, 0), "- 0 0 0 0 | 0: 0 - 0 - 0");
    EXPECT_EQ(MemberInfo(kUnknown, 3), "- 3 0 0 0 | 0: 0 - 0 - 0");
}

TEST_F(TypeInformationTest, NullRecordsGetNothing) {
    EXPECT_EQ(slots::GetStdTypeInfo(kWord, nullptr), 0);
    EXPECT_EQ(slots::GetStdStructInfo(kPoint, nullptr), 0);
    EXPECT_EQ(slots::GetStdEnumInfo(kMode, 0, nullptr), 0);
    auto record = Rubbish<TypeInformationRecord>();
    EXPECT_EQ(slots::GetStdStructMemberInfo(kPoint, nullptr, &record), 0);
    EXPECT_EQ(Told(record), kEmptied);
    auto element = Rubbish<ElementRecord>();
    element.index = 1;
    EXPECT_EQ(slots::GetStdStructMemberInfo(kPoint, &element, nullptr), 0);
    EXPECT_EQ(element.name, nullptr);
    EXPECT_EQ(element.index, 1U);
    EXPECT_EQ(element.width, 0U);
}

/// The leak detector sees texts that are neither handed over nor freed.
TEST_F(TypeInformationTest, WhatDoesNotFitIsFreedAndNothingIsWrittenBeyond) {
    for (std::uint32_t size = 4; size <= sizeof(TypeInformationRecord); ++size) {
        auto record = Rubbish<TypeInformationRecord>(size);
        EXPECT_EQ(slots::GetStdTypeInfo(kWord, &record), 1);
        EXPECT_EQ(record.size, size);
        const auto* byte = reinterpret_cast<const std::uint8_t*>(&record);
        for (std::uint32_t i = size; i < sizeof record; ++i) {
            EXPECT_EQ(byte[i], 0xA5) << size << ' ' << i;
        }
        slots::FreeStdTypeInfo(&record);
    }
    for (std::uint32_t size = 4; size <= sizeof(ElementRecord); ++size) {
        auto record = Rubbish<TypeInformationRecord>();
        auto element = Rubbish<ElementRecord>(size);
        element.index = 0;
        EXPECT_EQ(slots::GetStdStructMemberInfo(kPoint, &element, &record), 1);
        EXPECT_EQ(element.size, size);
        slots::FreeStdElementRecord(&element);
        slots::FreeStdTypeInfo(&record);
    }
}

}  // namespace
}  // namespace orvell::host
