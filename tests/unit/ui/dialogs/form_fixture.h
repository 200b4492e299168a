#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "memstruct/memory_structure_store.h"
#include "resources/built_in_strings.h"
#include "ui/dialogs/parameter_form.h"
#include "ui/dialogs/value_rows.h"

namespace orvell::ui {

inline memstruct::TypeDef BasicType(const char* name, values::BaseTypeCode code,
                                    std::uint32_t size = 0) {
    memstruct::TypeDef type;
    type.name = name;
    type.baseType = code;
    type.size = size;
    return type;
}

inline memstruct::StructItem Item(std::string name, std::string type, std::uint32_t dimension = 1) {
    return {std::move(name), std::move(type), nullptr, dimension};
}

inline memstruct::TypeDef Structure(std::string name, std::vector<memstruct::StructItem> items) {
    memstruct::TypeDef type;
    type.name = std::move(name);
    type.baseType = values::BaseTypeCode::Structured;
    type.structItems = std::move(items);
    return type;
}

/// Definitions as a test needs them, without a file.
class Definitions {
  public:
    /// Adds an area with the type, which must be named already or be this one.
    void AddArea(std::uint32_t id, memstruct::TypeDef type) {
        const std::string name = type.name;
        store.AddType(std::move(type));
        store.AddArea(id, name);
    }

    class FixedClock final : public platform::LocalClock {
      public:
        [[nodiscard]] platform::CivilTime Now() const override { return {2024, 2, 29, 12, 0, 0}; }
    };

    resources::BuiltInStrings builtIn;
    resources::StringTable strings{builtIn};
    memstruct::XmlAccessBinding xml{strings};
    FixedClock clock;
    values::ValueConverterSet converters{clock};
    memstruct::MemoryStructureStore store{strings, xml, converters};
    FormServices services{store, converters, strings};
};

/// A record whose value comes from malloc, as hosts hand it in.
class OwnedDialogRecord {
  public:
    explicit OwnedDialogRecord(std::uint32_t id, const std::vector<std::uint8_t>& value = {},
                               std::uint32_t count = 1) {
        record.size = sizeof(record);
        record.identifier = static_cast<std::int32_t>(id);
        record.count = count;
        record.length = static_cast<std::uint32_t>(value.size());
        record.bytes = value.empty() ? nullptr : std::malloc(value.size());
        std::copy(value.begin(), value.end(), static_cast<std::uint8_t*>(record.bytes));
    }
    ~OwnedDialogRecord() { std::free(record.bytes); }
    OwnedDialogRecord(const OwnedDialogRecord&) = delete;
    OwnedDialogRecord& operator=(const OwnedDialogRecord&) = delete;

    [[nodiscard]] std::vector<std::uint8_t> Value() const {
        const auto* bytes = static_cast<const std::uint8_t*>(record.bytes);
        return bytes == nullptr ? std::vector<std::uint8_t>()
                                : std::vector<std::uint8_t>(bytes, bytes + record.length);
    }

    DialogParameterRecord record{};
};

/// The rows below the header: "name=text" each.
inline std::vector<std::string> RowsOf(const GridModel& grid) {
    std::vector<std::string> rows;
    for (int row = kFirstValueRow; row < grid.GetRowCount(); ++row) {
        rows.push_back(grid.GetItemText(row, kNameColumn) + "=" +
                       grid.GetItemText(row, kValueColumn));
    }
    return rows;
}

using Rows = std::vector<std::string>;
using Bytes = std::vector<std::uint8_t>;

}  // namespace orvell::ui
