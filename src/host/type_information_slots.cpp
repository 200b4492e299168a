#include "host/boundary_memory.h"
#include "host/guard.h"
#include "host/module.h"
#include "host/parameter_record.h"
#include "host/sized_record.h"
#include "host/standard_parameter_slots.h"

namespace orvell::host {

using memstruct::StructItem;
using memstruct::TypeDef;
using values::BaseTypeCode;
using TypeInformation = OwnedRecord<TypeInformationRecord>;
using ElementInformation = OwnedRecord<ElementRecord>;

namespace {

constexpr uint32_t kBasicType = 1;
constexpr uint32_t kEnumerated = 2;
constexpr uint32_t kStructured = 3;

void Describe(const TypeDef& type, TypeInformation& information) {
    information->name = CopyText(type.name).release();
    information->storedSize = type.storedSize;
    switch (type.baseType) {
        case BaseTypeCode::Structured:
            information->kind = kStructured;
            information->count = static_cast<uint32_t>(type.structItems.size());
            break;
        case BaseTypeCode::Enumerated:
            information->kind = kEnumerated;
            information->count = static_cast<uint32_t>(type.enumItems.Items().size());
            break;
        default: {
            const auto code = static_cast<uint32_t>(type.baseType);
            const auto nameId = static_cast<resources::StringId>(code);
            information->kind = kBasicType;
            information->baseTypeName = CopyText(TheModule().strings.Text(nameId)).release();
            information->count = code;
        }
    }
}

bool DescribeType(int32_t identifier, TypeInformation& information) {
    const TypeDef* type = TypeOf(identifier);
    if (type == nullptr) {
        return false;
    }
    Describe(*type, information);
    return true;
}

const TypeDef* StructureOf(int32_t identifier) {
    const TypeDef* type = TypeOf(identifier);
    return type != nullptr && type->IsStructured() ? type : nullptr;
}

bool DescribeStructure(int32_t identifier, TypeInformation& information) {
    const TypeDef* type = StructureOf(identifier);
    if (type == nullptr) {
        return false;
    }
    Describe(*type, information);
    return true;
}

/// An enumerator is described by the same record: its name and value in the type's place.
bool DescribeEnumerator(int32_t identifier, uint32_t position, TypeInformation& information) {
    const TypeDef* type = TypeOf(identifier);
    if (type == nullptr || position >= type->enumItems.Items().size()) {
        return false;
    }
    const values::EnumItem& enumerator = type->enumItems.Items()[position];
    information->kind = kEnumerated;
    information->name = CopyText(enumerator.name).release();
    information->storedSize = type->storedSize;
    information->baseTypeName = CopyText(type->name).release();
    information->count = enumerator.value;
    return true;
}

/// Of a type that no definition has, only the name is known.
void DescribeTypeOf(const StructItem& item, TypeInformation& information) {
    if (item.type == nullptr) {
        information->name = CopyText(item.typeName).release();
    } else {
        Describe(*item.type, information);
    }
}

bool DescribeMember(int32_t identifier, uint32_t index, ElementInformation& element,
                    TypeInformation& information) {
    const TypeDef* structure = StructureOf(identifier);
    if (structure == nullptr || index >= structure->structItems.size()) {
        return false;
    }
    const StructItem& item = structure->structItems[index];
    element->name = CopyText(item.name).release();
    element->typeName = CopyText(item.typeName).release();
    element->dimension = item.dimension;
    element->offset = item.offset;
    element->width = item.type == nullptr ? 0 : item.type->storedSize;
    DescribeTypeOf(item, information);
    return true;
}

/// Lets `describe` fill a type-information record and hands it over; on failure the host's record
/// is emptied.
template <typename Description>
int32_t Answer(TypeInformationRecord* hostRecord, const Description& describe) noexcept {
    if (hostRecord == nullptr) {
        return kFailure;
    }
    TypeInformation information;
    const bool isDescribed = Guarded(false, [&] { return describe(information); });
    if (isDescribed) {
        information.HandOver(hostRecord, true);
    } else {
        TypeInformation().HandOver(hostRecord, true);
    }
    return isDescribed ? kSuccess : kFailure;
}

/// As `Answer` for an element; the index that the host has asked for stays in its record.
int32_t AnswerMember(int32_t identifier, ElementRecord* hostElement,
                     TypeInformationRecord* hostRecord) noexcept {
    const uint32_t index = ReadRecord(hostElement).index;
    ElementInformation element;
    const int32_t result = Answer(hostRecord, [&](TypeInformation& information) {
        return hostElement != nullptr && DescribeMember(identifier, index, element, information);
    });
    ElementInformation empty;
    ElementInformation& answer = result == kSuccess ? element : empty;
    answer->index = index;
    answer.HandOver(hostElement, true);
    return result;
}

}  // namespace

namespace slots {

int32_t ORVELL_CALL GetStdStructMemberInfo(int32_t identifier, ElementRecord* element,
                                           TypeInformationRecord* record) noexcept {
    return AnswerMember(identifier, element, record);
}

int32_t ORVELL_CALL GetStdStructInfo(int32_t identifier, TypeInformationRecord* record) noexcept {
    return Answer(record, [&](TypeInformation& information) {
        return DescribeStructure(identifier, information);
    });
}

int32_t ORVELL_CALL GetStdTypeInfo(int32_t identifier, TypeInformationRecord* record) noexcept {
    return Answer(record, [&](TypeInformation& information) {
        return DescribeType(identifier, information);
    });
}

int32_t ORVELL_CALL GetStdEnumInfo(int32_t identifier, uint32_t position,
                                   TypeInformationRecord* record) noexcept {
    return Answer(record, [&](TypeInformation& information) {
        return DescribeEnumerator(identifier, position, information);
    });
}

}  // namespace slots

}  // namespace orvell::host
