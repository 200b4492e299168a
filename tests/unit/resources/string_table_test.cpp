#include "resources/string_table.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "resources/built_in_strings.h"

namespace orvell::resources {
namespace {

class CountingSource : public platform::StringSource {
  public:
    explicit CountingSource(std::map<std::uint32_t, std::string> texts)
        : texts_(std::move(texts)) {}

    [[nodiscard]] std::string Load(std::uint32_t number) const override {
        ++loads;
        const auto found = texts_.find(number);
        return found == texts_.end() ? std::string() : found->second;
    }

    mutable int loads = 0;

  private:
    std::map<std::uint32_t, std::string> texts_;
};

TEST(StringTableTest, LoadsATextOnce) {
    const CountingSource source({{100, "Element"}, {101, "Wert"}});
    const StringTable table(source);
    EXPECT_EQ(source.loads, 0);
    EXPECT_EQ(table.Text(StringId::ElementHeader), "Element");
    EXPECT_EQ(table.Text(StringId::ElementHeader), "Element");
    EXPECT_EQ(table.Text(StringId::ValueHeader), "Wert");
    EXPECT_EQ(source.loads, 2);
}

TEST(StringTableTest, AMissingTextIsEmptyAndAlsoLookedUpOnce) {
    const CountingSource source({{100, "Element"}});
    const StringTable table(source);
    EXPECT_EQ(table.Text(StringId{712}), "");
    EXPECT_EQ(table.Text(StringId{712}), "");
    EXPECT_EQ(source.loads, 1);
}

TEST(StringTableTest, ReferencesOutliveFurtherLookUps) {
    const BuiltInStrings source;
    const StringTable table(source);
    const std::string& caption = table.Text(StringId::ErrorCaption);
    const std::string* const place = &caption;
    for (const StringId id : kAllStringIds) {
        EXPECT_FALSE(table.Text(id).empty());
    }
    EXPECT_EQ(place, &table.Text(StringId::ErrorCaption));
    EXPECT_EQ(caption, "Fehler !");
}

TEST(StringTableTest, AnotherSourceReplacesAllTextsWithoutFallback) {
    const CountingSource german({{2, "Fehler !"}, {100, "Element"}});
    const CountingSource partial({{2, "Error !"}});
    StringTable table(german);
    EXPECT_EQ(table.Text(StringId::ErrorCaption), "Fehler !");
    EXPECT_EQ(table.Text(StringId::ElementHeader), "Element");
    EXPECT_EQ(table.Text(StringId::ValueHeader), "");

    table.UseSource(partial);
    EXPECT_EQ(table.Text(StringId::ErrorCaption), "Error !");
    EXPECT_EQ(table.Text(StringId::ElementHeader), "");

    table.UseSource(german);
    EXPECT_EQ(table.Text(StringId::ElementHeader), "Element");
}

TEST(BuiltInStringsTest, KnowsTheLanguagesByTheirCodes) {
    EXPECT_EQ(BuiltInStrings().Load(2), "Fehler !");
    EXPECT_EQ(BuiltInStrings("de").Load(2), "Fehler !");
    EXPECT_EQ(BuiltInStrings("en").Load(2), "Error !");
    EXPECT_EQ(BuiltInStrings("fr").Load(2), "");
}

TEST(BuiltInStringsTest, NumbersWithoutATextAreEmpty) {
    const BuiltInStrings strings;
    for (const std::uint32_t number : {0U, 3U, 99U, 113U, 3001U, 65535U, 4294967295U}) {
        EXPECT_EQ(strings.Load(number), "") << number;
    }
}

}  // namespace
}  // namespace orvell::resources
