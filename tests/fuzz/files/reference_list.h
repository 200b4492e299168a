#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "fuzz/files/plain_list.h"

namespace orvell::fuzz {

/// A list as simple as it can be, into which the reference readers read.
class ReferenceList {
  public:
    explicit ReferenceList(const PlainList& entries = {});

    /// The oldest entry of this number; null when there is none.
    [[nodiscard]] PlainEntry* Find(const std::string& keyword, std::uint32_t number);

    [[nodiscard]] PlainEntry& Obtain(const std::string& keyword, std::uint32_t number);

    [[nodiscard]] PlainList Entries() const;

  private:
    std::multimap<std::pair<std::string, std::uint32_t>, PlainEntry> entries_;
};

/// Sets the entry's value from the text in a list file.
void SetFromListText(PlainEntry& entry, std::string_view text);

/// Sets the entry's value from the text in a CSV file; false, with the value unchanged, for one
/// that is refused.
bool SetFromCsvText(PlainEntry& entry, std::string_view text);

/// A text file as a program sees it on Windows: single line feeds, byte 26 being the end.
[[nodiscard]] std::string InTextMode(std::string_view bytes);

}  // namespace orvell::fuzz
