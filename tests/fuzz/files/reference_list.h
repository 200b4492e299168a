#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "fuzz/files/plain_list.h"
#include "paramlist/value_texts.h"

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

using ValueSetter = bool (paramlist::ValueTypeHandler::*)(paramlist::ParameterValue&,
                                                          std::string_view,
                                                          const paramlist::ValueTexts&) const;

/// Sets the entry's value by its handler, as which the product's own serves: readers are compared
/// here, not readings of numbers. The result is the handler's.
bool SetValue(PlainEntry& entry, ValueSetter setter, std::string_view text);

/// A text file as a program sees it on Windows: single line feeds, byte 26 being the end.
[[nodiscard]] std::string InTextMode(std::string_view bytes);

}  // namespace orvell::fuzz
