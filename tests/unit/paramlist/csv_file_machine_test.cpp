#include "paramlist/csv_file_machine.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace orvell::paramlist {
namespace {

using Events = std::vector<std::string>;

/// Notes what the machine reports. First fields that begin with "!" are not wanted.
class Collected final : public CsvFileRecords {
  public:
    [[nodiscard]] bool Open(std::string_view text, std::uint32_t line) override {
        Note("open " + std::string(text), line);
        return !text.starts_with('!');
    }

    void TakeOver(const CsvFileRecord& record, std::uint32_t line) override {
        Note("take " + std::string(record.name) + "|" + std::string(record.value) + "|" +
                 std::string(record.comment),
             line);
    }

    void ReportLineFormat(std::uint32_t line) override { Note("format", line); }

    Events events;

  private:
    void Note(const std::string& event, std::uint32_t line) {
        events.push_back(std::to_string(line) + " " + event);
    }
};

Events Read(std::string_view text) {
    Collected collected;
    CsvFileMachine machine(collected);
    machine.Consume(text);
    machine.Finish();
    return collected.events;
}

/// Without the end of the file.
Events ReadOpen(std::string_view text) {
    Collected collected;
    CsvFileMachine machine(collected);
    machine.Consume(text);
    return collected.events;
}

/// Texts that lead to each state at the start of its field.
const std::string kBefore[] = {
    "",          "!;",     "A;",       "A;\"",        "A;\"n\"",  "A;n;",       "A;n;\"",
    "A;n;\"v\"", "A;n;v;", "A;n;v;\"", "A;n;v;\"w\"", "A;n;v;w;", "A;n;v;w;\"", "A;n;v;w;\"c\""};
constexpr std::size_t kStates = std::size(kBefore);

/// The kinds of what is reported behind `before`, for many continuations.
std::vector<Events> Future(const std::string& before) {
    std::vector<Events> future;
    for (const char* more : {"",        "\n",     "x",        "x\n",    "x;;;\n",    ";",
                             ";\n",     "\"",     "\"\n",     "\"\"",   "\";\n",     ";;\n",
                             ";;;\n",   ";;;;\n", "x\"y\n",   "\"x\n",  "\"x\";y\n", "y;\"\n",
                             "\";\"\n", ";;\"\n", "\";;\"\n", ";\";\n", "\";\";;\n", "\";;;\n"}) {
        const std::size_t known = ReadOpen(before).size();
        Events events = Read(before + more);
        events.erase(events.begin(), events.begin() + static_cast<std::ptrdiff_t>(known));
        for (std::string& event : events) {
            event.resize(event.find(' ', event.find(' ') + 1) == std::string::npos
                             ? event.size()
                             : event.find(' ', event.find(' ') + 1));
            event.erase(0, event.find(' ') + 1);
        }
        future.push_back(events);
    }
    return future;
}

enum class Report { None, Open, Take, Format };

/// A character's effect: what is reported and the state that follows.
struct Step {
    Report report;
    std::size_t next;
};

struct CsvRow {
    std::size_t state;
    Step onSeparator;
    Step onQuote;  ///< as the first character of a plain field
    Step onLineFeed;
    Step onOther;
};

constexpr Report kNone = Report::None;
constexpr Report kTake = Report::Take;
constexpr Report kFormat = Report::Format;

const CsvRow kCsvRows[] = {
    {0, {Report::Open, 2}, {kNone, 0}, {kNone, 0}, {kNone, 0}},
    {1, {kNone, 1}, {kNone, 1}, {kNone, 0}, {kNone, 1}},
    {2, {kNone, 5}, {kNone, 3}, {kFormat, 0}, {kNone, 2}},
    {3, {kNone, 3}, {kNone, 4}, {kFormat, 0}, {kNone, 3}},
    {4, {kNone, 5}, {kNone, 3}, {kFormat, 0}, {kFormat, 1}},
    {5, {kNone, 8}, {kNone, 6}, {kTake, 0}, {kNone, 5}},
    {6, {kNone, 6}, {kNone, 7}, {kFormat, 0}, {kNone, 6}},
    {7, {kNone, 8}, {kNone, 6}, {kTake, 0}, {kFormat, 1}},
    {8, {kNone, 11}, {kNone, 9}, {kTake, 0}, {kNone, 8}},
    {9, {kNone, 9}, {kNone, 10}, {kFormat, 0}, {kNone, 9}},
    {10, {kNone, 11}, {kNone, 9}, {kTake, 0}, {kFormat, 1}},
    {11, {kTake, 1}, {kNone, 12}, {kTake, 0}, {kNone, 11}},
    {12, {kNone, 12}, {kNone, 13}, {kFormat, 0}, {kNone, 12}},
    {13, {kTake, 1}, {kNone, 12}, {kTake, 0}, {kFormat, 1}},
};

Report ReportOf(const std::string& event) {
    const std::string kind = event.substr(event.find(' ') + 1);
    return kind == "format" ? Report::Format
                            : (kind.starts_with("open") ? Report::Open : Report::Take);
}

class CsvFileRow : public testing::TestWithParam<CsvRow> {};

/// A plain field that has begun differs from an empty one in what a quotation mark means.
bool IsPlainField(std::size_t state) {
    return state == 2 || state == 5 || state == 8 || state == 11;
}

TEST_P(CsvFileRow, LeadsWhereItsTableSays) {
    const CsvRow& row = GetParam();
    const std::string& before = kBefore[row.state];
    const auto expectStep = [&](char character, const Step& step) {
        const std::string text = before + character;
        Events events = ReadOpen(text);
        events.erase(events.begin(),
                     events.begin() + static_cast<std::ptrdiff_t>(ReadOpen(before).size()));
        ASSERT_EQ(events.size(), step.report == kNone ? 0U : 1U) << text;
        if (!events.empty()) {
            EXPECT_EQ(ReportOf(events[0]), step.report) << text;
        }
        const bool isBegunField = IsPlainField(step.next) && step.next == row.state;
        EXPECT_EQ(Future(text), Future(kBefore[step.next] + (isBegunField ? "y" : "")))
            << "state " << row.state << ", text " << text;
    };
    expectStep(';', row.onSeparator);
    expectStep('"', row.onQuote);
    expectStep('\n', row.onLineFeed);
    for (const char character : std::string("x1 \t.\r\0\xFF", 8)) {
        expectStep(character, row.onOther);
    }
}

INSTANTIATE_TEST_SUITE_P(State, CsvFileRow, testing::ValuesIn(kCsvRows),
                         [](const auto& row) { return std::to_string(row.param.state); });

TEST(CsvFileMachine, ItsStatesCanBeToldApart) {
    for (std::size_t one = 0; one < kStates; ++one) {
        for (std::size_t other = 0; other < one; ++other) {
            EXPECT_NE(Future(kBefore[one]), Future(kBefore[other])) << one << " and " << other;
        }
    }
}

TEST(CsvFileMachine, AQuoteInsideAPlainFieldBeginsALineWithoutCountingIt) {
    EXPECT_EQ(
        Read("A;n\"B;n;v;;c\nC;n;v;;c\n"),
        (Events{"1 open A", "1 format", "1 open B", "1 take n|v|c", "2 open C", "2 take n|v|c"}));
    EXPECT_EQ(Read("A;n;v\"x\n"), (Events{"1 open A", "1 format"}));
    EXPECT_EQ(Read("A;n;v;w\"x\n"), (Events{"1 open A", "1 format"}));
    EXPECT_EQ(Read("A;n;v;w;c\"x\n"), (Events{"1 open A", "1 format"}));
}

TEST(CsvFileMachine, DoubledQuotesStandForOne) {
    EXPECT_EQ(Read("A;\"a\"\"b;\";\"\"\"\";;\"\"\n"), (Events{"1 open A", "1 take a\"b;|\"|"}));
}

TEST(CsvFileMachine, JoinsASecondValueColumn) {
    EXPECT_EQ(Read("A;n;01.02.2003;04:05:06;c\n"),
              (Events{"1 open A", "1 take n|01.02.2003 04:05:06|c"}));
    EXPECT_EQ(Read("A;n;\"\";\"04:05:06\";c\n"), (Events{"1 open A", "1 take n| 04:05:06|c"}));
    EXPECT_EQ(Read("A;n;v\n"), (Events{"1 open A", "1 take n|v|"}));
    EXPECT_EQ(Read("A;n;v;w\n"), (Events{"1 open A", "1 take n|v w|"}));
}

TEST(CsvFileMachine, EndsInEveryState) {
    for (std::size_t state = 0; state < kStates; ++state) {
        Events events = Read(kBefore[state]);
        events.erase(events.begin(),
                     events.begin() + static_cast<std::ptrdiff_t>(ReadOpen(kBefore[state]).size()));
        const bool isTaken = state == 11 || state == 13;
        const bool isQuiet = state <= 1;
        ASSERT_EQ(events.size(), isQuiet ? 0U : 1U) << state;
        if (!isQuiet) {
            EXPECT_EQ(ReportOf(events[0]), isTaken ? Report::Take : Report::Format) << state;
        }
    }
}

TEST(CsvFileMachine, CountsEveryLineFeed) {
    EXPECT_EQ(Read("\n\n!;x\nA;\"\nB;n;v\n"),
              (Events{"3 open !", "4 open A", "4 format", "5 open B", "5 take n|v|"}));
}

/// Records with damaged bytes and fields on both sides of the search's step of 16 bytes.
TEST(CsvFileMachine, ReadsWholeFilesAsByteByByte) {
    constexpr std::string_view kBytes = ";;\n\"\"\r\x1A ab\xFE";
    std::mt19937 random(4711);
    std::size_t eventCount = 0;
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (int field = 0; field < 12; ++field) {
            text.append(random() % 41, 'x');
            text += kBytes[random() % kBytes.size()];
            text += kBytes[random() % kBytes.size()];
        }
        Collected collected;
        CsvFileMachine machine(collected);
        for (const char byte : text) {
            machine.Consume(std::string(1, byte));
        }
        machine.Finish();
        ASSERT_EQ(Read(text), collected.events) << text;
        eventCount += collected.events.size();
    }
    EXPECT_GT(eventCount, 9'000U) << "records are to be found";
}

TEST(CsvFileMachine, PiecesMayEndAnywhere) {
    const std::string text = "!;x\nA;\"n\"\"\";v;w;\"c\"\nB;n;v\n";
    const Events whole = Read(text);
    for (std::size_t cut = 0; cut <= text.size(); ++cut) {
        Collected collected;
        CsvFileMachine machine(collected);
        // Copies that die, so that a machine that keeps a piece is found out.
        machine.Consume(std::string(text, 0, cut));
        machine.Consume(std::string(text, cut));
        machine.Finish();
        EXPECT_EQ(collected.events, whole) << cut;
    }
}

}  // namespace
}  // namespace orvell::paramlist
