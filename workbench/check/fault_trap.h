#pragma once

#include <string>

namespace workbench::check {

/// Brings the program back from calls that crash.
///
/// Access violations, other processor exceptions and `abort` on the calling thread end the call;
/// what it had taken until then is lost. Trapped calls may be nested. One object at a time.
class FaultTrap {
  public:
    FaultTrap();
    ~FaultTrap();
    FaultTrap(const FaultTrap&) = delete;
    FaultTrap& operator=(const FaultTrap&) = delete;

    /// Calls `action`; what ended it, empty when it returned.
    template <typename Action>
    [[nodiscard]] std::string Run(Action& action) {
        return RunFunction([](void* context) { (*static_cast<Action*>(context))(); }, &action);
    }

  private:
    using Function = void (*)(void* context);

    static std::string RunFunction(Function function, void* context);

    void* handler_;
};

}  // namespace workbench::check
