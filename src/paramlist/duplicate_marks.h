#pragma once

#include <cstdint>
#include <unordered_map>

#include "paramlist/parameter_entry.h"

namespace orvell::paramlist {

/// Remembers how far the entries of one number have been searched for the declared mark, so that an
/// update cycle that declares many parameters at one address does not search them all each time.
///
/// Only numbers with many entries are remembered. During a cycle marks are only ever set, and new
/// entries join at the end: what has been passed once need not be looked at again.
class DuplicateMarks {
  public:
    /// The first entry of the ring that has (`isSet`) or lacks the declared mark, null when there
    /// is none. `first` is the oldest entry of its number.
    [[nodiscard]] ParameterEntry* Find(ParameterEntry& first, bool isSet);

    /// To be called when the oldest entry of a number gets the mark.
    void FirstEntryMarked(std::uint32_t number);

    /// To be called when marks have been cleared or entries removed.
    void Forget() { searched_.clear(); }

  private:
    /// Entries of a ring, in its order, before which no entry with, or without, the mark stands.
    struct Searched {
        ParameterEntry* marked;
        ParameterEntry* unmarked;
    };

    std::unordered_map<std::uint32_t, Searched> searched_;
};

}  // namespace orvell::paramlist
