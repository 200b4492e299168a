#include "memstruct/value_walk.h"

#include <array>

#include "memstruct_fixture.h"

namespace orvell::test {
namespace {

using memstruct::TypeDef;
using memstruct::ValueWalk;

/// What a walk tells of one leaf.
struct Seen {
    std::string type;
    std::uint32_t element;
    std::uint32_t offset;
    std::size_t rest;
    std::string path;

    bool operator==(const Seen&) const = default;
};

void PrintTo(const Seen& seen, std::ostream* out) {
    *out << seen.type << " [" << seen.element << "]+" << seen.offset << ", rest " << seen.rest
         << ", \"" << seen.path << '"';
}

class ValueWalkTest : public MemstructTest {
  protected:
    ValueWalkTest() {
        DefineLists(R"(
            <Type Name="Byte" BaseType="UINT" Size="1"/>
            <Type Name="Word" BaseType="UINT" Size="2"/>
            <Type Name="Point" BaseType="Structured">
              <Item Name="x" Type="Byte"/><Item Name="y" Type="Word"/></Type>
            <Type Name="Line" BaseType="Structured">
              <Item Name="lost" Type="unknown" Dimension="4294967295"/>
              <Item Name="ends" Type="Point" Dimension="2"/>
              <Item Name="void" Type="Void" Dimension="4294967295"/>
              <Item Name="width" Type="Byte"/></Type>
            <Type Name="Void" BaseType="Structured"><Item Name="a" Type="Empty"/></Type>
            <Type Name="Empty" BaseType="Structured"/>
            <Type Name="Loop" BaseType="Structured"><Item Name="a" Type="Loop"/></Type>
            <Type Name="Many" BaseType="Structured">
              <Item Name="a" Type="Byte" Dimension="4294967295"/></Type>)");
    }

    /// All leaves of the walk over a buffer of this size.
    std::vector<Seen> Leaves(ValueWalk walk, std::size_t byteCount) {
        const std::vector<std::uint8_t> bytes(byteCount);
        const values::ConstValueBuffer buffer(bytes);
        std::vector<Seen> leaves;
        while (walk.ToNextLeaf()) {
            leaves.push_back({walk.LeafType().name, walk.ElementIndex(), walk.ByteOffset(),
                              walk.Rest(buffer).size(), walk.Path()});
        }
        EXPECT_FALSE(walk.ToNextLeaf());
        isComplete = walk.IsComplete();
        return leaves;
    }

    std::vector<Seen> LeavesOfValue(const char* type, std::size_t byteCount) {
        return Leaves(ValueWalk::OverValue(Type(type), byteCount), byteCount);
    }

    std::vector<Seen> LeavesOfVector(const char* type, std::uint32_t count, std::size_t byteCount) {
        return Leaves(ValueWalk::OverVector(Type(type), count, byteCount), byteCount);
    }

    std::vector<Seen> TrackedLeaves(ValueWalk walk, const char* prefix, std::size_t byteCount) {
        walk.TrackPaths(prefix);
        return Leaves(std::move(walk), byteCount);
    }

    void AddStructure(const std::string& name, std::vector<memstruct::StructItem> items) {
        TypeDef type;
        type.name = name;
        type.baseType = values::BaseTypeCode::Structured;
        type.structItems = std::move(items);
        ASSERT_TRUE(store.AddType(std::move(type)));
    }

    /// T0 around T1 around T2 and so on, around a byte.
    void AddChain() {
        for (std::uint32_t i = 0; i < kChainLength; ++i) {
            const bool isLast = i + 1 == kChainLength;
            AddStructure("T" + std::to_string(i),
                         {{"a", isLast ? "Byte" : "T" + std::to_string(i + 1), nullptr, 1},
                          {"e", "Empty", nullptr, 1}});
        }
        store.ResolveReferences();
    }

    static constexpr std::uint32_t kChainLength = 100'000;
    bool isComplete = false;
};

using SeenList = std::vector<Seen>;

TEST_F(ValueWalkTest, ASimpleValueIsItsOwnLeaf) {
    EXPECT_EQ(LeavesOfValue("Word", 2), (SeenList{{"Word", 0, 0, 2, ""}}));
    EXPECT_TRUE(isComplete);
    EXPECT_EQ(LeavesOfValue("Word", 5), (SeenList{{"Word", 0, 0, 5, ""}}));
    EXPECT_TRUE(isComplete);
}

TEST_F(ValueWalkTest, VisitsLeavesInMemoryOrder) {
    EXPECT_EQ(LeavesOfValue("Line", 7), (SeenList{{"Byte", 0, 0, 7, ""},
                                                  {"Word", 0, 1, 6, ""},
                                                  {"Byte", 0, 3, 4, ""},
                                                  {"Word", 0, 4, 3, ""},
                                                  {"Byte", 0, 6, 1, ""}}));
    EXPECT_TRUE(isComplete);
}

TEST_F(ValueWalkTest, OffsetsBeginAnewWithEachElementOfAVector) {
    EXPECT_EQ(LeavesOfVector("Point", 3, 9), (SeenList{{"Byte", 0, 0, 9, ""},
                                                       {"Word", 0, 1, 8, ""},
                                                       {"Byte", 1, 0, 6, ""},
                                                       {"Word", 1, 1, 5, ""},
                                                       {"Byte", 2, 0, 3, ""},
                                                       {"Word", 2, 1, 2, ""}}));
    EXPECT_TRUE(isComplete);
}

TEST_F(ValueWalkTest, TracksPathsOnDemand) {
    EXPECT_EQ(TrackedLeaves(ValueWalk::OverValue(Type("Line"), 7), "S", 7),
              (SeenList{{"Byte", 0, 0, 7, "S.ends[0].x"},
                        {"Word", 0, 1, 6, "S.ends[0].y"},
                        {"Byte", 0, 3, 4, "S.ends[1].x"},
                        {"Word", 0, 4, 3, "S.ends[1].y"},
                        {"Byte", 0, 6, 1, "S.width"}}));
    EXPECT_EQ(TrackedLeaves(ValueWalk::OverVector(Type("Point"), 2, 6), "", 6),
              (SeenList{{"Byte", 0, 0, 6, "[0].x"},
                        {"Word", 0, 1, 5, "[0].y"},
                        {"Byte", 1, 0, 3, "[1].x"},
                        {"Word", 1, 1, 2, "[1].y"}}));
    EXPECT_EQ(TrackedLeaves(ValueWalk::OverVector(Type("Byte"), 2, 2), "v", 2),
              (SeenList{{"Byte", 0, 0, 2, "v[0]"}, {"Byte", 1, 0, 1, "v[1]"}}));
    EXPECT_EQ(TrackedLeaves(ValueWalk::OverValue(Type("Byte"), 1), "p", 1),
              (SeenList{{"Byte", 0, 0, 1, "p"}}));
}

TEST_F(ValueWalkTest, ALeafIsShownTheBytesThatAreLeft) {
    // The "y" of the second end begins at byte 4 and lacks its second byte.
    EXPECT_EQ(LeavesOfValue("Line", 5), (SeenList{{"Byte", 0, 0, 5, ""},
                                                  {"Word", 0, 1, 4, ""},
                                                  {"Byte", 0, 3, 2, ""},
                                                  {"Word", 0, 4, 1, ""}}));
    EXPECT_FALSE(isComplete);
}

TEST_F(ValueWalkTest, FailsForEveryBufferThatIsTooShort) {
    const std::array<std::size_t, 8> leavesBegun{1, 2, 2, 3, 4, 4, 5, 5};
    for (std::size_t byteCount = 0; byteCount < 8; ++byteCount) {
        EXPECT_EQ(LeavesOfValue("Line", byteCount).size(), leavesBegun[byteCount]) << byteCount;
        EXPECT_EQ(isComplete, byteCount >= 7) << byteCount;
    }
    EXPECT_EQ(LeavesOfVector("Word", 3, 5).size(), 3U);
    EXPECT_FALSE(isComplete);
}

TEST_F(ValueWalkTest, HasNoLeavesWithoutAType) {
    EXPECT_TRUE(Leaves(ValueWalk::OverValue(nullptr, 8), 8).empty());
    EXPECT_FALSE(isComplete);
    EXPECT_TRUE(LeavesOfValue("Loop", 8).empty());
    EXPECT_FALSE(isComplete);
    EXPECT_TRUE(LeavesOfVector("Loop", 0, 8).empty());
    EXPECT_FALSE(isComplete);
}

TEST_F(ValueWalkTest, IsCompleteAtOnceWithoutLeaves) {
    EXPECT_TRUE(LeavesOfValue("Void", 0).empty());
    EXPECT_TRUE(isComplete);
    EXPECT_TRUE(LeavesOfVector("Void", 4294967295U, 0).empty());
    EXPECT_TRUE(isComplete);
    EXPECT_TRUE(LeavesOfVector("Word", 0, 0).empty());
    EXPECT_TRUE(isComplete);
}

TEST_F(ValueWalkTest, EndsWithTheBufferWhateverTheDimension) {
    EXPECT_EQ(LeavesOfValue("Many", 1000).size(), 1001U);
    EXPECT_FALSE(isComplete);
    EXPECT_EQ(LeavesOfVector("Byte", 4294967295U, 1000).size(), 1001U);
    EXPECT_FALSE(isComplete);
}

TEST_F(ValueWalkTest, WrappedSizesDoNotReachBeyondTheBuffer) {
    // 2 * 2^31 bytes wrap to a stored size of 0, the third element then to one of 1 byte.
    DefineLists(R"(<Type Name="Half" BaseType="STRING" Size="2147483648"/>
        <Type Name="Byte" BaseType="UINT" Size="1"/>
        <Type Name="Wrapped" BaseType="Structured"><Item Name="a" Type="Half" Dimension="2"/>
          <Item Name="b" Type="Byte"/></Type>
        <Type Name="Outer" BaseType="Structured"><Item Name="w" Type="Wrapped" Dimension="3"/>
          </Type>)");
    ASSERT_EQ(Type("Wrapped")->storedSize, 1U);
    EXPECT_EQ(LeavesOfValue("Wrapped", 16), (SeenList{{"Half", 0, 0, 16, ""}}));
    EXPECT_FALSE(isComplete);
    EXPECT_EQ(LeavesOfVector("Outer", 5, 16).size(), 1U);
    EXPECT_FALSE(isComplete);
}

TEST_F(ValueWalkTest, ATypeThatWasNeverResolvedEndsTheWalk) {
    TypeDef type;
    type.name = "new";
    type.baseType = values::BaseTypeCode::Int;
    EXPECT_EQ(Leaves(ValueWalk::OverVector(&type, 4294967295U, 8), 8).size(), 1U);
    EXPECT_FALSE(isComplete);
}

TEST_F(ValueWalkTest, WalksADiamondAsFarAsTheBufferGoes) {
    std::string types = "<Type Name='T60' BaseType='UINT' Size='1'/>";
    for (int i = 0; i < 60; ++i) {
        const std::string next = "T" + std::to_string(i + 1);
        types += "<Type Name='T" + std::to_string(i) +
                 "' BaseType='Structured'><Item Name='a' Type='" + next +
                 "'/><Item Name='b' Type='" + next + "'/></Type>";
    }
    DefineLists(types);
    EXPECT_EQ(LeavesOfValue("T0", 100).size(), 101U);
    EXPECT_FALSE(isComplete);
    const SeenList leaves = TrackedLeaves(ValueWalk::OverValue(Type("T57"), 8), "", 8);
    EXPECT_TRUE(isComplete);
    ASSERT_EQ(leaves.size(), 8U);
    EXPECT_EQ(leaves[0].path, "a.a.a");
    EXPECT_EQ(leaves[3].path, "a.b.b");
    EXPECT_EQ(leaves[4].path, "b.a.a");
    EXPECT_EQ(leaves[7].path, "b.b.b");
}

TEST_F(ValueWalkTest, WalksAChainOfAHundredThousandTypes) {
    AddChain();
    const SeenList leaves = TrackedLeaves(ValueWalk::OverVector(Type("T0"), 2, 2), "", 2);
    EXPECT_TRUE(isComplete);
    ASSERT_EQ(leaves.size(), 2U);
    EXPECT_EQ(leaves[1].path.size(), 3U + 2 * kChainLength);
}

TEST_F(ValueWalkTest, DepthCostsNothingWithoutPaths) {
    AddChain();
    AddStructure("Pair", {{"a", "T0", nullptr, 1}, {"b", "T0", nullptr, 2}});
    store.ResolveReferences();
    // Through all levels these would be 3 * 10^10 steps.
    constexpr std::uint32_t kCount = 100'000;
    std::uint32_t leaves = 0;
    ValueWalk walk = ValueWalk::OverVector(Type("Pair"), kCount, 3 * kCount);
    while (walk.ToNextLeaf()) {
        ASSERT_EQ(walk.ElementIndex(), leaves / 3);
        ASSERT_EQ(walk.ByteOffset(), leaves % 3);
        ++leaves;
    }
    EXPECT_TRUE(walk.IsComplete());
    EXPECT_EQ(leaves, 3 * kCount);
}

TEST_F(ValueWalkTest, AStructureWrapsASingleValueOnly) {
    DefineLists(R"(<Type Name="Byte" BaseType="UINT" Size="1"/>
        <Type Name="One" BaseType="Structured"><Item Name="l" Type="unknown"/>
          <Item Name="a" Type="Byte"/></Type>
        <Type Name="Outer" BaseType="Structured"><Item Name="a" Type="One"/></Type>
        <Type Name="Array" BaseType="Structured"><Item Name="a" Type="Byte" Dimension="2"/></Type>
        <Type Name="Two" BaseType="Structured"><Item Name="a" Type="Outer"/>
          <Item Name="b" Type="Outer"/></Type>
        <Type Name="None" BaseType="Structured"/>)");
    EXPECT_EQ(Type("One")->wrapped, Type("Byte"));
    EXPECT_EQ(Type("Outer")->wrapped, Type("Byte"));
    for (const char* name : {"Byte", "Array", "Two", "None", "FLOAT"}) {
        EXPECT_EQ(Type(name)->wrapped, nullptr) << name;
    }
    EXPECT_EQ(LeavesOfValue("Two", 2), (SeenList{{"Byte", 0, 0, 2, ""}, {"Byte", 0, 1, 1, ""}}));
    EXPECT_EQ(TrackedLeaves(ValueWalk::OverValue(Type("Two"), 2), "", 2),
              (SeenList{{"Byte", 0, 0, 2, "a.a.a"}, {"Byte", 0, 1, 1, "b.a.a"}}));
}

TEST_F(ValueWalkTest, GivesWritableBytesOfAWritableBuffer) {
    std::array<std::uint8_t, 7> bytes{};
    const values::ValueBuffer buffer(bytes);
    ValueWalk walk = ValueWalk::OverValue(Type("Line"), buffer.size());
    std::uint8_t mark = 0;
    while (walk.ToNextLeaf()) {
        walk.Rest(buffer).front() = ++mark;
    }
    EXPECT_TRUE(walk.IsComplete());
    EXPECT_EQ(bytes, (std::array<std::uint8_t, 7>{1, 2, 0, 3, 4, 0, 5}));
}

}  // namespace
}  // namespace orvell::test
