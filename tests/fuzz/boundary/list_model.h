#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "value_model.h"

namespace orvell::fuzz {

struct ModelEntry {
    std::uint32_t number = 0;
    bool isDeclared = false;
    std::string name;
    std::string comment;
    ModelValue value;
};

struct ModelKind {
    ModelType type = ModelType::Bit;
    std::vector<ModelEntry> entries;  ///< in the order of their insertion

    [[nodiscard]] ModelEntry* Find(std::uint32_t number);
    [[nodiscard]] ModelEntry* FindMarked(std::uint32_t number, bool isDeclared);
    ModelEntry& Add(std::uint32_t number);
};

struct ModelAddress {
    std::string keyword;
    std::uint32_t number = 0;
    ModelKind* kind = nullptr;
};

/// The parameter list told once more in the plainest way: every look-up goes through all entries.
class ListModel {
  public:
    /// What loading and importing begin with.
    void BuildOrClear();
    void Clear();

    /// Of both tokens, the present and the last one used.
    void ForgetTokens() { token_ = lastToken_ = 0; }
    void SetToken(std::uint32_t token) { token_ = token; }
    [[nodiscard]] bool Admit();

    void SetDeclaredOnly(bool isDeclaredOnly) { isDeclaredOnly_ = isDeclaredOnly; }
    void ForgetDeclarations();
    void Declare(const std::string& oldText, const std::string& newText);
    void DropUndeclared();

    [[nodiscard]] ModelAddress Parse(const std::string& text);
    [[nodiscard]] ModelEntry* EntryToRead(ModelKind& kind, std::uint32_t number) const;
    [[nodiscard]] ModelEntry* EntryToWrite(ModelKind& kind, std::uint32_t number) const;

    /// The oldest entry at the address, whatever the mode.
    [[nodiscard]] ModelEntry* FindOldest(const std::string& text);

    /// Has `set(type, value)` set the value of the entry that may be written, and tells which one
    /// that is; it is created if need be. False without one, else the setter's result.
    template <typename Set>
    bool Write(const std::string& text, const Set& set, ModelEntry** written = nullptr);

    /// Has `set(type, value)` set the values of consecutive numbers, and describes the elements.
    template <typename Values, typename Set>
    void FillVector(const std::string& text, const Values& values, const Set& set);

    [[nodiscard]] std::map<std::string, ModelKind>& Kinds() { return kinds_; }

  private:
    std::map<std::string, ModelKind> kinds_;
    bool isDeclaredOnly_ = false;
    std::uint32_t token_ = 0;
    std::uint32_t lastToken_ = 0;
};

template <typename Set>
bool ListModel::Write(const std::string& text, const Set& set, ModelEntry** written) {
    const ModelAddress address = Parse(text);
    ModelEntry* const entry =
        address.kind == nullptr ? nullptr : EntryToWrite(*address.kind, address.number);
    if (written != nullptr) {
        *written = entry;
    }
    return entry != nullptr && set(address.kind->type, entry->value);
}

template <typename Values, typename Set>
void ListModel::FillVector(const std::string& text, const Values& values, const Set& set) {
    const ModelAddress address = Parse(text);
    std::string firstName;
    std::uint32_t index = 0;
    for (const auto& value : values) {
        ModelEntry* const entry =
            address.kind == nullptr ? nullptr : EntryToWrite(*address.kind, address.number + index);
        ++index;
        if (entry == nullptr) {
            continue;
        }
        set(address.kind->type, entry->value, value);
        if (values.size() == 1) {
            continue;
        }
        firstName = index == 1 ? entry->name : firstName;
        if (entry->name.empty() && firstName != "%%") {
            entry->name = firstName;
        }
        if (entry->comment.empty()) {
            entry->comment = "Vektorelement " + std::to_string(index);
        }
    }
}

}  // namespace orvell::fuzz
