#include "fuzz/files/reference_list.h"

#include "fuzz/files/value_reference.h"

namespace orvell::fuzz {
ReferenceList::ReferenceList(const PlainList& entries) {
    for (const PlainEntry& entry : entries) {
        entries_.emplace(std::pair(entry.keyword, entry.number), entry);
    }
}

PlainEntry* ReferenceList::Find(const std::string& keyword, std::uint32_t number) {
    const std::pair key(keyword, number);
    const auto place = entries_.lower_bound(key);
    return place != entries_.end() && place->first == key ? &place->second : nullptr;
}

PlainEntry& ReferenceList::Obtain(const std::string& keyword, std::uint32_t number) {
    if (PlainEntry* const existing = Find(keyword, number)) {
        return *existing;
    }
    PlainEntry entry;
    entry.keyword = keyword;
    entry.number = number;
    return entries_.emplace(std::pair(keyword, number), std::move(entry))->second;
}

PlainList ReferenceList::Entries() const {
    PlainList list;
    for (const auto& [key, entry] : entries_) {
        list.push_back(entry);
    }
    return list;
}

void SetFromListText(PlainEntry& entry, std::string_view text) {
    entry.value = ValueOfListText(ValueTypeOf(entry.keyword), text).bytes;
}

bool SetFromCsvText(PlainEntry& entry, std::string_view text) {
    const ReadValue read = ValueOfCsvText(ValueTypeOf(entry.keyword), text);
    if (!read.isRefused) {
        entry.value = read.bytes;
    }
    return !read.isRefused;
}

std::string InTextMode(std::string_view bytes) {
    std::string text;
    for (std::size_t index = 0; index < bytes.size() && bytes[index] != '\x1A'; ++index) {
        const bool isBeforeLineFeed = index + 1 < bytes.size() && bytes[index + 1] == '\n';
        if (bytes[index] != '\r' || !isBeforeLineFeed) {
            text += bytes[index];
        }
    }
    return text;
}

}  // namespace orvell::fuzz
