// Handles, walks and attributes.

#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "boundary/xmlaccess/xml_access.h"

namespace workbench_test {
namespace {

class XmlNodeTest : public testing::Test {
  protected:
    XmlNodeHandle Parse(const char* text) {
        document_ = xml_.ParseText(text);
        return xml_.GetRootNode(document_);
    }

    XmlAccess xml_;
    XmlDocumentHandle document_ = 0;
};

TEST_F(XmlNodeTest, WalkMeetsElementsOnly) {
    const auto root = Parse("<r>text<!-- c --><a/><?pi x?>\n <b/><![CDATA[<no/>]]><c/>text</r>");
    std::string names;
    auto node = xml_.GetFirstChildNode(root);
    while (node != 0) {
        names += xml_.Name(node);
        const auto next = xml_.GetNextNode(node);
        xml_.FreeHandle(node);
        node = next;
    }
    EXPECT_EQ(names, "abc");
    EXPECT_EQ(xml_.GetNextNode(root), 0U);
    EXPECT_EQ(xml_.LastError(), XmlAccess::kNone);
}

TEST_F(XmlNodeTest, ChildByNameIsTheFirstWithExactlyThatName) {
    const auto root = Parse("<r><Typ n='0'/><type n='1'/><Type n='2'/><Type n='3'/></r>");
    EXPECT_EQ(xml_.Attribute(xml_.GetChildNodeByName(root, "Type"), "n"), "2");
    EXPECT_EQ(xml_.GetChildNodeByName(root, "Types"), 0U);
    EXPECT_EQ(xml_.GetChildNodeByName(root, nullptr), 0U);
    EXPECT_EQ(xml_.GetFirstChildNode(xml_.GetChildNodeByName(root, "Typ")), 0U);
}

TEST_F(XmlNodeTest, TwentyThousandElementsAreWalkedOnce) {
    std::string text = "<r>";
    for (int i = 0; i < 20000; ++i) {
        text += "<e n='" + std::to_string(i) + "'/>\n";
    }
    const auto root = Parse((text + "</r>").c_str());
    std::uint32_t expected = 0;
    auto node = xml_.GetFirstChildNode(root);
    while (node != 0) {
        std::uint32_t number = 0;
        ASSERT_NE(xml_.GetAttribValueAsULONG(node, "n", &number), 0);
        ASSERT_EQ(number, expected++);
        const auto next = xml_.GetNextNode(node);
        xml_.FreeHandle(node);
        node = next;
    }
    EXPECT_EQ(expected, 20000U);
}

TEST_F(XmlNodeTest, HandlesAreDifferentWhileInUse) {
    const auto root = Parse("<r/>");
    std::set<XmlNodeHandle> handles{root, document_};
    for (int i = 0; i < 5000; ++i) {
        handles.insert(xml_.GetRootNode(document_));
    }
    EXPECT_EQ(handles.size(), 5002U);
    for (const auto handle : handles) {
        EXPECT_TRUE(handle == document_ || xml_.Name(handle) == "r");
    }
}

TEST_F(XmlNodeTest, StaleHandleIsRefused) {
    const auto root = Parse("<r a='1'/>");
    xml_.FreeHandle(root);
    xml_.FreeHandle(root);
    std::uint32_t number = 7;
    EXPECT_EQ(xml_.Name(root), XmlAccess::kNone);
    EXPECT_EQ(xml_.GetFirstChildNode(root), 0U);
    EXPECT_EQ(xml_.GetNextNode(root), 0U);
    EXPECT_EQ(xml_.AddChildNodeByName(root, "x"), 0U);
    EXPECT_EQ(xml_.GetNumOfAttribs(root), 0U);
    EXPECT_EQ(xml_.GetAttribValueAsULONG(root, "a", &number), 0);
    EXPECT_EQ(number, 0U);
    EXPECT_EQ(xml_.SetStringValueAttrib(root, "a", "2"), 0);
    EXPECT_EQ(xml_.RemoveNode(root), 0);
    EXPECT_EQ(xml_.LastError(), "The node handle is not in use.");
}

TEST_F(XmlNodeTest, StaleHandleStaysStaleWhenItsPlaceIsUsedAgain) {
    const auto stale = Parse("<r/>");
    xml_.FreeHandle(stale);
    for (int i = 0; i < 100000; ++i) {
        const auto node = xml_.GetRootNode(document_);
        ASSERT_NE(node, stale);
        xml_.FreeHandle(node);
    }
    EXPECT_EQ(xml_.Name(stale), XmlAccess::kNone);
}

TEST_F(XmlNodeTest, WrongKindsOfHandlesAreRefused) {
    const auto root = Parse("<r/>");
    EXPECT_EQ(xml_.GetRootNode(root), 0U);
    EXPECT_EQ(xml_.GetFirstChildNode(document_), 0U);
    EXPECT_EQ(xml_.Close(root), 0);
    EXPECT_EQ(xml_.Save(0, "x"), 0);
    for (const XmlNodeHandle wild : {0U, 1U, 0x3FFFFFFFU, 0x8003FFFFU, 0xC0000000U, 0xFFFFFFFFU}) {
        EXPECT_EQ(xml_.Name(wild), XmlAccess::kNone) << wild;
        EXPECT_EQ(xml_.GetRootNode(wild), 0U) << wild;
        xml_.FreeHandle(wild);
    }
    EXPECT_EQ(xml_.Name(root), "r");
}

TEST_F(XmlNodeTest, NodesEndWithTheirDocument) {
    const auto root = Parse("<r><a/></r>");
    const auto child = xml_.GetFirstChildNode(root);
    EXPECT_EQ(xml_.Close(document_), 1);
    EXPECT_EQ(xml_.Close(document_), 0);
    EXPECT_EQ(xml_.Name(root), XmlAccess::kNone);
    EXPECT_EQ(xml_.GetNextNode(child), 0U);
    const auto other = Parse("<s/>");
    EXPECT_EQ(xml_.Name(child), XmlAccess::kNone);
    xml_.FreeHandle(child);
    EXPECT_EQ(xml_.Name(other), "s");
}

TEST_F(XmlNodeTest, AttributesKeepTheOrderInWhichTheyWereSet) {
    const auto root = Parse("<r z='1' a='2' m='3'/>");
    xml_.SetStringValueAttrib(root, "b", "4");
    xml_.SetStringValueAttrib(root, "a", "5");  // replaced in its place
    ASSERT_EQ(xml_.GetNumOfAttribs(root), 4U);
    std::string order;
    for (std::uint32_t i = 0; i < 4; ++i) {
        const std::string name = xml_.AttributeName(root, i);
        order += name + xml_.Attribute(root, name.c_str());
    }
    EXPECT_EQ(order, "z1a5m3b4");
    EXPECT_EQ(xml_.AttributeName(root, 4), XmlAccess::kNone);
}

TEST_F(XmlNodeTest, AttributeChangesShowThroughEveryHandle) {
    const auto first = Parse("<r a='1'/>");
    const auto second = xml_.GetRootNode(document_);
    EXPECT_EQ(xml_.GetNumOfAttribs(second), 1U);
    xml_.SetStringValueAttrib(first, "b", "");
    EXPECT_EQ(xml_.GetNumOfAttribs(second), 2U);
    EXPECT_EQ(xml_.RemoveAttrib(first, "a"), 1);
    EXPECT_EQ(xml_.AttributeName(second, 0), "b");
    EXPECT_EQ(xml_.Attribute(second, "b"), "");
    EXPECT_EQ(xml_.RemoveAttrib(first, "a"), 0);
}

struct Number {
    const char* text;
    bool readable;
    std::uint32_t value;
};

class AttributeNumber : public XmlNodeTest, public testing::WithParamInterface<Number> {};

TEST_P(AttributeNumber, IsReadStrictly) {
    const auto root = Parse("<r/>");
    ASSERT_GT(xml_.SetStringValueAttrib(root, "n", GetParam().text), 0);
    std::uint32_t value = 99;
    EXPECT_EQ(xml_.GetAttribValueAsULONG(root, "n", &value) != 0, GetParam().readable);
    EXPECT_EQ(value, GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, AttributeNumber,
    testing::Values(Number{"0", true, 0}, Number{"17", true, 17}, Number{" 17 ", true, 17},
                    Number{"007", true, 7}, Number{"4294967295", true, 4294967295U},
                    Number{"4294967296", false, 0}, Number{"18446744073709551617", false, 0},
                    Number{"99999999999999999999999999", false, 0}, Number{"", false, 0},
                    Number{" ", false, 0}, Number{"-1", false, 0}, Number{"+1", false, 0},
                    Number{"0x10", false, 0}, Number{"1.0", false, 0}, Number{"1 2", false, 0},
                    Number{"12a", false, 0}));

TEST_F(XmlNodeTest, AbsentAttributeReadsAsNothing) {
    const auto root = Parse("<r/>");
    std::uint32_t value = 99;
    EXPECT_EQ(xml_.GetAttribValueAsULONG(root, "n", &value), 0);
    EXPECT_EQ(value, 0U);
    EXPECT_EQ(xml_.Attribute(root, "n"), XmlAccess::kNone);
    EXPECT_EQ(xml_.GetAttribValueAsULONG(root, "n", nullptr), 0);
    EXPECT_EQ(xml_.GetAttribValueAsString(root, "n", nullptr), 0);
}

TEST_F(XmlNodeTest, WhatXmlCannotHoldIsRefused) {
    const auto root = Parse("<r/>");
    for (const char* name : {"", "a b", "1a", "-a", "a<", "a=", "a\"", "a/b", ".a"}) {
        EXPECT_EQ(xml_.AddChildNodeByName(root, name), 0U) << name;
        EXPECT_EQ(xml_.SetStringValueAttrib(root, name, "1"), 0) << name;
    }
    EXPECT_EQ(xml_.SetStringValueAttrib(root, "a", "\x01"), 0);
    EXPECT_EQ(xml_.SetNodeText(root, "\x1F"), 0);
    EXPECT_EQ(xml_.GetNumOfAttribs(root), 0U);
    EXPECT_EQ(xml_.GetFirstChildNode(root), 0U);
}

TEST_F(XmlNodeTest, NodeText) {
    const auto root = Parse("<r>a &lt; b</r>");
    EXPECT_EQ(xml_.NodeText(root), "a < b");
    EXPECT_EQ(xml_.SetNodeText(root, "x & \xFC"), 1);
    EXPECT_EQ(xml_.NodeText(root), "x & \xFC");
}

TEST_F(XmlNodeTest, TextRecordsThatTheLibraryNeverFilledAreLeftAlone) {
    char foreign[] = "foreign";
    MString record{foreign, 1, 2};
    xml_.FreeMString(&record);
    EXPECT_EQ(record.text, foreign);
    xml_.FreeMString(nullptr);
    MString empty{};
    xml_.FreeMString(&empty);

    const auto root = Parse("<r/>");
    ASSERT_EQ(xml_.GetNodeName(root, &record), 1);
    EXPECT_STREQ(record.text, "r");
    xml_.FreeMString(&record);
    EXPECT_EQ(record.text, nullptr);
    xml_.FreeMString(&record);
}

}  // namespace
}  // namespace workbench_test
