#include "host/boundary_memory.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvell::host {
namespace {

using memstruct::NamedText;

TEST(CopyText, EndsWithItsOwnNul) {
    const std::string text = "abc";
    const BoundaryText copy = CopyText(std::string_view(text).substr(0, 2));
    EXPECT_STREQ(copy.get(), "ab");
    EXPECT_STREQ(CopyText("").get(), "");
}

TEST(MakeNameList, KeepsTheOrder) {
    const std::vector<NamedText> leaves{{"a", "1"}, {"b[0]", "\"x\""}, {"", ""}};
    const NameList list = MakeNameList(leaves);
    const NameListNode* node = list.get();
    for (const NamedText& leaf : leaves) {
        ASSERT_NE(node, nullptr);
        EXPECT_EQ(node->first, leaf.path);
        EXPECT_EQ(node->second, leaf.text);
        node = node->next;
    }
    EXPECT_EQ(node, nullptr);
}

TEST(MakeNameList, NoLeavesGiveNoList) {
    EXPECT_EQ(MakeNameList({}), nullptr);
    FreeNameList(nullptr);
}

TEST(FreeNameList, FreesLongListsWithoutRecursion) {
    const std::vector<NamedText> leaves(300000, NamedText{"x", "1"});
    FreeNameList(MakeNameList(leaves).release());
}

}  // namespace
}  // namespace orvell::host
