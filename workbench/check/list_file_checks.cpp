#include <string>

#include "check/checks.h"
#include "check/list_calls.h"

// The management table's slots for files.

namespace workbench::check {
namespace {

using FileSlot = void(ORVELL_CALL*)(ConfigurationRecord*, const char*);

/// Calls a slot of the project's list file; the number of messages.
std::size_t RunProject(Bench& bench, std::string_view name,
                       void(ORVELL_CALL* slot)(ConfigurationRecord*), std::string_view project,
                       std::uint32_t size = sizeof(ConfigurationRecord)) {
    const HostText path(bench, project, "project path");
    const HostRecord<ConfigurationRecord> record(bench, {0, nullptr, path.Get()}, size,
                                                 "configuration record");
    bench.Boxes().TakeCount();
    bench.Call(name, [&] { slot(record.Get()); });
    bench.Expect(record.IsUnchanged(), "the configuration record is unchanged", {size});
    return bench.Boxes().TakeCount();
}

std::size_t RunFile(Bench& bench, std::string_view name, FileSlot slot, std::string_view file,
                    std::uint32_t size = sizeof(ConfigurationRecord)) {
    const HostText project(bench, bench.Project().First(), "project path");
    const HostText path(bench, file, "file path");
    const HostRecord<ConfigurationRecord> record(bench, {0, nullptr, project.Get()}, size,
                                                 "configuration record");
    bench.Boxes().TakeCount();
    bench.Call(name, [&] { slot(record.Get(), path.Get()); });
    bench.Expect(record.IsUnchanged(), "the configuration record is unchanged", {size});
    return bench.Boxes().TakeCount();
}

std::size_t Load(Bench& bench) {
    return RunProject(bench, "LoadList", bench.Management().LoadList, bench.Project().First());
}

std::size_t Save(Bench& bench) {
    return RunProject(bench, "SaveList", bench.Management().SaveList, bench.Project().First());
}

std::size_t Export(Bench& bench, std::string_view name) {
    return RunFile(bench, "ExportList", bench.Management().ExportList, bench.Project().Path(name));
}

std::size_t Import(Bench& bench, std::string_view name) {
    return RunFile(bench, "ImportIntoList", bench.Management().ImportIntoList,
                   bench.Project().Path(name));
}

std::size_t ImportNew(Bench& bench, std::string_view name) {
    return RunFile(bench, "ImportNewList", bench.Management().ImportNewList,
                   bench.Project().Path(name));
}

/// A parameter of every kind.
void FillList(Bench& bench) {
    bench.BeginList();
    for (const std::string_view kind : AllKinds()) {
        const HostText address(bench, std::string(kind) + "1", "address");
        // Seconds; a CSV file keeps whole days of a date.
        const HostText value(bench, kind == "DATEPARA" ? "86400" : "1", "value");
        const HostText name(bench, "name " + std::string(kind).substr(0, 8), "name");
        bench.Call("STDSIL_SetTextParaValue", [&] {
            return bench.Functions().SetTextParaValue(address.Get(), name.Get(), nullptr,
                                                      value.Get());
        });
    }
}

/// All values and names, to be compared.
std::string WholeList(Bench& bench) {
    std::string text;
    for (const std::string_view kind : AllKinds()) {
        const std::string address = std::string(kind) + "1";
        text +=
            address + "=" + ValueText(bench, address) + "," + DescriptionText(bench, address) + ";";
    }
    return text;
}

void Clear(Bench& bench) {
    bench.Call("ClearList", [&] { bench.Management().ClearList(); });
}

void RoundTrips(Bench& bench) {
    FillList(bench);
    const std::string before = WholeList(bench);
    bench.Expect(Save(bench) == 0, "saving is silent");
    Clear(bench);
    bench.Expect(Load(bench) == 0 && WholeList(bench) == before, "what was saved is loaded");
    bench.Expect(Export(bench, "A.SIL") == 0 && Export(bench, "A.CSV") == 0, "exporting is silent");
    Clear(bench);
    bench.Expect(ImportNew(bench, "A.SIL") == 0 && WholeList(bench) == before,
                 "what was exported is imported");
    SetWord(bench, "PW1", 77, "other");
    bench.Expect(Import(bench, "A.CSV") == 0 && WholeList(bench) == before,
                 "a CSV file sets what there is");
    Clear(bench);
    Import(bench, "A.SIL");
    bench.Expect(DescriptionText(bench, "PW1") == "(none)", "imports into the list create nothing");
    for (const char* name : {"FIRST.SIL", "A.SIL", "A.CSV"}) {
        bench.Project().Remove(name);
    }
}

void Failures(Bench& bench) {
    FillList(bench);
    const std::string before = WholeList(bench);
    bench.Expect(Import(bench, "NOWHERE.SIL") == 1, "a missing file shows a message");
    bench.Expect(Export(bench, "NOWHERE\\AT\\ALL.CSV") == 1, "so does a missing folder");
    bench.Expect(RunProject(bench, "SaveList", bench.Management().SaveList, "") == 1,
                 "so does saving without a project");
    bench.Expect(RunFile(bench, "ExportAndOpenList", bench.Management().ExportAndOpenList, "") == 1,
                 "so does exporting without a path");
    bench.Expect(WholeList(bench) == before, "the list stays");
    bench.Expect(ImportNew(bench, "NOWHERE.SIL") == 1, "a new list from a missing file too");
    bench.Expect(DescriptionText(bench, "PW1") == "(none)", "and the list is empty");
}

void RecordsOfEverySize(Bench& bench) {
    FillList(bench);
    Save(bench);
    for (std::uint32_t size = 0; size <= sizeof(ConfigurationRecord) + 8; ++size) {
        const bool hasPath = size >= sizeof(ConfigurationRecord);
        Clear(bench);
        RunProject(bench, "LoadList", bench.Management().LoadList, bench.Project().First(), size);
        bench.Expect((ValueText(bench, "PW1") == "1") == hasPath, "loaded; size", {size});
        const std::size_t messages = RunProject(bench, "SaveList", bench.Management().SaveList,
                                                bench.Project().First(), size);
        bench.Expect(messages == (hasPath ? 0U : 1U), "messages of saving; size, number",
                     {size, static_cast<int>(messages)});
        const ManagementTable& slots = bench.Management();
        for (const FileSlot slot : {slots.ExportList, slots.ImportIntoList, slots.ImportNewList}) {
            const std::size_t count =
                RunFile(bench, "slots 11, 13, 14", slot, bench.Project().Path("B.SIL"), size);
            bench.Expect(count == 0, "files need no project; size", {size});
        }
    }
    bench.Project().Remove("FIRST.SIL");
    bench.Project().Remove("B.SIL");
}

void NullArguments(Bench& bench) {
    FillList(bench);
    const ManagementTable& slots = bench.Management();
    bench.Boxes().TakeCount();
    bench.Call("LoadList", [&] { slots.LoadList(nullptr); });
    bench.Expect(bench.Boxes().TakeCount() == 0, "loading is silent");
    bench.Call("SaveList", [&] { slots.SaveList(nullptr); });
    for (const FileSlot slot :
         {slots.ImportIntoList, slots.ImportNewList, slots.ExportList, slots.ExportAndOpenList}) {
        bench.Call("slots 11 to 14", [&] { slot(nullptr, nullptr); });
    }
    bench.Expect(bench.Boxes().TakeCount() == 5, "all others show a message");
}

void Tokens(Bench& bench) {
    FillList(bench);
    Save(bench);
    bench.Call("SetCallToken", [&] { bench.Management().SetCallToken(bench.NewToken()); });
    Load(bench);
    SetWord(bench, "PW1", 2);
    Load(bench);
    ImportNew(bench, "FIRST.SIL");
    bench.Expect(Import(bench, "NOWHERE.SIL") == 0 && Export(bench, "NOWHERE\\X.SIL") == 0,
                 "no message under a token that was used up");
    bench.Expect(ValueText(bench, "PW1") == "2", "the list is loaded once for a token");
    bench.Call("SetCallToken", [&] { bench.Management().SetCallToken(0); });
    bench.Project().Remove("FIRST.SIL");
}

/// Files with random damage, and random files.
void BrokenFiles(Bench& bench) {
    FillList(bench);
    Export(bench, "C.SIL");
    Export(bench, "C.CSV");
    RandomSource& random = bench.Random();
    for (const std::string_view name : {"C.SIL", "C.CSV"}) {
        const std::string whole = bench.Project().Read(name);
        for (int round = 0; round < 15; ++round) {
            std::string broken = whole.substr(0, random.Below(whole.size() + 1));
            for (std::uint32_t change = random.Below(20); change > 0 && !broken.empty(); --change) {
                broken[random.Below(broken.size())] =
                    random.OneOf(std::string_view("\"; \n\r\0\x1A:@%9P0\xFF", 14));
            }
            bench.Project().Write(name, broken);
            Import(bench, name);
            ImportNew(bench, name);
        }
        bench.Project().Remove(name);
    }
    FillList(bench);
    bench.Expect(ValueText(bench, "PW1") == "1", "the list works as before");
}

void Balance(Bench& bench) {
    FillList(bench);
    Save(bench);
    bench.ExpectBalanced("loading, exporting and importing", [&] {
        Load(bench);
        Export(bench, "D.CSV");
        Import(bench, "D.CSV");
        Clear(bench);
    });
    bench.Project().Remove("FIRST.SIL");
    bench.Project().Remove("D.CSV");
}

constexpr Check kChecks[] = {
    {"list files", "1, 2, 11, 13, 14 give back what was written", RoundTrips},
    {"list files", "2, 11 to 14 report failures", Failures},
    {"list files", "1, 2, 11 to 14 do their work once for each token", Tokens},
    {"list files", "1, 2, 11 to 14 with configuration records of every size", RecordsOfEverySize},
    {"list files", "1, 2, 11 to 14 take null", NullArguments},
    {"list files", "11, 13 with broken files", BrokenFiles},
    {"list files", "1, 11, 14 leave nothing behind", Balance},
};

}  // namespace

std::span<const Check> ListFileChecks() {
    return kChecks;
}

}  // namespace workbench::check
