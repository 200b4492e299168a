#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/host_callbacks.h"
#include "resources/string_table.h"

namespace orvell::host {

/// Writes the course of a parameter-list import into the host's message page "Import".
///
/// Every line looks the page up anew, since the user may close and open pages meanwhile. Each
/// operation returns what the host's callback returned, 0 when there is none.
class ImportReport {
  public:
    /// Both must outlive the report.
    ImportReport(const HostCallbacks& callbacks, const resources::StringTable& strings)
        : callbacks_(callbacks), strings_(strings) {}

    /// Number of the message page, 0 when the host has none.
    [[nodiscard]] std::int32_t FindPage() const;

    /// Names the file; without a name an empty line. Nothing when the text is missing.
    std::int32_t Start(const char* fileName) const;

    /// Reports a problem in a line (counted from 1), emphasised and in red. The message is a format
    /// text only when an argument is given.
    std::int32_t Warning(resources::StringId message, std::uint32_t line,
                         std::optional<std::string_view> argument) const;

    /// Closes the report with the number of warnings.
    std::int32_t End(std::int32_t warnings) const;

  private:
    std::int32_t Append(const std::string& line, std::uint32_t color, bool emphasis) const;

    const HostCallbacks& callbacks_;
    const resources::StringTable& strings_;
};

}  // namespace orvell::host
