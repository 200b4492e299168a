#include "paramlist/parameter_list.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "resources/built_in_strings.h"

namespace orvell::paramlist {
namespace {

class ChangedStrings : public resources::BuiltInStrings {
  public:
    explicit ChangedStrings(std::map<std::uint32_t, std::string> changes)
        : changes_(std::move(changes)) {}

    [[nodiscard]] std::string Load(std::uint32_t number) const override {
        const auto change = changes_.find(number);
        return change != changes_.end() ? change->second : BuiltInStrings::Load(number);
    }

  private:
    std::map<std::uint32_t, std::string> changes_;
};

struct ParameterListTest : testing::Test {
    ParameterListTest() { EXPECT_TRUE(list_.BuildKinds()); }

    ParameterKind& Kind(std::string_view keyword) { return *list_.FindKind(keyword); }

    ParameterEntry* Entry(std::string_view keyword, std::uint32_t number) {
        return Kind(keyword).Find(number);
    }

    resources::BuiltInStrings source_;
    resources::StringTable strings_{source_};
    ParameterList list_{strings_};
};

std::vector<std::string> KeywordsOf(const ParameterList& list) {
    std::vector<std::string> keywords;
    for (const ParameterKind& kind : list.Kinds()) {
        keywords.push_back(kind.Keyword());
    }
    return keywords;
}

TEST(ParameterListKinds, AreMissingUntilBuilt) {
    const resources::BuiltInStrings source;
    const resources::StringTable strings(source);
    ParameterList list(strings);
    EXPECT_EQ(list.KindCount(), 0U);
    EXPECT_EQ(list.FindKind("PW"), nullptr);
    EXPECT_EQ(list.ParseAddress("PW1").kind, nullptr);
    EXPECT_FALSE(list.FillVector("PW1", std::vector<double>{1.0}));
    EXPECT_FALSE(list.IsDeclaredOnly());
    EXPECT_EQ(list.ProjectName(), "");
    list.ClearAll();
    list.PurgeAll(kDeclaredMark);
    list.SetFlagsAll(kDeclaredMark, true);
    list.BuildOrClear();
    EXPECT_EQ(list.KindCount(), 15U);
}

TEST_F(ParameterListTest, SortsItsKindsByBytes) {
    EXPECT_EQ(KeywordsOf(list_),
              (std::vector<std::string>{"A", "B", "DATEPARA", "DOUBLEPARA", "DTPARA", "E",
                                        "INT64PARA", "OLEDTPARA", "PF", "PL", "PT", "PW",
                                        "TIMEPARA", "TODPARA", "UCHARPARA"}));
}

TEST_F(ParameterListTest, KnowsTheValueTypeOfEveryKind) {
    const std::pair<std::string_view, ValueTypeCode> kinds[] = {
        {"E", ValueTypeCode::Bit},
        {"A", ValueTypeCode::Bit},
        {"B", ValueTypeCode::Bit},
        {"UCHARPARA", ValueTypeCode::Byte},
        {"PW", ValueTypeCode::Word},
        {"PL", ValueTypeCode::Long},
        {"INT64PARA", ValueTypeCode::Integer64},
        {"PF", ValueTypeCode::Float},
        {"DOUBLEPARA", ValueTypeCode::Float},
        {"PT", ValueTypeCode::Text},
        {"TIMEPARA", ValueTypeCode::Time},
        {"DATEPARA", ValueTypeCode::Date},
        {"TODPARA", ValueTypeCode::TimeOfDay},
        {"DTPARA", ValueTypeCode::DateAndTime},
        {"OLEDTPARA", ValueTypeCode::OleDateTime},
    };
    ValueTypeHandlerSet handlers;
    for (const auto& [keyword, code] : kinds) {
        EXPECT_EQ(list_.ValueTypeOf(keyword), code) << keyword;
        EXPECT_EQ(Kind(keyword).ValueType(), code) << keyword;
        const ValueTypeHandler* const handler = Kind(keyword).Handler();
        const ValueTypeHandler* const expected = handlers.Find(code);
        ASSERT_NE(handler, nullptr);
        EXPECT_EQ(typeid(*handler), typeid(*expected)) << keyword;
    }
    for (const std::string_view keyword : {"", "pw", "P", "PWX", "ZZZ", "0", "\xFF"}) {
        EXPECT_EQ(list_.FindKind(keyword), nullptr) << keyword;
        EXPECT_EQ(list_.ValueTypeOf(keyword), ValueTypeCode::None) << keyword;
    }
    EXPECT_EQ(ValueTypeOfKind(15), ValueTypeCode::None);
}

TEST(ParameterListKinds, CopeWithMissingAndEqualKeywords) {
    const ChangedStrings source({{200, "\xC4"}, {201, ""}, {205, "PW"}});
    const resources::StringTable strings(source);
    ParameterList list(strings);
    EXPECT_FALSE(list.BuildKinds());
    EXPECT_EQ(list.KindCount(), 13U);
    EXPECT_EQ(list.ValueTypeOf("PW"), ValueTypeCode::Word);
    EXPECT_EQ(list.Kinds().back().Keyword(), "\xC4");
    EXPECT_EQ(list.ValueTypeOf("\xC4"), ValueTypeCode::Bit);
    EXPECT_TRUE(list.BuildKinds(1));
    EXPECT_EQ(list.KindCount(), 1U);
}

TEST(ParameterListKinds, BeyondTheKnownOnesHaveNoHandler) {
    const ChangedStrings source({{215, "NEW"}});
    const resources::StringTable strings(source);
    ParameterList list(strings);
    EXPECT_TRUE(list.BuildKinds(16));
    ASSERT_NE(list.FindKind("NEW"), nullptr);
    EXPECT_EQ(list.FindKind("NEW")->Handler(), nullptr);
    ParameterEntry& entry = list.FindKind("NEW")->Obtain(1, false);
    entry.Value().Store(std::uint8_t{1});
    EXPECT_FALSE(list.FillVector("NEW1", std::vector<double>{1.0}));
    EXPECT_FALSE(entry.Value().IsDefined());
}

TEST_F(ParameterListTest, ClearsOrBuildsAnew) {
    Kind("PW").Obtain(1, false);
    Kind("E").Obtain(1, false);
    const ParameterKind* const kind = &Kind("PW");
    list_.BuildOrClear();
    EXPECT_EQ(&Kind("PW"), kind);
    EXPECT_TRUE(Kind("PW").IsEmpty());
    EXPECT_TRUE(Kind("E").IsEmpty());
    Kind("PW").Obtain(1, false);
    EXPECT_TRUE(list_.BuildKinds());
    EXPECT_TRUE(Kind("PW").IsEmpty());
}

TEST_F(ParameterListTest, UnderstandsAddresses) {
    struct Case {
        std::string_view text, keyword;
        std::uint32_t number;
        bool hasDigits, isKnown;
    };
    const Case cases[] = {
        {"PW12", "PW", 12, true, true},
        {"PW", "PW", 0, false, true},
        {"E3", "E", 24, true, true},
        {"E3.0", "E", 24, true, true},
        {"E3.5", "E", 29, true, true},
        {"E0.7", "E", 7, true, true},
        {"E0.07", "E", 7, true, true},
        {"E07", "E", 56, true, true},
        {"E1.9", "E", 17, true, true},
        {"E1.", "E", 8, false, true},
        {"PW12.3", "PW", 99, true, true},
        {"pw1", "pw", 1, true, false},
        {"A536870912", "A", 0, true, true},
        {"12", "1", 2, true, false},
        {"", "", 0, false, false},
        {"PW4294967295", "PW", 4294967295, true, true},
        {"UCHARPARA7", "UCHARPARA", 7, true, true},
    };
    for (const Case& expected : cases) {
        const ParameterAddress address = list_.ParseAddress(expected.text);
        EXPECT_EQ(address.keyword, expected.keyword) << expected.text;
        EXPECT_EQ(address.number, expected.number) << expected.text;
        EXPECT_EQ(address.hasDigits, expected.hasDigits) << expected.text;
        EXPECT_EQ(address.kind, list_.FindKind(expected.keyword)) << expected.text;
        EXPECT_EQ(address.kind != nullptr, expected.isKnown) << expected.text;
    }
}

TEST_F(ParameterListTest, FlagsAndPurgesEveryKind) {
    EXPECT_TRUE(Kind("PW").Declare(0, 1));
    EXPECT_TRUE(Kind("PT").Declare(0, 1));
    list_.SetFlagsAll(kDeclaredMark, false);
    EXPECT_EQ(Entry("PW", 1)->Flags(), 0U);
    EXPECT_TRUE(Kind("PT").Declare(1, 1));
    list_.PurgeAll(kDeclaredMark);
    EXPECT_EQ(Entry("PW", 1), nullptr);
    EXPECT_NE(Entry("PT", 1), nullptr);
    list_.ClearAll();
    EXPECT_TRUE(Kind("PT").IsEmpty());
}

TEST_F(ParameterListTest, TouchesOnlyDeclaredEntriesDuringAnUpdate) {
    ParameterKind& kind = Kind("PW");
    ParameterEntry& undeclared = kind.Obtain(1, false);
    list_.SetDeclaredOnly(true);
    EXPECT_EQ(list_.EntryToRead(kind, 1), nullptr);
    EXPECT_EQ(list_.EntryToWrite(kind, 1), nullptr);
    EXPECT_EQ(list_.EntryToWrite(kind, 2), nullptr);
    EXPECT_EQ(kind.EntryCount(), 1U);
    EXPECT_TRUE(kind.Declare(0, 1));
    ParameterEntry* const declared = kind.FindMarked(1, kDeclaredMark, true);
    EXPECT_EQ(list_.EntryToRead(kind, 1), declared);
    EXPECT_EQ(list_.EntryToWrite(kind, 1), declared);
    list_.SetDeclaredOnly(false);
    EXPECT_EQ(list_.EntryToRead(kind, 1), &undeclared);
    EXPECT_EQ(list_.EntryToWrite(kind, 1), &undeclared);
    EXPECT_EQ(list_.EntryToRead(kind, 2), nullptr);
    EXPECT_NE(list_.EntryToWrite(kind, 2), nullptr);
    EXPECT_EQ(kind.EntryCount(), 3U);
}

TEST_F(ParameterListTest, FillsAVectorAndDescribesItsElements) {
    Kind("PF").Obtain(10, false).SetName("Sollwert");
    Kind("PF").Obtain(11, false).SetComment("own");
    Kind("PF").Obtain(12, false).SetName("own");
    EXPECT_TRUE(list_.FillVector("PF10", std::vector<double>{1.5, 2.5, 3.5}));
    EXPECT_EQ(Kind("PF").EntryCount(), 3U);
    EXPECT_EQ(Entry("PF", 10)->Value().Load<double>(), 1.5);
    EXPECT_EQ(Entry("PF", 12)->Value().Load<double>(), 3.5);
    EXPECT_EQ(Entry("PF", 10)->Name(), "Sollwert");
    EXPECT_EQ(Entry("PF", 11)->Name(), "Sollwert");
    EXPECT_EQ(Entry("PF", 12)->Name(), "own");
    EXPECT_EQ(Entry("PF", 10)->Comment(), "Vektorelement 1");
    EXPECT_EQ(Entry("PF", 11)->Comment(), "own");
    EXPECT_EQ(Entry("PF", 12)->Comment(), "Vektorelement 3");
}

TEST_F(ParameterListTest, LeavesASingleValueUndescribed) {
    EXPECT_TRUE(list_.FillVector("PF10", std::vector<double>{1.5}));
    EXPECT_EQ(Entry("PF", 10)->Value().Load<double>(), 1.5);
    EXPECT_EQ(Entry("PF", 10)->Comment(), "");
    EXPECT_TRUE(list_.FillVector("PF10", std::vector<double>{}));
    EXPECT_TRUE(list_.FillVector("unknown", std::vector<double>{}));
    EXPECT_FALSE(list_.FillVector("", std::vector<double>{1.0}));
    EXPECT_FALSE(list_.FillVector("pf10", std::vector<double>{1.0}));
}

TEST_F(ParameterListTest, InheritsTheNameByTheRuleOfFiles) {
    Kind("PF").Obtain(1, false).SetName("%%");
    EXPECT_TRUE(list_.FillVector("PF1", std::vector<double>{1, 2}));
    EXPECT_EQ(Entry("PF", 1)->Name(), "%%");
    EXPECT_EQ(Entry("PF", 2)->Name(), "");
}

TEST_F(ParameterListTest, FillsVectorsOfDwordsAndOfBits) {
    EXPECT_TRUE(list_.FillVector("PL7", std::vector<std::uint32_t>{1, 0xFFFFFFFF}));
    EXPECT_EQ(Entry("PL", 8)->Value().Load<std::int32_t>(), -1);
    EXPECT_EQ(Entry("PL", 8)->Comment(), "Vektorelement 2");
    EXPECT_FALSE(list_.FillVector("PF1", std::vector<std::uint32_t>{1, 2}));
    EXPECT_FALSE(Entry("PF", 1)->Value().IsDefined());
    EXPECT_EQ(Entry("PF", 2)->Comment(), "Vektorelement 2");
    EXPECT_TRUE(list_.FillVector("E3.7", std::vector<double>{1, 0, 0.5}));
    EXPECT_EQ(Entry("E", 31)->Value().Load<std::uint8_t>(), 1);
    EXPECT_EQ(Entry("E", 32)->Value().Load<std::uint8_t>(), 0);
    EXPECT_EQ(Entry("E", 33)->Value().Load<std::uint8_t>(), 1);
}

TEST_F(ParameterListTest, FillsOnlyDeclaredElementsDuringAnUpdate) {
    list_.SetDeclaredOnly(true);
    EXPECT_FALSE(list_.FillVector("PF1", std::vector<double>{1, 2, 3}));
    EXPECT_TRUE(Kind("PF").IsEmpty());
    EXPECT_TRUE(Kind("PF").Declare(2, 2));
    EXPECT_TRUE(list_.FillVector("PF1", std::vector<double>{1, 2, 3}));
    EXPECT_EQ(Kind("PF").EntryCount(), 1U);
    EXPECT_EQ(Entry("PF", 2)->Value().Load<double>(), 2.0);
    EXPECT_EQ(Entry("PF", 2)->Name(), "");
    EXPECT_EQ(Entry("PF", 2)->Comment(), "Vektorelement 2");
}

TEST(ValueTexts, ComeFromTheStringTable) {
    const resources::BuiltInStrings builtIn;
    const resources::StringTable strings(builtIn);
    EXPECT_EQ(LoadValueTexts(strings).undefined, "undef");
    EXPECT_EQ(LoadValueTexts(strings).csvDateFormat, values::DateFormatCode::DayFirst);
    const ChangedStrings monthFirst({{760, "MM/DD/YYYY"}});
    EXPECT_EQ(LoadValueTexts(resources::StringTable(monthFirst)).csvDateFormat,
              values::DateFormatCode::MonthFirst);
    const ChangedStrings unknown({{760, "YYYY-MM-DD"}});
    EXPECT_EQ(LoadValueTexts(resources::StringTable(unknown)).csvDateFormat,
              values::DateFormatCode::DayFirst);
}

}  // namespace
}  // namespace orvell::paramlist
