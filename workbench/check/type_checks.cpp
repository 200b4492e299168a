#include <algorithm>
#include <cstddef>

#include "check/checks.h"
#include "check/slot_calls.h"

// The slots that describe types, elements and enumerators.

namespace workbench::check {
namespace {

using InformationRecord = HostRecord<TypeInformationRecord>;

/// A record of `size` bytes full of what the module must overwrite.
InformationRecord Information(Bench& bench, std::uint32_t size) {
    TypeInformationRecord garbage{};
    bench.Random().Fill({reinterpret_cast<std::uint8_t*>(&garbage), sizeof garbage});
    return {bench, garbage, size, "type-information record"};
}

HostRecord<ElementRecord> Element(Bench& bench, std::uint32_t index, std::uint32_t size) {
    ElementRecord garbage{};
    bench.Random().Fill({reinterpret_cast<std::uint8_t*>(&garbage), sizeof garbage});
    garbage.index = index;
    return {bench, garbage, size, "element record"};
}

bool Is(const char* text, std::string_view expected) {
    return text != nullptr && expected == text;
}

/// The record as far as it reaches: `expected`, with texts compared as texts, or all zero.
void ExpectDescription(Bench& bench, const InformationRecord& record, bool isDescribed,
                       const TypeInformationRecord& expected) {
    const TypeInformationRecord said = record.Content();
    const std::uint32_t size = record.DeclaredSize();
    bench.Expect(record.KeepsItsSize(), "the record keeps its size", {size});
    bench.Expect(record.IsZeroFrom(isDescribed ? sizeof said : sizeof said.size),
                 "the rest of the record is zero", {size});
    if (!isDescribed) {
        return;
    }
    const auto expectWord = [&](std::size_t offset, std::uint32_t word, std::uint32_t wanted) {
        bench.Expect(!record.Reaches(offset) || word == wanted,
                     "word; size, offset, word, expected",
                     {size, static_cast<int>(offset), word, wanted});
    };
    const auto expectText = [&](std::size_t offset, const char* text, const char* wanted) {
        const bool isRight = !record.Reaches(offset) ? text == nullptr || size > offset
                             : wanted == nullptr     ? text == nullptr
                                                     : Is(text, wanted);
        bench.Expect(isRight, "text; size, offset", {size, static_cast<int>(offset)});
    };
    expectWord(offsetof(TypeInformationRecord, kind), said.kind, expected.kind);
    expectText(offsetof(TypeInformationRecord, name), said.name, expected.name);
    expectWord(offsetof(TypeInformationRecord, storedSize), said.storedSize, expected.storedSize);
    expectText(offsetof(TypeInformationRecord, baseTypeName), said.baseTypeName,
               expected.baseTypeName);
    if (expected.kind != 1) {  // a basic type's code is the module's own
        expectWord(offsetof(TypeInformationRecord, count), said.count, expected.count);
    }
}

void Release(Bench& bench, const InformationRecord& record) {
    bench.Call("FreeStdTypeInfo", [&] { bench.Slots().FreeStdTypeInfo(record.Get()); });
}

struct KnownType {
    std::int32_t area;
    std::uint32_t kind;
    const char* name;
    std::uint32_t storedSize;
    const char* baseTypeName;
    std::uint32_t count;

    [[nodiscard]] TypeInformationRecord Record() const {
        return {sizeof(TypeInformationRecord),   kind, const_cast<char*>(name), storedSize,
                const_cast<char*>(baseTypeName), count};
    }
};

constexpr KnownType kTypes[] = {
    {kWordArea, 1, "Word", 2, "UINT", 0},           {kLabelArea, 1, "Label", 8, "STRING", 0},
    {kModeArea, 2, "Mode", 1, nullptr, 3},          {kPointArea, 3, "Point", 6, nullptr, 2},
    {kAllArea, 3, "All", 75, nullptr, 17},          {kPartlyArea, 3, "Partly", 2, nullptr, 2},
    {kLoopArea, 3, "Loop", 0, nullptr, 1},          {kFarArea, 1, "Word", 2, "UINT", 0},
    {kHugeArea, 3, "Huge", 4294967294, nullptr, 1},
};

using DescribeSlot = std::int32_t(ORVELL_CALL*)(std::int32_t, TypeInformationRecord*);

void CheckTypes(Bench& bench, std::string_view name, DescribeSlot slot, bool structuresOnly) {
    bench.LoadDefinitions();
    for (const KnownType& type : kTypes) {
        for (std::uint32_t size = 0; size <= sizeof(TypeInformationRecord) + 12; ++size) {
            const InformationRecord record = Information(bench, size);
            const std::int32_t result =
                bench.Call(name, [&] { return slot(type.area, record.Get()); });
            const bool isDescribed = !structuresOnly || type.kind == 3;
            bench.Expect(result == (isDescribed ? 1 : 0), "the result; area, size, result",
                         {type.area, size, result});
            ExpectDescription(bench, record, isDescribed, type.Record());
            Release(bench, record);
        }
    }
    for (std::int32_t id : UnknownAreas(bench)) {
        const InformationRecord record = Information(bench, 24 + bench.Random().Below(9));
        const std::int32_t result = bench.Call(name, [&] { return slot(id, record.Get()); });
        bench.Expect(result == 0, "an unknown area is refused; area", {id});
        ExpectDescription(bench, record, false, {});
    }
    const std::int32_t result = bench.Call(name, [&] { return slot(kPointArea, nullptr); });
    bench.Expect(result == 0, "a null record is refused");
    bench.ExpectBalanced(name, [&] {
        for (const std::uint32_t size : {4U, 8U, 10U, 12U, 18U, 20U, 24U, 30U}) {
            const InformationRecord record = Information(bench, size);
            bench.Call(name, [&] { return slot(kPointArea, record.Get()); });
            Release(bench, record);
        }
    });
}

void TypeInformation(Bench& bench) {
    CheckTypes(bench, "GetStdTypeInfo", bench.Slots().GetStdTypeInfo, false);
}

void StructInformation(Bench& bench) {
    CheckTypes(bench, "GetStdStructInfo", bench.Slots().GetStdStructInfo, true);
}

void EnumInformation(Bench& bench) {
    bench.LoadDefinitions();
    constexpr KnownType kEnumerators[] = {{kModeArea, 2, "Off", 1, "Mode", 0},
                                          {kModeArea, 2, "On", 1, "Mode", 1},
                                          {kModeArea, 2, "Fault", 1, "Mode", 255}};
    const auto ask = [&](std::int32_t id, std::uint32_t position, TypeInformationRecord* record) {
        return bench.Call("GetStdEnumInfo",
                          [&] { return bench.Slots().GetStdEnumInfo(id, position, record); });
    };
    for (std::uint32_t position = 0; position < 5; ++position) {
        for (std::uint32_t size = 0; size <= sizeof(TypeInformationRecord) + 12; ++size) {
            const InformationRecord record = Information(bench, size);
            const bool isDescribed = position < std::size(kEnumerators);
            bench.Expect(ask(kModeArea, position, record.Get()) == (isDescribed ? 1 : 0),
                         "the result; position, size", {position, size});
            ExpectDescription(
                bench, record, isDescribed,
                isDescribed ? kEnumerators[position].Record() : TypeInformationRecord{});
            Release(bench, record);
        }
    }
    for (const std::int32_t id : {kWordArea, kPointArea, kLoopArea, kLostArea, 0}) {
        const InformationRecord record = Information(bench, sizeof(TypeInformationRecord));
        bench.Expect(ask(id, 0, record.Get()) == 0, "no enumeration; area", {id});
        ExpectDescription(bench, record, false, {});
    }
    for (int i = 0; i < 50; ++i) {
        const InformationRecord record = Information(bench, sizeof(TypeInformationRecord));
        bench.Expect(ask(kModeArea, 3 + bench.Random().Below(0xFFFFFFF0), record.Get()) == 0,
                     "no enumerator behind the last");
    }
    bench.Expect(ask(kModeArea, 0, nullptr) == 0, "a null record is refused");
    bench.ExpectBalanced("GetStdEnumInfo", [&] {
        for (const std::uint32_t size : {4U, 10U, 12U, 20U, 24U}) {
            const InformationRecord record = Information(bench, size);
            ask(kModeArea, 1, record.Get());
            Release(bench, record);
        }
    });
}

struct KnownElement {
    std::int32_t area;
    std::uint32_t index;
    const char* name;
    const char* typeName;
    std::uint32_t dimension;
    std::uint32_t offset;
    std::uint32_t width;
};

constexpr KnownElement kElements[] = {
    {kPointArea, 0, "x", "Word", 1, 0, 2},
    {kPointArea, 1, "y", "Word", 2, 2, 2},
    {kAllArea, 0, "i1", "I1", 1, 0, 1},
    {kAllArea, 9, "d", "DOUBLE", 1, 34, 8},
    {kAllArea, 16, "m", "Mode", 1, 74, 1},
    {kPartlyArea, 1, "lost", "Nothing", 1, 2, 0},
    {kHugeArea, 0, "words", "Word", 2147483647, 0, 2},
};

void ExpectElement(Bench& bench, const HostRecord<ElementRecord>& record,
                   const KnownElement& expected) {
    const ElementRecord said = record.Content();
    const auto expect = [&](bool isRight, std::size_t offset) {
        bench.Expect(
            !record.Reaches(offset) || isRight, "the element; area, index, size, offset",
            {expected.area, expected.index, record.DeclaredSize(), static_cast<int>(offset)});
    };
    const std::uint32_t index = record.Reaches(offsetof(ElementRecord, index)) ? expected.index : 0;
    const bool isExpected = index == expected.index;  // a short record asks for the first element
    expect(!isExpected || Is(said.name, expected.name), offsetof(ElementRecord, name));
    expect(!isExpected || Is(said.typeName, expected.typeName), offsetof(ElementRecord, typeName));
    expect(said.index == expected.index, offsetof(ElementRecord, index));
    expect(said.dimension == expected.dimension, offsetof(ElementRecord, dimension));
    expect(said.offset == expected.offset, offsetof(ElementRecord, offset));
    expect(said.width == expected.width, offsetof(ElementRecord, width));
    bench.Expect(record.KeepsItsSize() && record.IsZeroFrom(sizeof(ElementRecord)),
                 "size and rest of the element record", {record.DeclaredSize()});
}

std::int32_t AskMember(Bench& bench, std::int32_t id, ElementRecord* element,
                       TypeInformationRecord* record) {
    return bench.Call("GetStdStructMemberInfo",
                      [&] { return bench.Slots().GetStdStructMemberInfo(id, element, record); });
}

void ReleaseElement(Bench& bench, const HostRecord<ElementRecord>& element) {
    bench.Call("FreeStdElementRecord", [&] { bench.Slots().FreeStdElementRecord(element.Get()); });
}

void MemberInformation(Bench& bench) {
    bench.LoadDefinitions();
    for (const KnownElement& known : kElements) {
        for (std::uint32_t size = 0; size <= sizeof(ElementRecord) + 12; ++size) {
            const HostRecord<ElementRecord> element = Element(bench, known.index, size);
            const InformationRecord record = Information(bench, size);
            const bool asksForIt =
                element.Reaches(offsetof(ElementRecord, index)) || known.index == 0;
            const std::int32_t result = AskMember(bench, known.area, element.Get(), record.Get());
            if (asksForIt) {
                bench.Expect(result == 1, "the result; area, index, size",
                             {known.area, known.index, size});
                ExpectElement(bench, element, known);
            }
            bench.Expect(record.KeepsItsSize(), "the record keeps its size", {size});
            Release(bench, record);
            ReleaseElement(bench, element);
        }
    }
}

void MemberRefusals(Bench& bench) {
    bench.LoadDefinitions();
    const auto expectRefused = [&](std::int32_t id, std::uint32_t index) {
        const HostRecord<ElementRecord> element =
            Element(bench, index, sizeof(ElementRecord) + bench.Random().Below(8));
        const InformationRecord record = Information(bench, sizeof(TypeInformationRecord));
        bench.Expect(AskMember(bench, id, element.Get(), record.Get()) == 0, "refused; area, index",
                     {id, index});
        const ElementRecord said = element.Content();
        bench.Expect(said.name == nullptr && said.typeName == nullptr && said.index == index &&
                         element.IsZeroFrom(offsetof(ElementRecord, dimension)),
                     "the element record is empty but for its index", {id, index});
        ExpectDescription(bench, record, false, {});
    };
    expectRefused(kPointArea, 2);
    expectRefused(kWordArea, 0);
    expectRefused(kModeArea, 0);
    expectRefused(kLostArea, 0);
    for (const std::int32_t id : UnknownAreas(bench)) {
        expectRefused(id, 0);
        expectRefused(kAllArea, 17 + bench.Random().Below(0xFFFFFF00));
    }
    const InformationRecord record = Information(bench, sizeof(TypeInformationRecord));
    bench.Expect(AskMember(bench, kPointArea, nullptr, record.Get()) == 0, "no element is refused");
    ExpectDescription(bench, record, false, {});
    const HostRecord<ElementRecord> element = Element(bench, 0, sizeof(ElementRecord));
    bench.Expect(AskMember(bench, kPointArea, element.Get(), nullptr) == 0, "no record is refused");
    bench.Expect(element.Content().name == nullptr,
                 "the element record is empty without the other");
}

void MemberBalance(Bench& bench) {
    bench.LoadDefinitions();
    bench.ExpectBalanced("GetStdStructMemberInfo", [&] {
        for (const std::uint32_t size : {4U, 8U, 10U, 12U, 14U, 24U, 28U, 32U}) {
            const HostRecord<ElementRecord> element = Element(bench, 0, size);
            const InformationRecord record = Information(bench, size);
            AskMember(bench, kPointArea, element.Get(), record.Get());
            Release(bench, record);
            ReleaseElement(bench, element);
        }
    });
}

constexpr Check kChecks[] = {
    {"types", "14 GetStdStructMemberInfo describes elements, records of every size",
     MemberInformation},
    {"types", "14 GetStdStructMemberInfo empties both records on failure", MemberRefusals},
    {"types", "14 GetStdStructMemberInfo leaves nothing behind", MemberBalance},
    {"types", "16 GetStdStructInfo describes structures only, records of every size",
     StructInformation},
    {"types", "23 GetStdTypeInfo describes types, records of every size", TypeInformation},
    {"types", "25 GetStdEnumInfo lists enumerators, records of every size", EnumInformation},
};

}  // namespace

std::span<const Check> TypeChecks() {
    return kChecks;
}

}  // namespace workbench::check
