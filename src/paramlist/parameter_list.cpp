#include "paramlist/parameter_list.h"

#include <algorithm>
#include <utility>

#include "paramlist/parameter_address.h"

namespace orvell::paramlist {

bool ParameterList::BuildKinds(std::uint32_t count) {
    kinds_.clear();
    std::vector<ParameterKind> kinds;  // all or none, should memory be short
    bool isComplete = true;
    for (std::uint32_t index = 0; index < count; ++index) {
        const auto id = static_cast<std::uint32_t>(resources::StringId::KeywordE) + index;
        const std::string& keyword = strings_.Text(static_cast<resources::StringId>(id));
        if (keyword.empty()) {
            isComplete = false;
        } else {
            InsertKind(kinds, keyword, ValueTypeOfKind(index));
        }
    }
    kinds_ = std::move(kinds);
    return isComplete;
}

void ParameterList::InsertKind(std::vector<ParameterKind>& kinds, const std::string& keyword,
                               ValueTypeCode valueType) const {
    const auto place = std::ranges::lower_bound(kinds, keyword, {}, &ParameterKind::Keyword);
    if (place == kinds.end() || place->Keyword() != keyword) {
        kinds.emplace(place, keyword, valueType, handlers_.Find(valueType));
    }
}

void ParameterList::BuildOrClear() {
    if (kinds_.empty()) {
        BuildKinds();
    } else {
        ClearAll();
    }
}

const ParameterKind* ParameterList::FindKind(std::string_view keyword) const {
    const auto place = std::ranges::lower_bound(kinds_, keyword, {}, &ParameterKind::Keyword);
    return place != kinds_.end() && place->Keyword() == keyword ? &*place : nullptr;
}

ParameterKind* ParameterList::FindKind(std::string_view keyword) {
    return const_cast<ParameterKind*>(std::as_const(*this).FindKind(keyword));
}

ValueTypeCode ParameterList::ValueTypeOf(std::string_view keyword) const {
    const ParameterKind* const kind = FindKind(keyword);
    return kind != nullptr ? kind->ValueType() : ValueTypeCode::None;
}

ParameterAddress ParameterList::ParseAddress(std::string_view text) {
    const AddressScan scan = ScanAddress(text);
    ParameterAddress address = {scan.keyword, scan.number, scan.hasDigits, FindKind(scan.keyword)};
    const bool isBit = address.kind != nullptr && address.kind->ValueType() == ValueTypeCode::Bit;
    if (isBit && !scan.isDotted) {
        address.number *= 8;
    }
    return address;
}

void ParameterList::ClearAll() {
    for (ParameterKind& kind : kinds_) {
        kind.Clear();
    }
}

void ParameterList::SetFlagsAll(std::uint32_t mask, bool set) {
    for (ParameterKind& kind : kinds_) {
        kind.SetFlags(mask, set);
    }
}

void ParameterList::PurgeAll(std::uint32_t mask) {
    for (ParameterKind& kind : kinds_) {
        kind.Purge(mask);
    }
}

ParameterEntry* ParameterList::EntryToRead(ParameterKind& kind, std::uint32_t number) const {
    return isDeclaredOnly_ ? kind.FindMarked(number, kDeclaredMark, /*isSet=*/true)
                           : kind.Find(number);
}

ParameterEntry* ParameterList::EntryToWrite(ParameterKind& kind, std::uint32_t number) const {
    return isDeclaredOnly_ ? kind.FindMarked(number, kDeclaredMark, /*isSet=*/true)
                           : &kind.Obtain(number, /*allowDuplicate=*/false);
}

}  // namespace orvell::paramlist
