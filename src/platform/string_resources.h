#pragma once

#include <cstdint>
#include <string>

namespace orvell::platform {

/// Where the texts of a string table come from.
class StringSource {
  public:
    StringSource() = default;
    StringSource(const StringSource&) = delete;
    StringSource& operator=(const StringSource&) = delete;
    virtual ~StringSource() = default;

    /// The text with this number in the ANSI code page, empty when there is none.
    [[nodiscard]] virtual std::string Load(std::uint32_t number) const = 0;
};

}  // namespace orvell::platform
