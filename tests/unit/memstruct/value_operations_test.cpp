#include "memstruct_fixture.h"

namespace orvell::test {
namespace {

using memstruct::NamedText;
using memstruct::TypeDef;
using values::ConstValueBuffer;
using values::DisplayFormat;

class ValueOperationsTest : public MemstructTest {
  protected:
    ValueOperationsTest() {
        DefineLists(R"(
            <Type Name="Byte" BaseType="INT" Size="1"/>
            <Type Name="Word" BaseType="UINT" Size="2"/>
            <Type Name="Text" BaseType="STRING" Size="3"/>
            <Type Name="Ole" BaseType="OLE-DATE+TIME"/>
            <Type Name="Mode" BaseType="Enumerated" Size="1"><Item Value="1" Name="On"/></Type>
            <Type Name="Point" BaseType="Structured">
              <Item Name="x" Type="Byte"/><Item Name="y" Type="Word"/></Type>
            <Type Name="All" BaseType="Structured">
              <Item Name="p" Type="Point" Dimension="2"/><Item Name="lost" Type="unknown"/>
              <Item Name="t" Type="Text"/><Item Name="f" Type="FLOAT"/><Item Name="m" Type="Mode"/>
            </Type>
            <Type Name="Dated" BaseType="Structured">
              <Item Name="b" Type="Byte"/><Item Name="d" Type="Ole"/></Type>
            <Type Name="Empty" BaseType="Structured"/>
            <Type Name="Loop" BaseType="Structured"><Item Name="a" Type="Loop"/></Type>
            <Type Name="Huge" BaseType="Structured">
              <Item Name="e" Type="Empty" Dimension="4294967295"/><Item Name="b" Type="Byte"/>
            </Type>)");
    }

    std::string Text(const char* type, ConstValueBuffer buffer,
                     DisplayFormat format = DisplayFormat::Default, bool raw = true) {
        std::string text = "old";
        succeeded = store.ValueText(Type(type), buffer, format, raw, text);
        return text;
    }

    std::string VectorText(const char* type, ConstValueBuffer buffer, std::uint32_t count) {
        std::string text = "old";
        succeeded = store.VectorText(Type(type), buffer, count, DisplayFormat::Default, true, text);
        return text;
    }

    /// "path=text" of each leaf.
    static std::vector<std::string> Lines(const std::vector<NamedText>& leaves) {
        std::vector<std::string> lines;
        for (const NamedText& leaf : leaves) {
            lines.push_back(leaf.path + '=' + leaf.text);
        }
        return lines;
    }

    std::vector<std::string> Flat(const char* type, const char* prefix, ConstValueBuffer buffer) {
        std::vector<NamedText> leaves{{"old", "old"}};
        succeeded = store.FlattenValue(Type(type), prefix, buffer, leaves);
        return Lines(leaves);
    }

    std::vector<std::string> FlatVector(const char* type, ConstValueBuffer buffer,
                                        std::uint32_t count) {
        std::vector<NamedText> leaves{{"old", "old"}};
        succeeded = store.FlattenVector(Type(type), buffer, count, leaves);
        return Lines(leaves);
    }

    bool succeeded = false;
    /// p[0] = (-1, 513), p[1] = (2, 3), t = "hi", f = 1.5, m = On
    std::vector<std::uint8_t> all{0xFF, 1, 2, 2, 3, 0, 'h', 'i', 0, 0, 0, 0xC0, 0x3F, 1};
};

using Strings = std::vector<std::string>;

TEST_F(ValueOperationsTest, ChecksSimpleValues) {
    const std::vector<std::uint8_t> bytes(3);
    const ConstValueBuffer buffer(bytes);
    EXPECT_TRUE(store.CheckValueFits(Type("Word"), buffer));
    EXPECT_TRUE(store.CheckValueFits(Type("Word"), buffer.first(2)));
    EXPECT_FALSE(store.CheckValueFits(Type("Word"), buffer.first(1)));
    EXPECT_FALSE(store.CheckValueFits(Type("Word"), {}));
    EXPECT_FALSE(store.CheckValueFits(nullptr, buffer));
}

TEST_F(ValueOperationsTest, ChecksEveryLengthOfAStructure) {
    ASSERT_EQ(Type("All")->storedSize, all.size());
    for (std::size_t length = 0; length <= all.size(); ++length) {
        const ConstValueBuffer buffer = ConstValueBuffer(all).first(length);
        const bool isWhole = length == all.size();
        EXPECT_EQ(store.CheckValueFits(Type("All"), buffer), isWhole) << length;
        EXPECT_EQ(store.CheckVectorFits(Type("All"), buffer, 1), isWhole) << length;
        EXPECT_EQ(store.CheckVectorFits(Type("Word"), buffer, 6), length >= 12) << length;
        EXPECT_EQ(Text("All", buffer).empty(), !isWhole) << length;
        EXPECT_EQ(succeeded, isWhole) << length;
        EXPECT_EQ(Flat("All", "", buffer).empty(), !isWhole) << length;
        EXPECT_EQ(succeeded, isWhole) << length;
        EXPECT_EQ(FlatVector("Word", buffer, 7).empty(), !isWhole) << length;
        EXPECT_EQ(succeeded, isWhole) << length;
    }
}

TEST_F(ValueOperationsTest, ChecksTypesWithoutValues) {
    EXPECT_TRUE(store.CheckValueFits(Type("Empty"), {}));
    EXPECT_TRUE(store.CheckVectorFits(Type("Empty"), {}, 4294967295U));
    EXPECT_TRUE(store.CheckVectorFits(Type("Word"), {}, 0));
    EXPECT_FALSE(store.CheckValueFits(Type("Loop"), all));
    EXPECT_FALSE(store.CheckVectorFits(Type("Loop"), all, 0));
    EXPECT_FALSE(store.CheckVectorFits(nullptr, all, 2));
    EXPECT_TRUE(store.CheckValueFits(Type("Huge"), ConstValueBuffer(all).first(1)));
    EXPECT_FALSE(store.CheckVectorFits(Type("Word"), all, 4294967295U));
}

TEST_F(ValueOperationsTest, ATypeWithoutBaseTypeHasNoValue) {
    TypeDef type;
    type.name = "none";
    store.AddType(std::move(type));
    store.ResolveReferences();
    EXPECT_FALSE(store.CheckValueFits(Type("none"), all));
    EXPECT_FALSE(store.CheckVectorFits(Type("none"), all, 4294967295U));
    EXPECT_EQ(Text("none", all), "");
    EXPECT_FALSE(succeeded);
}

TEST_F(ValueOperationsTest, JoinsTheTextsOfAllLeaves) {
    EXPECT_EQ(Text("All", all), "-1; 513; 2; 3; hi; 1.5; On");
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(VectorText("Point", all, 2), "-1; 513; 2; 3");
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(Text("Word", ConstValueBuffer(all).subspan(1)), "513");
}

TEST_F(ValueOperationsTest, JoinsEmptyTextsToo) {
    const std::vector<std::uint8_t> bytes(9);
    EXPECT_EQ(VectorText("Text", bytes, 3), "; ; ");
    EXPECT_EQ(Text("Text", bytes), "");
    EXPECT_TRUE(succeeded);
}

TEST_F(ValueOperationsTest, FormatsIntegersAndQuotesTexts) {
    EXPECT_EQ(Text("Point", all, DisplayFormat::Hexadecimal), "FFh; 201h");
    EXPECT_EQ(Text("Point", all, DisplayFormat::Unsigned), "255; 513");
    EXPECT_EQ(Text("Text", ConstValueBuffer(all).subspan(6), DisplayFormat::Default, false),
              "\"hi\"");
}

TEST_F(ValueOperationsTest, AFailingWalkGivesNoText) {
    // OLE-DATE+TIME makes a text of its own for a buffer that is too short.
    EXPECT_EQ(Text("Dated", ConstValueBuffer(all).first(4)), "");
    EXPECT_FALSE(succeeded);
    EXPECT_EQ(Text("Ole", {}), "");
    EXPECT_FALSE(succeeded);
    EXPECT_EQ(VectorText("Word", all, 8), "");
    EXPECT_FALSE(succeeded);
    EXPECT_EQ(Text("Loop", all), "");
    EXPECT_FALSE(succeeded);
    EXPECT_EQ(Text("unknown", all), "");
    EXPECT_FALSE(succeeded);
    EXPECT_EQ(Text("Empty", all), "");
    EXPECT_TRUE(succeeded);
}

TEST_F(ValueOperationsTest, FlattensStructures) {
    EXPECT_EQ(Flat("All", "", all), (Strings{"p[0].x=-1", "p[0].y=513", "p[1].x=2", "p[1].y=3",
                                             "t=\"hi\"", "f=1,5", "m=On"}));
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(Flat("Point", "S", all), (Strings{"S.x=-1", "S.y=513"}));
}

TEST_F(ValueOperationsTest, FlattensSimpleValuesAndVectors) {
    EXPECT_EQ(Flat("Byte", "", all), Strings{"=-1"});
    EXPECT_EQ(Flat("Byte", "a", all), Strings{"a=-1"});
    EXPECT_EQ(FlatVector("Byte", all, 2), (Strings{"[0]=-1", "[1]=1"}));
    EXPECT_EQ(FlatVector("Point", all, 2),
              (Strings{"[0].x=-1", "[0].y=513", "[1].x=2", "[1].y=3"}));
    EXPECT_EQ(FlatVector("Byte", all, 0), Strings{});
    EXPECT_TRUE(succeeded);
}

TEST_F(ValueOperationsTest, AFailingWalkGivesNoLeaves) {
    EXPECT_TRUE(Flat("Dated", "", ConstValueBuffer(all).first(4)).empty());
    EXPECT_FALSE(succeeded);
    EXPECT_TRUE(FlatVector("Point", all, 5).empty());
    EXPECT_FALSE(succeeded);
    EXPECT_TRUE(Flat("Loop", "", all).empty());
    EXPECT_FALSE(succeeded);
    EXPECT_TRUE(Flat("unknown", "", all).empty());
    EXPECT_FALSE(succeeded);
    EXPECT_TRUE(FlatVector("Empty", all, 4294967295U).empty());
    EXPECT_TRUE(succeeded);
}

}  // namespace
}  // namespace orvell::test
