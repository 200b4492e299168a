#include "ui/grid/grid_model.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "unit/ui/grid/filled_model.h"

namespace orvell::ui {
namespace {

constexpr int kHighestPlace = std::numeric_limits<int>::max();

using test::FilledModel;

GridChoices Choices(std::vector<std::string> texts) {
    return std::make_shared<const GridChoiceList>(std::move(texts));
}

TEST(GridModel, IsEmptyAtFirst) {
    const GridModel model;
    EXPECT_EQ(model.GetRowCount(), 0);
    EXPECT_EQ(model.GetColumnCount(), 0);
    EXPECT_EQ(model.GetFixedRowCount(), 0);
    EXPECT_EQ(model.GetFixedColumnCount(), 0);
    EXPECT_EQ(model.CellAt(0, 0), nullptr);
}

TEST(GridModel, AppendsRowsWithTheirName) {
    GridModel model;
    model.SetColumnCount(2);
    EXPECT_EQ(model.InsertRow("first"), 0);
    EXPECT_EQ(model.InsertRow("second"), 1);
    EXPECT_EQ(model.InsertRow("third", 2), 2);
    EXPECT_EQ(model.GetRowCount(), 3);
    EXPECT_EQ(model.GetItemText(0, 0), "first");
    EXPECT_EQ(model.GetItemText(1, 0), "second");
    EXPECT_EQ(model.GetItemText(2, 0), "third");
    EXPECT_EQ(model.GetItemText(2, 1), "");
}

TEST(GridModel, InsertsBetweenRows) {
    GridModel model = FilledModel(3);
    EXPECT_EQ(model.InsertRow("new", 2), 2);
    EXPECT_EQ(model.GetItemText(1, 1), "value 1");
    EXPECT_EQ(model.GetItemText(2, 0), "new");
    EXPECT_EQ(model.GetItemText(2, 1), "");
    EXPECT_EQ(model.GetItemText(3, 1), "value 2");
    EXPECT_EQ(model.GetItemText(4, 1), "value 3");
}

TEST(GridModel, RefusesRowsWhereNoneCanBe) {
    GridModel model;
    EXPECT_LT(model.InsertRow("no column"), 0);
    model.SetColumnCount(2);
    EXPECT_LT(model.InsertRow("behind the end", 1), 0);
    EXPECT_LT(model.InsertRow("before the first", -2), 0);
    EXPECT_EQ(model.GetRowCount(), 0);
}

TEST(GridModel, DeletesRows) {
    GridModel model = FilledModel(4);
    EXPECT_TRUE(model.DeleteRow(2));
    EXPECT_TRUE(model.DeleteRow(3));
    EXPECT_EQ(model.GetRowCount(), 3);
    EXPECT_EQ(model.GetItemText(1, 1), "value 1");
    EXPECT_EQ(model.GetItemText(2, 1), "value 3");
    EXPECT_FALSE(model.DeleteRow(3));
    EXPECT_FALSE(model.DeleteRow(-1));
}

TEST(GridModel, KeepsWhatEachCellHolds) {
    GridModel model = FilledModel(2);
    int font = 0;
    model.SetItemData(1, 1, 0xFFFFFFFF);
    model.SetItemState(1, 1, kGridCellReadOnly);
    model.SetItemFormat(1, 1, kGridTextRight);
    model.SetItemBackColour(1, 1, 0x00112233);
    model.SetItemTextColour(1, 1, 0x00445566);
    model.SetItemFont(1, 1, &font);
    EXPECT_EQ(model.GetItemData(1, 1), 0xFFFFFFFF);
    EXPECT_EQ(model.GetItemState(1, 1), kGridCellReadOnly);
    EXPECT_EQ(model.GetItemFormat(1, 1), kGridTextRight);
    EXPECT_EQ(model.GetItemBackColour(1, 1), 0x00112233U);
    EXPECT_EQ(model.GetItemTextColour(1, 1), 0x00445566U);
    EXPECT_EQ(model.GetItemFont(1, 1), &font);
    EXPECT_EQ(model.GetItemData(1, 0), 0U);
    EXPECT_EQ(model.GetItemBackColour(2, 1), kDefaultColour);
}

TEST(GridModel, NewCellsTakeTheDefaults) {
    GridModel model = FilledModel(1);
    int font = 0;
    model.DefaultCell().SetFormat(kGridTextCentred);
    model.DefaultCell().SetBackColour(1);
    model.DefaultCell().SetTextColour(2);
    model.DefaultCell().SetFont(&font);
    const int row = model.InsertRow("new");
    model.SetColumnCount(3);
    for (const int column : {0, 1, 2}) {
        EXPECT_EQ(model.GetItemFormat(row, column), kGridTextCentred);
        EXPECT_EQ(model.GetItemBackColour(row, column), 1U);
        EXPECT_EQ(model.GetItemTextColour(row, column), 2U);
        EXPECT_EQ(model.GetItemFont(row, column), &font);
    }
    EXPECT_EQ(model.GetItemBackColour(1, 1), kDefaultColour);
}

TEST(GridModel, ChangesTheColumnsOfFilledRows) {
    GridModel model = FilledModel(2);
    model.SetColumnCount(3);
    EXPECT_EQ(model.GetItemText(2, 0), "name 2");
    EXPECT_EQ(model.GetItemText(2, 1), "value 2");
    EXPECT_EQ(model.GetItemText(2, 2), "");
    model.SetColumnCount(1);
    EXPECT_EQ(model.GetItemText(1, 0), "name 1");
    EXPECT_EQ(model.GetItemText(2, 0), "name 2");
    model.SetColumnCount(0);
    EXPECT_EQ(model.GetRowCount(), 3);
    model.SetColumnCount(2);
    EXPECT_EQ(model.GetItemText(2, 0), "");
}

TEST(GridModel, ChangesTheNumberOfRows) {
    GridModel model = FilledModel(3);
    model.SetRowCount(2);
    EXPECT_EQ(model.GetItemText(1, 0), "name 1");
    EXPECT_EQ(model.CellAt(2, 0), nullptr);
    model.SetRowCount(4);
    EXPECT_EQ(model.GetItemText(2, 0), "");
    model.SetRowCount(-1);
    EXPECT_EQ(model.GetRowCount(), 0);
}

TEST(GridModel, RefusesMoreCellsThanCanBeNumbered) {
    GridModel model;
    model.SetColumnCount(2);
    model.SetRowCount(kHighestPlace / 2 + 1);
    EXPECT_EQ(model.GetRowCount(), 0);
    model.SetRowCount(3);
    model.SetColumnCount(kHighestPlace);
    EXPECT_EQ(model.GetColumnCount(), 2);
}

TEST(GridModel, TakesAnyPlaceOutside) {
    GridModel model = FilledModel(1);
    const int places[][2] = {{-1, 0}, {0, -1}, {2, 0}, {0, 2}, {kHighestPlace, kHighestPlace}};
    for (const auto& [row, column] : places) {
        model.SetItemText(row, column, "lost");
        model.SetItemData(row, column, 1);
        model.SetItemState(row, column, 1);
        model.SetItemFormat(row, column, 1);
        model.SetItemBackColour(row, column, 1);
        model.SetItemTextColour(row, column, 1);
        model.SetItemFont(row, column, &model);
        model.SetChoices(row, column, nullptr);
        EXPECT_FALSE(model.SetCellType(row, column, GridCellKind::Combo));
        EXPECT_EQ(model.GetItemText(row, column), "");
        EXPECT_EQ(model.GetItemData(row, column), 0U);
        EXPECT_EQ(model.GetItemState(row, column), 0U);
        EXPECT_EQ(model.GetItemFormat(row, column), 0U);
        EXPECT_EQ(model.GetItemBackColour(row, column), 0U);
        EXPECT_EQ(model.GetItemTextColour(row, column), 0U);
        EXPECT_EQ(model.GetItemFont(row, column), nullptr);
        EXPECT_EQ(model.GetCellType(row, column), GridCellKind::Text);
        EXPECT_EQ(model.GetChoices(row, column), nullptr);
        EXPECT_FALSE(model.IsValueCell(row, column));
        EXPECT_FALSE(model.IsCellEditable(row, column));
    }
    EXPECT_EQ(model.GetItemText(1, 1), "value 1");
}

TEST(GridModel, ChangesACellsKindAndKeepsItsContents) {
    GridModel model = FilledModel(1);
    model.SetItemData(1, 1, 7);
    EXPECT_TRUE(model.SetCellType(1, 1, GridCellKind::Combo));
    EXPECT_EQ(model.GetCellType(1, 1), GridCellKind::Combo);
    EXPECT_EQ(model.GetItemText(1, 1), "value 1");
    EXPECT_EQ(model.GetItemData(1, 1), 7U);
    EXPECT_TRUE(model.SetCellType(1, 1, GridCellKind::Check));
    EXPECT_EQ(model.GetCellType(1, 1), GridCellKind::Check);
    EXPECT_TRUE(model.SetCellType(1, 1, GridCellKind::Text));
    EXPECT_EQ(model.GetCellType(1, 1), GridCellKind::Text);
    EXPECT_EQ(model.GetItemText(1, 1), "value 1");
}

TEST(GridModel, SharesOneListOfChoices) {
    GridModel model = FilledModel(2);
    const GridChoices choices = Choices({"off", "on"});
    for (const int row : {1, 2}) {
        model.SetCellType(row, 1, GridCellKind::Combo);
        model.SetChoices(row, 1, choices);
    }
    EXPECT_EQ(model.GetChoices(1, 1), choices);
    EXPECT_EQ(model.GetChoices(2, 1), choices);
    model.SetCellType(2, 1, GridCellKind::Combo);
    EXPECT_EQ(model.GetChoices(2, 1), choices) << "the same kind again changes nothing";
    model.SetCellType(2, 1, GridCellKind::Text);
    model.SetChoices(2, 1, choices);
    EXPECT_EQ(model.GetChoices(2, 1), nullptr);
}

TEST(GridModel, TellsWhatMayBeEdited) {
    GridModel model = FilledModel(2);
    EXPECT_FALSE(model.IsCellEditable(0, 1)) << "a heading";
    EXPECT_FALSE(model.IsCellEditable(1, 0)) << "a row's name";
    EXPECT_TRUE(model.IsCellEditable(1, 1));
    model.SetItemState(1, 1, kGridCellReadOnly);
    EXPECT_FALSE(model.IsCellEditable(1, 1));
    EXPECT_TRUE(model.IsCellEditable(2, 1));
    model.SetEditable(false);
    EXPECT_FALSE(model.IsCellEditable(2, 1));
}

TEST(GridModel, AComboCellTakesItsChoicesAndNumbers) {
    GridModel model = FilledModel(2);
    model.SetCellType(1, 1, GridCellKind::Combo);
    EXPECT_FALSE(model.TakesText(1, 1, "On")) << "no choices";
    model.SetChoices(1, 1, Choices({"Off", "On"}));
    EXPECT_TRUE(model.TakesText(1, 1, "Off"));
    EXPECT_TRUE(model.TakesText(1, 1, "On"));
    EXPECT_TRUE(model.TakesText(1, 1, "4294967295")) << "a value without a name";
    for (const char* const text : {"on", "", "On ", "-1", "1x", "0x1"}) {
        EXPECT_FALSE(model.TakesText(1, 1, text)) << text;
    }
    EXPECT_TRUE(model.TakesText(2, 1, "any text"));
    EXPECT_FALSE(model.TakesText(2, 0, "a name"));
    model.SetItemState(2, 1, kGridCellReadOnly);
    EXPECT_FALSE(model.TakesText(2, 1, "any text"));
    model.SetItemState(2, 1, 0);
    model.SetCellType(2, 1, GridCellKind::Check);
    EXPECT_FALSE(model.TakesText(2, 1, "any text"));
}

TEST(GridModel, ChoicesKeepTheirOrderAndKnowTheirTexts) {
    const GridChoices choices = Choices({"On", "Off", "", "On", "a longer name than fits inside"});
    EXPECT_EQ(choices->Texts(),
              (std::vector<std::string>{"On", "Off", "", "On", "a longer name than fits inside"}));
    for (const std::string& text : choices->Texts()) {
        EXPECT_TRUE(choices->Contains(text)) << text;
    }
    EXPECT_FALSE(choices->Contains("O"));
    EXPECT_FALSE(choices->Contains("on"));
    EXPECT_FALSE(Choices({})->Contains(""));
}

TEST(GridModel, TellsWhereTheValuesAre) {
    GridModel model = FilledModel(1);
    EXPECT_EQ(model.FirstValueColumn(), 1);
    EXPECT_TRUE(model.IsValueCell(1, 1));
    EXPECT_FALSE(model.IsValueCell(0, 1));
    EXPECT_FALSE(model.IsValueCell(1, 0));
    model.SetColumnCount(4);
    model.SetFixedColumnCount(2);
    EXPECT_EQ(model.FirstValueColumn(), 2);
    EXPECT_FALSE(model.IsValueCell(1, 1));
    EXPECT_TRUE(model.IsValueCell(1, 2));
    model.SetColumnCount(1);
    EXPECT_EQ(model.FirstValueColumn(), 1) << "no value column at all";
}

TEST(GridModel, NegativeCountsOfFixedCellsAreNone) {
    GridModel model = FilledModel(1);
    model.SetFixedRowCount(-3);
    model.SetFixedColumnCount(-3);
    EXPECT_EQ(model.GetFixedRowCount(), 0);
    EXPECT_EQ(model.GetFixedColumnCount(), 0);
    EXPECT_TRUE(model.IsValueCell(0, 1));
}

TEST(GridModel, FillsAndEmptiesManyRows) {
    GridModel model = FilledModel(100000);
    EXPECT_EQ(model.GetItemText(99999, 0), "name 99999");
    EXPECT_EQ(model.GetItemText(100000, 1), "value 100000");
    while (model.GetRowCount() > 1) {
        ASSERT_TRUE(model.DeleteRow(model.GetRowCount() - 1));
    }
    EXPECT_EQ(model.CellAt(1, 0), nullptr);
}

TEST(GridModel, CellsStayWhereTheyAreWhileRowsAreAppended) {
    GridModel model = FilledModel(1);
    const CGridCellBase* const cell = model.CellAt(1, 1);
    for (int i = 0; i < 1000; ++i) {
        model.InsertRow("more");
    }
    EXPECT_EQ(model.CellAt(1, 1), cell);
}

}  // namespace
}  // namespace orvell::ui
