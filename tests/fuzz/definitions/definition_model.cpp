#include "fuzz/definitions/definition_model.h"

#include <algorithm>
#include <array>
#include <cstdlib>

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

std::uint32_t WidthOf(const ModelType& type) {
    const std::uint32_t size = type.declaredSize;
    switch (type.baseType) {
        case BaseTypeCode::Int:
        case BaseTypeCode::UInt:
            return size == 1 ? 1 : size == 0 || size == 2 ? 2 : size <= 4 ? 4 : 8;
        case BaseTypeCode::Enumerated:
            return size == 1 ? 1 : size == 0 || size == 2 ? 2 : 4;
        case BaseTypeCode::String:
            return std::max(size, 1U);
        case BaseTypeCode::Double:
        case BaseTypeCode::OleDateTime:
            return 8;
        default:
            return 4;
    }
}

/// Derives what a type's elements add up to, when all of their types have been completed.
void Complete(ModelType& type, const std::vector<ModelType>& types) {
    if (!type.IsStructured()) {
        type.storedSize = WidthOf(type);
        type.holdsValues = true;
        type.hasSigned = type.baseType == BaseTypeCode::Int;
        type.hasUnsigned = type.baseType == BaseTypeCode::UInt;
        return;
    }
    for (const ModelItem& item : type.items) {
        if (item.type) {
            const ModelType& part = types[*item.type];
            type.storedSize += part.storedSize * item.dimension;
            type.holdsValues = type.holdsValues || part.holdsValues;
            type.hasSigned = type.hasSigned || part.hasSigned;
            type.hasUnsigned = type.hasUnsigned || part.hasUnsigned;
        }
    }
}

/// Completes types whose elements' types are complete until there is none left; those that remain
/// wait for each other or for such a ring.
void CompleteAll(std::vector<ModelType>& types) {
    std::vector<std::vector<std::size_t>> usersOf(types.size());
    std::vector<std::size_t> missing(types.size());
    std::vector<std::size_t> ready;
    for (std::size_t user = 0; user < types.size(); ++user) {
        for (const ModelItem& item : types[user].items) {
            if (item.type) {
                usersOf[*item.type].push_back(user);
                ++missing[user];
            }
        }
        types[user].isRecursive = missing[user] != 0;
        if (missing[user] == 0) {
            ready.push_back(user);
        }
    }
    while (!ready.empty()) {
        const std::size_t index = ready.back();
        ready.pop_back();
        types[index].isRecursive = false;
        Complete(types[index], types);
        for (const std::size_t user : usersOf[index]) {
            if (--missing[user] == 0) {
                ready.push_back(user);
            }
        }
    }
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
    CompleteAll(model.types);
    return model;
}

}  // namespace orvell::fuzz
