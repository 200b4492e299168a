#include "paramlist/duplicate_marks.h"

namespace orvell::paramlist {
namespace {

// Hardly any number has more entries than these; searching them costs less than remembering.
constexpr int kShortSearch = 8;

bool IsMarked(const ParameterEntry& entry) {
    return (entry.Flags() & kDeclaredMark) != 0;
}

}  // namespace

ParameterEntry* DuplicateMarks::Find(ParameterEntry& first, bool isSet) {
    ParameterEntry* entry = &first;
    for (int count = 0; count < kShortSearch; ++count) {
        if (IsMarked(*entry) == isSet) {
            return entry;
        }
        entry = entry->nextEqual_;
        if (entry == &first) {
            return nullptr;
        }
    }
    Searched& searched =
        searched_.try_emplace(first.Number(), Searched{entry, entry}).first->second;
    return Continue(isSet ? searched.marked : searched.unmarked, first, isSet);
}

ParameterEntry* DuplicateMarks::Continue(ParameterEntry*& position, const ParameterEntry& first,
                                         bool isSet) {
    while (IsMarked(*position) != isSet) {
        if (position->nextEqual_ == &first) {
            return nullptr;
        }
        position = position->nextEqual_;
    }
    return position;
}

}  // namespace orvell::paramlist
