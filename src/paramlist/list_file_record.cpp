#include "paramlist/list_file_record.h"

#include <cstddef>
#include <cstring>

#include "paramlist/text_scan.h"
#include "values/characters.h"

namespace orvell::paramlist {
namespace {

/// Goes through a record from its first character on.
class RecordScan {
  public:
    RecordScan(const char* position, const char* end) : position_(position), end_(end) {}

    [[nodiscard]] const char* Position() const { return position_; }

    template <std::size_t size>
    [[nodiscard]] bool Skip(const char (&expected)[size]) {
        constexpr std::size_t kLength = size - 1;
        if (Rest() < kLength || std::memcmp(position_, expected, kLength) != 0) {
            return false;
        }
        position_ += kLength;
        return true;
    }

    /// A word of at least one character that ends in `closing`, which is skipped with it.
    [[nodiscard]] bool TakeWord(std::string_view& word, char closing) {
        const char* const start = position_;
        position_ = FindFirstOf<' ', '\t', '\n'>(start, end_);
        word = {start, static_cast<std::size_t>(position_ - start)};
        return !word.empty() && position_ != end_ && *position_++ == closing;
    }

    void SkipBlanks() { position_ = FindFirstNotOf<' '>(position_, end_); }

    [[nodiscard]] bool TakeNumber(std::uint32_t& number) {
        const char* const start = position_;
        number = 0;
        for (; position_ != end_ && values::IsDigit(*position_); ++position_) {
            number = number * 10 + values::DigitValue(*position_);
        }
        return position_ != start;
    }

  private:
    [[nodiscard]] std::size_t Rest() const { return static_cast<std::size_t>(end_ - position_); }

    const char* position_;
    const char* const end_;
};

}  // namespace

const char* ScanWrittenRecord(const char* position, const char* end, ListFileRecord& record) {
    RecordScan scan(position, end);
    scan.SkipBlanks();
    if (!scan.Skip("0 ") || !scan.TakeWord(record.keyword, ' ')) {
        return nullptr;
    }
    scan.SkipBlanks();
    const bool isWhole =
        scan.TakeNumber(record.number) && scan.Skip(" N : ") && scan.TakeWord(record.name, '\n') &&
        scan.Skip("                   D : ") && scan.TakeWord(record.value, '\n') &&
        scan.Skip("                   C : ") && scan.TakeWord(record.comment, '\n');
    return isWhole ? scan.Position() : nullptr;
}

}  // namespace orvell::paramlist
