#include "paramlist/text_reader.h"

#include <cstring>
#include <span>

#include "paramlist/text_scan.h"

namespace orvell::paramlist {
namespace {

constexpr std::size_t kBlockBytes = 64 * 1024;
constexpr char kEndOfText = 26;

/// The next CR with an LF behind it, `end` when there is none.
const char* FindLineEnd(const char* position, const char* end) {
    position = FindFirstOf<'\r'>(position, end);
    while (position != end && (position + 1 == end || position[1] != '\n')) {
        position = FindFirstOf<'\r'>(position + 1, end);
    }
    return position;
}

}  // namespace

TextReader::TextReader(platform::ByteSource& source) : source_(source), buffer_(1 + kBlockBytes) {}

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
        buffer_[size++] = '\r';
    }
    const std::size_t bytesRead = source_.Read(std::span(buffer_).subspan(size));
    isAtEnd_ = bytesRead == 0;
    size += bytesRead;
    if (const void* end = std::memchr(buffer_.data(), kEndOfText, size)) {
        isAtEnd_ = true;
        size = static_cast<std::size_t>(static_cast<const char*>(end) - buffer_.data());
    }
    hasHeldReturn_ = !isAtEnd_ && buffer_[size - 1] == '\r';
    return Translate(hasHeldReturn_ ? size - 1 : size);
}

/// Drops every CR before an LF from the first `size` bytes of the buffer.
std::string_view TextReader::Translate(std::size_t size) {
    char* const begin = buffer_.data();
    const char* const end = begin + size;
    char* out = begin;
    for (const char* in = begin; in != end;) {
        const char* const carriageReturn = FindLineEnd(in, end);
        const auto length = static_cast<std::size_t>(carriageReturn - in);
        std::memmove(out, in, length);
        out += length;
        in = carriageReturn == end ? end : carriageReturn + 1;
    }
    return {begin, static_cast<std::size_t>(out - begin)};
}

}  // namespace orvell::paramlist
