#include <array>

#include "fuzz/boundary/definition_model.h"
#include "fuzz/boundary/host_record.h"
#include "fuzz/boundary/session.h"
#include "fuzz/require.h"

namespace orvell::fuzz {
namespace {

void RequireName(const char* actual, const char* expected, const char* what) {
    Require((actual == nullptr) == (expected == nullptr), what);
    Require(expected == nullptr || std::string(actual) == expected, what);
}

using TypeRecord = HostRecord<TypeInformationRecord>;

/// A record with rubbish in all words but the first.
template <typename Record>
Record Rubbish() {
    Record record;
    std::memset(static_cast<void*>(&record), 0xA5, sizeof record);
    return record;
}

/// The record emptied, whatever its size.
template <typename Record>
void RequireEmptied(HostRecord<Record>& record, Record expected) {
    std::string bytes = BytesOf(expected);
    bytes.resize(std::max<std::size_t>(bytes.size(), record.Size()));
    bytes.resize(record.Size());
    bytes.replace(0, sizeof(std::uint32_t), BytesOf(record.Size()));
    RequireSame(record.Bytes(), bytes, "a record is emptied, as far as it reaches");
}

/// Compares a type's description, gives its texts back, and sees the record emptied.
void RequireDescribed(Session& session, TypeRecord& record, const TypeInformationRecord& expected) {
    const TypeInformationRecord actual = record.Understood();
    RequireName(actual.name, record.Holds(8) ? expected.name : nullptr, "a type has its name");
    RequireName(actual.baseTypeName, record.Holds(16) ? expected.baseTypeName : nullptr,
                "a type has its base type's name");
    TypeInformationRecord rest = expected;
    rest.name = actual.name;
    rest.baseTypeName = actual.baseTypeName;
    RequireEmptied(record, rest);
    const std::string before = record.Bytes();
    session.standard.FreeStdTypeInfo(record.Pointer());
    TypeInformationRecord emptied{};
    RequireSame(record.Bytes(), record.With(emptied), "a released record is emptied");
    Require(before.size() == record.Bytes().size(), "a record keeps its size");
}

TypeInformationRecord DescriptionOf(const ModelArea& area) {
    return {sizeof(TypeInformationRecord),        area.kind,
            const_cast<char*>(area.typeName),     area.size,
            const_cast<char*>(area.baseTypeName), area.count};
}

/// The answer to one of the four questions after types.
void RequireAnswer(Session& session, TypeRecord& record, std::int32_t result,
                   const TypeInformationRecord& expected) {
    Require(result == (expected.size != 0 ? 1 : 0), "what is defined is described");
    RequireDescribed(session, record, expected);
}

void AskType(Session& session, Program& program) {
    const std::int32_t identifier = ChooseArea(program);
    TypeRecord record(program, Rubbish<TypeInformationRecord>());
    const ModelArea* const area = session.AreaOf(identifier);
    const std::int32_t result = session.standard.GetStdTypeInfo(identifier, record.Pointer());
    RequireAnswer(session, record, result,
                  area != nullptr ? DescriptionOf(*area) : TypeInformationRecord{});
    Require(session.standard.GetStdTypeInfo(identifier, nullptr) == 0, "no record, no answer");
    Require(session.standard.GetStdStructSize(identifier) == (area != nullptr ? area->size : 0),
            "areas have the sizes of their types");
}

void AskStructure(Session& session, Program& program) {
    const std::int32_t identifier = ChooseArea(program);
    TypeRecord record(program, Rubbish<TypeInformationRecord>());
    const ModelArea* const area = session.AreaOf(identifier);
    const std::int32_t result = session.standard.GetStdStructInfo(identifier, record.Pointer());
    const bool isDescribed = area != nullptr && area->kind == 3;
    RequireAnswer(session, record, result,
                  isDescribed ? DescriptionOf(*area) : TypeInformationRecord{});
}

std::uint32_t ChoosePosition(Program& program) {
    constexpr std::array<std::uint32_t, 8> kPositions = {0, 1, 2, 3, 4, 0xFFFFFFFF, 5, 6};
    return program.Pick(kPositions);
}

void AskEnumerator(Session& session, Program& program) {
    const std::int32_t identifier = ChooseArea(program);
    const std::uint32_t position = ChoosePosition(program);
    TypeRecord record(program, Rubbish<TypeInformationRecord>());
    const ModelArea* const area = session.AreaOf(identifier);
    const std::int32_t result =
        session.standard.GetStdEnumInfo(identifier, position, record.Pointer());
    TypeInformationRecord expected{};
    if (area != nullptr && position < area->enumerators.size()) {
        expected = DescriptionOf(*area);
        expected.baseTypeName = expected.name;
        expected.name = const_cast<char*>(area->enumerators[position].name);
        expected.count = area->enumerators[position].value;
    }
    RequireAnswer(session, record, result, expected);
}

TypeInformationRecord DescriptionOf(const ModelElement& element) {
    TypeInformationRecord unknown{};
    unknown.size = sizeof unknown;
    unknown.name = const_cast<char*>(element.typeName);
    return element.area != 0 ? DescriptionOf(*FindArea(element.area)) : unknown;
}

void AskElement(Session& session, Program& program) {
    const std::int32_t identifier = ChooseArea(program);
    ElementRecord asked = Rubbish<ElementRecord>();
    asked.index = ChoosePosition(program);
    HostRecord<ElementRecord> element(program, asked);
    TypeRecord record(program, Rubbish<TypeInformationRecord>());
    const std::uint32_t index = element.Understood().index;
    const ModelArea* const area = session.AreaOf(identifier);
    const std::int32_t result =
        session.standard.GetStdStructMemberInfo(identifier, element.Pointer(), record.Pointer());
    ElementRecord expected{};
    expected.index = index;
    TypeInformationRecord type{};
    if (area != nullptr && index < area->elements.size()) {
        const ModelElement& model = area->elements[index];
        type = DescriptionOf(model);
        const ElementRecord actual = element.Understood();
        RequireName(actual.name, element.Holds(4) ? model.name : nullptr, "elements have names");
        RequireName(actual.typeName, element.Holds(8) ? model.typeName : nullptr,
                    "elements have types");
        expected = {sizeof expected, actual.name,  actual.typeName, index,
                    model.dimension, model.offset, type.storedSize};
    }
    RequireEmptied(element, expected);
    RequireAnswer(session, record, result, type);
    session.standard.FreeStdElementRecord(element.Pointer());
    RequireSame(element.Bytes(), element.With({}), "a released record is emptied");
}

constexpr std::array kDefinitionOperations = {
    Operation{'i', AskType},
    Operation{'j', AskStructure},
    Operation{'E', AskEnumerator},
    Operation{'m', AskElement},
};

}  // namespace

std::span<const Operation> DefinitionOperations() {
    return kDefinitionOperations;
}

}  // namespace orvell::fuzz
