#include "memstruct/definition_reader.h"

#include <algorithm>
#include <utility>

#include "platform/ansi_text.h"

namespace orvell::memstruct {

using resources::StringId;
using values::BaseTypeCode;
using values::DateFormatCode;

namespace {

/// Maps the texts from `first` to `last` to their numbers. The block ends early at a missing text;
/// of equal texts the first counts.
template <typename Code>
std::unordered_map<std::string_view, Code> ReadVocabulary(const resources::StringTable& strings,
                                                          Code first, Code last) {
    std::unordered_map<std::string_view, Code> vocabulary;
    for (auto code = static_cast<std::uint32_t>(first); code <= static_cast<std::uint32_t>(last);
         ++code) {
        const std::string& name = strings.Text(static_cast<StringId>(code));
        if (name.empty()) {
            break;
        }
        vocabulary.emplace(name, static_cast<Code>(code));
    }
    return vocabulary;
}

/// The attribute's text without blanks and tabs at its ends, empty when there is none.
std::string TrimmedAttribute(const XmlNode& node, StringId attribute) {
    constexpr const char* kBlanks = " \t";
    std::string text;
    node.AttribText(attribute, text);
    text.erase(text.find_last_not_of(kBlanks) + 1);
    text.erase(0, std::min(text.find_first_not_of(kBlanks), text.size()));
    return text;
}

/// The attribute's number, 0 when there is none.
std::uint32_t NumberAttribute(const XmlNode& node, StringId attribute) {
    std::uint32_t number = 0;
    node.AttribULong(attribute, number);
    return number;
}

values::EnumItemList ReadEnumItems(const XmlNode& typeNode) {
    std::vector<values::EnumItem> items;
    typeNode.ForEachChild(StringId::ElementEnumItem, [&items](const XmlNode& node) {
        values::EnumItem item{};
        if (node.AttribULong(StringId::AttributeValue, item.value) &&
            node.AttribText(StringId::AttributeName, item.name) && !item.name.empty()) {
            items.push_back(std::move(item));
        }
    });
    return values::EnumItemList(std::move(items));
}

std::vector<StructItem> ReadStructItems(const XmlNode& typeNode) {
    std::vector<StructItem> items;
    typeNode.ForEachChild(StringId::ElementStructItem, [&items](const XmlNode& node) {
        StructItem item;
        if (node.AttribText(StringId::AttributeName, item.name) && !item.name.empty() &&
            node.AttribText(StringId::AttributeType, item.typeName) && !item.typeName.empty()) {
            item.dimension = std::max(NumberAttribute(node, StringId::AttributeDimension), 1U);
            items.push_back(std::move(item));
        }
    });
    return items;
}

}  // namespace

DefinitionReader::DefinitionReader(MemoryStructureStore& store,
                                   const resources::StringTable& strings)
    : store_(store),
      baseTypes_(ReadVocabulary(strings, BaseTypeCode::Int, BaseTypeCode::Structured)),
      dateFormats_(ReadVocabulary(strings, DateFormatCode::DayFirst, DateFormatCode::MonthFirst)) {}

void DefinitionReader::Read(const XmlNode& root) {
    root.ChildByName(StringId::ElementTypeList)
        .ForEachChild(StringId::ElementType, [this](const XmlNode& node) { ReadType(node); });
    root.ChildByName(StringId::ElementMemoryList)
        .ForEachChild(StringId::ElementMemory,
                      [this](const XmlNode& node) { ReadMemoryArea(node); });
}

void DefinitionReader::ReadType(const XmlNode& node) {
    if (std::optional<TypeDef> type = ParseType(node)) {
        store_.AddType(*std::move(type));
    }
}

void DefinitionReader::ReadMemoryArea(const XmlNode& node) {
    const std::uint32_t id = NumberAttribute(node, StringId::AttributeId);
    std::string typeName = TrimmedAttribute(node, StringId::AttributeType);
    if (id != 0 && !typeName.empty()) {
        store_.AddArea(id, std::move(typeName));
    }
}

std::optional<TypeDef> DefinitionReader::ParseType(const XmlNode& node) const {
    TypeDef type;
    type.name = TrimmedAttribute(node, StringId::AttributeName);
    type.baseType = BaseTypeOf(node);
    if (type.name.empty()) {
        return std::nullopt;
    }
    switch (type.baseType) {
        case BaseTypeCode::None:
            return std::nullopt;
        case BaseTypeCode::Int:
        case BaseTypeCode::UInt:
        case BaseTypeCode::String:
            type.size = NumberAttribute(node, StringId::AttributeSize);
            break;
        case BaseTypeCode::Date:
        case BaseTypeCode::DateTime:
        case BaseTypeCode::OleDateTime:
            type.dateFormat = DateFormatOf(node);
            break;
        case BaseTypeCode::Enumerated:
            type.size = NumberAttribute(node, StringId::AttributeSize);
            type.enumItems = ReadEnumItems(node);
            break;
        case BaseTypeCode::Structured:
            type.structItems = ReadStructItems(node);
            break;
        case BaseTypeCode::Float:
        case BaseTypeCode::Double:
        case BaseTypeCode::Duration:
        case BaseTypeCode::Time:
            break;
    }
    return type;
}

BaseTypeCode DefinitionReader::BaseTypeOf(const XmlNode& node) const {
    const auto known = baseTypes_.find(TrimmedAttribute(node, StringId::AttributeBaseType));
    return known == baseTypes_.end() ? BaseTypeCode::None : known->second;
}

DateFormatCode DefinitionReader::DateFormatOf(const XmlNode& node) const {
    std::string format;
    node.AttribText(StringId::AttributeFormat, format);
    const auto known = dateFormats_.find(platform::ToUpperAnsi(format));
    return known == dateFormats_.end() ? DateFormatCode::DayFirst : known->second;
}

}  // namespace orvell::memstruct
