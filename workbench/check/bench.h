#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>

#include "check/fault_trap.h"
#include "check/floating_point_state.h"
#include "check/guarded_block.h"
#include "check/message_boxes.h"
#include "check/module_under_test.h"
#include "check/random_source.h"
#include "check/test_project.h"

namespace workbench::check {

/// Thrown by a call of the module that crashed or wrote where it must not: nothing that would
/// follow can be relied on.
struct CheckEnded {};

/// What a check works with: the loaded module, a project, random numbers, and a memory for what
/// went wrong.
class Bench {
  public:
    Bench(std::string modulePath, std::uint32_t seed);

    /// Loads the module and its tables afresh; false when that fails, which counts as a failure.
    bool Reload();

    /// Runs a check with its blocks at one edge of their pages and remembers what went wrong.
    void Run(void (*check)(Bench&), Edge edge, std::uint32_t seed);

    [[nodiscard]] bool HasFailed() const { return failureCount_ > 0; }

    /// The first failure, and how many more there were.
    [[nodiscard]] std::string Failures() const;

    /// Calls the module by `action` and gives its result. Fails when the call crashes, writes
    /// beside a block or leaves the floating-point units changed; all but the last end the check.
    template <typename Action>
    auto Call(std::string_view function, Action&& action) {
        using Result = std::invoke_result_t<Action&>;
        if constexpr (std::is_void_v<Result>) {
            RunCall(function, action);
        } else {
            Result result{};
            auto keepResult = [&] { result = action(); };
            RunCall(function, keepResult);
            return result;
        }
    }

    /// `what` and the numbers tell the reader what was expected, and of which case.
    void Expect(bool isMet, std::string_view what,
                std::initializer_list<std::int64_t> numbers = {});

    /// Fails unless `action` can be repeated without the heaps growing or shrinking. It must
    /// release what it takes.
    template <typename Action>
    void ExpectBalanced(std::string_view what, Action&& action) {
        action();  // what is loaded once
        action();
        const std::size_t before = CountBlocks();
        for (int i = 0; i < kRepetitions; ++i) {
            action();
        }
        ExpectNoGrowth(what, before);
    }

    [[nodiscard]] GuardedBlock Block(std::size_t size, std::string_view what) const {
        return {size, edge_, what};
    }

    [[nodiscard]] const StdParaFunctionTable& Slots() const { return module_.Slots(); }
    [[nodiscard]] const ManagementTable& Management() const { return module_.Management(); }
    [[nodiscard]] const Exports& Functions() const { return module_.Functions(); }
    [[nodiscard]] const ModuleUnderTest& Module() const { return module_; }
    [[nodiscard]] const TestProject& Project() const { return project_; }
    [[nodiscard]] RandomSource& Random() { return random_; }
    [[nodiscard]] MessageBoxes& Boxes() { return boxes_; }

    /// A change token that no call has had yet.
    [[nodiscard]] std::uint32_t NewToken() { return ++lastToken_; }

    /// Loads the first project's definitions.
    void LoadDefinitions();

    /// Has the parameter list empty, with all its kinds.
    void BeginList();

  private:
    static constexpr int kRepetitions = 64;

    template <typename Action>
    void RunCall(std::string_view function, Action& action) {
        EndCall(function, trap_.Run(action));
    }

    void EndCall(std::string_view function, const std::string& fault);
    void Fail(const std::string& failure);
    [[noreturn]] void End(const std::string& failure);
    [[nodiscard]] static std::size_t CountBlocks();
    void ExpectNoGrowth(std::string_view what, std::size_t before);

    std::string modulePath_;
    FaultTrap trap_;
    MessageBoxes boxes_;
    TestProject project_;
    ModuleUnderTest module_;
    RandomSource random_;
    FloatingPointState usualState_ = ReadFloatingPointState();
    Edge edge_ = Edge::End;
    std::uint32_t lastToken_ = 0;
    std::size_t failureCount_ = 0;
    std::string firstFailure_;
};

}  // namespace workbench::check
