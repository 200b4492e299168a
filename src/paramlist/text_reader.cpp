#include "paramlist/text_reader.h"

#include <cstring>
#include <span>

#include "paramlist/text_scan.h"

namespace orvell::paramlist {
namespace {

constexpr std::size_t kBlockBytes = 64 * 1024;
constexpr char kEndOfText = 26;

}  // namespace

TextReader::TextReader(platform::ByteSource& source)
    : source_(source), bytes_(1 + kBlockBytes), text_(bytes_.size() + kBytesPerStep) {}

std::string_view TextReader::Next() {
    std::string_view piece;
    while (piece.empty() && !isAtEnd_) {
        piece = ReadBlock();
    }
    return piece;
}

std::string_view TextReader::ReadBlock() {
    std::size_t size = 0;
    if (hasHeldReturn_) {
        bytes_[size++] = '\r';
    }
    const std::size_t bytesRead = source_.Read(std::span(bytes_).subspan(size));
    isAtEnd_ = bytesRead == 0;
    size += bytesRead;
    if (const void* end = std::memchr(bytes_.data(), kEndOfText, size)) {
        isAtEnd_ = true;
        size = static_cast<std::size_t>(static_cast<const char*>(end) - bytes_.data());
    }
    hasHeldReturn_ = !isAtEnd_ && bytes_[size - 1] == '\r';
    return Translate(hasHeldReturn_ ? size - 1 : size);
}

/// Copies the first `size` bytes without the CRs before an LF.
std::string_view TextReader::Translate(std::size_t size) {
    const char* in = bytes_.data();
    const char* const end = in + size;
    char* out = text_.data();
    while (in != end) {
        const std::size_t length = CopyUntil<'\r'>(in, end, out);
        in += length;
        out += length;
        if (in == end) {
            break;
        }
        const bool isBeforeLineFeed = in + 1 != end && in[1] == '\n';
        *out = *in++;
        out += isBeforeLineFeed ? 0 : 1;
    }
    return {text_.data(), static_cast<std::size_t>(out - text_.data())};
}

}  // namespace orvell::paramlist
