#include <algorithm>
#include <cstddef>

#include "check/checks.h"
#include "check/slot_calls.h"

// The slots that load, save, close, export and merge the project's definitions.

namespace workbench::check {
namespace {

std::uint32_t SizeOf(Bench& bench, std::int32_t area) {
    return bench.Call("GetStdStructSize", [&] { return bench.Slots().GetStdStructSize(area); });
}

/// A configuration slot with its directory, which some take, bound.
struct ConfigurationSlot {
    std::string_view name;
    void (*run)(Bench&, ConfigurationRecord*, const char* directory, std::uint32_t token);
};

constexpr ConfigurationSlot kLoad{
    "LoadStdMemConfig", [](Bench& bench, ConfigurationRecord* record, const char*,
                           std::uint32_t token) { bench.Slots().LoadStdMemConfig(record, token); }};
constexpr ConfigurationSlot kSave{
    "SaveStdMemConfig", [](Bench& bench, ConfigurationRecord* record, const char*,
                           std::uint32_t token) { bench.Slots().SaveStdMemConfig(record, token); }};
constexpr ConfigurationSlot kClose{
    "CloseStdMemConfig", [](Bench& bench, ConfigurationRecord*, const char*, std::uint32_t token) {
        bench.Slots().CloseStdMemConfig(token);
    }};
constexpr ConfigurationSlot kExport{
    "ExportStdMemConfig",
    [](Bench& bench, ConfigurationRecord* record, const char* directory, std::uint32_t token) {
        bench.Slots().ExportStdMemConfig(record, directory, token);
    }};
constexpr ConfigurationSlot kMerge{
    "MergeStdMemConfig",
    [](Bench& bench, ConfigurationRecord* record, const char* directory, std::uint32_t token) {
        bench.Slots().MergeStdMemConfig(record, directory, token);
    }};

/// Calls the slot with path and directory in guarded memory; the number of messages.
std::size_t Run(Bench& bench, const ConfigurationSlot& slot, std::string_view project,
                std::string_view directory, std::uint32_t token,
                std::uint32_t size = sizeof(ConfigurationRecord)) {
    const HostText path(bench, project, "project path");
    const HostText folder(bench, directory, "directory");
    const HostRecord<ConfigurationRecord> record(bench, {0, nullptr, path.Get()}, size,
                                                 "configuration record");
    bench.Boxes().TakeCount();
    bench.Call(slot.name, [&] { slot.run(bench, record.Get(), folder.Get(), token); });
    bench.Expect(record.IsUnchanged(), "the configuration record is unchanged", {size});
    return bench.Boxes().TakeCount();
}

void LoadingAndClosing(Bench& bench) {
    const TestProject& project = bench.Project();
    const std::size_t messages = Run(bench, kLoad, project.First(), "", bench.NewToken());
    bench.Expect(messages == 0 && SizeOf(bench, kPointArea) == 6, "the first project is loaded");
    Run(bench, kLoad, project.Second(), "", bench.NewToken());
    bench.Expect(SizeOf(bench, kOtherArea) == 2 && SizeOf(bench, kPointArea) == 0,
                 "the second project takes its place");
    Run(bench, kClose, "", "", bench.NewToken());
    bench.Expect(SizeOf(bench, kOtherArea) == 0, "closing leaves nothing");
}

void Tokens(Bench& bench) {
    const TestProject& project = bench.Project();
    const std::uint32_t token = bench.NewToken();
    Run(bench, kLoad, project.First(), "", token);
    Run(bench, kLoad, project.Second(), "", token);
    Run(bench, kClose, "", "", token);
    Run(bench, kMerge, project.First(), project.Path("DELIVERY"), token);
    bench.Expect(Run(bench, kExport, "", "", token) == 0 && Run(bench, kSave, "", "", token) == 0,
                 "no message under a token that was used up");
    bench.Expect(SizeOf(bench, kPointArea) == 6, "nothing is done twice under one token");
    Run(bench, kClose, "", "", bench.NewToken());
    bench.Expect(SizeOf(bench, kPointArea) == 0, "a new token counts");
    bench.Expect(bench.Reload(), "the module loads again");
    Run(bench, kLoad, project.First(), "", 0);
    bench.Expect(SizeOf(bench, kPointArea) == 0, "the first token is not 0");
}

void SavingAndExporting(Bench& bench) {
    const TestProject& project = bench.Project();
    const std::string definitions = project.Read("FIRST.STDMEMXML");
    Run(bench, kLoad, project.First(), "", bench.NewToken());
    bench.Expect(Run(bench, kSave, project.Path("MOVED.PRJ"), "", bench.NewToken()) == 0 &&
                     project.Read("MOVED.STDMEMXML") == definitions,
                 "the definitions move along");
    bench.Expect(
        Run(bench, kExport, project.First(), project.Path("TARGET"), bench.NewToken()) == 0 &&
            project.Read("TARGET\\FIRST.STDMEMXML") == definitions,
        "the definitions are exported");
    bench.Expect(Run(bench, kExport, project.First(), project.Path("NOWHERE\\AT\\ALL"),
                     bench.NewToken()) == 1,
                 "a failed export shows a message");
    bench.Expect(Run(bench, kSave, project.Path("NOWHERE\\X.PRJ"), "", bench.NewToken()) == 1,
                 "a failed saving shows a message");
    project.Remove("MOVED.STDMEMXML");
    project.Remove("TARGET\\FIRST.STDMEMXML");
}

void Merging(Bench& bench) {
    const TestProject& project = bench.Project();
    const std::string definitions = project.Read("FIRST.STDMEMXML");
    const std::size_t messages =
        Run(bench, kMerge, project.First(), project.Path("DELIVERY"), bench.NewToken());
    bench.Expect(
        messages == 0 && SizeOf(bench, kDeliveredArea) == 2 && SizeOf(bench, kPointArea) == 6,
        "delivered definitions join the project's");
    project.Write("FIRST.STDMEMXML", definitions);
    bench.Expect(Run(bench, kMerge, project.First(), "", bench.NewToken()) == 0,
                 "merging is silent");
}

void BrokenFiles(Bench& bench) {
    const TestProject& project = bench.Project();
    const std::string definitions = project.Read("FIRST.STDMEMXML");
    for (int round = 0; round < 20; ++round) {
        std::string broken = definitions.substr(0, bench.Random().Below(definitions.size()));
        if (round % 2 == 0) {
            broken = definitions;
            broken[bench.Random().Below(broken.size())] =
                static_cast<char>(bench.Random().Below(256));
        }
        project.Write("BROKEN.STDMEMXML", broken);
        const std::size_t messages =
            Run(bench, kLoad, project.Path("BROKEN.PRJ"), "", bench.NewToken());
        bench.Expect(messages <= 1, "one message at most");
        bench.Expect(messages == 0 || SizeOf(bench, kPointArea) == 0,
                     "what cannot be read defines nothing");
    }
    project.Remove("BROKEN.STDMEMXML");
}

/// A path that the record does not hold whole is none.
void RecordsOfEverySize(Bench& bench) {
    const TestProject& project = bench.Project();
    for (std::uint32_t size = 0; size <= sizeof(ConfigurationRecord) + 8; ++size) {
        Run(bench, kClose, "", "", bench.NewToken());
        const bool hasPath = size >= sizeof(ConfigurationRecord);
        const std::size_t messages = Run(bench, kLoad, project.First(), "", bench.NewToken(), size);
        bench.Expect(SizeOf(bench, kPointArea) == (hasPath ? 6U : 0U), "loaded; size", {size});
        bench.Expect(messages == (hasPath ? 0U : 1U), "messages; size, number",
                     {size, static_cast<int>(messages)});
        for (const ConfigurationSlot* slot : {&kSave, &kExport, &kMerge}) {
            Run(bench, *slot, project.First(), project.Path("TARGET"), bench.NewToken(), size);
        }
    }
    project.Remove("TARGET\\FIRST.STDMEMXML");
}

void NullArguments(Bench& bench) {
    Run(bench, kLoad, bench.Project().First(), "", bench.NewToken());
    for (const ConfigurationSlot* slot : {&kLoad, &kSave, &kExport, &kMerge}) {
        bench.Call(slot->name, [&] { slot->run(bench, nullptr, nullptr, bench.NewToken()); });
    }
    bench.Expect(bench.Boxes().TakeCount() == 3, "a message of all but merging");
    const HostText path(bench, bench.Project().First(), "project path");
    ConfigurationRecord record{sizeof record, nullptr, path.Get()};
    for (const ConfigurationSlot* slot : {&kExport, &kMerge}) {
        bench.Call(slot->name, [&] { slot->run(bench, &record, nullptr, bench.NewToken()); });
    }
    bench.Expect(bench.Boxes().TakeCount() == 1, "a message of exporting without a directory");
    bench.Expect(SizeOf(bench, kPointArea) == 6, "the definitions stay");
}

void Balance(Bench& bench) {
    bench.ExpectBalanced("LoadStdMemConfig", [&] { bench.LoadDefinitions(); });
    bench.ExpectBalanced("CloseStdMemConfig",
                         [&] { Run(bench, kClose, "", "", bench.NewToken()); });
}

constexpr Check kChecks[] = {
    {"configuration", "6, 8 load and close the project's definitions", LoadingAndClosing},
    {"configuration", "6 to 10 do their work once for each token", Tokens},
    {"configuration", "7, 9 carry the definitions along", SavingAndExporting},
    {"configuration", "10 MergeStdMemConfig joins definitions", Merging},
    {"configuration", "6 LoadStdMemConfig with broken files", BrokenFiles},
    {"configuration", "6, 7, 9, 10 with configuration records of every size", RecordsOfEverySize},
    {"configuration", "6, 7, 9, 10 take null", NullArguments},
    {"configuration", "6, 8 leave nothing behind", Balance},
};

}  // namespace

std::span<const Check> ConfigurationChecks() {
    return kChecks;
}

}  // namespace workbench::check
