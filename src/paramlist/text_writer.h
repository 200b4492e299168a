#pragma once

#include <string>

#include "platform/byte_stream.h"

namespace orvell::paramlist {

/// Writes a text file by the rule of Windows' text mode: every LF becomes CR LF, also one that
/// follows a CR. The text is collected and leaves in large blocks.
class TextWriter {
  public:
    /// `sink` must outlive the writer.
    explicit TextWriter(platform::ByteSink& sink) : sink_(sink) {}

    /// The text not yet written: callers append to it.
    [[nodiscard]] std::string& Text() { return text_; }

    /// To be called after each line or record. False once a write has failed.
    [[nodiscard]] bool EndRecord() { return text_.size() < kBlockBytes ? !hasFailed_ : Flush(); }

    /// Writes the rest and closes the sink, also after a failure. True when everything was stored.
    [[nodiscard]] bool Finish();

  private:
    static constexpr std::size_t kBlockBytes = 64 * 1024;

    bool Flush();
    void Translate();

    platform::ByteSink& sink_;
    std::string text_;
    std::string translated_;
    bool hasFailed_ = false;
};

}  // namespace orvell::paramlist
