#include "host/sized_record.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace orvell::host {

namespace {

constexpr std::uint32_t kWordBytes = sizeof(std::uint32_t);

std::uint32_t SizeWord(const void* record) {
    std::uint32_t size = 0;
    std::memcpy(&size, record, kWordBytes);
    return size;
}

void RestoreSizeWord(void* record, std::uint32_t size) {
    std::memcpy(record, &size, kWordBytes);
}

}  // namespace

void CopySizedTable(const void* source, void* destination, bool clear) {
    if (destination == nullptr) {
        return;
    }
    const std::uint32_t destinationSize = SizeWord(destination);
    if (clear) {
        std::memset(destination, 0, destinationSize);
    }
    if (source != nullptr) {
        std::memcpy(destination, source, std::min(SizeWord(source), destinationSize));
    }
    RestoreSizeWord(destination, destinationSize);
}

void CopySizedTable(void* source, void* destination, bool clear) {
    CopySizedTable(static_cast<const void*>(source), destination, clear);
    if (source == nullptr || destination == nullptr) {
        return;
    }
    const std::uint32_t sourceSize = SizeWord(source);
    std::memset(source, 0, std::min(sourceSize, SizeWord(destination)));
    RestoreSizeWord(source, sourceSize);
}

void HandOverTable(void* ownTable, void* hostTable) {
    const std::uint32_t wholeSlots = SizeWord(hostTable) / kWordBytes * kWordBytes;
    RestoreSizeWord(ownTable, std::min(SizeWord(ownTable), wholeSlots));
    CopySizedTable(ownTable, hostTable, true);
}

void DropCutPointer(void* record, std::uint32_t senderSize, std::span<const std::size_t> offsets) {
    for (const std::size_t offset : offsets) {
        if (senderSize > offset && senderSize < offset + sizeof(void*)) {
            std::memset(static_cast<unsigned char*>(record) + offset, 0, sizeof(void*));
        }
    }
}

void FreeWhatDoesNotFit(void* record, std::uint32_t receiverSize,
                        std::span<const std::size_t> ownedOffsets) {
    for (const std::size_t offset : ownedOffsets) {
        if (receiverSize < offset + sizeof(void*)) {
            void* pointer = nullptr;
            auto* place = static_cast<unsigned char*>(record) + offset;
            std::memcpy(&pointer, place, sizeof pointer);
            std::free(pointer);
            std::memset(place, 0, sizeof pointer);
        }
    }
}

}  // namespace orvell::host
