#include "paramlist/text_writer.h"

#include <algorithm>

#include "paramlist/text_scan.h"

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
    translated_.resize(2 * text_.size() + kBytesPerStep);
    char* out = translated_.data();
    const char* const end = text_.data() + text_.size();
    for (const char* in = text_.data(); in != end;) {
        const std::size_t length = CopyUntil<'\n'>(in, end, out);
        in += length;
        out += length;
        if (in != end) {
            *out++ = '\r';
            *out++ = *in++;
        }
    }
    translated_.resize(static_cast<std::size_t>(out - translated_.data()));
}

}  // namespace orvell::paramlist
