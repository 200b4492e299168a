#include "host/guard.h"
#include "host/module.h"
#include "host/sized_record.h"
#include "host/standard_parameter_slots.h"
#include "orvell/orvell.h"

using orvell::host::Guarded;

extern "C" int32_t ORVELL_CALL SetZelkorExportFctns(HostExportTable* table) {
    Guarded([table] { orvell::host::TheModule().callbacks.Install(table); });
    return 1;
}

extern "C" int32_t ORVELL_CALL GetStdParaFctns(void* table) {
    if (table == nullptr) {
        return 0;
    }
    StdParaFunctionTable own = orvell::host::MakeStdParaFunctionTable();
    orvell::host::HandOverTable(&own, table);
    return 1;
}
