#include <cstdlib>

#include "host/boundary_memory.h"
#include "host/sized_record.h"
#include "host/standard_parameter_slots.h"

namespace orvell::host::slots {

void ORVELL_CALL FreeStdParameter(ParameterRecord* record) noexcept {
    const ParameterRecord taken = TakeRecord(record);
    std::free(taken.bytes);
}

void ORVELL_CALL FreeStdMemory(void* memory) noexcept {
    std::free(memory);
}

void ORVELL_CALL FreeStdTextList(NameListNode* list) noexcept {
    FreeNameList(list);
}

void ORVELL_CALL FreeStdElementRecord(ElementRecord* record) noexcept {
    const ElementRecord taken = TakeRecord(record);
    std::free(taken.name);
    std::free(taken.typeName);
}

void ORVELL_CALL FreeStdTypeInfo(TypeInformationRecord* record) noexcept {
    const TypeInformationRecord taken = TakeRecord(record);
    std::free(taken.name);
    std::free(taken.baseTypeName);
}

}  // namespace orvell::host::slots
