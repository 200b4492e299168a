#include "host/boundary_memory.h"
#include "host/guard.h"
#include "host/module.h"
#include "host/parameter_record.h"
#include "host/sized_record.h"
#include "host/standard_parameter_slots.h"
#include "host/value_gathering.h"

namespace orvell::host {

namespace {

bool Gather(const GatheredValue& value, const ParameterDescriptionRecord& record) {
    Module& module = TheModule();
    return record.texts != nullptr
               ? GatherFromTexts(value, record.texts, module.converters)
               : GatherFromList(value, record.address, module.parameters, module.converters);
}

int32_t Resolve(ParameterDescriptionRecord* hostRecord) {
    const ParameterDescriptionRecord record = ReadRecord(hostRecord);
    const memstruct::TypeDef* type = TypeOf(record.identifier);
    if (type == nullptr || type->recursive ||
        (record.texts == nullptr && record.address == nullptr)) {
        return kFailure;
    }
    const uint32_t count = ElementCount(record.count);
    BoundaryBytes bytes = ZeroedBytes(uint64_t{type->storedSize} * count);
    if (bytes.memory == nullptr || !Gather({*type, count, bytes.Span()}, record)) {
        return kFailure;
    }
    OwnedRecord resolved(record);
    resolved->length = bytes.length;
    resolved->bytes = bytes.memory.release();
    resolved.HandOver(hostRecord, false);
    return kSuccess;
}

}  // namespace

int32_t ORVELL_CALL slots::ResolveStdParameter(ParameterDescriptionRecord* record) noexcept {
    return Guarded(kFailure, [&] { return Resolve(record); });
}

}  // namespace orvell::host
