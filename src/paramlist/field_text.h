#pragma once

#include <string>
#include <string_view>

namespace orvell::paramlist {

/// In list files a blank would end a name, value or comment: they have this character instead.
inline constexpr char kListFileBlank = '@';

/// Appends the text with every blank replaced by `kListFileBlank`.
void AppendWithoutBlanks(std::string& out, std::string_view text);

/// Appends the text between quotation marks, those inside it doubled.
void AppendQuoted(std::string& out, std::string_view text);

}  // namespace orvell::paramlist
