// The texts themselves: complete in every language, with equal conversions and equal vocabulary.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ranges>
#include <string>
#include <vector>

#include "resources/built_in_strings.h"
#include "resources/checked_format.h"
#include "resources/string_ids.h"

namespace orvell::resources {
namespace {

struct NumberRange {
    std::uint32_t first;
    std::uint32_t last;
};

// List and CSV files and the configuration file travel between stations of different languages.
constexpr std::array<NumberRange, 9> kSameInAllLanguages = {{{1, 1},
                                                             {110, 112},
                                                             {130, 134},
                                                             {200, 214},
                                                             {250, 264},
                                                             {300, 314},
                                                             {500, 608},
                                                             {700, 711},
                                                             {750, 760}}};

bool IsSameInAllLanguages(std::uint32_t number) {
    return std::ranges::any_of(kSameInAllLanguages, [number](const NumberRange& range) {
        return number >= range.first && number <= range.last;
    });
}

std::vector<FormatConversion> ConversionsOf(std::string_view text) {
    std::vector<FormatConversion> conversions;
    while (!text.empty()) {
        FormatConversion conversion;
        std::size_t size = 0;
        if (text.front() == '%') {
            size = ParseConversion(text, conversion);
            EXPECT_TRUE(size > 0 || text.starts_with("%%")) << text;
        }
        if (size > 0) {
            conversions.push_back(conversion);
        }
        text.remove_prefix(size > 0 ? size : text.starts_with("%%") ? 2 : 1);
    }
    return conversions;
}

std::string Letters(std::string_view text) {
    std::string letters;
    for (const FormatConversion& conversion : ConversionsOf(text)) {
        letters += conversion.letter;
    }
    return letters;
}

class LanguageTextsTest : public testing::TestWithParam<const char*> {
  protected:
    const std::span<const LanguageText> texts_ = LanguageTexts(GetParam());
    const BuiltInStrings strings_{GetParam()};
};

TEST_P(LanguageTextsTest, EveryIdentifierHasATextAndEveryTextAnIdentifier) {
    std::vector<std::uint32_t> numbers;
    for (const LanguageText& text : texts_) {
        EXPECT_FALSE(text.text.empty()) << text.number;
        numbers.push_back(text.number);
    }
    std::vector<std::uint32_t> identifiers;
    for (const StringId id : kAllStringIds) {
        identifiers.push_back(static_cast<std::uint32_t>(id));
        EXPECT_FALSE(strings_.Load(identifiers.back()).empty()) << identifiers.back();
    }
    EXPECT_EQ(numbers, identifiers);
    EXPECT_TRUE(std::ranges::is_sorted(numbers));
}

TEST_P(LanguageTextsTest, ConversionsAreThoseOfTheGermanText) {
    const BuiltInStrings german("de");
    for (const LanguageText& text : texts_) {
        const std::vector<FormatConversion> expected = ConversionsOf(german.Load(text.number));
        const std::vector<FormatConversion> actual = ConversionsOf(text.text);
        ASSERT_EQ(actual.size(), expected.size()) << text.number;
        for (std::size_t i = 0; i < actual.size(); ++i) {
            EXPECT_EQ(actual[i].letter, expected[i].letter) << text.number;
            EXPECT_EQ(actual[i].bits, expected[i].bits) << text.number;
        }
    }
}

TEST_P(LanguageTextsTest, TextsOfFilesAreThoseOfTheGermanTable) {
    const BuiltInStrings german("de");
    for (const LanguageText& text : texts_) {
        if (IsSameInAllLanguages(text.number)) {
            EXPECT_EQ(text.text, german.Load(text.number)) << text.number;
        }
    }
}

TEST_P(LanguageTextsTest, BlocksReadUntilTheFirstMissingNumberEnd) {
    for (const std::uint32_t number : {712U, 752U, 1008U}) {
        EXPECT_EQ(strings_.Load(number), "") << number;
    }
    for (std::uint32_t number = 700; number <= 711; ++number) {
        EXPECT_NE(strings_.Load(number), "") << number;
    }
    for (std::uint32_t kind = 0; kind < 15; ++kind) {
        EXPECT_NE(strings_.Load(200 + kind), "") << kind;
        EXPECT_EQ(strings_.Load(250 + kind).back(), '\n') << kind;
        EXPECT_EQ(strings_.Load(300 + kind).back(), '\n') << kind;
    }
    for (const std::uint32_t number : {215U, 265U, 315U}) {
        EXPECT_EQ(strings_.Load(number), "") << number;
    }
}

// What the code hands to each format; a text that is no format must hold no conversion.
TEST_P(LanguageTextsTest, FormatsTakeTheArgumentsTheCodeGives) {
    const auto expected = [](std::uint32_t number) -> std::string {
        switch (number) {
            case 110:
            case 131:
            case 141:
            case 1002:
            case 1003:
            case 1004:
            case 1005:
            case 1010:
            case 1014:
            case 1015:
            case 2000:
            case 2001:
            case 2002:
            case 3000:
                return "s";
            case 112:
                return "susss";
            case 120:
            case 142:
                return "u";
            case 133:
                return "susss";
            case 134:
                return "suusss";
            case 144:
                return "d";
            default:
                return "";
        }
    };
    for (const LanguageText& text : texts_) {
        EXPECT_EQ(Letters(text.text), expected(text.number)) << text.number;
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, LanguageTextsTest, testing::Values("de", "en"),
                         [](const auto& instance) { return std::string(instance.param); });

TEST(UnknownLanguageTest, HasNoTexts) {
    EXPECT_TRUE(LanguageTexts("fr").empty());
    EXPECT_TRUE(LanguageTexts("").empty());
}

TEST(GermanTextsTest, BytesAreThoseOfCodePage1252) {
    const BuiltInStrings german;
    EXPECT_EQ(german.Load(1002),
              "Der Basisdatentyp von %s fehlt oder ist ung\xFCltig.\n\n"
              "Bitte pr\xFC"
              "fen Sie die Angaben nach \"Type\" in der zugeh\xF6renden "
              "Speicherstrukturdefinition.");
    EXPECT_EQ(german.Load(1013),
              "Fehler !   Die Ressourcen-DLL f\xFCr die ausgew\xE4hlte Sprache kann nicht geladen "
              "werden.\nDie internen deutschen Ressourcen werden verwendet.");
    EXPECT_EQ(german.Load(110),
              "99     ORVELL-PARAMETER-LIST-FILE-01\n98     Version_7.100\n97     Project: %s\n");
    EXPECT_EQ(german.Load(112),
              " 0 %-10s %4u N : %s\n                   D : %s\n                   C : %s\n");
    EXPECT_EQ(german.Load(142), "Zeile %u:   Warnung !   ");
}

}  // namespace
}  // namespace orvell::resources
