#pragma once

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "fuzz/boundary/definition_model.h"
#include "fuzz/boundary/program.h"
#include "fuzz/boundary/session.h"
#include "fuzz/boundary/transfer_model.h"
#include "fuzz/require.h"
#include "unit/values/recording_host.h"

namespace orvell::fuzz {

/// What the host's functions hand out.
inline constexpr std::array<std::uint8_t, 8> kSupply = {'1', '2', '3', '4', '5', '6', '7', '8'};

/// A host whose functions do as they should, but for one call.
class BadHost {
  public:
    BadHost(Session& session, Program& program) : session_(session), program_(program) {
        misconduct_.deed = program.Pick(kDeeds);
        if (misconduct_.deed != Deed::None) {
            misconduct_.call = program.Choose(4);
        }
        host_.supply.assign(kSupply.begin(), kSupply.end());
        usual_ = program.Decide() ? -1 : 1;
        host_.onCall = [this] { OnCall(); };
        if (program.Choose(8) == 7) {
            misconduct_.missing = program.Pick(kFunctions);
        }
    }

    [[nodiscard]] OnlineAccessRecord Online() const { return host_.Online(misconduct_.missing); }
    [[nodiscard]] FillRecord Fill() const { return host_.Fill(); }
    [[nodiscard]] volatile std::uint32_t* Cancel() { return &cancel_; }

    /// Compares the calls that have been made with those of the transfer, and tells its course.
    [[nodiscard]] TransferCourse RequireCalled(const ModelTransfer& transfer) const {
        TransferCourse course = CourseOf(transfer, misconduct_);
        auto calls = host_.calls;
        for (auto& call : calls) {
            call.address = transfer.place != nullptr ? call.address : nullptr;
        }
        Require(calls == course.calls, "each leaf goes once, in order, by its own function");
        return course;
    }

  private:
    using Deed = Misconduct::Deed;
    static constexpr std::array kDeeds = {Deed::None, Deed::Refuse, Deed::Throw, Deed::Cancel,
                                          Deed::CallBack};
    static constexpr std::array<const char*, 14> kFunctions = {
        "Get16",    "Put16", "Alt16", "GetText", "AltText",   "Put8",      "AltFloat",
        "GetFloat", "Put32", "Alt64", "Get64",   "PutDouble", "AltDouble", "Get32"};

    void OnCall() {
        const bool isTime = host_.calls.size() - 1 == misconduct_.call;
        host_.answer = isTime && misconduct_.deed == Deed::Refuse ? 0 : usual_;
        if (!isTime) {
            return;
        }
        if (misconduct_.deed == Deed::Throw) {
            throw std::runtime_error("a host that is none");
        }
        if (misconduct_.deed == Deed::Cancel) {
            cancel_ = 0x100;
        }
        if (misconduct_.deed == Deed::CallBack) {
            RunFromCallback(session_, program_);
        }
    }

    Session& session_;
    Program& program_;
    Misconduct misconduct_;
    std::int32_t usual_ = 1;  ///< any answer but 0 is success
    volatile std::uint32_t cancel_ = 0;
    values::RecordingHost host_;
};

}  // namespace orvell::fuzz
