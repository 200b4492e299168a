#include "paramlist/csv_file_machine.h"

#include "paramlist/text_scan.h"

namespace orvell::paramlist {
namespace {

constexpr std::size_t kStateCount = 14;
constexpr std::uint8_t kLineStart = 0;
constexpr std::uint8_t kSkipLine = 1;

enum class Action : std::uint8_t {
    Pass,       ///< the character says nothing itself
    Collect,    ///< it belongs to the field
    Open,       ///< the first field is complete; an unwanted record is skipped
    OpenQuote,  ///< right at a field's start; else the line is wrong and another begins behind it
    TakeOver,   ///< the record is complete
    Reject,     ///< the line is wrong
};

struct Transition {
    Action action;
    std::uint8_t next = kLineStart;
};

/// Where a state leads. A line feed always leads to `kLineStart` and drops the texts collected.
struct Row {
    Transition onSeparator;
    Transition onQuote;
    Transition onOther;
    Action onLineFeed;
    Action onEnd;
};

using enum Action;

// clang-format off
constexpr std::array<Row, kStateCount> kRows = {{
    // ";"            quotation mark   other          line feed  end of file
    {{Open, 2},       {Collect, 0},    {Collect, 0},  Pass,      Pass},      //  0 first field
    {{Pass, 1},       {Pass, 1},       {Pass, 1},     Pass,      Pass},      //  1 rest of a line
    {{Pass, 5},       {OpenQuote, 3},  {Collect, 2},  Reject,    Reject},    //  2 name, plain
    {{Collect, 3},    {Pass, 4},       {Collect, 3},  Reject,    Reject},    //  3 quoted
    {{Pass, 5},       {Collect, 3},    {Reject, 1},   Reject,    Reject},    //  4 behind its mark
    {{Pass, 8},       {OpenQuote, 6},  {Collect, 5},  TakeOver,  Reject},    //  5 value, plain
    {{Collect, 6},    {Pass, 7},       {Collect, 6},  Reject,    Reject},    //  6 quoted
    {{Pass, 8},       {Collect, 6},    {Reject, 1},   TakeOver,  Reject},    //  7 behind its mark
    {{Pass, 11},      {OpenQuote, 9},  {Collect, 8},  TakeOver,  Reject},    //  8 second value, plain
    {{Collect, 9},    {Pass, 10},      {Collect, 9},  Reject,    Reject},    //  9 quoted
    {{Pass, 11},      {Collect, 9},    {Reject, 1},   TakeOver,  Reject},    // 10 behind its mark
    {{TakeOver, 1},   {OpenQuote, 12}, {Collect, 11}, TakeOver,  TakeOver},  // 11 comment, plain
    {{Collect, 12},   {Pass, 13},      {Collect, 12}, Reject,    Reject},    // 12 quoted
    {{TakeOver, 1},   {Collect, 12},   {Reject, 1},   TakeOver,  TakeOver},  // 13 behind its mark
}};
// clang-format on

constexpr Transition TransitionOf(std::size_t state, char character) {
    const Row& row = kRows[state];
    switch (character) {
        case ';':
            return row.onSeparator;
        case '"':
            return row.onQuote;
        case '\n':
            return {row.onLineFeed, kLineStart};
        default:
            return row.onOther;
    }
}

/// Place of the field that a state belongs to. Each behind the first has three states: plain,
/// quoted, behind the closing mark.
constexpr std::array<std::uint8_t, kStateCount> kFields = {0, 0, 1, 1, 1, 2, 2,
                                                           2, 3, 3, 3, 4, 4, 4};

/// The end of a run of characters that the state takes one like the other.
const char* EndOfRun(const char* position, const char* end, std::uint8_t state) {
    const Row& row = kRows[state];
    const bool takesSeparators = row.onSeparator.next == state;
    const bool takesQuotes = row.onQuote.next == state;
    const bool takesOthers = row.onOther.next == state;
    if (!takesOthers) {
        return position;
    }
    if (takesSeparators) {
        return takesQuotes ? FindFirstOf<'\n'>(position, end)
                           : FindFirstOf<'"', '\n'>(position, end);
    }
    return takesQuotes ? FindFirstOf<';', '\n'>(position, end)
                       : FindFirstOf<';', '"', '\n'>(position, end);
}

}  // namespace

void CsvFileMachine::Consume(std::string_view piece) {
    const char* position = piece.data();
    const char* const end = position + piece.size();
    while (position != end) {
        const char* const start = position;
        position = EndOfRun(start, end, state_);
        if (position != start && state_ != kSkipLine) {
            FieldOf(state_).Append({start, position});
        }
        if (position == end) {
            break;
        }
        const Transition transition = TransitionOf(state_, *position);
        if (transition.action == Pass && *position != '\n') {
            state_ = transition.next;
        } else {
            Step({position, 1});
        }
        ++position;
    }
    for (TextCollector& field : fields_) {
        field.Keep();
    }
}

void CsvFileMachine::Finish() {
    const Action action = kRows[state_].onEnd;
    if (action == TakeOver) {
        TakeOverRecord();
    } else if (action == Reject) {
        records_.ReportLineFormat(line_);
    }
}

void CsvFileMachine::Step(std::string_view character) {
    const Transition transition = TransitionOf(state_, character.front());
    TextCollector& field = FieldOf(state_);
    state_ = transition.next;
    switch (transition.action) {
        case Pass:
            break;
        case Collect:
            field.Append(character);
            break;
        case Open:
            if (!records_.Open(field.View(), line_)) {
                state_ = kSkipLine;
            }
            break;
        case OpenQuote:
            if (!field.IsEmpty()) {
                records_.ReportLineFormat(line_);
                DropTexts();
                state_ = kLineStart;
            }
            break;
        case TakeOver:
            TakeOverRecord();
            break;
        case Reject:
            records_.ReportLineFormat(line_);
            break;
    }
    if (character.front() == '\n') {
        DropTexts();
        ++line_;
    }
}

void CsvFileMachine::TakeOverRecord() {
    std::string_view value = fields_[kValue].View();
    if (!fields_[kSecondValue].IsEmpty()) {
        joinedValue_ = value;
        joinedValue_.append(1, ' ').append(fields_[kSecondValue].View());
        value = joinedValue_;
    }
    records_.TakeOver({fields_[kName].View(), value, fields_[kComment].View()}, line_);
}

void CsvFileMachine::DropTexts() {
    for (TextCollector& field : fields_) {
        field.Clear();
    }
}

TextCollector& CsvFileMachine::FieldOf(std::uint8_t state) {
    return fields_[kFields[state]];
}

}  // namespace orvell::paramlist
