#include "fuzz/definitions/store_properties.h"

#include "fuzz/require.h"

namespace orvell::fuzz {

using memstruct::MemoryStructureStore;
using memstruct::StructItem;
using memstruct::TypeDef;

namespace {

/// The model's type as the store's: both have them in one order.
const TypeDef* TypeAt(const MemoryStructureStore& store, std::optional<std::size_t> index) {
    return index ? &store.Types()[*index] : nullptr;
}

std::int32_t SignednessOf(const ModelType& type) {
    if (type.hasSigned && type.hasUnsigned) {
        return 0;
    }
    return type.hasSigned ? 1 : type.hasUnsigned ? 2 : -1;
}

void CheckEnumItems(const TypeDef& type, const ModelType& model) {
    const auto items = type.enumItems.Items();
    Require(items.size() == model.enumItems.size(), "there are as many names");
    for (std::size_t i = 0; i < items.size(); ++i) {
        const auto& [value, name] = model.enumItems[i];
        Require(items[i].value == value && items[i].name == name, "values ascend, the first wins");
        Require(type.enumItems.FindValue(value) == &items[i], "a value is found");
    }
}

void CheckItems(const MemoryStructureStore& store, const TypeDef& type, const ModelType& model,
                const DefinitionModel& all) {
    Require(type.structItems.size() == model.items.size(), "there are as many elements");
    std::uint32_t offset = 0;
    for (std::size_t i = 0; i < model.items.size(); ++i) {
        const StructItem& item = type.structItems[i];
        const ModelItem& expected = model.items[i];
        Require(item.name == expected.name && item.typeName == expected.typeName &&
                    item.dimension == expected.dimension,
                "elements are as written");
        Require(item.type == TypeAt(store, expected.type), "elements have the type of their name");
        if (!model.isRecursive) {
            Require(item.offset == offset, "elements are packed");
        }
        if (expected.type) {
            offset += all.types[*expected.type].storedSize * expected.dimension;
        }
    }
}

void CheckType(const MemoryStructureStore& store, std::size_t index, const DefinitionModel& all) {
    const TypeDef& type = store.Types()[index];
    const ModelType& model = all.types[index];
    Require(type.name == model.name && type.baseType == model.baseType &&
                type.size == model.declaredSize && type.dateFormat == model.dateFormat,
            "types are as written");
    CheckEnumItems(type, model);
    CheckItems(store, type, model, all);
    Require(type.recursive == model.isRecursive, "types that reach a ring are recursive");
    Require(MemoryStructureStore::StoredSize(&type) == model.storedSize, "sizes add up");
    Require(MemoryStructureStore::SignednessClass(&type) == SignednessOf(model),
            "signedness adds up");
    Require(type.HoldsValues() == model.holdsValues, "values are known from afar");
    Require(store.FindType(type.name) == &type, "a type is found by its name");
}

}  // namespace

void CheckStore(const MemoryStructureStore& store, const DefinitionModel& model) {
    Require(store.Types().size() == model.types.size(), "there are as many types");
    for (std::size_t index = 0; index < model.types.size(); ++index) {
        CheckType(store, index, model);
    }
    Require(store.Areas().size() == model.areas.size(), "there are as many areas");
    for (std::size_t index = 0; index < model.areas.size(); ++index) {
        const memstruct::MemoryArea& area = store.Areas()[index];
        const ModelArea& expected = model.areas[index];
        Require(area.id == expected.id && area.typeName == expected.typeName,
                "areas ascend, the first wins");
        Require(store.FindMemoryArea(expected.id) == &area, "an area is found by its ID");
        Require(store.TypeOfArea(expected.id) == TypeAt(store, model.FindType(expected.typeName)),
                "an area has the type of its name");
    }
    Require(store.FindMemoryArea(0) == nullptr && store.TypeOfArea(0) == nullptr,
            "there is no area 0");
}

}  // namespace orvell::fuzz
