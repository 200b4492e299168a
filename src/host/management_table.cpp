#include <cstring>

#include "host/management_slots.h"
#include "host/module.h"
#include "host/sized_record.h"

namespace orvell::host {

ManagementTable MakeManagementTable() {
    return {
        .size = sizeof(ManagementTable),
        .LoadList = management::LoadList,
        .SaveList = management::SaveList,
        .ClearList = management::ClearList,
        .BeginUpdate = management::BeginUpdate,
        .DeclareParameter = management::DeclareParameter,
        .EndUpdate = management::EndUpdate,
        .SetDoubleVector = management::SetDoubleVector,
        .SetValueFromText = management::SetValueFromText,
        .GetName = management::GetName,
        .GetComment = management::GetComment,
        .ImportIntoList = management::ImportIntoList,
        .ExportAndOpenList = management::ExportAndOpenList,
        .ImportNewList = management::ImportNewList,
        .ExportList = management::ExportList,
        .GetValue = management::GetValue,
        .SetValue = management::SetValue,
        .SetCallToken = management::SetCallToken,
    };
}

}  // namespace orvell::host

extern "C" int32_t ORVELL_CALL GetParaMGMTFunc(void* table) {
    using namespace orvell::host;
    std::uint32_t size = 0;
    if (table != nullptr) {
        std::memcpy(&size, table, sizeof size);
    }
    if (size == 0) {
        return 0;
    }
    TheModule().callTokens.Reset();
    ManagementTable own = MakeManagementTable();
    CopySizedTable(static_cast<void*>(&own), table, true);
    return 1;
}
