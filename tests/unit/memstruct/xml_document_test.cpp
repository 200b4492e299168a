#include "memstruct/xml_document.h"

#include <stdexcept>

#include "memstruct_fixture.h"

namespace orvell::test {
namespace {

using memstruct::XmlDocument;
using memstruct::XmlNode;
using resources::StringId;

class XmlDocumentTest : public MemstructTest {
  protected:
    /// A document that holds this text.
    XmlDocument& Opened(const std::string& text) {
        library.files["file.xml"] = text;
        EXPECT_TRUE(document.Open("file.xml"));
        return document;
    }

    void TearDown() override {
        document.Close();
        MemstructTest::TearDown();
    }

    XmlDocument document{xml};
};

TEST_F(XmlDocumentTest, MovingANodeLeavesTheSourceEmpty) {
    XmlNode root = Opened("<a/>").Root();
    XmlNode moved(std::move(root));
    EXPECT_FALSE(root.IsValid());
    EXPECT_TRUE(moved.IsValid());
    XmlNode assigned;
    assigned = std::move(moved);
    EXPECT_FALSE(moved.IsValid());
    EXPECT_EQ(assigned.Name(), "a");
    EXPECT_EQ(library.NodesOut(), 1U);
}

TEST_F(XmlDocumentTest, AssigningReleasesTheOldHandleOnce) {
    XmlNode root = Opened("<a><b/></a>").Root();
    XmlNode child = root.FirstChild();
    EXPECT_EQ(library.NodesOut(), 2U);
    root = std::move(child);
    EXPECT_EQ(library.NodesOut(), 1U);
    EXPECT_EQ(root.Name(), "b");
}

TEST_F(XmlDocumentTest, AssigningANodeToItselfKeepsIt) {
    XmlNode root = Opened("<a/>").Root();
    XmlNode& same = root;
    root = std::move(same);
    EXPECT_TRUE(root.IsValid());
    EXPECT_EQ(root.Name(), "a");
    EXPECT_EQ(library.NodesOut(), 1U);
}

TEST_F(XmlDocumentTest, ReleasingTwiceGivesBackOnce) {
    XmlNode root = Opened("<a/>").Root();
    root.Release();
    root.Release();
    EXPECT_FALSE(root.IsValid());
    EXPECT_EQ(library.NodesOut(), 0U);
}

TEST_F(XmlDocumentTest, AnInvalidNodeAnswersWithoutTheLibrary) {
    const XmlNode node;
    std::string text = "old";
    std::uint32_t number = 7;
    EXPECT_FALSE(node.FirstChild().IsValid());
    EXPECT_FALSE(node.Next().IsValid());
    EXPECT_FALSE(node.ChildByName("a").IsValid());
    EXPECT_FALSE(node.ChildByName(StringId::ElementType).IsValid());
    EXPECT_FALSE(node.AddChild("a").IsValid());
    EXPECT_FALSE(node.AddChild(StringId::ElementType).IsValid());
    EXPECT_EQ(node.Name(), "");
    EXPECT_FALSE(node.NameIs(StringId::ElementType));
    EXPECT_EQ(node.AttribCount(), 0U);
    EXPECT_FALSE(node.AttribName(0, text));
    EXPECT_EQ(text, "");
    EXPECT_FALSE(node.AttribText("a", text = "old"));
    EXPECT_EQ(text, "");
    EXPECT_FALSE(node.AttribText(StringId::AttributeName, text = "old"));
    EXPECT_EQ(text, "");
    EXPECT_FALSE(node.AttribULong("a", number));
    EXPECT_EQ(number, 0U);
    EXPECT_FALSE(node.AttribULong(StringId::AttributeId, number = 7));
    EXPECT_EQ(number, 0U);
    EXPECT_FALSE(node.SetAttribText("a", "b"));
    EXPECT_EQ(library.calls, 0U);
}

TEST_F(XmlDocumentTest, ComparesNamesExactly) {
    const XmlNode root = Opened("<Type/>").Root();
    EXPECT_TRUE(root.NameIs(StringId::ElementType));
    EXPECT_FALSE(root.NameIs(StringId::ElementTypeList));
    changedStrings.changes[502] = "type";
    strings.UseSource(changedStrings);
    EXPECT_FALSE(root.NameIs(StringId::ElementType));
}

TEST_F(XmlDocumentTest, AMissingStringEqualsNoName) {
    changedStrings.changes[502] = "";
    const XmlNode root = Opened("<Type/>").Root();
    EXPECT_FALSE(root.NameIs(StringId::ElementType));
    library.failingCall = library.calls + 1;
    library.staysBroken = true;
    EXPECT_EQ(root.Name(), "");
    EXPECT_FALSE(root.NameIs(StringId::ElementType));
}

TEST_F(XmlDocumentTest, ReadsAttributesByNameAndByNumber) {
    const XmlNode root = Opened("<a Name='n' Size='4294967295' Value='4294967296'/>").Root();
    std::string text;
    EXPECT_TRUE(root.AttribText("Name", text));
    EXPECT_EQ(text, "n");
    EXPECT_TRUE(root.AttribText(StringId::AttributeName, text = ""));
    EXPECT_EQ(text, "n");
    EXPECT_FALSE(root.AttribText(StringId::AttributeComment, text));
    EXPECT_EQ(text, "");
    std::uint32_t number = 0;
    EXPECT_TRUE(root.AttribULong(StringId::AttributeSize, number));
    EXPECT_EQ(number, 4294967295U);
    EXPECT_FALSE(root.AttribULong("Value", number));
    EXPECT_EQ(number, 0U);
    EXPECT_FALSE(root.AttribULong(StringId::AttributeId, number = 7));
    EXPECT_EQ(number, 0U);
}

TEST_F(XmlDocumentTest, FindsTheFirstChildOfAName) {
    const XmlNode root = Opened("<a><b/><Type n='1'/><Type n='2'/></a>").Root();
    std::string text;
    EXPECT_TRUE(root.ChildByName(StringId::ElementType).AttribText("n", text));
    EXPECT_EQ(text, "1");
    EXPECT_TRUE(root.ChildByName("b").IsValid());
    EXPECT_FALSE(root.ChildByName("c").IsValid());
}

TEST_F(XmlDocumentTest, WalksChildrenHoldingOneHandleAtATime) {
    const XmlNode root = Opened("<a><Type/><b/><Type/><Type/></a>").Root();
    std::string names;
    root.ForEachChild([&names](const XmlNode& child) { names += child.Name() + ' '; });
    EXPECT_EQ(names, "Type b Type Type ");
    int types = 0;
    root.ForEachChild(StringId::ElementType, [&types](const XmlNode&) { ++types; });
    EXPECT_EQ(types, 3);
    // The next child's handle is fetched before the one at hand is given back.
    EXPECT_EQ(library.MostNodesOut(), 3U);
    EXPECT_EQ(library.NodesOut(), 1U);
}

TEST_F(XmlDocumentTest, AWalkThatEndsEarlyLeavesNothingBehind) {
    const XmlNode root = Opened("<a><b/><c/></a>").Root();
    const auto endEarly = [](const XmlNode&) { throw std::runtime_error("enough"); };
    EXPECT_THROW(root.ForEachChild(endEarly), std::runtime_error);
    EXPECT_EQ(library.NodesOut(), 1U);
}

TEST_F(XmlDocumentTest, HoldsOneDocumentAndClosesIt) {
    library.files["one.xml"] = "<one/>";
    library.files["two.xml"] = "<two/>";
    XmlDocument other(xml);
    EXPECT_TRUE(other.Open("one.xml"));
    EXPECT_TRUE(other.Open("two.xml"));
    EXPECT_EQ(library.DocumentsOut(), 1U);
    EXPECT_EQ(other.Root().Name(), "two");
    EXPECT_TRUE(other.Create());
    EXPECT_EQ(library.DocumentsOut(), 1U);
    EXPECT_FALSE(other.Root().IsValid());
    other.Close();
    other.Close();
    EXPECT_EQ(library.DocumentsOut(), 0U);
    const std::uint64_t calls = library.calls;
    EXPECT_FALSE(other.Root().IsValid());
    EXPECT_FALSE(other.AddRoot("a").IsValid());
    EXPECT_FALSE(other.Save("one.xml"));
    EXPECT_EQ(library.calls, calls);
}

TEST_F(XmlDocumentTest, AFailedOpenLeavesNoDocument) {
    library.files["one.xml"] = "<one/>";
    library.files["broken.xml"] = "<one";
    ASSERT_TRUE(document.Open("one.xml"));
    EXPECT_FALSE(document.Open("broken.xml"));
    EXPECT_EQ(library.DocumentsOut(), 0U);
    EXPECT_NE(document.LastError(), "");
    library.failingCall = library.calls + 1;
    EXPECT_FALSE(document.Create());
    EXPECT_FALSE(document.Root().IsValid());
}

TEST_F(XmlDocumentTest, WritesWhatWasAdded) {
    library.files["new.xml"] = "";
    ASSERT_TRUE(document.Create());
    {
        const XmlNode root = document.AddRoot(StringId::ElementDefinitions);
        const XmlNode list = root.AddChild(StringId::ElementTypeList);
        const XmlNode type = list.AddChild("Type");
        EXPECT_TRUE(type.SetAttribText("Name", "old"));
        EXPECT_TRUE(type.SetAttribText("Name", "a<b"));
        EXPECT_TRUE(document.Save("new.xml"));
    }
    ASSERT_TRUE(document.Open("new.xml"));
    std::string name;
    document.Root().ChildByName("TypeList").FirstChild().AttribText("Name", name);
    EXPECT_EQ(name, "a<b");
    library.failingCall = library.calls + 1;
    EXPECT_FALSE(document.Save("new.xml"));
}

}  // namespace
}  // namespace orvell::test
