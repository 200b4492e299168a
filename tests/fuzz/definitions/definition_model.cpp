#include "fuzz/definitions/definition_model.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "fuzz/definitions/type_completion.h"

namespace orvell::fuzz {

using test::FakeNode;
using values::BaseTypeCode;
using values::DateFormatCode;

namespace {

std::string TextOf(const FakeNode& node, std::string_view attribute) {
    const std::string* text = node.Attribute(attribute);
    return text == nullptr ? "" : *text;
}

std::string Trimmed(const std::string& text) {
    const std::size_t start = text.find_first_not_of(" \t");
    return start == std::string::npos
               ? ""
               : text.substr(start, text.find_last_not_of(" \t") - start + 1);
}

const FakeNode* FirstChild(const FakeNode* parent, std::string_view name) {
    const FakeNode* child = parent == nullptr ? nullptr : parent->firstChild;
    while (child != nullptr && child->name != name) {
        child = child->next;
    }
    return child;
}

template <typename Visit>
void ForEachChild(const FakeNode* parent, std::string_view name, const Visit& visit) {
    const FakeNode* child = parent == nullptr ? nullptr : parent->firstChild;
    for (; child != nullptr; child = child->next) {
        if (child->name == name) {
            visit(*child);
        }
    }
}

BaseTypeCode BaseTypeOf(const std::string& name) {
    constexpr std::array<std::string_view, 12> kBaseTypeNames = {
        "INT",  "UINT", "FLOAT",     "DOUBLE",        "STRING",     "DURATION",
        "TIME", "DATE", "DATE+TIME", "OLE-DATE+TIME", "Enumerated", "Structured"};
    const auto known = std::find(kBaseTypeNames.begin(), kBaseTypeNames.end(), name);
    return known == kBaseTypeNames.end()
               ? BaseTypeCode::None
               : static_cast<BaseTypeCode>(
                     values::kFirstBaseTypeCode +
                     static_cast<std::uint32_t>(known - kBaseTypeNames.begin()));
}

/// Puts a pair where its key belongs, unless the key is there.
template <typename List, typename Key>
void InsertInOrder(List& list, const Key& keyOf, typename List::value_type added) {
    auto place = list.begin();
    while (place != list.end() && keyOf(*place) < keyOf(added)) {
        ++place;
    }
    if (place == list.end() || keyOf(*place) != keyOf(added)) {
        list.insert(place, std::move(added));
    }
}

void ReadEnumItems(const FakeNode& node, ModelType& type) {
    ForEachChild(&node, "Item", [&](const FakeNode& item) {
        const auto value = NumberOf(item, "Value");
        const std::string name = TextOf(item, "Name");
        if (value && !name.empty()) {
            InsertInOrder(type.enumItems, [](const auto& pair) { return pair.first; },
                          {*value, name});
        }
    });
}

void ReadStructItems(const FakeNode& node, ModelType& type) {
    ForEachChild(&node, "Item", [&](const FakeNode& item) {
        ModelItem added{TextOf(item, "Name"), TextOf(item, "Type"),
                        std::max(NumberOf(item, "Dimension").value_or(1), 1U), std::nullopt};
        if (!added.name.empty() && !added.typeName.empty()) {
            type.items.push_back(std::move(added));
        }
    });
}

ModelType ReadType(const FakeNode& node) {
    ModelType type;
    type.name = Trimmed(TextOf(node, "Name"));
    type.baseType = BaseTypeOf(Trimmed(TextOf(node, "BaseType")));
    const bool isEnumerated = type.baseType == BaseTypeCode::Enumerated;
    if (isEnumerated || type.baseType == BaseTypeCode::Int || type.baseType == BaseTypeCode::UInt ||
        type.baseType == BaseTypeCode::String) {
        type.declaredSize = NumberOf(node, "Size").value_or(0);
    }
    if (isEnumerated) {
        ReadEnumItems(node, type);
    }
    if (type.baseType == BaseTypeCode::Date || type.baseType == BaseTypeCode::DateTime ||
        type.baseType == BaseTypeCode::OleDateTime) {
        const std::string format = TextOf(node, "Format");
        type.dateFormat = format == "MM/DD/YYYY" || format == "mm/dd/yyyy"
                              ? DateFormatCode::MonthFirst
                              : DateFormatCode::DayFirst;
    }
    if (type.IsStructured()) {
        ReadStructItems(node, type);
    }
    return type;
}

}  // namespace

std::optional<std::uint32_t> NumberOf(const FakeNode& node, std::string_view attribute) {
    const std::string text = TextOf(node, attribute);
    const bool isDecimal =
        !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
    const unsigned long long number = isDecimal ? std::strtoull(text.c_str(), nullptr, 10) : 0;
    return isDecimal && number <= 0xFFFFFFFF ? std::optional(static_cast<std::uint32_t>(number))
                                             : std::nullopt;
}

std::optional<std::size_t> DefinitionModel::FindType(std::string_view name) const {
    const auto found = std::find_if(types.begin(), types.end(),
                                    [&](const ModelType& type) { return type.name == name; });
    return found == types.end() ? std::nullopt
                                : std::optional(static_cast<std::size_t>(found - types.begin()));
}

DefinitionModel ModelOf(const test::FakeDocument& document) {
    DefinitionModel model;
    for (const char* name : {"FLOAT", "DOUBLE", "DURATION", "TIME"}) {
        ModelType& type = model.types.emplace_back();
        type.name = name;
        type.baseType = BaseTypeOf(name);
    }
    ForEachChild(FirstChild(document.Root(), "TypeList"), "Type", [&](const FakeNode& node) {
        ModelType type = ReadType(node);
        if (!type.name.empty() && type.baseType != BaseTypeCode::None &&
            !model.FindType(type.name)) {
            model.types.push_back(std::move(type));
        }
    });
    ForEachChild(FirstChild(document.Root(), "MemoryList"), "Memory", [&](const FakeNode& node) {
        ModelArea area{NumberOf(node, "ID").value_or(0), Trimmed(TextOf(node, "Type"))};
        if (area.id != 0 && !area.typeName.empty()) {
            InsertInOrder(
                model.areas, [](const ModelArea& other) { return other.id; }, std::move(area));
        }
    });
    for (ModelType& type : model.types) {
        for (ModelItem& item : type.items) {
            item.type = model.FindType(item.typeName);
        }
    }
    CompleteTypes(model.types);
    return model;
}

}  // namespace orvell::fuzz
