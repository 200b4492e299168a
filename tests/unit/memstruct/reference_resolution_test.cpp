#include "memstruct/reference_resolution.h"

#include "memstruct_fixture.h"

namespace orvell::test {
namespace {

using memstruct::MemoryStructureStore;
using memstruct::StructItem;
using memstruct::TypeDef;
using values::BaseTypeCode;

class ReferenceResolutionTest : public MemstructTest {
  protected:
    void AddSimple(const std::string& name, BaseTypeCode code, std::uint32_t size = 0) {
        TypeDef type;
        type.name = name;
        type.baseType = code;
        type.size = size;
        ASSERT_TRUE(store.AddType(std::move(type)));
    }

    /// A structure with elements of these types.
    void AddStructure(const std::string& name, const std::vector<StructItem>& items) {
        TypeDef type;
        type.name = name;
        type.baseType = BaseTypeCode::Structured;
        type.structItems = items;
        ASSERT_TRUE(store.AddType(std::move(type)));
    }

    static StructItem Item(const std::string& typeName, std::uint32_t dimension = 1) {
        return {"i", typeName, nullptr, dimension};
    }

    [[nodiscard]] std::uint32_t Size(std::string_view name) const {
        return MemoryStructureStore::StoredSize(Type(name));
    }

    [[nodiscard]] std::int32_t Signedness(std::string_view name) const {
        return MemoryStructureStore::SignednessClass(Type(name));
    }

    [[nodiscard]] std::string Recursive() const {
        std::string names;
        for (const TypeDef& type : store.Types()) {
            if (type.recursive) {
                names += type.name + ' ';
                EXPECT_EQ(type.storedSize, 0U) << type.name;
                EXPECT_EQ(type.signedness, -1) << type.name;
                EXPECT_FALSE(type.HoldsValues()) << type.name;
            }
        }
        return names;
    }
};

TEST_F(ReferenceResolutionTest, KnowsTheWidthsOfSimpleTypes) {
    const std::vector<std::pair<std::uint32_t, std::uint32_t>> integers{
        {0, 2}, {1, 1}, {2, 2}, {3, 4}, {4, 4}, {5, 8}, {7, 8}, {8, 8}, {4294967295U, 8}};
    for (const auto& [size, width] : integers) {
        const std::string number = std::to_string(size);
        AddSimple("I" + number, BaseTypeCode::Int, size);
        AddSimple("U" + number, BaseTypeCode::UInt, size);
        AddSimple("E" + number, BaseTypeCode::Enumerated, size);
        AddSimple("S" + number, BaseTypeCode::String, size);
    }
    AddSimple("D", BaseTypeCode::Date);
    AddSimple("DT", BaseTypeCode::DateTime);
    AddSimple("OLE", BaseTypeCode::OleDateTime);
    AddSimple("none", BaseTypeCode::None);
    store.AddImplicitTypes();
    store.ResolveReferences();
    for (const auto& [size, width] : integers) {
        const std::string number = std::to_string(size);
        EXPECT_EQ(Size("I" + number), width) << size;
        EXPECT_EQ(Size("U" + number), width) << size;
        EXPECT_EQ(Size("E" + number), std::min(width, 4U)) << size;
        EXPECT_EQ(Size("S" + number), std::max(size, 1U)) << size;
    }
    EXPECT_EQ(Size("FLOAT"), 4U);
    EXPECT_EQ(Size("DOUBLE"), 8U);
    EXPECT_EQ(Size("DURATION"), 4U);
    EXPECT_EQ(Size("TIME"), 4U);
    EXPECT_EQ(Size("D"), 4U);
    EXPECT_EQ(Size("DT"), 4U);
    EXPECT_EQ(Size("OLE"), 8U);
    EXPECT_EQ(Size("none"), 0U);
    EXPECT_EQ(MemoryStructureStore::StoredSize(nullptr), 0U);
}

TEST_F(ReferenceResolutionTest, AddsUpElementsWithoutGaps) {
    AddStructure("Outer", {Item("Inner", 3), Item("unknown", 1000), Item("B")});
    AddStructure("Inner", {Item("B"), Item("W"), Item("B", 2)});
    AddSimple("B", BaseTypeCode::UInt, 1);
    AddSimple("W", BaseTypeCode::UInt, 4);
    AddStructure("Empty", {});
    AddStructure("Unresolved", {Item("unknown")});
    store.ResolveReferences();
    EXPECT_EQ(Size("Inner"), 7U);
    EXPECT_EQ(Size("Outer"), 22U);
    EXPECT_EQ(Size("Empty"), 0U);
    EXPECT_EQ(Size("Unresolved"), 0U);
    EXPECT_FALSE(Type("Empty")->HoldsValues());
    EXPECT_FALSE(Type("Unresolved")->HoldsValues());
    EXPECT_TRUE(Type("Outer")->HoldsValues());
    EXPECT_EQ(Type("Outer")->itemsWithValues.size(), 2U);
}

TEST_F(ReferenceResolutionTest, SizesWrap) {
    AddSimple("B", BaseTypeCode::UInt, 1);
    AddSimple("S", BaseTypeCode::String, 0x80000000U);
    AddStructure("Twice", {Item("S", 2)});
    AddStructure("TwiceAndOne", {Item("S"), Item("S"), Item("B")});
    AddStructure("Product", {Item("B", 0xFFFFFFFFU), Item("B", 3)});
    AddStructure("Nested", {Item("Product", 0x80000001U)});
    store.ResolveReferences();
    EXPECT_EQ(Size("Twice"), 0U);
    EXPECT_EQ(Size("TwiceAndOne"), 1U);
    EXPECT_EQ(Size("Product"), 2U);
    EXPECT_EQ(Size("Nested"), 2U);
    EXPECT_TRUE(Type("Twice")->HoldsValues());
}

TEST_F(ReferenceResolutionTest, FindsATypeThatContainsItself) {
    AddStructure("A", {Item("A")});
    AddStructure("B", {Item("W"), Item("A")});
    AddStructure("C", {Item("W")});
    AddSimple("W", BaseTypeCode::Int);
    store.ResolveReferences();
    EXPECT_EQ(Recursive(), "A B ");
    EXPECT_EQ(Size("C"), 2U);
}

TEST_F(ReferenceResolutionTest, FindsACycleThatIsReachedFromOutside) {
    AddStructure("E", {Item("F")});
    AddStructure("F", {Item("W"), Item("C")});
    AddStructure("C", {Item("D")});
    AddStructure("D", {Item("W"), Item("C"), Item("W")});
    AddStructure("G", {Item("W"), Item("W")});
    AddSimple("W", BaseTypeCode::Int);
    store.ResolveReferences();
    EXPECT_EQ(Recursive(), "E F C D ");
}

TEST_F(ReferenceResolutionTest, FindsACycleThroughATypeThatWasMetBefore) {
    // "Late" is complete, and known to reach the cycle, when "User" comes to it.
    AddStructure("Head", {Item("Late")});
    AddStructure("Late", {Item("Tail")});
    AddStructure("Tail", {Item("Head")});
    AddStructure("User", {Item("W"), Item("Late")});
    AddStructure("Fine", {Item("W")});
    AddStructure("Both", {Item("Fine"), Item("User"), Item("Fine")});
    AddSimple("W", BaseTypeCode::Int);
    store.ResolveReferences();
    EXPECT_EQ(Recursive(), "Head Late Tail User Both ");
}

TEST_F(ReferenceResolutionTest, ATypeUsedTwiceIsNoCycle) {
    AddStructure("A", {Item("B"), Item("C"), Item("B")});
    AddStructure("B", {Item("D"), Item("D")});
    AddStructure("C", {Item("B"), Item("D")});
    AddStructure("D", {Item("W")});
    AddSimple("W", BaseTypeCode::Int);
    store.ResolveReferences();
    EXPECT_EQ(Recursive(), "");
    EXPECT_EQ(Size("A"), 14U);
}

TEST_F(ReferenceResolutionTest, ASimpleTypeHasNoElements) {
    TypeDef odd;
    odd.name = "Odd";
    odd.baseType = BaseTypeCode::Int;
    odd.structItems = {Item("Odd")};
    store.AddType(std::move(odd));
    store.ResolveReferences();
    EXPECT_EQ(Recursive(), "");
    EXPECT_EQ(Size("Odd"), 2U);
}

TEST_F(ReferenceResolutionTest, ResolvesADiamondOfDepthSixty) {
    constexpr int kDepth = 60;
    for (int i = 0; i < kDepth; ++i) {
        const std::string next = "T" + std::to_string(i + 1);
        AddStructure("T" + std::to_string(i), {Item(next), Item(next)});
    }
    AddSimple("T60", BaseTypeCode::Int);
    store.ResolveReferences();
    EXPECT_EQ(Recursive(), "");
    EXPECT_EQ(Size("T0"), 0U);            // 2 * 2^60 bytes
    EXPECT_EQ(Size("T29"), 0U);           // 2^32 bytes
    EXPECT_EQ(Size("T30"), 0x80000000U);  // 2^31 bytes
    EXPECT_TRUE(Type("T0")->HoldsValues());
    EXPECT_EQ(Signedness("T0"), 1);
}

TEST_F(ReferenceResolutionTest, ResolvesAChainOfAHundredThousandTypes) {
    constexpr int kLength = 100'000;
    for (int i = 0; i < kLength; ++i) {
        AddStructure("T" + std::to_string(i), {Item("T" + std::to_string(i + 1))});
    }
    AddSimple("T" + std::to_string(kLength), BaseTypeCode::UInt, 4);
    store.ResolveReferences();
    EXPECT_EQ(Size("T0"), 4U);
    EXPECT_EQ(Signedness("T0"), 2);
    EXPECT_EQ(Recursive(), "");
}

TEST_F(ReferenceResolutionTest, ResolvesACycleOfAHundredThousandTypes) {
    constexpr int kLength = 100'000;
    for (int i = 0; i < kLength; ++i) {
        AddStructure("T" + std::to_string(i), {Item("T" + std::to_string((i + 1) % kLength))});
    }
    store.ResolveReferences();
    for (const TypeDef& type : store.Types()) {
        ASSERT_TRUE(type.recursive) << type.name;
    }
}

TEST_F(ReferenceResolutionTest, TellsTheSignednessOfIntegers) {
    AddSimple("I", BaseTypeCode::Int);
    AddSimple("U", BaseTypeCode::UInt);
    AddSimple("F", BaseTypeCode::Float);
    AddSimple("E", BaseTypeCode::Enumerated);
    AddStructure("Empty", {});
    AddStructure("None", {Item("F"), Item("E"), Item("Empty"), Item("unknown")});
    AddStructure("Signed", {Item("F"), Item("I"), Item("None"), Item("I")});
    AddStructure("Unsigned", {Item("U"), Item("F")});
    AddStructure("Mixed", {Item("I"), Item("U"), Item("F")});
    AddStructure("MixedThenOne", {Item("Mixed"), Item("I"), Item("F")});
    AddStructure("OneThenMixed", {Item("U"), Item("Mixed")});
    AddStructure("NoneThenMixed", {Item("F"), Item("Mixed")});
    store.ResolveReferences();
    EXPECT_EQ(Signedness("I"), 1);
    EXPECT_EQ(Signedness("U"), 2);
    EXPECT_EQ(Signedness("F"), -1);
    EXPECT_EQ(Signedness("E"), -1);
    EXPECT_EQ(Signedness("Empty"), -1);
    EXPECT_EQ(Signedness("None"), -1);
    EXPECT_EQ(Signedness("Signed"), 1);
    EXPECT_EQ(Signedness("Unsigned"), 2);
    for (const char* name : {"Mixed", "MixedThenOne", "OneThenMixed", "NoneThenMixed"}) {
        EXPECT_EQ(Signedness(name), 0) << name;
    }
    EXPECT_EQ(MemoryStructureStore::SignednessClass(nullptr), -1);
}

TEST_F(ReferenceResolutionTest, DerivesEverythingItself) {
    TypeDef type;
    type.name = "A";
    type.baseType = BaseTypeCode::Structured;
    type.structItems = {Item("W")};
    type.recursive = true;
    type.storedSize = 99;
    type.signedness = 2;
    store.AddType(std::move(type));
    AddSimple("W", BaseTypeCode::Int);
    store.ResolveReferences();
    EXPECT_EQ(Recursive(), "");
    EXPECT_EQ(Size("A"), 2U);
    EXPECT_EQ(Signedness("A"), 1);
}

TEST_F(ReferenceResolutionTest, ResolvesAnewAfterTypesWereAdded) {
    AddStructure("A", {Item("B"), Item("W")});
    AddSimple("W", BaseTypeCode::Int);
    ASSERT_TRUE(store.AddArea(1, "B"));
    store.ResolveReferences();
    EXPECT_EQ(Size("A"), 2U);
    EXPECT_EQ(store.TypeOfArea(1), nullptr);
    AddStructure("B", {Item("W", 2)});
    store.ResolveReferences();
    EXPECT_EQ(Size("A"), 6U);
    EXPECT_EQ(Type("A")->itemsWithValues.size(), 2U);
    EXPECT_EQ(store.TypeOfArea(1), Type("B"));
}

}  // namespace
}  // namespace orvell::test
