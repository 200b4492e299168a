#include <array>
#include <list>
#include <map>

#include "definition_model.h"
#include "host_record.h"
#include "require.h"
#include "session.h"
#include "vocabulary.h"

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

/// The bytes that a word gets from the parameter at a number.
std::string WordFrom(Session& session, const ModelAddress& address, std::uint32_t number) {
    const ModelEntry* const entry = session.list.EntryToRead(*address.kind, number);
    std::uint64_t integer = 0;
    if (entry != nullptr) {
        const ModelType type = address.kind->type;
        const ModelValue& value = entry->value;
        const auto number64 = NumberOf(type, value);
        integer = QwordOf(type, value)
                      .value_or(DwordOf(type, value).value_or(WordOf(type, value).value_or(0)));
        if (integer == 0 && number64) {
            integer = static_cast<std::uint64_t>(IntegerPart(*number64));
        }
    }
    return BytesOf(static_cast<std::uint16_t>(integer));
}

/// What slot 13 must build; none when it must fail.
std::optional<std::string> Gathered(Session& session, const ModelArea& area, std::uint32_t count,
                                    const std::vector<std::pair<std::string, std::string>>& texts,
                                    const std::optional<std::string>& addressText) {
    std::map<std::string, std::size_t> offsets;
    std::string bytes(std::size_t{area.size} * Elements(count), '\0');
    const std::vector<PlacedLeaf> leaves = LeavesOf(area, count);
    for (const PlacedLeaf& leaf : leaves) {
        offsets[leaf.path] = leaf.offset;
    }
    for (const auto& [path, text] : texts) {
        if (offsets.count(path) == 0) {
            return std::nullopt;
        }
        bytes.replace(offsets[path], 2, BytesOf(static_cast<std::int16_t>(std::stoi(text))));
    }
    if (texts.empty()) {
        const ModelAddress address = session.list.Parse(OrEmpty(addressText));
        if (!addressText || address.kind == nullptr) {
            return std::nullopt;
        }
        std::uint32_t number = address.number;
        for (const PlacedLeaf& leaf : leaves) {
            bytes.replace(leaf.offset, 2, WordFrom(session, address, number++));
        }
    }
    return bytes;
}

void Resolve(Session& session, Program& program) {
    constexpr std::array<const char*, 8> kPaths = {"",    "x",   "y[0]",  "y[1]",
                                                   "[0]", "[1]", "[1].x", "z"};
    constexpr std::array<const char*, 3> kSpelled = {"5", "-7", "32767"};
    std::vector<std::pair<std::string, std::string>> texts;
    HostList list;
    const std::uint32_t pairs = program.Choose(4);
    for (std::uint32_t i = 0; i < pairs; ++i) {
        const char* const path = program.Pick(kPaths);
        texts.emplace(texts.begin(), path, program.Pick(kSpelled));
        list.Add(texts.front().first, texts.front().second);
    }
    constexpr std::array<std::int32_t, 5> kResolvedAreas = {1, 2, 4, 5, 99};
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
