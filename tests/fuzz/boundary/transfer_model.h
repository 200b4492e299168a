#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/boundary/definition_model.h"
#include "unit/values/recording_host.h"

namespace orvell::fuzz {

/// What a host does wrong: something in one of its calls, and a function that it has not.
struct Misconduct {
    enum class Deed { None, Refuse, Throw, Cancel, CallBack };

    static constexpr std::uint32_t kNever = std::numeric_limits<std::uint32_t>::max();

    Deed deed = Deed::None;
    std::uint32_t call = kNever;  ///< counted from 0
    std::string missing;
};

/// A value that is to go to or come from the host.
struct ModelTransfer {
    const ModelArea* area;             ///< null: unknown
    std::uint32_t count;               ///< elements
    const char* family;                ///< of functions: "Put", "Alt", "Get" or "Raw"
    std::optional<std::string> bytes;  ///< what lies in the value's place; none: it has no place
    const std::uint8_t* place;         ///< null: not known
};

/// The calls that a transfer must make, leaf by leaf, and whether it succeeds.
struct TransferCourse {
    std::vector<values::RecordingHost::Call> calls;
    bool isDone = false;
};

[[nodiscard]] TransferCourse CourseOf(const ModelTransfer& transfer, const Misconduct& host);

}  // namespace orvell::fuzz
