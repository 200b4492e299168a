#include <algorithm>
#include <cstddef>
#include <vector>

#include "check/checks.h"
#include "check/host_functions.h"
#include "check/slot_calls.h"

// The slots that carry values to and from the host's functions.

namespace workbench::check {
namespace {

using Family = HostCall::Family;

/// What a transfer slot is given and what it left.
struct Transfer {
    std::int32_t result;
    bool isRecordUnchanged;
    ParameterRecord record;  ///< as it is afterwards
};

using RunSlot = std::int32_t (*)(Bench&, ParameterRecord*, HostFunctions&);

std::int32_t Convert(Bench& bench, ParameterRecord* record, HostFunctions&) {
    OnlineAccessRecord online = HostFunctions::Online();
    return bench.Call("ConvertStdParameter",
                      [&] { return bench.Slots().ConvertStdParameter(record, &online); });
}

std::int32_t ReadOnline(Bench& bench, ParameterRecord* record, HostFunctions& host) {
    OnlineAccessRecord online = HostFunctions::Online();
    return bench.Call("ReadStdParameterOnline", [&] {
        return bench.Slots().ReadStdParameterOnline(record, &online, &host.cancel);
    });
}

std::int32_t WriteOnline(Bench& bench, ParameterRecord* record, HostFunctions& host) {
    OnlineAccessRecord online = HostFunctions::Online();
    return bench.Call("WriteStdParameterOnline", [&] {
        return bench.Slots().WriteStdParameterOnline(record, &online, &host.cancel);
    });
}

std::int32_t FillValue(Bench& bench, ParameterRecord* record, HostFunctions&) {
    FillRecord fill = HostFunctions::Fill();
    return bench.Call("FillStdParameterValue",
                      [&] { return bench.Slots().FillStdParameterValue(record, &fill); });
}

std::int32_t FillInPlace(Bench& bench, ParameterRecord* record, HostFunctions&) {
    FillRecord fill = HostFunctions::Fill();
    return bench.Call("FillStdParameterValueInPlace",
                      [&] { return bench.Slots().FillStdParameterValueInPlace(record, &fill); });
}

struct TransferSlot {
    std::string_view name;
    RunSlot run;
    Family family;
    bool givesNewBytes;      ///< into the record; the others use those that it has
    std::int32_t onFailure;  ///< the result when a host's function refuses
    bool stopsAtFailure;
    bool isCancellable;
};

constexpr TransferSlot kConvert{
    "ConvertStdParameter", Convert, Family::Setter, false, 0, true, false};
constexpr TransferSlot kRead{
    "ReadStdParameterOnline", ReadOnline, Family::Getter, true, -1, true, true};
constexpr TransferSlot kWrite{
    "WriteStdParameterOnline", WriteOnline, Family::Alternative, false, 0, true, true};
constexpr TransferSlot kFill{
    "FillStdParameterValue", FillValue, Family::Raw, true, 0, false, false};
constexpr TransferSlot kFillInPlace{
    "FillStdParameterValueInPlace", FillInPlace, Family::Raw, false, 0, false, false};

constexpr TransferSlot kAllSlots[] = {kConvert, kRead, kWrite, kFill, kFillInPlace};

/// Calls the slot with a record of `size` bytes about the bytes; new ones are released.
Transfer RunOnce(Bench& bench, const TransferSlot& slot, const ParameterRecord& content,
                 HostFunctions& host, std::uint32_t size = sizeof(ParameterRecord)) {
    const HostRecord<ParameterRecord> record(bench, content, size, "parameter record");
    const std::int32_t result = slot.run(bench, record.Get(), host);
    const Transfer transfer{result, record.IsUnchanged(), record.Content()};
    bench.Expect(record.KeepsItsSize() && record.IsUntouchedBehind(),
                 "size and bytes behind the record stay", {size});
    if (transfer.record.bytes != content.bytes &&
        record.Reaches(offsetof(ParameterRecord, bytes))) {
        bench.Call("FreeStdParameter", [&] { bench.Slots().FreeStdParameter(record.Get()); });
    }
    return transfer;
}

void ExpectCall(Bench& bench, const TransferSlot& slot, const HostCall& call, const AreaModel& area,
                std::size_t index) {
    const LeafModel& leaf = area.leaves[index % area.leaves.size()];
    const auto element = static_cast<std::uint32_t>(index / area.leaves.size());
    const auto number = static_cast<int>(index);
    bench.Expect(call.family == slot.family, "the function's family; area, call",
                 {area.id, number});
    bench.Expect(call.first == element && call.second == leaf.offset,
                 "element and offset; area, call, element, offset",
                 {area.id, number, call.first, call.second});
    if (slot.family == Family::Raw) {
        bench.Expect(call.width == leaf.width && call.kind == leaf.rawKind,
                     "width and kind; area, call, width, kind",
                     {area.id, number, call.width, call.kind});
        return;
    }
    bench.Expect(call.carrier == leaf.carrier, "the function for the type; area, call",
                 {area.id, number});
    if (leaf.carrier == Carrier::Text) {
        const bool isRight =
            slot.family == Family::Getter ? call.width == leaf.width : call.width < leaf.width;
        bench.Expect(isRight, "a text within its width; area, call, length",
                     {area.id, number, call.width});
    }
}

/// Every leaf of every area, as single value and as vector, through the right function.
void CheckLeaves(Bench& bench, const TransferSlot& slot) {
    bench.LoadDefinitions();
    HostFunctions host;
    for (const AreaModel& area : Areas()) {
        for (std::uint32_t count = 1; count <= 3; ++count) {
            host.Reset();
            const GuardedBlock bytes = bench.Block(std::size_t{area.size} * count, "value");
            bench.Random().Fill(bytes.Bytes());
            const ParameterRecord content = ParameterOf(area.id, count, bytes.Bytes());
            const Transfer transfer = RunOnce(bench, slot, content, host);
            bench.Expect(transfer.result == 1, "the result; area, count", {area.id, count});
            bench.Expect(host.calls.size() == area.leaves.size() * count,
                         "one call for each leaf; area, count, calls",
                         {area.id, count, static_cast<int>(host.calls.size())});
            for (std::size_t i = 0; i < host.calls.size(); ++i) {
                ExpectCall(bench, slot, host.calls[i], area, i);
            }
            if (!slot.givesNewBytes) {
                bench.Expect(transfer.isRecordUnchanged, "the record is unchanged", {area.id});
            }
        }
    }
}

/// What the host supplies lies in the new bytes, and nothing else changes.
void CheckNewBytes(Bench& bench, const TransferSlot& slot) {
    bench.LoadDefinitions();
    HostFunctions host;
    for (std::uint32_t count = 1; count <= 3; ++count) {
        ParameterRecord record = ParameterOf(kPointArea, count, {});
        record.attribute = -5;
        record.format = 3;
        bench.Expect(slot.run(bench, &record, host) == 1, "the result");
        const auto* bytes = static_cast<const std::uint8_t*>(record.bytes);
        bench.Expect(record.length == 6 * count && bytes != nullptr &&
                         std::all_of(bytes, bytes + record.length,
                                     [&](std::uint8_t byte) { return byte == host.supply; }),
                     "the bytes are the host's; count, length", {count, record.length});
        bench.Expect(record.identifier == kPointArea && record.count == count &&
                         record.attribute == -5 && record.format == 3,
                     "the other words stay");
        bench.Call("FreeStdParameter", [&] { bench.Slots().FreeStdParameter(&record); });
    }
    const Transfer none = RunOnce(bench, slot, ParameterOf(kPointArea, 0, {}), host);
    bench.Expect(none.result == 1 && none.isRecordUnchanged, "a count of 0 gives nothing");
    const Transfer huge = RunOnce(bench, slot, ParameterOf(kHugeArea, 1, {}), host);
    bench.Expect(huge.result == 0 && huge.isRecordUnchanged, "there is no memory for a huge value");
    const Transfer wide = RunOnce(bench, slot, ParameterOf(kPointArea, 0xFFFFFFFF, {}), host);
    bench.Expect(wide.result == 0 && wide.isRecordUnchanged, "nor for a huge count");
}

/// A refusing function at every place.
void CheckRefusals(Bench& bench, const TransferSlot& slot) {
    bench.LoadDefinitions();
    HostFunctions host;
    const GuardedBlock bytes = bench.Block(75, "value");
    std::ranges::fill(bytes.Bytes(), std::uint8_t{0});
    const std::size_t leafCount = 17;
    for (std::size_t refused = 0; refused < leafCount; ++refused) {
        host.Reset();
        host.refusedCall = refused;
        const Transfer transfer =
            RunOnce(bench, slot, ParameterOf(kAllArea, 1, bytes.Bytes()), host);
        const auto calls = static_cast<int>(host.calls.size());
        bench.Expect(transfer.result == slot.onFailure, "the result when the host refuses; result",
                     {transfer.result});
        bench.Expect(transfer.isRecordUnchanged, "the record is unchanged when the host refuses");
        bench.Expect(host.calls.size() == (slot.stopsAtFailure ? refused + 1 : leafCount),
                     "calls when the host refuses; refused, calls",
                     {static_cast<int>(refused), calls});
    }
}

void CheckCancelling(Bench& bench, const TransferSlot& slot) {
    bench.LoadDefinitions();
    HostFunctions host;
    const GuardedBlock bytes = bench.Block(8, "value");
    const ParameterRecord content = ParameterOf(kWordArea, 4, bytes.Bytes());
    host.cancel = 0x80000000;
    const Transfer early = RunOnce(bench, slot, content, host);
    bench.Expect(early.result == slot.onFailure && host.calls.empty() && early.isRecordUnchanged,
                 "cancelled before it began; result", {early.result});
    for (std::size_t cancelling = 0; cancelling < 3; ++cancelling) {
        host.Reset();
        host.cancellingCall = cancelling;
        const Transfer late = RunOnce(bench, slot, content, host);
        bench.Expect(late.result == slot.onFailure && late.isRecordUnchanged,
                     "cancelled in between; result", {late.result});
        bench.Expect(host.calls.size() == cancelling + 1,
                     "no call behind the cancelling one; calls",
                     {static_cast<int>(host.calls.size())});
    }
}

/// Records that are too short for the bytes: new ones are freed, old ones do not count.
void CheckRecordSizes(Bench& bench, const TransferSlot& slot) {
    bench.LoadDefinitions();
    HostFunctions host;
    const GuardedBlock bytes = bench.Block(6, "value");
    for (std::uint32_t size = 0; size <= sizeof(ParameterRecord) + 12; ++size) {
        host.Reset();
        const ParameterRecord content = ParameterOf(kPointArea, 1, bytes.Bytes());
        const Transfer transfer = RunOnce(bench, slot, content, host, size);
        const bool hasArea = size > offsetof(ParameterRecord, identifier);
        const bool hasBytes = size >= offsetof(ParameterRecord, attribute);
        const std::int32_t expected = (slot.givesNewBytes ? hasArea : hasBytes) ? 1 : 0;
        // Between them the area's number or the count is cut.
        if (size <= offsetof(ParameterRecord, identifier) ||
            size >= offsetof(ParameterRecord, length)) {
            bench.Expect(transfer.result == expected, "the result; size, result",
                         {size, transfer.result});
        }
        bench.Expect(slot.givesNewBytes || transfer.isRecordUnchanged, "the record is unchanged",
                     {size});
        bench.Expect(
            size < offsetof(ParameterRecord, count) || transfer.record.identifier == kPointArea,
            "the area stays", {size});
    }
    bench.ExpectBalanced(slot.name, [&] {
        for (const std::uint32_t size : {12U, 16U, 18U, 20U, 28U, 32U}) {
            host.Reset();
            RunOnce(bench, slot, ParameterOf(kPointArea, 1, bytes.Bytes()), host, size);
        }
    });
}

/// Null records, unknown areas, and values without bytes or of too few.
void CheckNothing(Bench& bench, const TransferSlot& slot) {
    bench.LoadDefinitions();
    HostFunctions host;
    bench.Expect(slot.run(bench, nullptr, host) == 0, "a null record is refused");
    const GuardedBlock bytes = bench.Block(75, "value");
    for (const std::int32_t id : UnknownAreas(bench)) {
        const Transfer transfer = RunOnce(bench, slot, ParameterOf(id, 1, bytes.Bytes()), host);
        bench.Expect(transfer.result == 0 && transfer.isRecordUnchanged,
                     "an unknown area is refused; area, result", {id, transfer.result});
    }
    bench.Expect(host.calls.empty(), "the host is not called for nothing");
    if (slot.givesNewBytes) {
        return;
    }
    for (std::uint32_t length = 0; length < 75; ++length) {
        const GuardedBlock part = bench.Block(length, "value");
        host.Reset();
        const Transfer transfer =
            RunOnce(bench, slot, ParameterOf(kAllArea, 1, part.Bytes()), host);
        bench.Expect(transfer.result == 0 && transfer.isRecordUnchanged,
                     "a part is refused; length", {length});
    }
    ParameterRecord empty = ParameterOf(kWordArea, 1, bytes.Bytes());
    empty.bytes = nullptr;
    host.Reset();
    bench.Expect(RunOnce(bench, slot, empty, host).result == 0 && host.calls.empty(),
                 "no bytes, no call");
}

template <void (*check)(Bench&, const TransferSlot&)>
void ForAllSlots(Bench& bench) {
    for (const TransferSlot& slot : kAllSlots) {
        check(bench, slot);
    }
}

template <void (*check)(Bench&, const TransferSlot&), const TransferSlot&... slots>
void For(Bench& bench) {
    (check(bench, slots), ...);
}

/// Tables of host functions that end anywhere: a function that is cut off is absent.
void OnlineRecordsOfEverySize(Bench& bench) {
    bench.LoadDefinitions();
    HostFunctions host;
    const GuardedBlock bytes = bench.Block(2, "value");
    const std::size_t wordSetter = offsetof(OnlineAccessRecord, setters.Put16);
    const std::size_t wordGetter = offsetof(OnlineAccessRecord, getters.Get16);
    const std::size_t alternative = offsetof(OnlineAccessRecord, alternative.Put16);
    for (std::uint32_t size = 0; size <= sizeof(OnlineAccessRecord) + 8; ++size) {
        const HostRecord<OnlineAccessRecord> online(bench, HostFunctions::Online(), size,
                                                    "online access record");
        ParameterRecord record = ParameterOf(kWordArea, 1, bytes.Bytes());
        const auto expect = [&](std::int32_t result, std::size_t offset, std::int32_t failure) {
            bench.Expect(result == (online.Reaches(offset) ? 1 : failure),
                         "the result; size of the online record, result", {size, result});
        };
        expect(bench.Call("ConvertStdParameter",
                          [&] { return bench.Slots().ConvertStdParameter(&record, online.Get()); }),
               wordSetter, 0);
        expect(bench.Call("WriteStdParameterOnline",
                          [&] {
                              return bench.Slots().WriteStdParameterOnline(&record, online.Get(),
                                                                           nullptr);
                          }),
               alternative, 0);
        ParameterRecord read = ParameterOf(kWordArea, 1, {});
        expect(
            bench.Call(
                "ReadStdParameterOnline",
                [&] { return bench.Slots().ReadStdParameterOnline(&read, online.Get(), nullptr); }),
            wordGetter, -1);
        bench.Call("FreeStdParameter", [&] { bench.Slots().FreeStdParameter(&read); });
        bench.Expect(online.IsUnchanged(), "the online record is unchanged", {size});
    }
}

void FillRecordsOfEverySize(Bench& bench) {
    bench.LoadDefinitions();
    HostFunctions host;
    const GuardedBlock bytes = bench.Block(2, "value");
    for (std::uint32_t size = 0; size <= sizeof(FillRecord) + 8; ++size) {
        const HostRecord<FillRecord> fill(bench, HostFunctions::Fill(), size, "fill record");
        ParameterRecord record = ParameterOf(kWordArea, 1, bytes.Bytes());
        const std::int32_t inPlace = bench.Call("FillStdParameterValueInPlace", [&] {
            return bench.Slots().FillStdParameterValueInPlace(&record, fill.Get());
        });
        ParameterRecord filled = ParameterOf(kWordArea, 1, {});
        const std::int32_t result = bench.Call("FillStdParameterValue", [&] {
            return bench.Slots().FillStdParameterValue(&filled, fill.Get());
        });
        bench.Call("FreeStdParameter", [&] { bench.Slots().FreeStdParameter(&filled); });
        const std::int32_t expected = fill.Reaches(offsetof(FillRecord, Put)) ? 1 : 0;
        bench.Expect(inPlace == expected && result == expected,
                     "the result; size of the fill record", {size, inPlace, result});
        bench.Expect(fill.IsUnchanged(), "the fill record is unchanged", {size});
    }
}

void NullHosts(Bench& bench) {
    bench.LoadDefinitions();
    const GuardedBlock bytes = bench.Block(2, "value");
    ParameterRecord record = ParameterOf(kWordArea, 1, bytes.Bytes());
    const ParameterRecord before = record;
    const StdParaFunctionTable& slots = bench.Slots();
    const std::int32_t results[] = {
        bench.Call("ConvertStdParameter",
                   [&] { return slots.ConvertStdParameter(&record, nullptr); }),
        bench.Call("ReadStdParameterOnline",
                   [&] { return slots.ReadStdParameterOnline(&record, nullptr, nullptr); }),
        bench.Call("WriteStdParameterOnline",
                   [&] { return slots.WriteStdParameterOnline(&record, nullptr, nullptr); }),
        bench.Call("FillStdParameterValue",
                   [&] { return slots.FillStdParameterValue(&record, nullptr); }),
        bench.Call("FillStdParameterValueInPlace",
                   [&] { return slots.FillStdParameterValueInPlace(&record, nullptr); }),
    };
    constexpr std::int32_t kExpected[] = {0, -1, 0, 0, 0};
    bench.Expect(std::ranges::equal(results, kExpected), "a null host is refused");
    bench.Expect(std::memcmp(&record, &before, sizeof record) == 0, "the record is unchanged");
}

void Balance(Bench& bench) {
    bench.LoadDefinitions();
    HostFunctions host;
    const GuardedBlock bytes = bench.Block(75, "value");
    std::ranges::fill(bytes.Bytes(), std::uint8_t{0});
    for (const TransferSlot& slot : kAllSlots) {
        for (const std::size_t refused : {HostFunctions::kNever, std::size_t{5}}) {
            bench.ExpectBalanced(slot.name, [&] {
                host.Reset();
                host.refusedCall = refused;
                RunOnce(bench, slot, ParameterOf(kAllArea, 1, bytes.Bytes()), host);
            });
        }
    }
}

constexpr Check kChecks[] = {
    {"transfer", "5 ConvertStdParameter calls the first setters", For<CheckLeaves, kConvert>},
    {"transfer", "17 ReadStdParameterOnline calls the getters", For<CheckLeaves, kRead>},
    {"transfer", "18 WriteStdParameterOnline calls the alternative setters",
     For<CheckLeaves, kWrite>},
    {"transfer", "19, 20 FillStdParameterValue calls the raw put",
     For<CheckLeaves, kFill, kFillInPlace>},
    {"transfer", "17, 19 give new bytes, or leave the record", For<CheckNewBytes, kRead, kFill>},
    {"transfer", "5, 17 to 20 take a refusal at every leaf", ForAllSlots<CheckRefusals>},
    {"transfer", "17, 18 stop when the host cancels", For<CheckCancelling, kRead, kWrite>},
    {"transfer", "5, 17 to 20 with parameter records of every size", ForAllSlots<CheckRecordSizes>},
    {"transfer", "5, 17, 18 with online access records of every size", OnlineRecordsOfEverySize},
    {"transfer", "19, 20 with fill records of every size", FillRecordsOfEverySize},
    {"transfer", "5, 17 to 20 refuse null, unknown areas and short values",
     ForAllSlots<CheckNothing>},
    {"transfer", "5, 17 to 20 refuse a null host", NullHosts},
    {"transfer", "5, 17 to 20 leave nothing behind", Balance},
};

}  // namespace

std::span<const Check> TransferChecks() {
    return kChecks;
}

}  // namespace workbench::check
