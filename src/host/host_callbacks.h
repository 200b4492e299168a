#pragma once

#include <cstdint>
#include <string>

#include "orvell/orvell.h"

namespace orvell::host {

/// The callbacks that the host has installed. An absent callback is never called.
class HostCallbacks {
  public:
    /// Replaces all callbacks by those of the host's table, as far as its size reaches; null
    /// empties the table.
    void Install(const HostExportTable* table);

    [[nodiscard]] const HostExportTable& Table() const { return table_; }

    /// Number of the host's message page with this name, 0 when there is none.
    [[nodiscard]] std::int32_t MessagePage(const std::string& name) const;

    /// Appends a line to a message page (colour 0x00BBGGRR). The callback's result, 0 without one.
    std::int32_t AppendMessage(std::int32_t page, const std::string& line, std::uint32_t color,
                               bool emphasis) const;

  private:
    HostExportTable table_{sizeof(HostExportTable), nullptr, nullptr, nullptr, nullptr};
};

}  // namespace orvell::host
