#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace orvell::fuzz {

/// Two files with definitions, and what is to be done with them.
struct DefinitionTexts {
    std::string definitions;
    std::string exported;           ///< to be merged into the first; empty: there is none
    std::uint32_t failingCall = 0;  ///< of the XML library; 0: none
    bool staysBroken = false;       ///< all calls after it fail as well
    bool givesOtherNodes = false;   ///< texts and comments stand among the elements
    std::uint32_t count = 0;        ///< of a vector's values
    std::span<const std::uint8_t> value;
};

/// Every input makes two well-formed files of elements that belong there, or nearly do. It begins
/// with a byte for the XML library and one for the count; then come steps, one byte each and what
/// it takes; what is behind `kEndOfSteps` are the bytes of a value.
[[nodiscard]] DefinitionTexts DecodeDefinitions(std::span<const std::uint8_t> input);

inline constexpr std::uint8_t kEndOfSteps = 0xFF;

}  // namespace orvell::fuzz
