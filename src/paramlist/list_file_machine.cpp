#include "paramlist/list_file_machine.h"

#include <algorithm>
#include <array>

#include "paramlist/field_text.h"
#include "paramlist/text_scan.h"
#include "values/characters.h"

namespace orvell::paramlist {
namespace {

constexpr std::size_t kStateCount = 22;
constexpr std::uint8_t kSkipLine = 1;

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
consteval Transitions WriteOut() {
    Transitions transitions = {};
    for (std::size_t state = 0; state < kStateCount; ++state) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            transitions[state][byte] = NextState(kRows[state], static_cast<char>(byte));
        }
    }
    return transitions;
}

constexpr Transitions kTransitions = WriteOut();

/// The states whose characters make a field, in the order of the fields.
constexpr std::array<std::uint8_t, 5> kFieldStates = {4, 6, 10, 15, 20};

/// Place of the field that is collected in each state; `kFieldStates.size()` where there is none.
consteval std::array<std::uint8_t, kStateCount> FieldsOfStates() {
    std::array<std::uint8_t, kStateCount> fields = {};
    fields.fill(kFieldStates.size());
    for (std::size_t field = 0; field < kFieldStates.size(); ++field) {
        fields[kFieldStates[field]] = static_cast<std::uint8_t>(field);
    }
    return fields;
}

constexpr auto kFields = FieldsOfStates();

/// True in a record's last line behind which nothing of it is missing.
bool IsRecordComplete(std::size_t state) {
    return state == 20 || state == 21;
}

/// Of which characters a state may take many without being left.
enum class Run : std::uint8_t { Nothing, WhiteSpace, Line, Field };

constexpr std::array<Run, kStateCount> kRuns = [] {
    std::array<Run, kStateCount> runs = {};
    for (std::size_t state = 0; state < kStateCount; ++state) {
        const bool staysOnWhiteSpace = kRows[state].onWhiteSpace == state;
        const bool staysOnOthers =
            kRows[state].expected == kAnything && kRows[state].onExpected == state;
        runs[state] = staysOnWhiteSpace && staysOnOthers ? Run::Line
                      : staysOnWhiteSpace                ? Run::WhiteSpace
                      : staysOnOthers                    ? Run::Field
                                                         : Run::Nothing;
    }
    return runs;
}();

/// The end of a run of characters that leave the state as it is.
const char* EndOfRun(const char* position, const char* end, std::uint8_t state) {
    switch (kRuns[state]) {
        case Run::WhiteSpace:
            return FindFirstNotOf<' ', '\t'>(position, end);
        case Run::Line:
            return FindFirstOf<'\n'>(position, end);
        case Run::Field:
            return FindFirstOf<' ', '\t', '\n'>(position, end);
        case Run::Nothing:
            break;
    }
    return position;
}

}  // namespace

void ListFileMachine::Consume(std::string_view piece) {
    const char* position = piece.data();
    const char* const end = position + piece.size();
    while (position != end) {
        if (state_ == 0 && TakeWrittenRecord(position, end)) {
            continue;
        }
        const char* const start = position;
        ChangeState(*start);
        position = EndOfRun(start + 1, end, state_);
        if (kFields[state_] != kFieldCount) {
            Collect(kFields[state_], {start, position});
        }
    }
    for (TextCollector& text : texts_) {
        text.Keep();
    }
}

bool ListFileMachine::Finish() {
    if (IsRecordComplete(state_)) {
        TakeOverCollected();
    }
    return hasRecord_ || state_ == 0;
}

/// Goes on behind the record that begins at `position`, if `ScanWrittenRecord` finds one there.
bool ListFileMachine::TakeWrittenRecord(const char*& position, const char* end) {
    ListFileRecord written;
    const char* const behind = ScanWrittenRecord(position, end, written);
    if (behind == nullptr) {
        return false;
    }
    TakeOver(written);
    position = behind;
    return true;
}

void ListFileMachine::ChangeState(char character) {
    const std::uint8_t before = state_;
    state_ = kTransitions[before][static_cast<unsigned char>(character)];
    if (character == '\n' && IsRecordComplete(before)) {
        TakeOverCollected();
    }
    if (state_ == before || kFields[state_] == kFieldCount) {
        return;
    }
    texts_[kFields[state_]].Clear();
    if (kFields[state_] == kNumber) {
        number_ = 0;
    }
}

/// The characters have led into a field's state or left it as it is.
void ListFileMachine::Collect(std::size_t field, std::string_view characters) {
    if (field != kNumber) {
        texts_[field].Append(characters);
        return;
    }
    for (const char digit : characters) {
        number_ = number_ * 10 + values::DigitValue(digit);
    }
}

void ListFileMachine::TakeOverCollected() {
    TakeOver({.keyword = texts_[kKeyword].View(),
              .number = number_,
              .name = texts_[kName].View(),
              .value = texts_[kValue].View(),
              .comment = texts_[kComment].View()});
}

void ListFileMachine::TakeOver(const ListFileRecord& written) {
    const std::string_view value = WithBlanks(kValue, written.value);
    textsWithBlanks_[kValue].front() = written.value.front();
    records_.TakeOver({written.keyword, written.number, WithBlanks(kName, written.name), value,
                       WithBlanks(kComment, written.comment)});
    hasRecord_ = true;
}

/// The text with its marks turned back into blanks; valid until the field's next one.
std::string_view ListFileMachine::WithBlanks(Field field, std::string_view text) {
    std::string& changed = textsWithBlanks_[field];
    if (changed.size() < text.size()) {
        changed.resize(text.size());
    }
    CopyReplacing<kListFileBlank, ' '>(text, changed.data());
    return {changed.data(), text.size()};
}

}  // namespace orvell::paramlist
