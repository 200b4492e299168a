#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <string_view>

#include "memstruct/memory_structure_store.h"
#include "orvell/orvell.h"

namespace orvell::host {

/// Memory that crosses the boundary comes from the C run-time's malloc, which a host built with the
/// same run-time shares; it goes back through the release slots.
struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};

using BoundaryText = std::unique_ptr<char, FreeMemory>;

/// A NUL-terminated copy of the text. Throws std::bad_alloc when there is no memory.
[[nodiscard]] BoundaryText CopyText(std::string_view text);

/// Value bytes on their way to the host.
struct BoundaryBytes {
    std::unique_ptr<std::uint8_t, FreeMemory> memory;
    std::uint32_t length = 0;

    [[nodiscard]] std::span<std::uint8_t> Span() const { return {memory.get(), length}; }
};

/// Zeroed room for a value of so many bytes; none when memory is short, and for more than the
/// 2 GiB - 1 that an object can have.
[[nodiscard]] BoundaryBytes ZeroedBytes(std::uint64_t length);

/// Frees all nodes of a name list and both texts of each; null is an empty list.
void FreeNameList(NameListNode* head);

struct FreeNames {
    void operator()(NameListNode* head) const { FreeNameList(head); }
};

using NameList = std::unique_ptr<NameListNode, FreeNames>;

/// A name list of (path, text) nodes in the given order, null for no leaves. Throws std::bad_alloc,
/// with everything freed, when there is no memory.
[[nodiscard]] NameList MakeNameList(std::span<const memstruct::NamedText> leaves);

}  // namespace orvell::host
