#include "ui/dialogs/type_survey.h"

#include "form_fixture.h"

namespace orvell::ui {
namespace {

using values::BaseTypeCode;

class TypeSurveyTest : public testing::Test {
  protected:
    TypeSurveyTest() { definitions.store.AddType(BasicType("Word", BaseTypeCode::UInt, 2)); }

    [[nodiscard]] TypeSurvey Survey(const std::string& name) {
        definitions.store.ResolveReferences();
        return TypeSurvey(*definitions.store.FindType(name));
    }

    Definitions definitions;
};

TEST_F(TypeSurveyTest, CountsLeavesAndBytes) {
    definitions.store.AddType(Structure("Point", {Item("x", "Word"), Item("y", "Word", 3)}));
    definitions.store.AddType(Structure("Line", {Item("ends", "Point", 2), Item("w", "Word")}));
    EXPECT_EQ(Survey("Word").Extent().leaves, 1U);
    EXPECT_EQ(Survey("Word").Extent().bytes, 2U);
    EXPECT_EQ(Survey("Line").Extent().leaves, 9U);
    EXPECT_EQ(Survey("Line").Extent().bytes, 18U);
    EXPECT_EQ(Survey("Line").UnusableType(), nullptr);
}

TEST_F(TypeSurveyTest, AnEmptyStructureHoldsNothing) {
    definitions.store.AddType(Structure("Empty", {}));
    definitions.store.AddType(Structure("Outer", {Item("e", "Empty", 4'000'000'000U)}));
    EXPECT_EQ(Survey("Outer").Extent().leaves, 0U);
}

TEST_F(TypeSurveyTest, NamesTheFirstUnusableType) {
    definitions.store.AddType(Structure("Inner", {Item("a", "Word"), Item("b", "Lost")}));
    definitions.store.AddType(Structure("Outer", {Item("i", "Inner"), Item("j", "Gone")}));
    const TypeSurvey survey = Survey("Outer");
    ASSERT_NE(survey.UnusableType(), nullptr);
    EXPECT_EQ(*survey.UnusableType(), "Lost");
}

TEST_F(TypeSurveyTest, ATypeWithoutBaseTypeIsUnusable) {
    definitions.store.AddType(BasicType("Bare", BaseTypeCode::None));
    definitions.store.AddType(Structure("Outer", {Item("i", "Bare")}));
    const TypeSurvey survey = Survey("Outer");
    ASSERT_NE(survey.UnusableType(), nullptr);
    EXPECT_EQ(*survey.UnusableType(), "Bare");
}

TEST_F(TypeSurveyTest, DimensionsMultiplyWithoutWrapping) {
    constexpr std::uint32_t kMany = 4'000'000'000U;
    definitions.store.AddType(Structure("A", {Item("a", "Word", kMany)}));
    definitions.store.AddType(Structure("B", {Item("b", "A", kMany)}));
    definitions.store.AddType(Structure("C", {Item("c", "B", kMany), Item("d", "B", kMany)}));
    EXPECT_EQ(Survey("A").Extent().leaves, kMany);
    EXPECT_EQ(Survey("C").Extent().leaves, TypeExtent::kUncountable);
    EXPECT_EQ(Repeat(Survey("C").Extent(), kMany).leaves, TypeExtent::kUncountable);
    EXPECT_EQ(Repeat(Survey("C").Extent(), 0).leaves, 0U);
}

TEST_F(TypeSurveyTest, VisitsATypeOnceHoweverOftenItIsUsed) {
    std::string inner = "Word";
    for (int level = 0; level < 60; ++level) {  // 2^60 leaves
        const std::string name = "Level" + std::to_string(level);
        definitions.store.AddType(Structure(name, {Item("a", inner), Item("b", inner)}));
        inner = name;
    }
    EXPECT_EQ(Survey(inner).Extent().leaves, std::uint64_t{1} << 60);
}

TEST_F(TypeSurveyTest, DepthIsNoMatterOfTheStack) {
    std::string inner = "Word";
    for (int level = 0; level < 100'000; ++level) {
        const std::string name = "L" + std::to_string(level);
        definitions.store.AddType(Structure(name, {Item("a", inner)}));
        inner = name;
    }
    EXPECT_EQ(Survey(inner).Extent().leaves, 1U);
}

}  // namespace
}  // namespace orvell::ui
