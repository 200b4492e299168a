#include "fuzz/boundary/transfer_model.h"

#include <algorithm>

namespace orvell::fuzz {
namespace {

using Call = values::RecordingHost::Call;
using Deed = Misconduct::Deed;

bool IsRaw(const ModelTransfer& transfer) {
    return std::string(transfer.family) == "Raw";
}

bool IsCancelled(const ModelTransfer& transfer, const Misconduct& host, std::size_t calls) {
    const bool isCancellable = !IsRaw(transfer) && std::string(transfer.family) != "Put";
    return isCancellable && host.deed == Deed::Cancel && calls > host.call;
}

/// Whether a leaf is not transferred, and what follows it neither.
bool IsEnd(const ModelTransfer& transfer, const Misconduct& host, const PlacedLeaf& leaf,
           bool isWhole, std::size_t calls) {
    if (!transfer.bytes) {
        return true;
    }
    const bool isMissing = host.missing == std::string(transfer.family) + leaf.type->functions;
    return !IsRaw(transfer) && (!isWhole || isMissing || IsCancelled(transfer, host, calls));
}

/// A text without what is behind its first NUL; the last byte counts as one.
std::string Terminated(const std::string& text) {
    return text.substr(0, std::min(text.find('\0'), text.size() - 1)) + '\0';
}

Call CallFor(const ModelTransfer& transfer, const PlacedLeaf& leaf, const std::string& value) {
    const std::string functions = leaf.type->functions;
    const auto element = static_cast<std::uint32_t>(leaf.offset / transfer.area->size);
    const auto offset = static_cast<std::uint32_t>(leaf.offset % transfer.area->size);
    if (IsRaw(transfer)) {
        const auto* const place =
            transfer.place != nullptr ? transfer.place + leaf.offset : nullptr;
        return {"PutRaw", element, offset, {value.begin(), value.end()}, leaf.type->rawKind, place};
    }
    std::string given = functions == "Text" ? Terminated(value) : value;
    if (std::string(transfer.family) == "Get") {
        given.clear();
    }
    return {transfer.family + functions, element, offset, {given.begin(), given.end()}, 0, nullptr};
}

/// The leaves as far as there are bytes for them, and some more if there are too few.
std::vector<PlacedLeaf> LeavesWithin(const ModelTransfer& transfer) {
    const std::size_t length = transfer.bytes ? transfer.bytes->size() : 0;
    const std::uint32_t size = std::max(transfer.area->size, 1U);
    const auto enough = static_cast<std::uint32_t>(length / size + 1);
    return LeavesOf(*transfer.area, std::min(transfer.count, enough));
}

}  // namespace

TransferCourse CourseOf(const ModelTransfer& transfer, const Misconduct& host) {
    TransferCourse course;
    if (transfer.area == nullptr || !transfer.area->hasValues) {
        return course;
    }
    bool isDone = true;
    const std::string bytes = transfer.bytes.value_or("");
    for (const PlacedLeaf& leaf : LeavesWithin(transfer)) {
        const std::string value =
            bytes.substr(std::min(leaf.offset, bytes.size()), leaf.type->width);
        const bool isWhole = value.size() == leaf.type->width;
        if (IsEnd(transfer, host, leaf, isWhole, course.calls.size())) {
            return course;
        }
        const bool isRefused = (host.deed == Deed::Refuse || host.deed == Deed::Throw) &&
                               host.call == course.calls.size();
        course.calls.push_back(CallFor(transfer, leaf, value));
        isDone = isDone && !isRefused;
        if (!isWhole || (isRefused && !IsRaw(transfer))) {
            return course;
        }
    }
    course.isDone = isDone;
    return course;
}

}  // namespace orvell::fuzz
