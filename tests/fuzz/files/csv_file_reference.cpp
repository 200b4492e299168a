#include "fuzz/files/csv_file_reference.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "fuzz/files/csv_file_line_start.h"

namespace orvell::fuzz {
namespace {

using paramlist::ParameterEntry;

enum class Part { Plain, Quoted, Behind };

/// Fields behind the address.
enum Field { kName, kValue, kSecondValue, kComment, kFieldCount };

class CsvFileLines {
  public:
    explicit CsvFileLines(ReferenceList& list) : list_(list) {}

    void Read(char character) {
        if (character == '\n') {
            OnLineFeed();
        } else if (place_ == Place::LineStart) {
            OnLineStart(character);
        } else if (place_ == Place::Fields) {
            OnField(character);
        }
    }

    PlainWarnings Finish() {
        if (place_ == Place::Fields) {
            if (field_ == kComment && part_ != Part::Quoted) {
                TakeOver();
            } else {
                Warn(2003);
            }
        }
        return warnings_;
    }

  private:
    enum class Place { LineStart, RestOfLine, Fields };

    void OnLineFeed() {
        if (place_ == Place::Fields) {
            if (field_ == kName || part_ == Part::Quoted) {
                Warn(2003);
            } else {
                TakeOver();
            }
        }
        ++line_;
        BeginLine();
    }

    void BeginLine() {
        place_ = Place::LineStart;
        first_.clear();
        for (std::string& text : texts_) {
            text.clear();
        }
    }

    void OnLineStart(char character) {
        if (character != ';') {
            first_ += character;
            return;
        }
        const CsvLineStart start = ReadCsvLineStart(list_, first_);
        if (start.warning != 0) {
            warnings_.push_back(PlainWarning(start.warning, line_, start.argument));
        }
        entry_ = start.entry;
        place_ = entry_ != nullptr ? Place::Fields : Place::RestOfLine;
        field_ = kName;
        part_ = Part::Plain;
    }

    void OnField(char character) {
        std::string& text = texts_[field_];
        switch (part_) {
            case Part::Plain:
                if (character == ';') {
                    EndField();
                } else if (character != '"') {
                    text += character;
                } else if (text.empty()) {
                    part_ = Part::Quoted;
                } else {
                    Warn(2003);
                    BeginLine();
                }
                break;
            case Part::Quoted:
                if (character == '"') {
                    part_ = Part::Behind;
                } else {
                    text += character;
                }
                break;
            case Part::Behind:
                if (character == ';') {
                    EndField();
                } else if (character == '"') {
                    text += character;
                    part_ = Part::Quoted;
                } else {
                    Warn(2003);
                    place_ = Place::RestOfLine;
                }
                break;
        }
    }

    void EndField() {
        part_ = Part::Plain;
        if (field_ == kComment) {
            TakeOver();
            place_ = Place::RestOfLine;
        } else {
            field_ = static_cast<Field>(field_ + 1);
        }
    }

    void TakeOver() {
        entry_->name = TextFromFile(texts_[kName], ParameterEntry::kMaximumNameLength);
        entry_->comment = TextFromFile(texts_[kComment], ParameterEntry::kMaximumCommentLength);
        const std::string& second = texts_[kSecondValue];
        const std::string value = second.empty() ? texts_[kValue] : texts_[kValue] + ' ' + second;
        if (!SetFromCsvText(*entry_, value)) {
            Warn(2004);
        }
    }

    void Warn(std::uint32_t message) { warnings_.push_back(PlainWarning(message, line_)); }

    ReferenceList& list_;
    PlainWarnings warnings_;
    std::uint32_t line_ = 1;
    Place place_ = Place::LineStart;
    Field field_ = kName;
    Part part_ = Part::Plain;
    std::string first_;
    std::string texts_[kFieldCount];
    PlainEntry* entry_ = nullptr;
};

}  // namespace

std::string PlainWarning(std::uint32_t message, std::uint32_t line) {
    return std::to_string(message) + " in line " + std::to_string(line);
}

std::string PlainWarning(std::uint32_t message, std::uint32_t line, std::string_view argument) {
    return PlainWarning(message, line).append(" [").append(argument).append("]");
}

void RequireEqual(const PlainWarnings& found, const PlainWarnings& expected, const char* what) {
    if (found == expected) {
        return;
    }
    const auto [first, second] =
        std::mismatch(found.begin(), found.end(), expected.begin(), expected.end());
    std::fprintf(stderr, "does not hold: %s\n found:    %s\n expected: %s\n", what,
                 first != found.end() ? first->c_str() : "nothing",
                 second != expected.end() ? second->c_str() : "nothing");
    std::abort();
}

PlainWarnings ReadCsvFileByReference(ReferenceList& list, std::string_view bytes) {
    CsvFileLines reader(list);
    for (const char character : InTextMode(bytes)) {
        reader.Read(character);
    }
    return reader.Finish();
}

}  // namespace orvell::fuzz
