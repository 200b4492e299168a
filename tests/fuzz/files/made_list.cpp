#include "fuzz/files/made_list.h"

#include <algorithm>
#include <bit>
#include <map>
#include <string>
#include <vector>

#include "fuzz/files/german_strings.h"
#include "fuzz/files/kind_properties.h"
#include "paramlist/value_type_handler.h"

namespace orvell::fuzz {
namespace {

using paramlist::ParameterEntry;
using paramlist::ParameterKind;
using paramlist::ParameterList;
using paramlist::ParameterValue;
using paramlist::ValueTypeCode;
using paramlist::ValueTypeHandler;

/// More tell no more, and make inputs slow.
constexpr int kMaximumEntries = 40;

std::uint32_t TakeNumber(Input& input) {
    constexpr std::uint8_t kWide = 0xF0;
    const std::uint8_t small = input.TakeByte();
    return small < kWide ? small : static_cast<std::uint32_t>(input.TakeInteger(4));
}

void TakeValue(Input& input, const ParameterKind& kind, ParameterValue& value) {
    const ValueTypeHandler& handler = *kind.Handler();
    switch (kind.ValueType()) {
        case ValueTypeCode::Bit:
        case ValueTypeCode::Byte:
        case ValueTypeCode::Word:
            handler.SetFromWord(value, static_cast<std::uint16_t>(input.TakeInteger(2)));
            break;
        case ValueTypeCode::Integer64:
            handler.SetFromQword(value, input.TakeInteger(8));
            break;
        case ValueTypeCode::Float:
        case ValueTypeCode::OleDateTime:
            handler.SetFromDouble(value, std::bit_cast<double>(input.TakeInteger(8)));
            break;
        case ValueTypeCode::Text:
            handler.SetFromText(value, input.TakeText(input.TakeByte()));
            break;
        default:
            handler.SetFromDword(value, static_cast<std::uint32_t>(input.TakeInteger(4)));
            break;
    }
}

}  // namespace

ParameterList& EmptyList(Place place) {
    static std::map<Place, ParameterList> lists;
    const auto [found, isNew] = lists.try_emplace(place, GermanStrings());
    ParameterList& list = found->second;
    list.BuildOrClear();
    if (isNew) {
        RequireTableOfKinds(list);
    }
    list.SetProjectName("");
    return list;
}

void MakeList(ParameterList& list, Input& input) {
    constexpr std::uint8_t kIsDuplicate = 0x10;
    constexpr std::uint8_t kIsUndefined = 0x20;
    list.SetProjectName(std::string(input.TakeText(input.TakeByte())));
    for (int count = 0; count < kMaximumEntries && !input.IsEmpty(); ++count) {
        const std::uint8_t shape = input.TakeByte();
        ParameterKind& kind = list.Kinds()[(shape & 0x0F) % list.KindCount()];
        const std::uint32_t number = TakeNumber(input);
        ParameterEntry& entry = kind.Obtain(number, (shape & kIsDuplicate) != 0);
        entry.SetName(input.TakeText(input.TakeByte()));
        entry.SetComment(input.TakeText(input.TakeByte()));
        if ((shape & kIsUndefined) == 0) {
            TakeValue(input, kind, entry.Value());
        }
    }
}

void MakeLong(ParameterList& list) {
    constexpr std::size_t kBlock = 64 * 1024;
    const std::string part = list.ProjectName().empty() ? "x" : std::string(list.ProjectName());
    std::string text;
    while (text.size() < kBlock) {
        text += part;
    }
    ParameterKind& kind = *list.FindKind("PT");
    kind.Handler()->SetFromText(kind.Obtain(1, true).Value(), text);
}

void AddOldEntries(ParameterList& list) {
    const auto add = [](ParameterKind& kind, std::uint32_t number) {
        ParameterEntry& entry = kind.Obtain(number, true);
        entry.SetName("old name");
        entry.SetComment("old comment");
        kind.Handler()->SetFromText(entry.Value(), "7");
    };
    for (ParameterKind& kind : list.Kinds()) {
        add(kind, 1);
        add(kind, 12);
    }
    add(*list.FindKind("PW"), 12);
    list.SetFlagsAll(paramlist::kDeclaredMark | 5, true);
}

void AddChanged(ParameterList& to, const PlainList& list, const PlainList& before) {
    for (const PlainEntry& plain : list) {
        if (std::ranges::find(before, plain) == before.end()) {
            ParameterEntry& entry = to.FindKind(plain.keyword)->Obtain(plain.number, true);
            entry.SetName(plain.name);
            entry.SetComment(plain.comment);
            entry.Value().Assign(std::vector<std::uint8_t>(plain.value.begin(), plain.value.end()));
        }
    }
}

}  // namespace orvell::fuzz
