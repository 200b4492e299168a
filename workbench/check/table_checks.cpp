#include <windows.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "check/checks.h"

// The hand-over of both tables, the host's callbacks, and the exports.

namespace workbench::check {
namespace {

constexpr std::uint32_t kWordBytes = 4;

struct Table {
    std::string_view name;
    std::int32_t(ORVELL_CALL* handOver)(void*);
    std::uint32_t size;
    bool refusesSizeZero;
};

Table StandardTable(Bench& bench) {
    return {"GetStdParaFctns", bench.Functions().GetStdParaFctns, sizeof(StdParaFunctionTable),
            false};
}

Table ManagementTableOf(Bench& bench) {
    return {"GetParaMGMTFunc", bench.Functions().GetParaMGMTFunc, sizeof(ManagementTable), true};
}

/// The words of a table of `size` bytes after the hand-over.
std::vector<std::uint32_t> HandOver(Bench& bench, const Table& table, std::uint32_t size) {
    const GuardedBlock block = bench.Block(std::max(size, kWordBytes), "function table");
    bench.Random().Fill(block.Bytes());
    std::memcpy(block.Data(), &size, kWordBytes);
    const std::int32_t result =
        bench.Call(table.name, [&] { return table.handOver(block.Data()); });
    bench.Expect(result == (size == 0 && table.refusesSizeZero ? 0 : 1),
                 "the hand-over's result; table size, result", {size, result});
    std::vector<std::uint32_t> words(block.Size() / kWordBytes);
    std::memcpy(words.data(), block.Data(), words.size() * kWordBytes);
    return words;
}

bool IsCode(std::uint32_t address) {
    MEMORY_BASIC_INFORMATION place{};
    VirtualQuery(reinterpret_cast<const void*>(address), &place, sizeof place);
    constexpr DWORD kExecutable =
        PAGE_EXECUTE | PAGE_EXECUTE_READ | PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
    return (place.Protect & kExecutable) != 0;
}

void CheckFullTable(Bench& bench, const Table& table) {
    const std::vector<std::uint32_t> words = HandOver(bench, table, table.size);
    bench.Expect(words[0] == table.size, "the table keeps its size", {words[0]});
    for (std::size_t slot = 1; slot < words.size(); ++slot) {
        bench.Expect(IsCode(words[slot]), "the slot is a function", {static_cast<int>(slot)});
    }
    bench.Expect(HandOver(bench, table, table.size) == words, "every hand-over is the same");
    const std::int32_t result = bench.Call(table.name, [&] { return table.handOver(nullptr); });
    bench.Expect(result == 0, "a null table is refused");
}

void CheckTableSizes(Bench& bench, const Table& table) {
    const std::vector<std::uint32_t> full = HandOver(bench, table, table.size);
    for (std::uint32_t size = 0; size <= table.size + 40; ++size) {
        const std::vector<std::uint32_t> words = HandOver(bench, table, size);
        bench.Expect(words[0] == size, "the table keeps its size", {size, words[0]});
        for (std::size_t slot = 1; slot < words.size(); ++slot) {
            const std::uint32_t expected = slot < full.size() ? full[slot] : 0;
            bench.Expect(words[slot] == expected, "slots that fit, zeros behind; size, slot",
                         {size, static_cast<int>(slot)});
        }
    }
}

void FullStandardTable(Bench& bench) {
    CheckFullTable(bench, StandardTable(bench));
}

void StandardTableSizes(Bench& bench) {
    CheckTableSizes(bench, StandardTable(bench));
}

void FullManagementTable(Bench& bench) {
    CheckFullTable(bench, ManagementTableOf(bench));
}

void ManagementTableSizes(Bench& bench) {
    CheckTableSizes(bench, ManagementTableOf(bench));
}

/// The module keeps a copy: the host's table may be gone afterwards.
void HostCallbacks(Bench& bench) {
    const auto install = bench.Functions().SetZelkorExportFctns;
    const auto expectInstalled = [&](HostExportTable* table) {
        const std::int32_t result =
            bench.Call("SetZelkorExportFctns", [&] { return install(table); });
        bench.Expect(result == 1, "installing succeeds");
    };
    expectInstalled(nullptr);
    for (std::uint32_t size = 0; size <= sizeof(HostExportTable) + 16; ++size) {
        const GuardedBlock block = bench.Block(std::max(size, kWordBytes), "callback table");
        std::fill_n(block.Data(), block.Size(), std::uint8_t{0});
        std::memcpy(block.Data(), &size, kWordBytes);
        const std::vector<std::uint8_t> before(block.Data(), block.Data() + block.Size());
        expectInstalled(reinterpret_cast<HostExportTable*>(block.Data()));
        bench.Expect(std::ranges::equal(block.Bytes(), before), "the host's table is unchanged",
                     {size});
    }
    expectInstalled(nullptr);
}

void ExportedNames(Bench& bench) {
    bench.Expect(bench.Module().ExportedNames() == RequiredExports(),
                 "the module exports its functions and nothing else");
}

/// A module that is loaded anew knows no definitions and no parameters.
void LoadingAgain(Bench& bench) {
    bench.LoadDefinitions();
    bench.BeginList();
    bench.Expect(bench.Reload(), "the module loads again");
    const std::uint32_t size =
        bench.Call("GetStdStructSize", [&] { return bench.Slots().GetStdStructSize(kPointArea); });
    bench.Expect(size == 0, "no definitions are left");
    std::uint8_t buffer[8] = {};
    const std::int32_t result = bench.Call("STDSIL_GetValue", [&] {
        return bench.Functions().GetValue("PW1", buffer, sizeof buffer, 2);
    });
    bench.Expect(result == 0, "no parameters are left");
}

constexpr Check kChecks[] = {
    {"loading", "exactly the required exports", ExportedNames},
    {"loading", "loaded again the module begins anew", LoadingAgain},
    {"table", "GetStdParaFctns fills a full table and refuses null", FullStandardTable},
    {"table", "GetStdParaFctns keeps within tables of every size", StandardTableSizes},
    {"table", "GetParaMGMTFunc fills a full table and refuses null", FullManagementTable},
    {"table", "GetParaMGMTFunc keeps within tables of every size", ManagementTableSizes},
    {"table", "SetZelkorExportFctns takes tables of every size", HostCallbacks},
};

}  // namespace

std::span<const Check> TableChecks() {
    return kChecks;
}

}  // namespace workbench::check
