#pragma once

#include <atomic>
#include <cstdint>
#include <optional>

#include "memstruct/online_transfer.h"
#include "resources/string_table.h"

namespace orvell::ui {

/// A value on its way into the target system, written by one thread and watched by another.
/// The value, the type and the record of the host's functions must stay unchanged meanwhile.
class TransferTask final : public memstruct::TransferWatch {
  public:
    TransferTask(const values::ValueConverterSet& converters, const memstruct::TypeDef* type,
                 std::uint32_t count, values::ConstValueBuffer value,
                 const OnlineAccessRecord& host)
        : transfer_(converters, type, count), value_(value), host_(host) {}

    // ---- The watching thread

    /// To be called before the writing thread is started.
    void Start();

    /// Makes the writing stop before its next value.
    void Cancel() { isCancelled_ = true; }

    /// True from `Start` until the writing thread is done; the error is then final.
    [[nodiscard]] bool IsRunning() const { return isRunning_; }

    /// The message to show at the end; none after a success or a cancelled writing.
    [[nodiscard]] std::optional<resources::StringId> Error() const;

    /// How much of the value has been written, 0 to 100; 100 when there is nothing to write.
    [[nodiscard]] int Percentage() const;

    // ---- The writing thread

    /// Writes the value; no exception gets out.
    void Run() noexcept;

    [[nodiscard]] bool IsCancelled() override { return isCancelled_; }
    void AddProgress(std::uint32_t bytes) override { progress_ += bytes; }

  private:
    [[nodiscard]] bool Write() noexcept;

    memstruct::OnlineTransfer transfer_;
    values::ConstValueBuffer value_;
    const OnlineAccessRecord& host_;
    std::atomic<bool> isRunning_ = false;
    std::atomic<bool> isCancelled_ = false;
    std::atomic<bool> hasFailed_ = false;
    std::atomic<std::uint32_t> progress_ = 0;  // bytes
};

}  // namespace orvell::ui
