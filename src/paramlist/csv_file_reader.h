#pragma once

#include <string>

#include "paramlist/csv_file_warnings.h"
#include "paramlist/parameter_list.h"
#include "platform/byte_stream.h"
#include "resources/string_table.h"

namespace orvell::paramlist {

/// Takes a CSV file's records into entries that the list already has; none is ever created.
/// Declared marks are neither looked at nor changed. `path` is what the report names. Every problem
/// is a warning, and reading goes on behind it. Throws std::bad_alloc when memory is short; the
/// records before stay taken over.
void ReadCsvFile(ParameterList& list, const resources::StringTable& strings,
                 platform::ByteSource& source, const std::string& path, ImportWarnings& warnings);

/// As above, from the file at `path` (ANSI code page). False when it cannot be opened: nothing is
/// reported then.
[[nodiscard]] bool ReadCsvFile(ParameterList& list, const resources::StringTable& strings,
                               const std::string& path, ImportWarnings& warnings);

}  // namespace orvell::paramlist
