#include "host/value_gathering.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <vector>

#include "host/boundary_text.h"
#include "host/parameter_record.h"
#include "memstruct/value_walk.h"
#include "paramlist/integer_reading.h"
#include "values/stored_value.h"

namespace orvell::host {

using memstruct::TypeDef;
using memstruct::ValueWalk;
using paramlist::ParameterEntry;
using paramlist::ParameterValue;
using paramlist::ValueTypeHandler;
using values::BaseTypeCode;
using values::ValueBuffer;
using values::ValueConverterSet;

namespace {

ValueWalk WalkOver(const GatheredValue& value) {
    return IsVector(value.count)
               ? ValueWalk::OverVector(&value.type, value.count, value.bytes.size())
               : ValueWalk::OverValue(&value.type, value.bytes.size());
}

/// The texts of one path in list order, and the leaves that have taken them. Names may repeat, and
/// with them paths: a further leaf takes the next text.
struct PathTexts {
    std::vector<std::string_view> texts;
    std::size_t leaves = 0;
    const TypeDef* lastLeaf = nullptr;
    ValueBuffer lastPlace;
};

using TextsByPath = std::unordered_map<std::string_view, PathTexts>;

TextsByPath IndexTexts(const NameListNode* node) {
    TextsByPath texts;
    for (; node != nullptr; node = node->next) {
        texts[TextOrEmpty(node->first)].texts.push_back(TextOrEmpty(node->second));
    }
    return texts;
}

/// Leaves beyond the texts of their path take its last text.
bool StoreNextText(const ValueWalk& walk, ValueBuffer bytes, PathTexts& path,
                   const ValueConverterSet& converters) {
    path.lastLeaf = &walk.LeafType();
    path.lastPlace = walk.Rest(bytes);
    const std::size_t index = std::min(path.leaves++, path.texts.size() - 1);
    return converters.ImportText(path.lastLeaf->Description(), path.texts[index], path.lastPlace);
}

/// Texts beyond the leaves of their path go to its last leaf. False for a path without leaves.
bool StoreFurtherTexts(const PathTexts& path, const ValueConverterSet& converters) {
    for (std::size_t index = path.leaves; index < path.texts.size(); ++index) {
        if (path.lastLeaf == nullptr || !converters.ImportText(path.lastLeaf->Description(),
                                                               path.texts[index], path.lastPlace)) {
            return false;
        }
    }
    return true;
}

/// The parameter's number; none when it gives none. What gives a dword gives a double too.
std::optional<double> NumberOf(const ValueTypeHandler& handler, const ParameterValue& value) {
    double number = 0;
    std::uint64_t qword = 0;
    std::uint16_t word = 0;
    if (handler.GetDouble(value, number)) {
        return number;
    }
    if (handler.GetQword(value, qword)) {
        return static_cast<double>(static_cast<std::int64_t>(qword));
    }
    if (handler.GetWord(value, word)) {
        return static_cast<std::int16_t>(word);
    }
    return std::nullopt;
}

/// The parameter's integer; none when it gives none.
std::optional<std::uint64_t> IntegerOf(const ValueTypeHandler& handler,
                                       const ParameterValue& value) {
    std::uint64_t qword = 0;
    std::uint32_t dword = 0;
    std::uint16_t word = 0;
    double number = 0;
    if (handler.GetQword(value, qword)) {
        return qword;
    }
    if (handler.GetDword(value, dword)) {
        return dword;
    }
    if (handler.GetWord(value, word)) {
        return word;
    }
    if (handler.GetDouble(value, number)) {
        return static_cast<std::uint64_t>(paramlist::TruncateToInteger(number));
    }
    return std::nullopt;
}

void StoreText(const TypeDef& leaf, ValueBuffer place, const ValueTypeHandler& handler,
               const ParameterValue& value, const ValueConverterSet& converters) {
    std::string text;
    if (handler.GetText(value, text)) {
        converters.TextToValue(leaf.Description(), place, text, values::DisplayFormat::Default);
    }
}

void StoreParameter(const TypeDef& leaf, ValueBuffer place, const ValueTypeHandler& handler,
                    const ParameterValue& value, const ValueConverterSet& converters) {
    switch (leaf.baseType) {
        case BaseTypeCode::String:
            StoreText(leaf, place, handler, value, converters);
            break;
        case BaseTypeCode::Float:
            values::StoreNumber(place, static_cast<float>(NumberOf(handler, value).value_or(0)));
            break;
        case BaseTypeCode::Double:
        case BaseTypeCode::OleDateTime:
            values::StoreNumber(place, NumberOf(handler, value).value_or(0));
            break;
        default:
            values::StoreInteger(place, leaf.storedSize, IntegerOf(handler, value).value_or(0));
    }
}

}  // namespace

bool GatherFromTexts(const GatheredValue& value, const NameListNode* texts,
                     const ValueConverterSet& converters) {
    TextsByPath textsByPath = IndexTexts(texts);
    ValueWalk walk = WalkOver(value);
    walk.TrackPaths("");
    while (walk.ToNextLeaf()) {
        const auto found = textsByPath.find(walk.Path());
        if (found != textsByPath.end() &&
            !StoreNextText(walk, value.bytes, found->second, converters)) {
            return false;
        }
    }
    return walk.IsComplete() &&
           std::all_of(textsByPath.begin(), textsByPath.end(), [&](const auto& path) {
               return StoreFurtherTexts(path.second, converters);
           });
}

bool GatherFromList(const GatheredValue& value, std::string_view addressText,
                    paramlist::ParameterList& list, const ValueConverterSet& converters) {
    const paramlist::ParameterAddress address = list.ParseAddress(addressText);
    if (address.kind == nullptr) {
        return false;
    }
    const ValueTypeHandler* handler = address.kind->Handler();
    std::uint32_t number = address.number;
    ValueWalk walk = WalkOver(value);
    while (walk.ToNextLeaf()) {
        const ParameterEntry* entry = list.EntryToRead(*address.kind, number++);
        if (handler != nullptr && entry != nullptr) {
            StoreParameter(walk.LeafType(), walk.Rest(value.bytes), *handler, entry->Value(),
                           converters);
        }
    }
    return walk.IsComplete();
}

}  // namespace orvell::host
