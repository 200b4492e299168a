#include "fuzz/files/list_file_reference.h"

#include <algorithm>
#include <optional>
#include <string>

#include "fuzz/parameter_kinds.h"

namespace orvell::fuzz {
namespace {

using paramlist::ListFileScope;
using paramlist::ParameterEntry;

constexpr std::string_view kWhiteSpace = " \t";
constexpr std::string_view kWhiteSpaceAndLines = " \t\n";

struct Record {
    std::string keyword;
    std::uint32_t number = 0;
    std::string name;
    std::string value;
    std::string comment;
};

std::string WithBlanks(std::string_view text) {
    std::string blanks(text);
    std::ranges::replace(blanks, '@', ' ');
    return blanks;
}

/// Reads field after field; after a failure the rest begins with the character that breaks the
/// record.
class FieldReader {
  public:
    explicit FieldReader(std::string_view text) : rest_(text) {}

    [[nodiscard]] bool IsAtEnd() const { return rest_.empty(); }

    void Skip(std::string_view characters) {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(characters), rest_.size()));
    }

    /// False without a further line.
    bool SkipLine() {
        rest_.remove_prefix(std::min(rest_.find('\n'), rest_.size()));
        return Take('\n');
    }

    bool Take(char character) {
        const bool isThere = rest_.starts_with(character);
        rest_.remove_prefix(isThere ? 1 : 0);
        return isThere;
    }

    /// Everything up to white space, a line's or the file's end; empty when there is nothing.
    std::string_view TakeWord() {
        const std::string_view word = rest_.substr(0, rest_.find_first_of(kWhiteSpaceAndLines));
        rest_.remove_prefix(word.size());
        return word;
    }

    /// The digits that are here, modulo 2^32.
    std::optional<std::uint32_t> TakeNumber() {
        const std::string_view digits = rest_.substr(0, rest_.find_first_not_of("0123456789"));
        rest_.remove_prefix(digits.size());
        std::uint32_t number = 0;
        for (const char digit : digits) {
            number = number * 10 + static_cast<std::uint32_t>(digit - '0');
        }
        return digits.empty() ? std::nullopt : std::optional(number);
    }

    bool TakeWhiteSpace() {
        const std::size_t before = rest_.size();
        Skip(kWhiteSpace);
        return rest_.size() < before;
    }

    /// The word behind "N :".
    std::string_view TakeField(char letter) {
        if (!Take(letter)) {
            return {};
        }
        Skip(kWhiteSpace);
        if (!Take(':')) {
            return {};
        }
        Skip(kWhiteSpace);
        return TakeWord();
    }

    bool TakeEndOfLine() {
        Skip(kWhiteSpace);
        return Take('\n');
    }

  private:
    std::string_view rest_;
};

bool ReadFirstLine(FieldReader& reader, Record& record) {
    if (!reader.Take('0') || !reader.TakeWhiteSpace()) {
        return false;
    }
    record.keyword = reader.TakeWord();
    if (record.keyword.empty() || !reader.TakeWhiteSpace()) {
        return false;
    }
    const std::optional<std::uint32_t> number = reader.TakeNumber();
    if (!number || !reader.TakeWhiteSpace()) {
        return false;
    }
    record.number = *number;
    record.name = WithBlanks(reader.TakeField('N'));
    return !record.name.empty() && reader.TakeEndOfLine();
}

bool ReadSecondLine(FieldReader& reader, Record& record) {
    reader.Skip(kWhiteSpaceAndLines);
    const std::string_view value = reader.TakeField('D');
    record.value = value.empty() ? "" : value.front() + WithBlanks(value.substr(1));
    return !value.empty() && reader.TakeEndOfLine();
}

/// The file's end ends the comment's line as well.
bool ReadThirdLine(FieldReader& reader, Record& record) {
    reader.Skip(kWhiteSpaceAndLines);
    record.comment = WithBlanks(reader.TakeField('C'));
    return !record.comment.empty() && (reader.TakeEndOfLine() || reader.IsAtEnd());
}

std::optional<Record> ReadRecord(FieldReader& reader) {
    Record record;
    const bool isWhole = ReadFirstLine(reader, record) && ReadSecondLine(reader, record) &&
                         ReadThirdLine(reader, record);
    return isWhole ? std::optional(std::move(record)) : std::nullopt;
}

void TakeOver(ReferenceList& list, const Record& record, ListFileScope scope) {
    if (FindParameterKind(record.keyword) == nullptr) {
        return;
    }
    PlainEntry* const entry = scope == ListFileScope::ExistingEntries
                                  ? list.Find(record.keyword, record.number)
                                  : &list.Obtain(record.keyword, record.number);
    if (entry != nullptr) {
        entry->name = TextFromFile(record.name, ParameterEntry::kMaximumNameLength);
        entry->comment = TextFromFile(record.comment, ParameterEntry::kMaximumCommentLength);
        SetFromListText(*entry, record.value);
    }
}

}  // namespace

bool ReadListFileByReference(ReferenceList& list, std::string_view bytes, ListFileScope scope) {
    const std::string text = InTextMode(bytes);
    FieldReader reader(text);
    bool hasRecord = false;
    for (;;) {
        reader.Skip(kWhiteSpaceAndLines);
        if (reader.IsAtEnd()) {
            return true;
        }
        if (const std::optional<Record> record = ReadRecord(reader)) {
            TakeOver(list, *record, scope);
            hasRecord = true;
        } else if (!reader.SkipLine()) {
            return hasRecord;
        }
    }
}

}  // namespace orvell::fuzz
