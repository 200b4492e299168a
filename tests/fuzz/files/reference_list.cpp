#include "fuzz/files/reference_list.h"

#include <optional>
#include <vector>

#include "fuzz/files/german_strings.h"
#include "fuzz/files/value_reference.h"
#include "fuzz/require.h"
#include "paramlist/value_type_handler.h"

namespace orvell::fuzz {
namespace {

using paramlist::ValueTypeHandler;

using ValueSetter = bool (ValueTypeHandler::*)(paramlist::ParameterValue&, std::string_view,
                                               const paramlist::ValueTexts&) const;

ReadValue Read(PlainEntry& entry, ValueSetter setter, std::string_view text) {
    const std::vector<std::uint8_t> before(entry.value.begin(), entry.value.end());
    paramlist::ParameterValue value;
    value.Assign(before);
    const ValueTypeHandler& handler = *HandlerOf(entry.keyword);
    const bool isSet = (handler.*setter)(value, text, paramlist::LoadValueTexts(GermanStrings()));
    const auto after = value.Bytes();
    const std::string bytes(after.begin(), after.end());
    Require(isSet || bytes == entry.value, "a value that is refused leaves the old one");
    entry.value = bytes;
    return {.isRefused = !isSet, .bytes = isSet ? bytes : std::string()};
}

void RequireReference(const ReadValue& found, const std::optional<ReadValue>& expected) {
    Require(!expected || found == *expected, "numbers are read as the C library reads them");
}

}  // namespace

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

bool SetFromListText(PlainEntry& entry, std::string_view text) {
    const ReadValue found = Read(entry, &ValueTypeHandler::SetFromListText, text);
    RequireReference(found, ValueOfListText(ValueTypeOf(entry.keyword), text));
    return !found.isRefused;
}

bool SetFromCsvText(PlainEntry& entry, std::string_view text) {
    const ReadValue found = Read(entry, &ValueTypeHandler::SetFromCsvText, text);
    RequireReference(found, ValueOfCsvText(ValueTypeOf(entry.keyword), text));
    return !found.isRefused;
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
