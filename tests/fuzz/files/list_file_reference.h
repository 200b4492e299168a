#pragma once

#include <string_view>

#include "fuzz/files/reference_list.h"
#include "paramlist/list_file_reader.h"

namespace orvell::fuzz {

/// Reads a list file byte by byte, as docs/list-file.md describes it. The result is that of the
/// product's reader.
bool ReadListFileByReference(ReferenceList& list, std::string_view bytes,
                             paramlist::ListFileScope scope);

}  // namespace orvell::fuzz
