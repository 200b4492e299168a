#include "ui/grid/grid_clipboard_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/ui/grid/filled_model.h"

namespace orvell::ui {
namespace {

using Values = std::vector<std::string>;

constexpr GridRange kRange = {.firstRow = 1, .endRow = 5, .firstColumn = 1, .endColumn = 2};

Values ValuesOf(std::string_view text) {
    Values values;
    ClipboardLines lines(text);
    while (const auto value = lines.Next()) {
        values.emplace_back(*value);
    }
    return values;
}

TEST(GridClipboardText, CopiesTheCurrentTextAsItStands) {
    GridModel model = test::FilledModel(4);
    model.SetItemText(2, 1, "two\tcells\r\n");
    GridSelection selection;
    selection.MoveTo({2, 1}, kRange);
    EXPECT_EQ(CopiedText(model, selection), "two\tcells\r\n");
}

TEST(GridClipboardText, CopiesARangeAsLines) {
    GridModel model = test::FilledModel(4);
    GridSelection selection;
    selection.MoveTo({3, 1}, kRange);
    selection.ExtendTo(2, kRange);
    EXPECT_EQ(CopiedText(model, selection), "value 2\r\nvalue 3\r\n");
    model.SetItemText(2, 1, "a\tb\r\nc");
    EXPECT_EQ(CopiedText(model, selection), "a b  c\r\nvalue 3\r\n");
}

TEST(GridClipboardText, NothingIsCopiedWithoutACell) {
    EXPECT_EQ(CopiedText(test::FilledModel(4), GridSelection()), "");
}

TEST(ClipboardLines, EndWithAnyLineEnd) {
    EXPECT_EQ(ValuesOf("a\r\nb\nc\rd"), (Values{"a", "b", "c", "d"}));
    EXPECT_EQ(ValuesOf("a\r\nb\r\n"), (Values{"a", "b"}));
    EXPECT_EQ(ValuesOf("a\r\n\r\nb"), (Values{"a", "", "b"}));
    EXPECT_EQ(ValuesOf("a\r\rb"), (Values{"a", "", "b"}));
    EXPECT_EQ(ValuesOf("\n"), Values{""});
    EXPECT_EQ(ValuesOf(""), Values());
}

TEST(ClipboardLines, TakeTheLastColumn) {
    EXPECT_EQ(ValuesOf("name\tvalue"), Values{"value"});
    EXPECT_EQ(ValuesOf("a\tb\tc\r\nd\t\r\ne"), (Values{"c", "", "e"}));
}

TEST(ClipboardLines, ReadWhatWasCopied) {
    const GridModel model = test::FilledModel(4);
    GridSelection selection;
    selection.MoveTo({1, 1}, kRange);
    selection.ExtendTo(4, kRange);
    EXPECT_EQ(ValuesOf(CopiedText(model, selection)),
              (Values{"value 1", "value 2", "value 3", "value 4"}));
}

}  // namespace
}  // namespace orvell::ui
