#include <array>

#include "fuzz/boundary/definition_model.h"
#include "fuzz/boundary/host_record.h"
#include "fuzz/boundary/leaf_model.h"
#include "fuzz/boundary/session.h"
#include "fuzz/boundary/vocabulary.h"
#include "fuzz/require.h"

namespace orvell::fuzz {
namespace {

std::uint32_t ChooseShownCount(Program& program) {
    constexpr std::array<std::uint32_t, 6> kCounts = {1, 2, 0, 5, 0xFFFFFFFF, 0x80000001};
    return program.Pick(kCounts);
}

/// Words one behind the other, as many as a program spells, and perhaps half a one.
std::string ChooseWords(Program& program) {
    std::string bytes;
    for (std::uint32_t words = program.Choose(41); words != 0; --words) {
        bytes += BytesOf(static_cast<std::uint16_t>(ChooseInteger(program)));
    }
    return program.Decide() ? bytes + '\x7F' : bytes;
}

std::string BytesOfLeaf(const PlacedLeaf& leaf, const std::string& bytes) {
    return bytes.substr(leaf.offset, leaf.type->width);
}

/// The texts of all leaves, one behind the other; none when the model does not know them all.
std::optional<std::string> JoinedText(const ParameterRecord& record, const ModelArea& area,
                                      const std::string& bytes) {
    const Showing showing{static_cast<std::uint8_t>(record.format & 15), record.attribute != 0};
    std::string joined;
    const char* separator = "";
    for (const PlacedLeaf& leaf : LeavesOf(area, record.count)) {
        const auto text = ShownText(*leaf.type, BytesOfLeaf(leaf, bytes), showing);
        if (!text) {
            return std::nullopt;
        }
        joined += separator + *text;
        separator = "; ";
    }
    return joined;
}

void RequireJoined(const ParameterRecord& record, const ModelArea& area, const std::string& bytes,
                   const char* text) {
    if (const std::optional<std::string> expected = JoinedText(record, area, bytes)) {
        Require((text == nullptr) == expected->empty(), "a value has a text unless it is empty");
        Require(text == nullptr || text == *expected, "the texts of the leaves are joined");
    } else {
        Require(text != nullptr, "dates have texts");
    }
}

void RequireList(const ParameterRecord& record, const ModelArea& area, const std::string& bytes,
                 const NameListNode* node) {
    for (const PlacedLeaf& leaf : LeavesOf(area, record.count)) {
        Require(node != nullptr && node->first == leaf.path, "all leaves are listed in order");
        const std::optional<std::string> text = ListedText(*leaf.type, BytesOfLeaf(leaf, bytes));
        Require(!text || node->second == *text, "leaves have their texts");
        node = node->next;
    }
    Require(node == nullptr, "nothing but leaves is listed");
}

/// Slots 3, 4, 11, 12 and 22 on one value.
void Show(Session& session, Program& program) {
    const std::string bytes = ChooseWords(program);
    HostMemory memory(bytes);
    ParameterRecord content{sizeof content,
                            ChooseArea(program),
                            ChooseShownCount(program),
                            static_cast<std::uint32_t>(bytes.size()),
                            memory.Data(),
                            program.Decide() ? 1 : 0,
                            program.Byte(),
                            {}};
    content.bytes = program.Choose(8) == 7 ? nullptr : content.bytes;
    HostRecord<ParameterRecord> host(program, content);
    const ParameterRecord record = host.Understood();
    const std::string before = host.Bytes() + memory.Bytes();
    const ModelArea* const area = session.AreaOf(record.identifier);
    const std::uint32_t length = record.bytes != nullptr ? record.length : 0;
    const bool isWhole = area != nullptr && area->hasValues &&
                         std::uint64_t{area->size} * Elements(record.count) <= length;
    Require(session.standard.CheckStdParameter(host.Pointer()) == (isWhole ? 1 : 0),
            "a value is whole when its bytes suffice");
    char* const text = session.standard.GetStdParameterText(host.Pointer());
    NameListNode* const list = session.standard.GetStdParameterTextList(host.Pointer());
    if (isWhole) {
        if (record.bytes != nullptr) {
            RequireJoined(record, *area, bytes, text);
        }
        RequireList(record, *area, bytes, list);
    } else {
        Require(text == nullptr && list == nullptr, "what is not whole is not shown");
    }
    session.standard.FreeStdMemory(text);
    session.standard.FreeStdTextList(list);
    RequireSame(host.Bytes() + memory.Bytes(), before, "a value that is shown stays");
}

constexpr std::array kRecordOperations = {Operation{'S', Show}};

}  // namespace

std::span<const Operation> RecordOperations() {
    return kRecordOperations;
}

}  // namespace orvell::fuzz
