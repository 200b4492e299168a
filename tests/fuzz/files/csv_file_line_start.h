#pragma once

#include <cstdint>
#include <string>

#include "fuzz/files/reference_list.h"

namespace orvell::fuzz {

/// What the first field of a line says: an entry, a warning, or neither (a head line or heading).
struct CsvLineStart {
    PlainEntry* entry = nullptr;
    std::uint32_t warning = 0;  ///< 0: none
    std::string argument;       ///< what the warning names
};

/// Takes the text in front of a line's first ";" apart, character by character.
[[nodiscard]] CsvLineStart ReadCsvLineStart(ReferenceList& list, const std::string& text);

}  // namespace orvell::fuzz
