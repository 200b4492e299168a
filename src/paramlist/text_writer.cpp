#include "paramlist/text_writer.h"

#include <algorithm>
#include <string_view>

namespace orvell::paramlist {

bool TextWriter::Finish() {
    const bool isWritten = Flush();
    return sink_.Close() && isWritten;
}

bool TextWriter::Flush() {
    if (!hasFailed_ && !text_.empty()) {
        Translate();
        hasFailed_ = !sink_.Write(translated_);
    }
    text_.clear();
    return !hasFailed_;
}

void TextWriter::Translate() {
    translated_.clear();
    std::string_view rest = text_;
    while (!rest.empty()) {
        const std::size_t lineFeed = std::min(rest.find('\n'), rest.size());
        translated_.append(rest.substr(0, lineFeed));
        rest.remove_prefix(lineFeed);
        if (!rest.empty()) {
            translated_.append("\r\n");
            rest.remove_prefix(1);
        }
    }
}

}  // namespace orvell::paramlist
