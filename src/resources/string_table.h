#pragma once

#include <string>
#include <unordered_map>

#include "platform/string_resources.h"
#include "resources/string_ids.h"

namespace orvell::resources {

/// The module's texts by number, read once from whichever source is current.
///
/// Texts are kept after the first look-up, so that a reader of many definitions pays one look-up in
/// a hash table per name. References stay valid until the next `UseSource`.
class StringTable {
  public:
    explicit StringTable(const platform::StringSource& source) : source_(&source) {}

    /// Takes all later texts from `source`, which must outlive its use here.
    void UseSource(const platform::StringSource& source);

    /// The text with this number in the ANSI code page; empty when the source has none.
    [[nodiscard]] const std::string& Text(StringId id) const;

  private:
    const platform::StringSource* source_;
    mutable std::unordered_map<StringId, std::string> texts_;
};

}  // namespace orvell::resources
