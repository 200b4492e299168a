// What a saved file looks like to a reader.

#include <gtest/gtest.h>

#include "boundary/xmlaccess/scratch_folder.h"
#include "boundary/xmlaccess/xml_access.h"

namespace workbench_test {
namespace {

class XmlLayoutTest : public testing::Test {
  protected:
    XmlNodeHandle Parse(const char* text) {
        document_ = xml_.ParseText(text);
        return xml_.GetRootNode(document_);
    }

    /// The saved file from the root on, with line feeds only.
    std::string Saved() {
        EXPECT_GT(xml_.Save(document_, folder_.Path("S.XML").c_str()), 0) << xml_.LastError();
        std::string text = folder_.Read("S.XML");
        std::erase(text, '\r');
        text.erase(0, text.find("?>\n") + 3);
        return text;
    }

    XmlAccess xml_;
    ScratchFolder folder_;
    XmlDocumentHandle document_ = 0;
};

TEST_F(XmlLayoutTest, NewDocumentIsIndented) {
    document_ = xml_.Create();
    const auto root = xml_.AddRootNodeByName(document_, "Definitions");
    const auto list = xml_.AddChildNodeByName(root, "TypeList");
    const auto type = xml_.AddChildNodeByName(list, "Type");
    xml_.SetStringValueAttrib(type, "Name", "A");
    xml_.AddChildNodeByName(type, "Item");
    xml_.AddChildNodeByName(list, "Type");
    xml_.AddChildNodeByName(root, "MemoryList");
    EXPECT_EQ(Saved(),
              "<Definitions>\n"
              "  <TypeList>\n"
              "    <Type Name=\"A\">\n"
              "      <Item/>\n"
              "    </Type>\n"
              "    <Type/>\n"
              "  </TypeList>\n"
              "  <MemoryList/>\n"
              "</Definitions>\n");
}

TEST_F(XmlLayoutTest, ExistingLayoutAndCommentsStay) {
    const auto root = Parse("<r>\n\t<!-- why -->\n\t<l>\n\t\t<a  x='1'\ty='2' />\n\t</l>\n</r>");
    const auto list = xml_.GetFirstChildNode(root);
    xml_.AddChildNodeByName(list, "b");
    EXPECT_EQ(Saved(),
              "<r>\n\t<!-- why -->\n\t<l>\n\t\t<a x=\"1\" y=\"2\"/>\n\t  <b/>\n\t</l>\n</r>\n");
}

TEST_F(XmlLayoutTest, CompactDocumentGetsLinesForWhatIsAdded) {
    const auto root = Parse("<r><l><a/></l></r>");
    xml_.AddChildNodeByName(root, "b");
    xml_.AddChildNodeByName(root, "c");
    EXPECT_EQ(Saved(), "<r><l><a/></l>\n  <b/>\n  <c/>\n</r>\n");
}

TEST_F(XmlLayoutTest, ParentWithALineBreakOnly) {
    const auto root = Parse("<r>\n</r>");
    xml_.AddChildNodeByName(root, "a");
    EXPECT_EQ(Saved(), "<r>\n  <a/>\n</r>\n");
}

TEST_F(XmlLayoutTest, MixedContentIsNotChanged) {
    const auto root = Parse("<r>some text</r>");
    xml_.AddChildNodeByName(root, "a");
    EXPECT_EQ(Saved(), "<r>some text<a/></r>\n");
}

TEST_F(XmlLayoutTest, InsertedElementTakesALineBeforeItsSibling) {
    const auto root = Parse("<r>\n  <b/>\n</r>");
    const auto inserted = xml_.InsertBeforeNode(xml_.GetFirstChildNode(root), "a");
    EXPECT_EQ(xml_.Name(inserted), "a");
    EXPECT_EQ(xml_.Name(xml_.GetNextNode(inserted)), "b");
    EXPECT_EQ(Saved(), "<r>\n  <a/>\n  <b/>\n</r>\n");
    EXPECT_EQ(xml_.InsertBeforeNode(root, "x"), 0U);
}

TEST_F(XmlLayoutTest, RemovedElementTakesItsLineAlong) {
    const auto root = Parse("<r>\n  <a/>\n  <b/>\n</r>");
    const auto first = xml_.GetFirstChildNode(root);
    EXPECT_EQ(xml_.RemoveNode(first), 1);
    EXPECT_EQ(xml_.RemoveNode(first), 0);
    EXPECT_EQ(Saved(), "<r>\n  <b/>\n</r>\n");
}

TEST_F(XmlLayoutTest, DeepDocumentsStayReadable) {
    auto node = Parse("<r/>");
    for (int depth = 0; depth < 200; ++depth) {
        node = xml_.AddChildNodeByName(node, "n");
        ASSERT_NE(node, 0U);
    }
    const std::string saved = Saved();
    EXPECT_LT(saved.size(), 200U * 2 * 80);
    EXPECT_NE(xml_.Open(folder_.Path("S.XML").c_str()), 0U) << xml_.LastError();
}

}  // namespace
}  // namespace workbench_test
