#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvell::paramlist {

/// In list files a blank would end a name, value or comment: they have this character instead.
inline constexpr char kListFileBlank = '@';

/// Appends the text with every blank replaced by `kListFileBlank`.
void AppendWithoutBlanks(std::string& out, std::string_view text);

/// As `AppendWithoutBlanks`, to memory with room for the text, which it is no part of. Returns the
/// end of what is written.
char* WriteWithoutBlanks(char* out, std::string_view text);

/// Appends the text between quotation marks, those inside it doubled.
void AppendQuoted(std::string& out, std::string_view text);

/// Room for what `WriteQuoted` makes of a text of this size.
[[nodiscard]] constexpr std::size_t QuotedRoom(std::size_t size) {
    return 2 * size + 2;
}

/// As `AppendQuoted`, to memory with room for `QuotedRoom` bytes. Returns the end of what is
/// written.
char* WriteQuoted(char* out, std::string_view text);

}  // namespace orvell::paramlist
