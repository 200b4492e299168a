#pragma once

#include <cstdint>
#include <string_view>

#include "orvell/orvell.h"

namespace orvell::soak {

/// The host's functions on a target system: what is read depends on the place only, what is written
/// lies in memory.
class TargetSystem {
  public:
    [[nodiscard]] static OnlineAccessRecord Functions();

    /// For FillRecord.
    static std::int32_t ORVELL_CALL Fill(std::uint32_t element, std::uint32_t offset, void* bytes,
                                         std::uint32_t byteCount, std::uint32_t kind);

    /// All that has been written since it was cleared.
    [[nodiscard]] static std::string_view Written();
    static void Clear();
};

}  // namespace orvell::soak
