#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "check/test_project.h"
#include "orvell/orvell.h"

namespace workbench::check {

/// A call of one of the host's functions by the module.
struct HostCall {
    enum class Family { Setter, Getter, Alternative, Raw };

    Family family;
    Carrier carrier;         ///< not for raw calls
    std::uint32_t first;     ///< element
    std::uint32_t second;    ///< byte offset
    std::uint32_t width;     ///< raw calls and texts to be read; else 0
    std::uint32_t kind = 0;  ///< raw calls
};

/// The functions through which the module reaches the checker's target system, and what they were
/// asked to do. One object at a time.
class HostFunctions {
  public:
    HostFunctions();
    ~HostFunctions();
    HostFunctions(const HostFunctions&) = delete;
    HostFunctions& operator=(const HostFunctions&) = delete;

    [[nodiscard]] static OnlineAccessRecord Online();
    [[nodiscard]] static FillRecord Fill();

    void Reset();

    /// Counts the call, sets the cancel word when it is due, and answers.
    std::int32_t Take(const HostCall& call);

    static constexpr std::size_t kNever = ~std::size_t{0};

    std::size_t refusedCall = kNever;     ///< the call with this index fails
    std::size_t cancellingCall = kNever;  ///< the call with this index sets the cancel word
    volatile std::uint32_t cancel = 0;
    std::uint8_t supply = 0x21;  ///< fills all bytes that are asked for; texts are this character
    std::vector<HostCall> calls;
};

}  // namespace workbench::check
