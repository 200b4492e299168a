#include "memstruct/definition_merge.h"

#include "memstruct_fixture.h"

namespace orvell::test {
namespace {

using memstruct::CopyElement;
using memstruct::MergeDefinitions;
using memstruct::XmlDocument;

class DefinitionMergeTest : public MemstructTest {
  protected:
    /// The destination's text after a merge of the source into it.
    std::string Merged(const std::string& source, const std::string& destination) {
        library.files["source.xml"] = source;
        library.files["destination.xml"] = destination;
        XmlDocument from(xml);
        XmlDocument to(xml);
        EXPECT_TRUE(from.Open("source.xml")) << from.LastError();
        EXPECT_TRUE(to.Open("destination.xml")) << to.LastError();
        MergeDefinitions(from.Root(), to.Root());
        EXPECT_TRUE(to.Save("destination.xml"));
        return library.files["destination.xml"];
    }

    /// The text that the fake library writes for this one.
    std::string Rewritten(const std::string& text) { return Merged("<Definitions/>", text); }
};

TEST_F(DefinitionMergeTest, KeepsWhatTheDestinationHas) {
    const std::string destination =
        "<D><TypeList><Type Name='A' BaseType='INT'/></TypeList>"
        "<MemoryList><Memory ID='1' Type='A'/></MemoryList></D>";
    EXPECT_EQ(Merged("<D><TypeList><Type Name='A' BaseType='UINT'/></TypeList>"
                     "<MemoryList><Memory ID='1' Type='B'/></MemoryList></D>",
                     destination),
              Rewritten(destination));
}

TEST_F(DefinitionMergeTest, AddsNewTypesAndAreasAtTheEnd) {
    EXPECT_EQ(Merged("<D><TypeList><Type Name='C'/><Type Name='A' Size='9'/><Type Name='B'/>"
                     "</TypeList><MemoryList><Memory ID='2' Type='C'/><Memory ID='1' Type='C'/>"
                     "</MemoryList></D>",
                     "<X><TypeList><Type Name='A'/></TypeList><Other/>"
                     "<MemoryList><Memory ID='3'/></MemoryList></X>"),
              Rewritten("<X><TypeList><Type Name='A'/><Type Name='C'/><Type Name='B'/></TypeList>"
                        "<Other/><MemoryList><Memory ID='3'/><Memory ID='2' Type='C'/>"
                        "<Memory ID='1' Type='C'/></MemoryList></X>"));
}

TEST_F(DefinitionMergeTest, AddsListsThatTheDestinationLacks) {
    EXPECT_EQ(Merged("<D><MemoryList><Memory ID='2'/></MemoryList><TypeList><Type Name='C'/>"
                     "</TypeList></D>",
                     "<D><Other/></D>"),
              Rewritten("<D><Other/><MemoryList><Memory ID='2'/></MemoryList>"
                        "<TypeList><Type Name='C'/></TypeList></D>"));
}

TEST_F(DefinitionMergeTest, AddsNoListWithoutNeed) {
    EXPECT_EQ(Merged("<D><TypeList/><MemoryList/></D>", "<D/>"), Rewritten("<D/>"));
}

TEST_F(DefinitionMergeTest, LooksAtAllListsAndAddsToTheFirst) {
    EXPECT_EQ(
        Merged("<D><TypeList><Type Name='A'/></TypeList><TypeList><Type Name='B'/>"
               "<Type Name='C'/></TypeList><MemoryList/><MemoryList><Memory ID='1'/>"
               "<Memory ID='2'/></MemoryList></D>",
               "<D><TypeList/><TypeList><Type Name='B'/></TypeList><MemoryList/>"
               "<MemoryList><Memory ID='2'/></MemoryList></D>"),
        Rewritten("<D><TypeList><Type Name='A'/><Type Name='C'/></TypeList>"
                  "<TypeList><Type Name='B'/></TypeList><MemoryList><Memory ID='1'/></MemoryList>"
                  "<MemoryList><Memory ID='2'/></MemoryList></D>"));
}

TEST_F(DefinitionMergeTest, TakesTheFirstOfDuplicatesInTheSource) {
    EXPECT_EQ(Merged("<D><TypeList><Type Name='A' Size='1'/><Type Name='A' Size='2'/></TypeList>"
                     "<TypeList><Type Name='A' Size='3'/></TypeList>"
                     "<MemoryList><Memory ID='7' Type='A'/><Memory ID='7' Type='B'/>"
                     "<Memory ID='007'/></MemoryList></D>",
                     "<D/>"),
              Rewritten("<D><TypeList><Type Name='A' Size='1'/></TypeList>"
                        "<MemoryList><Memory ID='7' Type='A'/></MemoryList></D>"));
}

TEST_F(DefinitionMergeTest, ComparesNamesAsTheyAreWritten) {
    EXPECT_EQ(Merged("<D><TypeList><Type Name='A '/><Type/><Type Name='a'/><Type Name=''/>"
                     "<Type Name=''/></TypeList></D>",
                     "<D><TypeList><Type Name='A'/><Type/></TypeList></D>"),
              Rewritten("<D><TypeList><Type Name='A'/><Type/><Type Name='A '/><Type Name='a'/>"
                        "<Type Name=''/></TypeList></D>"));
}

TEST_F(DefinitionMergeTest, CopiesAreasWithReadableIdsOnly) {
    EXPECT_EQ(Merged("<D><MemoryList><Memory ID='0'/><Memory/><Memory ID='x'/><Memory ID=''/>"
                     "<Memory ID='4294967295'/></MemoryList></D>",
                     "<D><MemoryList><Memory ID='x'/></MemoryList></D>"),
              Rewritten("<D><MemoryList><Memory ID='x'/><Memory ID='0'/><Memory ID='4294967295'/>"
                        "</MemoryList></D>"));
}

TEST_F(DefinitionMergeTest, PassesOverOtherElements) {
    EXPECT_EQ(Merged("<D><Type Name='A'/><Memory ID='1'/><typelist><Type Name='B'/></typelist>"
                     "<TypeList><type Name='C'/><Memory ID='2'/></TypeList>"
                     "<MemoryList><Type Name='D'/></MemoryList></D>",
                     "<D/>"),
              Rewritten("<D/>"));
}

TEST_F(DefinitionMergeTest, CopiesAttributesInOrderAndAllDescendants) {
    const std::string type =
        "<Type z='1' Name='A' Comment='a &lt; &quot;b&quot;' BaseType='Structured' empty=''>"
        "<Item Name='x' Type='T'><Deep a='1'><Deeper/><Deeper b='2'/></Deep></Item>"
        "<Other/><Item Name='y'/></Type>";
    EXPECT_EQ(Merged("<D><TypeList>" + type + "</TypeList></D>", "<D/>"),
              Rewritten("<D><TypeList>" + type + "</TypeList></D>"));
}

TEST_F(DefinitionMergeTest, DoesNotCopyTextsAndComments) {
    library.givesOtherNodes = true;
    EXPECT_EQ(Merged("<D>text<!-- c --><TypeList>text<Type Name='A'>text<!-- c --><Item Name='x'>"
                     "text</Item><!-- c --></Type></TypeList></D>",
                     "<D/>"),
              Rewritten("<D><TypeList><Type Name='A'><Item Name='x'/></Type></TypeList></D>"));
}

TEST_F(DefinitionMergeTest, CopiesADepthOfAHundredThousandElements) {
    constexpr std::size_t kDepth = 100'000;
    std::string nested;
    for (std::size_t i = 0; i < kDepth; ++i) {
        nested += "<a>";
    }
    for (std::size_t i = 0; i < kDepth; ++i) {
        nested += "</a>";
    }
    const std::string merged =
        Merged("<D><TypeList><Type Name='A'>" + nested + "</Type></TypeList></D>", "<D/>");
    std::size_t copied = 0;
    for (std::size_t at = merged.find("<a"); at != std::string::npos;
         at = merged.find("<a", at + 1)) {
        ++copied;
    }
    EXPECT_EQ(copied, kDepth);
}

TEST_F(DefinitionMergeTest, NeedsCallsInProportionToTheDocuments) {
    const auto callsFor = [this](int count) {
        std::string oldTypes;
        std::string newTypes;
        std::string areas;
        for (int i = 0; i < count; ++i) {
            oldTypes += "<Type Name='old" + std::to_string(i) + "'/>";
            newTypes += "<Type Name='new" + std::to_string(i) + "'><Item/></Type>";
            areas += "<Memory ID='" + std::to_string(i) + "'/>";
        }
        const std::uint64_t before = library.calls;
        Merged("<D><TypeList>" + oldTypes + newTypes + "</TypeList><MemoryList>" + areas +
                   "</MemoryList></D>",
               "<D><TypeList>" + oldTypes + "</TypeList></D>");
        return library.calls - before;
    };
    const std::uint64_t few = callsFor(100);
    const std::uint64_t many = callsFor(1000);
    EXPECT_LT(many, 10 * few + 1);
    EXPECT_LE(library.MostNodesOut(), 16U);
}

TEST_F(DefinitionMergeTest, DoesNothingWithoutRoots) {
    library.files["source.xml"] = "<D><TypeList><Type Name='A'/></TypeList></D>";
    XmlDocument from(xml);
    XmlDocument to(xml);
    ASSERT_TRUE(from.Open("source.xml"));
    ASSERT_TRUE(to.Create());
    MergeDefinitions(from.Root(), to.Root());
    MergeDefinitions(to.Root(), from.Root());
    EXPECT_FALSE(to.Root().IsValid());
}

TEST_F(DefinitionMergeTest, AnAttributeThatCannotBeSetIsLeftOut) {
    library.files["source.xml"] = "<D a='1' b='2' c='3'/>";
    XmlDocument from(xml);
    XmlDocument to(xml);
    ASSERT_TRUE(from.Open("source.xml"));
    ASSERT_TRUE(to.Create());
    library.failingCall = library.calls + 6;  // two roots, the count, name and value of "a", set
    CopyElement(from.Root(), to.AddRoot("D"));
    std::string value;
    EXPECT_FALSE(to.Root().AttribText("a", value));
    EXPECT_TRUE(to.Root().AttribText("c", value));
}

}  // namespace
}  // namespace orvell::test
