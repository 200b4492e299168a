#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "memstruct/reference_resolution.h"
#include "memstruct/type_model.h"
#include "memstruct/xml_access_binding.h"
#include "resources/string_table.h"
#include "values/value_converter_set.h"

namespace orvell::memstruct {

/// A leaf of a value: the path of its element and its text.
struct NamedText {
    std::string path;
    std::string text;
};

/// The memory-structure definitions in use: all types and all memory areas of the target system.
///
/// Every load rebuilds the store; pointers to types and areas stay valid until the next load or
/// clear. Names are compared byte for byte. Of definitions with one name or one ID the first stays.
/// Used from the host's user-interface thread only; a transfer's worker reads types under
/// `DefinitionsInUse`.
class MemoryStructureStore {
  public:
    /// All three must outlive the store.
    MemoryStructureStore(const resources::StringTable& strings, const XmlAccessBinding& xml,
                         const values::ValueConverterSet& converters)
        : strings_(strings), xml_(xml), converters_(converters) {}
    MemoryStructureStore(const MemoryStructureStore&) = delete;
    MemoryStructureStore& operator=(const MemoryStructureStore&) = delete;

    /// Forgets all types and areas; the paths stay.
    void Clear();

    /// Puts FLOAT, DOUBLE, DURATION and TIME before the list, unless types of these names exist.
    void AddImplicitTypes();

    /// Replaces the definitions by those of the file, or by those of the default file when it does
    /// not exist. Without either the store holds the implicit types only. `currentPath` becomes
    /// `path` when that file was read and empty otherwise.
    /// False when a file exists but cannot be read as XML. An exception (out of memory) leaves the
    /// store and `currentPath` empty.
    [[nodiscard]] bool LoadStructFile(std::string path);

    /// Appends a type, takes over its items; false, and dropped, when its name exists.
    bool AddType(TypeDef&& type);

    /// Adds an area; false, and dropped, when its ID exists. Areas may move until references are
    /// resolved.
    bool AddArea(std::uint32_t id, std::string typeName);

    /// Binds element and area types by name and derives sizes, classes and recursion. To be called
    /// after types or areas have been added; linear in the number of types,
    /// elements and areas, but for sorting areas that come out of order.
    void ResolveReferences();

    [[nodiscard]] const TypeDef* FindType(std::string_view name) const;
    [[nodiscard]] const MemoryArea* FindMemoryArea(std::uint32_t id) const;

    /// The area's type; null for an unknown ID or type.
    [[nodiscard]] const TypeDef* TypeOfArea(std::uint32_t id) const;

    /// Types in list order; areas in ascending order of ID, once references are resolved.
    [[nodiscard]] const std::deque<TypeDef>& Types() const { return types_; }
    [[nodiscard]] const std::vector<MemoryArea>& Areas() const { return areas_; }

    /// True while types are in use across calls of the host's functions: no load and no clear then.
    [[nodiscard]] bool IsInUse() const { return uses_ != 0; }

    [[nodiscard]] const std::string& GetCurrentPath() const { return currentPath_; }
    void SetCurrentPath(std::string path) { currentPath_ = std::move(path); }
    [[nodiscard]] const std::string& GetDefaultPath() const { return defaultPath_; }
    void SetDefaultPath(std::string path) { defaultPath_ = std::move(path); }

    /// Bytes of one value; 0 for null, a type without base type and a recursive one. Elements are
    /// packed; sums and products wrap modulo 2^32.
    [[nodiscard]] static std::uint32_t StoredSize(const TypeDef* type);

    /// 1: signed integers only, 2: unsigned only, 0: both, -1: none.
    [[nodiscard]] static std::int32_t SignednessClass(const TypeDef* type);

    // ---- Walks over a value: leaves in definition order, each element `dimension` times. A walk
    // fails for null and recursive types and when the bytes run short; elements of unknown type are
    // passed over. The vector forms take `count` values, one after the other.

    /// True when the buffer holds a whole value (vector).
    [[nodiscard]] bool CheckValueFits(const TypeDef* type, values::ConstValueBuffer buffer) const;
    [[nodiscard]] bool CheckVectorFits(const TypeDef* type, values::ConstValueBuffer buffer,
                                       std::uint32_t count) const;

    /// Display texts of all leaves, joined by "; ". On failure the text is emptied.
    bool ValueText(const TypeDef* type, values::ConstValueBuffer buffer,
                   values::DisplayFormat format, bool raw, std::string& text) const;
    bool VectorText(const TypeDef* type, values::ConstValueBuffer buffer, std::uint32_t count,
                    values::DisplayFormat format, bool raw, std::string& text) const;

    /// Fills `out` with the paths and export texts of all leaves: "x", "x[2].y", "[0].x". On
    /// failure `out` is emptied.
    bool FlattenValue(const TypeDef* type, std::string_view prefix, values::ConstValueBuffer buffer,
                      std::vector<NamedText>& out) const;
    bool FlattenVector(const TypeDef* type, values::ConstValueBuffer buffer, std::uint32_t count,
                       std::vector<NamedText>& out) const;

  private:
    friend class DefinitionsInUse;

    /// IDs stand in a file, often at regular distances; mixed, they do not share buckets.
    /// (The finalizer of MurmurHash3 by A. Appleby, public domain.)
    struct MixedHash {
        std::size_t operator()(std::uint32_t id) const {
            id = (id ^ (id >> 16)) * 0x85EBCA6BU;
            id = (id ^ (id >> 13)) * 0xC2B2AE35U;
            return id ^ (id >> 16);
        }
    };

    [[nodiscard]] bool ReadStructFile(std::string path);

    const resources::StringTable& strings_;
    const XmlAccessBinding& xml_;
    const values::ValueConverterSet& converters_;
    std::string defaultPath_;
    std::string currentPath_;
    std::deque<TypeDef> types_;  // grows at both ends and never moves a type
    TypeIndex typesByName_;
    std::vector<MemoryArea> areas_;
    std::unordered_map<std::uint32_t, std::size_t, MixedHash> areaIndexById_;
    mutable std::uint32_t uses_ = 0;
};

/// Marks the store as in use while it lives. Whatever the host's functions do when they are called
/// in between, the types stay.
class DefinitionsInUse {
  public:
    /// `store` must outlive this object.
    explicit DefinitionsInUse(const MemoryStructureStore& store) : uses_(store.uses_) { ++uses_; }
    ~DefinitionsInUse() { --uses_; }
    DefinitionsInUse(const DefinitionsInUse&) = delete;
    DefinitionsInUse& operator=(const DefinitionsInUse&) = delete;

  private:
    std::uint32_t& uses_;
};

}  // namespace orvell::memstruct
