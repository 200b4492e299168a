#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/byte_stream.h"

namespace orvell::paramlist {

/// Reads a text file by the rules of Windows' text mode: CR LF becomes LF, a CR elsewhere stays,
/// and byte 26 (Ctrl-Z) ends the text.
class TextReader {
  public:
    /// `source` must outlive the reader.
    explicit TextReader(platform::ByteSource& source);

    /// The next piece of the text, empty only at its end; valid until the next call. Pieces end
    /// anywhere, but never between a CR and its LF.
    [[nodiscard]] std::string_view Next();

  private:
    [[nodiscard]] std::string_view ReadBlock();
    [[nodiscard]] std::string_view Translate(std::size_t size);

    platform::ByteSource& source_;
    std::vector<char> bytes_;  ///< as read
    std::vector<char> text_;
    bool hasHeldReturn_ = false;  ///< the last block ended in a CR that is still to be given out
    bool isAtEnd_ = false;
};

}  // namespace orvell::paramlist
