#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>

#include "definition_model.h"
#include "program.h"
#include "session.h"
#include "unit/values/recording_host.h"

namespace orvell::fuzz {

/// What the host's functions hand out.
inline constexpr std::array<std::uint8_t, 8> kSupply = {'1', '2', '3', '4', '5', '6', '7', '8'};

/// A host whose functions do as they should, but for one call.
class BadHost {
  public:
    BadHost(Session& session, Program& program)
        : session_(session), program_(program), misdeed_(program.Pick(kMisdeeds)) {
        call_ = misdeed_ == Misdeed::None ? kNever : program.Choose(4);
        host_.supply.assign(kSupply.begin(), kSupply.end());
        usual_ = program.Decide() ? -1 : 1;
        host_.onCall = [this] { OnCall(); };
        if (program.Choose(8) == 7) {
            missing_ = program.Pick(kFunctions);
        }
    }

    [[nodiscard]] OnlineAccessRecord Online() const { return host_.Online(missing_); }
    [[nodiscard]] FillRecord Fill() const { return host_.Fill(); }
    [[nodiscard]] volatile std::uint32_t* Cancel() { return &cancel_; }

    /// Whether one of the area's values cannot be transferred by functions of this family.
    [[nodiscard]] bool Fails(const ModelArea& area, std::uint32_t count,
                             const std::string& family) const {
        const std::uint64_t calls = std::uint64_t{area.leaves.size()} * count;
        const bool isRefused = misdeed_ == Misdeed::Refuse || misdeed_ == Misdeed::Throw ||
                               (misdeed_ == Misdeed::Cancel && family != "Put" && family != "Raw");
        if (isRefused && call_ < calls - (misdeed_ == Misdeed::Cancel && calls != 0 ? 1 : 0)) {
            return true;
        }
        for (const ModelLeaf& leaf : area.leaves) {
            if (count != 0 && missing_ == family + leaf.functions) {
                return true;
            }
        }
        return false;
    }

  private:
    static constexpr std::uint32_t kNever = std::numeric_limits<std::uint32_t>::max();

    enum class Misdeed { None, Refuse, Throw, Cancel, CallBack };
    static constexpr std::array kMisdeeds = {Misdeed::None, Misdeed::Refuse, Misdeed::Throw,
                                             Misdeed::Cancel, Misdeed::CallBack};
    static constexpr std::array<const char*, 8> kFunctions = {
        "Get16", "Put16", "Alt16", "GetText", "AltText", "Put8", "AltFloat", "GetFloat"};

    void OnCall() {
        const bool isTime = host_.calls.size() - 1 == call_;
        host_.answer = isTime && misdeed_ == Misdeed::Refuse ? 0 : usual_;
        if (!isTime) {
            return;
        }
        if (misdeed_ == Misdeed::Throw) {
            throw std::runtime_error("a host that is none");
        }
        if (misdeed_ == Misdeed::Cancel) {
            cancel_ = 0x100;
        }
        if (misdeed_ == Misdeed::CallBack) {
            RunFromCallback(session_, program_);
        }
    }

    Session& session_;
    Program& program_;
    Misdeed misdeed_;
    std::uint32_t call_ = kNever;
    std::string missing_;
    std::int32_t usual_ = 1;  ///< any answer but 0 is success
    volatile std::uint32_t cancel_ = 0;
    values::RecordingHost host_;
};

}  // namespace orvell::fuzz
