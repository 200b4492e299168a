#include "host/boundary_memory.h"
#include "host/guard.h"
#include "host/module.h"
#include "host/parameter_record.h"
#include "host/sized_record.h"
#include "host/standard_parameter_slots.h"

namespace orvell::host {

using memstruct::TypeDef;
using values::ConstValueBuffer;

namespace {

char* ParameterText(const ParameterRecord& record) {
    if (record.bytes == nullptr) {
        return nullptr;
    }
    const memstruct::MemoryStructureStore& store = TheModule().store;
    const TypeDef* type = TypeOf(record.identifier);
    const ConstValueBuffer bytes = ValueBytes(record);
    const bool bare = record.attribute != 0;
    std::string text;
    const bool done =
        IsVector(record.count)
            ? store.VectorText(type, bytes, record.count, FormatOf(record.format), bare, text)
            : store.ValueText(type, bytes, FormatOf(record.format), bare, text);
    return done && !text.empty() ? CopyText(text).release() : nullptr;
}

NameListNode* ParameterLeaves(const ParameterRecord& record) {
    const memstruct::MemoryStructureStore& store = TheModule().store;
    const TypeDef* type = TypeOf(record.identifier);
    const ConstValueBuffer bytes = ValueBytes(record);
    std::vector<memstruct::NamedText> leaves;
    const bool done = IsVector(record.count)
                          ? store.FlattenVector(type, bytes, record.count, leaves)
                          : store.FlattenValue(type, "", bytes, leaves);
    return done ? MakeNameList(leaves).release() : nullptr;
}

bool ParameterFits(const ParameterRecord& record) {
    const memstruct::MemoryStructureStore& store = TheModule().store;
    const TypeDef* type = TypeOf(record.identifier);
    return IsVector(record.count) ? store.CheckVectorFits(type, ValueBytes(record), record.count)
                                  : store.CheckValueFits(type, ValueBytes(record));
}

}  // namespace

namespace slots {

char* ORVELL_CALL GetStdParameterText(ParameterRecord* record) noexcept {
    return Guarded<char*>(nullptr, [&] { return ParameterText(ReadRecord(record)); });
}

NameListNode* ORVELL_CALL GetStdParameterTextList(ParameterRecord* record) noexcept {
    return Guarded<NameListNode*>(nullptr, [&] { return ParameterLeaves(ReadRecord(record)); });
}

uint32_t ORVELL_CALL GetStdStructSize(int32_t identifier) noexcept {
    return Guarded<uint32_t>(
        0, [&] { return memstruct::MemoryStructureStore::StoredSize(TypeOf(identifier)); });
}

int32_t ORVELL_CALL CheckStdParameter(ParameterRecord* record) noexcept {
    return Guarded<int32_t>(0, [&] { return ParameterFits(ReadRecord(record)) ? 1 : 0; });
}

}  // namespace slots

}  // namespace orvell::host
