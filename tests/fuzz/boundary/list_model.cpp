#include "list_model.h"

#include <algorithm>

#include "fuzz/parameter_kinds.h"

namespace orvell::fuzz {
namespace {

/// How the accessors see the values of a type.
ModelType ModelTypeOf(paramlist::ValueTypeCode type) {
    using paramlist::ValueTypeCode;
    switch (type) {
        case ValueTypeCode::Bit:
            return ModelType::Bit;
        case ValueTypeCode::Byte:
            return ModelType::Byte;
        case ValueTypeCode::Word:
            return ModelType::Word;
        case ValueTypeCode::Long:
            return ModelType::Long;
        case ValueTypeCode::Integer64:
            return ModelType::Integer64;
        case ValueTypeCode::Text:
            return ModelType::Text;
        case ValueTypeCode::Float:
        case ValueTypeCode::OleDateTime:
            return ModelType::Number;
        default:
            return ModelType::Seconds;
    }
}

/// Where the digits at the text's end begin, of which the first character is never one.
std::size_t StartOfDigits(const std::string& text) {
    std::size_t start = text.size();
    while (start > 1 && text[start - 1] >= '0' && text[start - 1] <= '9') {
        --start;
    }
    return start;
}

/// Takes the digits from the text's end; they count modulo 2^32.
std::uint32_t TakeNumber(std::string& text) {
    const std::size_t start = StartOfDigits(text);
    std::uint32_t number = 0;
    for (std::size_t i = start; i < text.size(); ++i) {
        number = number * 10 + static_cast<std::uint32_t>(text[i] - '0');
    }
    text.resize(start);
    return number;
}

}  // namespace

ModelEntry* ModelKind::Find(std::uint32_t number) {
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const ModelEntry& entry) {
        return entry.number == number;
    });
    return found == entries.end() ? nullptr : &*found;
}

ModelEntry* ModelKind::FindMarked(std::uint32_t number, bool isDeclared) {
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const ModelEntry& entry) {
        return entry.number == number && entry.isDeclared == isDeclared;
    });
    return found == entries.end() ? nullptr : &*found;
}

ModelEntry& ModelKind::Add(std::uint32_t number) {
    entries.emplace_back().number = number;
    return entries.back();
}

void ListModel::BuildOrClear() {
    Clear();
    for (const ParameterKindRow& kind : kParameterKinds) {
        kinds_[std::string(kind.keyword)].type = ModelTypeOf(kind.type);
    }
}

void ListModel::Clear() {
    for (auto& [keyword, kind] : kinds_) {
        kind.entries.clear();
    }
}

bool ListModel::Admit() {
    if (token_ == 0) {
        return true;
    }
    const bool isNew = token_ != lastToken_;
    lastToken_ = token_;
    return isNew;
}

void ListModel::ForgetDeclarations() {
    for (auto& [keyword, kind] : kinds_) {
        for (ModelEntry& entry : kind.entries) {
            entry.isDeclared = false;
        }
    }
}

void ListModel::Declare(const std::string& oldText, const std::string& newText) {
    const ModelAddress oldAddress = Parse(oldText);
    const ModelAddress newAddress = Parse(newText);
    if (newAddress.kind == nullptr || newAddress.number == 0) {
        return;
    }
    ModelKind& kind = *newAddress.kind;
    const std::uint32_t oldNumber =
        oldAddress.keyword == newAddress.keyword ? oldAddress.number : 0;
    if (oldNumber == newAddress.number) {
        ModelEntry* const entry = kind.Find(oldNumber);
        (entry != nullptr ? *entry : kind.Add(oldNumber)).isDeclared = true;
        return;
    }
    ModelEntry moved;
    if (const ModelEntry* const source = kind.FindMarked(oldNumber, false)) {
        moved = *source;
    }
    moved.number = newAddress.number;
    moved.isDeclared = true;
    kind.entries.push_back(moved);
}

void ListModel::DropUndeclared() {
    for (auto& [keyword, kind] : kinds_) {
        std::erase_if(kind.entries, [](const ModelEntry& entry) { return !entry.isDeclared; });
    }
}

ModelAddress ListModel::Parse(const std::string& text) {
    ModelAddress address{text};
    address.number = TakeNumber(address.keyword);
    const bool hasPoint = address.keyword.size() > 1 && address.keyword.back() == '.';
    if (hasPoint) {
        address.keyword.pop_back();
        address.number += TakeNumber(address.keyword) * 8;
    }
    const auto found = kinds_.find(address.keyword);
    if (found != kinds_.end()) {
        address.kind = &found->second;
        if (!hasPoint && address.kind->type == ModelType::Bit) {
            address.number *= 8;
        }
    }
    return address;
}

ModelEntry* ListModel::EntryToRead(ModelKind& kind, std::uint32_t number) const {
    return isDeclaredOnly_ ? kind.FindMarked(number, true) : kind.Find(number);
}

ModelEntry* ListModel::EntryToWrite(ModelKind& kind, std::uint32_t number) const {
    ModelEntry* const entry = EntryToRead(kind, number);
    return entry != nullptr || isDeclaredOnly_ ? entry : &kind.Add(number);
}

ModelEntry* ListModel::FindOldest(const std::string& text) {
    const ModelAddress address = Parse(text);
    return address.kind == nullptr ? nullptr : address.kind->Find(address.number);
}

}  // namespace orvell::fuzz
