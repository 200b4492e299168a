#pragma once

#include <cstdint>
#include <string>

namespace orvell::fuzz {

/// Exports a small list by a string table in which one text is a hostile translation; `choice`
/// tells which. Ends the program when a file is not what the formats say.
void ExportWithTranslation(std::uint8_t choice, const std::string& text);

}  // namespace orvell::fuzz
