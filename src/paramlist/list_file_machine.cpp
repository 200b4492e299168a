#include "paramlist/list_file_machine.h"

#include <algorithm>
#include <array>

#include "paramlist/field_text.h"
#include "values/characters.h"

namespace orvell::paramlist {
namespace {

constexpr std::size_t kStateCount = 22;
constexpr std::uint8_t kSkipLine = 1;
constexpr std::uint8_t kNumber = 6;

/// Stand in the place of an expected character; none of them is one.
constexpr int kAnything = 0x100;
constexpr int kDigit = 0x101;
constexpr int kNothing = 0x102;

/// Where a state leads. Characters other than the expected one lead to `kSkipLine`.
struct Row {
    std::uint8_t onWhiteSpace;
    std::uint8_t onLineFeed;
    int expected;
    std::uint8_t onExpected;
};

constexpr std::array<Row, kStateCount> kRows = {{
    {0, 0, '0', 2},           //  0 start of a line
    {1, 0, kAnything, 1},     //  1 a line that is no record
    {3, 0, kNothing, 1},      //  2 behind the "0" of a record
    {3, 0, kAnything, 4},     //  3
    {5, 0, kAnything, 4},     //  4 keyword
    {5, 0, kDigit, 6},        //  5
    {7, 0, kDigit, 6},        //  6 number
    {7, 0, 'N', 8},           //  7
    {8, 0, ':', 9},           //  8 behind "N"
    {9, 0, kAnything, 10},    //  9
    {11, 12, kAnything, 10},  // 10 name
    {11, 12, kNothing, 1},    // 11
    {12, 12, 'D', 13},        // 12 second line
    {13, 0, ':', 14},         // 13 behind "D"
    {14, 0, kAnything, 15},   // 14
    {16, 17, kAnything, 15},  // 15 value
    {16, 17, kNothing, 1},    // 16
    {17, 17, 'C', 18},        // 17 third line
    {18, 0, ':', 19},         // 18 behind "C"
    {19, 0, kAnything, 20},   // 19
    {21, 0, kAnything, 20},   // 20 comment
    {21, 0, kNothing, 1},     // 21
}};

constexpr std::uint8_t NextState(const Row& row, char character) {
    if (values::IsBlank(character)) {
        return row.onWhiteSpace;
    }
    if (character == '\n') {
        return row.onLineFeed;
    }
    const bool isExpected = row.expected == kAnything || row.expected == character ||
                            (row.expected == kDigit && values::IsDigit(character));
    return isExpected ? row.onExpected : kSkipLine;
}

using Transitions = std::array<std::array<std::uint8_t, 256>, kStateCount>;

/// The rows written out for each byte.
constexpr Transitions kTransitions = [] {
    Transitions transitions = {};
    for (std::size_t state = 0; state < kStateCount; ++state) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            transitions[state][byte] = NextState(kRows[state], static_cast<char>(byte));
        }
    }
    return transitions;
}();

/// True in a record's last line behind which nothing of it is missing.
bool IsRecordComplete(std::size_t state) {
    return state == 20 || state == 21;
}

void ReplaceBlankMarks(std::string& text, std::size_t start) {
    std::replace(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(), kListFileBlank,
                 ' ');
}

}  // namespace

void ListFileMachine::Consume(std::string_view piece) {
    while (!piece.empty()) {
        const std::size_t run = RunLength(piece);
        Collect(piece.substr(0, run));
        piece.remove_prefix(run);
        if (!piece.empty()) {
            ChangeState(piece.front());
            piece.remove_prefix(1);
        }
    }
}

bool ListFileMachine::Finish() {
    if (IsRecordComplete(state_)) {
        TakeOver();
    }
    return hasRecord_ || state_ == 0;
}

/// How many of the next characters leave the state as it is.
std::size_t ListFileMachine::RunLength(std::string_view piece) const {
    const auto& next = kTransitions[state_];
    const auto end = std::find_if(piece.begin(), piece.end(), [&](char character) {
        return next[static_cast<unsigned char>(character)] != state_;
    });
    return static_cast<std::size_t>(end - piece.begin());
}

/// `character` leads to another state; where that collects characters, it is the first of them.
void ListFileMachine::ChangeState(char character) {
    if (character == '\n' && IsRecordComplete(state_)) {
        TakeOver();
    }
    state_ = kTransitions[state_][static_cast<unsigned char>(character)];
    if (state_ == kNumber) {
        number_ = 0;
    } else if (std::string* const field = FieldOf(state_)) {
        field->clear();
    }
    Collect({&character, 1});
}

/// The characters lead into the present state or leave it as it is.
void ListFileMachine::Collect(std::string_view characters) {
    if (state_ == kNumber) {
        for (const char digit : characters) {
            number_ = number_ * 10 + values::DigitValue(digit);
        }
    } else if (std::string* const field = FieldOf(state_)) {
        field->append(characters);
    }
}

std::string* ListFileMachine::FieldOf(std::size_t state) {
    switch (state) {
        case 4:
            return &keyword_;
        case 10:
            return &name_;
        case 15:
            return &value_;
        case 20:
            return &comment_;
        default:
            return nullptr;
    }
}

void ListFileMachine::TakeOver() {
    ReplaceBlankMarks(name_, 0);
    ReplaceBlankMarks(value_, 1);
    ReplaceBlankMarks(comment_, 0);
    records_.TakeOver({keyword_, number_, name_, value_, comment_});
    hasRecord_ = true;
}

}  // namespace orvell::paramlist
