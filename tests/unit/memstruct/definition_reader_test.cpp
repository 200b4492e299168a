#include "memstruct/definition_reader.h"

#include "memstruct_fixture.h"

namespace orvell::test {
namespace {

using memstruct::StructItem;
using memstruct::TypeDef;
using values::BaseTypeCode;
using values::DateFormatCode;

class DefinitionReaderTest : public MemstructTest {
  protected:
    /// Names of all types of the list, without the implicit ones.
    [[nodiscard]] std::vector<std::string> OwnTypes() const {
        std::vector<std::string> names;
        for (const TypeDef& type : store.Types()) {
            names.push_back(type.name);
        }
        names.erase(names.begin(), names.begin() + 4);
        return names;
    }

    [[nodiscard]] std::string Enumerators(const std::string& typeName) const {
        std::string list;
        for (const values::EnumItem& item : Type(typeName)->enumItems.Items()) {
            list += std::to_string(item.value) + '=' + item.name + ' ';
        }
        return list;
    }
};

using Names = std::vector<std::string>;

TEST_F(DefinitionReaderTest, ReadsAWholeDocument) {
    Define(R"(<?xml version="1.0" encoding="windows-1252"?>
        <Definitions>
          <!-- a type may be used before it is defined -->
          <TypeList>
            <Type Name="Mode" BaseType="Enumerated" Size="2">
              <Item Value="0" Name="Off"/><Item Value="1" Name="On"/>
            </Type>
            <Type Name="Point" BaseType="Structured" Comment="plane">
              <Item Name="x" Type="Word" Dimension="1"/><Item Name="y" Type="Word"/>
            </Type>
            <Type Name="Word" BaseType="UINT" Size="2"/>
            <Type Name="Day" BaseType="DATE" Format="MM/DD/YYYY"/>
          </TypeList>
          <MemoryList><Memory ID="17" Type="Point"/></MemoryList>
        </Definitions>)");
    EXPECT_EQ(OwnTypes(), (Names{"Mode", "Point", "Word", "Day"}));
    EXPECT_EQ(Enumerators("Mode"), "0=Off 1=On ");
    EXPECT_EQ(Type("Mode")->size, 2U);
    EXPECT_EQ(Type("Day")->dateFormat, DateFormatCode::MonthFirst);
    ASSERT_EQ(Type("Point")->structItems.size(), 2U);
    EXPECT_EQ(Type("Point")->structItems[1].name, "y");
    EXPECT_EQ(Type("Point")->structItems[1].type, Type("Word"));
    ASSERT_NE(store.FindMemoryArea(17), nullptr);
    EXPECT_EQ(store.TypeOfArea(17), Type("Point"));
    EXPECT_EQ(memstruct::MemoryStructureStore::StoredSize(store.TypeOfArea(17)), 4U);
}

TEST_F(DefinitionReaderTest, KnowsAllBaseTypes) {
    DefineLists(R"(<Type Name="a" BaseType="INT"/><Type Name="b" BaseType="UINT"/>
        <Type Name="c" BaseType="FLOAT"/><Type Name="d" BaseType="DOUBLE"/>
        <Type Name="e" BaseType="STRING"/><Type Name="f" BaseType="DURATION"/>
        <Type Name="g" BaseType="TIME"/><Type Name="h" BaseType="DATE"/>
        <Type Name="i" BaseType="DATE+TIME"/><Type Name="j" BaseType="OLE-DATE+TIME"/>
        <Type Name="k" BaseType="Enumerated"/><Type Name="l" BaseType="Structured"/>)");
    ASSERT_EQ(OwnTypes().size(), 12U);
    for (std::uint32_t i = 0; i < 12; ++i) {
        EXPECT_EQ(static_cast<std::uint32_t>(store.Types()[4 + i].baseType), 700U + i);
    }
}

TEST_F(DefinitionReaderTest, PassesOverTypesWithoutNameOrBaseType) {
    DefineLists(R"(<Type BaseType="INT"/><Type Name="" BaseType="INT"/>
        <Type Name=" 	 " BaseType="INT"/><Type Name="a"/><Type Name="b" BaseType=""/>
        <Type Name="c" BaseType="int"/><Type Name="d" BaseType="WORD"/>
        <Item Name="e" BaseType="INT"/><type Name="f" BaseType="INT"/>
        <Type Name="ok" BaseType="INT"/>)");
    EXPECT_EQ(OwnTypes(), Names{"ok"});
}

TEST_F(DefinitionReaderTest, TrimsBlanksAndTabsOfTypesAndAreasOnly) {
    DefineLists(
        "<Type Name='\t Word\t ' BaseType='\tUINT '/>"
        "<Type Name='no\nblank\n' BaseType='UINT'/>"
        "<Type Name='S' BaseType='Structured'>"
        "<Item Name=' x ' Type=' Word '/><Item Name=' ' Type='Word'/></Type>"
        "<Type Name='E' BaseType='Enumerated'><Item Value='1' Name=' on '/></Type>",
        "<Memory ID='1' Type=' \tWord '/>");
    EXPECT_EQ(OwnTypes(), (Names{"Word", "no\nblank\n", "S", "E"}));
    const TypeDef& structure = *Type("S");
    ASSERT_EQ(structure.structItems.size(), 2U);
    EXPECT_EQ(structure.structItems[0].name, " x ");
    EXPECT_EQ(structure.structItems[0].typeName, " Word ");
    EXPECT_EQ(structure.structItems[0].type, nullptr);
    EXPECT_EQ(structure.structItems[1].name, " ");
    EXPECT_EQ(Enumerators("E"), "1= on  ");
    EXPECT_EQ(store.TypeOfArea(1), Type("Word"));
}

TEST_F(DefinitionReaderTest, ReadsSizesWhereTheyMatter) {
    DefineLists(R"(<Type Name="int" BaseType="INT" Size="3"/>
        <Type Name="uint" BaseType="UINT" Size="4294967295"/>
        <Type Name="text" BaseType="STRING" Size="12"/>
        <Type Name="enum" BaseType="Enumerated" Size="8"/>
        <Type Name="none" BaseType="INT"/><Type Name="junk" BaseType="INT" Size="two"/>
        <Type Name="huge" BaseType="INT" Size="4294967296"/>
        <Type Name="date" BaseType="DATE" Size="8"/><Type Name="real" BaseType="FLOAT" Size="8"/>
        <Type Name="whole" BaseType="Structured" Size="8"/>)");
    EXPECT_EQ(Type("int")->size, 3U);
    EXPECT_EQ(Type("uint")->size, 4294967295U);
    EXPECT_EQ(Type("text")->size, 12U);
    EXPECT_EQ(Type("enum")->size, 8U);
    for (const char* name : {"none", "junk", "huge", "date", "real", "whole"}) {
        EXPECT_EQ(Type(name)->size, 0U) << name;
    }
}

TEST_F(DefinitionReaderTest, ReadsDateFormatsInAnyCase) {
    DefineLists(R"(<Type Name="day" BaseType="DATE" Format="DD.MM.YYYY"/>
        <Type Name="month" BaseType="DATE+TIME" Format="mm/dd/yyyy"/>
        <Type Name="ole" BaseType="OLE-DATE+TIME" Format="Mm/Dd/yYYY"/>
        <Type Name="none" BaseType="DATE"/><Type Name="junk" BaseType="DATE" Format="YYYY"/>
        <Type Name="blank" BaseType="DATE" Format=" MM/DD/YYYY"/>
        <Type Name="time" BaseType="TIME" Format="MM/DD/YYYY"/>)");
    EXPECT_EQ(Type("month")->dateFormat, DateFormatCode::MonthFirst);
    EXPECT_EQ(Type("ole")->dateFormat, DateFormatCode::MonthFirst);
    for (const char* name : {"day", "none", "junk", "blank"}) {
        EXPECT_EQ(Type(name)->dateFormat, DateFormatCode::DayFirst) << name;
    }
    EXPECT_EQ(Type("time")->dateFormat, DateFormatCode::None);
}

TEST_F(DefinitionReaderTest, SortsEnumeratorsAndKeepsTheFirstOfAValue) {
    DefineLists(R"(<Type Name="E" BaseType="Enumerated">
        <Item Value="7" Name="seven"/><Item Value="1" Name="one"/>
        <Item Value="7" Name="again"/><Item Value="4294967295" Name="last"/>
        <Item Value="0" Name="one"/><Item Value="" Name="a"/><Item Value="x" Name="b"/>
        <Item Name="c"/><Item Value="2"/><Item Value="3" Name=""/><Other Value="4" Name="d"/>
        </Type>)");
    EXPECT_EQ(Enumerators("E"), "0=one 1=one 7=seven 4294967295=last ");
}

TEST_F(DefinitionReaderTest, ReadsElementsInFileOrder) {
    DefineLists(R"(<Type Name="S" BaseType="Structured">
        <Item Name="b" Type="FLOAT"/><Item Name="a" Type="FLOAT" Dimension="3"/>
        <Item Name="a" Type="none" Dimension="0"/><Item Name="z" Type="S" Dimension="x"/>
        <Item Name="w" Type="TIME" Dimension="4294967295"/><Item Type="FLOAT"/>
        <Item Name="" Type="FLOAT"/><Item Name="c"/><Item Name="d" Type=""/>
        <Other Name="e" Type="FLOAT"/></Type>)");
    const std::vector<StructItem>& items = Type("S")->structItems;
    ASSERT_EQ(items.size(), 5U);
    EXPECT_EQ(items[0].name, "b");
    EXPECT_EQ(items[0].dimension, 1U);
    EXPECT_EQ(items[1].name, "a");
    EXPECT_EQ(items[1].dimension, 3U);
    EXPECT_EQ(items[2].name, "a");
    EXPECT_EQ(items[2].dimension, 1U);
    EXPECT_EQ(items[2].type, nullptr);
    EXPECT_EQ(items[3].dimension, 1U);
    EXPECT_EQ(items[4].dimension, 4294967295U);
}

TEST_F(DefinitionReaderTest, ReadsItemsOfTheRightBaseTypeOnly) {
    DefineLists(R"(<Type Name="I" BaseType="INT"><Item Value="1" Name="a" Type="FLOAT"/></Type>
        <Type Name="E" BaseType="Enumerated"><Item Value="1" Name="a" Type="FLOAT"/></Type>
        <Type Name="S" BaseType="Structured"><Item Value="1" Name="a" Type="FLOAT"/></Type>)");
    EXPECT_TRUE(Type("I")->enumItems.Items().empty());
    EXPECT_TRUE(Type("I")->structItems.empty());
    EXPECT_EQ(Type("E")->enumItems.Items().size(), 1U);
    EXPECT_TRUE(Type("E")->structItems.empty());
    EXPECT_TRUE(Type("S")->enumItems.Items().empty());
    EXPECT_EQ(Type("S")->structItems.size(), 1U);
}

TEST_F(DefinitionReaderTest, KeepsTheFirstOfTwoTypesWithOneName) {
    DefineLists(R"(<Type Name="A" BaseType="INT" Size="1"/><Type Name=" A " BaseType="UINT"/>
        <Type Name="a" BaseType="DOUBLE"/>)");
    EXPECT_EQ(OwnTypes(), (Names{"A", "a"}));
    EXPECT_EQ(Type("A")->baseType, BaseTypeCode::Int);
}

TEST_F(DefinitionReaderTest, AnImplicitTypeKeepsItsMeaning) {
    DefineLists(R"(<Type Name="FLOAT" BaseType="INT" Size="1"/>
        <Type Name="INT" BaseType="STRING" Size="5"/>)");
    EXPECT_EQ(OwnTypes(), Names{"INT"});
    EXPECT_EQ(Type("FLOAT")->baseType, BaseTypeCode::Float);
    EXPECT_EQ(Type("FLOAT")->storedSize, 4U);
    EXPECT_EQ(Type("INT")->storedSize, 5U);
}

TEST_F(DefinitionReaderTest, ReadsMemoryAreasInAscendingOrderOfId) {
    DefineLists(R"(<Type Name="A" BaseType="INT"/>)",
                R"(<Memory ID="4294967295" Type="A"/><Memory ID="5" Type="A"/>
        <Memory ID="5" Type="FLOAT"/><Memory ID="1" Type="none"/><Memory ID="0" Type="A"/>
        <Memory Type="A"/><Memory ID="x" Type="A"/><Memory ID="6"/><Memory ID="7" Type=" "/>
        <Other ID="8" Type="A"/><Memory ID="9" Name="A"/>)");
    std::vector<std::uint32_t> ids;
    for (const memstruct::MemoryArea& area : store.Areas()) {
        EXPECT_EQ(store.FindMemoryArea(area.id), &area);
        ids.push_back(area.id);
    }
    EXPECT_EQ(ids, (std::vector<std::uint32_t>{1, 5, 4294967295U}));
    EXPECT_EQ(store.TypeOfArea(5), Type("A"));
    ASSERT_NE(store.FindMemoryArea(1), nullptr);
    EXPECT_EQ(store.FindMemoryArea(1)->typeName, "none");
    EXPECT_EQ(store.TypeOfArea(1), nullptr);
    EXPECT_EQ(store.FindMemoryArea(2), nullptr);
    EXPECT_EQ(store.TypeOfArea(static_cast<std::uint32_t>(-1)), Type("A"));
}

TEST_F(DefinitionReaderTest, ReadsTheFirstListOfEachKindWhateverTheRootIsCalled) {
    Define(R"(<Anything><MemoryList><Memory ID="1" Type="A"/></MemoryList><Other/>
        <TypeList><Type Name="A" BaseType="INT"/></TypeList>
        <TypeList><Type Name="B" BaseType="INT"/></TypeList>
        <MemoryList><Memory ID="2" Type="A"/></MemoryList></Anything>)");
    EXPECT_EQ(OwnTypes(), Names{"A"});
    EXPECT_EQ(store.Areas().size(), 1U);
    EXPECT_EQ(store.TypeOfArea(1), Type("A"));
}

TEST_F(DefinitionReaderTest, ReadsDocumentsWithoutLists) {
    Define("<Definitions/>");
    EXPECT_TRUE(OwnTypes().empty());
    Define("<Definitions><TypeList/><MemoryList/></Definitions>");
    EXPECT_TRUE(OwnTypes().empty());
    EXPECT_TRUE(store.Areas().empty());
}

TEST_F(DefinitionReaderTest, PassesOverTextsAndComments) {
    library.givesOtherNodes = true;
    Define(R"(<Definitions>text<!-- c --><TypeList>text<!-- c -->
        <Type Name="S" BaseType="Structured">text<!-- c --><Item Name="a" Type="FLOAT"/></Type>
        </TypeList></Definitions>)");
    ASSERT_EQ(OwnTypes(), Names{"S"});
    EXPECT_EQ(Type("S")->structItems.size(), 1U);
}

TEST_F(DefinitionReaderTest, TakesTheVocabularyFromTheStringTable) {
    changedStrings.changes = {
        {501, "Typen"},    {502, "Typ"},        {503, "Element"}, {600, "Bez"},      {607, "Basis"},
        {711, "Struktur"}, {751, "MM-DD-YYYY"}, {702, "REAL"},    {506, "Speicher"}, {605, "Nr"}};
    Define(R"(<Definitions><Typen>
        <Typ Bez="S" Basis="Struktur"><Element Bez="a" Type="REAL"/></Typ>
        <Typ Bez="D" Basis="DATE" Format="mm-dd-yyyy"/>
        </Typen><MemoryList><Speicher Nr="3" Type="S"/></MemoryList></Definitions>)");
    EXPECT_EQ(OwnTypes(), (Names{"S", "D"}));
    EXPECT_EQ(store.TypeOfArea(3)->storedSize, 4U);
    EXPECT_EQ(Type("D")->dateFormat, DateFormatCode::MonthFirst);
}

TEST_F(DefinitionReaderTest, TheFirstOfEqualTextsCounts) {
    changedStrings.changes = {{701, "INT"}, {751, "DD.MM.YYYY"}};
    DefineLists(R"(<Type Name="a" BaseType="INT"/>
        <Type Name="b" BaseType="DATE" Format="DD.MM.YYYY"/>)");
    EXPECT_EQ(Type("a")->baseType, BaseTypeCode::Int);
    EXPECT_EQ(Type("b")->dateFormat, DateFormatCode::DayFirst);
}

TEST_F(DefinitionReaderTest, VocabularyEndsAtTheFirstMissingText) {
    changedStrings.changes = {{705, ""}, {750, ""}};
    DefineLists(R"(<Type Name="a" BaseType="INT"/><Type Name="b" BaseType="TIME"/>
        <Type Name="c" BaseType="Structured"/><Type Name="d" BaseType=""/>)");
    // Without the names from 705 on there are only two implicit types, and "b" to "d" are unknown.
    std::vector<std::string> names;
    for (const TypeDef& type : store.Types()) {
        names.push_back(type.name);
    }
    EXPECT_EQ(names, (Names{"FLOAT", "DOUBLE", "a"}));
}

TEST_F(DefinitionReaderTest, ReadsManyDefinitionsWithAFixedNumberOfCallsEach) {
    const auto callsFor = [this](int count) {
        std::string types;
        std::string areas;
        for (int i = 0; i < count; ++i) {
            const std::string number = std::to_string(i + 1);
            types += "<Type Name='T" + number + "' BaseType='Structured'><Item Name='a' Type='T" +
                     std::to_string(count - i) + "'/></Type>";
            areas += "<Memory ID='" + number + "' Type='T" + number + "'/>";
        }
        const std::uint64_t before = library.calls;
        DefineLists(types, areas);
        EXPECT_EQ(store.Areas().size(), static_cast<std::size_t>(count));
        return library.calls - before;
    };
    const std::uint64_t few = callsFor(100);
    const std::uint64_t many = callsFor(1000);
    EXPECT_LT(many, 10 * few + 1);
    EXPECT_LE(library.MostNodesOut(), 6U);
}

/// Definitions in an order that is bad for one or the other way of inserting.
class ManyDefinitionsTest : public MemstructTest, public testing::WithParamInterface<bool> {};

TEST_P(ManyDefinitionsTest, LoadsAHundredThousandOfEachKind) {
    constexpr std::uint32_t kCount = 100'000;
    std::string types;
    std::string areas;
    std::string enumerators;
    for (std::uint32_t i = 1; i <= kCount; ++i) {
        const std::string number = std::to_string(GetParam() ? i : kCount + 1 - i);
        types.append("<Type Name='T").append(number).append("' BaseType='UINT' Size='4'/>");
        areas.append("<Memory ID='").append(number).append("' Type='T").append(number) += "'/>";
        enumerators.append("<Item Value='").append(number).append("' Name='N").append(number) +=
            "'/>";
    }
    DefineLists(types + "<Type Name='E' BaseType='Enumerated'>" + enumerators + "</Type>", areas);
    EXPECT_EQ(store.Types().size(), 4 + kCount + 1);
    ASSERT_EQ(store.Areas().size(), kCount);
    std::uint32_t expected = 0;
    for (const memstruct::MemoryArea& area : store.Areas()) {
        ASSERT_EQ(area.id, ++expected);
        ASSERT_EQ(area.type, Type("T" + std::to_string(area.id)));
        ASSERT_NE(area.type, nullptr);
    }
    const auto items = Type("E")->enumItems.Items();
    ASSERT_EQ(items.size(), kCount);
    EXPECT_EQ(items.front().name, "N1");
    EXPECT_EQ(items.back().value, kCount);
}

INSTANTIATE_TEST_SUITE_P(Order, ManyDefinitionsTest, testing::Bool(), [](const auto& order) {
    return order.param ? "Ascending" : "Descending";
});

}  // namespace
}  // namespace orvell::test
