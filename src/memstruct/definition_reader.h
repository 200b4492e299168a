#pragma once

#include <optional>
#include <string_view>
#include <unordered_map>

#include "memstruct/memory_structure_store.h"
#include "memstruct/xml_document.h"

namespace orvell::memstruct {

/// Reads the definitions of one document into a store. Definitions that are incomplete or wrong are
/// passed over in silence; what they mean for a value shows when the value is used.
class DefinitionReader {
  public:
    /// Both must outlive the reader; it reads the vocabulary once.
    DefinitionReader(MemoryStructureStore& store, const resources::StringTable& strings);

    /// Adds what stands in the root's first "TypeList" and its first "MemoryList".
    void Read(const XmlNode& root);

  private:
    void ReadType(const XmlNode& node);
    void ReadMemoryArea(const XmlNode& node);
    [[nodiscard]] std::optional<TypeDef> ParseType(const XmlNode& node) const;
    [[nodiscard]] values::BaseTypeCode BaseTypeOf(const XmlNode& node) const;
    [[nodiscard]] values::DateFormatCode DateFormatOf(const XmlNode& node) const;

    MemoryStructureStore& store_;
    std::unordered_map<std::string_view, values::BaseTypeCode> baseTypes_;
    std::unordered_map<std::string_view, values::DateFormatCode> dateFormats_;
};

}  // namespace orvell::memstruct
