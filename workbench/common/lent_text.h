#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace workbench {

/// Texts that a library lends in a three-word record (MStrBuf, MString). The two reserved words
/// hold the length and a mark, so that a record that the library never filled is left alone.
constexpr std::uint32_t kLentMark = 0x4C454E54;

/// Puts a copy of `text` into the record; false, with the record emptied, when memory is short.
template <typename Record>
[[nodiscard]] bool LendText(Record& record, std::string_view text) {
    record = Record{};
    auto* copy = static_cast<char*>(std::malloc(text.size() + 1));
    if (copy == nullptr) {
        return false;
    }
    std::memcpy(copy, text.data(), text.size());
    copy[text.size()] = '\0';
    record.text = copy;
    record.reserved1 = static_cast<std::uint32_t>(text.size());
    record.reserved2 = kLentMark;
    return true;
}

/// Frees a lent text and empties the record; null and records without a lent text are ignored.
template <typename Record>
void TakeBackText(Record* record) {
    if (record != nullptr && record->reserved2 == kLentMark) {
        std::free(record->text);
        *record = Record{};
    }
}

}  // namespace workbench
