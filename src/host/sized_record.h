#pragma once

#include <cstdint>

#include "orvell/orvell.h"

namespace orvell::host {

/// Moves a size-prefixed record across the boundary.
///
/// Copies min(source size, destination size) bytes, then zeroes those bytes in the source: pointers
/// and their ownership pass to the destination. Both size words stay as they are. With `clear` the
/// destination's whole declared size is zeroed first. A null source copies nothing; a null
/// destination does nothing at all.
void CopySizedTable(void* source, void* destination, bool clear);

/// As above, but leaves the source as it is.
void CopySizedTable(const void* source, void* destination, bool clear);

/// Bytes at the end of a record that are not a 32-bit word but single bytes.
template <typename Record>
inline constexpr std::uint32_t kTrailingBytes = 0;
template <>
inline constexpr std::uint32_t kTrailingBytes<ParameterRecord> = 4;
template <>
inline constexpr std::uint32_t kTrailingBytes<DialogParameterRecord> = 4;

/// A record of ours, all zero but for its size word.
template <typename Record>
[[nodiscard]] Record EmptyRecord() {
    Record record{};
    record.size = sizeof(Record);
    return record;
}

/// A word that the sender's size cuts in two counts as missing: half a pointer is none.
void DropCutWord(void* record, std::uint32_t senderSize, std::uint32_t wholeWordBytes);

/// Our own copy of a host's record, as far as the host's size reaches; the rest and a null record
/// count as zero.
template <typename Record>
[[nodiscard]] Record ReadRecord(const Record* hostRecord) {
    Record record = EmptyRecord<Record>();
    CopySizedTable(static_cast<const void*>(hostRecord), &record, false);
    if (hostRecord != nullptr) {
        DropCutWord(&record, hostRecord->size, sizeof(Record) - kTrailingBytes<Record>);
    }
    return record;
}

/// As `ReadRecord`, but empties the host's record: what it owned is ours now.
template <typename Record>
[[nodiscard]] Record TakeRecord(Record* hostRecord) {
    Record record = EmptyRecord<Record>();
    CopySizedTable(static_cast<void*>(hostRecord), &record, false);
    if (hostRecord != nullptr) {
        DropCutWord(&record, hostRecord->size, sizeof(Record) - kTrailingBytes<Record>);
    }
    return record;
}

}  // namespace orvell::host
