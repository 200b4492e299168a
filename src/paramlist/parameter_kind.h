#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "paramlist/duplicate_marks.h"
#include "paramlist/entry_pool.h"
#include "paramlist/entry_table.h"
#include "paramlist/parameter_entry.h"
#include "paramlist/value_type.h"

namespace orvell::paramlist {

class ValueTypeHandler;

/// A kind of parameters, such as "PW": its keyword, its value type and its entries.
///
/// Several entries may bear one number; they keep the order of their insertion, and the oldest is
/// the one that is found. Entries are found in constant time, whatever their numbers are. Every
/// operation that adds an entry throws std::bad_alloc when memory is short and changes nothing
/// then.
class ParameterKind {
  public:
    /// `handler` belongs to `valueType`, null when it has none, and must outlive the kind.
    ParameterKind(std::string keyword, ValueTypeCode valueType, const ValueTypeHandler* handler);

    [[nodiscard]] const std::string& Keyword() const { return keyword_; }
    [[nodiscard]] ValueTypeCode ValueType() const { return valueType_; }

    /// Reads and writes the values; null for a value type without handler.
    [[nodiscard]] const ValueTypeHandler* Handler() const { return handler_; }

    /// The oldest entry with this number, null when there is none.
    [[nodiscard]] ParameterEntry* Find(std::uint32_t number);
    [[nodiscard]] const ParameterEntry* Find(std::uint32_t number) const;

    /// Tells that entries soon behind this number will be asked for, as the readers of files do.
    void PrefetchBehind(std::uint32_t number) const { table_.PrefetchBehind(number); }

    /// The oldest entry with this number that has some flag of `mask` (`isSet`) or none of them
    /// (not `isSet`); null when there is none.
    [[nodiscard]] ParameterEntry* FindMarked(std::uint32_t number, std::uint32_t mask, bool isSet);

    /// The oldest entry with this number; an empty new one where there is none. With
    /// `allowDuplicate` always a new one, behind those with the same number.
    ParameterEntry& Obtain(std::uint32_t number, bool allowDuplicate);

    struct Description {
        std::string_view name;
        std::string_view comment;
    };

    /// Name and comment of the oldest entry with this number; none when there is no such entry. The
    /// texts are valid until the entry is changed.
    [[nodiscard]] std::optional<Description> GetNameAndComment(std::uint32_t number) const;

    /// Sets or clears the flags of `mask` in every entry.
    void SetFlags(std::uint32_t mask, bool set);

    /// Removes every entry that has no flag of `mask`.
    void Purge(std::uint32_t mask);

    /// Removes all entries and gives their memory back.
    void Clear();

    /// Declares that the project has a parameter at `newNumber` which so far was at `oldNumber`.
    /// Equal numbers: the oldest entry at the number, created if need be, gets the declared mark.
    /// Else a new entry with the mark joins those at the new number, and takes name, comment and
    /// value from the oldest entry without the mark at the old number, if there is one. False for
    /// the new number 0.
    bool Declare(std::uint32_t oldNumber, std::uint32_t newNumber);

    [[nodiscard]] bool IsEmpty() const { return table_.EntryCount() == 0; }
    [[nodiscard]] std::size_t EntryCount() const { return table_.EntryCount(); }

    /// Buckets of 8 numbers that the kind counts as its own: enough for the largest number obtained
    /// since the last `Clear`, in steps of 100; 0 before the first. They cost nothing.
    [[nodiscard]] std::uint32_t BucketCount() const { return bucketCount_; }

    /// Calls `visit` with every entry by ascending number, equal ones in the order of their
    /// insertion, until it returns false. True when it never did. Linear in the entries for lists
    /// without wide gaps, else n log n. `visit` must not add or remove entries.
    template <typename Visit>
    bool VisitInOrder(const Visit& visit) const {
        return table_.VisitInOrder(visit);
    }

    /// All entries in the order of `VisitInOrder`. Valid until an entry is added or removed.
    [[nodiscard]] std::vector<const ParameterEntry*> EntriesInOrder() const;

  private:
    std::string keyword_;
    ValueTypeCode valueType_;
    const ValueTypeHandler* handler_;
    std::uint32_t bucketCount_ = 0;
    EntryPool pool_;
    EntryTable table_;
    DuplicateMarks duplicateMarks_;
};

}  // namespace orvell::paramlist
