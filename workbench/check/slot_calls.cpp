#include "check/slot_calls.h"

namespace workbench::check {

std::string TakeText(Bench& bench, ParameterRecord* record) {
    char* text = bench.Call("GetStdParameterText",
                            [&] { return bench.Slots().GetStdParameterText(record); });
    std::string result = text == nullptr ? "(null)" : text;
    bench.Call("FreeStdMemory", [&] { bench.Slots().FreeStdMemory(text); });
    return result;
}

Leaves TakeLeaves(Bench& bench, ParameterRecord* record) {
    NameListNode* list = bench.Call("GetStdParameterTextList",
                                    [&] { return bench.Slots().GetStdParameterTextList(record); });
    Leaves leaves;
    for (const NameListNode* node = list; node != nullptr; node = node->next) {
        bench.Expect(node->first != nullptr && node->second != nullptr, "nodes have both texts");
        leaves.emplace_back(node->first == nullptr ? "" : node->first,
                            node->second == nullptr ? "" : node->second);
    }
    bench.Call("FreeStdTextList", [&] { bench.Slots().FreeStdTextList(list); });
    return leaves;
}

ParameterRecord ParameterOf(std::int32_t area, std::uint32_t count, std::span<std::uint8_t> bytes) {
    ParameterRecord record{};
    record.size = sizeof record;
    record.identifier = area;
    record.count = count;
    record.length = static_cast<std::uint32_t>(bytes.size());
    record.bytes = bytes.data();
    return record;
}

char* ModuleText(Bench& bench) {
    std::uint8_t bytes[] = {1, 0};
    ParameterRecord record = ParameterOf(kWordArea, 1, bytes);
    return bench.Call("GetStdParameterText",
                      [&] { return bench.Slots().GetStdParameterText(&record); });
}

std::vector<std::int32_t> UnknownAreas(Bench& bench) {
    std::vector<std::int32_t> ids{0, -1, 10, 0x7FFFFFFF, static_cast<std::int32_t>(0x80000000)};
    for (int i = 0; i < 32; ++i) {
        const auto id = static_cast<std::int32_t>(bench.Random().Word());
        if (!IsArea(id)) {
            ids.push_back(id);
        }
    }
    return ids;
}

}  // namespace workbench::check
