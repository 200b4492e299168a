#pragma once

#include <string>

#include "paramlist/parameter_list.h"
#include "platform/byte_stream.h"
#include "resources/string_table.h"

namespace orvell::paramlist {

/// Which records of a list file are taken over.
enum class ListFileScope {
    AllEntries,       ///< missing entries are created
    ExistingEntries,  ///< only entries that the list already has are changed
};

/// Takes a list file's records into the list; those whose keyword is unknown are passed over.
/// Declared marks are neither looked at nor changed. False when the file ends inside its first
/// record or in a line that is no record and has no line end, before any record was complete.
/// Throws std::bad_alloc when memory is short; the records before stay taken over.
[[nodiscard]] bool ReadListFile(ParameterList& list, const resources::StringTable& strings,
                                platform::ByteSource& source, ListFileScope scope);

/// As above, from the file at `path` (ANSI code page). False also when it cannot be opened.
[[nodiscard]] bool ReadListFile(ParameterList& list, const resources::StringTable& strings,
                                const std::string& path, ListFileScope scope);

}  // namespace orvell::paramlist
