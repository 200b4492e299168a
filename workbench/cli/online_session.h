#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/cancel_word.h"
#include "cli/session.h"
#include "cli/target_system.h"

namespace workbench::cli {

/// The simulated target system of one run: the table in the project's file, and where the values of
/// the area at hand lie in it.
class OnlineSession {
  public:
    /// `session` must outlive it. `count` values of the area.
    OnlineSession(const Session& session, std::uint32_t area, std::uint32_t count);

    /// Reads the table and what the command line says about the target's behaviour. False when they
    /// cannot be used, which has been reported.
    [[nodiscard]] bool Open();

    /// Writes the table back. False when this fails, which has been reported.
    [[nodiscard]] bool Save() const;

    [[nodiscard]] TargetTable& Table() { return table_; }
    [[nodiscard]] const TargetBehaviour& Behaviour() const { return behaviour_; }
    [[nodiscard]] std::size_t LeafCount() const { return places_.size(); }

    /// Reports why a transfer did not come to its end.
    [[nodiscard]] ExitCode Explain(const TargetSystem& target, const std::string& done) const;

  private:
    [[nodiscard]] std::string PathOf(const TargetAddress& address) const;
    [[nodiscard]] bool TakeRefusedPath(const std::string& path);

    const Session& session_;
    std::uint32_t area_;
    std::vector<LeafPlace> places_;
    TargetTable table_;
    TargetBehaviour behaviour_;
};

}  // namespace workbench::cli
