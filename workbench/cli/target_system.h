#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "cli/target_table.h"
#include "orvell/orvell.h"

namespace workbench::cli {

/// How a simulated target system behaves.
struct TargetBehaviour {
    std::uint32_t delay = 0;                   ///< milliseconds before each value
    std::optional<TargetAddress> refused;      ///< the value that is neither written nor read
    std::optional<std::uint32_t> cancelAfter;  ///< values; the transfer's cancel word is then set
};

/// A simulated target system: a table of values behind the functions of an online access record.
/// These carry no context, so that there can be only one target system at a time. One thread at a
/// time may use it, whichever that is.
class TargetSystem {
  public:
    /// Why a value was not transferred.
    enum class Problem { Refused, Missing, OtherWidth };
    struct Failure {
        TargetAddress address;
        Problem problem;
    };

    /// Serves `area`'s values in `table`, which must outlive it.
    TargetSystem(TargetTable& table, std::uint32_t area, const TargetBehaviour& behaviour);
    ~TargetSystem();
    TargetSystem(const TargetSystem&) = delete;
    TargetSystem& operator=(const TargetSystem&) = delete;

    /// All functions; usable as long as the object lives.
    [[nodiscard]] static OnlineAccessRecord Access();

    /// Values written and read so far.
    [[nodiscard]] std::uint32_t Transferred() const { return transferred_; }

    /// The last value that was not transferred.
    [[nodiscard]] const std::optional<Failure>& LastFailure() const { return failure_; }

    // What the functions of the record do; false: failed.
    [[nodiscard]] bool Write(std::uint32_t element, std::uint32_t offset,
                             std::span<const std::uint8_t> bytes);
    [[nodiscard]] bool Read(std::uint32_t element, std::uint32_t offset,
                            std::span<std::uint8_t> bytes);
    [[nodiscard]] bool ReadText(std::uint32_t element, std::uint32_t offset,
                                std::span<char> buffer);

  private:
    [[nodiscard]] bool Begin(const TargetAddress& address);
    [[nodiscard]] const std::vector<std::uint8_t>* Find(const TargetAddress& address);
    [[nodiscard]] bool Fail(const TargetAddress& address, Problem problem);
    [[nodiscard]] bool Done();

    TargetTable& table_;
    std::uint32_t area_;
    TargetBehaviour behaviour_;
    std::uint32_t transferred_ = 0;
    std::optional<Failure> failure_;
};

}  // namespace workbench::cli
