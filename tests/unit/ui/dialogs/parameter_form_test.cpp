#include "ui/dialogs/parameter_form.h"

#include "form_fixture.h"
#include "platform/system_color.h"

namespace orvell::ui {
namespace {

using values::BaseTypeCode;
using values::DisplayFormat;
using DroppedElements = ParameterForm::DroppedElements;

constexpr std::uint32_t kInt = 1;
constexpr std::uint32_t kMixed = 2;
constexpr std::uint32_t kMode = 3;
constexpr std::uint32_t kLabel = 4;
constexpr std::uint32_t kLoop = 5;
constexpr std::uint32_t kUnknownType = 6;
constexpr std::uint32_t kBare = 7;
constexpr std::uint32_t kBroken = 8;
constexpr std::uint32_t kEmpty = 9;
constexpr std::uint32_t kDay = 10;
constexpr std::uint32_t kTimes = 11;

memstruct::TypeDef ModeType() {
    memstruct::TypeDef type = BasicType("Mode", BaseTypeCode::Enumerated, 1);
    type.enumItems = values::EnumItemList({{"On", 1}, {"Off", 0}, {"", 2}});
    return type;
}

class ParameterFormTest : public testing::Test {
  protected:
    ParameterFormTest() {
        definitions.store.AddImplicitTypes();
        definitions.AddArea(kInt, BasicType("Int", BaseTypeCode::Int, 2));
        definitions.AddArea(kMode, ModeType());
        definitions.store.AddType(Structure("Pair", {Item("a", "Int"), Item("m", "Mode", 2)}));
        definitions.AddArea(kMixed, Structure("Mixed", {Item("p", "Pair", 2), Item("f", "FLOAT")}));
        definitions.AddArea(kLabel, BasicType("Label", BaseTypeCode::String, 6));
        definitions.AddArea(kLoop, Structure("Loop", {Item("self", "Loop")}));
        definitions.store.AddArea(kUnknownType, "Lost");
        definitions.AddArea(kBare, BasicType("Bare", BaseTypeCode::None));
        definitions.AddArea(kBroken, Structure("Broken", {Item("a", "Int"), Item("b", "Gone")}));
        definitions.AddArea(kEmpty, Structure("Empty", {}));
        definitions.AddArea(kDay, BasicType("Day", BaseTypeCode::Date));
        definitions.AddArea(kTimes, BasicType("Times", BaseTypeCode::Duration));
        definitions.store.ResolveReferences();
    }

    /// Opens a form on the record; the grid then holds its rows.
    void Open(DialogParameterRecord& record) {
        form.emplace(&record, definitions.services);
        grid = GridModel();
        form->SetUpGrid(grid);
        isOpen = form->Open(grid, message);
    }

    void Type(int row, std::string_view text) {
        grid.SetItemText(row, kValueColumn, text);
        form->NormalizeText(grid, row);
    }

    Definitions definitions;
    GridModel grid;
    std::optional<ParameterForm> form;
    bool isOpen = false;
    std::string message;
};

TEST_F(ParameterFormTest, HeadsTheColumns) {
    OwnedDialogRecord owned(kInt, {5, 0});
    Open(owned.record);
    EXPECT_EQ(grid.GetColumnCount(), 2);
    EXPECT_EQ(grid.GetFixedRowCount(), 1);
    EXPECT_EQ(grid.GetItemText(0, 0), "Element");
    EXPECT_EQ(grid.GetItemText(0, 1), "Wert");
    for (const int column : {0, 1}) {
        EXPECT_EQ(grid.GetItemFormat(0, column),
                  kGridTextCentred | kGridTextCentredVertically | kGridTextSingleLine);
    }
}

TEST_F(ParameterFormTest, ShowsASingleValueAsOneRow) {
    OwnedDialogRecord owned(kInt, {0xFE, 0xFF});
    Open(owned.record);
    EXPECT_TRUE(isOpen);
    EXPECT_EQ(message, "");
    EXPECT_EQ(RowsOf(grid), (Rows{"Element=-2"}));
}

TEST_F(ParameterFormTest, ShowsAVectorRowByRow) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0, 3, 0}, 3);
    Open(owned.record);
    EXPECT_EQ(RowsOf(grid), (Rows{"Element[0]=1", "Element[1]=2", "Element[2]=3"}));
}

TEST_F(ParameterFormTest, ShowsTheLeavesOfAStructureByTheirPaths) {
    OwnedDialogRecord owned(kMixed, {1, 0, 1, 0, 2, 0, 0, 1, 0, 0, 0x80, 0x3F});
    Open(owned.record);
    EXPECT_EQ(RowsOf(grid), (Rows{"Element.p[0].a=1", "Element.p[0].m[0]=On",
                                  "Element.p[0].m[1]=Off", "Element.p[1].a=2",
                                  "Element.p[1].m[0]=Off", "Element.p[1].m[1]=On", "Element.f=1"}));
}

TEST_F(ParameterFormTest, ShowsTheLeavesOfAVectorOfStructures) {
    definitions.store.AddArea(50, "Pair");
    definitions.store.ResolveReferences();
    OwnedDialogRecord owned(50, {1, 0, 1, 0, 2, 0, 0, 1}, 2);
    Open(owned.record);
    EXPECT_EQ(RowsOf(grid), (Rows{"Element[0].a=1", "Element[0].m[0]=On", "Element[0].m[1]=Off",
                                  "Element[1].a=2", "Element[1].m[0]=Off", "Element[1].m[1]=On"}));
}

TEST_F(ParameterFormTest, NamesAreReadOnlyAndTinted) {
    OwnedDialogRecord owned(kInt, {5, 0});
    Open(owned.record);
    EXPECT_EQ(platform::WindowColor(), 0x00FFFFFFU) << "what the next line relies on";
    EXPECT_EQ(grid.GetItemBackColour(1, 0), 0x00DCFFFFU);
    EXPECT_TRUE((grid.GetItemState(1, 0) & kGridCellReadOnly) != 0);
    EXPECT_EQ(grid.GetItemBackColour(1, 1), kDefaultColour);
    EXPECT_EQ(grid.GetItemState(1, 1), 0U);
}

TEST_F(ParameterFormTest, RowsCarryWhatNormalisingNeeds) {
    OwnedDialogRecord owned(kMixed, Bytes(12));
    Open(owned.record);
    EXPECT_EQ(grid.GetItemData(1, 0), 700U);
    EXPECT_EQ(grid.GetItemData(1, 1), 2U);
    EXPECT_EQ(grid.GetItemData(2, 0), 710U);
    EXPECT_EQ(grid.GetItemData(7, 0), 702U);
}

TEST_F(ParameterFormTest, EnumeratedValuesAreChosenFromOneSharedList) {
    OwnedDialogRecord owned(kMixed, Bytes(12));
    Open(owned.record);
    EXPECT_EQ(grid.GetCellType(1, 1), GridCellKind::Text);
    EXPECT_EQ(grid.GetCellType(2, 1), GridCellKind::Combo);
    ASSERT_NE(grid.GetChoices(2, 1), nullptr);
    EXPECT_EQ(grid.GetChoices(2, 1)->Texts(), (std::vector<std::string>{"Off", "On"}));
    EXPECT_EQ(grid.GetChoices(2, 1), grid.GetChoices(6, 1));
}

TEST_F(ParameterFormTest, MissingBytesShowTheTypesDefault) {
    OwnedDialogRecord none(kMixed);
    Open(none.record);
    EXPECT_TRUE(isOpen);
    EXPECT_EQ(RowsOf(grid).at(1), "Element.p[0].m[0]=Off");
    EXPECT_EQ(RowsOf(grid).at(6), "Element.f=0");
    OwnedDialogRecord some(kInt, {1, 0, 2}, 3);
    Open(some.record);
    EXPECT_EQ(RowsOf(grid), (Rows{"Element[0]=1", "Element[1]=0", "Element[2]=0"}));
}

TEST_F(ParameterFormTest, StringsStandWithoutQuotationMarks) {
    OwnedDialogRecord owned(kLabel, {'a', '"', 'b', 0, 0, 0});
    Open(owned.record);
    EXPECT_EQ(RowsOf(grid), (Rows{"Element=a\"b"}));
    EXPECT_TRUE(form->TakeBack(grid));
    EXPECT_TRUE(form->Store(10));
    EXPECT_EQ(owned.Value(), (Bytes{'a', '"', 'b', 0, 0, 0}));
}

TEST_F(ParameterFormTest, TheAreaIsCalledByTheRecordOrByItsType) {
    OwnedDialogRecord owned(kInt, {5, 0});
    Open(owned.record);
    EXPECT_EQ(form->AreaName(), "Int");
    owned.record.name = "Pump";
    owned.record.extension = "Limit";
    Open(owned.record);
    EXPECT_EQ(form->AreaName(), "Pump - Limit");
}

TEST_F(ParameterFormTest, SaysWhyAValueCannotBeEdited) {
    const std::pair<std::uint32_t, std::string> cases[] = {
        {99, "F\xFCr die ID 99 konnte keine Speicherstrukturdefinition gefunden werden."},
        {0xFFFFFFFFU,
         "F\xFCr die ID 4294967295 konnte keine Speicherstrukturdefinition gefunden werden."},
        {kUnknownType,
         "Es konnte keine Speicherstrukturdefinition mit der Bezeichnung Lost gefunden werden."},
        {kBare,
         "Der Basisdatentyp von Bare fehlt oder ist ung\xFCltig.\n\nBitte pr\xFC"
         "fen Sie die Angaben nach \"Type\" in der zugeh\xF6renden Speicherstrukturdefinition."},
        {kBroken,
         "Der Basisdatentyp von Gone fehlt oder ist ung\xFCltig.\n\nBitte pr\xFC"
         "fen Sie die Angaben nach \"Type\" in der zugeh\xF6renden Speicherstrukturdefinition."},
        {kLoop,
         "Die Definition von Loop oder mindestens eines seiner Elemente ist wegen Rekursionen "
         "ung\xFCltig."},
    };
    for (const auto& [id, expected] : cases) {
        OwnedDialogRecord owned(id, {1, 2, 3, 4});
        Open(owned.record);
        EXPECT_FALSE(isOpen) << id;
        EXPECT_EQ(message, expected) << id;
        EXPECT_EQ(grid.GetRowCount(), 1) << id;
        EXPECT_FALSE(form->TakeBack(grid)) << id;
    }
}

TEST_F(ParameterFormTest, WithoutARecordNothingCanBeEdited) {
    form.emplace(nullptr, definitions.services);
    form->SetUpGrid(grid);
    EXPECT_FALSE(form->Open(grid, message));
    EXPECT_EQ(message, "");
    EXPECT_FALSE(form->TakeBack(grid));
    EXPECT_FALSE(form->Store(10));
    EXPECT_FALSE(form->ChangeVectorLength(grid, 2, DroppedElements::Forget));
    EXPECT_FALSE(form->ChangeFormat(grid, DisplayFormat::Hexadecimal));
    form->ForgetDroppedElements();
}

TEST_F(ParameterFormTest, AnEmptyStructureHasNoRows) {
    OwnedDialogRecord owned(kEmpty, {1, 2});
    Open(owned.record);
    EXPECT_TRUE(isOpen);
    EXPECT_EQ(grid.GetRowCount(), 1);
    EXPECT_TRUE(form->TakeBack(grid));
    EXPECT_TRUE(form->Store(10));
    EXPECT_EQ(owned.Value(), (Bytes{0, 0})) << "the copy is never made shorter";
}

TEST_F(ParameterFormTest, TooManyRowsAreRefusedAtOnce) {
    definitions.AddArea(60, Structure("Million", {Item("w", "Int", 1'000'000)}));
    definitions.AddArea(61, Structure("More", {Item("w", "Int", 1'000'001)}));
    definitions.AddArea(62, Structure("Most", {Item("m", "Million", 4'000'000'000U)}));
    definitions.store.ResolveReferences();
    for (const std::uint32_t id : {61U, 62U}) {
        OwnedDialogRecord owned(id);
        Open(owned.record);
        EXPECT_FALSE(isOpen) << id;
        EXPECT_NE(message.find(id == 61 ? "More" : "Most"), std::string::npos) << message;
        EXPECT_EQ(grid.GetRowCount(), 1);
    }
    OwnedDialogRecord vector(60, {}, 2);
    Open(vector.record);
    EXPECT_FALSE(isOpen);
}

TEST_F(ParameterFormTest, AValueTooLargeForAnyBufferIsRefused) {
    definitions.store.AddType(BasicType("Giant", BaseTypeCode::String, 0xFFFFFFFFU));
    definitions.store.AddArea(70, "Giant");
    definitions.AddArea(71, Structure("Two", {Item("g", "Giant", 2)}));
    definitions.store.ResolveReferences();
    OwnedDialogRecord two(71);
    Open(two.record);
    EXPECT_FALSE(isOpen);
    OwnedDialogRecord vector(70, {}, 2);
    Open(vector.record);
    EXPECT_FALSE(isOpen);
}

TEST_F(ParameterFormTest, ValuesSurviveALongerAndAShorterVector) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0, 3, 0}, 3);
    Open(owned.record);
    EXPECT_TRUE(form->ChangeVectorLength(grid, 5, DroppedElements::Forget));
    EXPECT_EQ(RowsOf(grid), (Rows{"Element[0]=1", "Element[1]=2", "Element[2]=3", "Element[3]=0",
                                  "Element[4]=0"}));
    Type(5, "9");
    EXPECT_TRUE(form->ChangeVectorLength(grid, 3, DroppedElements::Forget));
    EXPECT_EQ(RowsOf(grid), (Rows{"Element[0]=1", "Element[1]=2", "Element[2]=3"}));
    EXPECT_TRUE(form->TakeBack(grid));
    EXPECT_TRUE(form->Store(10));
    EXPECT_EQ(owned.record.count, 3U);
    EXPECT_EQ(owned.Value(), (Bytes{1, 0, 2, 0, 3, 0, 0, 0, 0, 0}))
        << "the copy is never made shorter";
}

TEST_F(ParameterFormTest, DroppedElementsAreZeroWhenTheVectorGrowsAgain) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0, 3, 0}, 3);
    Open(owned.record);
    EXPECT_TRUE(form->ChangeVectorLength(grid, 2, DroppedElements::Forget));
    EXPECT_TRUE(form->ChangeVectorLength(grid, 3, DroppedElements::Forget));
    EXPECT_EQ(RowsOf(grid).at(2), "Element[2]=0");
}

TEST_F(ParameterFormTest, DroppedElementsComeBackWhileTheLengthIsTyped) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0, 3, 0, 4, 0}, 4);
    Open(owned.record);
    Type(4, "40");
    EXPECT_TRUE(form->ChangeVectorLength(grid, 2, DroppedElements::Keep));
    Type(2, "20");
    EXPECT_TRUE(form->ChangeVectorLength(grid, 4, DroppedElements::Keep));
    EXPECT_EQ(RowsOf(grid),
              (Rows{"Element[0]=1", "Element[1]=20", "Element[2]=3", "Element[3]=40"}));
    EXPECT_TRUE(form->ChangeVectorLength(grid, 2, DroppedElements::Keep));
    form->ForgetDroppedElements();
    EXPECT_TRUE(form->ChangeVectorLength(grid, 4, DroppedElements::Keep));
    EXPECT_EQ(RowsOf(grid).at(3), "Element[3]=0");
}

TEST_F(ParameterFormTest, AcceptingForgetsDroppedElements) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0, 3, 0}, 3);
    Open(owned.record);
    EXPECT_TRUE(form->ChangeVectorLength(grid, 2, DroppedElements::Keep));
    EXPECT_TRUE(form->TakeBack(grid));
    EXPECT_TRUE(form->Store(10));
    EXPECT_EQ(owned.Value(), (Bytes{1, 0, 2, 0, 0, 0}));
}

TEST_F(ParameterFormTest, ASingleValueBecomesAVectorAndBack) {
    OwnedDialogRecord owned(kInt, {7, 0});
    Open(owned.record);
    EXPECT_TRUE(form->ChangeVectorLength(grid, 2, DroppedElements::Forget));
    EXPECT_EQ(RowsOf(grid), (Rows{"Element[0]=7", "Element[1]=0"}));
    EXPECT_TRUE(form->ChangeVectorLength(grid, 1, DroppedElements::Forget));
    EXPECT_EQ(RowsOf(grid), (Rows{"Element=7"}));
    EXPECT_EQ(form->VectorLength(), 1U);
}

TEST_F(ParameterFormTest, ALengthThatCannotBeLaidOutChangesNothing) {
    definitions.AddArea(60, Structure("Thousands", {Item("w", "Int", 300'000)}));
    definitions.store.ResolveReferences();
    OwnedDialogRecord owned(60, {1, 0});
    Open(owned.record);
    Type(1, "8");
    EXPECT_FALSE(form->ChangeVectorLength(grid, 4, DroppedElements::Forget));
    EXPECT_EQ(form->VectorLength(), 1U);
    EXPECT_EQ(grid.GetRowCount(), 300'001);
    EXPECT_EQ(grid.GetItemText(1, 1), "8");
}

TEST_F(ParameterFormTest, AnotherFormatShowsTheSameValues) {
    OwnedDialogRecord owned(kInt, {0xFF, 0xFF, 10, 0}, 2);
    owned.record.format = 0x80;
    Open(owned.record);
    EXPECT_EQ(form->Formats().selected, DisplayFormat::Signed);
    EXPECT_EQ(RowsOf(grid), (Rows{"Element[0]=-1", "Element[1]=10"}));
    Type(2, "11");
    EXPECT_TRUE(form->ChangeFormat(grid, DisplayFormat::Hexadecimal));
    EXPECT_EQ(RowsOf(grid), (Rows{"Element[0]=FFFFh", "Element[1]=Bh"}));
    Type(2, "1f");
    EXPECT_EQ(RowsOf(grid).at(1), "Element[1]=1Fh");
    EXPECT_TRUE(form->ChangeFormat(grid, DisplayFormat::Unsigned));
    EXPECT_EQ(RowsOf(grid), (Rows{"Element[0]=65535", "Element[1]=31"}));
    EXPECT_TRUE(form->TakeBack(grid));
    EXPECT_TRUE(form->Store(10));
    EXPECT_EQ(owned.record.format, 0x82);
    EXPECT_EQ(owned.Value(), (Bytes{0xFF, 0xFF, 31, 0}));
}

TEST_F(ParameterFormTest, ARecordWithoutFormatStaysWithoutOne) {
    OwnedDialogRecord owned(kInt, {0xFF, 0xFF});
    owned.record.format = 0x03;
    Open(owned.record);
    EXPECT_FALSE(form->Formats().IsOffered());
    EXPECT_EQ(RowsOf(grid), (Rows{"Element=-1"}));
    EXPECT_TRUE(form->TakeBack(grid));
    EXPECT_TRUE(form->Store(10));
    EXPECT_EQ(owned.record.format, 0x00);
}

TEST_F(ParameterFormTest, TypedTextsBecomeCanonical) {
    const struct {
        std::uint32_t id;
        std::string typed;
        std::string shown;
    } cases[] = {{kInt, "abc", "0"},
                 {kInt, " 12x", "12"},
                 {kInt, "70000", "4464"},
                 {kTimes, "1h", "1 h"},
                 {kTimes, "1h30min", "0 ms"},
                 {kDay, "31.02.2021", "03.03.2021"},
                 {kDay, "never", "01.01.1970"},
                 {kLabel, "longer than six", "longe"},
                 {kMode, "On", "On"},
                 {kMode, "anything", "anything"}};
    for (const auto& [id, typed, shown] : cases) {
        OwnedDialogRecord owned(id, Bytes(8));
        Open(owned.record);
        Type(1, typed);
        EXPECT_EQ(grid.GetItemText(1, kValueColumn), shown) << typed;
    }
}

TEST_F(ParameterFormTest, NormalisingOutsideTheGridDoesNothing) {
    OwnedDialogRecord owned(kInt, {1, 0});
    Open(owned.record);
    for (const int row : {-1, 0, 2, 1000}) {
        form->NormalizeText(grid, row);
    }
    EXPECT_EQ(grid.GetItemText(0, 1), "Wert");
    EXPECT_EQ(RowsOf(grid), (Rows{"Element=1"}));
}

TEST_F(ParameterFormTest, ATextThatSpellsNoValueIsRefusedAndLosesNothing) {
    OwnedDialogRecord owned(kDay, {0x80, 0x51, 1, 0, 0, 0xA3, 2, 0}, 2);
    Open(owned.record);
    EXPECT_EQ(RowsOf(grid), (Rows{"Element[0]=02.01.1970", "Element[1]=03.01.1970"}));
    grid.SetItemText(1, kValueColumn, "never");  // not typed: nothing has made it canonical
    EXPECT_FALSE(form->TakeBack(grid));
    EXPECT_EQ(grid.GetItemText(1, kValueColumn), "never");
    EXPECT_TRUE(form->ChangeVectorLength(grid, 3, DroppedElements::Forget));
    EXPECT_EQ(RowsOf(grid),
              (Rows{"Element[0]=02.01.1970", "Element[1]=03.01.1970", "Element[2]=01.01.1970"}));
}

/// Accepting reads every text again, also of values that nobody has touched.
TEST_F(ParameterFormTest, AcceptingMayChangeBytesThatTextsDoNotTell) {
    struct Case {
        std::uint32_t id;
        BaseTypeCode code;
        std::uint32_t size;
        Bytes before;
        Bytes after;
    };
    const std::vector<Case> cases{
        // Control characters are shown as points.
        {40, BaseTypeCode::String, 4, {'a', 1, 0, 0}, {'a', '.', 0, 0}},
        // 90,000 s since midnight are 01:00:00.
        {41, BaseTypeCode::Time, 0, {0x90, 0x5F, 1, 0}, {0x10, 0x0E, 0, 0}},
        // Without bytes a value begins as the type's default: 29.02.2024 12:00:00 (45351.5).
        {42, BaseTypeCode::OleDateTime, 0, {}, {0, 0, 0, 0, 0xF0, 0x24, 0xE6, 0x40}},
    };
    for (const Case& each : cases) {
        const std::string name = "T" + std::to_string(each.id);
        definitions.AddArea(each.id, BasicType(name.c_str(), each.code, each.size));
        definitions.store.ResolveReferences();
        OwnedDialogRecord owned(each.id, each.before);
        Open(owned.record);
        ASSERT_TRUE(isOpen);
        ASSERT_TRUE(form->TakeBack(grid));
        ASSERT_TRUE(form->Store(10));
        EXPECT_EQ(owned.Value(), each.after) << name;
    }
    OwnedDialogRecord unset(kMode);
    Open(unset.record);
    ASSERT_TRUE(form->TakeBack(grid) && form->Store(10));
    EXPECT_EQ(unset.Value(), Bytes{0}) << "the first enumerator that has a name";
}

TEST_F(ParameterFormTest, VectorsAreCutToTheLongestInEveryMode) {
    for (const std::uint32_t mode : {0U, 1U, 3U}) {
        OwnedDialogRecord owned(kInt, Bytes(2'002, 5), 1'001);
        owned.record.mode = mode;
        Open(owned.record);
        ASSERT_TRUE(isOpen);
        EXPECT_EQ(grid.GetRowCount(), 1'000) << mode;
        ASSERT_TRUE(form->TakeBack(grid) && form->Store(10));
        EXPECT_EQ(owned.record.count, 999U) << mode;
        EXPECT_EQ(owned.record.length, 2'002U) << "the value's block never shrinks";
    }
}

TEST_F(ParameterFormTest, StoreWritesEverythingAndNothingBefore) {
    OwnedDialogRecord owned(kInt, {1, 0});
    owned.record.boxWidth = 12;
    owned.record.mode = 1;
    Open(owned.record);
    Type(1, "500");
    EXPECT_TRUE(form->ChangeVectorLength(grid, 2, DroppedElements::Forget));
    EXPECT_TRUE(form->TakeBack(grid));
    EXPECT_EQ(owned.Value(), (Bytes{1, 0}));
    EXPECT_EQ(owned.record.boxWidth, 12U);
    EXPECT_EQ(owned.record.count, 1U);
    EXPECT_TRUE(form->Store(17));
    EXPECT_EQ(owned.Value(), (Bytes{0xF4, 1, 0, 0}));
    EXPECT_EQ(owned.record.boxWidth, 20U);
    EXPECT_EQ(owned.record.count, 2U);
}

TEST_F(ParameterFormTest, DefinitionsMayChangeWhileTheFormIsOpen) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0}, 2);
    Open(owned.record);
    definitions.store.Clear();
    EXPECT_FALSE(form->TakeBack(grid));
    EXPECT_FALSE(form->ChangeVectorLength(grid, 3, DroppedElements::Forget));
    EXPECT_FALSE(form->ChangeFormat(grid, DisplayFormat::Hexadecimal));
    EXPECT_EQ(RowsOf(grid), (Rows{"Element[0]=1", "Element[1]=2"}));

    definitions.AddArea(kInt, Structure("Other", {Item("d", "DOUBLE")}));
    definitions.store.AddImplicitTypes();
    definitions.store.ResolveReferences();
    EXPECT_FALSE(form->TakeBack(grid)) << "the rows are those of another type";
    EXPECT_EQ(owned.Value(), (Bytes{1, 0, 2, 0}));
}

TEST_F(ParameterFormTest, FewerRowsThanValuesAreRefused) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0}, 2);
    Open(owned.record);
    grid.DeleteRow(2);
    EXPECT_FALSE(form->TakeBack(grid));
}

}  // namespace
}  // namespace orvell::ui
