// What is written comes back: both forms of files, lists of all kinds.

#include <limits>
#include <random>

#include "paramlist/csv_file_writer.h"
#include "paramlist/list_file_reader.h"
#include "paramlist/list_file_writer.h"
#include "unit/paramlist/csv_import_fixture.h"
#include "unit/paramlist/generated_list.h"

namespace orvell::paramlist {
namespace {

constexpr std::uint32_t kRoundTripEntryCount = 3000;

class FileRoundTrip : public test::CsvImportFixture,
                      public testing::WithParamInterface<std::uint32_t> {
  protected:
    FileRoundTrip() { other.BuildKinds(); }

    std::string ListFile(const ParameterList& from) const {
        test::MemorySink sink;
        EXPECT_TRUE(WriteListFile(from, strings, sink));
        return sink.text;
    }

    std::string CsvFile(const ParameterList& from) const {
        test::MemorySink sink;
        EXPECT_TRUE(WriteCsvFile(from, strings, sink));
        return sink.text;
    }

    void ReadListFileInto(ParameterList& into, std::string text) const {
        test::MemorySource bytes(std::move(text));
        EXPECT_TRUE(ReadListFile(into, strings, bytes, ListFileScope::AllEntries));
    }

    /// Gives `other` the entries of `list`, without anything in them.
    void CopyNumbers() {
        for (const ParameterKind& kind : list.Kinds()) {
            for (const ParameterEntry* const entry : kind.EntriesInOrder()) {
                other.FindKind(kind.Keyword())->Obtain(entry->Number(), false);
            }
        }
    }

    ParameterList other{strings};
};

INSTANTIATE_TEST_SUITE_P(Seeds, FileRoundTrip, testing::Values(1, 20, 300));

TEST_P(FileRoundTrip, AListFileGivesTheSameList) {
    test::FillList(list, kRoundTripEntryCount, GetParam());
    const std::string written = ListFile(list);
    ReadListFileInto(other, written);
    EXPECT_EQ(Everything(other), Everything(list));
    EXPECT_EQ(ListFile(other), written);
}

TEST_P(FileRoundTrip, ACsvFileGivesTheSameList) {
    test::FillList(list, kRoundTripEntryCount, GetParam());
    const std::string written = CsvFile(list);
    CopyNumbers();
    EXPECT_EQ(Read(other, written), std::vector<std::string>());
    EXPECT_EQ(Everything(other), Everything(list));
    EXPECT_EQ(CsvFile(other), written);
}

TEST_P(FileRoundTrip, ACsvFileReplacesEverything) {
    test::FillList(list, kRoundTripEntryCount, GetParam());
    CopyNumbers();
    for (ParameterKind& kind : other.Kinds()) {
        for (const ParameterEntry* const entry : kind.EntriesInOrder()) {
            ParameterEntry& changed = *kind.Find(entry->Number());
            changed.SetName("other");
            changed.SetComment("other");
            kind.Handler()->SetFromText(changed.Value(), "77");
        }
    }
    EXPECT_EQ(Read(other, CsvFile(list)), std::vector<std::string>());
    EXPECT_EQ(Everything(other), Everything(list));
}

/// Texts of all characters that end neither line nor file, and doubles of all digits: what a list
/// file cannot keep is lost at once, not a little with every save.
TEST_P(FileRoundTrip, AListFileSavedAgainIsTheSameFile) {
    std::mt19937 random(GetParam());
    const auto anyText = [&random](std::size_t maximumLength) {
        constexpr std::string_view kFrequent = "@ %;\"un";
        std::string text;
        while (text.size() < 1 + random() % maximumLength) {
            const char character =
                static_cast<char>(random() % 2 == 0 ? kFrequent[random() % kFrequent.size()]
                                                    : static_cast<char>(random()));
            const bool isAllowed = character != '\0' && character != '\t' && character != '\n' &&
                                   character != '\r' && character != '\x1A';
            text += isAllowed ? character : 'x';
        }
        return text;
    };
    for (std::uint32_t number = 1; number < 500; ++number) {
        Add("PT" + std::to_string(number), anyText(15), anyText(30), anyText(40));
        const std::uint64_t bits = std::uint64_t{random()} << 32 | random();
        list.FindKind("DOUBLEPARA")
            ->Obtain(number, false)
            .Value()
            .Store(std::bit_cast<double>(bits));
    }
    Add("PT1", "%%", "%%", "undef");
    Add("PT2", "@", " ", "");
    Add("PT3", "", "", " @ ");
    using Limits = std::numeric_limits<double>;
    for (const double number : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), -0.0,
                                Limits::denorm_min(), 1e308}) {
        list.FindKind("PF")
            ->Obtain(static_cast<std::uint32_t>(random()), false)
            .Value()
            .Store(number);
    }
    const std::string written = ListFile(list);
    ReadListFileInto(other, written);
    EXPECT_EQ(ListFile(other), written);
}

TEST_F(FileRoundTrip, ACsvFileKeepsWhatNeedsQuotes) {
    const std::string texts[] = {"\"",    "\"\"",   "a;b", ";",        "a\tb",   "a\rb",
                                 " lead", "trail ", "@",   "\xFF\xFE", "x\"y;z", "undef"};
    std::uint32_t number = 0;
    for (const std::string& text : texts) {
        Add("PT" + std::to_string(++number), text, text, text);
    }
    const std::string written = CsvFile(list);
    CopyNumbers();
    EXPECT_EQ(Read(other, written), std::vector<std::string>());
    EXPECT_EQ(Everything(other), Everything(list));
}

TEST_F(FileRoundTrip, BothFilesKeepWhatIsNoNumber) {
    using Limits = std::numeric_limits<double>;
    std::uint32_t number = 0;
    for (const double value : {Limits::infinity(), -Limits::infinity(), -0.0}) {
        list.FindKind("PF")->Obtain(++number, false).Value().Store(value);
    }
    ParameterEntry& notANumber = list.FindKind("DOUBLEPARA")->Obtain(1, false);
    notANumber.Value().Store(Limits::quiet_NaN());
    CopyNumbers();
    EXPECT_EQ(Read(other, CsvFile(list)), std::vector<std::string>());
    EXPECT_EQ(Everything(other), Everything(list));
    other.ClearAll();
    ReadListFileInto(other, ListFile(list));
    EXPECT_EQ(Everything(other), Everything(list));
}

TEST_F(FileRoundTrip, DoublesLoseTheDigitsThatTheFilesDoNotHave) {
    using Limits = std::numeric_limits<double>;
    ParameterKind& numbers = *other.FindKind("DOUBLEPARA");
    for (const auto& [number, value] : {std::pair(1U, 0.1 + 0.2), {2U, Limits::max()}}) {
        list.FindKind("DOUBLEPARA")->Obtain(number, false).Value().Store(value);
        numbers.Obtain(number, false).Value().Store(7.0);
    }
    EXPECT_EQ(Read(other, CsvFile(list)), std::vector<std::string>{"7 2004"});
    EXPECT_EQ(numbers.Find(1)->Value().Load<double>(), 0.3);
    EXPECT_EQ(numbers.Find(2)->Value().Load<double>(), 7.0) << "rounded up it is no number";
    ReadListFileInto(other, ListFile(list));
    EXPECT_EQ(numbers.Find(1)->Value().Load<double>(), 0.3);
    EXPECT_EQ(numbers.Find(2)->Value().Load<double>(), Limits::infinity());
}

TEST_F(FileRoundTrip, AListFileTakesTheOldestOfEqualNumbersForAll) {
    ParameterKind& words = *list.FindKind("PW");
    words.Obtain(5, true).SetName("oldest");
    words.Obtain(5, true).SetName("youngest");
    ReadListFileInto(other, ListFile(list));
    EXPECT_EQ(other.FindKind("PW")->EntryCount(), 1U);
    EXPECT_EQ(other.FindKind("PW")->Find(5)->Name(), "youngest") << "its record comes last";
}

}  // namespace
}  // namespace orvell::paramlist
