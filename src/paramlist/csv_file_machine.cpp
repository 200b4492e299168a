#include "paramlist/csv_file_machine.h"

#include <algorithm>

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

/// True for the characters of which a state takes any number in the same way.
constexpr bool KeepsState(std::size_t state, char character) {
    const Transition transition = TransitionOf(state, character);
    return character != '\n' && transition.next == state &&
           (transition.action == Collect || transition.action == Pass);
}

using CharacterSet = std::array<bool, 256>;

constexpr std::array<CharacterSet, kStateCount> kKeepsState = [] {
    std::array<CharacterSet, kStateCount> sets = {};
    for (std::size_t state = 0; state < kStateCount; ++state) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            sets[state][byte] = KeepsState(state, static_cast<char>(byte));
        }
    }
    return sets;
}();

}  // namespace

void CsvFileMachine::Consume(std::string_view piece) {
    while (!piece.empty()) {
        const std::size_t run = RunLength(piece);
        if (state_ != kSkipLine) {
            FieldOf(state_).append(piece.substr(0, run));
        }
        piece.remove_prefix(run);
        if (!piece.empty()) {
            Step(piece.front());
            piece.remove_prefix(1);
        }
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

std::size_t CsvFileMachine::RunLength(std::string_view piece) const {
    const CharacterSet& keepsState = kKeepsState[state_];
    const auto end = std::find_if(piece.begin(), piece.end(), [&](char character) {
        return !keepsState[static_cast<unsigned char>(character)];
    });
    return static_cast<std::size_t>(end - piece.begin());
}

void CsvFileMachine::Step(char character) {
    const Transition transition = TransitionOf(state_, character);
    std::string& field = FieldOf(state_);
    state_ = transition.next;
    switch (transition.action) {
        case Pass:
            break;
        case Collect:
            field += character;
            break;
        case Open:
            if (!records_.Open(field, line_)) {
                state_ = kSkipLine;
            }
            break;
        case OpenQuote:
            if (!field.empty()) {
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
    if (character == '\n') {
        DropTexts();
        ++line_;
    }
}

void CsvFileMachine::TakeOverRecord() {
    std::string& value = fields_[kValue];
    if (const std::string& second = fields_[kSecondValue]; !second.empty()) {
        value.append(1, ' ').append(second);
    }
    records_.TakeOver({fields_[kName], value, fields_[kComment]}, line_);
}

void CsvFileMachine::DropTexts() {
    for (std::string& field : fields_) {
        field.clear();
    }
}

/// Each field behind the first has three states: plain, quoted, behind the closing mark.
std::string& CsvFileMachine::FieldOf(std::uint8_t state) {
    return fields_[(state + 1U) / 3];
}

}  // namespace orvell::paramlist
