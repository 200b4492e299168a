#include "host/boundary_memory.h"

#include <cstring>
#include <limits>
#include <new>

namespace orvell::host {

namespace {

void* Allocate(std::size_t bytes) {
    void* memory = std::malloc(bytes);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

NameListNode* MakeNode(const memstruct::NamedText& leaf) {
    BoundaryText path = CopyText(leaf.path);
    BoundaryText text = CopyText(leaf.text);
    auto* node = new (Allocate(sizeof(NameListNode))) NameListNode{};
    node->first = path.release();
    node->second = text.release();
    return node;
}

}  // namespace

BoundaryText CopyText(std::string_view text) {
    BoundaryText copy(static_cast<char*>(Allocate(text.size() + 1)));
    std::memcpy(copy.get(), text.data(), text.size());
    copy.get()[text.size()] = '\0';
    return copy;
}

BoundaryBytes ZeroedBytes(std::uint64_t length) {
    constexpr std::uint64_t kLongest = std::numeric_limits<std::int32_t>::max();
    if (length > kLongest) {
        return {};
    }
    const auto size = static_cast<std::uint32_t>(length);
    BoundaryBytes bytes{
        std::unique_ptr<std::uint8_t, FreeMemory>(static_cast<std::uint8_t*>(std::calloc(1, size))),
        size};
    if (bytes.memory == nullptr) {
        bytes.length = 0;
    }
    return bytes;
}

void FreeNameList(NameListNode* head) {
    while (head != nullptr) {
        NameListNode* next = head->next;
        std::free(head->first);
        std::free(head->second);
        std::free(head);
        head = next;
    }
}

NameList MakeNameList(std::span<const memstruct::NamedText> leaves) {
    NameList list;
    NameListNode* last = nullptr;
    for (const memstruct::NamedText& leaf : leaves) {
        NameListNode* node = MakeNode(leaf);
        if (last == nullptr) {
            list.reset(node);
        } else {
            last->next = node;
        }
        last = node;
    }
    return list;
}

}  // namespace orvell::host
