#include <algorithm>
#include <cstddef>

#include "check/checks.h"
#include "check/slot_calls.h"

// The slot that opens the parameter dialog. The dialog is answered as soon as it is there.

namespace workbench::check {
namespace {

/// Bytes of the module for one element of an area, as they come from the resolving slot.
void* ModuleBytes(Bench& bench, std::int32_t area) {
    ParameterDescriptionRecord record{};
    record.size = sizeof record;
    record.identifier = area;
    record.count = 1;
    record.address = "PW1";
    bench.Call("ResolveStdParameter", [&] { return bench.Slots().ResolveStdParameter(&record); });
    return record.bytes;
}

DialogParameterRecord DialogParameter(std::int32_t area, void* bytes, std::uint32_t length) {
    DialogParameterRecord record{};
    record.size = sizeof record;
    record.identifier = area;
    record.count = 1;
    record.length = length;
    record.bytes = bytes;
    record.boxWidth = 100;
    record.name = "checked";
    record.extension = "";
    record.format = 0x80;
    return record;
}

std::int32_t Edit(Bench& bench, const HostRecord<DialogParameterRecord>& record, int button) {
    bench.Boxes().AnswerWith(button);
    const std::int32_t result = bench.Call(
        "EditStdParameter", [&] { return bench.Slots().EditStdParameter(record.Get(), nullptr); });
    bench.Boxes().AnswerWith(IDOK);
    bench.Expect(bench.Boxes().TakeCount() > 0, "a dialog or a message was shown");
    return result;
}

void Free(Bench& bench, void* bytes) {
    bench.Call("FreeStdMemory", [&] { bench.Slots().FreeStdMemory(bytes); });
}

/// OK leaves a value that the module has allocated; what does not fit into the record is freed.
void Accepted(Bench& bench) {
    bench.LoadDefinitions();
    bench.BeginList();
    for (const std::uint32_t size : {16U, 32U, 34U, 36U, 37U, 52U, 60U}) {
        const bool takesBytes = size >= offsetof(DialogParameterRecord, boxWidth);
        void* bytes = takesBytes ? ModuleBytes(bench, kPointArea) : nullptr;
        const HostRecord<DialogParameterRecord> record(bench, DialogParameter(kPointArea, bytes, 6),
                                                       size, "dialog parameter record");
        const std::int32_t result = Edit(bench, record, IDOK);
        const DialogParameterRecord said = record.Content();
        bench.Expect(result == 1, "accepted; size, result", {size, result});
        bench.Expect(record.KeepsItsSize() && record.IsUntouchedBehind(),
                     "size and bytes behind the record stay", {size});
        if (takesBytes) {
            ParameterRecord value =
                ParameterOf(kPointArea, 1, {static_cast<std::uint8_t*>(said.bytes), said.length});
            bench.Expect(TakeText(bench, &value) == "0; 0; 0", "the value is as it was", {size});
            Free(bench, said.bytes);
        }
    }
}

void Cancelled(Bench& bench) {
    bench.LoadDefinitions();
    bench.BeginList();
    for (std::uint32_t size = 0; size <= sizeof(DialogParameterRecord) + 8; size += 6) {
        void* bytes = ModuleBytes(bench, kPointArea);
        const HostRecord<DialogParameterRecord> record(bench, DialogParameter(kPointArea, bytes, 6),
                                                       size, "dialog parameter record");
        const std::int32_t result = Edit(bench, record, IDCANCEL);
        bench.Expect(result == 0, "cancelled; size, result", {size, result});
        bench.Expect(record.IsUnchanged(), "the record is unchanged", {size});
        Free(bench, bytes);
    }
}

void Refused(Bench& bench) {
    bench.LoadDefinitions();
    bench.BeginList();
    for (const std::int32_t area : {kLostArea, 0, -1, 12345}) {
        void* bytes = ModuleBytes(bench, kPointArea);
        const HostRecord<DialogParameterRecord> record(bench, DialogParameter(area, bytes, 6),
                                                       sizeof(DialogParameterRecord),
                                                       "dialog parameter record");
        bench.Expect(Edit(bench, record, IDOK) == 0, "nothing to edit; area", {area});
        bench.Expect(record.IsUnchanged(), "the record is unchanged", {area});
        Free(bench, bytes);
    }
    const std::int32_t result = bench.Call(
        "EditStdParameter", [&] { return bench.Slots().EditStdParameter(nullptr, nullptr); });
    bench.Expect(result == 0, "a null record is refused");
}

constexpr Check kChecks[] = {
    {"dialog", "1 EditStdParameter gives back what was accepted", Accepted},
    {"dialog", "1 EditStdParameter leaves the record when it is cancelled", Cancelled},
    {"dialog", "1 EditStdParameter refuses what there is not", Refused},
};

}  // namespace

std::span<const Check> DialogChecks() {
    return kChecks;
}

}  // namespace workbench::check
