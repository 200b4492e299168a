#include "paramlist/text_reader.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace orvell::paramlist {
namespace {

constexpr std::size_t kBlockBytes = 64 * 1024;
constexpr char kEndOfText = 26;

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
    char* out = begin;
    std::string_view rest(begin, size);
    while (!rest.empty()) {
        const std::size_t length = std::min(rest.find("\r\n"), rest.size());
        std::memmove(out, rest.data(), length);
        out += length;
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    return {begin, static_cast<std::size_t>(out - begin)};
}

}  // namespace orvell::paramlist
