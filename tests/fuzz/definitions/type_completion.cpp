#include "fuzz/definitions/type_completion.h"

#include <algorithm>

namespace orvell::fuzz {

using values::BaseTypeCode;

namespace {

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

}  // namespace

void CompleteTypes(std::vector<ModelType>& types) {
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

}  // namespace orvell::fuzz
