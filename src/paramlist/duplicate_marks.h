#pragma once

#include <cstdint>
#include <unordered_map>

#include "paramlist/parameter_entry.h"

namespace orvell::paramlist {

/// Finds the declared mark, or its absence, among the entries of one number, so that an update
/// cycle that declares many parameters at one address does not search them all each time.
///
/// How far a number with many entries has been searched is remembered. That stays true while an
/// update cycle does nothing but mark the oldest entry of a number and append marked entries.
class DuplicateMarks {
  public:
    /// The first entry of the ring that has (`isSet`) or lacks the declared mark, null when there
    /// is none. `first` is the oldest entry of its number.
    [[nodiscard]] ParameterEntry* Find(ParameterEntry& first, bool isSet);

    /// To be called when marks have been changed otherwise than above, or entries removed.
    void Forget() { searched_ = std::unordered_map<std::uint32_t, Searched>(); }

  private:
    /// Entries of a ring before which, the oldest apart, none with or none without the mark stands.
    struct Searched {
        ParameterEntry* marked;
        ParameterEntry* unmarked;
    };

    /// Moves `position` on to the next entry with (`isSet`) or without the mark and returns it;
    /// null when it has reached the ring's last entry in vain.
    static ParameterEntry* Continue(ParameterEntry*& position, const ParameterEntry& first,
                                    bool isSet);

    std::unordered_map<std::uint32_t, Searched> searched_;
};

}  // namespace orvell::paramlist
