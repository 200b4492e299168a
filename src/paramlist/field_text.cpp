#include "paramlist/field_text.h"

#include <algorithm>

#include "paramlist/text_scan.h"

namespace orvell::paramlist {
namespace {

constexpr char kQuote = '"';

char* CopyDoublingQuotes(char* out, std::string_view text) {
    for (const char character : text) {
        if (character == kQuote) {
            *out++ = kQuote;
        }
        *out++ = character;
    }
    return out;
}

}  // namespace

void AppendWithoutBlanks(std::string& out, std::string_view text) {
    const std::size_t before = out.size();
    out.resize(before + text.size());
    WriteWithoutBlanks(out.data() + before, text);
}

char* WriteWithoutBlanks(char* out, std::string_view text) {
    return CopyReplacing<' ', kListFileBlank>(text, out);
}

void AppendQuoted(std::string& out, std::string_view text) {
    const std::size_t before = out.size();
    out.resize(before + QuotedRoom(text.size()));
    const char* const end = WriteQuoted(out.data() + before, text);
    out.resize(static_cast<std::size_t>(end - out.data()));
}

char* WriteQuoted(char* out, std::string_view text) {
    *out++ = kQuote;
    out = Contains<kQuote>(text) ? CopyDoublingQuotes(out, text)
                                 : std::copy(text.begin(), text.end(), out);
    *out++ = kQuote;
    return out;
}

}  // namespace orvell::paramlist
