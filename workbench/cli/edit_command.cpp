#include <span>
#include <string>
#include <vector>

#include "cli/command_options.h"
#include "cli/commands.h"
#include "cli/dialog_driver.h"
#include "cli/leaf_table.h"
#include "cli/online_session.h"
#include "cli/output.h"
#include "cli/value_argument.h"
#include "cli/value_input.h"

namespace workbench::cli {
namespace {

// Modes of DialogParameterRecord.
constexpr std::uint32_t kPlainMode = 0;
constexpr std::uint32_t kVectorMode = 1;
constexpr std::uint32_t kOnlineMode = 3;

std::uint32_t ModeOf(const CommandLine& options) {
    return options.online ? kOnlineMode : options.vector ? kVectorMode : kPlainMode;
}

/// One run of the dialog, from the command line to what has become of the value.
class Editing {
  public:
    explicit Editing(Session& session) : session_(session), options_(session.Options()) {}

    ExitCode Run() {
        if (!Prepare()) {
            return ExitCode::WrongUsage;
        }
        if (options_.online) {
            return RunOnline();
        }
        return Finish(ShowDialog(nullptr));
    }

  private:
    [[nodiscard]] bool Prepare() {
        if (options_.online && options_.vector) {
            PrintError(
                "--online and --vector exclude each other: a value in the target system "
                "keeps its length.");
            return false;
        }
        std::string error;
        if (options_.script && !ReadScript(*options_.script, steps_, error)) {
            PrintError(error);
            return false;
        }
        request_.mode = ModeOf(options_);
        request_.format = options_.format;
        request_.boxWidth = options_.boxWidth.value_or(0);
        request_.name = options_.name.value_or("");
        request_.extension = options_.comment.value_or("");
        return TakeValue(session_, value_);
    }

    ExitCode RunOnline() {
        OnlineSession online(session_, value_.area, value_.count);
        if (!online.Open()) {
            return ExitCode::WrongUsage;
        }
        if (value_.bytes.empty() && online.LeafCount() > 0) {
            // Without the behaviour: the target is to be tried by the dialog.
            const TargetSystem target(online.Table(), value_.area, {});
            if (!session_.Module().ReadOnline(value_, TargetSystem::Access(), CancelWord())) {
                return online.Explain(target, "read");
            }
        }
        const TargetSystem target(online.Table(), value_.area, online.Behaviour());
        OnlineAccessRecord access = TargetSystem::Access();
        const bool isAccepted = ShowDialog(&access);
        // What was written before a failure or a cancelled transfer stays.
        return online.Save() ? Finish(isAccepted) : ExitCode::Refused;
    }

    /// The person at the display, or the script, has the dialog until it ends.
    [[nodiscard]] bool ShowDialog(OnlineAccessRecord* target) {
        if (!options_.script) {
            const ModuleMessages::LetThrough boxes(session_.Messages());
            return session_.Module().Edit(value_, request_, target);
        }
        const DialogDriver driver(std::move(steps_));
        const bool isAccepted = session_.Module().Edit(value_, request_, target);
        problem_ = driver.Problem();
        return isAccepted;
    }

    ExitCode Finish(bool isAccepted) {
        const bool hasMessages = session_.Messages().Report();
        if (!problem_.empty()) {
            PrintError(problem_);
            return ExitCode::Refused;
        }
        if (isAccepted) {
            return Store();
        }
        if (session_.Module().AreaSize(value_.area) == 0) {
            return Session::RefuseArea(value_.area);
        }
        return hasMessages ? ExitCode::Refused : ExitCode::Cancelled;
    }

    ExitCode Store() {
        Print(LeafTable(session_.Module().Leaves(value_)));
        Print("Box width " + std::to_string(request_.boxWidth));
        if (request_.format) {
            Print(", format " + std::string(FormatName(*request_.format)));
        }
        Print("\n");
        const auto file =
            options_.into ? options_.into : ValueFile(std::span(options_.arguments).subspan(2));
        std::string error;
        if (!file) {
            Print(HexText(value_.bytes) + "\n");
        } else if (!WriteValueFile(*file, value_.bytes, error)) {
            PrintError(error);
            return ExitCode::WrongUsage;
        }
        return ExitCode::Done;
    }

    Session& session_;
    const CommandLine& options_;
    Value value_;
    EditRequest request_;
    std::vector<ScriptStep> steps_;
    std::string problem_;
};

}  // namespace

ExitCode EditValue(Session& session) {
    return Editing(session).Run();
}

}  // namespace workbench::cli
