#include "memstruct/memory_structure_store.h"
#include "memstruct/value_walk.h"

namespace orvell::memstruct {

using values::ConstValueBuffer;
using values::DisplayFormat;
using values::ValueConverterSet;

namespace {

bool Fits(const ValueConverterSet& converters, ValueWalk walk, ConstValueBuffer buffer) {
    while (walk.ToNextLeaf()) {
        if (!converters.HasRoom(walk.LeafType().Description(), walk.Rest(buffer))) {
            return false;
        }
    }
    return walk.IsComplete();
}

bool AppendTexts(const ValueConverterSet& converters, ValueWalk& walk, ConstValueBuffer buffer,
                 DisplayFormat format, bool raw, std::string& text) {
    constexpr const char* kSeparator = "; ";
    std::string leafText;
    bool isFirst = true;
    while (walk.ToNextLeaf()) {
        if (!converters.ValueToText(walk.LeafType().Description(), walk.Rest(buffer), leafText,
                                    format, raw)) {
            return false;
        }
        if (!isFirst) {
            text += kSeparator;
        }
        isFirst = false;
        text += leafText;
    }
    return walk.IsComplete();
}

bool JoinTexts(const ValueConverterSet& converters, ValueWalk walk, ConstValueBuffer buffer,
               DisplayFormat format, bool raw, std::string& text) {
    text.clear();
    const bool isWhole = AppendTexts(converters, walk, buffer, format, raw, text);
    if (!isWhole) {
        text.clear();
    }
    return isWhole;
}

bool AppendLeaves(const ValueConverterSet& converters, ValueWalk& walk, ConstValueBuffer buffer,
                  std::vector<NamedText>& out) {
    while (walk.ToNextLeaf()) {
        NamedText& leaf = out.emplace_back();
        leaf.path = walk.Path();
        if (!converters.ExportText(walk.LeafType().Description(), walk.Rest(buffer), leaf.text)) {
            return false;
        }
    }
    return walk.IsComplete();
}

bool Flatten(const ValueConverterSet& converters, ValueWalk walk, std::string_view prefix,
             ConstValueBuffer buffer, std::vector<NamedText>& out) {
    walk.TrackPaths(prefix);
    out.clear();
    const bool isWhole = AppendLeaves(converters, walk, buffer, out);
    if (!isWhole) {
        out.clear();
    }
    return isWhole;
}

}  // namespace

bool MemoryStructureStore::CheckValueFits(const TypeDef* type, ConstValueBuffer buffer) const {
    return Fits(converters_, ValueWalk::OverValue(type, buffer.size()), buffer);
}

bool MemoryStructureStore::CheckVectorFits(const TypeDef* type, ConstValueBuffer buffer,
                                           std::uint32_t count) const {
    return Fits(converters_, ValueWalk::OverVector(type, count, buffer.size()), buffer);
}

bool MemoryStructureStore::ValueText(const TypeDef* type, ConstValueBuffer buffer,
                                     DisplayFormat format, bool raw, std::string& text) const {
    return JoinTexts(converters_, ValueWalk::OverValue(type, buffer.size()), buffer, format, raw,
                     text);
}

bool MemoryStructureStore::VectorText(const TypeDef* type, ConstValueBuffer buffer,
                                      std::uint32_t count, DisplayFormat format, bool raw,
                                      std::string& text) const {
    return JoinTexts(converters_, ValueWalk::OverVector(type, count, buffer.size()), buffer, format,
                     raw, text);
}

bool MemoryStructureStore::FlattenValue(const TypeDef* type, std::string_view prefix,
                                        ConstValueBuffer buffer,
                                        std::vector<NamedText>& out) const {
    return Flatten(converters_, ValueWalk::OverValue(type, buffer.size()), prefix, buffer, out);
}

bool MemoryStructureStore::FlattenVector(const TypeDef* type, ConstValueBuffer buffer,
                                         std::uint32_t count, std::vector<NamedText>& out) const {
    return Flatten(converters_, ValueWalk::OverVector(type, count, buffer.size()), "", buffer, out);
}

}  // namespace orvell::memstruct
