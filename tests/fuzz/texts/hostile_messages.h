#pragma once

#include <cstdint>
#include <string>

namespace orvell::fuzz {

/// Fills a vector and reports an import with `text` in the place of the translated text that
/// `choice` names; comments and lines must be what the formats say.
void ReportWithTranslation(std::uint8_t choice, const std::string& text);

}  // namespace orvell::fuzz
