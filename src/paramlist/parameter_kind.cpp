#include "paramlist/parameter_kind.h"

#include <algorithm>
#include <utility>

namespace orvell::paramlist {
namespace {

constexpr std::uint32_t kBucketNumbers = 8;
constexpr std::uint32_t kBucketStep = 100;

/// How many buckets a kind counts that holds this number.
std::uint32_t BucketsFor(std::uint32_t number) {
    return (number / kBucketNumbers / kBucketStep + 1) * kBucketStep;
}

bool HasFlag(const ParameterEntry& entry, std::uint32_t mask) {
    return (entry.Flags() & mask) != 0;
}

}  // namespace

ParameterKind::ParameterKind(std::string keyword, ValueTypeCode valueType,
                             const ValueTypeHandler* handler)
    : keyword_(std::move(keyword)), valueType_(valueType), handler_(handler) {}

ParameterEntry* ParameterKind::Find(std::uint32_t number) {
    return table_.FindFirst(number);
}

const ParameterEntry* ParameterKind::Find(std::uint32_t number) const {
    return table_.FindFirst(number);
}

ParameterEntry* ParameterKind::FindMarked(std::uint32_t number, std::uint32_t mask, bool isSet) {
    ParameterEntry* const first = Find(number);
    if (first == nullptr) {
        return nullptr;
    }
    if (mask == kDeclaredMark) {
        return duplicateMarks_.Find(*first, isSet);
    }
    ParameterEntry* entry = first;
    do {
        if (HasFlag(*entry, mask) == isSet) {
            return entry;
        }
        entry = entry->nextEqual_;
    } while (entry != first);
    return nullptr;
}

ParameterEntry& ParameterKind::Obtain(std::uint32_t number, bool allowDuplicate) {
    ParameterEntry* const existing = allowDuplicate ? nullptr : Find(number);
    if (existing != nullptr) {
        return *existing;
    }
    table_.Reserve();
    ParameterEntry& entry = *pool_.Acquire();
    entry.number_ = number;
    table_.Insert(entry);
    bucketCount_ = std::max(bucketCount_, BucketsFor(number));
    return entry;
}

std::optional<ParameterKind::Description> ParameterKind::GetNameAndComment(
    std::uint32_t number) const {
    const ParameterEntry* const entry = Find(number);
    if (entry == nullptr) {
        return std::nullopt;
    }
    return Description{entry->Name(), entry->Comment()};
}

void ParameterKind::SetFlags(std::uint32_t mask, bool set) {
    pool_.ForEach([mask, set](ParameterEntry& entry) {
        entry.flags_ = set ? entry.flags_ | mask : entry.flags_ & ~mask;
    });
    duplicateMarks_.Forget();
}

void ParameterKind::Purge(std::uint32_t mask) {
    duplicateMarks_.Forget();
    table_.RemoveIf([mask](const ParameterEntry& entry) { return !HasFlag(entry, mask); },
                    [this](ParameterEntry& entry) { pool_.Release(entry); });
}

void ParameterKind::Clear() {
    duplicateMarks_.Forget();
    table_.Clear();
    pool_.Clear();
    bucketCount_ = 0;
}

bool ParameterKind::Declare(std::uint32_t oldNumber, std::uint32_t newNumber) {
    if (newNumber == 0) {
        return false;
    }
    if (oldNumber == newNumber) {
        Obtain(newNumber, /*allowDuplicate=*/false).flags_ |= kDeclaredMark;
        return true;
    }
    // What is at the two numbers lies far apart: it is fetched at once.
    table_.PrefetchSlot(newNumber);
    table_.PrefetchEntry(oldNumber);
    table_.PrefetchEntry(newNumber);
    const ParameterEntry* const source = FindMarked(oldNumber, kDeclaredMark, /*isSet=*/false);
    // Copied before anything is changed: memory may be short.
    ParameterValue value = source != nullptr ? source->value_ : ParameterValue();
    ParameterEntry& entry = Obtain(newNumber, /*allowDuplicate=*/true);
    if (source != nullptr) {
        entry.name_ = source->name_;
        entry.comment_ = source->comment_;
        entry.value_ = std::move(value);
    }
    entry.flags_ |= kDeclaredMark;
    return true;
}

std::vector<const ParameterEntry*> ParameterKind::EntriesInOrder() const {
    std::vector<const ParameterEntry*> entries;
    entries.reserve(EntryCount());
    VisitInOrder([&entries](const ParameterEntry& entry) {
        entries.push_back(&entry);
        return true;
    });
    return entries;
}

}  // namespace orvell::paramlist
