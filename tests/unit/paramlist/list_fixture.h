#pragma once

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "paramlist/parameter_list.h"
#include "paramlist/value_type_handler.h"
#include "resources/built_in_strings.h"
#include "resources/string_table.h"

namespace orvell::test {

/// The German texts, some of them replaced as a wrong language library might do it.
class ChangedStrings : public platform::StringSource {
  public:
    [[nodiscard]] std::string Load(std::uint32_t number) const override {
        const auto changed = changes.find(number);
        return changed != changes.end() ? changed->second : german_.Load(number);
    }

    void Change(resources::StringId id, std::string text) {
        changes[static_cast<std::uint32_t>(id)] = std::move(text);
    }

    std::map<std::uint32_t, std::string> changes;

  private:
    const resources::BuiltInStrings german_;
};

/// A list with all kinds and no entries.
class ListFixture : public testing::Test {
  protected:
    ListFixture() { list.BuildKinds(); }

    /// The entry at the address, created if need be, with a value as an accessor's text.
    paramlist::ParameterEntry& Add(std::string_view address, std::string_view name = "",
                                   std::string_view comment = "",
                                   std::optional<std::string_view> value = std::nullopt) {
        const paramlist::ParameterAddress parsed = list.ParseAddress(address);
        paramlist::ParameterEntry& entry = parsed.kind->Obtain(parsed.number, false);
        entry.SetName(name);
        entry.SetComment(comment);
        if (value) {
            parsed.kind->Handler()->SetFromText(entry.Value(), *value);
        }
        return entry;
    }

    /// "name|value|comment" of the entry at the address, "none" when there is none.
    std::string Entry(std::string_view address) { return Entry(list, address); }

    static std::string Entry(paramlist::ParameterList& from, std::string_view address) {
        const paramlist::ParameterAddress parsed = from.ParseAddress(address);
        const paramlist::ParameterEntry* const entry = parsed.kind->Find(parsed.number);
        return entry != nullptr ? Describe(*parsed.kind, *entry) : "none";
    }

    static std::string Describe(const paramlist::ParameterKind& kind,
                                const paramlist::ParameterEntry& entry) {
        std::string value;
        if (!kind.Handler()->GetText(entry.Value(), value)) {
            value = "undefined";
        }
        return std::string(entry.Name()) + '|' + value + '|' + std::string(entry.Comment());
    }

    /// Every entry with all that belongs to it, values as stored bytes.
    static std::string Everything(const paramlist::ParameterList& from) {
        std::string all;
        for (const paramlist::ParameterKind& kind : from.Kinds()) {
            for (const paramlist::ParameterEntry* const entry : kind.EntriesInOrder()) {
                all += kind.Keyword() + std::to_string(entry->Number()) + '|';
                all.append(entry->Name()).append("|").append(entry->Comment()).append("|");
                const auto bytes = entry->Value().Bytes();
                all.append(bytes.begin(), bytes.end()).append("\n");
            }
        }
        return all;
    }

    std::size_t EntryCount() const {
        std::size_t count = 0;
        for (const paramlist::ParameterKind& kind : list.Kinds()) {
            count += kind.EntryCount();
        }
        return count;
    }

    ChangedStrings source;
    resources::StringTable strings{source};
    paramlist::ParameterList list{strings};
};

}  // namespace orvell::test
