#include "fuzz/files/file_losses.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "fuzz/files/plain_value.h"
#include "fuzz/parameter_kinds.h"

namespace orvell::fuzz {
namespace {

using paramlist::ValueTypeCode;

constexpr int kListDigits = 15;
constexpr int kCsvDigits = 16;
constexpr std::uint32_t kSecondsPerDay = 86'400;

bool IsOfType(const PlainEntry& entry, ValueTypeCode type) {
    return !entry.value.empty() && ValueTypeOf(entry.keyword) == type;
}

bool AreOfOneNumber(const PlainEntry& left, const PlainEntry& right) {
    return left.keyword == right.keyword && left.number == right.number;
}

bool HasDuplicates(const PlainList& list) {
    return std::ranges::adjacent_find(list, AreOfOneNumber) != list.end();
}

bool HasTooLarge(const PlainList& list, ValueTypeCode type, int digits) {
    return std::ranges::any_of(list, [=](const PlainEntry& entry) {
        return IsOfType(entry, type) && IsPrintedTooLarge(NumberOf<double>(entry), digits);
    });
}

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t") == std::string_view::npos;
}

std::string WithoutMark(const std::string& text) {
    return text == "%%" ? std::string() : text;
}

PlainEntry AfterListFile(PlainEntry entry) {
    for (std::string* text : {&entry.name, &entry.comment}) {
        std::ranges::replace(*text, '@', ' ');
        *text = WithoutMark(*text);
    }
    if (IsOfType(entry, ValueTypeCode::Text)) {
        if (TextOf(entry).empty() || TextOf(entry) == "undef") {
            entry.value.clear();
        } else {
            std::replace(entry.value.begin() + 1, entry.value.end(), '@', ' ');
            entry.value.front() = entry.value.front() == ' ' ? '@' : entry.value.front();
        }
    } else if (IsOfType(entry, ValueTypeCode::Float) ||
               IsOfType(entry, ValueTypeCode::OleDateTime)) {
        StoreNumber(entry, AfterPrint(NumberOf<double>(entry), kListDigits));
    }
    entry.flags = 0;
    return entry;
}

/// The value's bytes after the way through a CSV file.
std::string ValueAfterCsvFile(PlainEntry entry) {
    if (entry.value.empty()) {
        return {};
    }
    switch (ValueTypeOf(entry.keyword)) {
        case ValueTypeCode::Text:
            return IsBlank(TextOf(entry)) ? std::string() : entry.value;
        case ValueTypeCode::Float:
            StoreNumber(entry, AfterPrint(NumberOf<double>(entry), kCsvDigits));
            break;
        case ValueTypeCode::OleDateTime:
            StoreNumber(entry, InMilliseconds(NumberOf<double>(entry)));
            break;
        case ValueTypeCode::Date: {
            const auto seconds = NumberOf<std::uint32_t>(entry);
            StoreNumber(entry, seconds - seconds % kSecondsPerDay);
            break;
        }
        case ValueTypeCode::TimeOfDay:
            StoreNumber(entry, NumberOf<std::uint32_t>(entry) % kSecondsPerDay);
            break;
        default:
            break;
    }
    return entry.value;
}

/// Goes through the lists as the writer does, which knows another order of the kinds.
class CsvFile {
  public:
    CsvFile(const PlainList& written, const PlainList& before) : written_(written), list_(before) {}

    CsvOutcome Outcome() {
        for (const ParameterKindRow& kind : kParameterKinds) {
            Kind(kind.keyword);
        }
        return {list_.Entries(), warnings_};
    }

  private:
    void Kind(std::string_view keyword) {
        PlainList entries;
        std::ranges::copy_if(written_, std::back_inserter(entries),
                             [&](const PlainEntry& entry) { return entry.keyword == keyword; });
        if (entries.empty()) {
            return;
        }
        line_ += 2;
        for (const PlainEntry& entry : entries) {
            Record(entry);
            ++line_;
        }
        ++line_;
    }

    void Record(const PlainEntry& written) {
        PlainEntry& entry = *list_.Find(written.keyword, written.number);
        entry.name = WithoutMark(written.name);
        entry.comment = WithoutMark(written.comment);
        if (IsOfType(written, ValueTypeCode::Float) &&
            IsPrintedTooLarge(NumberOf<double>(written), kCsvDigits)) {
            warnings_.push_back(PlainWarning(2004, line_));
        } else {
            entry.value = ValueAfterCsvFile(written);
        }
    }

    const PlainList& written_;
    ReferenceList list_;
    PlainWarnings warnings_;
    std::uint32_t line_ = 4;  ///< that of the first heading
};

}  // namespace

bool HasNoneOf(const PlainList& list, std::string_view projectName, std::string_view characters) {
    const auto has = [characters](std::string_view text) {
        return text.find_first_of(characters) != std::string_view::npos;
    };
    return !has(projectName) && std::ranges::none_of(list, [&](const PlainEntry& entry) {
        const bool isText = IsOfType(entry, ValueTypeCode::Text);
        return has(entry.name) || has(entry.comment) || (isText && has(TextOf(entry)));
    });
}

PlainList AfterListFile(const PlainList& list) {
    PlainList read;
    for (const PlainEntry& entry : list) {
        if (!read.empty() && AreOfOneNumber(read.back(), entry)) {
            read.pop_back();
        }
        read.push_back(AfterListFile(entry));
    }
    return read;
}

bool IsListFileLasting(const PlainList& list) {
    return !HasDuplicates(list) && !HasTooLarge(list, ValueTypeCode::Float, kListDigits) &&
           !HasTooLarge(list, ValueTypeCode::OleDateTime, kListDigits);
}

CsvOutcome AfterCsvFile(const PlainList& list, const PlainList& before) {
    return CsvFile(list, before).Outcome();
}

bool IsCsvFileLasting(const PlainList& list) {
    return !HasDuplicates(list) && !HasTooLarge(list, ValueTypeCode::Float, kCsvDigits) &&
           std::ranges::none_of(list, [](const PlainEntry& entry) {
               return entry.name == "%%" || entry.comment == "%%" ||
                      (IsOfType(entry, ValueTypeCode::Text) && !TextOf(entry).empty() &&
                       IsBlank(TextOf(entry))) ||
                      (IsOfType(entry, ValueTypeCode::OleDateTime) &&
                       IsNearlyMidnight(NumberOf<double>(entry)));
           });
}

}  // namespace orvell::fuzz
