#include "cli/list_table.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace workbench::cli {
namespace {

constexpr char kQuote = '"';
constexpr std::string_view kFieldEnds = ";\r\n";

struct Field {
    std::string text;
    bool isQuoted = false;
};

using Record = std::vector<Field>;

/// Takes a CSV text apart. A quoted field may hold line feeds.
class RecordReader {
  public:
    explicit RecordReader(std::string_view text) : text_(text) {}

    [[nodiscard]] bool AtEnd() const { return position_ == text_.size(); }

    Record Next() {
        Record record{NextField()};
        while (Skip(';')) {
            record.push_back(NextField());
        }
        Skip('\r');
        Skip('\n');
        return record;
    }

  private:
    bool Skip(char character) {
        const bool isThere = !AtEnd() && text_[position_] == character;
        position_ += isThere ? 1 : 0;
        return isThere;
    }

    std::string_view TakeUpTo(std::size_t end) {
        const std::size_t start = position_;
        position_ = std::min(end, text_.size());
        return text_.substr(start, position_ - start);
    }

    Field NextField() {
        Field field;
        field.isQuoted = Skip(kQuote);
        if (field.isQuoted) {
            field.text = TakeUpTo(text_.find(kQuote, position_));
            while (Skip(kQuote) && Skip(kQuote)) {  // a doubled mark stands for one
                field.text += kQuote;
                field.text += TakeUpTo(text_.find(kQuote, position_));
            }
        }
        field.text += TakeUpTo(text_.find_first_of(kFieldEnds, position_));
        return field;
    }

    std::string_view text_;
    std::size_t position_ = 0;
};

/// Only a parameter's line has a name in quotation marks; headings have not.
bool IsParameter(const Record& record) {
    return record.size() == 5 && record[1].isQuoted;
}

/// The value's two columns are one text to a reader.
ListLine LineOf(const Record& record) {
    const std::string& second = record[3].text;
    return {record[0].text, record[1].text, record[2].text + (second.empty() ? "" : " ") + second,
            record[4].text};
}

}  // namespace

std::string_view ListLine::Kind() const {
    return std::string_view(address).substr(0, address.find_last_not_of("0123456789.") + 1);
}

bool ReadListTable(const std::string& path, std::vector<ListLine>& lines) {
    std::ifstream file(path, std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    if (!file) {
        return false;
    }
    RecordReader reader(text);
    while (!reader.AtEnd()) {
        const Record record = reader.Next();
        if (IsParameter(record)) {
            lines.push_back(LineOf(record));
        }
    }
    return true;
}

}  // namespace workbench::cli
