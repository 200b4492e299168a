#include <cstddef>

#include "check/checks.h"
#include "check/heap_blocks.h"
#include "check/slot_calls.h"

// The slots that take back what the module has handed out.

namespace workbench::check {
namespace {

/// A record type, the slot that releases it, and where its own pointers lie.
template <typename Record>
struct ReleaseSlot {
    std::string_view name;
    void(ORVELL_CALL* function)(Record*);
    std::vector<std::size_t> ownPointers;
};

/// Fills an owned pointer with memory of the module where it fits whole; where the size cuts it in
/// two, with memory that must not be freed.
template <typename Record>
void PutPointers(Bench& bench, const ReleaseSlot<Record>& slot, std::uint32_t size, Record& record,
                 const GuardedBlock& notFromTheModule) {
    for (const std::size_t offset : slot.ownPointers) {
        void* pointer = notFromTheModule.Data();
        if (size >= offset + sizeof(void*)) {
            pointer = ModuleText(bench);
        }
        std::memcpy(reinterpret_cast<std::uint8_t*>(&record) + offset, &pointer, sizeof pointer);
    }
}

template <typename Record>
void ReleaseOnce(Bench& bench, const ReleaseSlot<Record>& slot, std::uint32_t size) {
    const GuardedBlock notFromTheModule = bench.Block(16, "memory of the host");
    Record content{};
    bench.Random().Fill({reinterpret_cast<std::uint8_t*>(&content), sizeof content});
    PutPointers(bench, slot, size, content, notFromTheModule);
    const HostRecord<Record> record(bench, content, size, "record to be released");
    bench.Call(slot.name, [&] { slot.function(record.Get()); });
    const Record rest = record.Content();
    Record empty{};
    empty.size = size;
    bench.Expect(std::memcmp(&rest, &empty, sizeof rest) == 0, "the record is emptied", {size});
    bench.Expect(record.IsUntouchedBehind(), "what the module does not know stays", {size});
}

template <typename Record>
void CheckReleaseSlot(Bench& bench, const ReleaseSlot<Record>& slot) {
    bench.LoadDefinitions();
    bench.Call(slot.name, [&] { slot.function(nullptr); });
    for (std::uint32_t size = 0; size <= sizeof(Record) + 12; ++size) {
        ReleaseOnce(bench, slot, size);
    }
    bench.ExpectBalanced(slot.name, [&] { ReleaseOnce(bench, slot, sizeof(Record)); });
    bench.ExpectBalanced(slot.name, [&] { ReleaseOnce(bench, slot, sizeof(Record) + 4); });
}

void FreeParameter(Bench& bench) {
    CheckReleaseSlot<ParameterRecord>(
        bench,
        {"FreeStdParameter", bench.Slots().FreeStdParameter, {offsetof(ParameterRecord, bytes)}});
}

void FreeElement(Bench& bench) {
    CheckReleaseSlot<ElementRecord>(
        bench, {"FreeStdElementRecord",
                bench.Slots().FreeStdElementRecord,
                {offsetof(ElementRecord, name), offsetof(ElementRecord, typeName)}});
}

void FreeTypeInfo(Bench& bench) {
    CheckReleaseSlot<TypeInformationRecord>(
        bench,
        {"FreeStdTypeInfo",
         bench.Slots().FreeStdTypeInfo,
         {offsetof(TypeInformationRecord, name), offsetof(TypeInformationRecord, baseTypeName)}});
}

void FreeMemory(Bench& bench) {
    bench.LoadDefinitions();
    bench.Call("FreeStdMemory", [&] { bench.Slots().FreeStdMemory(nullptr); });
    bench.ExpectBalanced("FreeStdMemory", [&] {
        char* text = ModuleText(bench);
        bench.Call("FreeStdMemory", [&] { bench.Slots().FreeStdMemory(text); });
    });
}

void FreeTextList(Bench& bench) {
    bench.LoadDefinitions();
    bench.Call("FreeStdTextList", [&] { bench.Slots().FreeStdTextList(nullptr); });
    const GuardedBlock bytes = bench.Block(75, "value");
    bench.Random().Fill(bytes.Bytes());
    ParameterRecord record = ParameterOf(kAllArea, 1, bytes.Bytes());
    bench.ExpectBalanced("FreeStdTextList", [&] { (void)TakeLeaves(bench, &record); });
}

/// Without this the other checks of balance would prove nothing.
void TheMeasure(Bench& bench) {
    bench.LoadDefinitions();
    constexpr std::size_t kTexts = 200;
    std::vector<char*> texts(kTexts);
    const std::size_t before = CountHeapBlocks();
    for (char*& text : texts) {
        text = ModuleText(bench);
    }
    const std::size_t held = CountHeapBlocks();
    for (char* text : texts) {
        bench.Call("FreeStdMemory", [&] { bench.Slots().FreeStdMemory(text); });
    }
    bench.Expect(held >= before + kTexts, "texts that are held count; blocks before, with them",
                 {static_cast<std::int64_t>(before), static_cast<std::int64_t>(held)});
    bench.Expect(CountHeapBlocks() < before + kTexts / 4, "released texts no longer count");
}

constexpr Check kChecks[] = {
    {"release", "texts that are held are seen in the heaps", TheMeasure},
    {"release", "2 FreeStdParameter empties records of every size", FreeParameter},
    {"release", "4 FreeStdMemory takes null, and texts once", FreeMemory},
    {"release", "12 FreeStdTextList takes null, and every node and text", FreeTextList},
    {"release", "15 FreeStdElementRecord empties records of every size", FreeElement},
    {"release", "24 FreeStdTypeInfo empties records of every size", FreeTypeInfo},
};

}  // namespace

std::span<const Check> ReleaseChecks() {
    return kChecks;
}

}  // namespace workbench::check
