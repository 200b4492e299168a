#pragma once

#include <string>

#include "paramlist/parameter_list.h"
#include "platform/byte_stream.h"
#include "resources/string_table.h"

namespace orvell::paramlist {

/// Writes the whole list in the form for spreadsheets, and closes the sink.
/// True when everything was stored; what was written before a failure stays. Throws std::bad_alloc
/// when memory is short.
[[nodiscard]] bool WriteCsvFile(const ParameterList& list, const resources::StringTable& strings,
                                platform::ByteSink& sink);

/// As above, into the file at `path` (ANSI code page), which is created or emptied. False also for
/// an empty path and when the file cannot be created.
[[nodiscard]] bool WriteCsvFile(const ParameterList& list, const resources::StringTable& strings,
                                const std::string& path);

}  // namespace orvell::paramlist
