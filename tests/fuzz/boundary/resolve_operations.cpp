#include <algorithm>
#include <array>
#include <list>

#include "fuzz/boundary/definition_model.h"
#include "fuzz/boundary/host_record.h"
#include "fuzz/boundary/leaf_model.h"
#include "fuzz/boundary/session.h"
#include "fuzz/boundary/vocabulary.h"
#include "fuzz/require.h"

namespace orvell::fuzz {
namespace {

/// A name list of the host's own.
class HostList {
  public:
    void Add(const std::string& path, const std::string& text) {
        first_.emplace_front(path);
        second_.emplace_front(text);
        nodes_.push_front({const_cast<char*>(first_.front().Pointer()),
                           const_cast<char*>(second_.front().Pointer()),
                           nodes_.empty() ? nullptr : &nodes_.front()});
    }

    [[nodiscard]] NameListNode* Head() { return nodes_.empty() ? nullptr : &nodes_.front(); }

  private:
    std::list<HostText> first_;
    std::list<HostText> second_;
    std::list<NameListNode> nodes_;
};

using PathsAndTexts = std::vector<std::pair<std::string, std::string>>;

/// The value's bytes from texts; none when one of them has no place, or is refused.
std::optional<std::string> BytesFromTexts(const std::vector<PlacedLeaf>& leaves, std::string bytes,
                                          const PathsAndTexts& texts) {
    for (const auto& [path, text] : texts) {
        const auto leaf = std::find_if(
            leaves.begin(), leaves.end(),
            [&path = path](const PlacedLeaf& candidate) { return candidate.path == path; });
        const auto imported =
            leaf != leaves.end() ? ImportedBytes(*leaf->type, text) : std::nullopt;
        if (!imported) {
            return std::nullopt;
        }
        bytes.replace(leaf->offset, imported->size(), *imported);
    }
    return bytes;
}

/// The value's bytes from the parameters from this address on; none when it is no address.
std::optional<std::string> BytesFromList(Session& session, const std::vector<PlacedLeaf>& leaves,
                                         std::string bytes,
                                         const std::optional<std::string>& addressText) {
    const ModelAddress address = session.list.Parse(OrEmpty(addressText));
    if (!addressText || address.kind == nullptr) {
        return std::nullopt;
    }
    std::uint32_t number = address.number;
    for (const PlacedLeaf& leaf : leaves) {
        if (const ModelEntry* entry = session.list.EntryToRead(*address.kind, number++)) {
            const std::string stored =
                BytesFromParameter(*leaf.type, address.kind->type, entry->value);
            bytes.replace(leaf.offset, stored.size(), stored);
        }
    }
    return bytes;
}

/// What slot 13 must build; none when it must fail.
std::optional<std::string> Gathered(Session& session, const ModelArea& area, std::uint32_t count,
                                    const PathsAndTexts& texts,
                                    const std::optional<std::string>& addressText) {
    const std::string zeros(std::size_t{area.size} * Elements(count), '\0');
    const std::vector<PlacedLeaf> leaves = LeavesOf(area, count);
    return texts.empty() ? BytesFromList(session, leaves, zeros, addressText)
                         : BytesFromTexts(leaves, zeros, texts);
}

void Resolve(Session& session, Program& program) {
    constexpr const char* kPaths[] = {"",      "x", "y[0]", "y[1]", "[0]", "[1]",
                                      "[1].x", "z", "l",    "h",    "d",   "b",
                                      "t",     "o", "c",    "f",    "m",   "n.y[1]"};
    constexpr const char* kSpelled[] = {"5",          "-7",      "32767",  "2,96",    "-1.5e3",
                                        "On",         "Off",     "\"ab\"", "\"abcde", "",
                                        "7000000000", kTimeText, "1e400",  "x"};
    PathsAndTexts texts;
    HostList list;
    const std::uint32_t pairs = program.Choose(4);
    for (std::uint32_t i = 0; i < pairs; ++i) {
        const char* const path = program.Pick(kPaths);
        texts.emplace(texts.begin(), path, program.Pick(kSpelled));
        list.Add(texts.front().first, texts.front().second);
    }
    constexpr std::int32_t kResolvedAreas[] = {1, 2,  4,  5,  99, 10, 3,  6, 7,
                                               9, 11, 12, 13, 14, 15, 16, 17};
    const std::optional<std::string> address = ChooseAddress(program);
    HostText addressText(address);
    const ParameterDescriptionRecord content{
        sizeof content, program.Pick(kResolvedAreas), program.Choose(4), 77, nullptr, 1, 0, {},
        list.Head(),    addressText.Pointer()};
    HostRecord<ParameterDescriptionRecord> host(program, content);
    const ParameterDescriptionRecord record = host.Understood();
    if (record.texts == nullptr) {
        texts.clear();
    }
    const ModelArea* const area = session.AreaOf(record.identifier);
    std::optional<std::string> expected;
    if (area != nullptr && area->hasValues) {
        expected = Gathered(session, *area, record.count, texts,
                            record.address != nullptr ? address : std::nullopt);
    }
    const std::string before = host.Bytes();
    const std::int32_t result = session.standard.ResolveStdParameter(host.Pointer());
    Require(result == (expected ? 1 : 0), "a value is built of what is known");
    if (!expected) {
        RequireSame(host.Bytes(), before, "a record that could not be resolved stays");
        return;
    }
    const ParameterDescriptionRecord resolved = host.Understood();
    if (host.Holds(16)) {
        Require(resolved.length == expected->size(), "a resolved value has its length");
        RequireSame({static_cast<char*>(resolved.bytes), resolved.length}, *expected,
                    "a resolved value has the parameters' values");
        session.standard.FreeStdMemory(resolved.bytes);
    }
}

constexpr std::array kResolveOperations = {Operation{'O', Resolve}};

}  // namespace

std::span<const Operation> ResolveOperations() {
    return kResolveOperations;
}

}  // namespace orvell::fuzz
