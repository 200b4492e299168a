#include "paramlist/field_text.h"

#include <algorithm>

namespace orvell::paramlist {

void AppendWithoutBlanks(std::string& out, std::string_view text) {
    const auto start = static_cast<std::ptrdiff_t>(out.size());
    out += text;
    std::replace(out.begin() + start, out.end(), ' ', kListFileBlank);
}

void AppendQuoted(std::string& out, std::string_view text) {
    constexpr char kQuote = '"';
    const std::size_t before = out.size();
    out.resize(before + 2 * text.size() + 2);
    char* end = out.data() + before;
    *end++ = kQuote;
    for (const char character : text) {
        if (character == kQuote) {
            *end++ = kQuote;
        }
        *end++ = character;
    }
    *end++ = kQuote;
    out.resize(static_cast<std::size_t>(end - out.data()));
}

}  // namespace orvell::paramlist
