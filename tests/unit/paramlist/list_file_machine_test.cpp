#include "paramlist/list_file_machine.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>
#include <vector>

namespace orvell::paramlist {
namespace {

class RecordedRecords : public ListFileRecords {
  public:
    void TakeOver(const ListFileRecord& record) override {
        text += std::string(record.keyword) + '|' + std::to_string(record.number) + '|' +
                std::string(record.name) + '|' + std::string(record.value) + '|' +
                std::string(record.comment) + '\n';
        ++count;
    }

    std::string text;
    int count = 0;
};

/// The records in a text, one a line. `portion`: length of the pieces that the machine gets.
std::string RecordsIn(const std::string& text, std::size_t portion = 1000) {
    RecordedRecords records;
    ListFileMachine machine(records);
    for (std::size_t start = 0; start < text.size(); start += portion) {
        // A copy that dies, so that a machine that keeps a piece is found out.
        const std::string piece = text.substr(start, portion);
        machine.Consume(piece);
    }
    (void)machine.Finish();
    return records.text;
}

bool ResultOf(const std::string& text) {
    RecordedRecords records;
    ListFileMachine machine(records);
    machine.Consume(text);
    return machine.Finish();
}

constexpr std::size_t kStateCount = 22;

/// A text that leads into each state, and the rest of a record from there.
struct StateTexts {
    std::string prefix;
    std::string rest;
};

const std::array<StateTexts, kStateCount> kStateTexts = {{
    {"", "0 K 1 N : n\nD : v\nC : c\n"},   {"x", "\n0 K 1 N : n\nD : v\nC : c\n"},
    {"0", " K 1 N : n\nD : v\nC : c\n"},   {"0 ", "K 1 N : n\nD : v\nC : c\n"},
    {"0 K", "K 1 N : n\nD : v\nC : c\n"},  {"0 K ", "1 N : n\nD : v\nC : c\n"},
    {"0 K 1", " N : n\nD : v\nC : c\n"},   {"0 K 1 ", "N : n\nD : v\nC : c\n"},
    {"0 K 1 N", ": n\nD : v\nC : c\n"},    {"0 K 1 N :", "n\nD : v\nC : c\n"},
    {"0 K 1 N : n", "n\nD : v\nC : c\n"},  {"0 K 1 N : n ", " \nD : v\nC : c\n"},
    {"0 K 1 N : n\n", "D : v\nC : c\n"},   {"0 K 1 N : n\nD", ": v\nC : c\n"},
    {"0 K 1 N : n\nD :", "v\nC : c\n"},    {"0 K 1 N : n\nD : v", "v\nC : c\n"},
    {"0 K 1 N : n\nD : v ", " \nC : c\n"}, {"0 K 1 N : n\nD : v\n", "C : c\n"},
    {"0 K 1 N : n\nD : v\nC", ": c\n"},    {"0 K 1 N : n\nD : v\nC :", "c\n"},
    {"0 K 1 N : n\nD : v\nC : c", "c\n"},  {"0 K 1 N : n\nD : v\nC : c ", " \n"},
}};

/// How many records each of the 22 rests completes: tells the states apart by what comes out.
std::vector<int> Signature(const std::string& prefix) {
    std::vector<int> counts;
    for (const StateTexts& texts : kStateTexts) {
        RecordedRecords records;
        ListFileMachine machine(records);
        machine.Consume(prefix);
        const int before = records.count;
        machine.Consume(texts.rest);
        counts.push_back(records.count - before);
    }
    return counts;
}

TEST(ListFileMachineTest, TheStatesCanBeToldApart) {
    std::set<std::vector<int>> signatures;
    for (const StateTexts& texts : kStateTexts) {
        EXPECT_TRUE(signatures.insert(Signature(texts.prefix)).second) << texts.prefix;
    }
}

/// A row of the machine's table: where each class of character leads.
struct Row {
    std::size_t state;
    std::size_t onWhiteSpace;
    std::size_t onLineFeed;
    std::string expected;  ///< characters that lead to `onExpected`; all others to 1
    std::size_t onExpected;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << "state " << row.state;
}

/// All of these are "other characters".
const std::string kAny = "x0N:DC@;\"\r\x01\xE4\xFF";
const std::string kDigits = "0123456789";

struct ListFileRow : testing::TestWithParam<Row> {};

TEST_P(ListFileRow, LeadsWhereItShould) {
    const Row& row = GetParam();
    const auto expectState = [&](char character, std::size_t state) {
        EXPECT_EQ(Signature(kStateTexts[row.state].prefix + character),
                  Signature(kStateTexts[state].prefix))
            << "state " << row.state << " on character " << static_cast<int>(character)
            << ", expected state " << state;
    };
    expectState(' ', row.onWhiteSpace);
    expectState('\t', row.onWhiteSpace);
    expectState('\n', row.onLineFeed);
    for (int code = 0; code < 256; ++code) {
        const char character = static_cast<char>(code);
        if (character != ' ' && character != '\t' && character != '\n') {
            const bool isExpected =
                row.expected == kAny || row.expected.find(character) != std::string::npos;
            expectState(character, isExpected ? row.onExpected : 1);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    State, ListFileRow,
    testing::Values(Row{0, 0, 0, "0", 2}, Row{1, 1, 0, kAny, 1}, Row{2, 3, 0, "", 1},
                    Row{3, 3, 0, kAny, 4}, Row{4, 5, 0, kAny, 4}, Row{5, 5, 0, kDigits, 6},
                    Row{6, 7, 0, kDigits, 6}, Row{7, 7, 0, "N", 8}, Row{8, 8, 0, ":", 9},
                    Row{9, 9, 0, kAny, 10}, Row{10, 11, 12, kAny, 10}, Row{11, 11, 12, "", 1},
                    Row{12, 12, 12, "D", 13}, Row{13, 13, 0, ":", 14}, Row{14, 14, 0, kAny, 15},
                    Row{15, 16, 17, kAny, 15}, Row{16, 16, 17, "", 1}, Row{17, 17, 17, "C", 18},
                    Row{18, 18, 0, ":", 19}, Row{19, 19, 0, kAny, 20}, Row{20, 21, 0, kAny, 20},
                    Row{21, 21, 0, "", 1}),
    [](const auto& row) { return std::to_string(row.param.state); });

constexpr const char* kRecord =
    " 0 PW           12 N : Soll@wert\n"
    "                   D : -5\n"
    "                   C : %%\n";

TEST(ListFileMachineTest, GivesTheFieldsOfARecord) {
    EXPECT_EQ(RecordsIn(kRecord), "PW|12|Soll wert|-5|%%\n");
}

TEST(ListFileMachineTest, GivesTheSameInPiecesOfAnySize) {
    const std::string text = std::string("99     X\n 9 Liste der PW\n") + kRecord + "junk\n" +
                             kRecord + "0 A 77 N:@a@ \t\n\n\n\tD:@b@c\n \n C\t:\t@\n";
    const std::string expected = "PW|12|Soll wert|-5|%%\nPW|12|Soll wert|-5|%%\nA|77| a |@b c| \n";
    for (const std::size_t portion : {1U, 2U, 3U, 7U, 16U, 64U, 1000U}) {
        EXPECT_EQ(RecordsIn(text, portion), expected) << portion;
    }
}

TEST(ListFileMachineTest, EmptiesEachFieldWhenItBegins) {
    EXPECT_EQ(RecordsIn("0 LONG 987 N : longname\nD : longvalue\nC : longcomment\n"
                        "0 K 1 N : n\nD : v\nC : c\n"),
              "LONG|987|longname|longvalue|longcomment\nK|1|n|v|c\n");
    EXPECT_EQ(RecordsIn("0 K 1 N : lost lost\n0 L 2 N : n\nD : v\nC : c\n"), "L|2|n|v|c\n");
}

TEST(ListFileMachineTest, TurnsMarksIntoBlanksButNotTheFirstOfAValue) {
    EXPECT_EQ(RecordsIn("0 K@ 1 N : @a@\nD : @@a@\nC : @@\n"), "K@|1| a |@ a |  \n");
    EXPECT_EQ(RecordsIn("0 K 1 N : a\nD : @\nC : b\n"), "K|1|a|@|b\n");
}

TEST(ListFileMachineTest, CountsNumbersModulo32Bits) {
    EXPECT_EQ(RecordsIn("0 K 4294967295 N : n\nD : v\nC : c\n"), "K|4294967295|n|v|c\n");
    EXPECT_EQ(RecordsIn("0 K 4294967297 N : n\nD : v\nC : c\n"), "K|1|n|v|c\n");
    EXPECT_EQ(RecordsIn("0 K 007 N : n\nD : v\nC : c\n"), "K|7|n|v|c\n");
    EXPECT_EQ(RecordsIn("0 K -1 N : n\nD : v\nC : c\n"), "");
}

TEST(ListFileMachineTest, LosesRecordsWithASecondWord) {
    EXPECT_EQ(RecordsIn("0 K 1 N : two words\nD : v\nC : c\n"), "");
    EXPECT_EQ(RecordsIn("0 K 1 N : n\nD : two words\nC : c\n"), "");
    EXPECT_EQ(RecordsIn("0 K 1 N : n\nD : v\nC : two words\n"), "");
    EXPECT_EQ(RecordsIn("0 K 1 N : n\nD : v\nC : two words\n0 L 2 N : n\nD : v\nC : c\n"),
              "L|2|n|v|c\n");
}

TEST(ListFileMachineTest, TakesAKindHeaderThatLooksLikeARecordForOne) {
    EXPECT_EQ(RecordsIn("0 Liste 5 N : n\nD : v\nC : c\n"), "Liste|5|n|v|c\n");
    EXPECT_EQ(RecordsIn(" 0 Liste der E\n0 K 1 N : n\nD : v\nC : c\n"), "K|1|n|v|c\n");
}

TEST(ListFileMachineTest, KeepsZeroBytesAndCarriageReturns) {
    const std::string zero(1, '\0');
    EXPECT_EQ(RecordsIn("0 K 1 N : a" + zero + "b\nD : \r\nC : c\xFF\n"),
              "K|1|a" + zero + "b|\r|c\xFF\n");
}

TEST(ListFileMachineTest, ItsResultDependsOnWhereTheTextEnds) {
    for (std::size_t state = 0; state < kStateCount; ++state) {
        const std::string& prefix = kStateTexts[state].prefix;
        const bool isRecord = state >= 20;
        EXPECT_EQ(ResultOf(prefix), state == 0 || isRecord) << state;
        EXPECT_EQ(ResultOf(std::string(kRecord) + prefix), true) << state;
        EXPECT_EQ(RecordsIn(prefix), isRecord ? "K|1|n|v|c\n" : "") << state;
    }
}

}  // namespace
}  // namespace orvell::paramlist
