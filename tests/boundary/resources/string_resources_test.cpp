// Texts as the resource compiler has put them into the libraries.

#include <gtest/gtest.h>

#include <string>

#include "loaded_module.h"
#include "platform/string_resources.h"
#include "resources/built_in_strings.h"
#include "resources/string_ids.h"
#include "resources/string_table.h"

namespace orvell::test {
namespace {

class StringResourcesTest : public testing::TestWithParam<ModuleUnderTest> {
  protected:
    void SetUp() override { ASSERT_NE(module_.Handle(), nullptr) << GetParam().path; }

    // As a data file ORVELL.DLL can be read without the host's libraries that its start-up needs.
    const LoadedModule module_{GetParam().path, LOAD_LIBRARY_AS_DATAFILE};
};

TEST_P(StringResourcesTest, EveryIdentifierLoadsTheTextOfItsLanguageFile) {
    const resources::BuiltInStrings source(GetParam().language);
    for (const resources::StringId id : resources::kAllStringIds) {
        const auto number = static_cast<UINT>(id);
        const auto text = module_.Text(number);
        ASSERT_TRUE(text.has_value()) << number;
        EXPECT_EQ(ToCodePage(1252, *text), source.Load(number)) << number;
    }
}

TEST_P(StringResourcesTest, NoOtherNumberHasAText) {
    const resources::BuiltInStrings source(GetParam().language);
    for (UINT number = 0; number <= 4000; ++number) {
        EXPECT_EQ(module_.Text(number).has_value(), !source.Load(number).empty()) << number;
    }
}

TEST_P(StringResourcesTest, StringTableReadsTheLibrary) {
    const platform::ModuleStringSource library(module_.Handle());
    const resources::StringTable table(library);
    for (const resources::StringId id : resources::kAllStringIds) {
        const std::wstring text = module_.Text(static_cast<UINT>(id)).value_or(L"");
        EXPECT_EQ(table.Text(id), ToCodePage(CP_ACP, text));
    }
    EXPECT_EQ(table.Text(resources::StringId{712}), "");
}

TEST_P(StringResourcesTest, TextsCarryTheLanguageOfTheLibrary) {
    // Strings lie in bundles of 16, counted from 1.
    for (const unsigned number : {2U, 112U, 1013U, 3000U}) {
        EXPECT_NE(FindResourceExW(module_.Handle(), RT_STRING, MAKEINTRESOURCEW(number / 16 + 1),
                                  GetParam().languageId),
                  nullptr)
            << number;
    }
}

INSTANTIATE_TEST_SUITE_P(Modules, StringResourcesTest,
                         testing::Values(kModule, kGermanLibrary, kEnglishLibrary),
                         [](const auto& instance) { return CaseName(instance.param); });

// Written out here, since the tables compared above come from the same generator.
TEST(ResourceScriptTest, UmlautsQuotesAndLineFeedsSurvive) {
    const LoadedModule german("de\\ORVELLRES.DLL", LOAD_LIBRARY_AS_DATAFILE);
    EXPECT_EQ(
        german.Text(1002),
        L"Der Basisdatentyp von %s fehlt oder ist ung\u00FCltig.\n\nBitte pr\u00FCfen Sie die "
        L"Angaben nach \"Type\" in der zugeh\u00F6renden Speicherstrukturdefinition.");
    EXPECT_EQ(german.Text(1013),
              L"Fehler !   Die Ressourcen-DLL f\u00FCr die ausgew\u00E4hlte Sprache kann nicht "
              L"geladen werden.\nDie internen deutschen Ressourcen werden verwendet.");
    EXPECT_EQ(german.Text(103), L"???");
    EXPECT_EQ(german.Text(142), L"Zeile %u:   Warnung !   ");
}

TEST(ModuleStringSourceTest, LongTextsAreReadWhole) {
    const platform::ModuleStringSource source(GetModuleHandleW(nullptr));
    EXPECT_EQ(source.Load(1).size(), 9000U);
    EXPECT_EQ(source.Load(1).find_first_not_of("0123456789"), std::string::npos);
    EXPECT_EQ(source.Load(2), "next to it");
}

TEST(ModuleStringSourceTest, MissingTextsAreEmpty) {
    const platform::ModuleStringSource source(GetModuleHandleW(nullptr));
    EXPECT_EQ(source.Load(0), "");
    EXPECT_EQ(source.Load(3), "");
    EXPECT_EQ(source.Load(4000), "");
}

}  // namespace
}  // namespace orvell::test
