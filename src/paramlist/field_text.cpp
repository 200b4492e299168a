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
    out += kQuote;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t quote = std::min(text.find(kQuote, start), text.size() - 1);
        out += text.substr(start, quote + 1 - start);
        if (text[quote] == kQuote) {
            out += kQuote;
        }
        start = quote + 1;
    }
    out += kQuote;
}

}  // namespace orvell::paramlist
