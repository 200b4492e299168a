#include <algorithm>
#include <vector>

#include "check/checks.h"
#include "check/slot_calls.h"

// The slots that tell a value's text, leaves, size and completeness.

namespace workbench::check {
namespace {

struct KnownText {
    std::int32_t area;
    std::uint32_t count;
    std::vector<std::uint8_t> bytes;
    std::uint8_t format;
    std::int32_t attribute;
    std::string_view text;
};

const std::vector<KnownText>& KnownTexts() {
    static const std::vector<KnownText> texts{
        {kWordArea, 1, {0xFF, 0xFF}, 0, 0, "65535"},
        {kWordArea, 0, {0xFF, 0xFF}, 1, 0, "-1"},
        {kWordArea, 1, {0xFF, 0xFF}, 3, 0, "FFFFh"},
        {kWordArea, 1, {0xFF, 0xFF}, 0xF4, 0, "65535"},
        {kFarArea, 2, {1, 0, 2, 0}, 0, 0, "1; 2"},
        {kPointArea, 1, {1, 0, 2, 0, 3, 0}, 0, 0, "1; 2; 3"},
        {kLabelArea, 1, {'a', 'b', 0, 0, 0, 0, 0, 0}, 0, 0, "\"ab\""},
        {kLabelArea, 1, {'a', 'b', 0, 0, 0, 0, 0, 0}, 0, 1, "ab"},
        {kLabelArea, 1, {0, 0, 0, 0, 0, 0, 0, 0}, 0, 1, "(null)"},
        {kModeArea, 1, {1}, 0, 0, "On"},
        {kModeArea, 1, {7}, 0, 0, "7"},
        {kPartlyArea, 1, {9, 0}, 0, 0, "9"},
        {kLoopArea, 1, {9, 0}, 0, 0, "(null)"},
        {kLostArea, 1, {9, 0}, 0, 0, "(null)"},
        {kHugeArea, 1, {9, 0}, 0, 0, "(null)"},
    };
    return texts;
}

void ExpectedTexts(Bench& bench) {
    bench.LoadDefinitions();
    for (const KnownText& known : KnownTexts()) {
        const GuardedBlock bytes = bench.Block(known.bytes.size(), "value");
        std::ranges::copy(known.bytes, bytes.Data());
        ParameterRecord content = ParameterOf(known.area, known.count, bytes.Bytes());
        content.format = known.format;
        content.attribute = known.attribute;
        const HostRecord<ParameterRecord> record(bench, content, sizeof content,
                                                 "parameter record");
        const std::string text = TakeText(bench, record.Get());
        bench.Expect(text == known.text,
                     "the text is " + std::string(known.text) + ", not " + text);
        bench.Expect(record.IsUnchanged() && std::ranges::equal(bytes.Bytes(), known.bytes),
                     "record and value are unchanged", {known.area});
    }
}

/// Every slot that takes a parameter record and only reads it.
void ReadAll(Bench& bench, const HostRecord<ParameterRecord>& record, bool isWhole,
             std::size_t leafCount) {
    const std::int32_t check = bench.Call(
        "CheckStdParameter", [&] { return bench.Slots().CheckStdParameter(record.Get()); });
    const Leaves leaves = TakeLeaves(bench, record.Get());
    const std::string text = TakeText(bench, record.Get());
    const ParameterRecord said = record.Content();
    const std::int64_t id = said.identifier;
    bench.Expect(check == (isWhole ? 1 : 0), "CheckStdParameter; area, count, length, result",
                 {id, said.count, said.length, check});
    bench.Expect(leaves.size() == (isWhole ? leafCount : 0), "leaves; area, count, length, leaves",
                 {id, said.count, said.length, static_cast<int>(leaves.size())});
    bench.Expect(isWhole || text == "(null)", "no text of a part; area, count, length",
                 {id, said.count, said.length});
    bench.Expect(text == TakeText(bench, record.Get()), "the same text twice", {id});
    bench.Expect(record.IsUnchanged(), "the record is unchanged", {id});
}

void RecordsOfEverySize(Bench& bench) {
    bench.LoadDefinitions();
    const GuardedBlock bytes = bench.Block(6, "value");
    bench.Random().Fill(bytes.Bytes());
    const ParameterRecord content = ParameterOf(kPointArea, 1, bytes.Bytes());
    for (std::uint32_t size = 0; size <= sizeof content + 20; ++size) {
        const HostRecord<ParameterRecord> record(bench, content, size, "parameter record");
        ReadAll(bench, record, record.Reaches(offsetof(ParameterRecord, bytes)), 3);
    }
}

void ValuesOfEveryLength(Bench& bench) {
    bench.LoadDefinitions();
    for (const AreaModel& area : Areas()) {
        for (std::uint32_t count = 0; count <= 3; ++count) {
            const std::uint32_t elements = std::max(count, 1U);
            const std::uint32_t whole = area.size * elements;
            for (std::uint32_t length = 0; length <= whole + 2; ++length) {
                const GuardedBlock bytes = bench.Block(length, "value");
                bench.Random().Fill(bytes.Bytes());
                const HostRecord<ParameterRecord> record(
                    bench, ParameterOf(area.id, count, bytes.Bytes()), sizeof(ParameterRecord),
                    "parameter record");
                ReadAll(bench, record, length >= whole, area.leaves.size() * elements);
            }
        }
    }
}

void ExpectedLeaves(Bench& bench) {
    bench.LoadDefinitions();
    for (const AreaModel& area : Areas()) {
        const GuardedBlock bytes = bench.Block(std::size_t{area.size} * 2, "value");
        bench.Random().Fill(bytes.Bytes());
        for (std::uint32_t count = 1; count <= 2; ++count) {
            ParameterRecord record = ParameterOf(area.id, count, bytes.Bytes());
            const Leaves leaves = TakeLeaves(bench, &record);
            bench.Expect(leaves.size() == area.leaves.size() * count, "number of leaves",
                         {area.id});
            for (std::size_t i = 0; i < leaves.size(); ++i) {
                const std::string_view path = area.leaves[i % area.leaves.size()].path;
                const std::string element =
                    count < 2 ? "" : "[" + std::to_string(i / area.leaves.size()) + "]";
                const std::string expected =
                    element + (element.empty() || path.empty() ? "" : ".") + std::string(path);
                bench.Expect(leaves[i].first == expected,
                             "the leaf is named " + expected + ", not " + leaves[i].first);
            }
        }
    }
}

void RandomRecords(Bench& bench) {
    bench.LoadDefinitions();
    for (int round = 0; round < 300; ++round) {
        const AreaModel& area = bench.Random().OneOf(Areas());
        const GuardedBlock bytes = bench.Block(bench.Random().Below(400), "value");
        bench.Random().Fill(bytes.Bytes());
        ParameterRecord content{};
        bench.Random().Fill({reinterpret_cast<std::uint8_t*>(&content), sizeof content});
        content.identifier = area.id;
        content.bytes = bench.Random().Below(8) == 0 ? nullptr : bytes.Data();
        content.length = static_cast<std::uint32_t>(bytes.Size());
        if (bench.Random().Below(4) != 0) {
            content.count = bench.Random().Below(6);
        }
        const std::uint64_t elements = std::max(content.count, 1U);
        const bool isWhole = content.bytes != nullptr && elements * area.size <= bytes.Size();
        const HostRecord<ParameterRecord> record(
            bench, content, sizeof content + bench.Random().Below(40), "parameter record");
        ReadAll(bench, record, isWhole,
                isWhole ? area.leaves.size() * std::max(content.count, 1U) : 0);
    }
}

void NothingKnown(Bench& bench) {
    bench.LoadDefinitions();
    const GuardedBlock bytes = bench.Block(64, "value");
    for (const std::int32_t id : UnknownAreas(bench)) {
        const HostRecord<ParameterRecord> record(bench, ParameterOf(id, 1, bytes.Bytes()),
                                                 sizeof(ParameterRecord), "parameter record");
        ReadAll(bench, record, false, 0);
    }
    bench.Expect(TakeText(bench, nullptr) == "(null)", "no text of null");
    bench.Expect(TakeLeaves(bench, nullptr).empty(), "no leaves of null");
    const std::int32_t check =
        bench.Call("CheckStdParameter", [&] { return bench.Slots().CheckStdParameter(nullptr); });
    bench.Expect(check == 0, "null is no whole value");
}

void Sizes(Bench& bench) {
    bench.LoadDefinitions();
    const auto sizeOf = [&](std::int32_t id) {
        return bench.Call("GetStdStructSize", [&] { return bench.Slots().GetStdStructSize(id); });
    };
    for (const AreaModel& area : Areas()) {
        bench.Expect(sizeOf(area.id) == area.size, "size; area, bytes", {area.id, sizeOf(area.id)});
    }
    bench.Expect(sizeOf(kHugeArea) == 4294967294U, "size of the huge area", {sizeOf(kHugeArea)});
    bench.Expect(sizeOf(kLoopArea) == 0 && sizeOf(kLostArea) == 0, "no size without a usable type");
    for (const std::int32_t id : UnknownAreas(bench)) {
        bench.Expect(sizeOf(id) == 0, "no size of an unknown area", {id});
    }
}

void Balance(Bench& bench) {
    bench.LoadDefinitions();
    const GuardedBlock bytes = bench.Block(225, "value");
    bench.Random().Fill(bytes.Bytes());
    for (const std::uint32_t count : {1U, 3U, 4U}) {  // the last does not fit
        ParameterRecord record = ParameterOf(kAllArea, count, bytes.Bytes());
        bench.ExpectBalanced("GetStdParameterText", [&] { (void)TakeText(bench, &record); });
        bench.ExpectBalanced("GetStdParameterTextList", [&] { (void)TakeLeaves(bench, &record); });
    }
}

constexpr Check kChecks[] = {
    {"values", "3 GetStdParameterText spells known values", ExpectedTexts},
    {"values", "11 GetStdParameterTextList names the leaves", ExpectedLeaves},
    {"values", "21 GetStdStructSize tells the sizes", Sizes},
    {"values", "3, 11, 22 read records of every size", RecordsOfEverySize},
    {"values", "3, 11, 22 read values of every length to their end only", ValuesOfEveryLength},
    {"values", "3, 11, 22 with random records and values", RandomRecords},
    {"values", "3, 11, 22 know nothing of unknown areas and null", NothingKnown},
    {"values", "3, 11 leave nothing behind", Balance},
};

}  // namespace

std::span<const Check> ValueChecks() {
    return kChecks;
}

}  // namespace workbench::check
