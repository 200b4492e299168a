#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "resources/string_ids.h"

namespace orvell::paramlist {

/// Where the course of a CSV import is reported.
class ImportWarnings {
  public:
    ImportWarnings() = default;
    ImportWarnings(const ImportWarnings&) = delete;
    ImportWarnings& operator=(const ImportWarnings&) = delete;
    virtual ~ImportWarnings() = default;

    /// The file has been opened.
    virtual void Start(const std::string& path) = 0;

    /// A problem in a line, counted from 1. With an argument the message is a format text.
    virtual void Warning(resources::StringId message, std::uint32_t line,
                         std::optional<std::string_view> argument) = 0;

    /// The file has been read to its end.
    virtual void End(std::int32_t warningCount) = 0;
};

}  // namespace orvell::paramlist
