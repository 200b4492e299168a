#include "cli/target_system.h"

#include <windows.h>

#include <algorithm>
#include <cstring>

#include "cli/cancel_word.h"

namespace workbench::cli {
namespace {

TargetSystem* current = nullptr;

template <typename Number>
std::int32_t ORVELL_CALL Put(std::uint32_t element, std::uint32_t offset, Number value) {
    std::uint8_t bytes[sizeof value];
    std::memcpy(bytes, &value, sizeof value);
    return current != nullptr && current->Write(element, offset, bytes) ? 1 : 0;
}

std::int32_t ORVELL_CALL PutText(std::uint32_t element, std::uint32_t offset, const char* text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text);
    return current != nullptr && current->Write(element, offset, {bytes, std::strlen(text)}) ? 1
                                                                                             : 0;
}

template <typename Number>
std::int32_t ORVELL_CALL Get(std::uint32_t element, std::uint32_t offset, Number* value) {
    std::uint8_t bytes[sizeof *value];
    if (current == nullptr || !current->Read(element, offset, bytes)) {
        return 0;
    }
    std::memcpy(value, bytes, sizeof *value);
    return 1;
}

std::int32_t ORVELL_CALL GetText(std::uint32_t element, std::uint32_t offset, char* buffer,
                                 std::uint32_t size) {
    return current != nullptr && current->ReadText(element, offset, {buffer, size}) ? 1 : 0;
}

}  // namespace

TargetSystem::TargetSystem(TargetTable& table, std::uint32_t area, const TargetBehaviour& behaviour)
    : table_(table), area_(area), behaviour_(behaviour) {
    current = this;
}

TargetSystem::~TargetSystem() {
    current = nullptr;
}

OnlineAccessRecord TargetSystem::Access() {
    OnlineAccessRecord record{};
    record.size = sizeof record;
    record.setters = {Put, Put, Put, Put, Put, Put, PutText};
    record.getters = {Get, Get, Get, Get, Get, Get, GetText};
    record.alternative = record.setters;
    return record;
}

bool TargetSystem::Write(std::uint32_t element, std::uint32_t offset,
                         std::span<const std::uint8_t> bytes) {
    const TargetAddress address{area_, element, offset};
    if (!Begin(address)) {
        return false;
    }
    table_[address].assign(bytes.begin(), bytes.end());
    return Done();
}

bool TargetSystem::Read(std::uint32_t element, std::uint32_t offset,
                        std::span<std::uint8_t> bytes) {
    const TargetAddress address{area_, element, offset};
    const auto* stored = Find(address);
    if (stored == nullptr) {
        return false;
    }
    if (stored->size() != bytes.size()) {
        return Fail(address, Problem::OtherWidth);
    }
    std::ranges::copy(*stored, bytes.begin());
    return Done();
}

bool TargetSystem::ReadText(std::uint32_t element, std::uint32_t offset, std::span<char> buffer) {
    const TargetAddress address{area_, element, offset};
    const auto* stored = Find(address);
    if (stored == nullptr) {
        return false;
    }
    if (stored->size() >= buffer.size()) {
        return Fail(address, Problem::OtherWidth);
    }
    const auto end = std::ranges::copy(*stored, buffer.begin()).out;
    *end = '\0';
    return Done();
}

bool TargetSystem::Begin(const TargetAddress& address) {
    Sleep(behaviour_.delay);
    return behaviour_.refused != address || Fail(address, Problem::Refused);
}

/// The value to be read, null when it cannot be.
const std::vector<std::uint8_t>* TargetSystem::Find(const TargetAddress& address) {
    if (!Begin(address)) {
        return nullptr;
    }
    const auto found = table_.find(address);
    if (found == table_.end()) {
        (void)Fail(address, Problem::Missing);
        return nullptr;
    }
    return &found->second;
}

bool TargetSystem::Fail(const TargetAddress& address, Problem problem) {
    failure_ = {address, problem};
    return false;
}

bool TargetSystem::Done() {
    ++transferred_;
    if (behaviour_.cancelAfter == transferred_) {
        CancelWord() = 1;
    }
    return true;
}

}  // namespace workbench::cli
