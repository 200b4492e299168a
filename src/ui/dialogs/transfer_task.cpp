#include "ui/dialogs/transfer_task.h"

namespace orvell::ui {

using resources::StringId;

void TransferTask::Start() {
    isCancelled_ = false;
    hasFailed_ = false;
    progress_ = 0;
    isRunning_ = true;
}

std::optional<StringId> TransferTask::Error() const {
    return hasFailed_ ? std::optional(StringId::OnlineWriteFailed) : std::nullopt;
}

int TransferTask::Percentage() const {
    constexpr double kWhole = 100;
    return value_.empty()
               ? static_cast<int>(kWhole)
               : static_cast<int>(progress_ / static_cast<double>(value_.size()) * kWhole);
}

void TransferTask::Run() noexcept {
    if (!Write() && !isCancelled_) {
        hasFailed_ = true;
    }
    isRunning_ = false;  // last: whoever sees it sees the error as well
}

bool TransferTask::Write() noexcept {
    try {
        return transfer_.Write(value_, host_, *this).succeeded;
    } catch (...) {
        return false;
    }
}

}  // namespace orvell::ui
