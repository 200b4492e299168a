#include <algorithm>
#include <functional>
#include <new>
#include <span>

#include "cli/host_module.h"
#include "cli/parameter_record.h"

namespace workbench::cli {
namespace {

/// Takes part in the module's walk over a new value; the callback itself carries no context.
using LeafVisitor =
    std::function<void(std::uint32_t element, std::uint32_t offset, std::span<std::uint8_t> bytes)>;
const LeafVisitor* visitor = nullptr;

std::int32_t ORVELL_CALL VisitLeaf(std::uint32_t element, std::uint32_t offset, void* bytes,
                                   std::uint32_t byteCount, std::uint32_t /*kind*/) {
    try {
        (*visitor)(element, offset, {static_cast<std::uint8_t*>(bytes), byteCount});
        return 1;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}

/// Has the module allocate a value and fill it by `visit`; null when it has none.
void* FillValue(const StdParaFunctionTable& table, ParameterRecord& record,
                const LeafVisitor& visit) {
    FillRecord fill{sizeof fill, VisitLeaf};
    record.bytes = nullptr;
    record.length = 0;
    visitor = &visit;
    const bool isFilled = table.FillStdParameterValue(&record, &fill) != 0;
    visitor = nullptr;
    return isFilled ? record.bytes : nullptr;
}

constexpr std::uint8_t kFormatGiven = 0x80;
constexpr std::uint8_t kFormatBits = 0x0F;

}  // namespace

HostModule::ModuleMemory HostModule::Allocate(const Value& value, std::uint32_t& length) const {
    ParameterRecord record = Parameter(value);
    record.count = std::max(value.count, 1U);
    const std::uint64_t size = AreaSize(value.area);
    void* bytes = FillValue(table_, record, [&](auto element, auto offset, auto leaf) {
        const std::uint64_t begin =
            std::min<std::uint64_t>(element * size + offset, value.bytes.size());
        const auto rest = std::span(value.bytes).subspan(static_cast<std::size_t>(begin));
        std::ranges::copy(rest.first(std::min(rest.size(), leaf.size())), leaf.begin());
    });
    length = record.length;
    return {bytes, table_.FreeStdMemory};
}

std::vector<LeafPlace> HostModule::Places(std::uint32_t area, std::uint32_t count) const {
    Value value{area, std::max(count, 1U), {}, 0, false};
    std::vector<LeafPlace> places;
    ParameterRecord record = Parameter(value);
    const ModuleMemory bytes(FillValue(table_, record,
                                       [&](auto element, auto offset, auto) {
                                           places.push_back({{}, element, offset});
                                       }),
                             table_.FreeStdMemory);
    if (bytes == nullptr) {
        return {};
    }
    value.bytes.resize(record.length);
    const std::vector<Leaf> leaves = Leaves(value);
    for (std::size_t i = 0; i < std::min(leaves.size(), places.size()); ++i) {
        places[i].path = leaves[i].path;
    }
    return places;
}

bool HostModule::ReadOnline(Value& value, OnlineAccessRecord target,
                            volatile std::uint32_t& cancel) const {
    ParameterRecord record = Parameter(value);
    record.count = std::max(value.count, 1U);
    record.bytes = nullptr;
    record.length = 0;
    const bool isRead = table_.ReadStdParameterOnline(&record, &target, &cancel) == 1;
    const ModuleMemory memory(record.bytes, table_.FreeStdMemory);
    if (isRead) {
        const auto* bytes = static_cast<const std::uint8_t*>(record.bytes);
        value.bytes.assign(bytes, bytes + record.length);
    }
    return isRead;
}

bool HostModule::WriteOnline(const Value& value, OnlineAccessRecord target,
                             volatile std::uint32_t& cancel) const {
    ParameterRecord record = Parameter(value);
    return table_.WriteStdParameterOnline(&record, &target, &cancel) != 0;
}

bool HostModule::Edit(Value& value, EditRequest& request, OnlineAccessRecord* target) const {
    DialogParameterRecord record{};
    record.size = sizeof record;
    record.mode = request.mode;
    record.identifier = static_cast<std::int32_t>(value.area);
    record.count = value.count;
    ModuleMemory memory(nullptr, table_.FreeStdMemory);
    if (!value.bytes.empty()) {
        memory = Allocate(value, record.length);
        record.bytes = memory.get();
    }
    record.boxWidth = request.boxWidth;
    record.name = request.name.c_str();
    record.extension = request.extension.c_str();
    record.format =
        request.format ? static_cast<std::uint8_t>(kFormatGiven | *request.format) : std::uint8_t{};

    const bool isAccepted = table_.EditStdParameter(&record, target) != 0;
    (void)memory.release();  // the dialog may have replaced it
    memory.reset(record.bytes);
    if (!isAccepted) {
        return false;
    }
    value.count = record.count;
    // A vector that became shorter keeps its memory.
    const std::uint64_t size = std::uint64_t{AreaSize(value.area)} * std::max(value.count, 1U);
    const auto* bytes = static_cast<const std::uint8_t*>(record.bytes);
    value.bytes.assign(bytes, bytes + std::min<std::uint64_t>(record.length, size));
    request.boxWidth = record.boxWidth;
    if (request.format) {
        request.format = record.format & kFormatBits;
    }
    return true;
}

}  // namespace workbench::cli
