#include "host/guard.h"
#include "host/module.h"
#include "host/sized_record.h"
#include "host/standard_parameter_slots.h"
#include "platform/module_hold.h"

namespace orvell::host {

namespace {

constexpr int32_t kAccepted = 1;
constexpr int32_t kNotAccepted = 0;

bool Edit(DialogParameterRecord* record, const OnlineAccessRecord& online) noexcept {
    return Guarded(false, [&] {
        const Module& module = TheModule();
        const ui::EditorServices services{module.store,          module.converters,
                                          module.strings,        module.messageBoxes,
                                          module.app.Instance(), module.app.ResourceHandle()};
        return module.editor != nullptr && module.editor->Edit(record, online, services);
    });
}

/// While the user edits, the record is ours and the host's is empty. What the user does not accept
/// goes back to the last bit as it came, half pointers included.
int32_t EditHostRecord(DialogParameterRecord* hostRecord, const OnlineAccessRecord& online) {
    DialogParameterRecord original{};
    original.size = sizeof(original);
    CopySizedTable(static_cast<void*>(hostRecord), &original, false);
    DialogParameterRecord edited = original;
    DropCutPointer(&edited, hostRecord->size, kPointerOffsets<DialogParameterRecord>);
    if (!Edit(&edited, online)) {
        CopySizedTable(static_cast<void*>(&original), hostRecord, false);
        return kNotAccepted;
    }
    OwnedRecord(edited).HandOver(hostRecord, false);
    return kAccepted;
}

}  // namespace

namespace slots {

int32_t ORVELL_CALL EditStdParameter(DialogParameterRecord* record,
                                     OnlineAccessRecord* online) noexcept {
    const platform::ModuleHold hold;
    const OnlineAccessRecord access = ReadRecord(online);
    if (record == nullptr) {
        return Edit(nullptr, access) ? kAccepted : kNotAccepted;
    }
    return EditHostRecord(record, access);
}

}  // namespace slots

}  // namespace orvell::host
