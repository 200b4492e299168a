#include <algorithm>
#include <cstddef>
#include <deque>

#include "check/checks.h"
#include "check/slot_calls.h"

// The slot that builds a value from texts or from the parameter list.

namespace workbench::check {
namespace {

/// A name list of the host, every text and node in guarded memory of its own.
class HostList {
  public:
    HostList(const Bench& bench, const Leaves& leaves) {
        for (const auto& [path, text] : leaves) {
            const HostText& first = texts_.emplace_back(bench, path, "path in a list");
            const HostText& second = texts_.emplace_back(bench, text, "text in a list");
            const GuardedBlock& block =
                nodes_.emplace_back(sizeof(NameListNode), Edge::End, "node of a list");
            *reinterpret_cast<NameListNode*>(block.Data()) = {first.Get(), second.Get(), head_};
            head_ = reinterpret_cast<NameListNode*>(block.Data());
        }
    }

    [[nodiscard]] NameListNode* Head() const { return head_; }

  private:
    std::deque<HostText> texts_;
    std::deque<GuardedBlock> nodes_;
    NameListNode* head_ = nullptr;
};

ParameterDescriptionRecord Wanted(std::int32_t area, std::uint32_t count, NameListNode* texts,
                                  const char* address) {
    ParameterDescriptionRecord record{};
    record.size = sizeof record;
    record.identifier = area;
    record.count = count;
    record.texts = texts;
    record.address = address;
    return record;
}

struct Resolved {
    std::int32_t result = 0;
    Leaves leaves;
};

/// Calls the slot with a record of `size` bytes, checks what it left and releases the bytes.
Resolved Resolve(Bench& bench, const ParameterDescriptionRecord& content,
                 std::uint32_t size = sizeof(ParameterDescriptionRecord)) {
    const HostRecord<ParameterDescriptionRecord> record(bench, content, size,
                                                        "parameter description record");
    Resolved resolved;
    resolved.result = bench.Call("ResolveStdParameter",
                                 [&] { return bench.Slots().ResolveStdParameter(record.Get()); });
    bench.Expect(resolved.result == 1 || resolved.result == 0, "the result is a truth value");
    bench.Expect(record.KeepsItsSize() && record.IsUntouchedBehind(),
                 "size and bytes behind the record stay", {size});
    bench.Expect(resolved.result == 1 || record.IsUnchanged(), "unchanged when refused", {size});
    if (resolved.result == 1 && record.Reaches(offsetof(ParameterDescriptionRecord, bytes))) {
        ParameterDescriptionRecord said = record.Content();
        ParameterRecord value = ParameterOf(said.identifier, said.count,
                                            {static_cast<std::uint8_t*>(said.bytes), said.length});
        resolved.leaves = TakeLeaves(bench, &value);
        bench.Call("FreeStdMemory", [&] { bench.Slots().FreeStdMemory(said.bytes); });
    }
    return resolved;
}

Leaves LeavesOfRandomValue(Bench& bench, const AreaModel& area, std::uint32_t count) {
    const GuardedBlock bytes = bench.Block(std::size_t{area.size} * std::max(count, 1U), "value");
    for (std::uint8_t& byte : bytes.Bytes()) {
        byte = static_cast<std::uint8_t>('0' + bench.Random().Below(10));  // plain in STRINGs
    }
    ParameterRecord record = ParameterOf(area.id, count, bytes.Bytes());
    return TakeLeaves(bench, &record);
}

/// What slot 11 tells becomes a value that tells the same.
void FromItsOwnLeaves(Bench& bench) {
    bench.LoadDefinitions();
    for (const AreaModel& area : Areas()) {
        for (std::uint32_t count = 0; count <= 3; ++count) {
            const Leaves leaves = LeavesOfRandomValue(bench, area, count);
            const HostList list(bench, leaves);
            const Resolved first = Resolve(bench, Wanted(area.id, count, list.Head(), nullptr));
            bench.Expect(first.result == 1 && first.leaves.size() == leaves.size(),
                         "the value is built; area, count, result", {area.id, count, first.result});
            const HostList again(bench, first.leaves);
            const Resolved second = Resolve(bench, Wanted(area.id, count, again.Head(), nullptr));
            bench.Expect(second.leaves == first.leaves, "the same value again; area, count",
                         {area.id, count});
        }
    }
}

void RandomTexts(Bench& bench) {
    bench.LoadDefinitions();
    constexpr std::string_view kCharacters =
        "0123456789 .,:;/+-eEhHxXms\"'%\\[]_aZ\t\n\x01\x7F\x80\xE4\xFF";
    for (int round = 0; round < 400; ++round) {
        const AreaModel& area = bench.Random().OneOf(Areas());
        Leaves leaves;
        for (std::uint32_t i = bench.Random().Below(4); i > 0; --i) {
            const std::string path = bench.Random().Below(5) == 0
                                         ? bench.Random().Text(6, kCharacters)
                                         : std::string(bench.Random().OneOf(area.leaves).path);
            leaves.emplace_back(path, bench.Random().Text(40, kCharacters));
        }
        const HostList list(bench, leaves);
        Resolve(bench, Wanted(area.id, bench.Random().Below(3), list.Head(), nullptr));
    }
}

void FromTheList(Bench& bench) {
    bench.LoadDefinitions();
    bench.BeginList();
    const auto set = bench.Functions().SetWordParaValue;
    bench.Call("STDSIL_SetWordParaValue", [&] { return set("PW10", nullptr, nullptr, 7); });
    bench.Call("STDSIL_SetWordParaValue", [&] { return set("PW12", nullptr, nullptr, 9); });
    const HostText address(bench, "PW10", "address");
    const Resolved point = Resolve(bench, Wanted(kPointArea, 1, nullptr, address.Get()));
    bench.Expect(point.leaves == Leaves{{"x", "7"}, {"y[0]", "0"}, {"y[1]", "9"}},
                 "consecutive parameters");
    for (const AreaModel& area : Areas()) {
        const Resolved value = Resolve(bench, Wanted(area.id, 2, nullptr, address.Get()));
        bench.Expect(value.result == 1 && value.leaves.size() == area.leaves.size() * 2,
                     "every type takes numbers; area", {area.id});
    }
    const HostText unknown(bench, "XX10", "address");
    bench.Expect(Resolve(bench, Wanted(kPointArea, 1, nullptr, unknown.Get())).result == 0,
                 "an unknown kind is refused");
    constexpr std::string_view kCharacters = "PWLTEABF.0123456789 \xE4";
    for (int round = 0; round < 200; ++round) {
        const HostText random(bench, bench.Random().Text(12, kCharacters), "address");
        Resolve(bench, Wanted(bench.Random().OneOf(Areas()).id, bench.Random().Below(4), nullptr,
                              random.Get()));
    }
}

void RecordsOfEverySize(Bench& bench) {
    bench.LoadDefinitions();
    const HostList list(bench, {{"x", "1"}});
    const HostText address(bench, "PW1", "address");
    bench.BeginList();
    for (std::uint32_t size = 0; size <= sizeof(ParameterDescriptionRecord) + 12; ++size) {
        const bool hasTexts = size >= offsetof(ParameterDescriptionRecord, address);
        const bool hasAddress = size >= sizeof(ParameterDescriptionRecord);
        const std::int32_t texts =
            Resolve(bench, Wanted(kPointArea, 1, list.Head(), nullptr), size).result;
        const std::int32_t fromList =
            Resolve(bench, Wanted(kPointArea, 1, nullptr, address.Get()), size).result;
        bench.Expect(texts == (hasTexts ? 1 : 0), "texts; size, result", {size, texts});
        bench.Expect(fromList == (hasAddress ? 1 : 0), "address; size, result", {size, fromList});
    }
}

void Refusals(Bench& bench) {
    bench.LoadDefinitions();
    bench.BeginList();
    const HostList list(bench, {{"", "1"}});
    const HostText address(bench, "PW1", "address");
    const auto expectRefused = [&](std::int32_t area, std::uint32_t count) {
        bench.Expect(Resolve(bench, Wanted(area, count, list.Head(), nullptr)).result == 0,
                     "texts are refused; area, count", {area, count});
        bench.Expect(Resolve(bench, Wanted(area, count, nullptr, address.Get())).result == 0,
                     "an address is refused; area, count", {area, count});
    };
    for (const std::int32_t id : {kLoopArea, kLostArea, kHugeArea}) {
        expectRefused(id, 1);
    }
    expectRefused(kPointArea, 0xFFFFFFFF);
    for (const std::int32_t id : UnknownAreas(bench)) {
        expectRefused(id, 1);
    }
    bench.Expect(Resolve(bench, Wanted(kWordArea, 1, nullptr, nullptr)).result == 0,
                 "neither texts nor address");
    const std::int32_t result = bench.Call(
        "ResolveStdParameter", [&] { return bench.Slots().ResolveStdParameter(nullptr); });
    bench.Expect(result == 0, "a null record is refused");
}

void Balance(Bench& bench) {
    bench.LoadDefinitions();
    bench.BeginList();
    const HostList good(bench, {{"x", "1"}, {"y[1]", "2"}});
    const HostList bad(bench, {{"no such path", "1"}, {"x", "1"}});
    const HostText address(bench, "PW1", "address");
    bench.ExpectBalanced("ResolveStdParameter", [&] {
        for (const std::uint32_t size : {20U, 32U, 36U}) {
            Resolve(bench, Wanted(kPointArea, 1, good.Head(), nullptr), size);
            Resolve(bench, Wanted(kPointArea, 1, bad.Head(), nullptr), size);
            Resolve(bench, Wanted(kAllArea, 1, nullptr, address.Get()), size);
        }
    });
}

constexpr Check kChecks[] = {
    {"resolve", "13 ResolveStdParameter builds a value from its leaves", FromItsOwnLeaves},
    {"resolve", "13 ResolveStdParameter with random texts", RandomTexts},
    {"resolve", "13 ResolveStdParameter takes parameters from the list", FromTheList},
    {"resolve", "13 ResolveStdParameter with records of every size", RecordsOfEverySize},
    {"resolve", "13 ResolveStdParameter refuses what cannot be built", Refusals},
    {"resolve", "13 ResolveStdParameter leaves nothing behind", Balance},
};

}  // namespace

std::span<const Check> ResolveChecks() {
    return kChecks;
}

}  // namespace workbench::check
